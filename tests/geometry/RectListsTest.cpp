#include "quorin/geometry/RectLists.h"

#include <cmath>
#include <limits>
#include <vector>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::ElementsAre;
using testing::Optional;
using Rects = std::vector<CGRect>;

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();

TEST(UnionOf, noRectsIsTheZeroRect) { EXPECT_EQ(unionOf({}), CGRect::zero); }

TEST(UnionOf, oneRectIsThatRectAsItStands) {
    EXPECT_EQ(unionOf(Rects{CGRectMake(1, 2, -3, -4)}), CGRectMake(1, 2, -3, -4));
    EXPECT_EQ(unionOf(Rects{CGRectNull}), CGRectNull);
}

TEST(UnionOf, manyRectsHoldsThemAll) {
    EXPECT_EQ(unionOf(Rects{CGRectMake(10, 10, 5, 5), CGRectMake(-1, 12, 2, 2),
                            CGRectMake(11, 40, -3, -1)}),
              CGRectMake(-1, 10, 16, 30));
    EXPECT_EQ(unionOf(Rects{CGRectNull, CGRectMake(10, 10, 5, 5), CGRectMake(0, 0, 0, 0)}),
              CGRectMake(0, 0, 15, 15));
}

TEST(ResizeBoundingRect, mapsEachRectInProportionAndOrder) {
    const Rects rects{CGRectMake(60, 30, 40, 20), CGRectMake(10, 20, 5, 0)};
    // Twice as wide, half as high.
    EXPECT_THAT(resizeBoundingRect(CGRectMake(10, 20, 100, 40), CGRectMake(-5, 7, 200, 20), rects),
                ElementsAre(CGRectMake(95, 12, 80, 10), CGRectMake(-5, 7, 10, 0)));
}

TEST(ResizeBoundingRect, goesByTheStoredFieldsOfANegativeSize) {
    EXPECT_THAT(resizeBoundingRect(CGRectMake(10, 20, 100, 40), CGRectMake(0, 0, -100, 40),
                                   Rects{CGRectMake(20, 30, 10, 10)}),
                ElementsAre(CGRectMake(-10, 10, -10, 10)));
}

TEST(ResizeBoundingRect, ofNoRectsIsNoRects) {
    EXPECT_TRUE(resizeBoundingRect(CGRectMake(0, 0, 1, 1), CGRectMake(0, 0, 2, 2), {}).empty());
}

TEST(ResizeBoundingRect, doesNotGuardAgainstSidesOfZero) {
    const auto fromNothing = resizeBoundingRect(CGRectMake(0, 0, 0, 10), CGRectMake(0, 0, 5, 10),
                                                Rects{CGRectMake(1, 1, 0, 2)});
    EXPECT_EQ(fromNothing[0].origin, (CGPoint{infinity, 1}));
    EXPECT_TRUE(std::isnan(fromNothing[0].size.width));
    const auto toNothing = resizeBoundingRect(CGRectMake(0, 0, 5, 10), CGRectMake(3, 0, 0, 10),
                                              Rects{CGRectMake(1, 1, 4, 2)});
    EXPECT_EQ(toNothing[0], CGRectMake(3, 1, 0, 2));
}

RC_GTEST_PROP(ResizeBoundingRect, thereAndBackIsWhereItWas, ()) {
    const auto place = [] { return *rc::gen::inRange(-1000, 1001) / 8.0; };
    const auto side = [] { return *rc::gen::inRange(1, 1000) / 8.0; };
    const CGRect box = CGRectMake(place(), place(), side(), side());
    const CGRect other = CGRectMake(place(), place(), side(), side());
    const Rects rects{box, CGRectMake(place(), place(), side(), side())};
    const Rects there = resizeBoundingRect(box, other, rects);
    const Rects back = resizeBoundingRect(other, box, there);
    const auto isNear = [](const CGRect& a, const CGRect& b) {
        return std::abs(a.origin.x - b.origin.x) < 1e-9 &&
               std::abs(a.origin.y - b.origin.y) < 1e-9 &&
               std::abs(a.size.width - b.size.width) < 1e-9 &&
               std::abs(a.size.height - b.size.height) < 1e-9;
    };
    RC_ASSERT(isNear(there[0], other));
    for (std::size_t i = 0; i < rects.size(); ++i)
        RC_ASSERT(isNear(back[i], rects[i]));
}

TEST(ContainingRect, isTheOneThatReachesAsFarAsAll) {
    EXPECT_THAT(GetHorizontallyContainingRectWithRects(
                    Rects{CGRectMake(0, 0, 10, 10), CGRectMake(2, 50, 5, 5)}),
                Optional(CGRectMake(0, 0, 10, 10)));
    EXPECT_THAT(GetVerticallyContainingRectWithRects(
                    Rects{CGRectMake(50, 2, 5, 5), CGRectMake(0, 0, 10, 10)}),
                Optional(CGRectMake(0, 0, 10, 10)));
}

