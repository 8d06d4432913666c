#include <cmath>
#include <limits>

#include "quorin/geometry/Clamped.h"
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

using test::CurveKind;
using test::RandomCurves;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr CGFloat notANumber = std::numeric_limits<CGFloat>::quiet_NaN();
constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();

std::shared_ptr<Path> square() { return Path::rectangle(CGRectMake(0, 0, 10, 10)); }

/// Lines of 10, 20 and 30 along an axis, an open path of length 60.
std::shared_ptr<Path> ruler() {
    const auto path = Path::create();
    path->moveTo({0, 0});
    path->addLineTo({10, 0});
    path->addLineTo({30, 0});
    path->addLineTo({60, 0});
    return path;
}

std::vector<CGPoint> pointsOf(const std::shared_ptr<const Path>& path) {
    std::vector<CGPoint> points;
    for (const PathAnchor& anchor : path->segments().anchors())
        points.push_back(anchor.point);
    return points;
}

std::vector<CubicBezier> cubicsOf(const Path& path) {
    std::vector<CubicBezier> cubics;
    for (const PathCurve& curve : path.curves())
        cubics.push_back(curve.cubic());
    return cubics;
}

TEST(PartialPath, isThePathItselfForTheWholeRange) {
    const auto path = square();
    EXPECT_EQ(path->partialPath(0, 1), path);
    const std::shared_ptr<const Path> unchanging = path;
    EXPECT_EQ(unchanging->partialPath(0, 1), path);
    EXPECT_EQ(Path::create(*path)->partialPath(0, 1)->segments().count(), 4u);
    EXPECT_TRUE(path->partialPath(0, 1)->isClosed());
}

TEST(PartialPath, measuresTheWholeRangeWithinATrillionth) {
    const auto path = square();
    EXPECT_EQ(path->partialPath(0, 0.9999999999999), path);
    EXPECT_EQ(path->partialPath(-9e-13, 1 + 9e-13), path);
    EXPECT_NE(path->partialPath(0, 1 - 1.1e-12), path);
    EXPECT_NE(path->partialPath(1.1e-12, 1), path);
    EXPECT_NE(path->partialPath(0, 1 + 1.1e-12), path);
}

TEST(PartialPath, isEmptyAndOpenWhenItEndsWhereItStarts) {
    const auto path = square();
    for (const auto& [from, to] :
         {std::pair(0.5, 0.5), {0.8, 0.2}, {1.0, 0.0}, {2.0, 3.0}, {-2.0, -1.0}, {1.0, 2.0}}) {
        SCOPED_TRACE(from);
        const auto part = path->partialPath(from, to);
        EXPECT_TRUE(part->segments().isEmpty());
        EXPECT_FALSE(part->isClosed());
    }
}

TEST(PartialPath, rebuildsAnOpenCopyForMoreThanTheWholeRange) {
    const auto path = square();
    const auto part = path->partialPath(-1, 2);
    EXPECT_NE(part, path);
    EXPECT_FALSE(part->isClosed());
    EXPECT_THAT(pointsOf(part), ElementsAre(CGPoint{0, 0}, CGPoint{10, 0}, CGPoint{10, 10},
                                            CGPoint{0, 10}, CGPoint{0, 0}));
    EXPECT_TRUE(*part == *Path::create(path->curves(), false));
}

TEST(PartialPath, givesTwoSidesOfASquareThreeAnchors) {
    const auto part = square()->partialPath(0.5, 1);
    EXPECT_FALSE(part->isClosed());
    EXPECT_THAT(pointsOf(part), ElementsAre(CGPoint{10, 10}, CGPoint{0, 10}, CGPoint{0, 0}));
}

TEST(PartialPath, leavesOutPiecesThatRoundingWouldLeaveAtAnchors) {
    // 10, 20 and 30 of 60: the thirds and sixths are no doubles.
    EXPECT_THAT(pointsOf(ruler()->partialPath(1.0 / 6, 1)),
                ElementsAre(CGPoint{10, 0}, CGPoint{30, 0}, CGPoint{60, 0}));
    EXPECT_THAT(pointsOf(ruler()->partialPath(0, 0.5)),
                ElementsAre(CGPoint{0, 0}, CGPoint{10, 0}, CGPoint{30, 0}));
    for (const CGFloat nearly : {std::nextafter(0.5, 0), 0.5, std::nextafter(0.5, 1)}) {
        EXPECT_EQ(ruler()->partialPath(0, nearly)->segments().count(), 3u);
        EXPECT_EQ(ruler()->partialPath(nearly, 1)->segments().count(), 2u);
    }
}

