#include "quorin/motion/RK4Spring.h"

#include <cmath>
#include <limits>
#include <vector>

#include "tests/TestSupport.h"
#include "tests/motion/SpringTruth.h"
#include "tests/support/AllocationCount.h"

namespace quorin {
namespace {

using test::TrueSpring;
using test::TrueState;

constexpr CGFloat frame = 1.0 / 60;
constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();
constexpr CGFloat greatest = 1.7976931348623157e308;

struct Step {
    bool isAtRest;
    CGFloat value, velocity;
};

Step stepFrom(CGFloat value, CGFloat velocity, CGFloat tension, CGFloat friction, CGFloat delta) {
    const bool isAtRest = lerpRK4Spring(value, tension, friction, velocity, delta);
    return {isAtRest, value, velocity};
}

TEST(LerpRK4Spring, withDeltaZeroReturnsFalseAndChangesNothing) {
    for (const CGFloat delta : {0.0, -0.0}) {
        const Step step = stepFrom(nan, -infinity, 170, 26, delta);
        EXPECT_FALSE(step.isAtRest);
        EXPECT_TRUE(std::isnan(step.value));
        EXPECT_EQ(step.velocity, -infinity);
        EXPECT_FALSE(stepFrom(1, 0, 170, 26, delta).isAtRest) << "although it lies at 1";
    }
}

TEST(LerpRK4Spring, makesAStepThatCanBeDoneByHand) {
    // T = 4, F = 2, h = 1/2 from x = -1, v = 0: a1 = 4, u2 = 1, a2 = 2, u3 = 1/2, a3 = 2, u4 = 1,
    // a4 = 1, so x' = -1 + (0 + 2·(3/2) + 1)/12 and v' = (4 + 2·4 + 1)/12.
    const Step step = stepFrom(0, 0, 4, 2, 0.5);
    EXPECT_DOUBLE_EQ(step.value, 1.0 / 3);
    EXPECT_DOUBLE_EQ(step.velocity, 13.0 / 12);
    EXPECT_FALSE(step.isAtRest);
}

RC_GTEST_PROP(LerpRK4Spring, isTheExponentialSeriesUpToTheFourthPower, ()) {
    const auto number = [](int low, int high) { return *rc::gen::inRange(low, high) / 1000.0; };
    const CGFloat value = number(-2000, 2000), velocity = number(-100'000, 100'000);
    const CGFloat tension = number(0, 500'000), friction = number(0, 60'000);
    const CGFloat delta = number(-50, 50);
    RC_PRE(delta != 0);
    const TrueState truth =
        test::afterSeriesStep(TrueSpring{tension, friction}, TrueState{value, velocity}, delta);
    const Step step = stepFrom(value, velocity, tension, friction, delta);
    // The intermediate velocities grow to the size of tension · delta · 100.
    RC_ASSERT(std::abs(step.value - static_cast<CGFloat>(truth.progress)) < 1e-11);
    RC_ASSERT(std::abs(step.velocity - static_cast<CGFloat>(truth.velocity)) < 1e-9);
}

TEST(LerpRK4Spring, restsStrictlyBelowTheTolerance) {
    // Without tension and friction the velocity stays and the way is velocity · delta. The powers
    // of two keep the arithmetic exact, so that the way is off by the bits of 1 + way alone.
    const CGFloat justBelow = std::nextafter(0.002, 0.0);
    EXPECT_FALSE(stepFrom(1, 0.002, 0, 0, 0x1p-20).isAtRest);
    EXPECT_TRUE(stepFrom(1, justBelow, 0, 0, 0x1p-20).isAtRest);
    EXPECT_FALSE(stepFrom(1, -0.002, 0, 0, 0x1p-20).isAtRest);
    EXPECT_TRUE(stepFrom(1, -justBelow, 0, 0, 0x1p-20).isAtRest);
    EXPECT_FALSE(stepFrom(1.0021, 0, 0, 0, frame).isAtRest);
    EXPECT_TRUE(stepFrom(1.0019, 0, 0, 0, frame).isAtRest);
    EXPECT_FALSE(stepFrom(0.9979, 0, 0, 0, frame).isAtRest);
    EXPECT_TRUE(stepFrom(0.9981, 0, 0, 0, frame).isAtRest);
}

TEST(LerpRK4Spring, restsByTheWayItIsOffAndNotByTheValueItStores) {
    // Just below the tolerance, with few enough bits for the step of velocity · delta to be exact,
    // yet adding 1 rounds it to a value that is not.
    const CGFloat off = std::floor(0.002 * 0x1p56) * 0x1p-56;
    ASSERT_LT(off, 0.002);
    ASSERT_GE((off + 1) - 1, 0.002);
    const Step step = stepFrom(1, 0x1p-10, 0, 0, off * 0x1p10);
    EXPECT_EQ(step.value, off + 1);
    EXPECT_TRUE(step.isAtRest);
    EXPECT_FALSE(stepFrom(1, 0x1p-10, 0, 0, (off + 0x1p-56) * 0x1p10).isAtRest);
}

TEST(LerpRK4Spring, repairsNotANumberToZero) {
    const Step step = stepFrom(nan, 3, 170, 26, frame);
    EXPECT_EQ(step.value, 0);
    EXPECT_EQ(step.velocity, 0);
    EXPECT_FALSE(step.isAtRest);
}

TEST(LerpRK4Spring, repairsInfinitiesToTheGreatestNumbersOfTheirSign) {
    const Step far = stepFrom(1, -1e308, 0, 0, 1);
    EXPECT_EQ(far.value, -greatest);
    EXPECT_EQ(far.velocity, -1e308);
    for (const CGFloat sign : {1.0, -1.0}) {  // friction and tension that drive instead of brake
        const Step driven = stepFrom(1, sign * 1e308, -1, -10, 1);
        EXPECT_EQ(driven.value, sign * greatest);
        EXPECT_EQ(driven.velocity, sign * greatest);
        EXPECT_FALSE(driven.isAtRest);
    }
}

TEST(LerpRK4Spring, doesNotRestWhereItsWayIsNotANumber) {
    EXPECT_FALSE(stepFrom(1, nan, 170, 26, frame).isAtRest);
    EXPECT_FALSE(stepFrom(nan, 0, 170, 26, frame).isAtRest);
}

TEST(LerpRK4Spring, restsByTheVelocityAsItIsRepaired) {
    // So much friction that the accelerations are -1e308, 0.5e308, -1.75e308 and +infinity, of
    // which twice the middle two make -infinity; in so short a step that the way stays at 0.
    const Step step = stepFrom(1, 1, 0, 1e308, 3e-308);
    EXPECT_EQ(step.value, 1);
    EXPECT_EQ(step.velocity, 0);
    EXPECT_TRUE(step.isAtRest);
}

TEST(RK4SpringAnimation, holdsTheValueAfterEachStep) {
    const std::vector<CGFloat> curve = RK4SpringAnimation(170, 26, 2, frame);
    CGFloat value = 0, velocity = 2;
    for (std::size_t i = 0; i < curve.size(); ++i) {
        const bool isAtRest = lerpRK4Spring(value, 170, 26, velocity, frame);
        EXPECT_EQ(curve[i], value);
        EXPECT_EQ(isAtRest, i + 1 == curve.size()) << "after step " << i;
    }
}

TEST(RK4SpringAnimation, followsTheTrueMotion) {
    const std::vector<CGFloat> curve = RK4SpringAnimation(170, 26, 5, frame);
    for (std::size_t i = 0; i < curve.size(); i += 7) {
        const TrueState truth = test::moved(TrueSpring{170, 26}, TrueState{0, 5},
                                            static_cast<long double>(i + 1) / 60.0L);
        EXPECT_NEAR(curve[i], static_cast<CGFloat>(truth.progress), 1e-3) << i;
    }
    // A fourth of the step leaves at most a 200th of the error.
    const std::vector<CGFloat> finer = RK4SpringAnimation(170, 26, 5, frame / 4);
    for (std::size_t i = 3; i < finer.size(); i += 28) {
        const TrueState truth = test::moved(TrueSpring{170, 26}, TrueState{0, 5},
                                            static_cast<long double>(i + 1) / 240.0L);
        EXPECT_NEAR(finer[i], static_cast<CGFloat>(truth.progress), 5e-6) << i;
    }
}

TEST(RK4SpringAnimation, takesMoreThanAVelocityOfAHundredAsAHundred) {
    EXPECT_EQ(RK4SpringAnimation(170, 26, 500, frame), RK4SpringAnimation(170, 26, 100, frame));
    EXPECT_EQ(RK4SpringAnimation(170, 26, infinity, frame),
              RK4SpringAnimation(170, 26, 100, frame));
    EXPECT_EQ(RK4SpringAnimation(170, 26, -500, frame), RK4SpringAnimation(170, 26, -100, frame));
    EXPECT_NE(RK4SpringAnimation(170, 26, 99, frame), RK4SpringAnimation(170, 26, 100, frame));
}

TEST(RK4SpringAnimation, startsOverAtRestAfterAVelocityThatIsNotANumber) {
    const std::vector<CGFloat> still = RK4SpringAnimation(170, 26, 0, frame);
    const std::vector<CGFloat> curve = RK4SpringAnimation(170, 26, nan, frame);
    ASSERT_EQ(curve.size(), still.size() + 1);
    EXPECT_EQ(curve.front(), 0);
    EXPECT_TRUE(std::equal(still.begin(), still.end(), curve.begin() + 1));
}

TEST(RK4SpringAnimation, beginsWithTheFirstStepAndNotWithZero) {
    const std::vector<CGFloat> curve = RK4SpringAnimation(170, 26, 0, frame);
    EXPECT_EQ(curve.front(), stepFrom(0, 0, 170, 26, frame).value);
    EXPECT_GT(curve.front(), 0);
}

RC_GTEST_PROP(RK4SpringAnimation, endsAtRestAndIsNowhereZero, ()) {
    const CGFloat tension = *rc::gen::inRange(20, 600), friction = *rc::gen::inRange(5, 60);
    const CGFloat velocity = *rc::gen::inRange(-150, 151);
    const std::vector<CGFloat> curve = RK4SpringAnimation(tension, friction, velocity, frame);
    RC_ASSERT(std::abs(curve.back() - 1) <= 0.002);
    for (const CGFloat value : curve)
        RC_ASSERT(value != 0);
}

TEST(RK4SpringAnimation, allocatesItsResultAndNothingElse) {
    const std::size_t before = test::allocationCount();
    const std::vector<CGFloat> curve = RK4SpringAnimation(170, 26, 0, frame);
    EXPECT_EQ(test::allocationCount() - before, 1u);
    EXPECT_LT(curve.size(), 256u);

    const std::size_t beforeLong = test::allocationCount();
    const std::vector<CGFloat> longer = RK4SpringAnimation(170, 1, 0, frame);
    EXPECT_GT(longer.size(), 512u);
    EXPECT_LE(test::allocationCount() - beforeLong, 4u) << "growing by doubling from 256";
}

}  // namespace
}  // namespace quorin
