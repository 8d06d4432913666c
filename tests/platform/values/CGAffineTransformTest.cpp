#include "quorin/platform/values/CGAffineTransform.h"

#include <numbers>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using ::testing::DoubleEq;
using ::testing::DoubleNear;

constexpr CGAffineTransform odd{2, 3, 5, 7, 11, 13};

void expectPoint(CGPoint actual, CGFloat x, CGFloat y) {
    EXPECT_THAT(actual.x, DoubleNear(x, 1e-12));
    EXPECT_THAT(actual.y, DoubleNear(y, 1e-12));
}

TEST(CGAffineTransform, mapsAPointByColumns) {
    // x' = 2·10 + 5·100 + 11, y' = 3·10 + 7·100 + 13
    expectPoint(CGPointApplyAffineTransform({10, 100}, odd), 531, 743);
}

TEST(CGAffineTransform, mapsASizeWithoutTranslation) {
    const CGSize size = CGSizeApplyAffineTransform({10, 100}, odd);
    EXPECT_EQ(size, (CGSize{520, 730}));
}

TEST(CGAffineTransform, rotatesFromXTowardsY) {
    const auto quarter = CGAffineTransformMakeRotation(std::numbers::pi / 2);
    expectPoint(CGPointApplyAffineTransform({1, 0}, quarter), 0, 1);
    expectPoint(CGPointApplyAffineTransform({0, 1}, quarter), -1, 0);
}

TEST(CGAffineTransform, concatenationAppliesTheFirstFirst) {
    const auto scale = CGAffineTransformMakeScale(2, 3);
    const auto move = CGAffineTransformMakeTranslation(10, 20);
    expectPoint(CGPointApplyAffineTransform({1, 1}, CGAffineTransformConcat(scale, move)), 12, 23);
    expectPoint(CGPointApplyAffineTransform({1, 1}, CGAffineTransformConcat(move, scale)), 22, 63);
}

TEST(CGAffineTransform, onlyTheExactIdentityIsTheIdentity) {
    EXPECT_TRUE(CGAffineTransformIsIdentity(CGAffineTransform{}));
    EXPECT_TRUE(CGAffineTransformIsIdentity({1, -0.0, 0, 1, 0, 0}));
    EXPECT_FALSE(CGAffineTransformIsIdentity({1, 0, 0, 1, 0, 1e-300}));
}

TEST(CGAffineTransform, withoutAnInverseStaysItself) {
    const CGAffineTransform flat{1, 2, 2, 4, 5, 6};
    EXPECT_EQ(CGAffineTransformInvert(flat), flat);
}

TEST(CGAffineTransform, withoutAFiniteDeterminantStaysItself) {
    const CGAffineTransform huge{1e200, 0, 0, 1e200, 0, 0};
    EXPECT_EQ(CGAffineTransformInvert(huge), huge);
}

TEST(CGAffineTransform, invertsByHand) {
    // det = 2·7 − 3·5 = −1
    EXPECT_EQ(CGAffineTransformInvert(odd), (CGAffineTransform{-7, 3, 5, -2, 12, -7}));
}

TEST(CGAffineTransform, mapsARectToTheSmallestUprightOne) {
    const auto eighth = CGAffineTransformMakeRotation(std::numbers::pi / 4);
    const CGRect turned = CGRectApplyAffineTransform(CGRectMake(0, 0, 1, 1), eighth);
    EXPECT_THAT(turned.origin.x, DoubleNear(-std::numbers::sqrt2 / 2, 1e-15));
    EXPECT_THAT(turned.origin.y, DoubleNear(0, 1e-15));
    EXPECT_THAT(turned.size.width, DoubleEq(std::numbers::sqrt2));
    EXPECT_THAT(turned.size.height, DoubleEq(std::numbers::sqrt2));
}

TEST(CGAffineTransform, mapsTheStandardizedRect) {
    const auto flip = CGAffineTransformMakeScale(-1, 1);
    EXPECT_EQ(CGRectApplyAffineTransform(CGRectMake(4, 6, -3, -2), flip), CGRectMake(-4, 4, 3, 2));
}

TEST(CGAffineTransform, keepsTheNullAndTheInfiniteRect) {
    const auto move = CGAffineTransformMakeTranslation(1, 1);
    EXPECT_TRUE(CGRectIsNull(CGRectApplyAffineTransform(CGRectNull, move)));
    EXPECT_TRUE(CGRectIsInfinite(CGRectApplyAffineTransform(CGRectInfinite, move)));
}

RC_GTEST_PROP(CGAffineTransform, inverseUndoesIt, ()) {
    const auto number = [] { return static_cast<CGFloat>(*rc::gen::inRange(-20, 21)); };
    const CGAffineTransform transform{number(), number(), number(), number(), number(), number()};
    RC_PRE(transform.a * transform.d - transform.b * transform.c != 0);
    const CGPoint point{number(), number()};
    const CGPoint back = CGPointApplyAffineTransform(CGPointApplyAffineTransform(point, transform),
                                                     CGAffineTransformInvert(transform));
    RC_ASSERT(std::abs(back.x - point.x) < 1e-9);
    RC_ASSERT(std::abs(back.y - point.y) < 1e-9);
}

RC_GTEST_PROP(CGAffineTransform, concatenationIsOneAfterTheOther, ()) {
    // Whole numbers of this size stay exact.
    const auto number = [] { return static_cast<CGFloat>(*rc::gen::inRange(-1000, 1001)); };
    const CGAffineTransform first{number(), number(), number(), number(), number(), number()};
    const CGAffineTransform second{number(), number(), number(), number(), number(), number()};
    const CGPoint point{number(), number()};
    RC_ASSERT(CGPointApplyAffineTransform(point, CGAffineTransformConcat(first, second)) ==
              CGPointApplyAffineTransform(CGPointApplyAffineTransform(point, first), second));
}

}  // namespace
}  // namespace quorin
