#include "quorin/platform/values/CGRect.h"

#include <cmath>
#include <limits>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();

TEST(CGRect, nullLiesAtInfinityWithoutSize) {
    EXPECT_EQ(CGRectNull, (CGRect{{infinity, infinity}, {0, 0}}));
    EXPECT_TRUE(CGRectIsNull(CGRectNull));
    EXPECT_FALSE(CGRectIsNull(CGRect::zero));
}

TEST(CGRect, infiniteIsTheLargestFiniteRectAroundTheOrigin) {
    EXPECT_TRUE(CGRectIsInfinite(CGRectInfinite));
    EXPECT_FALSE(CGRectIsInfinite(CGRectMake(-1e308, -1e308, 1e308, 1e308)));
    EXPECT_EQ(CGRectGetWidth(CGRectInfinite), std::numeric_limits<CGFloat>::max());
    EXPECT_EQ(CGRectGetMidX(CGRectInfinite), 0);
    EXPECT_EQ(CGRectGetMidY(CGRectInfinite), 0);
    EXPECT_EQ(CGRectGetMaxX(CGRectInfinite), -CGRectGetMinX(CGRectInfinite));
}

TEST(CGRect, isEmptyWhenNullOrWithoutWidthOrHeight) {
    EXPECT_TRUE(CGRectIsEmpty(CGRectNull));
    EXPECT_TRUE(CGRectIsEmpty(CGRectMake(1, 2, 0, 4)));
    EXPECT_TRUE(CGRectIsEmpty(CGRectMake(1, 2, 3, 0)));
    EXPECT_FALSE(CGRectIsEmpty(CGRectMake(1, 2, 3, 4)));
    EXPECT_FALSE(CGRectIsEmpty(CGRectMake(1, 2, -3, -4)));
}

TEST(CGRect, questionsReadTheStandardizedRectAndFieldsStayRaw) {
    const CGRect rect = CGRectMake(10, 20, -4, -6);
    EXPECT_EQ(rect.origin, (CGPoint{10, 20}));
    EXPECT_EQ(rect.size, (CGSize{-4, -6}));
    EXPECT_EQ(CGRectStandardize(rect), CGRectMake(6, 14, 4, 6));
    EXPECT_EQ(CGRectGetMinX(rect), 6);
    EXPECT_EQ(CGRectGetMidX(rect), 8);
    EXPECT_EQ(CGRectGetMaxX(rect), 10);
    EXPECT_EQ(CGRectGetMinY(rect), 14);
    EXPECT_EQ(CGRectGetMidY(rect), 17);
    EXPECT_EQ(CGRectGetMaxY(rect), 20);
    EXPECT_EQ(CGRectGetWidth(rect), 4);
    EXPECT_EQ(CGRectGetHeight(rect), 6);
}

TEST(CGRect, insetShrinksAroundTheMiddle) {
    EXPECT_EQ(CGRectInset(CGRectMake(0, 0, 10, 20), 2, 3), CGRectMake(2, 3, 6, 14));
    EXPECT_EQ(CGRectInset(CGRectMake(10, 20, -10, -20), 2, 3), CGRectMake(2, 3, 6, 14));
}

TEST(CGRect, negativeInsetGrows) {
    EXPECT_EQ(CGRectInset(CGRectMake(0, 0, 10, 20), -1, -2), CGRectMake(-1, -2, 12, 24));
}

TEST(CGRect, insetOfAllThereIsLeavesALineAndOfMoreIsNull) {
    EXPECT_EQ(CGRectInset(CGRectMake(0, 0, 10, 20), 5, 0), CGRectMake(5, 0, 0, 20));
    EXPECT_TRUE(CGRectIsNull(CGRectInset(CGRectMake(0, 0, 10, 20), 5.5, 0)));
    EXPECT_TRUE(CGRectIsNull(CGRectInset(CGRectMake(0, 0, 10, 20), 0, 11)));
    EXPECT_TRUE(CGRectIsNull(CGRectInset(CGRectNull, -1, -1)));
}

TEST(CGRect, offsetMovesTheOrigin) {
    EXPECT_EQ(CGRectOffset(CGRectMake(1, 2, 3, -4), 10, 20), CGRectMake(11, 22, 3, -4));
    EXPECT_TRUE(CGRectIsNull(CGRectOffset(CGRectNull, 1, 1)));
}

TEST(CGRect, unionSpansBothStandardized) {
    EXPECT_EQ(CGRectUnion(CGRectMake(0, 0, 1, 1), CGRectMake(5, 7, -1, -1)),
              CGRectMake(0, 0, 5, 7));
}

TEST(CGRect, unionWithNullIsTheOther) {
    const CGRect rect = CGRectMake(1, 2, 3, 4);
    EXPECT_EQ(CGRectUnion(rect, CGRectNull), rect);
    EXPECT_EQ(CGRectUnion(CGRectNull, rect), rect);
    EXPECT_TRUE(CGRectIsNull(CGRectUnion(CGRectNull, CGRectNull)));
}

TEST(CGRect, unionCountsARectOfZeroSize) {
    EXPECT_EQ(CGRectUnion(CGRectMake(0, 0, 1, 1), CGRectMake(5, 5, 0, 0)), CGRectMake(0, 0, 5, 5));
}

TEST(CGRect, intersectionIsWhatBothHold) {
    EXPECT_EQ(CGRectIntersection(CGRectMake(0, 0, 10, 10), CGRectMake(15, 4, -9, 20)),
              CGRectMake(6, 4, 4, 6));
}

