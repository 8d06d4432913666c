#include <cmath>
#include <limits>

#include "quorin/path/Curve.h"
#include "quorin/path/Path.h"
#include "tests/TestSupport.h"
#include "tests/path/CurveTruth.h"
#include "tests/path/RandomCurves.h"
#include "tests/support/Printing.h"

namespace quorin {
namespace {

using test::CurveKind;
using test::CurveTruth;
using test::RandomCurves;

const CubicBezier bent{{-10, -20}, {3, 25}, {11, -15}, {3, 13}};

void expectSameStretch(const CubicBezier& part, const CubicBezier& whole, CGFloat from,
                       CGFloat to) {
    const CurveTruth truth(whole), partTruth(part);
    for (int i = 0; i <= 10; ++i) {
        const long double s = i / 10.0L;
        const auto [x, y] = truth.pointAt(from + s * (to - from));
        const auto [partX, partY] = partTruth.pointAt(s);
        EXPECT_NEAR(static_cast<CGFloat>(partX), static_cast<CGFloat>(x), 1e-11);
        EXPECT_NEAR(static_cast<CGFloat>(partY), static_cast<CGFloat>(y), 1e-11);
    }
}

TEST(CurveSubdivision, cutsWhereItIsAsked) {
    const auto [first, second] = bent.subdivide(0.1234);
    EXPECT_NEAR(first.p2.x, -8.1610658052, 5e-11);
    EXPECT_NEAR(first.p2.y, -12.105375391184, 5e-13);
    EXPECT_EQ(second.p1, first.p2);
    EXPECT_EQ(first.p1, bent.p1);
    EXPECT_EQ(second.p2, bent.p2);
}

TEST(CurveSubdivision, findsTheHandlesOfHalvesByHand) {
    const CubicBezier arch{{0, 0}, {0, 8}, {0, 8}, {8, 0}};
    const auto [first, second] = arch.subdivide(0.5);
    EXPECT_EQ(first, (CubicBezier{{0, 0}, {0, 4}, {-2, 0}, {4, 6}}));
    EXPECT_EQ(second, (CubicBezier{{4, 6}, {2, 0}, {0, 4}, {8, 0}}));
}

TEST(CurveSubdivision, retracesTheCurve) {
    RandomCurves random(CurveKind::anywhere);
    for (int i = 0; i < 200; ++i) {
        const CubicBezier curve = random.curve();
        const CGFloat t = random.between(0, 1);
        const auto [first, second] = curve.subdivide(t);
        expectSameStretch(first, curve, 0, t);
        expectSameStretch(second, curve, t, 1);
    }
}

TEST(CurveSubdivision, weighsAnchorsAndControlsInItsOrder) {
    RandomCurves random(CurveKind::anywhere);
    for (int i = 0; i < 200; ++i) {
        const CubicBezier curve = random.curve();
        const CGFloat t = random.between(0, 1), u = 1 - t;
        const auto x = [&](CGFloat p1, CGFloat c1, CGFloat c2, CGFloat p2) {
            const CGFloat q1 = u * p1 + t * c1, q2 = u * c1 + t * c2, q3 = u * c2 + t * p2;
            const CGFloat r1 = u * q1 + t * q2, r2 = u * q2 + t * q3;
            const CGFloat s = u * r1 + t * r2;
            return std::array{q1 - p1, r1 - s, s, r2 - s, q3 - p2};
        };
        const auto [h1, h2, s, nextH1, nextH2] =
            x(curve.p1.x, curve.c1().x, curve.c2().x, curve.p2.x);
        const auto [first, second] = curve.subdivide(t);
        EXPECT_EQ(first.h1.x, h1);
        EXPECT_EQ(first.h2.x, h2);
        EXPECT_EQ(first.p2.x, s);
        EXPECT_EQ(second.p1.x, s);
        EXPECT_EQ(second.h1.x, nextH1);
        EXPECT_EQ(second.h2.x, nextH2);
    }
}

TEST(CurveSubdivision, givesPartsFreeOfThePath) {
    const auto path = Path::create();
    const PathCurve placed(bent, path, 2);
    const auto [first, second] = PathCurve::subdivide(placed, 0.3);
    for (const PathCurve& part : {first, second}) {
        EXPECT_EQ(part.index(), std::nullopt);
        EXPECT_EQ(part.path(), nullptr);
    }
    EXPECT_EQ(placed.index(), 2);
}

TEST(CurveDivision, turnsThisCurveIntoTheFirstPart) {
    PathCurve curve(bent);
    const CGFloat whole = curve.length();
    const CGRect bounds = curve.bounds();
    const auto rest = curve.divideAt(0.25);
    ASSERT_TRUE(rest);
    EXPECT_EQ(curve.cubic(), bent.subdivide(0.25).first);
    EXPECT_EQ(rest->cubic(), bent.subdivide(0.25).second);
    EXPECT_LT(curve.length(), whole) << "not the cached one";
    EXPECT_NE(curve.bounds(), bounds);
    EXPECT_EQ(rest->index(), std::nullopt);
    EXPECT_EQ(rest->path(), nullptr);
}

RC_GTEST_PROP(CurveDivision, leavesTheLengthAsItWas, ()) {
    const auto coordinate = rc::gen::inRange(-1000, 1001);
    const auto point = [&coordinate] {
        return CGPoint{CGFloat(*coordinate), CGFloat(*coordinate)};
    };
    const PathCurve whole(point(), point(), point(), point());
    PathCurve first = whole;
    const auto second = first.divideAt(*rc::gen::inRange(1, 1000) / 1000.0);
    RC_ASSERT(second.has_value());
    const CGFloat sum = first.length(1e-6).length + second->length(1e-6).length;
    RC_ASSERT(std::abs(sum - whole.length(1e-6).length) < 3e-6);
}

TEST(CurveDivision, keepsAwayFromTheEnds) {
    struct Row {
        const char* says;
        CGFloat time;
        bool divides;
    };
    const Row table[] = {
        {"the start", 0, false},
        {"just before the first time", 3.999e-7, false},
        {"the first time", 4e-7, true},
        {"the last time", 1 - 4e-7, true},
        {"just after the last time", 0.9999996001, false},
        {"near the end", 0.9999999, false},
        {"the end", 1, false},
        {"before the start", -0.5, false},
        {"beyond the end", 1.5, false},
        {"no number", std::numeric_limits<CGFloat>::quiet_NaN(), false},
    };
    for (const auto& [says, time, divides] : table) {
        SCOPED_TRACE(says);
        PathCurve curve(bent);
        EXPECT_EQ(curve.divideAt(time).has_value(), divides);
        EXPECT_EQ(curve.cubic() == bent, !divides);
    }
}

TEST(CurveDivision, keepsAStraightCurveFreeOfHandles) {
    RandomCurves random(CurveKind::anywhere);
    for (int i = 0; i < 300; ++i) {
        const CubicBezier drawn = random.curve();
        PathCurve line(drawn.p1, {}, {}, drawn.p2);
        const auto rest = line.divideAt(random.between(0.01, 0.99));
        ASSERT_TRUE(rest);
        EXPECT_EQ(line.h1(), CGPoint::zero);
        EXPECT_EQ(line.h2(), CGPoint::zero);
        EXPECT_EQ(rest->h1(), CGPoint::zero);
        EXPECT_EQ(rest->h2(), CGPoint::zero);
        EXPECT_EQ(line.p2(), rest->p1());
    }
}

TEST(CurveDivision, keepsInnerHandlesWhereThereWasAnyHandle) {
    for (const CubicBezier& curve : {CubicBezier{{0, 0}, {1e-13, 0}, {}, {10, 0}},
                                     CubicBezier{{0, 0}, {}, {0, -1e-13}, {10, 0}},
                                     CubicBezier{{0, 0}, {}, {-3, 0}, {10, 0}}}) {
        PathCurve first(curve);
        const auto second = first.divideAt(0.25);
        EXPECT_EQ(first.cubic(), curve.subdivide(0.25).first);
        EXPECT_EQ(second->cubic(), curve.subdivide(0.25).second);
        EXPECT_NE(first.h2(), CGPoint::zero);
    }
}

TEST(CurvePart, isTheWholeBetweenBothEnds) { EXPECT_EQ(bent.partialCurve(0, 1), bent); }

TEST(CurvePart, cutsFirstBeforeThenBehind) {
    EXPECT_EQ(bent.partialCurve(0, 0.25), bent.subdivide(0.25).first);
    EXPECT_EQ(bent.partialCurve(0.25, 1), bent.subdivide(0.25).second);
    EXPECT_EQ(bent.partialCurve(0.25, 0.75),
              bent.subdivide(0.25).second.subdivide((0.75 - 0.25) / (1 - 0.25)).first);
    RandomCurves random(CurveKind::anywhere);
    for (int i = 0; i < 200; ++i) {
        const CubicBezier curve = random.curve();
        const CGFloat from = random.between(0, 0.6), to = random.between(from, 1);
        expectSameStretch(curve.partialCurve(from, to), curve, from, to);
    }
}

TEST(CurvePart, runsBackwardsWhenAskedInThatOrder) {
    EXPECT_EQ(bent.partialCurve(0.75, 0.25), bent.partialCurve(0.25, 0.75).reversed());
}

TEST(CurvePart, isFreeOfThePath) {
    const auto path = Path::create();
    const PathCurve part = PathCurve(bent, path, 2).partialCurve(0, 1);
    EXPECT_EQ(part.cubic(), bent);
    EXPECT_EQ(part.index(), std::nullopt);
    EXPECT_EQ(part.path(), nullptr);
}

}  // namespace
}  // namespace quorin