TEST(PartialPath, startsAndEndsAtAnyAnchorWithWholeCurves) {
    // The fraction of an anchor times the length falls short of it or beyond it by a rounding.
    RandomCurves random(CurveKind::anywhere);
    for (int round = 0; round < 30; ++round) {
        const auto path = random.path(12, true);
        path->scale({1e3, 1e3, 1});
        const auto curves = cubicsOf(*path);
        const CGFloat length = path->length();
        CGFloat walked = 0;
        for (std::size_t i = 1; i < curves.size(); ++i) {
            walked += curves[i - 1].length();
            const auto before = cubicsOf(*path->partialPath(0, walked / length));
            const auto after = cubicsOf(*path->partialPath(walked / length, 1));
            ASSERT_EQ(before.size(), i) << round;
            ASSERT_EQ(after.size(), curves.size() - i) << round;
            EXPECT_NEAR(distance(before.back().p2, curves[i].p1), 0, 1e-6);
            EXPECT_NEAR(distance(after.front().p1, curves[i].p1), 0, 1e-6);
        }
    }
}

TEST(PartialPath, cutsInsideOneCurve) {
    const auto part = ruler()->partialPath(15.0 / 60, 25.0 / 60);
    ASSERT_EQ(part->segments().count(), 2u);
    EXPECT_NEAR(part->segments()[0].point().x, 15, 1e-12);
    EXPECT_NEAR(part->segments()[1].point().x, 25, 1e-12);
}

TEST(PartialPath, endsOnTheClosingCurve) {
    const auto part = square()->partialPath(0.625, 0.875);
    EXPECT_FALSE(part->isClosed());
    ASSERT_EQ(part->segments().count(), 3u);
    EXPECT_NEAR(distance(part->segments()[0].point(), {5, 10}), 0, 1e-12);
    EXPECT_EQ(part->segments()[1].point(), (CGPoint{0, 10}));
    EXPECT_NEAR(distance(part->segments()[2].point(), {0, 5}), 0, 1e-12);
}

TEST(PartialPath, givesItsEndsTheHandlesOfTheCurvesSetter) {
    const auto path = Path::create();
    path->moveTo({10, 20});
    path->addCurveTo({40, 20}, {10, 40}, {40, 40});
    path->addCurveTo({70, 20}, {40, 0}, {70, 0});
    const auto part = path->partialPath(0.25, 0.75);
    ASSERT_EQ(part->segments().count(), 3u);
    EXPECT_EQ(part->segments()[0].controlPointIn(), CGPoint::zero);
    EXPECT_EQ(part->segments()[2].handleOut(), part->segments()[2].handleIn());
    EXPECT_EQ(part->segments()[1].behavior(), PointBehavior::mirrored);
}

TEST(PartialPath, losesRadiiAndInfersBehaviors) {
    const auto path = square();
    path->segments().transform([](PathSegment& segment) { segment.setRadius(3); });
    const auto part = path->partialPath(0.1, 0.9);
    for (const PathSegment& segment : part->segments()) {
        EXPECT_EQ(segment.radius(), 0);
        EXPECT_EQ(segment.path(), part);
    }
    EXPECT_EQ(part->segments()[1].behavior(), PointBehavior::straight);
}

TEST(PartialPath, skipsCurvesWithoutLength) {
    const auto path = Path::create();
    for (const CGPoint point : {CGPoint{0, 0}, {0, 0}, {10, 0}, {10, 0}, {10, 0}, {20, 0}, {20, 0}})
        path->addLineTo(point);
    EXPECT_THAT(pointsOf(path->partialPath(-1, 2)),
                ElementsAre(CGPoint{0, 0}, CGPoint{10, 0}, CGPoint{20, 0}));
    EXPECT_EQ(path->partialPath(0.25, 0.75)->segments().count(), 3u);
    EXPECT_THAT(pointsOf(path->partialPath(0.5, 1)), ElementsAre(CGPoint{10, 0}, CGPoint{20, 0}));
}

