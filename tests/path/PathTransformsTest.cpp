#include <array>
#include <csignal>
#include <cstdio>
#include <limits>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/linear/Vector3.h"
#include "quorin/path/Path.h"
#include "tests/TestSupport.h"
#include "tests/path/PathCacheProbe.h"
#include "tests/path/RandomCurves.h"
#include "tests/support/AllocationCount.h"
#include "tests/support/Printing.h"

namespace quorin {
namespace {

using test::dropsCache;
using test::RandomCurves;
using ::testing::ElementsAre;

PathSegment anchor(CGPoint point, CGPoint handleIn, CGPoint handleOut, PointBehavior behavior,
                   CGFloat radius) {
    PathSegment segment(point, handleIn, handleOut, behavior);
    segment.setRadius(radius);
    return segment;
}

/// Four anchors of all behaviours, each with a radius of its own.
std::shared_ptr<Path> motley(bool isClosed = true) {
    const auto path = Path::create();
    path->segments().append(anchor({1, 2}, {}, {}, PointBehavior::straight, 5));
    path->segments().append(anchor({30, 4}, {-3, 1}, {3, -1}, PointBehavior::mirrored, 6));
    path->segments().append(anchor({50, 60}, {1, -8}, {7, 2}, PointBehavior::disconnected, 7));
    path->segments().append(anchor({7, 80}, {4, 0}, {-2, 0}, PointBehavior::asymmetric, 8));
    path->setIsClosed(isClosed);
    return path;
}

std::vector<CGPoint> pointsOf(const Path& path) {
    std::vector<CGPoint> points;
    for (const PathAnchor& stored : path.segments().anchors())
        points.push_back(stored.point);
    return points;
}

void expectAllBelongTo(const std::shared_ptr<Path>& path) {
    for (std::size_t i = 0; i < path->segments().count(); ++i) {
        EXPECT_EQ(path->segments()[i].path(), path) << i;
        EXPECT_EQ(path->segments()[i].index(), static_cast<std::ptrdiff_t>(i));
    }
}

TEST(SetBounds, movesTheFirstFourAnchorsAndKeepsTheRest) {
    const auto path = motley();
    path->addLineTo({-9, -9});
    const auto before = Path::create(*path);
    EXPECT_TRUE(dropsCache(*path, [&] { path->setBounds(CGRectMake(10, 20, 30, 40)); }));
    EXPECT_THAT(pointsOf(*path), ElementsAre(CGPoint{10, 20}, CGPoint{40, 20}, CGPoint{40, 60},
                                             CGPoint{10, 60}, CGPoint{-9, -9}));
    for (std::size_t i = 0; i < 5; ++i) {
        PathSegment expected = before->segments()[i];
        expected.setPoint(path->segments()[i].point());
        EXPECT_EQ(path->segments()[i], expected);
    }
}

TEST(SetBounds, mirrorsTheCornersForANegativeSize) {
    const auto path = motley();
    path->setBounds(CGRectMake(10, 20, -30, -40));
    EXPECT_THAT(pointsOf(*path), ElementsAre(CGPoint{10, 20}, CGPoint{-20, 20}, CGPoint{-20, -20},
                                             CGPoint{10, -20}));
}

TEST(SetBounds, makesTheRectangleOfThoseBounds) {
    const auto path = Path::rectangle(CGRectMake(1, 2, 3, 4));
    path->setBounds(CGRectMake(-7, 8, 90, -10));
    EXPECT_TRUE(*path == *Path::rectangle(CGRectMake(-7, 8, 90, -10)));
}

/// What a dying process has made of its path.
const Path* dying = nullptr;

void printDying(int) {
    for (const PathAnchor& stored : dying->segments().anchors())
        std::fprintf(stderr, "(%g, %g)", stored.point.x, stored.point.y);
}

TEST(SetBoundsDeathTest, stopsAfterTheLastOfFewerThanFourSegments) {
    const auto path = Path::line({1, 2}, {3, 4});
    EXPECT_DEATH(path->setBounds(CGRectMake(10, 20, 30, 40)), "segment 2 of 2");
    EXPECT_DEATH(Path::create()->setBounds(CGRectMake(10, 20, 30, 40)), "segment 0 of 0");
    EXPECT_DEATH(
        {
            dying = path.get();
            std::signal(SIGABRT, printDying);
            path->setBounds(CGRectMake(10, 20, 30, 40));
        },
        "\\(10, 20\\)\\(40, 20\\)");
}

TEST(Scale, multipliesPointsAndHandlesButNeitherRadiiNorByZ) {
    const auto path = motley();
    EXPECT_TRUE(dropsCache(*path, [&] { path->scale({2, -3, 100}); }));
    EXPECT_EQ(path->segments()[0].point(), (CGPoint{2, -6}));
    EXPECT_EQ(path->segments()[2].point(), (CGPoint{100, -180}));
    EXPECT_EQ(path->segments()[2].handleIn(), (CGPoint{2, 24}));
    EXPECT_EQ(path->segments()[2].handleOut(), (CGPoint{14, -6}));
    EXPECT_EQ(path->segments()[2].radius(), 7);
    EXPECT_EQ(path->segments()[2].behavior(), PointBehavior::disconnected);
    EXPECT_TRUE(path->isClosed());
    expectAllBelongTo(path);
}

TEST(Scale, byNothingDrawsAllTogether) {
    const auto path = motley();
    path->scale({0, 0, 1});
    EXPECT_EQ(path->boundingBox(), CGRect::zero);
    EXPECT_EQ(path->segments()[1].handleIn(), CGPoint::zero);
}

TEST(Scaled, byOneIsADistinctButEqualCopy) {
    const auto path = motley();
    const auto copy = path->scaled(Vector3::unit);
    EXPECT_NE(copy, path);
    EXPECT_TRUE(*copy == *path);
    expectAllBelongTo(copy);
}

TEST(Scaled, leavesTheCopyAloneWithinATrillionthOfOne) {
    struct Row {
        const char* says;
        Vector3 factors;
        bool isScaled;
    };
    const Row table[] = {
        {"all near", {1 + 9e-13, 1 - 9e-13, 1 + 9e-13}, false},
        {"x off", {1 + 1.1e-12, 1, 1}, true},
        {"y off", {1, 1 - 1.1e-12, 1}, true},
        {"z off, x a little", {1 + 9e-13, 1, 2}, true},
        {"a number that is none", {1 + 9e-13, 1, std::numeric_limits<CGFloat>::quiet_NaN()}, true},
    };
    const auto path = motley();
    for (const auto& [says, factors, isScaled] : table) {
        SCOPED_TRACE(says);
        EXPECT_EQ(!(*path->scaled(factors) == *path), isScaled);
    }
}

TEST(Scaled, leavesTheReceiverAlone) {
    const auto path = motley();
    const auto before = Path::create(*path);
    std::shared_ptr<Path> copy;
    EXPECT_FALSE(dropsCache(*path, [&] { copy = path->scaled({2, 3, 1}); }));
    EXPECT_TRUE(*path == *before);
    EXPECT_EQ(copy->segments()[0].point(), (CGPoint{2, 6}));
}

TEST(MoveBy, shiftsPointsAndLeavesHandles) {
    const auto path = motley();
    const auto before = Path::create(*path);
    EXPECT_TRUE(dropsCache(*path, [&] { path->moveBy({10, -20}); }));
    for (std::size_t i = 0; i < 4; ++i) {
        PathSegment expected = before->segments()[i];
        expected.setPoint(expected.point() + CGPoint{10, -20});
        EXPECT_EQ(path->segments()[i], expected);
    }
    expectAllBelongTo(path);
}

TEST(OffsetBy, movesACopy) {
    const auto path = motley();
    const auto before = Path::create(*path);
    std::shared_ptr<Path> copy;
    EXPECT_FALSE(dropsCache(*path, [&] { copy = path->offsetBy({10, -20}); }));
    EXPECT_TRUE(*path == *before);
    EXPECT_EQ(copy->segments()[0].point(), (CGPoint{11, -18}));
    EXPECT_EQ(copy->segments()[2].handleOut(), (CGPoint{7, 2}));
}

TEST(OffsetBy, returnsAnUnmovedCopyForLessThanATrillionth) {
    const auto path = Path::line({0, 0}, {0, 1});
    const auto copy = path->offsetBy({1e-13, 0});
    EXPECT_NE(copy, path);
    EXPECT_EQ(copy->segments()[0].point(), CGPoint::zero);
    EXPECT_EQ(path->offsetBy({-9.9e-13, 9.9e-13})->segments()[0].point(), CGPoint::zero);
    EXPECT_EQ(path->offsetBy({1e-12, 0})->segments()[0].point(), (CGPoint{1e-12, 0}));
    EXPECT_EQ(path->offsetBy({1e-13, -2e-12})->segments()[0].point(), (CGPoint{1e-13, -2e-12}));
}

TEST(Reverse, runsTheOtherWayAndKeepsBehaviorsAndRadii) {
    const auto path = motley();
    const auto before = Path::create(*path);
    EXPECT_TRUE(dropsCache(*path, [&] { path->reverse(); }));
    for (std::size_t i = 0; i < 4; ++i) {
        const PathSegment was = before->segments()[3 - i];
        PathSegment expected(was.point(), was.handleOut(), was.handleIn(), was.behavior(), {},
                             static_cast<std::ptrdiff_t>(i));
        expected.setRadius(was.radius());
        EXPECT_EQ(path->segments()[i], expected);
    }
    EXPECT_TRUE(path->isClosed());
    expectAllBelongTo(path);
}

TEST(Reverse, answersNothingOfNothing) {
    const auto path = Path::create();
    path->reverse();
    EXPECT_TRUE(path->segments().isEmpty());
}

TEST(Reversed, leavesTheReceiverAlone) {
    const auto path = motley(false);
    const auto before = Path::create(*path);
    std::shared_ptr<Path> copy;
    EXPECT_FALSE(dropsCache(*path, [&] { copy = path->reversed(); }));
    EXPECT_TRUE(*path == *before);
    EXPECT_EQ(copy->segments()[0].radius(), 8);
    EXPECT_EQ(copy->segments()[0].handleIn(), (CGPoint{-2, 0}));
    EXPECT_FALSE(copy->isClosed());
    expectAllBelongTo(copy);
}

TEST(AdjustPathSegments, doesNothingForEqualCounts) {
    const auto path = motley(), other = motley();
    other->moveBy({5, 5});
    const auto before = Path::create(*other);
    EXPECT_FALSE(dropsCache(*other, [&] { path->adjustPathSegments(*other); }));
    EXPECT_TRUE(*other == *before);
    EXPECT_FALSE(dropsCache(*path, [&] { path->adjustPathSegments(*path); }));
}

TEST(AdjustPathSegments, cutsTheLastOnesOff) {
    const auto path = Path::line({0, 0}, {1, 1}), other = motley();
    const auto before = Path::create(*other);
    EXPECT_TRUE(dropsCache(*other, [&] { path->adjustPathSegments(*other); }));
    ASSERT_EQ(other->segments().count(), 2u);
    EXPECT_EQ(other->segments()[0], before->segments()[0]);
    EXPECT_EQ(other->segments()[1], before->segments()[1]);
    EXPECT_TRUE(other->isClosed());
    EXPECT_EQ(path->segments().count(), 2u);
}

TEST(AdjustPathSegments, appendsCopiesOfTheReceiversSegments) {
    const auto path = motley(), other = Path::line({0, 0}, {1, 1});
    const auto before = Path::create(*path);
    EXPECT_TRUE(dropsCache(*other, [&] { path->adjustPathSegments(*other); }));
    ASSERT_EQ(other->segments().count(), 4u);
    EXPECT_EQ(other->segments()[1].point(), (CGPoint{1, 1}));
    EXPECT_EQ(other->segments()[2], path->segments()[2]);
    EXPECT_EQ(other->segments()[3], path->segments()[3]);
    EXPECT_FALSE(other->isClosed());
    EXPECT_TRUE(*path == *before);
    expectAllBelongTo(other);
    expectAllBelongTo(path);
}

TEST(AdjustPathSegments, fillsAndEmptiesAWholePath) {
    const auto path = motley(), empty = Path::create();
    path->adjustPathSegments(*empty);
    EXPECT_EQ(empty->segments().count(), 4u);
    Path::create()->adjustPathSegments(*empty);
    EXPECT_TRUE(empty->segments().isEmpty());
}

TEST(PathTransforms, giveBorrowedSegmentsTheirIndicesAndDropBothCaches) {
    struct Row {
        const char* says;
        void (*change)(Path&);
    };
    const Row table[] = {
        {"scale",
         [](Path& path) {
             path.scale({2, 2, 1});
         }},
        {"move",
         [](Path& path) {
             path.moveBy({1, 1});
         }},
        {"reverse", [](Path& path) { path.reverse(); }},
        {"bounds", [](Path& path) { path.setBounds(CGRectMake(0, 0, 1, 1)); }},
        {"count",
         [](Path& path) {
             Path::line({0, 0}, {1, 1})->adjustPathSegments(path);
         }},
    };
    for (const auto& [says, change] : table) {
        SCOPED_TRACE(says);
        const auto lender = motley(), borrower = Path::create();
        borrower->setSegments(lender->segments());
        const auto cached = lender->cg();
        EXPECT_TRUE(dropsCache(*borrower, [&, &changing = change] { changing(*borrower); }));
        EXPECT_NE(lender->cg(), cached);
        EXPECT_EQ(borrower->segments()[1].path(), lender);
    }
}

TEST(PathTransforms, storeListedSegmentsInTheirPlaces) {
    const auto stranger = motley();
    const auto path = Path::create();
    path->setSegments(PathSegmentCollection({stranger->segments()[3], stranger->segments()[1]}));
    path->moveBy({1, 1});
    EXPECT_EQ(path->segments()[0].index(), 0);
    EXPECT_EQ(path->segments()[1].index(), 1);
    EXPECT_EQ(path->segments()[0].path(), nullptr);
}

TEST(PathTransforms, allocateNothingInPlaceAndOnePathForACopy) {
    RandomCurves random(test::CurveKind::anywhere);
    const auto path = random.path(100, true);
    const std::size_t before = test::allocationCount();
    path->scale({2, 2, 1});
    path->moveBy({1, 1});
    path->reverse();
    path->setBounds(CGRectMake(0, 0, 1, 1));
    EXPECT_EQ(test::allocationCount() - before, 0u);
    (void)path->reversed();
    EXPECT_EQ(test::allocationCount() - before, 1u);
}

std::shared_ptr<Path> arbitraryPath() {
    return RandomCurves(test::CurveKind::anywhere, *rc::gen::arbitrary<std::uint64_t>())
        .path(*rc::gen::inRange(0, 20), *rc::gen::arbitrary<bool>());
}

RC_GTEST_PROP(PathTransforms, reverseTwiceToWhatWasThere, ()) {
    const auto path = arbitraryPath();
    const auto twice = path->reversed();
    twice->reverse();
    RC_ASSERT(*twice == *path);
}

RC_GTEST_PROP(PathTransforms, scaleByPowersOfTwoAndBackToTheSameBits, ()) {
    const auto path = arbitraryPath();
    const CGFloat x = std::ldexp(1.0, *rc::gen::inRange(-9, 10));
    const CGFloat y = -std::ldexp(1.0, *rc::gen::inRange(-9, 10));
    RC_ASSERT(*path->scaled({x, y, 1})->scaled({1 / x, 1 / y, 1}) == *path);
}

RC_GTEST_PROP(PathTransforms, scaleAndInvertToWithinRounding, ()) {
    const auto path = arbitraryPath();
    const CGFloat factor = 0.001 * *rc::gen::inRange(1, 100'000);
    const auto back = path->scaled({factor, factor, 1})->scaled({1 / factor, 1 / factor, 1});
    for (std::size_t i = 0; i < path->segments().count(); ++i) {
        const PathSegment a = path->segments()[i], b = back->segments()[i];
        RC_ASSERT(distance(a.point(), b.point()) < 1e-12);
        RC_ASSERT(distance(a.handleOut(), b.handleOut()) < 1e-12);
    }
}

RC_GTEST_PROP(PathTransforms, keepTheLengthInReverse, ()) {
    const auto path = arbitraryPath();
    RC_ASSERT(std::abs(path->reversed()->length() - path->length()) <= 1e-12 * path->length());
}

}  // namespace
}  // namespace quorin
