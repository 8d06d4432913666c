#include <cmath>
#include <limits>

#include "quorin/path/Path.h"
#include "tests/TestSupport.h"
#include "tests/path/HardCurves.h"
#include "tests/support/Printing.h"

namespace quorin {
namespace {

constexpr CGFloat notANumber = std::numeric_limits<CGFloat>::quiet_NaN();
constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();

std::shared_ptr<Path> polyline(std::initializer_list<CGPoint> points, bool isClosed = false) {
    auto path = Path::create();
    for (const CGPoint& point : points)
        path->segments().append({point, {}, {}, PointBehavior::straight});
    path->setIsClosed(isClosed);
    return path;
}

TEST(PathHitTest, answersThePointOnTheOutline) {
    const auto path = polyline({{0, 0}, {10, 0}, {10, 10}});
    const auto hit = path->hitTestOnPath({5, 1}, 0, 2);
    ASSERT_TRUE(hit);
    EXPECT_NEAR(hit->x, 5, 1e-12);
    EXPECT_EQ(hit->y, 0);
}

TEST(PathHitTest, reachesHalfTheLineWidthAndTheToleranceStrictly) {
    const auto path = polyline({{0, 0}, {10, 0}});
    struct Row {
        const char* says;
        CGFloat off, lineWidth, tolerance;
        bool hits;
    };
    const Row table[] = {
        {"within half the line width", 1.9, 4, 0, true},
        {"within the tolerance", 2.9, 0, 3, true},
        {"within the sum", 4.9, 4, 3, true},
        {"exactly at the sum", 5, 4, 3, false},
        {"the last double before the sum", std::nextafter(5.0, 0.0), 4, 3, true},
        {"beyond the sum", 5.1, 4, 3, false},
        {"on the outline without any reach", 0, 0, 0, false},
        {"on the outline with the least reach", 0, 0, 1e-300, true},
        {"a tolerance that takes the width away", 0.5, 4, -2, false},
        {"a negative reach", 0, 0, -1, false},
        {"no reach at all", 0, notANumber, 0, false},
        {"any reach", 1e100, 0, infinity, true},
    };
    for (const auto& [says, off, lineWidth, tolerance, hits] : table) {
        SCOPED_TRACE(says);
        // Above an anchor, where the distance is exact.
        for (const CGPoint& point : {CGPoint{0, off}, CGPoint{-off, 0}, CGPoint{10, -off}}) {
            EXPECT_EQ(path->hitTestOnPath(point, lineWidth, tolerance).has_value(), hits);
            EXPECT_EQ(path->nearestCurveLocation(point, lineWidth, tolerance).has_value(), hits);
        }
    }
}

TEST(PathHitTest, takesTheFirstCurveWithinReachAlthoughALaterOneIsNearer) {
    const auto path = polyline({{0, 0}, {10, 0}, {10, 2}, {0, 2}});
    const CGPoint point{5, 1.9};
    const auto hit = path->hitTestOnPath(point, 0, 3);
    ASSERT_TRUE(hit);
    EXPECT_EQ(hit->y, 0) << "of the first curve, 1.9 away";
    const auto nearest = path->nearestCurveLocation(point, 0, 3);
    ASSERT_TRUE(nearest);
    EXPECT_EQ(nearest->curve().index(), 2) << "the third is 0.1 away";
    EXPECT_NEAR(nearest->distance(), 0.1, 1e-12);
}

TEST(PathHitTest, asksTheClosingCurveLastAndOnlyOfAClosedPath) {
    const auto path = polyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}});
    const CGPoint nearClosing{0.5, 5};
    EXPECT_EQ(path->hitTestOnPath(nearClosing, 0, 1), std::nullopt);
    EXPECT_FALSE(path->nearestCurveLocation(nearClosing, 0, 1));
    path->setIsClosed(true);
    EXPECT_NEAR(path->hitTestOnPath(nearClosing, 0, 1)->y, 5, 1e-12);
    EXPECT_EQ(path->nearestCurveLocation(nearClosing, 0, 1)->curve().index(), 3);

    const CGPoint nearBoth{0.5, 0.8};
    EXPECT_EQ(path->hitTestOnPath(nearBoth, 0, 1)->y, 0) << "the first curve, though farther";
    EXPECT_EQ(path->nearestCurveLocation(nearBoth, 0, 1)->curve().index(), 3);
}

TEST(PathHitTest, findsNothingOnAPathWithoutCurves) {
    for (const bool isClosed : {false, true}) {
        for (const auto& path : {polyline({}, isClosed), polyline({{1, 1}}, isClosed)}) {
            EXPECT_EQ(path->hitTestOnPath({1, 1}, 10, 10), std::nullopt);
            EXPECT_FALSE(path->nearestCurveLocation({1, 1}, 10, 10));
            EXPECT_FALSE(path->nearestLocation({1, 1}, 1e-9));
        }
    }
}