TEST(PartialPath, isEmptyWithoutLength) {
    const auto dot = Path::line({3, 3}, {3, 3});
    const auto speck = Path::line({0, 0}, {9e-13, 0});
    const auto point = Path::create();
    point->moveTo({1, 1});
    for (const auto& path : {dot, speck, point, Path::create()}) {
        EXPECT_THAT(pointsOf(path->partialPath(0.2, 0.7)), IsEmpty());
        EXPECT_THAT(pointsOf(path->partialPath(-1, 2)), IsEmpty());
    }
    EXPECT_EQ(Path::line({0, 0}, {1e-11, 0})->partialPath(0.2, 0.7)->segments().count(), 2u);
}

TEST(PartialPath, keepsNothingForFractionsThatAreNoNumbers) {
    const auto path = square();
    EXPECT_THAT(pointsOf(path->partialPath(notANumber, 0.5)), IsEmpty());
    EXPECT_THAT(pointsOf(path->partialPath(0.5, notANumber)), IsEmpty());
    EXPECT_THAT(pointsOf(path->partialPath(notANumber, notANumber)), IsEmpty());
    EXPECT_EQ(path->partialPath(-infinity, infinity)->segments().count(), 5u);
}

TEST(PartialPath, answersForLengthsThatAreNotFinite) {
    RandomCurves random(CurveKind::overflowing), strange(CurveKind::notFinite);
    for (int i = 0; i < 50; ++i) {
        (void)random.path(5, true)->partialPath(0.2, 0.7);
        EXPECT_LE(strange.path(5, true)->partialPath(0.2, 0.7)->segments().count(), 7u);
    }
}

TEST(PartialPath, leavesThePathAlone) {
    const auto path = square();
    const auto before = Path::create(*path);
    EXPECT_FALSE(test::dropsCache(*path, [&] { (void)path->partialPath(0.2, 0.7); }));
    EXPECT_TRUE(*path == *before);
}

TEST(PartialPath, asksForMemoryTwiceHoweverManyCurves) {
    for (const int count : {10, 1000}) {
        const auto path = RandomCurves(CurveKind::anywhere).path(count, false);
        const std::size_t before = test::allocationCount();
        (void)path->partialPath(0.2, 0.7);
        EXPECT_EQ(test::allocationCount() - before, 2u) << "the path and the lengths";
    }
}

TEST(PartialPathAround, runsOnPastTheFirstAnchor) {
    const auto path = square();
    const auto part = path->partialPathAround(0.75, 0.25);
    EXPECT_FALSE(part->isClosed());
    EXPECT_THAT(pointsOf(part), ElementsAre(CGPoint{0, 10}, CGPoint{0, 0}, CGPoint{10, 0}));
    EXPECT_TRUE(*path->partialPathAround(-0.25, 0.25) == *part);
    EXPECT_TRUE(*path->partialPathAround(3.75, -0.75) == *part);
}

TEST(PartialPathAround, keepsTheHandlesOfTheAnchorItPasses) {
    const auto path = Path::ellipse(CGRectMake(0, 0, 20, 20));
    const auto part = path->partialPathAround(0.9, 0.1);
    ASSERT_EQ(part->segments().count(), 3u);
    const PathSegment passed = part->segments()[1];
    EXPECT_EQ(passed.point(), (CGPoint{0, 10}));
    EXPECT_EQ(passed.behavior(), PointBehavior::mirrored);
    EXPECT_NEAR(passed.handleIn().x, 0, 1e-12);
    EXPECT_NEAR(part->length(), 0.2 * path->length(), 1e-9);
}

TEST(PartialPathAround, goesTheLongWayRoundFromJustBeyondToJustBefore) {
    const auto path = square();
    const auto part = path->partialPathAround(0.3, 0.2);
    ASSERT_EQ(part->segments().count(), 5u);
    EXPECT_NEAR(distance(part->segments()[0].point(), {10, 2}), 0, 1e-12);
    EXPECT_NEAR(distance(part->segments()[4].point(), {8, 0}), 0, 1e-12);
    EXPECT_NEAR(part->length(), 36, 1e-12);
}

TEST(PartialPathAround, isTheSameAsThePartialPathWithinOneRound) {
    const auto path = square();
    EXPECT_TRUE(*path->partialPathAround(0.2, 0.7) == *path->partialPath(0.2, 0.7));
    EXPECT_TRUE(*path->partialPathAround(0.2, 1) == *path->partialPath(0.2, 1));
    EXPECT_TRUE(*path->partialPathAround(5, 5.5) == *path->partialPath(0, 0.5));
}

