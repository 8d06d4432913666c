#include "quorin/path/CurveOverlap.h"

#include "quorin/path/Curve.h"
#include "tests/TestSupport.h"
#include "tests/path/HardCurves.h"
#include "tests/path/RandomCurves.h"

namespace quorin {
namespace {

using test::cubic;
using test::CurveKind;
using test::RandomCurves;

const CubicBezier bent = cubic({0, 0}, {1, 2}, {3, 4}, {4, 4});

void expectPairs(const std::optional<CurveOverlap>& overlap, CGFloat firstOwn, CGFloat firstOther,
                 CGFloat secondOwn, CGFloat secondOther) {
    ASSERT_TRUE(overlap);
    const auto& [first, second] = *overlap;
    EXPECT_NEAR(first.first.rawValue, firstOwn, 1e-9);
    EXPECT_NEAR(first.second.rawValue, firstOther, 1e-9);
    EXPECT_NEAR(second.first.rawValue, secondOwn, 1e-9);
    EXPECT_NEAR(second.second.rawValue, secondOther, 1e-9);
}

CubicBezier line(CGPoint from, CGPoint to) { return {from, {}, {}, to}; }

TEST(CurveOverlap, ofACurveWithItselfIsTheWholeCurve) {
    for (const CubicBezier& curve : {bent, line({0, 0}, {3, 4})}) {
        const auto overlap = PathCurve(curve).overlap(PathCurve(curve));
        ASSERT_TRUE(overlap);
        EXPECT_EQ((*overlap)[0], std::pair(PathCurveTime::start, PathCurveTime::start));
        EXPECT_EQ((*overlap)[1], std::pair(PathCurveTime::end, PathCurveTime::end));
    }
}

TEST(CurveOverlap, ofACurveWithItsReverseIsTheWholeCurveCrosswise) {
    expectPairs(bent.overlap(bent.reversed()), 0, 1, 1, 0);
    expectPairs(bent.reversed().overlap(bent), 0, 1, 1, 0);
    expectPairs(line({0, 0}, {3, 4}).overlap(line({3, 4}, {0, 0})), 0, 1, 1, 0);
}

TEST(CurveOverlap, findsTheSharedStretchOfCurves) {
    const CubicBezier early = bent.partialCurve(0, 0.6), late = bent.partialCurve(0.3, 1);
    // The start of `late` is at 0.3/0.6 of `early`; the end of `early` at (0.6 - 0.3)/0.7 of it.
    expectPairs(early.overlap(late), 1, 3.0 / 7, 0.5, 0);
    expectPairs(early.overlap(late.reversed()), 1, 4.0 / 7, 0.5, 1);
    expectPairs(late.overlap(early), 0, 0.5, 3.0 / 7, 1);
}

TEST(CurveOverlap, findsOneCurveInsideTheOther) {
    const CubicBezier inner = bent.partialCurve(0.25, 0.75);
    expectPairs(bent.overlap(inner), 0.25, 0, 0.75, 1);
    expectPairs(inner.overlap(bent), 0, 0.25, 1, 0.75);
    expectPairs(bent.overlap(inner.reversed()), 0.75, 0, 0.25, 1);
    expectPairs(inner.reversed().overlap(bent), 0, 0.75, 1, 0.25);
}

TEST(CurveOverlap, findsTheSharedStretchOfLines) {
    // Without handles the time of a place is not even: x = 10·(3t² - 2t³), here met at halves.
    expectPairs(line({0, 0}, {10, 0}).overlap(line({5, 0}, {15, 0})), 1, 0.5, 0.5, 0);
    expectPairs(line({0, 0}, {10, 0}).overlap(line({15, 0}, {5, 0})), 1, 0.5, 0.5, 1);
    expectPairs(line({0, 0}, {20, 0}).overlap(line({10, 0}, {20, 0})), 1, 1, 0.5, 0);
}

TEST(CurveOverlap, triesItsOwnEndsFirst) {
    // Both ends of the short line lie on the long one; asked the other way round they come as
    // ends of the other.
    const CubicBezier longLine = line({0, 0}, {10, 0}), shortLine = line({5, 0}, {10, 0});
    expectPairs(shortLine.overlap(longLine), 0, 0.5, 1, 1);
    expectPairs(longLine.overlap(shortLine), 1, 1, 0.5, 0);
}

TEST(CurveOverlap, isNotTouchingEndToEnd) {
    EXPECT_EQ(line({0, 0}, {5, 0}).overlap(line({5, 0}, {9, 0})), std::nullopt);
    EXPECT_EQ(line({0, 0}, {5, 0}).overlap(line({9, 0}, {5, 0})), std::nullopt);
    EXPECT_EQ(line({5, 0}, {9, 0}).overlap(line({0, 0}, {5, 0})), std::nullopt);
    const auto [first, second] = bent.subdivide(0.5);
    EXPECT_EQ(first.overlap(second), std::nullopt);
    EXPECT_EQ(first.overlap(second.reversed()), std::nullopt);
}

TEST(CurveOverlap, skipsAPairNearTheOneFound) {
    // The lines share a stretch shorter than a time can tell.
    EXPECT_EQ(line({0, 0}, {10, 0}).overlap(line({10 - 1e-13, 0}, {20, 0})), std::nullopt);
    const CubicBezier even = cubic({0, 0}, {1, 0}, {2, 0}, {3, 0});
    const CubicBezier next = cubic({3 - 0.9e-6, 0}, {4, 0}, {5, 0}, {6, 0});
    EXPECT_EQ(even.overlap(next), std::nullopt) << "times apart by 3e-7";
    const CubicBezier deeper = cubic({3 - 3e-6, 0}, {4, 0}, {5, 0}, {6, 0});
    EXPECT_TRUE(even.overlap(deeper)) << "times apart by 1e-6";
    // A loop meets its own start at both ends: both pairs are the same place.
    const CubicBezier loop{{0, 0}, {10, 0}, {0, 10}, {0, 0}};
    EXPECT_EQ(loop.overlap(loop), std::nullopt);
    // Both ends of a point lie at one time of the line, though at different times of the point.
    EXPECT_EQ(line({0, 0}, {10, 0}).overlap(line({5, 0}, {5, 0})), std::nullopt);
}

TEST(CurveOverlap, ofLinesWantsThemOnOneLine) {
    const CubicBezier level = line({0, 0}, {10, 0});
    EXPECT_EQ(level.overlap(line({0, 1}, {10, 1})), std::nullopt);
    EXPECT_EQ(level.overlap(line({0, 0}, {10, 1e-6})), std::nullopt);
    EXPECT_TRUE(level.overlap(line({0, 0}, {10, 0.9e-7})));
    EXPECT_EQ(level.overlap(line({0, 0}, {10, 1e-7})), std::nullopt) << "strictly within";
    EXPECT_EQ(level.overlap(line({2, -5}, {2, 5})), std::nullopt) << "crossing";
    // Anchors on the line, a control a little off it, and yet straight.
    const CubicBezier swaying{{0, 0.6e-7}, {3, 0.6e-7}, {-3, 0}, {10, 0.6e-7}};
    ASSERT_TRUE(swaying.isStraight());
    EXPECT_EQ(level.overlap(swaying), std::nullopt) << "its control is 1.2e-7 off";
}

TEST(CurveOverlap, isNoneOfOneStraightCurveWithOneThatIsNot) {
    // On one line all the way, but the second one turns around beyond its end.
    const CubicBezier straight = line({0, 0}, {10, 0});
    const CubicBezier thereAndBack{{0, 0}, {15, 0}, {}, {10, 0}};
    ASSERT_FALSE(thereAndBack.isStraight());
    EXPECT_EQ(straight.overlap(thereAndBack), std::nullopt);
    EXPECT_EQ(thereAndBack.overlap(straight), std::nullopt);
}

TEST(CurveOverlap, isNoneOfCurvesThatOnlyShareTheirEnds) {
    const CubicBezier other = cubic({0, 0}, {1, 2.001}, {3, 4}, {4, 4});
    EXPECT_EQ(bent.overlap(other), std::nullopt);
    const CubicBezier nearly = cubic({0, 0}, {1, 2 + 0.9e-7}, {3 - 0.9e-7, 4}, {4, 4});
    expectPairs(bent.overlap(nearly), 0, 0, 1, 1);
    EXPECT_EQ(bent.overlap(cubic({0, 0}, {1, 2 + 1.1e-7}, {3, 4}, {4, 4})), std::nullopt);
    EXPECT_EQ(bent.overlap(cubic({0, 0}, {1, 2}, {3 - 1.1e-7, 4}, {4, 4})), std::nullopt);
    // Coordinate by coordinate: together they would be farther than the tolerance.
    EXPECT_TRUE(bent.overlap(cubic({0, 0}, {1 + 0.9e-7, 2 + 0.9e-7}, {3, 4}, {4, 4})));
}

TEST(CurveOverlap, comparesControlsCrosswiseWhereTheOtherRunsBackwards) {
    // Symmetric controls would also agree uncrossed; these do not.
    const CubicBezier back = cubic({4, 4}, {3, 4}, {1, 2}, {0, 0});
    expectPairs(bent.overlap(back), 0, 1, 1, 0);
    const CubicBezier other = cubic({4, 4}, {1, 2}, {3, 4}, {0, 0});
    EXPECT_EQ(bent.overlap(other), std::nullopt);
}

TEST(CurveOverlap, findsAnyPartOfACurve) {
    RandomCurves random(CurveKind::anywhere);
    for (int i = 0; i < 300; ++i) {
        const CubicBezier curve = random.curve();
        const CGFloat from = random.between(0, 0.8);
        const CGFloat to = random.between(from + 0.1, 1);
        const CubicBezier part = curve.partialCurve(from, to);
        const auto overlap = curve.overlap(i % 2 == 0 ? part : part.reversed());
        ASSERT_TRUE(overlap) << PathCurve(curve).description() << " " << from << " to " << to;
        const auto& [first, second] = *overlap;
        EXPECT_NEAR(std::min(first.first, second.first).rawValue, from, 1e-7);
        EXPECT_NEAR(std::max(first.first, second.first).rawValue, to, 1e-7);
        EXPECT_EQ(first.first < second.first, (first.second < second.second) == (i % 2 == 0));
    }
}

TEST(CurveOverlap, isNoneOfNumbersThatAreNone) {
    RandomCurves random(CurveKind::notFinite);
    for (int i = 0; i < 500; ++i) {
        const CubicBezier a = random.curve();
        (void)a.overlap(random.curve());
        (void)a.overlap(a);
    }
    const CGFloat notANumber = std::numeric_limits<CGFloat>::quiet_NaN();
    EXPECT_EQ(line({0, 0}, {10, 0}).overlap(line({0, notANumber}, {10, 0})), std::nullopt);
}

}  // namespace
}  // namespace quorin
