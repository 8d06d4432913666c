#include <cmath>
#include <limits>

#include "quorin/path/Path.h"
#include "tests/TestSupport.h"
#include "tests/path/PathCacheProbe.h"
#include "tests/support/Printing.h"

namespace quorin {
namespace {

using test::dropsCache;

const PathCurve arch({10, 20}, {1, 2}, {-3, 4}, {30, 40});
const PathCurve wave({30, 40}, {5, -6}, {7, 8}, {50, 60});
const PathCurve back({50, 60}, {9, 9}, {-2, -1}, {10, 20});

std::shared_ptr<Path> triangle() {
    auto path = Path::create();
    path->moveTo({0, 0});
    path->addCurveTo({10, 0}, {3, 3}, {7, 4});
    path->addLineTo({10, 10});
    return path;
}

std::shared_ptr<Path> pathOf(std::initializer_list<PathCurve> curves, bool isClosed) {
    return Path::create(std::span(curves.begin(), curves.size()), isClosed);
}

void expectAnchor(const Path& path, std::size_t index, CGPoint point, CGPoint handleIn,
                  CGPoint handleOut, PointBehavior behavior) {
    SCOPED_TRACE(index);
    EXPECT_EQ(path.segments()[index], PathSegment(point, handleIn, handleOut, behavior, {},
                                                  static_cast<std::ptrdiff_t>(index)));
    EXPECT_EQ(path.segments()[index].path().get(), &path);
}

/// The behaviour inferred for the anchor between two curves.
PathSegment anchorBetween(CGPoint handleIn, CGPoint handleOut) {
    const auto path =
        pathOf({{{-50, 0}, {9, 9}, handleIn, {0, 0}}, {{0, 0}, handleOut, {9, 9}, {50, 0}}}, false);
    return path->segments()[1];
}

TEST(PathCurves, joinEachPairOfConsecutiveAnchors) {
    const auto path = triangle();
    const auto curves = path->curves();
    ASSERT_EQ(curves.size(), 2u);
    EXPECT_EQ(curves[0].cubic(), (CubicBezier{{0, 0}, {3, 3}, {-3, 4}, {10, 0}}));
    EXPECT_EQ(curves[1].cubic(), (CubicBezier{{10, 0}, {0, 0}, {0, 0}, {10, 10}}));
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(curves[i].index(), static_cast<std::ptrdiff_t>(i));
        EXPECT_EQ(curves[i].path(), path);
    }
}

TEST(PathCurves, endWithTheClosingCurveOfAClosedPath) {
    const auto path = triangle();
    path->setIsClosed(true);
    const auto curves = path->curves();
    ASSERT_EQ(curves.size(), 3u);
    EXPECT_EQ(curves[2].cubic(), (CubicBezier{{10, 10}, {0, 0}, {0, 0}, {0, 0}}));
    EXPECT_EQ(curves[2].index(), 2);
}

TEST(PathCurves, runThereAndBackInAClosedPathOfTwo) {
    const auto path = Path::create();
    path->moveTo({0, 0});
    path->addLineTo({10, 0});
    EXPECT_EQ(path->curves().size(), 1u);
    path->setIsClosed(true);
    ASSERT_EQ(path->curves().size(), 2u);
    EXPECT_EQ(path->curves()[1].p1(), (CGPoint{10, 0}));
    EXPECT_EQ(path->curves()[1].p2(), (CGPoint{0, 0}));
}

TEST(PathCurves, needTwoAnchorsClosedOrNot) {
    const auto path = Path::create();
    EXPECT_TRUE(path->curves().empty());
    path->moveTo({0, 0});
    EXPECT_TRUE(path->curves().empty());
    path->closePath();
    EXPECT_TRUE(path->curves().empty());
}

TEST(PathCurves, takeNoMoreMemoryThanTheyFill) {
    const auto path = triangle();
    EXPECT_EQ(path->curves().capacity(), 2u);
    path->setIsClosed(true);
    EXPECT_EQ(path->curves().capacity(), 3u);
}

TEST(PathCurves, leaveTheCacheAlone) {
    const auto path = triangle();
    EXPECT_FALSE(dropsCache(*path, [&] { (void)path->curves(); }));
}

TEST(SetCurves, leadsTheFirstInHandleOfAnOpenPathToTheOriginAndRepeatsTheLastHandle) {
    const auto path = pathOf({arch, wave}, false);
    ASSERT_EQ(path->segments().count(), 3u);
    expectAnchor(*path, 0, {10, 20}, {-10, -20}, {1, 2}, PointBehavior::asymmetric);
    expectAnchor(*path, 1, {30, 40}, {-3, 4}, {5, -6}, PointBehavior::disconnected);
    expectAnchor(*path, 2, {50, 60}, {7, 8}, {7, 8}, PointBehavior::asymmetric);
    EXPECT_EQ(path->segments()[0].controlPointIn(), CGPoint::zero);
}

TEST(SetCurves, takesTheLastCurveOfAClosedPathAsTheClosingOne) {
    const auto path = pathOf({arch, wave, back}, true);
    ASSERT_EQ(path->segments().count(), 3u);
    EXPECT_TRUE(path->isClosed());
    expectAnchor(*path, 0, {10, 20}, {-2, -1}, {1, 2}, PointBehavior::disconnected);
    expectAnchor(*path, 1, {30, 40}, {-3, 4}, {5, -6}, PointBehavior::disconnected);
    expectAnchor(*path, 2, {50, 60}, {7, 8}, {9, 9}, PointBehavior::disconnected);
}

TEST(SetCurves, startsAClosedPathWhereItsLastCurveEnds) {
    const PathCurve astray({50, 60}, {9, 9}, {-2, -1}, {-77, -88});
    const auto path = pathOf({arch, wave, astray}, true);
    EXPECT_EQ(path->segments()[0].point(), (CGPoint{-77, -88}));
    EXPECT_EQ(path->segments()[0].handleOut(), (CGPoint{1, 2}));
}

TEST(SetCurves, makesOneAnchorOfOneClosedCurve) {
    const auto path = pathOf({arch}, true);
    ASSERT_EQ(path->segments().count(), 1u);
    expectAnchor(*path, 0, {30, 40}, {-3, 4}, {1, 2}, PointBehavior::disconnected);
}

TEST(SetCurves, makesTwoAnchorsOfOneOpenCurve) {
    const auto path = pathOf({arch}, false);
    ASSERT_EQ(path->segments().count(), 2u);
    expectAnchor(*path, 1, {30, 40}, {-3, 4}, {-3, 4}, PointBehavior::asymmetric);
}

TEST(SetCurves, emptiesThePathForNoCurves) {
    for (const bool isClosed : {false, true}) {
        const auto path = triangle();
        path->setIsClosed(isClosed);
        EXPECT_TRUE(dropsCache(*path, [&] { path->setCurves({}); }));
        EXPECT_TRUE(path->segments().isEmpty());
        EXPECT_EQ(path->isClosed(), isClosed);
    }
}

TEST(SetCurves, replacesWhatWasThereAndDropsTheCache) {
    const auto path = triangle();
    path->segments().transform([](PathSegment& segment) { segment.setRadius(4); });
    const PathCurve curves[] = {arch};
    EXPECT_TRUE(dropsCache(*path, [&] { path->setCurves(curves); }));
    ASSERT_EQ(path->segments().count(), 2u);
    EXPECT_EQ(path->segments()[0].radius(), 0);
    EXPECT_EQ(path->segments()[0].index(), 0);
}

TEST(SetCurves, dropsTheCacheOfAPathWithBorrowedSegments) {
    const auto path = Path::create();
    path->setSegments(PathSegmentCollection());
    const PathCurve curves[] = {arch};
    EXPECT_TRUE(dropsCache(*path, [&] { path->setCurves(curves); }));
    EXPECT_EQ(path->segments()[0].path(), nullptr);
    path->setSegments(PathSegmentCollection());
    EXPECT_TRUE(dropsCache(*path, [&] { path->setCurves({}); }));
}

TEST(SetCurves, infersBehaviorsWithinATenMillionth) {
    struct Row {
        const char* says;
        CGPoint handleIn, handleOut;
        PointBehavior behavior;
    };
    const CGFloat below = 9.9e-8;
    const Row table[] = {
        {"nothing", {0, 0}, {0, 0}, PointBehavior::straight},
        {"nearly nothing", {below, -below}, {-below, below}, PointBehavior::straight},
        {"one component of 1e-7 is a handle", {1e-7, 0}, {0, 0}, PointBehavior::asymmetric},
        {"opposites", {3, 4}, {-3, -4}, PointBehavior::mirrored},
        {"nearly opposites", {3, 4}, {-3 + below, -4 - below}, PointBehavior::mirrored},
        {"the sum tells", {3, 4}, {-3 + 2e-7, -4}, PointBehavior::disconnected},
        {"collinear", {3, 4}, {-6, -8}, PointBehavior::asymmetric},
        {"collinear in one direction too", {3, 4}, {6, 8}, PointBehavior::asymmetric},
        {"one handle alone is collinear with none", {3, 4}, {0, 0}, PointBehavior::asymmetric},
        {"a cross product just below", {1, 0}, {2, below}, PointBehavior::asymmetric},
        {"a cross product above", {1, 0}, {2, 1.1e-7}, PointBehavior::disconnected},
        {"at an angle", {3, 4}, {4, 3}, PointBehavior::disconnected},
    };
    for (const auto& [says, handleIn, handleOut, behavior] : table) {
        SCOPED_TRACE(says);
        EXPECT_EQ(anchorBetween(handleIn, handleOut).behavior(), behavior);
    }
}

TEST(SetCurves, clearsTheHandlesOfAStraightAnchorOnly) {
    const PathSegment straight = anchorBetween({9e-8, 0}, {0, -9e-8});
    EXPECT_EQ(straight.handleIn(), CGPoint::zero);
    EXPECT_EQ(straight.handleOut(), CGPoint::zero);
    const PathSegment nearlyMirrored = anchorBetween({3, 4}, {-3 + 9e-8, -4});
    EXPECT_EQ(nearlyMirrored.handleOut(), (CGPoint{-3 + 9e-8, -4})) << "no coupling";
}

TEST(SetCurves, makesAStraightCornerAtTheOrigin) {
    const auto path = pathOf({{{0, 0}, {0, 0}, {0, 0}, {10, 0}}}, false);
    expectAnchor(*path, 0, {0, 0}, {}, {}, PointBehavior::straight);
    expectAnchor(*path, 1, {10, 0}, {}, {}, PointBehavior::straight);
}

RC_GTEST_PROP(SetCurves, givesBackTheCurvesOfAClosedPath, ()) {
    const auto coordinate = rc::gen::map(rc::gen::inRange(-1000, 1001),
                                         [](int number) { return static_cast<CGFloat>(number); });
    const auto path = Path::create();
    const int count = *rc::gen::inRange(2, 8);
    for (int i = 0; i < count; ++i)
        path->segments().append(PathSegment({*coordinate, *coordinate}, {*coordinate, *coordinate},
                                            {*coordinate, *coordinate},
                                            PointBehavior::disconnected));
    path->setIsClosed(true);
    const auto curves = path->curves();
    const auto rebuilt = Path::create(curves, true)->curves();
    RC_ASSERT(rebuilt.size() == curves.size());
    for (std::size_t i = 0; i < curves.size(); ++i)
        RC_ASSERT(rebuilt[i].cubic() == curves[i].cubic());
}

}  // namespace
}  // namespace quorin
