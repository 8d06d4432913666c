#include <algorithm>
#include <cmath>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/path/CurveWalk.h"
#include "quorin/path/Path.h"
#include "tests/TestSupport.h"
#include "tests/path/PathCacheProbe.h"
#include "tests/path/RandomCurves.h"
#include "tests/support/Printing.h"

namespace quorin {
namespace {

using test::CurveKind;
using test::dropsCache;
using test::RandomCurves;

PathCurveLocation placeOn(const Path& path, std::size_t curve, CGFloat time) {
    return {path.curves().at(curve), time};
}

std::shared_ptr<Path> square() { return Path::rectangle(CGRectMake(0, 0, 10, 10)); }

PathSegment anchor(CGPoint point, CGPoint handleIn, CGPoint handleOut, PointBehavior behavior,
                   std::ptrdiff_t at, CGFloat radius = 0) {
    PathSegment segment(point, handleIn, handleOut, behavior, {}, at);
    segment.setRadius(radius);
    return segment;
}

/// An arch, a side with radii at both ends, and a bent way back.
std::shared_ptr<Path> archway() {
    const auto path = Path::create();
    path->segments().append(anchor({0, 0}, {-4, -4}, {4, 4}, PointBehavior::mirrored, 0));
    path->segments().append(anchor({40, 0}, {-8, 8}, {}, PointBehavior::disconnected, 1, 3));
    path->segments().append(anchor({40, 90}, {}, {}, PointBehavior::straight, 2, 5));
    path->segments().append(anchor({0, 60}, {9, 3}, {-3, -1}, PointBehavior::asymmetric, 3, 7));
    path->setIsClosed(true);
    return path;
}

/// The least distance of a point from the samples of a path, which are close to each other.
CGFloat distanceFrom(const Path& path, CGPoint point) {
    return path.nearestLocation(point, 1e-9)->distance();
}

CGFloat greatestGap(const Path& from, const Path& to) {
    CGFloat gap = 0;
    forEachCurve(from, [&](const CubicBezier& curve) {
        for (int i = 0; i <= 8; ++i)
            gap = std::max(gap, distanceFrom(to, *curve.pointAt(i / 8.0)));
    });
    return gap;
}

TEST(InsertSegment, addsAStraightAnchorOnASideOfARectangle) {
    const auto path = square();
    EXPECT_EQ(path->insertSegmentAt(placeOn(*path, 1, 0.25)), 2);
    ASSERT_EQ(path->segments().count(), 5u);
    // x = 10, y = 10 (3 u t² + t³) at t = 1/4
    EXPECT_EQ(path->segments()[2], anchor({10, 1.5625}, {}, {}, PointBehavior::straight, 2));
    for (const PathSegment& segment : path->segments()) {
        EXPECT_EQ(segment.behavior(), PointBehavior::straight);
        EXPECT_EQ(segment.path(), path);
    }
    EXPECT_TRUE(path->isClosed());
}

TEST(InsertSegment, addsTheLastAnchorOnTheClosingCurve) {
    const auto path = square();
    EXPECT_EQ(path->insertSegmentAt(placeOn(*path, 3, 0.5)), 4);
    ASSERT_EQ(path->segments().count(), 5u);
    EXPECT_EQ(path->segments()[4], anchor({0, 5}, {}, {}, PointBehavior::straight, 4));
    EXPECT_EQ(path->segments()[0].point(), CGPoint::zero);
}

TEST(InsertSegment, splitsABentCurveByItsControls) {
    const auto path = Path::create();
    path->moveTo({0, 0});
    path->addCurveTo({8, 0}, {0, 8}, {8, 8});
    EXPECT_EQ(path->insertSegmentAt(placeOn(*path, 0, 0.5)), 1);
    ASSERT_EQ(path->segments().count(), 3u);
    EXPECT_EQ(path->segments()[0].handleOut(), (CGPoint{0, 4}));
    EXPECT_EQ(path->segments()[1], anchor({4, 6}, {-2, 0}, {2, 0}, PointBehavior::mirrored, 1));
    EXPECT_EQ(path->segments()[2].handleIn(), (CGPoint{0, 4}));
}

TEST(InsertSegment, rebuildsAllSegmentsAsTheCurvesSetterDoes) {
    const auto path = archway();
    EXPECT_TRUE(dropsCache(*path, [&] { path->insertSegmentAt(placeOn(*path, 0, 0.5)); }));
    EXPECT_EQ(path->segments()[2].radius(), 0) << "radii are lost";
    EXPECT_EQ(path->segments()[0].behavior(), PointBehavior::asymmetric);
    EXPECT_EQ(path->segments()[2].behavior(), PointBehavior::asymmetric) << "inferred anew";

    const auto open = Path::line({3, 4}, {5, 6});
    open->insertSegmentAt(placeOn(*open, 0, 0.5));
    EXPECT_EQ(open->segments()[0].handleIn(), (CGPoint{-3, -4})) << "leads to the origin";
}

TEST(InsertSegment, clearsTheHandlesOfAPartThatIsStraight) {
    const auto line = Path::create();
    line->moveTo({0, 0});
    line->addCurveTo({9, 0}, {3, 0}, {6, 0});
    line->insertSegmentAt(placeOn(*line, 0, 0.5));
    EXPECT_EQ(line->segments()[0].handleOut(), CGPoint::zero);
    EXPECT_EQ(line->segments()[1], anchor({4.5, 0}, {}, {}, PointBehavior::straight, 1));
    EXPECT_EQ(line->segments()[2].handleIn(), CGPoint::zero);
}

TEST(InsertSegment, clearsAPartThatIsStraightThoughTheWholeIsNot) {
    // The line overshoots its end and comes back: only the parts before and after the turn are
    // straight.
    const auto line = Path::create();
    line->moveTo({0, 0});
    line->addCurveTo({8, 0}, {4, 0}, {16, 0});
    ASSERT_FALSE(line->isStraight());
    line->insertSegmentAt(placeOn(*line, 0, 0.5));
    EXPECT_EQ(line->segments()[0].handleOut(), CGPoint::zero);
    EXPECT_EQ(line->segments()[1], anchor({8.5, 0}, {}, {2.5, 0}, PointBehavior::asymmetric, 1));
    EXPECT_EQ(line->segments()[2].handleIn(), (CGPoint{4, 0}));
}

TEST(InsertSegment, leavesNoHandlesOnCurvesThatHaveNone) {
    RandomCurves random(CurveKind::anywhere);
    for (int i = 0; i < 300; ++i) {
        SCOPED_TRACE(i);
        const CubicBezier ends = random.curve();
        const auto path = Path::line(ends.p1, ends.p2);
        path->addLineTo({0, 0});
        const CGFloat time = std::pow(10, random.between(-17, 0));
        path->insertSegmentAt(placeOn(*path, 0, time));
        EXPECT_EQ(path->segments()[0].handleOut(), CGPoint::zero);
        EXPECT_EQ(path->segments()[1].handleIn(), CGPoint::zero);
        EXPECT_EQ(path->segments()[1].handleOut(), CGPoint::zero);
        EXPECT_EQ(path->segments()[2].handleIn(), CGPoint::zero);
    }
}

TEST(InsertSegment, answersZeroAndRebuildsWhenNoCurveMatches) {
    struct Row {
        const char* says;
        PathCurve curve;
    };
    const CubicBezier geometry{{0, 0}, {}, {}, {10, 0}};
    const Row table[] = {
        {"without an index", PathCurve(geometry)},
        {"beyond the last", PathCurve(geometry, {}, 4)},
        {"before the first", PathCurve(geometry, {}, -1)},
    };
    for (const auto& [says, curve] : table) {
        SCOPED_TRACE(says);
        const auto path = archway();
        const auto rebuilt = Path::create(path->curves(), true);
        EXPECT_TRUE(dropsCache(*path, [&, &on = curve] {
            EXPECT_EQ(path->insertSegmentAt({on, 0.5}), 0);
        }));
        EXPECT_TRUE(*path == *rebuilt);
    }
}

TEST(InsertSegment, emptiesAPathWithoutCurves) {
    const auto path = Path::create();
    path->moveTo({3, 4});
    EXPECT_EQ(path->insertSegmentAt(placeOn(*square(), 0, 0.5)), 0);
    EXPECT_TRUE(path->segments().isEmpty());
}

TEST(InsertSegment, takesOnlyIndexAndTimeFromTheLocation) {
    const auto path = square();
    const PathCurve elsewhere({{100, 100}, {}, {}, {200, 100}}, {}, 2);
    EXPECT_EQ(path->insertSegmentAt({elsewhere, 0.5, CGPoint{7, 7}}), 3);
    EXPECT_EQ(path->segments()[3].point(), (CGPoint{5, 10}));
}

TEST(InsertAnchor, changesOnlyTheFacingHandles) {
    const auto path = archway();
    path->segments().setAt(0, anchor({0, 0}, {-2, -2}, {4, 4}, PointBehavior::asymmetric, 0, 2));
    const auto before = Path::create(*path);
    std::optional<std::ptrdiff_t> inserted;
    EXPECT_TRUE(
        dropsCache(*path, [&] { inserted = path->insertAnchorAt(placeOn(*path, 0, .25)); }));
    EXPECT_EQ(inserted, 1);
    ASSERT_EQ(path->segments().count(), 5u);
    EXPECT_EQ(path->segments()[0],
              anchor({0, 0}, {-2, -2}, {1, 1}, PointBehavior::asymmetric, 0, 2));
    EXPECT_EQ(path->segments()[2], anchor({40, 0}, {-6, 6}, {}, PointBehavior::disconnected, 2, 3));
    EXPECT_EQ(path->segments()[3], anchor({40, 90}, {}, {}, PointBehavior::straight, 3, 5));
    EXPECT_EQ(path->segments()[4],
              anchor({0, 60}, {9, 3}, {-3, -1}, PointBehavior::asymmetric, 4, 7));
    EXPECT_EQ(path->segments()[1].behavior(), PointBehavior::asymmetric);
    EXPECT_EQ(path->segments()[1].radius(), 0);
    EXPECT_EQ(path->segments()[1].path(), path);
    EXPECT_LT(greatestGap(*path, *before), 1e-9);
}

TEST(InsertAnchor, isMirroredAtTheMiddleOfACurve) {
    const auto path = Path::create();
    path->moveTo({0, 0});
    path->addCurveTo({8, 0}, {0, 8}, {8, 8});
    EXPECT_EQ(path->insertAnchorAt(placeOn(*path, 0, 0.5)), 1);
    EXPECT_EQ(path->segments()[1], anchor({4, 6}, {-2, 0}, {2, 0}, PointBehavior::mirrored, 1));
}

TEST(InsertAnchor, makesAMirroredNeighbourAsymmetric) {
    const auto path = Path::ellipse(CGRectMake(0, 0, 2, 2));
    EXPECT_EQ(path->insertAnchorAt(placeOn(*path, 1, 0.5)), 2);
    const PointBehavior expected[] = {PointBehavior::mirrored, PointBehavior::asymmetric,
                                      PointBehavior::mirrored, PointBehavior::asymmetric,
                                      PointBehavior::mirrored};
    for (std::size_t i = 0; i < 5; ++i)
        EXPECT_EQ(path->segments()[i].behavior(), expected[i]) << i;
    EXPECT_EQ(path->segments()[1].handleIn(), (CGPoint{-scalar::kappa, 0}));
    EXPECT_EQ(path->segments()[1].handleOut(), (CGPoint{scalar::kappa / 2, 0}));
}

TEST(InsertAnchor, leavesAMirroredNeighbourWithoutHandlesMirrored) {
    const auto path = Path::line({0, 0}, {8, 0});
    path->segments().setAt(0, anchor({0, 0}, {}, {}, PointBehavior::mirrored, 0));
    path->insertAnchorAt(placeOn(*path, 0, 0.5));
    EXPECT_EQ(path->segments()[0].behavior(), PointBehavior::mirrored);
}

TEST(InsertAnchor, isStraightOnAStraightCurve) {
    const auto path = archway();
    const auto before = Path::create(*path);
    EXPECT_EQ(path->insertAnchorAt(placeOn(*path, 1, 0.5)), 2);
    EXPECT_EQ(path->segments()[2], anchor({40, 45}, {}, {}, PointBehavior::straight, 2));
    EXPECT_EQ(path->segments()[1], before->segments()[1]) << "a corner keeps its radius";
    EXPECT_EQ(path->segments()[3].radius(), 5);
}

TEST(InsertAnchor, takesTheHandlesFromALine) {
    const auto path = Path::create();
    path->segments().append(anchor({0, 0}, {-3, 0}, {9, 0}, PointBehavior::asymmetric, 0));
    path->segments().append(anchor({9, 0}, {-9, 0}, {9, 0}, PointBehavior::mirrored, 1));
    EXPECT_EQ(path->insertAnchorAt(placeOn(*path, 0, 0.5)), 1);
    EXPECT_EQ(path->segments()[0], anchor({0, 0}, {-3, 0}, {}, PointBehavior::asymmetric, 0));
    EXPECT_EQ(path->segments()[1], anchor({4.5, 0}, {}, {}, PointBehavior::straight, 1));
    EXPECT_EQ(path->segments()[2], anchor({9, 0}, {}, {9, 0}, PointBehavior::asymmetric, 2));
}

TEST(InsertAnchor, isACornerAtTheTipOfACusp) {
    const auto path = Path::create();
    path->moveTo({0, 0});
    path->addCurveTo({100, 0}, {100, 100}, {0, 100});
    EXPECT_EQ(path->insertAnchorAt(placeOn(*path, 0, 0.5)), 1);
    EXPECT_EQ(path->segments()[1], anchor({50, 75}, {}, {}, PointBehavior::straight, 1));
}

TEST(InsertAnchor, isTheLastOneOnTheClosingCurve) {
    const auto path = archway();
    const auto before = Path::create(*path);
    EXPECT_EQ(path->insertAnchorAt(placeOn(*path, 3, 0.25)), 4);
    ASSERT_EQ(path->segments().count(), 5u);
    EXPECT_EQ(path->segments()[3].handleOut(), (CGPoint{-0.75, -0.25}));
    EXPECT_EQ(path->segments()[0], anchor({0, 0}, {-3, -3}, {4, 4}, PointBehavior::asymmetric, 0));
    EXPECT_LT(greatestGap(*path, *before), 1e-9);
}

TEST(InsertAnchor, findsTheTwoCurvesOfAClosedPathOfTwo) {
    const auto path = Path::line({0, 0}, {8, 0});
    path->setIsClosed(true);
    EXPECT_EQ(path->insertAnchorAt(placeOn(*path, 1, 0.5)), 2);
    EXPECT_EQ(path->segments()[2].point(), (CGPoint{4, 0}));
}

TEST(InsertAnchor, answersTheAnchorThatIsThere) {
    const auto path = archway();
    const auto before = Path::create(*path);
    struct Row {
        std::size_t curve;
        CGFloat time;
        std::ptrdiff_t index;
    };
    const Row table[] = {
        {0, 0, 0}, {0, 1, 1}, {2, 3.9e-7, 2}, {2, 1 - 3.9e-7, 3}, {3, 1, 0}, {3, 0, 3},
    };
    EXPECT_FALSE(dropsCache(*path, [&] {
        for (const auto& [curve, time, index] : table)
            EXPECT_EQ(path->insertAnchorAt(placeOn(*path, curve, time)), index);
    }));
    EXPECT_TRUE(*path == *before);
    EXPECT_EQ(path->insertAnchorAt(placeOn(*path, 2, 4.1e-7)), 3);
    EXPECT_EQ(path->segments().count(), 5u);
}

TEST(InsertAnchor, answersNothingAndKeepsAllWhenThereIsNoSuchPlace) {
    const auto path = archway();
    const auto before = Path::create(*path);
    const PathCurve curve = path->curves()[1];
    const PathCurveLocation table[] = {
        {PathCurve(curve.cubic()), 0.5},
        {PathCurve(curve.cubic(), {}, 4), 0.5},
        {PathCurve(curve.cubic(), {}, -1), 0.5},
        {curve, -0.001, CGPoint{}},
        {curve, 1.001, CGPoint{}},
        {curve, std::nan(""), CGPoint{}},
    };
    EXPECT_FALSE(dropsCache(*path, [&] {
        for (const PathCurveLocation& location : table)
            EXPECT_EQ(path->insertAnchorAt(location), std::nullopt);
    }));
    EXPECT_TRUE(*path == *before);

    path->setIsClosed(false);
    EXPECT_EQ(path->insertAnchorAt({PathCurve(curve.cubic(), {}, 3), 0.5}), std::nullopt);
    EXPECT_EQ(Path::create()->insertAnchorAt(placeOn(*square(), 0, 0.5)), std::nullopt);
}

TEST(InsertAnchor, leavesTheRoundedRectangleRoundable) {
    const auto path = square();
    path->segments().transform([](PathSegment& segment) { segment.setRadius(2); });
    path->insertAnchorAt(placeOn(*path, 0, 0.5));
    for (const std::size_t corner : {0u, 2u, 3u, 4u}) {
        EXPECT_EQ(path->segments()[corner].radius(), 2);
        EXPECT_EQ(path->segments()[corner].behavior(), PointBehavior::straight);
    }
}

struct Insertion {
    std::shared_ptr<Path> path;
    std::size_t curve;
    CGFloat time;
};

Insertion arbitraryInsertion() {
    const auto kind = *rc::gen::element(CurveKind::anywhere, CurveKind::wholeNumbers,
                                        CurveKind::unevenLines, CurveKind::cusps);
    RandomCurves random(kind, *rc::gen::arbitrary<std::uint64_t>());
    const int curveCount = *rc::gen::inRange(1, 5);
    return {random.path(curveCount, *rc::gen::arbitrary<bool>()),
            static_cast<std::size_t>(*rc::gen::inRange(0, curveCount)),
            0.001 * *rc::gen::inRange(1, 1000)};
}

RC_GTEST_PROP(InsertSegment, keepsTheOutline, ()) {
    const auto [path, curve, time] = arbitraryInsertion();
    const auto before = Path::create(*path);
    path->insertSegmentAt(placeOn(*path, curve, time));
    RC_ASSERT(greatestGap(*before, *path) < 2e-7);
    RC_ASSERT(greatestGap(*path, *before) < 2e-7);
}

RC_GTEST_PROP(InsertAnchor, keepsTheOutline, ()) {
    const auto [path, curve, time] = arbitraryInsertion();
    const auto before = Path::create(*path);
    path->insertAnchorAt(placeOn(*path, curve, time));
    RC_ASSERT(greatestGap(*before, *path) < 2e-7);
    RC_ASSERT(greatestGap(*path, *before) < 2e-7);
}

RC_GTEST_PROP(InsertAnchor, keepsAllOtherAnchors, ()) {
    const auto [path, curve, time] = arbitraryInsertion();
    path->segments().transform([](PathSegment& segment) {
        segment.setRadius(static_cast<CGFloat>(*segment.index()) + 0.5);
    });
    const auto before = Path::create(*path);
    const auto at = static_cast<std::size_t>(*path->insertAnchorAt(placeOn(*path, curve, time)));
    RC_ASSERT(path->segments().count() == before->segments().count() + 1);
    const std::size_t next = (at + 1) % path->segments().count();
    for (std::size_t i = 0; i < before->segments().count(); ++i) {
        const std::size_t now = i < at ? i : i + 1;
        const PathSegment a = before->segments()[i], b = path->segments()[now];
        RC_ASSERT(a.point() == b.point());
        RC_ASSERT(a.radius() == b.radius());
        RC_ASSERT(a.behavior() == b.behavior());
        RC_ASSERT((now == next || a.handleIn() == b.handleIn()));
        RC_ASSERT((now + 1 == at || a.handleOut() == b.handleOut()));
        RC_ASSERT(b.index() == static_cast<std::ptrdiff_t>(now));
    }
}

RC_GTEST_PROP(InsertAnchor, goesOnInTheSameDirection, ()) {
    const auto [path, curve, time] = arbitraryInsertion();
    const auto at = *path->insertAnchorAt(placeOn(*path, curve, time));
    const PathSegment inserted = path->segments()[static_cast<std::size_t>(at)];
    RC_ASSERT(dot(inserted.handleIn(), inserted.handleOut()) <= 0);
    RC_ASSERT((inserted.hasHandles() || inserted.handleIn() == CGPoint::zero));
    const CGFloat scale = distance(inserted.handleIn(), CGPoint::zero) *
                          distance(inserted.handleOut(), CGPoint::zero);
    RC_ASSERT(std::abs(cross(inserted.handleIn(), inserted.handleOut())) <= 1e-15 * scale);
}

}  // namespace
}  // namespace quorin