TEST(PartialPathAround, staysClosedWhenItCoversEverything) {
    const auto path = square();
    path->segments().transform([](PathSegment& segment) { segment.setRadius(3); });
    for (const auto& [from, to] : {std::pair(0.0, 1.0),
                                   {0.3, 1.3},
                                   {-0.25, 0.75},
                                   {0.9, 1.9},
                                   {0.0, 7.5},
                                   {-infinity, 0.0}}) {
        SCOPED_TRACE(from);
        const auto whole = path->partialPathAround(from, to);
        EXPECT_NE(whole, path);
        EXPECT_TRUE(*whole == *path);
    }
    EXPECT_FALSE(path->partialPathAround(0.3, 1.3 - 1e-11)->isClosed());
}

TEST(PartialPathAround, isEmptyWhenItEndsWhereItStarts) {
    const auto path = square();
    EXPECT_THAT(pointsOf(path->partialPathAround(0.3, 0.3)), IsEmpty());
    EXPECT_THAT(pointsOf(path->partialPathAround(1, 0)), IsEmpty());
    EXPECT_THAT(pointsOf(path->partialPathAround(notANumber, 0.3)), IsEmpty());
    EXPECT_THAT(pointsOf(path->partialPathAround(0.3, notANumber)), IsEmpty());
    EXPECT_THAT(pointsOf(path->partialPathAround(infinity, 0)), IsEmpty());
    EXPECT_THAT(pointsOf(path->partialPathAround(-1e-17, 0)), IsEmpty());
}

TEST(PartialPathAround, doesNotRunOnAtTheEndOfAnOpenPath) {
    const auto path = ruler();
    EXPECT_THAT(pointsOf(path->partialPathAround(0.8, 0.2)), IsEmpty());
    EXPECT_TRUE(*path->partialPathAround(0.2, 0.7) == *path->partialPath(0.2, 0.7));
    EXPECT_TRUE(*path->partialPathAround(0.2, 1.7) == *path->partialPath(0.2, 1));
    const auto whole = path->partialPathAround(0, 1);
    EXPECT_NE(whole, path);
    EXPECT_TRUE(*whole == *path);
}

/// The pieces of a partial path by way of lists of curves, step by step.
std::shared_ptr<Path> plainPartialPath(const Path& path, CGFloat from, CGFloat to) {
    const std::vector<PathCurve> curves = path.curves();
    std::vector<PathCurve> pieces;
    CGFloat L = 0;
    for (const PathCurve& curve : curves)
        L += curve.length();
    from = clamped(from, ClosedRange{0.0, 1.0});
    to = clamped(to, ClosedRange{0.0, 1.0});
    if (std::abs(L) < 1e-12 || to <= from)
        return Path::create();
    const CGFloat S = from * L, E = to * L;
    CGFloat acc = 0;
    for (const PathCurve& curve : curves) {
        const CGFloat l = curve.length();
        if (l == 0)
            continue;
        const CGFloat a = acc / L, b = (acc + l) / L;
        std::optional<std::pair<CGFloat, CGFloat>> local;
        if (a <= from && from <= b) {
            if (a <= to && to <= b)
                local = {(S - acc) / l, (E - acc) / l};
            else if (b < to)
                local = {(S - acc) / l, 1};
        } else if (a <= to && to <= b && from < a) {
            local = {0, (E - acc) / l};
        } else if (from < a && b < to) {
            local = {0, 1};
        }
        acc += l;
        if (!local)
            continue;
        const CGFloat start = clamped(local->first, ClosedRange{0.0, 1.0});
        const CGFloat end = clamped(local->second, ClosedRange{0.0, 1.0});
        if (local != std::pair(0.0, 1.0) && (end - start) * l < 1e-12 * L)
            continue;
        const auto startTime = curve.timeAt(start * l).value_or(PathCurveTime::end);
        const auto endTime = curve.timeAt(end * l).value_or(PathCurveTime::end);
        pieces.push_back(curve.partialCurve(startTime, endTime));
    }
    return Path::create(pieces, false);
}

struct Stretch {
    std::shared_ptr<Path> path;
    CGFloat from, to;
};

