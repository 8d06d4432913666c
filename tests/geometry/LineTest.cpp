#include "quorin/geometry/Line.h"

#include <cmath>
#include <limits>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/Scalar.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

const Line unitSegment({0, 0}, {1, 0});

Line verticalThrough(CGFloat x) { return Line({x, -1}, {x, 1}); }

rc::Gen<CGPoint> wholePoint() {
    const auto coordinate = rc::gen::inRange(-1000, 1001);  // small enough to stay exact
    return rc::gen::map(rc::gen::pair(coordinate, coordinate), [](const auto& xy) {
        return CGPoint{static_cast<CGFloat>(xy.first), static_cast<CGFloat>(xy.second)};
    });
}

TEST(Line, runsFromTheFirstPointToTheSecond) {
    const Line line({1, 2}, {4, 6});
    EXPECT_EQ(line.p, (CGPoint{1, 2}));
    EXPECT_EQ(line.v, (CGPoint{3, 4}));
    EXPECT_EQ(line.length(), 5);
}

TEST(Line, canBeGivenByItsDirection) {
    Line line = Line::along({1, 2}, {3, 4});
    EXPECT_EQ(line.p, (CGPoint{1, 2}));
    EXPECT_EQ(line.v, (CGPoint{3, 4}));
    line.v = {0, 2};
    EXPECT_EQ(line.length(), 2);
}

TEST(LineDistance, isSignedByTheSideAndTheDirection) {
    struct Row {
        const char* says;
        CGPoint direction;
        CGFloat distance;
    };
    const CGPoint point{3, 5};  // at (2, 4) from the line's point
    const Row table[] = {
        {"up", {0, 7}, 2},
        {"down", {0, -7}, -2},
        {"right", {7, 0}, -4},
        {"left", {-7, 0}, 4},
        {"slanted", {3, 4}, -0.8},
        {"slanted backwards", {-3, -4}, 0.8},
        {"no direction", {0, 0}, -2},
    };
    for (const auto& [says, direction, expected] : table) {
        SCOPED_TRACE(says);
        const Line line = Line::along({1, 1}, direction);
        EXPECT_DOUBLE_EQ(line.signedDistance(point), expected);
        EXPECT_DOUBLE_EQ(line.distance(point), std::abs(expected));
    }
}

TEST(LineDistance, alongAnAxisIsFreeOfRounding) {
    // Through the general formula (0.3 * 0.1) / 0.1 is not 0.3 any more.
    EXPECT_EQ(Line::along({0, 0}, {0, 0.1}).signedDistance({0.3, 9}), 0.3);
    EXPECT_EQ(Line::along({0, 0}, {-0.1, 0}).signedDistance({9, 0.3}), 0.3);
}

TEST(LineIntersect, meetsWhereSegmentsCross) {
    const Line diagonal({0, 0}, {4, 4});
    EXPECT_EQ(diagonal.intersect(Line({0, 4}, {4, 0}), false), (CGPoint{2, 2}));
}

TEST(LineIntersect, findsSegmentsThatOnlyTouch) {
    EXPECT_EQ(unitSegment.intersect(Line({1, 0}, {1, 5}), false), (CGPoint{1, 0}));
    EXPECT_EQ(unitSegment.intersect(Line({0, 3}, {0, 0}), false), (CGPoint{0, 0}));
}

TEST(LineIntersect, keepsATouchWithinTheMarginOnTheSegment) {
    EXPECT_EQ(unitSegment.intersect(verticalThrough(1 + 5e-13), false), (CGPoint{1, 0}));
    EXPECT_EQ(unitSegment.intersect(verticalThrough(-5e-13), false), (CGPoint{0, 0}));
}

TEST(LineIntersect, endsTheMarginOpenAtEpsilon) {
    EXPECT_EQ(unitSegment.intersect(verticalThrough(1 + scalar::epsilon), false), std::nullopt);
    EXPECT_EQ(unitSegment.intersect(verticalThrough(-scalar::epsilon), false), std::nullopt);
}

TEST(LineIntersect, asksTheOtherSegmentForTheSameMargin) {
    EXPECT_EQ(verticalThrough(1 + 5e-13).intersect(unitSegment, false), (CGPoint{1 + 5e-13, 0}));
    EXPECT_EQ(verticalThrough(1 + scalar::epsilon).intersect(unitSegment, false), std::nullopt);
    EXPECT_EQ(verticalThrough(-scalar::epsilon).intersect(unitSegment, false), std::nullopt);
}

TEST(LineIntersect, goesBeyondTheSegmentsWhenInfinite) {
    EXPECT_EQ(unitSegment.intersect(verticalThrough(7), true), (CGPoint{7, 0}));
    EXPECT_EQ(unitSegment.intersect(verticalThrough(1 + 5e-13), true), (CGPoint{1 + 5e-13, 0}));
    EXPECT_EQ(unitSegment.intersect(Line({7, 3}, {7, 4}), true), (CGPoint{7, 0}));
}

TEST(LineIntersect, findsNothingBetweenParallels) {
    EXPECT_EQ(unitSegment.intersect(Line({0, 1}, {1, 1}), true), std::nullopt);
    EXPECT_EQ(unitSegment.intersect(Line({1, 1}, {0, 1}), false), std::nullopt);
}

