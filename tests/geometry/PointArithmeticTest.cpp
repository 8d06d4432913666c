#include "quorin/geometry/PointArithmetic.h"

#include "tests/TestSupport.h"

namespace quorin {
namespace {

constexpr CGPoint p{12, 20};
constexpr CGPoint q{3, 4};
constexpr CGSize s{3, 4};

TEST(PointArithmetic, worksByComponentOnPoints) {
    EXPECT_EQ(-p, (CGPoint{-12, -20}));
    EXPECT_EQ(p + q, (CGPoint{15, 24}));
    EXPECT_EQ(p - q, (CGPoint{9, 16}));
    EXPECT_EQ(p * q, (CGPoint{36, 80}));
    EXPECT_EQ(p / q, (CGPoint{4, 5}));
}

TEST(PointArithmetic, takesASizeAsWidthAndHeight) {
    EXPECT_EQ(p + s, (CGPoint{15, 24}));
    EXPECT_EQ(p - s, (CGPoint{9, 16}));
    EXPECT_EQ(p * s, (CGPoint{36, 80}));
    EXPECT_EQ(p / s, (CGPoint{4, 5}));
}

TEST(PointArithmetic, scalesByAScalarOnEitherSide) {
    EXPECT_EQ(q * 2, (CGPoint{6, 8}));
    EXPECT_EQ(2 * q, (CGPoint{6, 8}));
    EXPECT_EQ(p / 2, (CGPoint{6, 10}));
}

TEST(PointArithmetic, multipliesWhenAScalarIsDividedByAPoint) { EXPECT_EQ(2 / q, (CGPoint{6, 8})); }

TEST(PointArithmetic, hasTheCompoundFormsOfEveryOperand) {
    CGPoint point = p;
    point += q;
    EXPECT_EQ(point, (CGPoint{15, 24}));
    point -= s;
    EXPECT_EQ(point, (CGPoint{12, 20}));
    point *= s;
    EXPECT_EQ(point, (CGPoint{36, 80}));
    point /= q;
    EXPECT_EQ(point, (CGPoint{12, 20}));
    point += s;
    point -= q;
    point *= q;
    point /= s;
    EXPECT_EQ(point, (CGPoint{12, 20}));
    point *= 2.5;
    EXPECT_EQ(point, (CGPoint{30, 50}));
    point /= 10;
    EXPECT_EQ(point, (CGPoint{3, 5}));
}

TEST(PointArithmetic, handsBackTheChangedOperand) {
    CGPoint point = p;
    EXPECT_EQ(&(point += q), &point);
    EXPECT_EQ(&(point /= 2), &point);
}

TEST(PointArithmetic, dividesByZeroAsTheNumbersDo) {
    const CGPoint result = CGPoint{1, -1} / 0;
    EXPECT_EQ(result.x, std::numeric_limits<CGFloat>::infinity());
    EXPECT_EQ(result.y, -std::numeric_limits<CGFloat>::infinity());
}

TEST(PointArithmetic, hasTheDotAndTheCrossProduct) {
    EXPECT_EQ(dot(p, q), 116);
    EXPECT_EQ(cross(p, q), -12);
}

TEST(PointDistance, isEuclideanOrItsSquare) {
    EXPECT_EQ(distance({1, 2}, {4, 6}), 5);
    EXPECT_EQ(distance({1, 2}, {4, 6}, true), 25);
    EXPECT_EQ(distance({1, 2}, {2, 3}, true), 2);  // a squared root would not be exact
}

TEST(PointComparison, isTolerantInBothComponents) {
    EXPECT_TRUE(isNearlyEqual(CGPoint{1e-13, -1e-13}, CGPoint::zero));
    EXPECT_FALSE(isNearlyEqual(CGPoint{1e-12, 0}, CGPoint::zero));
    EXPECT_FALSE(isNearlyEqual(CGPoint{0, 1e-12}, CGPoint::zero));
}

RC_GTEST_PROP(PointArithmetic, undoesItself, (int x, int y, int u, int v)) {
    const CGPoint a{static_cast<CGFloat>(x), static_cast<CGFloat>(y)};
    const CGPoint b{static_cast<CGFloat>(u), static_cast<CGFloat>(v)};
    RC_ASSERT(a + b - b == a);
    RC_ASSERT(a - b == -(b - a));
    RC_ASSERT(a * b == b * a);
}

}  // namespace
}  // namespace quorin