Stretch arbitraryStretch() {
    const auto kind = *rc::gen::elementOf(
        std::vector(test::finiteCurveKinds.begin(), test::finiteCurveKinds.end()));
    RandomCurves random(kind, *rc::gen::arbitrary<std::uint64_t>());
    const auto path = random.path(*rc::gen::inRange(0, 8), *rc::gen::arbitrary<bool>());
    const auto fraction =
        rc::gen::oneOf(rc::gen::map(rc::gen::inRange(-100, 1101), [](int n) { return n / 1000.0; }),
                       rc::gen::element(0.0, 0.25, 0.5, 1.0));
    const CGFloat one = *fraction, other = *fraction;
    return {path, std::min(one, other), std::max(one, other)};
}

RC_GTEST_PROP(PartialPath, isThatOfThePlainWayToTheLastBit, ()) {
    const auto [path, from, to] = arbitraryStretch();
    const auto part = path->partialPath(from, to);
    RC_PRE(part != path);
    RC_ASSERT(*part == *plainPartialPath(*path, from, to));
}

Stretch smoothStretch() {
    RandomCurves random(CurveKind::anywhere, *rc::gen::arbitrary<std::uint64_t>());
    const auto path = random.path(*rc::gen::inRange(1, 8), *rc::gen::arbitrary<bool>());
    const CGFloat from = *rc::gen::inRange(1, 500) / 1000.0;
    return {path, from, from + *rc::gen::inRange(1, 500) / 1000.0};
}

RC_GTEST_PROP(PartialPath, isAsLongAsItsFractionsUpToTheQuadrature, ()) {
    const auto [path, from, to] = smoothStretch();
    const CGFloat length = path->length();
    // Which is off by some thousandths near a cusp.
    RC_ASSERT(std::abs(path->partialPath(from, to)->length() - (to - from) * length) <
              1e-2 * length);
}

RC_GTEST_PROP(PartialPath, addsUpWithWhatItLeavesOut, ()) {
    const auto [path, from, to] = smoothStretch();
    const auto measured = [](const Path& part) { return part.length(1e-9).length; };
    const CGFloat sum = measured(*path->partialPath(0, from)) +
                        measured(*path->partialPath(from, to)) +
                        measured(*path->partialPath(to, 1));
    RC_ASSERT(std::abs(sum - measured(*path)) < 1e-7);
}

RC_GTEST_PROP(PartialPath, startsWhereTheOneBeforeEnds, ()) {
    const auto [path, from, to] = smoothStretch();
    const auto before = cubicsOf(*path->partialPath(0, from));
    const auto part = cubicsOf(*path->partialPath(from, to));
    RC_ASSERT((!before.empty() && !part.empty()));
    RC_ASSERT(distance(before.back().p2, part.front().p1) < 1e-8);
    for (std::size_t i = 1; i < part.size(); ++i)
        RC_ASSERT(part[i].p1 == part[i - 1].p2);
}

RC_GTEST_PROP(PartialPath, liesOnThePath, ()) {
    const auto [path, from, to] = smoothStretch();
    for (const CubicBezier& piece : cubicsOf(*path->partialPath(from, to)))
        for (const CGFloat time : {0.0, 0.3, 0.8, 1.0})
            RC_ASSERT(path->nearestLocation(*piece.pointAt(time), 1e-9)->distance() < 1e-8);
}

RC_GTEST_PROP(PartialPathAround, isTheComplementOfTheStretchBetween, ()) {
    const auto [path, from, to] = smoothStretch();
    path->setIsClosed(true);
    const auto around = path->partialPathAround(to, from);
    RC_ASSERT(!around->isClosed());
    const auto after = cubicsOf(*path->partialPath(to, 1));
    const auto before = cubicsOf(*path->partialPath(0, from));
    auto expected = after;
    expected.insert(expected.end(), before.begin(), before.end());
    const auto pieces = cubicsOf(*around);
    RC_ASSERT(pieces.size() == expected.size());
    // The setter clears handles below a ten-millionth where an anchor has no others.
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        RC_ASSERT((pieces[i].p1 == expected[i].p1 && pieces[i].p2 == expected[i].p2));
        RC_ASSERT(distance(pieces[i].h1, expected[i].h1) < 2e-7);
        RC_ASSERT(distance(pieces[i].h2, expected[i].h2) < 2e-7);
    }
}

}  // namespace
}  // namespace quorin
