#include "quorin/extensions/NSExceptionExtension.h"

#include <cstdlib>

#include "quorin/extensions/RunningTests.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

void raise() { throw PlatformException("NSInvalidArgumentException", "no such key"); }

TEST(TryWithBlock, isTrueWhenNothingIsRaised) {
    std::string error = "as before";
    bool hasRun = false;
    EXPECT_TRUE(tryWithBlock([&] { hasRun = true; }, &error));
    EXPECT_TRUE(hasRun);
    EXPECT_EQ(error, "as before");
}

TEST(TryWithBlock, isFalseWithAnErrorThatSaysWhatWasRaised) {
    std::string error;
    EXPECT_FALSE(tryWithBlock(raise, &error));
    EXPECT_EQ(error, "NSInvalidArgumentException: no such key");
    EXPECT_FALSE(tryWithBlock(raise, nullptr));
}

TEST(TryWithBlock, handsTheExceptionToTheCatchBlock) {
    std::string name, reason;
    tryWithBlock(raise, [&](const PlatformException& exception) {
        name = exception.name();
        reason = exception.reason();
    });
    EXPECT_EQ(name, "NSInvalidArgumentException");
    EXPECT_EQ(reason, "no such key");
    tryWithBlock([] {}, [](const PlatformException&) { ADD_FAILURE(); });
}

TEST(TryWithBlock, letsEverythingElsePass) {
    const auto fail = [] { throw std::runtime_error("disk full"); };
    EXPECT_THROW(tryWithBlock(fail, nullptr), std::runtime_error);
    EXPECT_THROW(tryWithBlock(fail, [](const PlatformException&) {}), std::runtime_error);
}

TEST(IsRunningTests, looksForTheMarkOfATestHost) {
    unsetenv("XCInjectBundleInto");
    EXPECT_FALSE(isRunningTests());
    setenv("XCInjectBundleInto", "", 1);
    EXPECT_TRUE(isRunningTests()) << "whatever it holds";
    unsetenv("XCInjectBundleInto");
}

}  // namespace
}  // namespace quorin
