#include <cmath>
#include <limits>
#include <numbers>

#include "quorin/path/Curve.h"
#include "quorin/path/CurveLocation.h"
#include "tests/TestSupport.h"
#include "tests/path/CurveTruth.h"
#include "tests/path/HardCurves.h"
#include "tests/path/RandomCurves.h"
#include "tests/support/Printing.h"

namespace quorin {
namespace {

using test::cubic;
using test::CurveKind;
using test::CurveTruth;
using test::RandomCurves;

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat notANumber = std::numeric_limits<CGFloat>::quiet_NaN();

/// What neither of two doubles computed at such distances can tell.
CGFloat roundingAt(const CubicBezier& curve, CGPoint from) {
    return 1e-15 * (static_cast<CGFloat>(CurveTruth(curve).polygonLength()) + std::abs(curve.p1.x) +
                    std::abs(curve.p1.y) + std::abs(from.x) + std::abs(from.y));
}

void expectNearest(const CubicBezier& curve, CGPoint from,
                   std::initializer_list<CGFloat> accuracies) {
    const auto best = CurveTruth(curve).nearest(from);
    for (const CGFloat accuracy : accuracies) {
        const auto [time, distance] = curve.nearest(from, accuracy);
        ASSERT_GE(time, 0);
        ASSERT_LE(time, 1);
        EXPECT_EQ(distance, quorin::distance(*curve.pointAt(time), from));
        EXPECT_LE(distance,
                  static_cast<CGFloat>(best.distance) + accuracy + roundingAt(curve, from))
            << PathCurve(curve).description() << " from " << from.x << ", " << from.y << ": "
            << time << " not " << static_cast<CGFloat>(best.time);
    }
}

class CertifiedNearestOfKind : public ::testing::TestWithParam<CurveKind> {};

TEST_P(CertifiedNearestOfKind, isAsNearAsBruteForceFinds) {
    RandomCurves random(GetParam());
    for (int i = 0; i < 80; ++i) {
        const CubicBezier curve = random.curve();
        expectNearest(curve, random.pointFor(curve), {1, 1e-3, 1e-6, 1e-12, 0});
    }
}

TEST_P(CertifiedNearestOfKind, neverLosesToTheSampledSearchByMoreThanItsAccuracy) {
    RandomCurves random(GetParam());
    for (int i = 0; i < 1500; ++i) {
        const CubicBezier curve = random.curve();
        const CGPoint from = random.pointFor(curve);
        const CGFloat accuracy = i % 3 == 0 ? 0 : std::pow(10, random.wholeBetween(-12, 0));
        const auto sampled = curve.nearestTime(from);
        if (!sampled)
            continue;
        EXPECT_LE(curve.nearest(from, accuracy).distance,
                  distance(*curve.pointAt(*sampled), from) + accuracy + roundingAt(curve, from))
            << PathCurve(curve).description() << " from " << from.x << ", " << from.y;
    }
}

INSTANTIATE_TEST_SUITE_P(Curves, CertifiedNearestOfKind,
                         ::testing::ValuesIn(test::finiteCurveKinds),
                         [](const auto& kind) { return nameOf(kind.param); });

TEST(CertifiedNearest, isFoundOnHardCurves) {
    RandomCurves random(CurveKind::anywhere);
    for (const auto& [says, curve, length] : test::hardCurves()) {
        SCOPED_TRACE(says);
        for (int i = 0; i < 3; ++i) {
            const CGPoint on = *curve.pointAt(random.between(0, 1));
            const CGFloat off = std::pow(10, random.between(-16, 2));
            EXPECT_LE(curve.nearest(on, 1e-9).distance, 1e-9 + roundingAt(curve, on));
            expectNearest(curve, on + CGPoint{random.between(-off, off), random.between(-off, off)},
                          {1e-9});
        }
    }
}

TEST(CertifiedNearest, findsThePlaceOnACurveWithHandlesOfOneLastPlace) {
    const CubicBezier curve =
        cubic({461, 123}, {460.99999999999994, 123.00000000000004}, {111, 319}, {111, 319});
    const auto [time, distance] = curve.nearest({282.0379003395483, 223.21877580985594}, 1e-13);
    EXPECT_LE(distance, 3.0e-12);
    EXPECT_NEAR(time, 0.5075474297354187, 1e-9);
}

TEST(CertifiedNearest, standsAPointAtTheEndOfTheNumbers) {
    const CubicBezier curve =
        cubic({-1.0394736842105263, 0}, {0.20058479532163744, -1.0074074074074073},
              {0.5473684210526316, -0.362962962962963}, {0, 1.9333333333333333});
    const auto [time, distance] = curve.nearest({-1.7976931348623157e308, 0.857}, 1e-9);
    EXPECT_GE(time, 0);
    EXPECT_LE(time, 1);
    EXPECT_FALSE(std::isnan(distance));
}

TEST(CertifiedNearest, isFoundFromTheCentreOfAnArc) {
    // All of the arc is nearly equally far, which leaves little to tell places apart by.
    for (const CGFloat angle : {2.0, 1.0, 0.3, 0.1, 0.03, 0.01, 1e-3}) {
        for (const CGFloat turned : {0.0, 0.4, 2.3}) {
            const CGFloat k = 4.0 / 3 * std::tan(angle / 4);
            const auto at = [&](CGFloat a) {
                return CGPoint{std::cos(a + turned), std::sin(a + turned)};
            };
            const auto along = [](CGPoint p) { return CGPoint{-p.y, p.x}; };
            const CubicBezier arc{at(0), k * along(at(0)), -k * along(at(angle)), at(angle)};
            expectNearest(arc, {0, 0}, {1e-3, 1e-9, 1e-15, 0});
            expectNearest(arc, {1e-9, -1e-9}, {1e-3, 1e-9, 1e-15, 0});
        }
    }
}

TEST(CertifiedNearest, isFoundForPointsOnTheCurve) {
    RandomCurves random(CurveKind::anywhere);
    for (int i = 0; i < 500; ++i) {
        const CubicBezier curve = random.curve();
        const CGPoint on = *curve.pointAt(random.between(0, 1));
        EXPECT_LE(curve.nearest(on, 1e-10).distance, 1e-10 + roundingAt(curve, on));
    }
}

TEST(CertifiedNearest, isFoundAmidAnchorsThatAreFarther) {
    // The anchors are on one side, the controls on opposite sides: bounds drawn from the anchors
    // alone would stop at one of them.
    expectNearest({{-1, 2}, {-2, 0}, {2, -4}, {1, 3}}, {-1, 0}, {1e-12});
    expectNearest({{-1, -1}, {0, -1}, {1, 3}, {-3, 0}}, {2, 2}, {1e-12});
    expectNearest({{-2, 2}, {5, 1}, {-1, -1}, {-1, -2}}, {2, -3}, {1e-12});
    expectNearest({{1, -1}, {1, -1}, {-5, 0}, {2, 2}}, {-1, -3}, {1e-12});
    expectNearest({{3, -3}, {-5, 1}, {1, 1}, {1, 0}}, {-1, 1}, {1e-12});
}

TEST(CertifiedNearest, isFoundAtACusp) {
    const CubicBezier cusp = cubic({0, 0}, {100, 100}, {0, 100}, {100, 0});
    EXPECT_NEAR(cusp.nearest({50, 75}, 1e-12).time, 0.5, 1e-6);
    EXPECT_LE(cusp.nearest({50, 75}, 1e-12).distance, 1e-12);
    expectNearest(cusp, {50, 80}, {1e-12});
    expectNearest(cusp, {50, 74.999}, {1e-12});
}

TEST(CertifiedNearest, seesBothSidesOfAHairpin) {
    const CubicBezier hairpin = cubic({0, 0}, {300, 0}, {300, 0.001}, {0, 0.001});
    for (const CGFloat x : {10.0, 100.0, 200.0, 224.9, 225.0}) {
        expectNearest(hairpin, {x, 0.0004}, {1e-9});
        expectNearest(hairpin, {x, 0.0006}, {1e-9});
    }
    expectNearest(hairpin, {1000, 0.0005}, {1e-9});
}

TEST(CertifiedNearest, seesWhatFallsBetweenSamples) {
    // Within a hundredth of its time this curve runs a thousand points out and back.
    const CubicBezier spike = cubic({0, 0}, {1e5, 1e5}, {-1e5, 1e5}, {10, 0});
    RandomCurves random(CurveKind::anywhere);
    int better = 0;
    for (int i = 0; i < 100; ++i) {
        const CGPoint from = *spike.pointAt(random.between(0, 1)) + CGPoint{0.1, 0.1};
        const CGFloat sampled = distance(*spike.pointAt(*spike.nearestTime(from)), from);
        const CGFloat certain = spike.nearest(from, 1e-6).distance;
        EXPECT_LE(certain, 0.15);
        EXPECT_LE(certain, sampled + 1e-6);
        better += certain < sampled - 1e-3;
    }
    EXPECT_GT(better, 0) << "the sampled search finds the wrong valley now and then";
}

TEST(CertifiedNearest, stopsWhereNothingCanBeTold) {
    EXPECT_EQ((CubicBezier{{3, 4}, {}, {}, {3, 4}}.nearest({0, 0}, 0).distance), 5);
    EXPECT_EQ((CubicBezier{{3, 4}, {}, {}, {3, 4}}.nearest({3, 4}, 0).distance), 0);
    const CubicBezier tiny{{1, 1}, {1e-15, 0}, {0, 1e-15}, {1, 1 + 1e-15}};
    EXPECT_NEAR(tiny.nearest({0, 0}, 0).distance, std::numbers::sqrt2, 1e-14);
    const CubicBezier arch{{0, 0}, {0, 10}, {0, 10}, {10, 0}};
    EXPECT_DOUBLE_EQ(arch.nearest({5, 20}, -1).distance, 12.5);
    EXPECT_LE(arch.nearest({5, 20}, 1e300).distance, distance({0, 0}, {5, 20}));
}

TEST(CertifiedNearest, comesToAnEndForNumbersThatAreNone) {
    for (const CurveKind kind : {CurveKind::notFinite, CurveKind::overflowing}) {
        RandomCurves random(kind);
        for (int i = 0; i < 500; ++i) {
            const CubicBezier curve = random.curve();
            const auto [time, distance] = curve.nearest(random.pointFor(curve), 1e-9);
            EXPECT_GE(time, 0);
            EXPECT_LE(time, 1);
        }
    }
    const CubicBezier arch{{0, 0}, {0, 10}, {0, 10}, {10, 0}};
    for (const CGFloat bad : {infinity, -infinity, notANumber}) {
        EXPECT_EQ(arch.nearest({bad, 0}, 1e-9).time, 0);
        EXPECT_EQ(arch.nearest({0, bad}, 1e-9).time, 0);
    }
    EXPECT_EQ(arch.nearest({5, 20}, notANumber).time, 0.5) << "then as accurate as can be";
}

TEST(CertifiedNearest, describesThePlaceItFound) {
    const PathCurve arch({0, 0}, {0, 10}, {0, 10}, {10, 0});
    const PathCurveLocation location = arch.nearestLocation({5, 20}, 1e-9);
    EXPECT_NEAR(location.time().rawValue, 0.5, 1e-9);
    EXPECT_NEAR(location.distance(), 12.5, 1e-9);
    EXPECT_EQ(location.point(), arch.pointAt(location.time()));
    EXPECT_FALSE(location.overlap());
    EXPECT_TRUE(location.curve() == arch);
}

}  // namespace
}  // namespace quorin
