#include "quorin/platform/foundation/NSLog.h"

#include <string>
#include <thread>
#include <vector>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

TEST(NSLog, writesALineToStandardError) {
    testing::internal::CaptureStderr();
    NSLog("something happened");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "something happened\n");
}

TEST(NSLog, endsALineOnceThatBringsItsEndAlong) {
    testing::internal::CaptureStderr();
    NSLog("one\n");
    NSLog("two\n\n");
    NSLog("\n");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "one\ntwo?\n\n");
}

TEST(NSLog, keepsToOneLineWhateverTheMessageQuotes) {
    testing::internal::CaptureStderr();
    NSLog("a\nb\x1B[2J\x7F\tcaf\u00e9");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "a?b?[2J??caf\u00e9\n");
}

TEST(NSLog, givesTheMessageAsItIsToASink) {
    std::vector<std::string> messages;
    {
        const LogRedirection redirection(
            [&](std::string_view message) { messages.emplace_back(message); });
        NSLog("first\nline");
        NSLog("");
    }
    testing::internal::CaptureStderr();
    NSLog("not for the sink");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "not for the sink\n");
    EXPECT_EQ(messages, (std::vector<std::string>{"first\nline", ""}));
}

TEST(NSLog, givesOneMessageAtATime) {
    std::vector<std::string> messages;
    const LogRedirection redirection(
        [&](std::string_view message) { messages.emplace_back(message); });
    const auto logMany = [] {
        for (int i = 0; i < 1'000; ++i)
            NSLog("message");
    };
    std::thread other(logMany);
    logMany();
    other.join();
    EXPECT_EQ(messages, std::vector<std::string>(2'000, "message"));
}

}  // namespace
}  // namespace quorin
