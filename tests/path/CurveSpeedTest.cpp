#include "quorin/path/CurveSpeed.h"

#include <cmath>
#include <limits>

#include "quorin/geometry/Quadrature.h"
#include "tests/TestSupport.h"
#include "tests/path/CurveTruth.h"
#include "tests/path/PlainSearch.h"
#include "tests/path/RandomCurves.h"

namespace quorin {
namespace {

using test::areSame;
using test::CurveKind;
using test::CurveTruth;
using test::RandomCurves;

TEST(CurveSpeed, isTheLengthOfTheDerivative) {
    RandomCurves random(CurveKind::anywhere);
    for (int i = 0; i < 1000; ++i) {
        const CubicBezier curve = random.curve();
        const CGFloat t = random.between(0, 1);
        EXPECT_NEAR(CurveSpeed(curve).at(t), static_cast<CGFloat>(CurveTruth(curve).speedAt(t)),
                    1e-10);
    }
}

TEST(CurveSpeed, evaluatesItsPolynomialInItsOrder) {
    for (const CurveKind kind : test::allCurveKinds) {
        SCOPED_TRACE(nameOf(kind));
        RandomCurves random(kind);
        for (int i = 0; i < 500; ++i) {
            const CubicBezier curve = random.curve();
            const CGFloat t = random.between(0, 1);
            const auto velocity = [&](CGFloat CGPoint::*axis) {
                const CGFloat p1 = curve.p1.*axis, c1 = curve.c1().*axis;
                const CGFloat c2 = curve.c2().*axis, p2 = curve.p2.*axis;
                const CGFloat A = 9 * (c1 - c2) + 3 * (p2 - p1);
                const CGFloat B = 6 * (p1 + c2) - 12 * c1;
                const CGFloat C = 3 * (c1 - p1);
                return (A * t + B) * t + C;
            };
            const CGFloat x = velocity(&CGPoint::x), y = velocity(&CGPoint::y);
            EXPECT_TRUE(areSame(CurveSpeed(curve).at(t), std::sqrt(x * x + y * y)));
        }
    }
}

class CurveSpeedOfKind : public ::testing::TestWithParam<CurveKind> {};

TEST_P(CurveSpeedOfKind, isIntegratedAsByThePlainRule) {
    RandomCurves random(GetParam());
    for (int i = 0; i < 300; ++i) {
        const CurveSpeed speed(random.curve());
        const auto at = [&speed](CGFloat t) { return speed.at(t); };
        const CGFloat from = i % 4 == 0 ? 0 : random.between(0, 1);
        const CGFloat to = i % 3 == 0 ? 1 : random.between(0, 1);
        for (int n = 2; n <= 16; ++n)
            EXPECT_TRUE(areSame(speed.integrated(from, to, n), scalar::integrate(at, from, to, n)))
                << n << " points from " << from << " to " << to;
    }
}

INSTANTIATE_TEST_SUITE_P(Curves, CurveSpeedOfKind, ::testing::ValuesIn(test::allCurveKinds),
                         [](const auto& kind) { return nameOf(kind.param); });

TEST(CurveSpeed, takes32PointsAUnitOfTimeBetween2And16) {
    struct Row {
        CGFloat from, to;
        int points;
    };
    const Row table[] = {
        {0, 1, 16},     {0, 0.5, 16},     {0, 0.46875, 15},       {0, 0.47, 16},
        {0.5, 0.75, 8}, {0.5, 0.7501, 9}, {0.25, 0.25 + 1e-9, 2}, {0.5, 0.5, 2},
        {0, 0.0625, 2}, {0, 0.0626, 3},   {0.75, 0.5, 8},         {1, 0, 16},
        {0, 3, 16},     {0, 1e300, 16},   {0, 0.09375, 3},
    };
    const CurveSpeed speed(CubicBezier{{0, 0}, {300, 7}, {-11, 400}, {500, 60}});
    const auto at = [&speed](CGFloat t) { return speed.at(t); };
    for (const auto& [from, to, points] : table)
        EXPECT_TRUE(areSame(speed.integrated(from, to), scalar::integrate(at, from, to, points)))
            << from << " to " << to;
}

TEST(CurveSpeed, integratesNothingSensibleOverTimesThatAreNone) {
    const CurveSpeed speed(CubicBezier{{0, 0}, {300, 7}, {-11, 400}, {500, 60}});
    EXPECT_TRUE(std::isnan(speed.integrated(0, std::numeric_limits<CGFloat>::quiet_NaN())));
    EXPECT_TRUE(std::isnan(speed.integrated(0, std::numeric_limits<CGFloat>::infinity())));
}

}  // namespace
}  // namespace quorin
