#include "quorin/platform/values/FatalError.h"

#include <csignal>
#include <string>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

TEST(FatalErrorDeathTest, stopsTheProcessWithTheMessage) {
    EXPECT_EXIT(fatalError("segment 4 of 3"), ::testing::KilledBySignal(SIGABRT),
                "fatal error: segment 4 of 3");
}

TEST(FatalErrorDeathTest, namesTheFileAndLineOfItsCaller) {
    const std::string place = "FatalErrorTest.cpp:" + std::to_string(__LINE__ + 1);
    EXPECT_DEATH(fatalError("here"), place);
}

TEST(FatalErrorDeathTest, namesThePlaceItIsGiven) {
    EXPECT_DEATH(fatalError("Not implemented", "Path+CGPath", 12),
                 "Not implemented \\(Path\\+CGPath:12\\)");
}

}  // namespace
}  // namespace quorin
