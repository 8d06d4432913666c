#include <cmath>
#include <limits>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/path/CurveWalk.h"
#include "quorin/path/Path.h"
#include "tests/TestSupport.h"
#include "tests/support/Printing.h"

namespace quorin {
namespace {

using ::testing::ElementsAre;

constexpr CGFloat k = 0.5522847498307936;

std::vector<CGPoint> pointsOf(const Path& path) {
    std::vector<CGPoint> points;
    for (const PathAnchor& anchor : path.segments().anchors())
        points.push_back(anchor.point);
    return points;
}

void expectSharpCorners(const std::shared_ptr<Path>& path) {
    for (std::size_t i = 0; i < path->segments().count(); ++i) {
        SCOPED_TRACE(i);
        const PathSegment segment = path->segments()[i];
        EXPECT_EQ(segment, PathSegment(segment.point(), {}, {}, PointBehavior::straight, {},
                                       static_cast<std::ptrdiff_t>(i)));
        EXPECT_EQ(segment.path(), path);
    }
}

TEST(Rectangle, runsFromTheOriginAlongTheWidth) {
    const auto path = Path::rectangle(CGRectMake(0, 0, 10, 20));
    EXPECT_THAT(pointsOf(*path),
                ElementsAre(CGPoint{0, 0}, CGPoint{10, 0}, CGPoint{10, 20}, CGPoint{0, 20}));
    EXPECT_TRUE(path->isClosed());
    EXPECT_TRUE(path->isSimpleRectangle());
    expectSharpCorners(path);
}

TEST(Rectangle, mirrorsItsCornersForANegativeSize) {
    EXPECT_THAT(pointsOf(*Path::rectangle(CGRectMake(5, 7, -10, 20))),
                ElementsAre(CGPoint{5, 7}, CGPoint{-5, 7}, CGPoint{-5, 27}, CGPoint{5, 27}));
    EXPECT_THAT(pointsOf(*Path::rectangle(CGRectMake(5, 7, 10, -20))),
                ElementsAre(CGPoint{5, 7}, CGPoint{15, 7}, CGPoint{15, -13}, CGPoint{5, -13}));
}

TEST(Rectangle, keepsFourAnchorsWithoutASize) {
    const auto path = Path::rectangle(CGRectMake(3, 4, 0, 0));
    EXPECT_THAT(pointsOf(*path),
                ElementsAre(CGPoint{3, 4}, CGPoint{3, 4}, CGPoint{3, 4}, CGPoint{3, 4}));
}

TEST(Ellipse, startsAtTheLeftAndRunsThroughTheLeastY) {
    const auto path = Path::ellipse(CGRectMake(0, 0, 2, 2));
    const PathSegment expected[] = {
        {{0, 1}, {0, k}, {0, -k}, PointBehavior::mirrored, {}, 0},
        {{1, 0}, {-k, 0}, {k, 0}, PointBehavior::mirrored, {}, 1},
        {{2, 1}, {0, -k}, {0, k}, PointBehavior::mirrored, {}, 2},
        {{1, 2}, {k, 0}, {-k, 0}, PointBehavior::mirrored, {}, 3},
    };
    EXPECT_TRUE(path->isClosed());
    EXPECT_THAT(path->segments(), ::testing::ElementsAreArray(expected));
    EXPECT_EQ(path->segments()[3].path(), path);
}

TEST(Ellipse, stretchesPointsAndHandlesWithTheSize) {
    const auto path = Path::ellipse(CGRectMake(-20, 3, 40, 10));
    EXPECT_EQ(path->segments()[0].point(), (CGPoint{-20, 8}));
    EXPECT_EQ(path->segments()[0].handleOut(), (CGPoint{0, -5 * k}));
    EXPECT_EQ(path->segments()[1].point(), (CGPoint{0, 3}));
    EXPECT_EQ(path->segments()[1].handleOut(), (CGPoint{20 * k, 0}));
}

TEST(Ellipse, isTheSameForASizeWithSigns) {
    const auto path = Path::ellipse(CGRectMake(-20, 3, 40, 10));
    EXPECT_TRUE(*Path::ellipse(CGRectMake(20, 3, -40, 10)) == *path);
    EXPECT_TRUE(*Path::ellipse(CGRectMake(20, 13, -40, -10)) == *path);
}

TEST(Ellipse, leavesTheTrueOneByLittle) {
    const auto path = Path::ellipse(CGRectMake(-1, -1, 2, 2));
    forEachCurve(*path, [](const CubicBezier& curve) {
        for (int i = 0; i <= 100; ++i) {
            const CGPoint p = *curve.pointAt(i / 100.0);
            EXPECT_NEAR(std::hypot(p.x, p.y), 1, 2.8e-4);
        }
    });
}

TEST(Star, hasTwoCornersForEachPoint) {
    const auto path = Path::star({0, 0}, 5, 10, 4);
    ASSERT_EQ(path->segments().count(), 10u);
    EXPECT_TRUE(path->isClosed());
    expectSharpCorners(path);
    EXPECT_EQ(path->segments()[0].point(), (CGPoint{0, -10}));
    // sin 36° = sqrt(10 - 2 sqrt 5) / 4, cos 36° = (1 + sqrt 5) / 4
    const CGFloat sine = std::sqrt(10 - 2 * std::sqrt(5.0)) / 4;
    const CGFloat cosine = (1 + std::sqrt(5.0)) / 4;
    const CGPoint second = path->segments()[1].point();
    EXPECT_NEAR(second.x, 4 * sine, 1e-15);
    EXPECT_NEAR(second.y, -4 * cosine, 1e-15);
}

TEST(Star, turnsTowardsPositiveXByEqualSteps) {
    const CGPoint center = {100, -50};
    const auto points = pointsOf(*Path::star(center, 7, 30, 12));
    for (std::size_t i = 0; i < points.size(); ++i) {
        SCOPED_TRACE(i);
        const long double angle = std::acos(-1.0L) * static_cast<long double>(i) / 7;
        const long double radius = i % 2 == 0 ? 30 : 12;
        EXPECT_NEAR(points[i].x, static_cast<CGFloat>(100 + radius * std::sin(angle)), 1e-12);
        EXPECT_NEAR(points[i].y, static_cast<CGFloat>(-50 - radius * std::cos(angle)), 1e-12);
    }
}

TEST(Star, ofOnePointGoesThereAndBack) {
    const auto points = pointsOf(*Path::star({0, 0}, 1, 10, 4));
    ASSERT_EQ(points.size(), 2u);
    EXPECT_EQ(points[0], (CGPoint{0, -10}));
    EXPECT_NEAR(points[1].y, 4, 1e-15);
}

TEST(Star, withoutPointsIsEmptyAndClosed) {
    const auto path = Path::star({1, 2}, 0, 10, 4);
    EXPECT_TRUE(path->segments().isEmpty());
    EXPECT_TRUE(path->isClosed());
}

TEST(StarDeathTest, stopsForANegativeNumberOfPoints) {
    EXPECT_DEATH(Path::star({0, 0}, -1, 10, 4), "star of -1 points");
}

TEST(StarDeathTest, stopsWhenTwiceTheNumberOverflows) {
    EXPECT_DEATH(Path::star({0, 0}, 4611686018427387904, 10, 4),
                 "star of 4611686018427387904 points");
    EXPECT_DEATH(Path::star({0, 0}, std::numeric_limits<std::ptrdiff_t>::max(), 10, 4),
                 "star of 9223372036854775807 points");
    EXPECT_DEATH(Path::star({0, 0}, std::numeric_limits<std::ptrdiff_t>::min(), 10, 4),
                 "star of -9223372036854775808 points");
}

TEST(StarDeathTest, stopsWhenItsLastCornerHasNoIndex) {
    EXPECT_DEATH(Path::star({0, 0}, 1'073'741'824, 10, 4), "star of 1073741824 points");
}

TEST(Line, joinsTwoPointsOpenly) {
    const auto path = Path::line({1, 2}, {3, 4});
    EXPECT_THAT(pointsOf(*path), ElementsAre(CGPoint{1, 2}, CGPoint{3, 4}));
    EXPECT_FALSE(path->isClosed());
    EXPECT_TRUE(path->isStraight());
    expectSharpCorners(path);
}

}  // namespace
}  // namespace quorin