TEST(CGRect, intersectionAtASharedEdgeHasNoAreaAndIsNotNull) {
    const CGRect left = CGRectMake(0, 0, 10, 10);
    const CGRect right = CGRectMake(10, 2, 5, 5);
    EXPECT_EQ(CGRectIntersection(left, right), CGRectMake(10, 2, 0, 5));
    EXPECT_TRUE(CGRectIntersectsRect(left, right));
    EXPECT_TRUE(CGRectIntersectsRect(left, CGRectMake(10, 10, 1, 1)));
}

TEST(CGRect, intersectionOfRectsApartIsNull) {
    const CGRect rect = CGRectMake(0, 0, 10, 10);
    EXPECT_TRUE(CGRectIsNull(CGRectIntersection(rect, CGRectMake(10.5, 0, 1, 1))));
    EXPECT_FALSE(CGRectIntersectsRect(rect, CGRectMake(0, -2, 1, 1)));
    EXPECT_FALSE(CGRectIntersectsRect(rect, CGRectNull));
}

TEST(CGRect, containsARectWhenTheUnionIsItself) {
    const CGRect rect = CGRectMake(0, 0, 10, 10);
    EXPECT_TRUE(CGRectContainsRect(rect, rect));
    EXPECT_TRUE(CGRectContainsRect(rect, CGRectMake(10, 10, 0, 0)));
    EXPECT_TRUE(CGRectContainsRect(CGRectMake(10, 10, -10, -10), CGRectMake(1, 1, 2, 2)));
    EXPECT_FALSE(CGRectContainsRect(rect, CGRectMake(5, 5, 5.5, 1)));
    EXPECT_FALSE(CGRectContainsRect(CGRectNull, rect));
}

TEST(CGRect, everyRectContainsTheNullRect) {
    EXPECT_TRUE(CGRectContainsRect(CGRect::zero, CGRectNull));
    EXPECT_TRUE(CGRectContainsRect(CGRectNull, CGRectNull));
}

TEST(CGRect, containsARectAlthoughItsEdgesRound) {
    // 0.1 + 0.2 rounds up, so that the width as the difference of the edges is not 0.2 again.
    const CGRect rect = CGRectMake(0.1, 0.1, 0.2, 0.2);
    ASSERT_NE((0.1 + 0.2) - 0.1, 0.2);
    EXPECT_TRUE(CGRectContainsRect(rect, CGRectMake(0.15, 0.15, 0.01, 0.01)));
    EXPECT_TRUE(CGRectContainsRect(rect, rect));
}

TEST(CGRect, containsAPointOnItsMinimumEdgesOnly) {
    const CGRect rect = CGRectMake(10, 20, -10, -20);
    EXPECT_TRUE(CGRectContainsPoint(rect, {0, 0}));
    EXPECT_TRUE(CGRectContainsPoint(rect, {9.999, 0}));
    EXPECT_FALSE(CGRectContainsPoint(rect, {10, 5}));
    EXPECT_FALSE(CGRectContainsPoint(rect, {5, 20}));
}

TEST(CGRect, emptyAndNullContainNoPoint) {
    EXPECT_FALSE(CGRectContainsPoint(CGRectMake(1, 1, 0, 5), {1, 1}));
    EXPECT_FALSE(CGRectContainsPoint(CGRectNull, {infinity, infinity}));
}

TEST(CGRect, containsNoPointThatIsNotANumber) {
    EXPECT_FALSE(CGRectContainsPoint(CGRectMake(0, 0, 1, 1), {nan, 0.5}));
    EXPECT_FALSE(CGRectContainsPoint(CGRectMake(0, 0, nan, 1), {0.5, 0.5}));
}

rc::Gen<CGRect> wholeRect() {
    const auto number = rc::gen::map(rc::gen::inRange(-20, 21), [](int n) { return CGFloat(n); });
    return rc::gen::map(rc::gen::tuple(number, number, number, number), [](const auto& numbers) {
        const auto& [x, y, width, height] = numbers;
        return CGRectMake(x, y, width, height);
    });
}

RC_GTEST_PROP(CGRect, unionHoldsBothAndIntersectionIsHeldByBoth, ()) {
    const CGRect a = *wholeRect();
    const CGRect b = *wholeRect();
    RC_ASSERT(CGRectContainsRect(CGRectUnion(a, b), a));
    RC_ASSERT(CGRectContainsRect(CGRectUnion(a, b), b));
    RC_ASSERT(CGRectContainsRect(a, CGRectIntersection(a, b)));
    RC_ASSERT(CGRectContainsRect(b, CGRectIntersection(a, b)));
}

RC_GTEST_PROP(CGRect, holdsWhatItMeetsOfAnotherForAnyNumbers, (CGFloat x, CGFloat y)) {
    RC_PRE(std::isfinite(x) && std::isfinite(y));
    const CGRect a = CGRectMake(x, y, std::abs(y), std::abs(x));
    const CGRect b = CGRectMake(y, x, std::abs(x) / 3, std::abs(y) / 7);
    const CGRect both = CGRectIntersection(a, b);
    RC_PRE(std::isfinite(CGRectGetMaxX(a)) && std::isfinite(CGRectGetMaxY(a)));
    if (CGRectContainsRect(a, b))
        RC_ASSERT(both == CGRectStandardize(b));
    RC_ASSERT(CGRectIntersectsRect(a, b) == CGRectIntersectsRect(b, a));
}

}  // namespace
}  // namespace quorin
