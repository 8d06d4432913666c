#include "quorin/platform/values/MediaTime.h"

#include <ctime>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

double monotonicSeconds() {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

TEST(MediaTime, isTheMonotonicClockInSeconds) {
    constexpr double rounding = 1e-6;
    const double before = monotonicSeconds();
    const double now = CACurrentMediaTime();
    const double after = monotonicSeconds();
    EXPECT_GE(now, before - rounding);
    EXPECT_LE(now, after + rounding);
}

TEST(MediaTime, neverGoesBack) {
    double last = CACurrentMediaTime();
    for (int i = 0; i < 1000; ++i) {
        const double now = CACurrentMediaTime();
        EXPECT_GE(now, last);
        last = now;
    }
}

}  // namespace
}  // namespace quorin
