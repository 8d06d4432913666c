#include <cmath>

#include "quorin/geometry/CubicBounds.h"
#include "quorin/path/CurveWalk.h"
#include "quorin/path/Path.h"
#include "tests/TestSupport.h"
#include "tests/path/PlainSearch.h"
#include "tests/path/RandomCurves.h"
#include "tests/support/Printing.h"

/// Whole-path questions are answered without asking every curve. Asking them all has to give the
/// same answers, bit for bit.
namespace quorin {
namespace {

using test::areSame;
using test::CurveKind;
using test::RandomCurves;

void expectSame(const std::optional<PathCurveLocation>& location,
                const std::optional<PathCurveLocation>& plain) {
    ASSERT_EQ(location.has_value(), plain.has_value());
    if (!location)
        return;
    EXPECT_EQ(location->curve().index(), plain->curve().index());
    EXPECT_EQ(location->curve().path(), plain->curve().path());
    EXPECT_EQ(location->overlap(), plain->overlap());
    EXPECT_TRUE(areSame(location->time().rawValue, plain->time().rawValue));
    EXPECT_TRUE(areSame(location->point(), plain->point()));
    EXPECT_TRUE(areSame(location->distance(), plain->distance()));
}

class PathSearchOfKind : public ::testing::TestWithParam<CurveKind> {
protected:
    RandomCurves random{GetParam()};

