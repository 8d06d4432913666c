#include "quorin/path/CurveNearestSearch.h"

#include <cmath>
#include <limits>

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
using test::plainNearestSampledTime;
using test::RandomCurves;

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat notANumber = std::numeric_limits<CGFloat>::quiet_NaN();

CGFloat searched(const CubicBezier& curve, CGPoint from) {
    return nearestSampledTime(PowerBasis::forEvaluation(curve), from);
}

class NearestSampledTimeOfKind : public ::testing::TestWithParam<CurveKind> {};

TEST_P(NearestSampledTimeOfKind, isThatOfThePlainSearch) {
    RandomCurves random(GetParam());
    for (int i = 0; i < 1200; ++i) {
        const CubicBezier curve = random.curve();
        for (int j = 0; j < 4; ++j) {
            const CGPoint from = random.pointFor(curve);
            EXPECT_TRUE(areSame(searched(curve, from), plainNearestSampledTime(curve, from)))
                << PathCurve(curve).description() << " from " << from.x << ", " << from.y;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Curves, NearestSampledTimeOfKind,
                         ::testing::Values(CurveKind::anywhere, CurveKind::wholeNumbers,
                                           CurveKind::tinyHandles, CurveKind::cusps,
                                           CurveKind::loops, CurveKind::unevenLines,
                                           CurveKind::huge),
                         [](const auto& kind) { return nameOf(kind.param); });

TEST(NearestSampledTime, isThatOfThePlainSearchOnHardCurves) {
    RandomCurves random(CurveKind::anywhere);
    for (const auto& [says, curve, length] : test::hardCurves()) {
        SCOPED_TRACE(says);
        for (int i = 0; i < 100; ++i) {
            const CGPoint on = *curve.pointAt(random.between(0, 1));
            const CGFloat off = std::pow(10, random.between(-18, 3));
            const CGPoint from = on + CGPoint{random.between(-off, off), random.between(-off, off)};
            EXPECT_TRUE(areSame(searched(curve, from), plainNearestSampledTime(curve, from)));
        }
    }
}

TEST(NearestSampledTime, isThatOfThePlainSearchFromFarAway) {
    RandomCurves random(CurveKind::anywhere);
    for (int i = 0; i < 500; ++i) {
        const CubicBezier curve = random.curve();
        const CGFloat far = std::pow(10, random.between(3, 308));
        const CGPoint from{random.between(-far, far), random.between(-far, far)};
        EXPECT_TRUE(areSame(searched(curve, from), plainNearestSampledTime(curve, from)));
    }
}

TEST(NearestSampledTime, keepsTheEarlierOfTwoEquallyNearSamples) {
    // Symmetric, and its points at quarters are exact; its normals there meet at the given point.
    const CubicBezier arch{{-4, 0}, {0, 8}, {0, 8}, {4, 0}};
    const CGPoint from{0, 2.4375};
    ASSERT_EQ(distance(*arch.pointAt(0.25), from, true), distance(*arch.pointAt(0.75), from, true));
    EXPECT_NEAR(searched(arch, from), 0.25, 4e-7);
    EXPECT_NEAR(searched(arch.reversed(), from), 0.25, 4e-7);
    EXPECT_EQ(searched(arch, {0, -100}), 0) << "both ends are equally near";
}

TEST(NearestSampledTime, staysAtTheStartWhereEverythingTies) {
    EXPECT_EQ(searched(CubicBezier{{3, 4}, {}, {}, {3, 4}}, {0, 0}), 0);
}

TEST(NearestSampledTime, refinesInStepsHalvedFrom0_005) {
    // The nearest place is at 1/3; steps of 0.005 · 2^-k around the sample 0.33 lead there.
    const CubicBezier line{{0, 0}, {1, 0}, {-1, 0}, {3, 0}};
    const CGFloat t = searched(line, {1, 5});
    EXPECT_NEAR(t, 1.0 / 3, 4e-7);
    const CGFloat steps = (t - 0.33) / (0.005 / 8192);
    EXPECT_NEAR(steps, std::round(steps), 1e-6) << "the last step is 0.005 / 2^13";
    EXPECT_NE(t, 1.0 / 3);
}

TEST(NearestSampledTime, canMissANarrowLoopBetweenSamples) {
    // The documented limit of the search: what happens between samples is not seen.
    const CubicBezier spike = test::cubic({0, 0}, {1e5, 1e5}, {-1e5, 1e5}, {10, 0});
    const CGPoint from = *spike.pointAt(0.0049);
    EXPECT_EQ(searched(spike, from), plainNearestSampledTime(spike, from));
}

TEST(NearestSampledTime, answersTheStartForNumbersThatAreNone) {
    const CubicBezier arch{{0, 0}, {0, 10}, {0, 10}, {10, 0}};
    for (const CGPoint from : {CGPoint{notANumber, 0}, CGPoint{0, notANumber}, CGPoint{infinity, 0},
                               CGPoint{-infinity, notANumber}})
        EXPECT_EQ(searched(arch, from), 0);
    for (const CubicBezier& curve : {CubicBezier{{notANumber, 0}, {0, 10}, {0, 10}, {10, 0}},
                                     CubicBezier{{0, 0}, {0, notANumber}, {0, 10}, {10, 0}},
                                     CubicBezier{{0, 0}, {0, 10}, {infinity, 10}, {10, 0}},
                                     CubicBezier{{0, 0}, {0, 10}, {0, 10}, {10, notANumber}}})
        EXPECT_EQ(searched(curve, {10, 0}), 0);
}

TEST(NearestSampledTime, staysInsideWhereNumbersOverflowOrAreNone) {
    for (const CurveKind kind : {CurveKind::overflowing, CurveKind::notFinite}) {
        RandomCurves random(kind);
        for (int i = 0; i < 1000; ++i) {
            const CubicBezier curve = random.curve();
            const CGFloat t = searched(curve, random.pointFor(curve));
            EXPECT_GE(t, 0);
            EXPECT_LE(t, 1);
        }
    }
    const CubicBezier quadratic =
        test::cubic({-1.0394736842105263, 0}, {0.20058479532163744, -1.0074074074074073},
                    {0.5473684210526316, -0.362962962962963}, {0, 1.9333333333333333});
    const CGPoint farthest{-1.7976931348623157e308, 0.857};
    EXPECT_EQ(searched(quadratic, farthest), 0) << "all squared distances are infinite";
    EXPECT_EQ(PathCurve(quadratic).nearestTime(farthest), PathCurve::Time::start);
}

}  // namespace
}  // namespace quorin