TEST(PathHitTest, goesOnWhereACurveHasNoNearestTime) {
    // The first curve is so long that it steps over the place below the pointer.
    const auto path = polyline({{0, 0}, {1e10, 0}, {1e10, 5e9}, {0, 3}});
    const PathCurve first = path->curves()[0];
    CGPoint point;
    for (int i = 1; i < 200 && point == CGPoint::zero; ++i)
        if (const CGPoint from{i * 4.987654321e7, 0}; !first.nearestTime(from))
            point = from;
    ASSERT_NE(point, CGPoint::zero);
    const CGFloat reach = 1e10;
    EXPECT_EQ(path->hitTestOnPath(point, 0, reach)->x, 1e10) << "on the second curve";
    EXPECT_NE(path->nearestCurveLocation(point, 0, reach)->curve().index(), 0);
}

TEST(PathNearest, tellsTheCurveTheTimeThePointAndTheDistance) {
    const auto path = polyline({{0, 0}, {10, 0}, {10, 10}});
    const auto location = path->nearestCurveLocation({12, 5}, 6, 0);
    ASSERT_TRUE(location);
    EXPECT_EQ(location->curve().index(), 1);
    EXPECT_EQ(location->curve().path(), path);
    EXPECT_TRUE(location->curve() == path->curves()[1]);
    EXPECT_NEAR(location->time().rawValue, 0.5, 1e-12);
    EXPECT_EQ(location->point(), location->curve().pointAt(location->time()));
    EXPECT_NEAR(location->distance(), 2, 1e-12);
    EXPECT_FALSE(location->overlap());
}

TEST(PathNearest, takesTheEarlierOfTwoEquallyNearCurves) {
    const auto path = polyline({{0, 0}, {10, 0}, {10, 10}});
    const auto atAnchor = path->nearestCurveLocation({11, -1}, 0, 5);
    EXPECT_EQ(atAnchor->curve().index(), 0) << "the curve that ends at the anchor";
    EXPECT_EQ(atAnchor->time(), PathCurve::Time::end);

    const auto square = polyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}}, true);
    EXPECT_EQ(square->nearestCurveLocation({5, 5}, 0, 6)->curve().index(), 0);
    const auto atStart = square->nearestCurveLocation({-1, -1}, 0, 6);
    EXPECT_EQ(atStart->curve().index(), 0) << "the closing curve ends there, but comes last";
    EXPECT_EQ(atStart->time(), PathCurve::Time::start);
}

TEST(PathNearest, seesThatALaterCurveIsNearerByAHair) {
    const CGFloat hair = 1e-9;
    const auto path = polyline({{50, 1},
                                {0, 1},
                                {0, 200},
                                {-100, 200},
                                {-100, hair - 1},  //
                                {100, hair - 1}});
    EXPECT_EQ(path->nearestCurveLocation({0, 0}, 0, 5)->curve().index(), 4);
    EXPECT_EQ(path->nearestLocation({0, 0}, 0)->curve().index(), 4);
}

TEST(PathNearest, isTheFirstOfEqualCurves) {
    const auto path = polyline({{0, 0}, {10, 0}, {0, 0}, {10, 0}});
    EXPECT_EQ(path->nearestCurveLocation({3, 1}, 0, 6)->curve().index(), 0);
}

TEST(PathNearest, withAccuracyHasNoReach) {
    const auto path = polyline({{0, 0}, {10, 0}, {10, 10}}, true);
    const auto location = path->nearestLocation({1010, 5}, 1e-9);
    ASSERT_TRUE(location);
    EXPECT_EQ(location->curve().index(), 1);
    EXPECT_EQ(location->curve().path(), path);
    EXPECT_NEAR(location->distance(), 1000, 1e-9);
    EXPECT_EQ(location->point(), location->curve().pointAt(location->time()));
    EXPECT_EQ(path->nearestLocation({2, 3}, 1e-9)->curve().index(), 2) << "the closing curve";
}

TEST(PathNearest, withAccuracySeesWhatTheSampledSearchMisses) {
    const auto path = Path::create();
    path->moveTo({0, 0});
    path->addCurveTo({10, 0}, {1e5, 1e5}, {-1e5, 1e5});
    const CGPoint onSpike = *path->curves()[0].pointAt(0.0049);
    EXPECT_LT(path->nearestLocation(onSpike, 1e-6)->distance(), 1e-6);
}

