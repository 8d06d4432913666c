#include "quorin/geometry/PointGeometry.h"

#include <limits>
#include <numbers>
#include <vector>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

constexpr CGFloat greatest = 1.7976931348623157e308;

TEST(PointGeometry, isMovedByComponentsOrByAPoint) {
    EXPECT_EQ(offsetBy(CGPoint{1, 2}, 10, 20), (CGPoint{11, 22}));
    EXPECT_EQ(offsetBy(CGPoint{1, 2}, CGPoint{10, 20}), (CGPoint{11, 22}));
}

TEST(PointGeometry, isScaledByAScalar) { EXPECT_EQ(scaleBy(CGPoint{1, -2}, 3), (CGPoint{3, -6})); }

TEST(PointGeometry, isCloseAtTheToleranceItself) {
    EXPECT_TRUE(isClose({0, 0}, {3, 4}, 5));
    EXPECT_FALSE(isClose({0, 0}, {3, 4}, 4.999999));
    EXPECT_TRUE(isClose({1, 1}, {1, 1}, 0));
}

TEST(PointGeometry, isRotatedAboutTheOrigin) {
    const CGPoint quarter = rotated({2, 1}, std::numbers::pi / 2);
    EXPECT_NEAR(quarter.x, -1, 1e-15);
    EXPECT_NEAR(quarter.y, 2, 1e-15);
    EXPECT_EQ(rotated({2, 1}, 0), (CGPoint{2, 1}));
}

TEST(PointGeometry, hasAnAbsoluteValue) {
    EXPECT_EQ(absolute(CGPoint{-1, 2}), (CGPoint{1, 2}));
    EXPECT_EQ(absolute(CGPoint{1, -2}), (CGPoint{1, 2}));
}

TEST(PointDirection, takesTheDifferenceInXFirst) {
    EXPECT_EQ(atan2(CGPoint{1, 0}, CGPoint::zero), std::numbers::pi / 2);
    EXPECT_EQ(atan2(CGPoint{0, 1}, CGPoint::zero), 0);
    EXPECT_EQ(atan2(CGPoint{5, 7}, CGPoint{6, 7}), -std::numbers::pi / 2);
    EXPECT_EQ(atan2(CGPoint{5, 6}, CGPoint{5, 7}), std::numbers::pi);
}

TEST(MinAndMaxPoint, goByComponent) {
    const std::vector<CGPoint> points{{1, 20}, {-3, 4}, {2, -5}};
    const auto [min, max] = getMinAndMaxPoint(points);
    EXPECT_EQ(min, (CGPoint{-3, -5}));
    EXPECT_EQ(max, (CGPoint{2, 20}));
}

TEST(MinAndMaxPoint, ofNoPointsAreCrossed) {
    const auto [min, max] = getMinAndMaxPoint({});
    EXPECT_EQ(min, (CGPoint{greatest, greatest}));
    EXPECT_EQ(max, (CGPoint{-greatest, -greatest}));
}

RC_GTEST_PROP(PointGeometry, keepsItsLengthWhenRotated, ()) {
    const CGPoint point{*rc::gen::inRange(-1000, 1001) / 10.0,
                        *rc::gen::inRange(-1000, 1001) / 10.0};
    const CGFloat angle = *rc::gen::inRange(-10000, 10001) / 1000.0;
    const CGPoint turned = rotated(point, angle);
    RC_ASSERT(std::abs(distance(turned, CGPoint::zero) - distance(point, CGPoint::zero)) < 1e-12);
    RC_ASSERT(isClose(rotated(turned, -angle), point, 1e-12));
}

RC_GTEST_PROP(MinAndMaxPoint, boundAllPointsTightly, ()) {
    const auto places = *rc::gen::nonEmpty<std::vector<std::pair<int, int>>>();
    std::vector<CGPoint> points;
    for (const auto& place : places)
        points.push_back({static_cast<CGFloat>(place.first), static_cast<CGFloat>(place.second)});
    const auto extremes = getMinAndMaxPoint(points);
    const CGPoint min = extremes.first, max = extremes.second;
    for (const CGPoint& p : points)
        RC_ASSERT(p.x >= min.x && p.y >= min.y && p.x <= max.x && p.y <= max.y);
    for (auto coordinate : {&CGPoint::x, &CGPoint::y}) {
        const auto has = [&](CGFloat value) {
            return std::any_of(points.begin(), points.end(),
                               [&](const CGPoint& p) { return p.*coordinate == value; });
        };
        RC_ASSERT(has(min.*coordinate) && has(max.*coordinate));
    }
}

}  // namespace
}  // namespace quorin