TEST(LineIntersect, findsNothingWhereLinesCoincide) {
    EXPECT_EQ(unitSegment.intersect(unitSegment, true), std::nullopt);
    EXPECT_EQ(unitSegment.intersect(Line({1, 0}, {2, 0}), false), std::nullopt);
}

TEST(LineIntersect, countsAsParallelBelowEpsilonOnly) {
    const auto meets = [](CGFloat slope) {
        return unitSegment.intersect(Line::along({0.5, 0}, {0, slope}), false).has_value();
    };
    EXPECT_TRUE(meets(scalar::epsilon));
    EXPECT_FALSE(meets(0.99 * scalar::epsilon));
}

RC_GTEST_PROP(LineIntersect, liesOnBothLines, ()) {
    const Line a(*wholePoint(), *wholePoint());
    const Line b(*wholePoint(), *wholePoint());
    RC_PRE(cross(a.v, b.v) != 0);
    const CGPoint meeting = a.intersect(b, true).value();
    const CGFloat reach = distance(a.p, meeting) + distance(b.p, meeting) + 1;
    RC_ASSERT(a.distance(meeting) < 1e-12 * reach);
    RC_ASSERT(b.distance(meeting) < 1e-12 * reach);
}

RC_GTEST_PROP(LineIntersect, isFoundBySegmentsExactlyWhenEndsLieOnOppositeSides, ()) {
    const Line a(*wholePoint(), *wholePoint());
    const Line b(*wholePoint(), *wholePoint());
    RC_PRE(cross(a.v, b.v) != 0);
    const auto separates = [](const Line& line, const Line& ends) {
        return line.side(ends.p, true) * line.side(ends.p + ends.v, true) <= 0;
    };
    RC_ASSERT(a.intersect(b, false).has_value() == (separates(a, b) && separates(b, a)));
}

TEST(LineSide, isTheSignOfTheTurn) {
    EXPECT_EQ(unitSegment.side({0.5, 3}, true), -1);
    EXPECT_EQ(unitSegment.side({0.5, -3}, true), 1);
    EXPECT_EQ(unitSegment.side({0.5, 1e-300}, false), -1);
}

TEST(LineSide, isZeroAnywhereOnTheInfiniteLine) {
    EXPECT_EQ(unitSegment.side({-5, 0}, true), 0);
    EXPECT_EQ(unitSegment.side({0.5, 0}, true), 0);
    EXPECT_EQ(unitSegment.side({5, 0}, true), 0);
}

TEST(LineSide, tellsBeforeTheSegmentFromBeyondIt) {
    const Line segment({1, 1}, {3, 3});
    EXPECT_EQ(segment.side({0, 0}, false), -1);
    EXPECT_EQ(segment.side({1, 1}, false), 0);
    EXPECT_EQ(segment.side({2, 2}, false), 0);
    EXPECT_EQ(segment.side({3, 3}, false), 0);
    EXPECT_EQ(segment.side({3.5, 3.5}, false), 1);
}

TEST(LineSide, ofALineWithoutDirectionIsZero) {
    EXPECT_EQ(Line({1, 1}, {1, 1}).side({4, 5}, false), 0);
}

RC_GTEST_PROP(LineSide, isTheSignOfTheSignedDistance, ()) {
    const Line line(*wholePoint(), *wholePoint());
    RC_PRE(!(line.v == CGPoint::zero));
    const CGPoint point = *wholePoint();
    const CGFloat distance = line.signedDistance(point);
    RC_ASSERT(line.side(point, true) == (distance == 0 ? 0 : sign(distance)));
}

TEST(LineDirections, areCollinearUpToTheTrigonometricTolerance) {
    const auto collinear = [](CGPoint v) {
        return Line::along({9, 9}, {2, 0}).isCollinear(Line::along({0, 0}, v));
    };
    EXPECT_TRUE(collinear({5, 0}));
    EXPECT_TRUE(collinear({-5, 0}));
    EXPECT_TRUE(collinear({1e6, 0.009}));
    EXPECT_FALSE(collinear({1e6, 0.011}));
    EXPECT_TRUE(collinear({0, 0}));  // nothing is within tolerance of nothing
    EXPECT_FALSE(collinear({0, 1e-9}));
}

TEST(LineDirections, areOrthogonalUpToTheTrigonometricTolerance) {
    const auto orthogonal = [](CGPoint v) {
        return Line::along({9, 9}, {2, 0}).isOrthogonal(Line::along({0, 0}, v));
    };
    EXPECT_TRUE(orthogonal({0, 5}));
    EXPECT_TRUE(orthogonal({0, -5}));
    EXPECT_TRUE(orthogonal({0.009, 1e6}));
    EXPECT_FALSE(orthogonal({0.011, 1e6}));
    EXPECT_TRUE(orthogonal({0, 0}));
    EXPECT_FALSE(orthogonal({1e-9, 0}));
}

RC_GTEST_PROP(LineDirections, swapCollinearAndOrthogonalInAQuarterTurn, ()) {
    const Line a(*wholePoint(), *wholePoint());
    const Line b(*wholePoint(), *wholePoint());
    const Line turned = Line::along(b.p, {-b.v.y, b.v.x});
    RC_ASSERT(a.isCollinear(b) == a.isOrthogonal(turned));
    RC_ASSERT(a.isCollinear(b) == (cross(a.v, b.v) == 0));
}

}  // namespace
}  // namespace quorin