    CGPoint pointFor(const Path& path) { return random.pointFor(path.curves()[0].cubic()); }
    /// Now nothing, now about the distance of the path, now more than all.
    CGFloat reachFor(const Path& path, CGPoint point) {
        const auto place = test::plainNearest(path, point, scalar::greatestFinite);
        const CGFloat distance = place ? place->distance() : 1;
        switch (random.wholeBetween(0, 5)) {
            case 0:
                return distance;
            case 1:
                return std::nextafter(distance, 2 * distance);
            case 2:
                return random.between(0, 3);
            case 3:
                return 1e300;
            default:
                return distance * random.between(0.5, 3);
        }
    }
};

TEST_P(PathSearchOfKind, hitsWhatThePlainWalkHits) {
    int hits = 0;
    for (int i = 0; i < 250; ++i) {
        const auto path = random.path(random.wholeBetween(1, 8), i % 2 == 0);
        const CGPoint point = pointFor(*path);
        const CGFloat reach = reachFor(*path, point);
        const auto hit = path->hitTestOnPath(point, 0, reach);
        EXPECT_TRUE(areSame(hit, test::plainHit(*path, point, reach)));
        hits += hit.has_value();
    }
    EXPECT_GT(hits, GetParam() == CurveKind::overflowing ? -1 : 50);
    EXPECT_LT(hits, 250);
}

TEST_P(PathSearchOfKind, findsThePlaceThatThePlainWalkFinds) {
    for (int i = 0; i < 250; ++i) {
        const auto path = random.path(random.wholeBetween(1, 8), i % 2 == 0);
        const CGPoint point = pointFor(*path);
        const CGFloat reach = reachFor(*path, point);
        expectSame(path->nearestCurveLocation(point, 0, reach),
                   test::plainNearest(*path, point, reach));
    }
}

TEST_P(PathSearchOfKind, findsThePlaceThatIsNearestOnItsCurvesWithAccuracy) {
    for (int i = 0; i < 100; ++i) {
        const auto path = random.path(random.wholeBetween(1, 6), i % 2 == 0);
        const CGPoint point = pointFor(*path);
        std::optional<PathCurveLocation> plain;
        for (const PathCurve& curve : path->curves()) {
            const auto location = curve.nearestLocation(point, 1e-9);
            if (!plain || location.distance() < plain->distance())
                plain = location;
        }
        expectSame(path->nearestLocation(point, 1e-9), plain);
    }
}

TEST_P(PathSearchOfKind, boundsWhatItsCurvesBoundWhetherOrNotItHasAPlatformPath) {
    for (int i = 0; i < 300; ++i) {
        const auto path = random.path(random.wholeBetween(1, 6), i % 2 == 0);
        CGRect expected = CGRectNull;
        if (GetParam() != CurveKind::notFinite)
            for (const PathCurve& curve : path->curves())
                expected = CGRectUnion(expected, curve.bounds());
        const CGRect box = path->boundingBox();
        (void)path->cg();
        const CGRect withPlatformPath = path->boundingBox();
        EXPECT_TRUE(areSame(box.origin, withPlatformPath.origin));
        EXPECT_TRUE(areSame(box.size.width, withPlatformPath.size.width));
        EXPECT_TRUE(areSame(box.size.height, withPlatformPath.size.height));
        if (GetParam() == CurveKind::notFinite || GetParam() == CurveKind::overflowing)
            continue;
        // A rect holds its size, so that its far edge is rounded when rects are united.
        constexpr CGFloat ulp = scalar::actualMachineEpsilon;
        EXPECT_EQ(box.origin, expected.origin);
        EXPECT_NEAR(box.size.width, expected.size.width,
                    ulp * (std::abs(box.origin.x) + 2 * box.size.width));
        EXPECT_NEAR(box.size.height, expected.size.height,
                    ulp * (std::abs(box.origin.y) + 2 * box.size.height));
    }
}

INSTANTIATE_TEST_SUITE_P(Paths, PathSearchOfKind, ::testing::ValuesIn(test::allCurveKinds),
                         [](const auto& kind) { return nameOf(kind.param); });

TEST(PathSearch, isTheSameAcrossALargeDrawing) {
    RandomCurves random(CurveKind::anywhere);
    const auto path = random.path(300, true);
    for (int i = 0; i < 60; ++i) {
        const CGPoint point{random.between(-200, 1200), random.between(-200, 1200)};
        const CGFloat reach = random.between(0, 20);
        EXPECT_TRUE(
            areSame(path->hitTestOnPath(point, 0, reach), test::plainHit(*path, point, reach)));
        expectSame(path->nearestCurveLocation(point, 0, reach),
                   test::plainNearest(*path, point, reach));
    }
}

TEST(PathSearch, halvesTheLineWidthBeforeItAddsTheTolerance) {
    RandomCurves random(CurveKind::anywhere);
    for (int i = 0; i < 100; ++i) {
        const auto path = random.path(2, false);
        const CGFloat lineWidth = random.between(0, 500), tolerance = random.between(0, 100);
        const CGPoint point = random.pointFor(path->curves()[0].cubic());
        EXPECT_TRUE(areSame(path->hitTestOnPath(point, lineWidth, tolerance),
                            test::plainHit(*path, point, lineWidth * 0.5 + tolerance)));
    }
}

TEST(CurveWalk, visitsTheCurvesOfThePathInOrder) {
    RandomCurves random(CurveKind::wholeNumbers);
    for (const bool isClosed : {false, true}) {
        for (int count = 0; count < 5; ++count) {
            const auto path = random.path(count, isClosed);
            const auto curves = path->curves();
            std::size_t visited = 0;
            EXPECT_FALSE(walkCurves(*path, [&](const CubicBezier& cubic, std::size_t index) {
                EXPECT_EQ(index, visited);
                EXPECT_EQ(cubic, curves.at(visited).cubic());
                ++visited;
                return false;
            }));
            EXPECT_EQ(visited, curves.size());

            std::size_t listed = 0;
            forEachCurve(*path, [&](const CubicBezier& cubic) {
                EXPECT_EQ(cubic, curves.at(listed++).cubic());
            });
            EXPECT_EQ(listed, curves.size());
        }
    }
}

TEST(CurveWalk, stopsWhenToldTo) {
    RandomCurves random(CurveKind::wholeNumbers);
    const auto path = random.path(4, true);
    for (std::size_t stop = 0; stop < 5; ++stop) {
        std::size_t visited = 0;
        EXPECT_TRUE(walkCurves(*path, [&](const CubicBezier&, std::size_t index) {
            ++visited;
            return index == stop;
        }));
        EXPECT_EQ(visited, stop + 1);
    }
}

}  // namespace
}  // namespace quorin
