#include "quorin/geometry/PointOutlines.h"

#include <cmath>
#include <limits>
#include <vector>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::ElementsAre;
using Points = std::vector<CGPoint>;

TEST(RoundCornerPoints, goesDownTheGridAndUpForTheGreatest) {
    EXPECT_THAT(
        roundCornerPoints(Points{{0.2, 3.7}, {10.4, 3.7}, {10.4, 8.2}, {0.2, 8.2}}, 1, 0.5),
        ElementsAre(CGPoint{0.5, 3.5}, CGPoint{10.5, 3.5}, CGPoint{10.5, 8.5}, CGPoint{0.5, 8.5}));
}

TEST(RoundCornerPoints, takesThemAsTheGreatestWhereNothingIsGreater) {
    EXPECT_THAT(roundCornerPoints(Points{{0.2, 3.7}, {9, 9}}, 1, 0.5),
                ElementsAre(CGPoint{0.5, 3.5}, CGPoint{8.5, 8.5}));
    EXPECT_THAT(roundCornerPoints(Points{{0.2, 3.7}}, 1, 0.25), ElementsAre(CGPoint{0.75, 3.75}));
}

TEST(RoundCornerPoints, comparesWithTheGreatestExactly) {
    const CGFloat below = std::nextafter(10.4, 0.0);
    EXPECT_THAT(roundCornerPoints(Points{{10.4, 0}, {below, 1}}, 1, 0.25),
                ElementsAre(CGPoint{10.75, 0.25}, CGPoint{10.25, 0.75}));
}

TEST(RoundCornerPoints, snapsToAGridOfAnyScale) {
    EXPECT_THAT(roundCornerPoints(Points{{0.7, -0.7}, {1.2, 1.2}}, 0.5, 0.125),
                ElementsAre(CGPoint{0.625, -0.875}, CGPoint{1.375, 1.375}));
}

TEST(RoundCornerPoints, ofNoPointsAreNone) { EXPECT_TRUE(roundCornerPoints({}, 1, 0.5).empty()); }

TEST(OutsetPoints, pushesASinglePointDownByTwice) {
    EXPECT_THAT(CGPointsOutsetPoints(Points{{3, 4}}, 5), ElementsAre(CGPoint{3, 14}));
}

TEST(OutsetPoints, pushesTheCornersOfASquareAlongBothSides) {
    const Points moved = CGPointsOutsetPoints(Points{{0, 0}, {10, 0}, {10, 10}, {0, 10}}, 2);
    const Points expected{{-2, -2}, {12, -2}, {12, 12}, {-2, 12}};
    ASSERT_EQ(moved.size(), 4u);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_NEAR(moved[i].x, expected[i].x, 1e-14) << i;
        EXPECT_NEAR(moved[i].y, expected[i].y, 1e-14) << i;
    }
}

TEST(OutsetPoints, doesNotNormaliseTheSum) {
    // A point in the middle of a straight side stays, a spike moves by twice the outset.
    const Points moved = CGPointsOutsetPoints(Points{{0, 0}, {5, 0}, {10, 0}}, 2);
    EXPECT_NEAR(moved[1].x, 5, 1e-15);
    EXPECT_NEAR(moved[2].x, 14, 1e-14);
    EXPECT_NEAR(moved[2].y, 0, 1e-14);
}

TEST(OutsetPoints, ofNoPointsAreNone) { EXPECT_TRUE(CGPointsOutsetPoints({}, 5).empty()); }

RC_GTEST_PROP(OutsetPoints, addTheUnitVectorsFromBothNeighbours, ()) {
    const auto places = *rc::gen::nonEmpty<std::vector<std::pair<int, int>>>();
    const CGFloat outset = *rc::gen::inRange(-100, 100) / 4.0;
    Points points;
    for (const auto& place : places)
        points.push_back({place.first / 16.0, place.second / 16.0});
    const Points moved = CGPointsOutsetPoints(points, outset);
    RC_ASSERT(moved.size() == points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        long double x = points[i].x, y = points[i].y;
        for (const std::size_t step : {points.size() - 1, std::size_t{1}}) {
            const CGPoint neighbour = points[(i + step) % points.size()];
            const long double dx = static_cast<long double>(points[i].x) - neighbour.x;
            const long double dy = static_cast<long double>(points[i].y) - neighbour.y;
            const long double length = std::hypot(dx, dy);
            x += length == 0 ? 0 : outset * dx / length;
            y += length == 0 ? outset : outset * dy / length;
        }
        const CGFloat tolerance = 1e-14 * (100 + std::abs(points[i].x) + std::abs(points[i].y));
        RC_ASSERT(std::abs(moved[i].x - static_cast<CGFloat>(x)) < tolerance);
        RC_ASSERT(std::abs(moved[i].y - static_cast<CGFloat>(y)) < tolerance);
    }
}

}  // namespace
}  // namespace quorin
