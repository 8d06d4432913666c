#include "quorin/geometry/TolerantEquality.h"

#include <limits>
#include <string>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();

TEST(GeometricEquality, ofScalarsIsStrictlyWithinTheTolerance) {
    EXPECT_TRUE(isGeometricallyEqual(1.0, 1.25, 0.5));
    EXPECT_TRUE(isGeometricallyEqual(1.25, 1.0, 0.5));
    EXPECT_FALSE(isGeometricallyEqual(1.0, 1.5, 0.5));
    EXPECT_FALSE(isGeometricallyEqual(1.0, 1.0, 0));
}

TEST(GeometricEquality, ofScalarsFailsForNaNAndForInfinities) {
    EXPECT_FALSE(isGeometricallyEqual(nan, nan, 1));
    EXPECT_FALSE(isGeometricallyEqual(infinity, infinity, 1));  // their difference is NaN
}

TEST(GeometricEquality, ofPointsAndSizesAsksBothComponents) {
    EXPECT_TRUE(isGeometricallyEqual(CGPoint{1, 2}, CGPoint{1.25, 1.75}, 0.5));
    EXPECT_FALSE(isGeometricallyEqual(CGPoint{1, 2}, CGPoint{1.5, 2}, 0.5));
    EXPECT_FALSE(isGeometricallyEqual(CGPoint{1, 2}, CGPoint{1, 2.5}, 0.5));
    EXPECT_TRUE(isGeometricallyEqual(CGSize{1, 2}, CGSize{1.25, 1.75}, 0.5));
    EXPECT_FALSE(isGeometricallyEqual(CGSize{1, 2}, CGSize{1.5, 2}, 0.5));
    EXPECT_FALSE(isGeometricallyEqual(CGSize{1, 2}, CGSize{1, 2.5}, 0.5));
}

TEST(GeometricEquality, ofRectsIgnoresTheTolerance) {
    const CGRect rect = CGRectMake(0, 0, 10, 10);
    EXPECT_FALSE(isGeometricallyEqual(rect, CGRectMake(1, 0, 10, 10), 10));
    EXPECT_TRUE(isGeometricallyEqual(rect, CGRectMake(9e-8, 0, 10, 10), 0));
}

TEST(GeometricEquality, ofRectsAsksAllFourNumbers) {
    const CGRect zero;
    EXPECT_TRUE(isGeometricallyEqual(zero, CGRectMake(9e-8, -9e-8, 9e-8, -9e-8), 1));
    EXPECT_FALSE(isGeometricallyEqual(zero, CGRectMake(1e-7, 0, 0, 0), 1));
    EXPECT_FALSE(isGeometricallyEqual(zero, CGRectMake(0, -1e-7, 0, 0), 1));
    EXPECT_FALSE(isGeometricallyEqual(zero, CGRectMake(0, 0, 1e-7, 0), 1));
    EXPECT_FALSE(isGeometricallyEqual(zero, CGRectMake(0, 0, 0, 1e-7), 1));
}

TEST(GeometricEquality, failsForAnotherType) {
    EXPECT_FALSE(isGeometricallyEqual(1.0, 1, 10));
    EXPECT_FALSE(isGeometricallyEqual(1.0, 1.0f, 10));
    EXPECT_FALSE(isGeometricallyEqual(1.0, CGPoint{1, 1}, 10));
    EXPECT_FALSE(isGeometricallyEqual(CGPoint{1, 2}, CGSize{1, 2}, 10));
    EXPECT_FALSE(isGeometricallyEqual(CGSize{1, 2}, CGPoint{1, 2}, 10));
    EXPECT_FALSE(isGeometricallyEqual(CGRect::zero, CGPoint::zero, 10));
    EXPECT_FALSE(isGeometricallyEqual(CGPoint::zero, std::string("zero"), 10));
}

TEST(GeometricallyComparable, showsItsValueUnderItsTypeOnly) {
    const CGPoint point{1, 2};
    const GeometricallyComparable handle = point;
    EXPECT_EQ(handle.as<CGPoint>(), &point);
    EXPECT_EQ(handle.as<CGSize>(), nullptr);
    const GeometricallyComparable copy = handle;
    EXPECT_EQ(copy.as<CGPoint>(), &point);
}

TEST(FixedToleranceEquality, isStrictlyWithinTheGeometricEpsilon) {
    EXPECT_TRUE(isGeometoricallyEqual(CGPoint{0, 0}, CGPoint{9e-8, -9e-8}));
    EXPECT_FALSE(isGeometoricallyEqual(CGPoint{0, 0}, CGPoint{1e-7, 0}));
    EXPECT_FALSE(isGeometoricallyEqual(CGPoint{0, 0}, CGPoint{0, -1e-7}));
    EXPECT_TRUE(isGeometoricallyEqual(CGSize{0, 0}, CGSize{9e-8, -9e-8}));
    EXPECT_FALSE(isGeometoricallyEqual(CGSize{0, 0}, CGSize{1e-7, 0}));
    EXPECT_FALSE(isGeometoricallyEqual(CGSize{0, 0}, CGSize{0, -1e-7}));
    EXPECT_TRUE(isGeometoricallyEqual(CGRect::zero, CGRectMake(9e-8, -9e-8, 9e-8, -9e-8)));
    EXPECT_FALSE(isGeometoricallyEqual(CGRect::zero, CGRectMake(0, 0, 0, 1e-7)));
    EXPECT_FALSE(isGeometoricallyEqual(CGRect::zero, CGRectMake(0, 1e-7, 0, 0)));
}

RC_GTEST_PROP(GeometricEquality, isSymmetric, (int a, int b, int tolerance)) {
    const CGFloat first = a, second = b;
    RC_ASSERT(isGeometricallyEqual(first, second, tolerance) ==
              isGeometricallyEqual(second, first, tolerance));
}

}  // namespace
}  // namespace quorin
