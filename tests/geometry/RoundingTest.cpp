#include "quorin/geometry/Rounding.h"

#include "tests/TestSupport.h"

namespace quorin {
namespace {

TEST(Rounding, goesToTheNearestWithHalvesAwayFromZero) {
    EXPECT_EQ(rounding(CGPoint{2.5, -2.5}), (CGPoint{3, -3}));
    EXPECT_EQ(rounding(CGPoint{2.4, -0.5}), (CGPoint{2, -1}));
    EXPECT_EQ(rounding(CGSize{0.5, 1.5}), (CGSize{1, 2}));
    EXPECT_EQ(rounding(CGSize{-0.5, -2.5}), (CGSize{-1, -3}));
    EXPECT_EQ(rounding(CGPoint{0.49999999999999994, 0}), (CGPoint{0, 0}));
}

TEST(Rounding, goesDownOrUp) {
    EXPECT_EQ(flooring(CGPoint{1.9, -1.1}), (CGPoint{1, -2}));
    EXPECT_EQ(ceiling(CGPoint{1.1, -1.9}), (CGPoint{2, -1}));
    EXPECT_EQ(flooring(CGSize{1.9, -1.1}), (CGSize{1, -2}));
    EXPECT_EQ(ceiling(CGSize{1.1, -1.9}), (CGSize{2, -1}));
}

TEST(Rounding, changesAPointInPlace) {
    CGPoint rounded{1.5, 1.4}, floored{1.5, 1.4}, ceiled{1.5, 1.4};
    round(rounded);
    floor(floored);
    ceil(ceiled);
    EXPECT_EQ(rounded, (CGPoint{2, 1}));
    EXPECT_EQ(floored, (CGPoint{1, 1}));
    EXPECT_EQ(ceiled, (CGPoint{2, 2}));
}

TEST(RoundingWithScale, snapsToMultiplesOfTheScale) {
    EXPECT_EQ(rounding(CGPoint{2.9, -3}, 2), (CGPoint{2, -4}));
    EXPECT_EQ(flooring(CGPoint{3.9, -0.1}, 2), (CGPoint{2, -2}));
    EXPECT_EQ(ceiling(CGPoint{2.1, -1.9}, 2), (CGPoint{4, 0}));
    EXPECT_EQ(rounding(CGSize{0.6, 0.75}, 0.5), (CGSize{0.5, 1}));
    EXPECT_EQ(flooring(CGSize{0.9, 1.4}, 0.5), (CGSize{0.5, 1}));
    EXPECT_EQ(ceiling(CGSize{0.1, 1.1}, 0.5), (CGSize{0.5, 1.5}));
}

TEST(RoundingKeepingProportion, equalsRoundingWhenNotAskedFor) {
    EXPECT_EQ(rounding(CGSize{10.6, 5.3}, 1, false), (CGSize{11, 5}));
}

TEST(RoundingKeepingProportion, letsTheHeightFollowTheWidth) {
    EXPECT_EQ(rounding(CGSize{10.5, 21}, 1, true), (CGSize{11, 11 / 10.5 * 21}));
    EXPECT_EQ(rounding(CGSize{7, 3}, 2, true), (CGSize{8, 8.0 / 7 * 3}));
}

TEST(RoundingKeepingProportion, leavesASizeNarrowerThanThePixelAlone) {
    EXPECT_EQ(rounding(CGSize{1.9, 7.3}, 2, true), (CGSize{1.9, 7.3}));
    EXPECT_EQ(rounding(CGSize{0, 7.3}, 2, true), (CGSize{0, 7.3}));
    EXPECT_EQ(rounding(CGSize{2, 7.5}, 2, true), (CGSize{2, 7.5}));
}

TEST(RoundingACorner, movesInwardsFromTheGrid) {
    struct Row {
        RectCorner corner;
        CGPoint expected;
    };
    const CGPoint atTop{4.5, 6.5}, atBottom{4.5, 7.5};
    const Row table[] = {
        {RectCorner::topLeft, atTop},       {RectCorner::topRight, atTop},
        {RectCorner::top, atTop},           {RectCorner::bottomRight, atBottom},
        {RectCorner::bottomLeft, atBottom}, {RectCorner::right, atBottom},
        {RectCorner::bottom, atBottom},     {RectCorner::left, atBottom},
    };
    for (const Row& row : table)
        EXPECT_EQ(rounding(CGPoint{5.3, 7.9}, row.corner, 2, 0.5), row.expected)
            << static_cast<int>(row.corner);
}

TEST(RectCorner, goesClockwiseCornersFirst) {
    EXPECT_EQ(static_cast<int>(RectCorner::topLeft), 0);
    EXPECT_EQ(static_cast<int>(RectCorner::topRight), 1);
    EXPECT_EQ(static_cast<int>(RectCorner::bottomRight), 2);
    EXPECT_EQ(static_cast<int>(RectCorner::bottomLeft), 3);
    EXPECT_EQ(static_cast<int>(RectCorner::top), 4);
    EXPECT_EQ(static_cast<int>(RectCorner::right), 5);
    EXPECT_EQ(static_cast<int>(RectCorner::bottom), 6);
    EXPECT_EQ(static_cast<int>(RectCorner::left), 7);
}

RC_GTEST_PROP(RoundingWithScale, isTheNearestPlaceOfTheGrid, ()) {
    const CGFloat scale = *rc::gen::element(0.25, 0.5, 1.0, 2.0, 4.0);
    const CGPoint point{*rc::gen::inRange(-9999, 9999) / 64.0, 0};
    const CGFloat nearest = rounding(point, scale).x;
    const CGFloat below = flooring(point, scale).x;
    const CGFloat above = ceiling(point, scale).x;
    RC_ASSERT(below <= point.x && point.x <= above && above - below <= scale);
    RC_ASSERT(nearest == below || nearest == above);
    RC_ASSERT(std::abs(nearest - point.x) <= scale / 2);
}

}  // namespace
}  // namespace quorin
