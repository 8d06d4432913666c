#include "quorin/geometry/Scalar.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <numbers>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();

TEST(ScalarConstants, haveTheirValues) {
    EXPECT_EQ(scalar::epsilon, 1e-12);
    EXPECT_EQ(scalar::machineEpsilon, 1.12e-16);
    EXPECT_EQ(scalar::actualMachineEpsilon, 2.220446049250313e-16);
    EXPECT_EQ(scalar::curvetimeEpsilon, 4e-7);
    EXPECT_EQ(scalar::geometricEpsilon, 1e-7);
    EXPECT_EQ(scalar::windingEpsilon, 1e-8);
    EXPECT_EQ(scalar::trigonometricEpsilon, 1e-8);
    EXPECT_EQ(scalar::clippingEpsilon, 1e-10);
    EXPECT_EQ(scalar::animationGeometricEpsilon, 0.001);
    EXPECT_EQ(scalar::kappa, 0.5522847498307936);
    EXPECT_EQ(scalar::halfPi, 1.5707963267948966);
    EXPECT_EQ(scalar::quarterPi, 0.7853981633974483);
    EXPECT_EQ(scalar::twoPi, 6.283185307179586);
    EXPECT_EQ(scalar::degreesPerRadian, 57.29577951308232);
    EXPECT_EQ(scalar::radiansPerDegree, 0.017453292519943295);
    EXPECT_EQ(scalar::greatestFinite, 1.7976931348623157e308);
    EXPECT_EQ(scalar::leastNormal, 2.2250738585072014e-308);
}

TEST(ScalarConstants, kappaBendsOneCubicIntoAQuarterCircle) {
    CGFloat farthest = 0;
    for (int i = 0; i <= 1000; ++i) {
        const CGFloat t = i / 1000.0, s = 1 - t;
        const CGFloat x = s * s * s + 3 * s * s * t + 3 * s * t * t * scalar::kappa;
        const CGFloat y = t * t * t + 3 * t * t * s + 3 * t * s * s * scalar::kappa;
        farthest = std::max(farthest, std::abs(std::hypot(x, y) - 1));
    }
    EXPECT_LT(farthest, 2.8e-4);
}

TEST(ScalarComparison, isTolerantBelowEpsilon) {
    EXPECT_TRUE(isNearlyEqual(0.0, 0.99e-12));
    EXPECT_FALSE(isNearlyUnequal(0.0, 0.99e-12));
    EXPECT_FALSE(isNearlyEqual(0.0, -1.01e-12));
    EXPECT_TRUE(isNearlyUnequal(0.0, -1.01e-12));
}

TEST(ScalarComparison, isNeitherEqualNorUnequalAtExactlyEpsilon) {
    EXPECT_FALSE(isNearlyEqual(0.0, 1e-12));
    EXPECT_FALSE(isNearlyUnequal(0.0, 1e-12));
    EXPECT_FALSE(isNearlyEqual(1e-12, 0.0));
    EXPECT_FALSE(isNearlyUnequal(1e-12, 0.0));
}

TEST(Sign, countsZeroAndNaNAsPositive) {
    EXPECT_EQ(sign(-3), -1);
    EXPECT_EQ(sign(-infinity), -1);
    EXPECT_EQ(sign(5e-324), 1);
    EXPECT_EQ(sign(0.0), 1);
    EXPECT_EQ(sign(-0.0), 1);
    EXPECT_EQ(sign(nan), 1);
}

TEST(IsIntegral, tellsWholeNumbersFromOthers) {
    EXPECT_TRUE(isIntegral(3.0));
    EXPECT_TRUE(isIntegral(-3.0f));
    EXPECT_TRUE(isIntegral(-0.0));
    EXPECT_TRUE(isIntegral(1e300));
    EXPECT_FALSE(isIntegral(3.5));
    EXPECT_FALSE(isIntegral(-1e-300));
    EXPECT_FALSE(isIntegral(infinity));
    EXPECT_FALSE(isIntegral(nan));
}

TEST(IsReal, isTrueWithAFractionalPart) {
    EXPECT_TRUE(isReal(0.25f));
    EXPECT_TRUE(isReal(-2.5));
    EXPECT_FALSE(isReal(2.0));
}

TEST(Parity, readsTheLowestBit) {
    EXPECT_TRUE(isEven(0));
    EXPECT_TRUE(isEven(-4));
    EXPECT_FALSE(isEven(7u));
    EXPECT_TRUE(isOdd(-1));
    EXPECT_TRUE(isOdd(std::int8_t{127}));
    EXPECT_FALSE(isOdd(std::uint64_t{1} << 63));
}

RC_GTEST_PROP(Parity, isEvenOrOddNeverBoth, (std::int64_t n)) {
    RC_ASSERT(isEven(n) != isOdd(n));
    RC_ASSERT(isOdd(n) == (n % 2 != 0));
}

}  // namespace
}  // namespace quorin