TEST(ContainingRect, isNoneOfTwoThatOnlyOverlap) {
    const Rects overlapping{CGRectMake(0, 0, 10, 10), CGRectMake(5, 5, 10, 10)};
    EXPECT_EQ(GetHorizontallyContainingRectWithRects(overlapping), std::nullopt);
    EXPECT_EQ(GetVerticallyContainingRectWithRects(overlapping), std::nullopt);
}

TEST(ContainingRect, isNoneOfNone) {
    EXPECT_EQ(GetHorizontallyContainingRectWithRects({}), std::nullopt);
    EXPECT_EQ(GetVerticallyContainingRectWithRects({}), std::nullopt);
}

TEST(ContainingRect, isTheFirstOfEqualOnesAndCountsSharedEdges) {
    EXPECT_THAT(GetHorizontallyContainingRectWithRects(Rects{
                    CGRectMake(2, 0, 8, 1), CGRectMake(0, 1, 10, 1), CGRectMake(0, 2, 10, 1)}),
                Optional(CGRectMake(0, 1, 10, 1)));
}

TEST(ContainingRect, isExact) {
    const CGFloat more = std::nextafter(10.0, 11.0);
    EXPECT_EQ(GetHorizontallyContainingRectWithRects(
                  Rects{CGRectMake(0, 0, 10, 1), CGRectMake(1, 0, more - 1, 1)}),
              std::nullopt);
}

TEST(ContainingRect, goesByTheStoredFieldsOfANegativeSize) {
    // From 10 to 0 as it stands: nothing starts later or ends earlier, so it is never the one.
    EXPECT_THAT(GetHorizontallyContainingRectWithRects(
                    Rects{CGRectMake(10, 0, -10, 1), CGRectMake(4, 0, 2, 1)}),
                Optional(CGRectMake(4, 0, 2, 1)));
}

TEST(ContainingRect, isNoneWhereANumberIsMissing) {
    EXPECT_EQ(GetHorizontallyContainingRectWithRects(
                  Rects{CGRectMake(0, 0, 10, 1), CGRectMake(nan, 0, 1, 1)}),
              std::nullopt);
    EXPECT_EQ(GetHorizontallyContainingRectWithRects(Rects{CGRectMake(0, 0, nan, 1)}),
              std::nullopt);
    EXPECT_EQ(GetHorizontallyContainingRectWithRects(
                  Rects{CGRectMake(0, 0, 10, 1), CGRectMake(1, 0, nan, 1)}),
              std::nullopt)
        << "a width alone";
    EXPECT_THAT(GetVerticallyContainingRectWithRects(Rects{CGRectMake(nan, 0, 1, 1)}),
                Optional(testing::Field(&CGRect::size, CGSize{1, 1})));
    EXPECT_THAT(GetHorizontallyContainingRectWithRects(
                    Rects{CGRectMake(infinity, 0, 1, 1), CGRectMake(infinity, 5, 2, 2)}),
                Optional(CGRectMake(infinity, 0, 1, 1)));
}

/// Every rect against every other, as the question is put.
std::optional<CGRect> horizontallyContainingByPairs(const Rects& rects) {
    for (const CGRect& R : rects) {
        const auto isInside = [&](const CGRect& r) {
            return R.origin.x <= r.origin.x &&
                   r.origin.x + r.size.width <= R.origin.x + R.size.width;
        };
        if (std::all_of(rects.begin(), rects.end(), isInside))
            return R;
    }
    return std::nullopt;
}

RC_GTEST_PROP(ContainingRect, isThatOfComparingAllPairs, ()) {
    const int count = *rc::gen::inRange(0, 6);
    Rects rects;
    for (int i = 0; i < count; ++i) {
        const CGFloat start = *rc::gen::inRange(0, 4), length = *rc::gen::inRange(-1, 6);
        rects.push_back(CGRectMake(start, i, length, i));
    }
    RC_ASSERT(
        (GetHorizontallyContainingRectWithRects(rects) == horizontallyContainingByPairs(rects)));
    Rects turned;
    for (const CGRect& rect : rects)
        turned.push_back(
            CGRectMake(rect.origin.y, rect.origin.x, rect.size.height, rect.size.width));
    const auto expected = horizontallyContainingByPairs(rects);
    const auto found = GetVerticallyContainingRectWithRects(turned);
    RC_ASSERT(found.has_value() == expected.has_value());
    if (found)
        RC_ASSERT(found->origin.x == expected->origin.y);  // tells which of the list it is
}

}  // namespace
}  // namespace quorin
