#include <cmath>
#include <limits>
#include <numbers>

#include "quorin/path/Path.h"
#include "quorin/path/Segment.h"
#include "tests/TestSupport.h"
#include "tests/support/Printing.h"

namespace quorin {
namespace {

using HandleType::handleIn;
using HandleType::handleOut;

PathSegment withHandles(CGPoint in, CGPoint out, PointBehavior behavior) {
    return PathSegment({100, 100}, in, out, behavior);
}

std::shared_ptr<Path> polygon(std::initializer_list<CGPoint> points, bool isClosed) {
    auto path = Path::create();
    for (const CGPoint& point : points)
        path->segments().append(PathSegment(point, {}, {}, PointBehavior::straight));
    path->setIsClosed(isClosed);
    return path;
}

PathSegment madeSmooth(const Path& path, std::size_t index) {
    PathSegment segment = path.segments()[index];
    segment.setBehavior(PointBehavior::mirrored);
    return segment;
}

void expectNear(CGPoint actual, CGPoint expected) {
    EXPECT_NEAR(actual.x, expected.x, 1e-13);
    EXPECT_NEAR(actual.y, expected.y, 1e-13);
}

TEST(SetHandle, leavesTheOtherHandleOfStraightAndDisconnectedAnchors) {
    for (const auto behavior : {PointBehavior::straight, PointBehavior::disconnected}) {
        PathSegment segment = withHandles({1, 2}, {3, 4}, behavior);
        segment.setHandle({5, 6}, handleIn);
        EXPECT_EQ(segment, withHandles({5, 6}, {3, 4}, behavior));
        segment.setHandle({7, 8}, handleOut);
        EXPECT_EQ(segment, withHandles({5, 6}, {7, 8}, behavior));
    }
}

TEST(SetHandle, mirrorsTheOtherHandleOfAMirroredAnchor) {
    PathSegment segment = withHandles({1, 2}, {3, 4}, PointBehavior::mirrored);
    segment.setHandle({5, -6}, handleIn);
    EXPECT_EQ(segment, withHandles({5, -6}, {-5, 6}, PointBehavior::mirrored));
    segment.setHandle({7, 8}, handleOut);
    EXPECT_EQ(segment, withHandles({-7, -8}, {7, 8}, PointBehavior::mirrored));
}

TEST(SetHandle, turnsTheOtherHandleOfAnAsymmetricAnchorKeepingItsLength) {
    PathSegment segment = withHandles({0, 10}, {3, 4}, PointBehavior::asymmetric);
    segment.setHandle({12, 0}, handleIn);
    EXPECT_EQ(segment.handleIn(), (CGPoint{12, 0}));
    expectNear(segment.handleOut(), {-5, 0});
    segment.setHandle({-1, 1}, handleOut);
    EXPECT_EQ(segment.handleOut(), (CGPoint{-1, 1}));
    expectNear(segment.handleIn(), {12 * std::numbers::sqrt2 / 2, -12 * std::numbers::sqrt2 / 2});
}

TEST(SetHandle, pointsTheOtherHandleDownWhenAnAsymmetricOneIsSetToZero) {
    for (const CGPoint zero : {CGPoint{0, 0}, CGPoint{-0.0, 0}}) {
        PathSegment segment = withHandles({1, 2}, {3, 4}, PointBehavior::asymmetric);
        segment.setHandle(zero, handleIn);
        EXPECT_EQ(segment.handleIn(), CGPoint::zero);
        expectNear(segment.handleOut(), {0, -5});
    }
}

TEST(SetHandle, reachesTheZeroHandlesDirectionThroughMinusPi) {
    PathSegment segment = withHandles({1, 2}, {3, 4}, PointBehavior::asymmetric);
    segment.setHandle({0, 0}, handleIn);
    EXPECT_EQ(segment.handleOut(),
              (CGPoint{5 * std::sin(-std::numbers::pi), 5 * std::cos(-std::numbers::pi)}));
    EXPECT_LT(segment.handleOut().x, 0) << "sin(-π) is a little below zero";
}

TEST(SetHandle, keepsAZeroOppositeHandleZeroUnderAsymmetric) {
    PathSegment segment = withHandles({0, 0}, {0, 0}, PointBehavior::asymmetric);
    segment.setHandle({3, 4}, handleOut);
    EXPECT_EQ(segment.handleIn(), CGPoint::zero);
}

RC_GTEST_PROP(SetHandle, leavesAsymmetricHandlesOppositeWithTheOldLength, ()) {
    const auto coordinate = rc::gen::map(rc::gen::inRange(-1000, 1001),
                                         [](int number) { return static_cast<CGFloat>(number); });
    const CGPoint leading{*coordinate, *coordinate};
    const CGPoint following{*coordinate, *coordinate};
    RC_PRE(!(leading == CGPoint::zero));
    PathSegment segment = withHandles(following, {0, 0}, PointBehavior::asymmetric);
    segment.setHandle(leading, handleOut);

    const CGPoint turned = segment.handleIn();
    const CGFloat length = std::hypot(following.x, following.y);
    RC_ASSERT(std::abs(std::hypot(turned.x, turned.y) - length) <= 1e-12 * length);
    const CGFloat scale = length / std::hypot(leading.x, leading.y);
    RC_ASSERT(std::abs(turned.x + leading.x * scale) <= 1e-9);
    RC_ASSERT(std::abs(turned.y + leading.y * scale) <= 1e-9);
}

TEST(SetControlPoint, setsTheHandleFromTheAnchorAndCouples) {
    PathSegment segment = withHandles({}, {}, PointBehavior::mirrored);
    segment.setControlPoint({103, 104}, handleOut);
    EXPECT_EQ(segment, withHandles({-3, -4}, {3, 4}, PointBehavior::mirrored));
    segment.setControlPoint({101, 100}, handleIn);
    EXPECT_EQ(segment, withHandles({1, 0}, {-1, 0}, PointBehavior::mirrored));
}

TEST(SetBehavior, removesTheHandlesOfAnAnchorMadeStraight) {
    for (const auto before : {PointBehavior::straight, PointBehavior::mirrored,
                              PointBehavior::disconnected, PointBehavior::asymmetric}) {
        PathSegment segment = withHandles({1, 2}, {3, 4}, before);
        segment.setBehavior(PointBehavior::straight);
        EXPECT_EQ(segment, withHandles({}, {}, PointBehavior::straight));
    }
}

TEST(SetBehavior, givesALoneCornerHandlesOf20) {
    for (const auto behavior :
         {PointBehavior::mirrored, PointBehavior::disconnected, PointBehavior::asymmetric}) {
        PathSegment segment({1, 1}, {7, 7}, {8, 8}, PointBehavior::straight);
        segment.setBehavior(behavior);
        EXPECT_EQ(segment, PathSegment({1, 1}, {-20, 0}, {20, 0}, behavior));
    }
}

TEST(SetBehavior, givesACornerOfAPathButWithoutIndexHandlesOf20) {
    const auto path = polygon({{0, 0}, {10, 0}, {20, 10}}, true);
    PathSegment segment({10, 0}, {}, {}, PointBehavior::straight, path);
    segment.setBehavior(PointBehavior::mirrored);
    EXPECT_EQ(segment.handleOut(), (CGPoint{20, 0}));
}

TEST(SetBehavior, givesTheOnlyCornerOfAnOpenPathHandlesOf20) {
    const auto path = polygon({{3, 3}}, false);
    EXPECT_EQ(madeSmooth(*path, 0).handleOut(), (CGPoint{20, 0}));
}

TEST(SetBehavior, runsHandlesAlongTheChordOfBothNeighbours) {
    // The chord from (0, 0) to (6, 8) has direction (0.6, 0.8); the nearest neighbour is 5 away.
    const auto path = polygon({{0, 0}, {3, 4}, {6, 8}}, false);
    expectNear(madeSmooth(*path, 1).handleOut(), {0.45 * 5 * 0.6, 0.45 * 5 * 0.8});
    expectNear(madeSmooth(*path, 1).handleIn(), {-0.45 * 5 * 0.6, -0.45 * 5 * 0.8});
}

TEST(SetBehavior, measuresHandlesByTheSmallestOfThreeDistances) {
    struct Row {
        const char* says;
        CGPoint previous, point, next, handleOut;
    };
    const Row table[] = {
        {"to the previous", {0, 0}, {4, 0}, {20, 0}, {0.45 * 4, 0}},
        {"to the next", {0, 0}, {17, 0}, {20, 0}, {0.45 * 3, 0}},
        {"between the neighbours", {0, 0}, {5, 100}, {10, 0}, {0.45 * 10, 0}},
    };
    for (const auto& [says, previous, point, next, handleOut] : table) {
        SCOPED_TRACE(says);
        expectNear(madeSmooth(*polygon({previous, point, next}, false), 1).handleOut(), handleOut);
    }
}

TEST(SetBehavior, usesTheOnlyNeighbourAtTheEndsOfAnOpenPath) {
    const auto path = polygon({{0, 0}, {10, 20}, {40, 20}}, false);
    const PathSegment first = madeSmooth(*path, 0);
    EXPECT_EQ(first.handleOut(), (CGPoint{4.5, 9}));
    EXPECT_EQ(first.handleIn(), (CGPoint{-4.5, -9}));
    const PathSegment last = madeSmooth(*path, 2);
    EXPECT_EQ(last.handleOut(), (CGPoint{13.5, 0}));
    EXPECT_EQ(last.handleIn(), (CGPoint{-13.5, 0}));
}

TEST(SetBehavior, looksAcrossTheSeamOfAClosedPath) {
    // Around (0, 0) stand the last anchor (0, -10) and the next (30, 0).
    const auto path = polygon({{0, 0}, {30, 0}, {30, 30}, {0, -10}}, true);
    const CGFloat chord = std::sqrt(30.0 * 30 + 10 * 10);
    const CGFloat length = 0.45 * 10;
    expectNear(madeSmooth(*path, 0).handleOut(), {length * 30 / chord, length * 10 / chord});
    // Around (0, -10) stand (30, 30) and, across the seam, (0, 0).
    const CGFloat back = std::sqrt(30.0 * 30 + 30 * 30);
    expectNear(madeSmooth(*path, 3).handleOut(), {-length * 30 / back, -length * 30 / back});
}

TEST(SetBehavior, takesTheOnlyAnchorOfAClosedPathAsItsOwnNeighbours) {
    const auto path = polygon({{3, 4}}, true);
    const PathSegment segment = madeSmooth(*path, 0);
    EXPECT_EQ(segment.handleOut(), CGPoint::zero);
    EXPECT_EQ(segment.handleIn(), CGPoint::zero);
    EXPECT_EQ(segment.behavior(), PointBehavior::mirrored);
}

TEST(SetBehavior, findsNoDirectionBetweenNeighboursThatCoincide) {
    const auto path = polygon({{0, 0}, {10, 0}}, true);
    EXPECT_EQ(madeSmooth(*path, 0).handleOut(), CGPoint::zero);
}

TEST(SetBehavior, leavesAChordThatIsNearlyZeroOrNearlyUnitAsItIs) {
    // Squared lengths 9e-13 and 1 + 8e-13: both within 1e-12 of 0 and of 1.
    const CGFloat tiny = std::sqrt(9e-13);
    const auto close = polygon({{0, 0}, {0, 1}, {tiny, 0}}, false);
    EXPECT_EQ(madeSmooth(*close, 1).handleOut(), (CGPoint{tiny * (0.45 * tiny), 0}));
    const CGFloat unit = 1 + 4e-13;
    const auto nearlyUnit = polygon({{0, 0}, {0, 1}, {unit, 0}}, false);
    EXPECT_EQ(madeSmooth(*nearlyUnit, 1).handleOut(), (CGPoint{unit * 0.45, 0}));
    const CGFloat beyond = 1 + 6e-13;
    const auto normalised = polygon({{0, 0}, {0, 1}, {beyond, 0}}, false);
    EXPECT_EQ(madeSmooth(*normalised, 1).handleOut(), (CGPoint{0.45, 0}));
}

TEST(SetBehavior, findsNoNeighbourBesideAnIndexOutsideThePath) {
    const auto path = polygon({{0, 0}, {10, 0}, {20, 10}}, false);
    for (const std::ptrdiff_t index : {-5, 9, 2147483647}) {
        PathSegment segment({5, 5}, {}, {}, PointBehavior::straight, path, index);
        segment.setBehavior(PointBehavior::mirrored);
        EXPECT_EQ(segment.handleOut(), (CGPoint{20, 0})) << index;
    }
}

TEST(SetBehavior, usesItsOwnPointAndTheStoredNeighbours) {
    const auto path = polygon({{0, 0}, {10, 0}}, false);
    PathSegment moved = path->segments()[0];
    moved.setPoint({10, 10});
    moved.setBehavior(PointBehavior::mirrored);
    EXPECT_EQ(moved.handleOut(), (CGPoint{0, -4.5}));
    EXPECT_EQ(path->segments()[0].handleOut(), CGPoint::zero) << "a snapshot until stored";
}

TEST(SetBehavior, startsEverySmoothBehaviorMirrored) {
    const auto path = polygon({{0, 0}, {10, 0}}, false);
    for (const auto behavior : {PointBehavior::disconnected, PointBehavior::asymmetric}) {
        PathSegment segment = path->segments()[0];
        segment.setHandleOut({1, 1});  // forgotten, although straight anchors may hold handles
        segment.setBehavior(behavior);
        EXPECT_EQ(segment.handleOut(), (CGPoint{4.5, 0}));
        EXPECT_EQ(segment.handleIn(), (CGPoint{-4.5, 0}));
        EXPECT_EQ(segment.behavior(), behavior);
    }
}

TEST(SetBehavior, letsTheOutHandleLeadBetweenSmoothBehaviors) {
    PathSegment segment = withHandles({0, 10}, {3, 4}, PointBehavior::disconnected);
    segment.setBehavior(PointBehavior::asymmetric);
    EXPECT_EQ(segment.handleOut(), (CGPoint{3, 4}));
    expectNear(segment.handleIn(), {-6, -8});
    segment.setBehavior(PointBehavior::mirrored);
    EXPECT_EQ(segment, withHandles({-3, -4}, {3, 4}, PointBehavior::mirrored));
    segment.setBehavior(PointBehavior::disconnected);
    EXPECT_EQ(segment, withHandles({-3, -4}, {3, 4}, PointBehavior::disconnected));
}

TEST(SetBehavior, couplesAnewWhenTheBehaviorIsSetAgain) {
    PathSegment segment = withHandles({9, 9}, {3, 4}, PointBehavior::mirrored);
    segment.setBehavior(PointBehavior::mirrored);
    EXPECT_EQ(segment, withHandles({-3, -4}, {3, 4}, PointBehavior::mirrored));
}

}  // namespace
}  // namespace quorin
