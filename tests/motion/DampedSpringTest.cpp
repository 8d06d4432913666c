#include "quorin/motion/DampedSpring.h"

#include <cmath>
#include <stdexcept>
#include <vector>

#include "tests/TestSupport.h"
#include "tests/motion/SpringTruth.h"
#include "tests/support/AllocationCount.h"

namespace quorin {
namespace {

using test::TrueSpring;
using test::TrueState;

CGFloat trueProgress(CGFloat ratio, CGFloat frequency, CGFloat velocity, CGFloat time) {
    const long double omega = frequency;
    const TrueSpring spring{omega * omega, 2 * omega * static_cast<long double>(ratio)};
    return static_cast<CGFloat>(test::moved(spring, TrueState{0, velocity}, time).progress);
}

TEST(DampedSpring, followsTheTrueMotionAtAnyRatio) {
    for (const CGFloat ratio : {0.0, 0.05, 0.5, 0.99, 1.0, 1.01, 1.5, 4.0, 20.0})
        for (const CGFloat velocity : {-6.0, 0.0, 30.0})
            for (const CGFloat time : {0.0, 0.02, 0.3, 1.5}) {
                const DampedSpring spring(ratio, 9, velocity);
                EXPECT_NEAR(spring(time), trueProgress(ratio, 9, velocity, time), 1e-12)
                    << ratio << ", " << velocity << ", " << time;
            }
}

TEST(DampedSpring, losesNoDigitsCloseToARatioOfOne) {
    for (const CGFloat off : {0x1p-53, 1e-15, 1e-12, 1e-9, 1e-7, 1e-5})
        for (const CGFloat ratio : {1 - off, 1 + 2 * off})
            for (const CGFloat time : {0.02, 0.3, 1.5})
                EXPECT_NEAR(DampedSpring(ratio, 9, 5)(time), trueProgress(ratio, 9, 5, time), 1e-14)
                    << ratio - 1 << ", " << time;
}

TEST(DampedSpring, changesSteadilyWithTheRatioAcrossOne) {
    const CGFloat critical = DampedSpring(1, 9, 5)(0.3);
    for (const CGFloat off : {1e-4, 1e-8, 1e-12})
        for (const CGFloat ratio : {1 - off, 1 + off})
            EXPECT_NEAR(DampedSpring(ratio, 9, 5)(0.3), critical, off + 1e-15) << ratio - 1;
}

TEST(DampedSpring, staysFiniteHoweverStiffOrLate) {
    for (const CGFloat ratio : {0.5, 1.0, 1.5, 1e3, 1e200})
        for (const CGFloat time : {1.0, 1e3, 1e9})
            EXPECT_TRUE(std::isfinite(DampedSpring(ratio, 1e4, 5)(time))) << ratio << ", " << time;
    EXPECT_EQ(DampedSpring(1.5, 1e4, 0)(1e3), 1);
    // So much friction that the spring hardly gets under way: the slow decay is ω / 2ζ.
    EXPECT_NEAR(DampedSpring(1e6, 1e3, 0)(100), -std::expm1(-0.05), 1e-12);
}

TEST(DampedSpring, creepsToRestAboveARatioOfOneWithoutPassingIt) {
    const DampedSpring spring(2, 9, 0);
    CGFloat last = -1;
    for (int i = 0; i <= 100; ++i) {
        const CGFloat progress = spring(i / 50.0);
        EXPECT_GT(progress, last);
        EXPECT_LT(progress, 1);
        last = progress;
    }
}

RC_GTEST_PROP(DampedSpring, thatSettlesInADurationStaysAtRestFromThenOn, ()) {
    const CGFloat ratio = *rc::gen::inRange(20, 3000) / 1000.0;
    const CGFloat velocity = *rc::gen::inRange(-500, 501) / 10.0;
    const CGFloat duration = *rc::gen::inRange(1, 40) / 10.0;
    const DampedSpring spring = DampedSpring::settlingIn(ratio, velocity, duration);
    for (int i = 0; i < 1000; ++i)
        RC_ASSERT(std::abs(spring(duration * (1 + i / 300.0)) - 1) < 0.001 + 1e-12);
}

TEST(DampedSpring, thatSettlesInADurationIsNotFasterThanItHasToBe) {
    // Nothing swings here: at the duration the rest is reached to the digit.
    for (const CGFloat ratio : {1.0, 1.2, 3.0, 50.0})
        for (const CGFloat velocity : {-4.0, 0.0, 2.0})
            EXPECT_NEAR(1 - DampedSpring::settlingIn(ratio, velocity, 0.4)(0.4), 0.001, 1e-12)
                << ratio << ", " << velocity;
    // A swing of ratio 0.2 has an amplitude of 1 / √(1 - 0.2²) times its decay.
    const CGFloat expected = std::log(1000 / std::sqrt(1 - 0.04)) / 0.2;
    EXPECT_NEAR(DampedSpring::settlingIn(0.2, 0, 1).frequency(), expected, 1e-12 * expected);
    EXPECT_NEAR(DampedSpring::settlingIn(0.2, 0, 4).frequency(), expected / 4, 1e-12 * expected);
}

TEST(DampedSpring, settlesAtSteadilyChangingFrequenciesAcrossARatioOfOne) {
    const CGFloat critical = DampedSpring::settlingIn(1, 3, 0.5).frequency();
    EXPECT_NEAR(DampedSpring::settlingIn(1 - 1e-9, 3, 0.5).frequency(), critical, 1e-6);
    EXPECT_NEAR(DampedSpring::settlingIn(1 + 1e-9, 3, 0.5).frequency(), critical, 1e-6);
}

TEST(DampedSpringAnimation, samplesTheTimesBelowTheDuration) {
    const DampedSpring spring = DampedSpring::settlingIn(1.5, 2, 1);
    EXPECT_THAT(dampedSpringAnimation(1.5, 2, 1, 0.25),
                testing::ElementsAre(0, spring(0.25), spring(0.5), spring(0.75)));
    EXPECT_THAT(dampedSpringAnimation(1.5, 2, 1, 0.4),
                testing::ElementsAre(0, spring(0.4), spring(0.8)));
    EXPECT_THAT(dampedSpringAnimation(1.5, 2, 1, 7), testing::ElementsAre(0));
}

TEST(DampedSpringDeathTest, needsPositiveNumbers) {
    EXPECT_DEATH(dampedSpringAnimation(0, 2, 1, 0.1), "damped spring with a ratio of 0.0");
    EXPECT_DEATH(dampedSpringAnimation(1, 2, -1, 0.1), "damped spring with a duration of -1.0");
    EXPECT_DEATH(dampedSpringAnimation(1, 2, 1, 0), "damped spring with a delta of 0.0");
    EXPECT_DEATH(DampedSpring::settlingIn(std::nan(""), 2, 1), "a ratio of nan");
}

TEST(DampedSpringAnimation, isRefusedWhenNoMemoryHoldsIt) {
    EXPECT_THROW(dampedSpringAnimation(1, 2, 1, 1e-300), std::length_error);
}

TEST(DampedSpringAnimation, allocatesItsResultAndNothingElse) {
    const std::size_t before = test::allocationCount();
    const std::vector<CGFloat> curve = dampedSpringAnimation(1.5, 2, 10, 1.0 / 60);
    EXPECT_EQ(test::allocationCount() - before, 1u) << curve.size() << " values";
}

}  // namespace
}  // namespace quorin
