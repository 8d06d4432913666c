#include <cmath>
#include <ctime>
#include <numbers>
#include <vector>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/path/CurveWalk.h"
#include "quorin/path/Path.h"
#include "quorin/path/TangentCircle.h"
#include "tests/TestSupport.h"
#include "tests/path/Corners.h"
#include "tests/path/CurveTruth.h"
#include "tests/path/RandomCurves.h"
#include "tests/support/Printing.h"

namespace quorin {
namespace {

using namespace test;

constexpr CGFloat seamless = 1e-9;  // points and radians

CGFloat angleBetween(CGPoint a, CGPoint b) { return std::abs(std::atan2(cross(a, b), dot(a, b))); }
CGPoint directionOut(const CubicBezier& curve) {
    return curve.h1 == CGPoint::zero ? curve.c2() - curve.p1 : curve.h1;
}
CGPoint directionIn(const CubicBezier& curve) {
    return curve.h2 == CGPoint::zero ? curve.p2 - curve.c1() : -curve.h2;
}

std::vector<CubicBezier> cubicsOf(const Path& path) {
    std::vector<CubicBezier> cubics;
    forEachCurve(path, [&](const CubicBezier& cubic) { cubics.push_back(cubic); });
    return cubics;
}

/// The largest angle between a curve's end and the next one's start.
CGFloat sharpestJoint(const Path& path) {
    const auto cubics = cubicsOf(path);
    CGFloat sharpest = 0;
    for (std::size_t i = path.isClosed() ? 0 : 1; i < cubics.size(); ++i) {
        const CubicBezier& before = cubics[i > 0 ? i - 1 : cubics.size() - 1];
        sharpest = std::max(sharpest, angleBetween(directionIn(before), directionOut(cubics[i])));
    }
    return sharpest;
}

/// Straight anchors joined by curved sides: a side bends by as much as its controls lie beside it.
std::shared_ptr<Path> bulgingPolygon(std::initializer_list<CGPoint> points,
                                     std::initializer_list<CGFloat> bulges, CGFloat radius) {
    const auto path = Path::create();
    path->setIsClosed(true);
    const std::vector<CGPoint> p(points);
    const std::vector<CGFloat> bulge(bulges);
    const auto handles = [&](std::size_t side) {
        const CGPoint chord = p[(side + 1) % p.size()] - p[side];
        const CGPoint beside = CGPoint{chord.y, -chord.x} * bulge[side];
        return std::pair(chord * 0.3 + beside, -chord * 0.3 + beside);
    };
    for (std::size_t i = 0; i < p.size(); ++i) {
        const auto in = handles(i > 0 ? i - 1 : p.size() - 1).second;
        PathSegment corner(p[i], in, handles(i).first, PointBehavior::straight);
        corner.setRadius(radius);
        path->segments().append(corner);
    }
    return path;
}

std::shared_ptr<Path> leaf(CGFloat radius) {
    return bulgingPolygon({{0, 0}, {120, 20}}, {0.4, 0.3}, radius);
}
std::shared_ptr<Path> shield(CGFloat radius) {
    return bulgingPolygon({{0, 0}, {130, -10}, {70, 110}}, {0.2, -0.15, 0.1}, radius);
}
std::shared_ptr<Path> pillow(CGFloat radius) {
    return bulgingPolygon({{0, 0}, {100, 0}, {110, 90}, {-10, 80}}, {-0.2, 0.1, -0.1, 0.25},
                          radius);
}
/// As an editor leaves it: corners without handles, a smooth anchor amid one of the sides.
std::shared_ptr<Path> drop(CGFloat radius) {
    const auto path = polygonWithRadius({{0, 0}, {100, 10}, {90, 80}, {5, 90}}, radius);
    path->segments().setAt(1,
                           PathSegment({100, 10}, {-30, -25}, {30, 25}, PointBehavior::mirrored));
    path->segments().setAt(2,
                           PathSegment({90, 80}, {10, -20}, {-5, 10}, PointBehavior::asymmetric));
    return path;
}

struct Seam {
    CGFloat gap = 0, bend = 0;
};

/// How far joints are from the sides, and how much they bend off. The mirrored anchors amid arcs
/// of two pieces are no joints.
Seam worstSeam(const Path& original, const Path& rounded) {
    const auto sides = cubicsOf(original);
    std::vector<CurveTruth> truths(sides.begin(), sides.end());
    Seam worst;
    for (const PathSegment& joint : rounded.segments())
        for (const CGPoint handle : {joint.handleIn(), joint.handleOut()}) {
            if (joint.behavior() == PointBehavior::mirrored || handle == CGPoint::zero)
                continue;
            const bool isIn = handle == joint.handleIn();
            const CGPoint place = joint.point(), direction = isIn ? -handle : handle;
            long double gap = 1e300L;
            CGFloat bend = 4;
            for (const CurveTruth& truth : truths) {
                const auto nearest = truth.nearest(place);
                gap = std::min(gap, nearest.distance);
                if (nearest.distance > seamless)
                    continue;
                const auto v = truth.velocityAt(nearest.time);
                bend = std::min(bend, angleBetween(direction, {static_cast<CGFloat>(v.x),
                                                               static_cast<CGFloat>(v.y)}));
            }
            worst.gap = std::max(worst.gap, static_cast<CGFloat>(gap));
            worst.bend = std::max(worst.bend, bend);
        }
    return worst;
}

struct Shape {
    const char* name;
    std::shared_ptr<Path> (*make)(CGFloat radius);
    std::size_t corners;
};
const Shape shapes[] = {
    {"leaf", leaf, 2}, {"shield", shield, 3}, {"pillow", pillow, 4}, {"drop", drop, 2}};

TEST(SmoothlyRoundedPath, passesFromCurvedSidesIntoArcsWithoutGapOrBend) {
    for (const auto& [name, make, corners] : shapes)
        for (const CGFloat radius : {1.0, 9.25}) {
            SCOPED_TRACE(testing::Message() << name << " " << radius);
            const auto path = make(radius);
            const auto rounded = path->smoothlyRoundedPath();
            EXPECT_GE(rounded->segments().count(), path->segments().count() + corners);
            EXPECT_LT(sharpestJoint(*rounded), seamless);
            const auto [gap, bend] = worstSeam(*path, *rounded);
            EXPECT_LT(gap, seamless);
            EXPECT_LT(bend, seamless);
            EXPECT_TRUE(rounded->isClosed());
        }
}

TEST(RoundedCornerPath, passesFromStraightSidesIntoArcsWithoutGapOrBend) {
    const auto path = polygonWithRadius({{3, 5}, {130, -10}, {70, 110}, {20, 130}, {-30, 60}}, 9);
    const auto rounded = path->roundedCornerPath();
    ASSERT_EQ(rounded->segments().count(), 10u);
    EXPECT_LT(sharpestJoint(*rounded), seamless);
    const auto [gap, bend] = worstSeam(*path, *rounded);
    EXPECT_LT(gap, seamless);
    EXPECT_LT(bend, seamless);
}

TEST(RoundedCornerPath, bendsWhereCurvedSidesMeetItsArcs) {
    // It takes curved sides for their chords: the reason for the smooth rounding beside it.
    const auto rounded = pillow(9)->roundedCornerPath();
    ASSERT_EQ(rounded->segments().count(), 8u);
    EXPECT_GT(sharpestJoint(*rounded), 1e-3);
}

TEST(SmoothlyRoundedPath, agreesWithTheOtherRoundingBesideStraightSides) {
    const auto path = polygonWithRadius({{3, 5}, {130, -10}, {70, 110}, {-30, 60}}, 9);
    const auto smooth = cubicsOf(*path->smoothlyRoundedPath());
    const auto other = cubicsOf(*path->roundedCornerPath());
    // One starts with the first corner's arc, the other after it.
    std::size_t found = 0;
    for (const CubicBezier& a : smooth)
        for (const CubicBezier& b : other)
            found += distance(a.p1, b.p1) < seamless && distance(a.p2, b.p2) < seamless;
    EXPECT_GE(found, 4u);
}

TEST(SmoothlyRoundedPath, takesTheRadiusAsItIs) {
    for (const CGFloat radius : {0.5, 10.7}) {
        const auto cubics = cubicsOf(*squareWithRadius(100, radius)->smoothlyRoundedPath());
        ASSERT_EQ(cubics.size(), 8u);
        EXPECT_NEAR(cubics[0].p1.y, radius, 1e-12);
        EXPECT_NEAR(cubics[0].p2.x, radius, 1e-12);
        EXPECT_NEAR(distance(cubics[0].p1, cubics[0].c1()), radius * scalar::kappa, 1e-12);
    }
}

TEST(SmoothlyRoundedPath, fallsBackToTheLargestCircleThatFits) {
    for (const CGFloat radius : {80.0, 1e9, HUGE_VAL}) {
        const auto cubics = cubicsOf(*squareWithRadius(100, radius)->smoothlyRoundedPath());
        ASSERT_EQ(cubics.size(), 4u) << "nothing is left of the sides";
        for (const CubicBezier& arc : cubics) {
            EXPECT_NEAR(distance(arc.p1, {50, 50}), 50, seamless);
            EXPECT_NEAR(distance(arc.pointAt(0.5).value(), {50, 50}), 50, 50 * 2.8e-4);
        }
    }
    for (const auto& [name, make, corners] : shapes) {
        SCOPED_TRACE(name);
        const auto path = make(1000);
        const auto rounded = path->smoothlyRoundedPath();
        EXPECT_GT(rounded->segments().count(), path->segments().count());
        EXPECT_LT(sharpestJoint(*rounded), seamless);
    }
}

TEST(LargestTangentCircle, touchesBothSidesAndIsCrossedByNeither) {
    for (const auto& [name, make, corners] : shapes)
        for (const CGFloat radius : {2.0, 8.0, 1e6}) {
            const auto sides = cubicsOf(*make(0));
            for (std::size_t i = 0; i < sides.size(); ++i) {
                const CubicBezier& before = sides[i > 0 ? i - 1 : sides.size() - 1];
                const auto circle = largestTangentCircle({before, sides[i], 0.5, 0.5}, radius);
                if (!circle)
                    continue;
                SCOPED_TRACE(testing::Message() << name << " " << radius << " corner " << i);
                EXPECT_LE(circle->radius, radius);
                EXPECT_GE(circle->timeBefore, 0.5);
                EXPECT_LE(circle->timeAfter, 0.5);
                const CubicBezier reached = before.partialCurve(0, circle->timeBefore);
                const CubicBezier left = sides[i].partialCurve(circle->timeAfter, 1);
                const CGPoint normal = before.normalAt(circle->timeBefore).value();
                const CGPoint out = sides[i].tangentAt(circle->timeAfter).value();
                const CGPoint in = before.tangentAt(circle->timeBefore).value();
                const CGPoint centre =
                    reached.p2 + normal * (cross(in, out) > 0 ? -circle->radius : circle->radius);
                EXPECT_NEAR(distance(centre, left.p1), circle->radius, 1e-11);
                EXPECT_NEAR(dot(left.p1 - centre, out), 0, 1e-9);
                for (const CubicBezier& kept : {reached, left})
                    EXPECT_GT(static_cast<CGFloat>(CurveTruth(kept).nearest(centre).distance),
                              circle->radius * (1 - 4e-9));
            }
        }
}

TEST(LargestTangentCircle, growsUntilASideCrossesIt) {
    // The second side comes back towards the corner, in the way of circles that touch it further
    // up.
    const CubicBezier line{{100, 0}, {-30, 0}, {30, 0}, {0, 0}};
    const CubicBezier hook{{0, 0}, {0, 150}, {50, 130}, {40, 20}};
    const auto circle = largestTangentCircle({line, hook, 0, 1}, 1000);
    ASSERT_TRUE(circle);
    const CGPoint centre = {line.pointAt(circle->timeBefore)->x, circle->radius};
    EXPECT_NEAR(distance(centre, *hook.pointAt(circle->timeAfter)), circle->radius, 1e-11);
    EXPECT_NEAR(distance(centre, hook.p2), circle->radius, 1e-6) << "the third touch";
    EXPECT_LT(circle->timeAfter, 0.2);

    const auto smaller = largestTangentCircle({line, hook, 0, 1}, circle->radius * 0.999);
    ASSERT_TRUE(smaller);
    EXPECT_EQ(smaller->radius, circle->radius * 0.999);
}

TEST(LargestTangentCircle, isFoundInShortTimeBesideFlatCorners) {
    // The circle is so large that rounding alone decides which radius still fits.
    const CGPoint from{0, 0}, corner{50, 0.0014081858648160182}, to{100, 0};
    const auto line = [](CGPoint a, CGPoint b) {
        return CubicBezier{a, (b - a) / 3, (a - b) / 3, b};
    };
    const std::clock_t start = std::clock();
    const auto circle =
        largestTangentCircle({line(from, corner), line(corner, to), 0.5, 0.5}, 1e300);
    const auto seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    ASSERT_TRUE(circle);
    const CGFloat half = std::atan2(corner.y, corner.x);
    EXPECT_NEAR(circle->radius * std::tan(half), distance(from, corner) / 2, 1e-5);
    EXPECT_LT(seconds, 0.1);
}

TEST(SmoothlyRoundedPath, keepsSidesOfAnySizeThatAreLeftBetweenArcs) {
    // Sides of this size are no longer than what is nothing beside one of 100.
    constexpr CGFloat tiny = 0x1p-36;
    const auto scaledSquare = squareWithRadius(100 * tiny, 20 * tiny);
    const auto cubics = cubicsOf(*scaledSquare->smoothlyRoundedPath());
    ASSERT_EQ(cubics.size(), 8u);
    EXPECT_NEAR(cubics[0].p1.y / tiny, 20, 1e-9);
    EXPECT_NEAR(cubics[0].p2.x / tiny, 20, 1e-9);
    EXPECT_NEAR(cubics[1].p2.x / tiny, 80, 1e-9);
}

TEST(LargestTangentCircle, growsUntilItReachesTheEarliestAndTheLatestTime) {
    const CubicBezier line{{100, 0}, {-30, 0}, {30, 0}, {0, 0}};
    const CubicBezier other{{0, 0}, {0, 40}, {-10, -20}, {-20, 90}};
    EXPECT_NEAR(largestTangentCircle({line, other, 0.8, 1}, 1000)->timeBefore, 0.8, 1e-9);
    EXPECT_NEAR(largestTangentCircle({line, other, 0, 0.1}, 1000)->timeAfter, 0.1, 1e-9);
}

TEST(SmoothlyRoundedPath, keepsTheShapeOfWhatIsLeftOfTheSides) {
    for (const auto& [name, make, corners] : shapes) {
        SCOPED_TRACE(name);
        const auto path = make(6);
        const auto sides = cubicsOf(*path);
        const auto distanceFromSides = [&](CGPoint place) {
            CGFloat least = scalar::greatestFinite;
            for (const CubicBezier& side : sides)
                least = std::min(least, side.nearest(place, 1e-10).distance);
            return least;
        };
        std::size_t stretches = 0;
        for (const CubicBezier& curve : cubicsOf(*path->smoothlyRoundedPath())) {
            CGFloat farthest = 0;
            for (const CGFloat t : {0.2, 0.5, 0.7})
                farthest = std::max(farthest, distanceFromSides(*curve.pointAt(t)));
            stretches += farthest < seamless;
        }
        EXPECT_EQ(stretches, sides.size());
    }
}

TEST(SmoothlyRoundedPath, leavesSidesInLineAndSpikesAndCuspsSharp) {
    const auto inLine = polygonWithRadius({{0, 0}, {50, 0}, {100, 0}, {100, 100}}, 5, false);
    EXPECT_EQ(inLine->smoothlyRoundedPath()->segments().count(), 5u);
    EXPECT_EQ(inLine->smoothlyRoundedPath()->segments()[1].point(), (CGPoint{50, 0}));
    const auto spike = polygonWithRadius({{0, 0}, {90, 30}, {30, 10}}, 5, false);
    EXPECT_EQ(spike->smoothlyRoundedPath()->segments().count(), 3u);

    // Two curves that leave their anchor in one direction, and a curve that goes on round a bend.
    const auto cusp = Path::create();
    cusp->segments().append(PathSegment({0, 50}, {}, {}, PointBehavior::straight));
    PathSegment tip({100, 0}, {-40, 0}, {-40, 0}, PointBehavior::straight);
    tip.setRadius(5);
    cusp->segments().append(tip);
    cusp->segments().append(PathSegment({0, -50}, {}, {}, PointBehavior::straight));
    EXPECT_EQ(cusp->smoothlyRoundedPath()->segments().count(), 3u);
    tip.setHandleOut({40, 0});
    cusp->segments().setAt(1, tip);
    EXPECT_EQ(cusp->smoothlyRoundedPath()->segments().count(), 3u);

    const auto doubled = polygonWithRadius({{0, 0}, {100, 0}, {100, 0}, {100, 100}}, 5, false);
    EXPECT_EQ(doubled->smoothlyRoundedPath()->segments().count(), 4u);
}

TEST(SmoothlyRoundedPath, keepsTheEndsOfAnOpenPath) {
    const auto path = polygonWithRadius({{0, 0}, {100, 0}, {100, 100}}, 10, false);
    const auto rounded = path->smoothlyRoundedPath();
    EXPECT_FALSE(rounded->isClosed());
    ASSERT_EQ(rounded->segments().count(), 4u);
    EXPECT_EQ(rounded->segments()[0].point(), (CGPoint{0, 0}));
    EXPECT_EQ(rounded->segments()[3].point(), (CGPoint{100, 100}));
    EXPECT_EQ(rounded->segments()[3].behavior(), PointBehavior::straight);
    EXPECT_LT(distance(rounded->segments()[1].point(), {90, 0}), 1e-12);
}

TEST(SmoothlyRoundedPath, keepsTheBehavioursOfOtherAnchors) {
    const auto path = drop(8);
    setBehavior(*path, 3, PointBehavior::disconnected);
    const auto rounded = path->smoothlyRoundedPath();
    ASSERT_EQ(rounded->segments().count(), 5u);
    EXPECT_EQ(rounded->segments()[2].behavior(), PointBehavior::asymmetric)
        << "its side was shortened, and its handle with it";
    EXPECT_EQ(rounded->segments()[3].point(), (CGPoint{90, 80}));
    EXPECT_EQ(rounded->segments()[3].behavior(), PointBehavior::asymmetric);
    EXPECT_EQ(rounded->segments()[3].handleIn(), path->segments()[2].handleIn());
    EXPECT_EQ(rounded->segments()[4].behavior(), PointBehavior::disconnected);
    EXPECT_LT(angleBetween(rounded->segments()[2].handleIn(), {-30, -25}), seamless);
    EXPECT_EQ(rounded->segments()[2].handleOut(), (CGPoint{30, 25}));
}

TEST(SmoothlyRoundedPath, drawsSharpTurnsInPiecesOfAQuarterTurnAtMost) {
    const auto path = polygonWithRadius({{0, 0}, {200, 0}, {0, 60}}, 6);
    const auto rounded = path->smoothlyRoundedPath();
    EXPECT_EQ(rounded->segments().count(), 3u * 2 + 2)
        << "both sharp corners turn by more than a quarter";
    EXPECT_LT(sharpestJoint(*rounded), seamless);
    // The corner at the far right turns by more than a quarter.
    const CGFloat half = std::atan2(60, 200) / 2;
    const CGPoint centre = {200 - 6 / std::tan(half), 6};
    int pieces = 0;
    for (const CubicBezier& piece : cubicsOf(*rounded))
        if (distance(piece.p1, centre) < 6.001 && distance(piece.p2, centre) < 6.001) {
            ++pieces;
            for (int i = 0; i <= 20; ++i)
                EXPECT_NEAR(distance(*piece.pointAt(i / 20.0), centre), 6, 6 * 2.8e-4);
        }
    EXPECT_EQ(pieces, 2);
}

TEST(SmoothlyRoundedPath, copiesAPathWithoutRadii) {
    EXPECT_EQ(*drop(0)->smoothlyRoundedPath(), *drop(0));
    EXPECT_EQ(*Path::create()->smoothlyRoundedPath(), *Path::create());
}

/// Curves of a kind, one after another, every anchor of which is a corner to be rounded.
std::shared_ptr<Path> randomCorners(RandomCurves& random, CGFloat radius) {
    const auto path = random.path(4, true);
    for (std::size_t i = 0; i < path->segments().count(); ++i) {
        setRadius(*path, i, radius);
        setBehavior(*path, i, PointBehavior::straight);
    }
    return path;
}

TEST(SmoothlyRoundedPath, goesOnInOneDirectionBesideSidesOfAnyShape) {
    for (const CurveKind kind : {CurveKind::anywhere, CurveKind::wholeNumbers, CurveKind::cusps,
                                 CurveKind::loops, CurveKind::unevenLines, CurveKind::steep}) {
        SCOPED_TRACE(nameOf(kind));
        RandomCurves random(kind, 5);
        std::size_t joints = 0;
        for (int i = 0; i < 8; ++i) {
            const auto path = randomCorners(random, random.between(1, 60));
            const auto rounded = path->smoothlyRoundedPath();
            for (const PathSegment& joint : rounded->segments()) {
                if (joint.behavior() == PointBehavior::straight ||
                    joint.handleIn() == CGPoint::zero || joint.handleOut() == CGPoint::zero)
                    continue;
                ++joints;
                EXPECT_LT(angleBetween(-joint.handleIn(), joint.handleOut()), seamless);
            }
        }
        EXPECT_GT(joints, 25u);
    }
}

TEST(SmoothlyRoundedPath, startsAndEndsItsArcsOnTheSides) {
    RandomCurves random(CurveKind::anywhere, 6);
    for (int i = 0; i < 10; ++i) {
        const auto path = randomCorners(random, random.between(1, 60));
        const auto rounded = path->smoothlyRoundedPath();
        for (const PathSegment& joint : rounded->segments()) {
            const bool isAmidAnArc = joint.behavior() == PointBehavior::mirrored;
            const auto nearest = path->nearestLocation(joint.point(), 1e-10);
            EXPECT_TRUE(isAmidAnArc || nearest->distance() < seamless) << nearest->distance();
        }
    }
}

TEST(SmoothlyRoundedPath, answersForAnyPath) {
    for (const CurveKind kind : allCurveKinds)
        for (const bool isClosed : {false, true}) {
            RandomCurves random(kind, isClosed ? 3 : 4);
            for (int i = 0; i < 4; ++i) {
                const auto path = random.path(4, isClosed);
                for (std::size_t s = 0; s < path->segments().count(); ++s) {
                    setRadius(*path, s, 10);
                    setBehavior(*path, s, PointBehavior::straight);
                }
                EXPECT_GE(path->smoothlyRoundedPath()->segments().count(), 1u);
                EXPECT_GE(path->roundedCornerPath()->segments().count(), 1u);
            }
        }
    EXPECT_EQ(squareWithRadius(1e305, INFINITY)->smoothlyRoundedPath()->segments().count(), 4u);
    EXPECT_EQ(polygonWithRadius({{1, 2}}, 5)->smoothlyRoundedPath()->segments().count(), 1u);
    EXPECT_EQ(polygonWithRadius({{1, 2}, {3, 4}}, 5)->smoothlyRoundedPath()->segments().count(),
              2u);
}

}  // namespace
}  // namespace quorin
