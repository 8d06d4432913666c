#include <cmath>
#include <limits>
#include <numbers>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/path/CornerArc.h"
#include "quorin/path/Path.h"
#include "tests/TestSupport.h"
#include "tests/path/Corners.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/Printing.h"

namespace quorin {
namespace {

using namespace test;

constexpr CGFloat side = 100;
constexpr CGFloat degree = std::numbers::pi / 180;

void expectNear(CGPoint actual, CGPoint expected, CGFloat tolerance) {
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
}

/// The square's path after rounding: each side, then the arc at its end, from the first side on.
void expectRoundedSquare(const Path& rounded, CGFloat radius) {
    const CGFloat handle = radius * scalar::kappa;
    const CGPoint corners[] = {{side, 0}, {side, side}, {0, side}, {0, 0}};
    const CGPoint alongs[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
    const auto curves = rounded.curves();
    ASSERT_EQ(curves.size(), 8u);
    EXPECT_TRUE(rounded.isClosed());
    for (std::size_t i = 0; i < 4; ++i) {
        SCOPED_TRACE(i);
        const PathCurve& line = curves[2 * i];
        const PathCurve& arc = curves[2 * i + 1];
        const CGPoint in = alongs[i], out = alongs[(i + 1) % 4];
        EXPECT_TRUE(line.isStraight());
        expectNear(line.p1(), corners[i] - in * (side - radius), 1e-12);
        expectNear(line.p2(), corners[i] - in * radius, 1e-12);
        expectNear(arc.p2(), corners[i] + out * radius, 1e-12);
        expectNear(arc.h1(), in * handle, 1e-12);
        expectNear(arc.h2(), -out * handle, 1e-12);
    }
}

TEST(RoundedCornerPath, trimsTheSidesOfASquareAndJoinsThemWithQuarterArcs) {
    const auto rounded = squareWithRadius(side, 10)->roundedCornerPath();
    expectRoundedSquare(*rounded, 10);
    const CGPoint handle = rounded->curves()[1].h1();
    EXPECT_NEAR(std::hypot(handle.x, handle.y), 5.522847498307936, 1e-12);
}

TEST(RoundedCornerPath, takesTheRadiusInWholePoints) {
    const auto whole = squareWithRadius(side, 10)->roundedCornerPath();
    EXPECT_EQ(*squareWithRadius(side, 10.7)->roundedCornerPath(), *whole);
    EXPECT_FALSE(*squareWithRadius(side, 11)->roundedCornerPath() == *whole);
}

TEST(RoundedCornerPath, leavesACornerSharpWhoseRadiusIsBelowOnePoint) {
    const auto square = squareWithRadius(side, 0.5);
    const auto rounded = square->roundedCornerPath();
    ASSERT_EQ(rounded->segments().count(), 4u);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(rounded->segments()[i].point(), square->segments()[i].point());
        EXPECT_EQ(rounded->segments()[i].behavior(), PointBehavior::straight);
        EXPECT_EQ(rounded->segments()[i].radius(), 0) << "the path is rebuilt all the same";
    }
}

TEST(RoundedCornerPath, limitsTheRadiusToHalfOfEachStraightSide) {
    expectRoundedSquare(*squareWithRadius(side, 80)->roundedCornerPath(), 50);
    expectRoundedSquare(*squareWithRadius(side, INFINITY)->roundedCornerPath(), 50);
}

TEST(RoundedCornerPath, roundsStraightAnchorsOnly) {
    for (const PointBehavior behavior :
         {PointBehavior::mirrored, PointBehavior::asymmetric, PointBehavior::disconnected}) {
        const auto square = squareWithRadius(side, 10);
        setBehavior(*square, 0, behavior);
        setBehavior(*square, 2, behavior);
        const auto rounded = square->roundedCornerPath();
        ASSERT_EQ(rounded->segments().count(), 6u);
        EXPECT_EQ(rounded->segments()[0].point(), (CGPoint{0, 0}));
        EXPECT_EQ(rounded->segments()[3].point(), (CGPoint{100, 100}));
        for (const std::size_t arcEnd : {1u, 2u, 4u, 5u})
            EXPECT_NE(rounded->segments()[arcEnd].behavior(), PointBehavior::straight);
    }
}

TEST(RoundedCornerPath, copiesAPathOfTwoSegments) {
    for (const bool isClosed : {false, true}) {
        const auto path = polygonWithRadius({{0, 0}, {100, 0}}, 10, isClosed);
        const auto rounded = path->roundedCornerPath();
        EXPECT_EQ(*rounded, *path) << "radii and behaviours are kept";
        EXPECT_NE(rounded, path);
    }
    EXPECT_EQ(*polygonWithRadius({{1, 2}}, 10)->roundedCornerPath(),
              *polygonWithRadius({{1, 2}}, 10));
    EXPECT_EQ(*Path::create()->roundedCornerPath(), *Path::create());
}

TEST(RoundedCornerPath, copiesAPathWithoutRadii) {
    const auto square = squareWithRadius(side, 0);
    setBehavior(*square, 1, PointBehavior::disconnected);
    setRadius(*square, 2, -0.0);
    const auto rounded = square->roundedCornerPath();
    EXPECT_EQ(*rounded, *square);
    EXPECT_EQ(rounded->segments()[1].behavior(), PointBehavior::disconnected);
    EXPECT_NE(rounded, square);
}

TEST(RoundedCornerPath, leavesThePathItselfAsItWas) {
    const auto square = squareWithRadius(side, 10);
    square->roundedCornerPath();
    EXPECT_EQ(*square, *squareWithRadius(side, 10));
}

TEST(RoundedCornerPath, leavesTheEndsOfAnOpenPathSharp) {
    const auto open = polygonWithRadius({{0, 0}, {100, 0}, {100, 100}}, 10, false);
    const auto rounded = open->roundedCornerPath();
    EXPECT_FALSE(rounded->isClosed());
    ASSERT_EQ(rounded->segments().count(), 4u);
    EXPECT_EQ(rounded->segments()[0].point(), (CGPoint{0, 0}));
    EXPECT_EQ(rounded->segments()[3].point(), (CGPoint{100, 100}));
}

TEST(RoundedCornerPath, roundsTheFirstAnchorOfAClosedPathLast) {
    const auto square = squareWithRadius(side, 0);
    setRadius(*square, 0, 20);
    setRadius(*square, 1, 30);
    const auto curves = square->roundedCornerPath()->curves();
    ASSERT_EQ(curves.size(), 6u);
    // The first curve of the list has lost both ends, the last one is the first anchor's arc.
    expectNear(curves[0].p1(), {20, 0}, 1e-12);
    expectNear(curves[0].p2(), {70, 0}, 1e-12);
    expectNear(curves[5].p1(), {0, 20}, 1e-12);
    expectNear(curves[5].p2(), {20, 0}, 1e-12);
}

TEST(RoundedCornerPath, measuresTheRoomOnSidesThatAreNotTrimmedYet) {
    // Half of what a first corner leaves of a side would be 30.
    expectRoundedSquare(*squareWithRadius(side, 40)->roundedCornerPath(), 40);
}

TEST(RoundedCornerPath, measuresTheReachOfACornerByTheRoomBeforeItIsMadeWhole) {
    const CGFloat angle = 30 * degree;
    const auto path = cornerOf({0, 0}, 0.2, angle, 101, 100);
    const auto arc = path->roundedCornerPath()->curves().at(1);
    EXPECT_NEAR(distance(arc.p1(), {0, 0}), 50.5, 1e-12);
    EXPECT_NEAR(distance(arc.p2(), {0, 0}), 50.5, 1e-12);
}

TEST(RoundedCornerPath, turnsByTheSineAndCosineOfTheRoundedQuarterTurn) {
    const CGPoint handle = squareWithRadius(side, 10)->roundedCornerPath()->curves()[1].h1();
    EXPECT_NE(handle.y, 0) << "exact factors of 0 and 1 would stay on the axis";
    EXPECT_NEAR(handle.y / handle.x, -6.123233995736766e-17, 1e-20);
}

TEST(RoundedCornerPath, snapsASideThatRunsNearlyAlongTheAxis) {
    const auto arcStart = [](CGFloat rise) {
        const auto path = polygonWithRadius({{0, -rise}, {100, 0}, {100, 100}}, 10, false);
        return path->roundedCornerPath()->segments()[1].point();
    };
    EXPECT_EQ(arcStart(0).y, 0);
    EXPECT_NEAR(arcStart(100 * 9e-6).y, 10 * 2.4492935982947064e-16, 1e-20)
        << "the sine of the rounded full turn";
    EXPECT_NEAR(arcStart(-100 * 9e-6).y, 10 * 2.4492935982947064e-16, 1e-20);
    EXPECT_NEAR(arcStart(100 * 1.1e-5).y, -10 * 1.1e-5, 1e-8);
}

TEST(RoundedCornerPath, leavesSidesInLineSharp) {
    // With radius 10 the tangent points are 5δ off, and their cross product is 25 δ³.
    const auto curveCount = [](CGFloat bend) {
        const auto path = cornerOf({0, 0}, 45 * degree, std::numbers::pi - bend, 100, 10);
        return path->roundedCornerPath()->curves().size();
    };
    EXPECT_EQ(curveCount(0), 2u);
    EXPECT_EQ(curveCount(3.3e-5), 2u);
    EXPECT_EQ(curveCount(3.5e-5), 3u);
    EXPECT_EQ(curveCount(-3.3e-5), 2u);
    EXPECT_EQ(curveCount(-3.5e-5), 3u);
}

TEST(RoundedCornerPath, leavesASpikeSharp) {
    for (const CGFloat length : {10.0, 1000.0, 1e6})
        for (const CGPoint tip : {CGPoint{1, 0}, CGPoint{-1, 0}, CGPoint{3, 1}, CGPoint{-2, -7}}) {
            const auto path =
                polygonWithRadius({{0, 0}, tip * length, tip * (length / 2)}, 3, false);
            const auto rounded = path->roundedCornerPath();
            ASSERT_EQ(rounded->segments().count(), 3u);
            EXPECT_EQ(rounded->segments()[1].point(), tip * length);
        }
}

TEST(RoundedCornerPath, leavesOnlyTheCornerSharpThatCannotBeRounded) {
    struct Row {
        const char* says;
        CGPoint extra;
    };
    const Row table[] = {
        {"an anchor amid a side", {100, 50}},
        {"an anchor on another one", {100, 0}},
        {"an anchor on the next one", {100, 100}},
    };
    for (const auto& [says, extra] : table) {
        SCOPED_TRACE(says);
        const auto path = polygonWithRadius({{0, 0}, {100, 0}, extra, {100, 100}, {0, 100}}, 10);
        const auto rounded = path->roundedCornerPath();
        const bool isDoubled = extra.y != 50;
        EXPECT_EQ(rounded->segments().count(), isDoubled ? 2u + 3 * 2 : 1u + 4 * 2);
        const auto points = rounded->segments();
        EXPECT_TRUE(std::any_of(points.begin(), points.end(),
                                [at = extra](const PathSegment& s) { return s.point() == at; }));
    }
}

TEST(RoundedCornerPath, ignoresRadiiThatAreNoRadius) {
    for (const CGFloat radius : {-10.0, std::nan("")}) {
        const auto square = squareWithRadius(side, 10);
        setRadius(*square, 1, radius);
        const auto rounded = square->roundedCornerPath();
        EXPECT_EQ(rounded->segments().count(), 7u);
        EXPECT_EQ(rounded->segments()[1].point(), (CGPoint{100, 0}));
    }
}

TEST(RoundedCornerPath, answersForAnyNumbers) {
    const CGFloat numbers[] = {0, 1e-300, 1e150, 1e308, INFINITY, std::nan("")};
    for (const CGFloat x : numbers)
        for (const CGFloat y : numbers) {
            const auto path = polygonWithRadius({{0, 0}, {x, 10}, {y, x}, {-x, y}}, 10);
            EXPECT_GE(path->roundedCornerPath()->segments().count(), 4u);
            PathSegment bent = path->segments()[1];
            bent.setHandleIn({y, x});
            path->segments().setAt(1, bent);
            EXPECT_GE(path->roundedCornerPath()->segments().count(), 4u);
        }
}

TEST(RoundedCornerPath, keepsNoRadiusAndInfersTheBehavioursOfTheJoints) {
    const auto rounded = squareWithRadius(side, 10)->roundedCornerPath();
    for (const PathSegment& segment : rounded->segments()) {
        EXPECT_EQ(segment.radius(), 0);
        EXPECT_EQ(segment.behavior(), PointBehavior::asymmetric);
    }
}

TEST(RoundedCornerPath, allocatesForTheResultAndItsListOnly) {
    const auto allocations = [](int corners) {
        const auto path = Path::create();
        for (int i = 0; i < corners; ++i) {
            PathSegment corner({30.0 * i, i % 2 ? 40.0 : 0.0}, {}, {}, PointBehavior::straight);
            corner.setRadius(5);
            path->segments().append(corner);
        }
        const std::size_t before = allocationCount();
        const auto rounded = path->roundedCornerPath();
        const std::size_t after = allocationCount();
        EXPECT_EQ(rounded->segments().count(), static_cast<std::size_t>(2 * corners - 2));
        return after - before;
    };
    EXPECT_EQ(allocations(100), allocations(10));
}

/// How far the cubic leaves the circle that touches both sides, in radii.
CGFloat worstDeviation(const PathCurve& arc, CGPoint centre, CGFloat radius) {
    CGFloat worst = 0;
    for (int i = 0; i <= 100; ++i)
        worst = std::max(worst, std::abs(distance(*arc.pointAt(i / 100.0), centre) / radius - 1));
    return worst;
}

TEST(RoundedCornerPath, drawsCircularArcsForAnyAngleInEitherDirection) {
    const CGPoint corner = {50, -30};
    const CGFloat radius = 7;
    for (const int angle : {25, 60, 90, 120, 155, 175})
        for (const int hand : {1, -1})
            for (int direction = 0; direction < 360; direction += 24) {
                SCOPED_TRACE(testing::Message()
                             << angle << "° from " << direction << "°, " << hand);
                const auto path =
                    cornerOf(corner, direction * degree, hand * angle * degree, 100, radius);
                const auto arc = path->roundedCornerPath()->curves().at(1);
                const CGFloat middle = (direction + hand * angle / 2.0) * degree;
                const CGPoint centre = corner + CGPoint{std::cos(middle), std::sin(middle)} *
                                                    (radius / std::sin(angle * degree / 2));
                const CGFloat quarters = (180.0 - angle) / 90;
                EXPECT_LT(worstDeviation(arc, centre, radius),
                          2.8e-4 * std::pow(std::max(quarters, 1.0), 6));
                for (const CGPoint handle : {arc.h1(), arc.h2()})
                    EXPECT_NEAR(std::hypot(handle.x, handle.y),
                                radius * 4 / 3 * std::tan(quarters * 90 * degree / 4), 1e-9);
                EXPECT_GT(dot(arc.h1(), corner - arc.p1()), 0) << "towards the corner";
                EXPECT_GT(dot(arc.h2(), corner - arc.p2()), 0);
            }
}

}  // namespace
}  // namespace quorin