TEST(PathContains, countsEveryWindingAsInside) {
    // A pentagram, whose middle is wound twice.
    const auto star = polyline({{0, 100}, {59, -81}, {-95, 31}, {95, 31}, {-59, -81}}, true);
    EXPECT_TRUE(star->contains({0, 0})) << "wound twice";
    EXPECT_TRUE(star->contains({0, 80})) << "wound once";
    EXPECT_FALSE(star->contains({60, 70}));
    EXPECT_FALSE(star->contains({0, -81}));
}

TEST(PathContains, countsOppositeWindingsAsOutside) {
    const auto eight = polyline({{0, 0},
                                 {10, 0},
                                 {10, 10},
                                 {0, 10},
                                 {0, 0},  //
                                 {2, 2},
                                 {2, 8},
                                 {8, 8},
                                 {8, 2},
                                 {2, 2}},
                                true);
    EXPECT_FALSE(eight->contains({5, 5}));
    EXPECT_TRUE(eight->contains({5, 1}));
}

TEST(PathContains, closesAnOpenPathForFilling) {
    const auto path = polyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}});
    EXPECT_TRUE(path->contains({1, 5}));
    EXPECT_FALSE(path->contains({-1, 5}));
    EXPECT_FALSE(polyline({})->contains({0, 0}));
}

TEST(PathContains, fillsThePlatformPathAndKeepsIt) {
    const auto path = polyline({{0, 0}, {10, 0}, {10, 10}}, true);
    EXPECT_TRUE(path->contains({9, 5}));
    const auto cached = path->cg();
    EXPECT_FALSE(path->contains({1, 9}));
    EXPECT_EQ(path->cg(), cached);
}

TEST(PathBoundingBox, isThePointOfAnOnlySegment) {
    EXPECT_EQ(polyline({{3, -4}})->boundingBox(), CGRectMake(3, -4, 0, 0));
    const auto closed = Path::create();
    closed->segments().append({{3, -4}, {1, 1}, {50, 50}, PointBehavior::disconnected});
    closed->setIsClosed(true);
    EXPECT_EQ(closed->boundingBox(), CGRectMake(3, -4, 0, 0)) << "handles draw nothing";
}

TEST(PathBoundingBox, isNullWithoutSegments) {
    EXPECT_EQ(polyline({})->boundingBox(), CGRectNull);
    EXPECT_EQ(polyline({}, true)->boundingBox(), CGRectNull);
    EXPECT_TRUE(CGRectIsNull(polyline({})->boundingBox()));
}

TEST(PathBoundingBox, isTightAroundCurvesNotControls) {
    const auto path = Path::create();
    path->moveTo({0, 0});
    path->addCurveTo({10, 0}, {0, 10}, {10, 10});
    EXPECT_EQ(path->boundingBox(), CGRectMake(0, 0, 10, 7.5));
}

TEST(PathBoundingBox, holdsTheClosingCurve) {
    const auto path = Path::create();
    path->segments().append({{0, 0}, {0, 10}, {}, PointBehavior::disconnected});
    path->segments().append({{10, 0}, {}, {0, 10}, PointBehavior::disconnected});
    EXPECT_EQ(path->boundingBox(), CGRectMake(0, 0, 10, 0));
    path->setIsClosed(true);
    path->invalidatePathCache();
    EXPECT_EQ(path->boundingBox(), CGRectMake(0, 0, 10, 7.5));
}

TEST(PathBoundingBox, ofAnIconIsTrue) {
    const auto icon = Path::create();
    icon->moveTo({13.68752, 15.483618});
    icon->addCurveTo({3.231074, 15.322257}, {6.1165633, 12.08989}, {4.412796, 12.770705});
    icon->addCurveTo({2.2409132, 4.4050307}, {2.0493531, 17.873812}, {-2.4950337, 7.8268027});
    icon->addCurveTo({14.740673, .3714725}, {6.97686, .98325753}, {12.049765, -.34644848});
    icon->addCurveTo({20.673872, 6.8366413}, {17.431581, 1.0893925}, {19.921005, 4.5336003});
    icon->addCurveTo({20.593191, 17.385418}, {21.42674, 9.139683}, {21.344765, 14.534013});
    icon->addCurveTo({13.68752, 15.483618}, {19.84162, 20.236822}, {16.858624, 16.604939});
    icon->closePath();
    const CGRect box = icon->boundingBox();
    EXPECT_NEAR(CGRectGetMinX(box), .129837298618, 1e-12);
    EXPECT_NEAR(CGRectGetMaxX(box), 21.19934267996, 1e-11);
    EXPECT_NEAR(CGRectGetMinY(box), .18292788237146, 1e-13);
    EXPECT_NEAR(CGRectGetMaxY(box), 18.454193145416, 1e-12);
}

}  // namespace
}  // namespace quorin
