#include <algorithm>
#include <cmath>
#include <numbers>

#include "quorin/geometry/Quadrature.h"
#include "quorin/path/Curve.h"
#include "tests/TestSupport.h"
#include "tests/path/CurveTruth.h"
#include "tests/path/HardCurves.h"
#include "tests/path/PlainSearch.h"
#include "tests/path/RandomCurves.h"

namespace quorin {
namespace {

using test::areSame;
using test::CurveKind;
using test::CurveTruth;
using test::RandomCurves;

TEST(CurveLength, isTheChordExactlyWithoutHandles) {
    EXPECT_EQ((CubicBezier{{1, 2}, {}, {}, {4, 6}}.length()), 5);
    EXPECT_EQ(PathCurve(CGPoint{1, 2}, {}, {}, {4, 6}).length(), 5);
    RandomCurves random(CurveKind::anywhere);
    for (int i = 0; i < 200; ++i) {
        const CubicBezier drawn = random.curve();
        EXPECT_EQ((CubicBezier{drawn.p1, {}, {}, drawn.p2}.length()), distance(drawn.p1, drawn.p2));
    }
}

TEST(CurveLength, isTheChordExactlyForAStraightCurveWithHandles) {
    EXPECT_EQ((CubicBezier{{0, 0}, {1, 0}, {-10, 0}, {10, 0}}.length()), 10);
    EXPECT_EQ((CubicBezier{{0, 0}, {3, 4}, {}, {30, 40}}.length()), 50);
}

TEST(CurveLength, isThe16PointRulesForAnyOtherCurve) {
    for (const CurveKind kind :
         {CurveKind::anywhere, CurveKind::cusps, CurveKind::loops, CurveKind::huge}) {
        SCOPED_TRACE(nameOf(kind));
        RandomCurves random(kind);
        for (int i = 0; i < 50; ++i) {
            const CubicBezier curve = random.curve();
            if (curve.isStraight())
                continue;
            const CurveTruth truth(curve);
            EXPECT_NEAR(curve.length(), static_cast<CGFloat>(truth.ruleLengthBetween(0, 1, 16)),
                        1e-13 * static_cast<CGFloat>(truth.polygonLength()));
        }
    }
}

TEST(CurveLength, keepsToItsRuleOnCurvesThatItMeasuresBadly) {
    for (const auto& [says, curve, trueLength] : test::hardCurves()) {
        SCOPED_TRACE(says);
        if (curve.isStraight())
            continue;
        const CurveTruth truth(curve);
        EXPECT_NEAR(curve.length(), static_cast<CGFloat>(truth.ruleLengthBetween(0, 1, 16)),
                    1e-13 * static_cast<CGFloat>(truth.polygonLength()));
    }
    const CubicBezier cusp = test::cubic({0, 0}, {100, 100}, {0, 100}, {100, 0});
    EXPECT_GT(std::abs(cusp.length() - 182.8427124746190), 1e-4) << "a cusp is beyond the rule";
    const CubicBezier wave = test::cubic({0, 0}, {100, 0}, {0, 100}, {100, 100});
    EXPECT_NEAR(wave.length(), 167.6542627420286, 1e-5);
}

TEST(CurveLength, ofAStretchTakes32PointsAUnitOfTime) {
    RandomCurves random(CurveKind::anywhere);
    const CubicBezier curve = random.curve();
    const CurveTruth truth(curve);
    struct Row {
        CGFloat from, to;
        int points;
    };
    const Row table[] = {
        {0, 0.01, 2}, {0, 0.0626, 3},   {0, 0.25, 8}, {0, 0.2501, 9}, {0, 0.469, 16},
        {0, 0.9, 16}, {0.25, 0.375, 4}, {0.5, 1, 16}, {0.9, 1, 4},
    };
    for (const auto& [from, to, points] : table) {
        const CGFloat expected = static_cast<CGFloat>(truth.ruleLengthBetween(from, to, points));
        EXPECT_NEAR(curve.lengthBetween(from, to), expected, 1e-13 * expected)
            << from << " to " << to;
    }
}

TEST(CurveLength, ofAStretchOfAStraightCurveIsCutOutOfIt) {
    // Time runs unevenly: the first handle is zero, the second as long as the chord.
    const CubicBezier line{{0, 0}, {}, {-10, 0}, {10, 0}};
    EXPECT_TRUE(line.isStraight());
    // x(t) = 10·t³.
    EXPECT_DOUBLE_EQ(line.lengthBetween(0, 0.5), 1.25);
    EXPECT_DOUBLE_EQ(line.lengthBetween(0.5, 1), 8.75);
    EXPECT_DOUBLE_EQ(line.lengthBetween(0.25, 0.5), 10 * (0.125 - 0.015625));
    EXPECT_EQ(line.lengthBetween(0.5, 0.5), 0);
    EXPECT_EQ(line.offsetAt(0), 0);
    EXPECT_EQ(line.offsetAt(1), 10);

    RandomCurves random(CurveKind::unevenLines);
    for (int i = 0; i < 500; ++i) {
        const CubicBezier uneven = random.curve();
        if (!uneven.isStraight())
            continue;
        const CGFloat from = random.between(0, 1), to = random.between(from, 1);
        const CubicBezier piece = uneven.subdivide(to).first.subdivide(from / to).second;
        EXPECT_EQ(uneven.lengthBetween(from, to), distance(piece.p1, piece.p2));
    }
}

TEST(CurveLength, countsOffsetsFromTheStart) {
    RandomCurves random(CurveKind::anywhere);
    for (int i = 0; i < 100; ++i) {
        const PathCurve curve(random.curve());
        const CGFloat t = random.between(0, 1);
        EXPECT_EQ(curve.offsetAt(t).rawValue, curve.cubic().lengthBetween(0, t));
        EXPECT_EQ(curve.offsetAt(0).rawValue, 0);
        EXPECT_EQ(curve.offsetAt(1).rawValue, curve.length());
    }
}

TEST(CurveLength, isNearTheTrueOneForAGentleArc) {
    const CGFloat k = scalar::kappa;
    const CubicBezier quarter{{100, 0}, {0, 100 * k}, {100 * k, 0}, {0, 100}};
    EXPECT_NEAR(quarter.length(), static_cast<CGFloat>(CurveTruth(quarter).length()), 1e-11);
    EXPECT_NEAR(quarter.length(), 50 * std::numbers::pi, 0.03);
}

}  // namespace
}  // namespace quorin
