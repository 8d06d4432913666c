#include <cmath>
#include <limits>

#include "quorin/path/Curve.h"
#include "tests/TestSupport.h"
#include "tests/path/CurveTruth.h"
#include "tests/path/HardCurves.h"
#include "tests/path/RandomCurves.h"

namespace quorin {
namespace {

using test::CurveKind;
using test::CurveTruth;
using test::RandomCurves;

TEST(CurveMeasuredLength, isTrueForCurvesThatAreHardToMeasure) {
    for (const auto& [says, curve, length] : test::hardCurves()) {
        SCOPED_TRACE(says);
        const CurveTruth truth(curve);
        const CGFloat size = static_cast<CGFloat>(truth.polygonLength());
        const CGFloat trueLength = length.value_or(static_cast<CGFloat>(truth.length()));
        for (const CGFloat accuracy : {1.0, 1e-3, 1e-6, 1e-9, 1e-12}) {
            SCOPED_TRACE(accuracy);
            const auto [measured, reached] = curve.length(accuracy);
            // Published to so many digits.
            const CGFloat digits = says == std::string_view("ends at rest") ? 1e-5 : 2e-15 * size;
            EXPECT_NEAR(measured, trueLength, std::max(accuracy, reached) + digits);
            EXPECT_LE(reached, std::max(accuracy, 1e-13 * size));
        }
    }
}

TEST(CurveMeasuredLength, agreesWithTheTruthOnHardCurves) {
    for (const auto& [says, curve, length] : test::hardCurves()) {
        SCOPED_TRACE(says);
        const CurveTruth truth(curve);
        EXPECT_NEAR(curve.length(1e-10).length, static_cast<CGFloat>(truth.length()),
                    1e-10 + 1e-14 * static_cast<CGFloat>(truth.polygonLength()));
    }
}

TEST(CurveMeasuredLength, isTheOneOfTheCurveItself) {
    const CubicBezier cusp = test::cubic({0, 0}, {100, 100}, {0, 100}, {100, 0});
    EXPECT_EQ(PathCurve(cusp).length(1e-9).length, cusp.length(1e-9).length);
    EXPECT_EQ(PathCurve(cusp).length(1e-9).accuracy, cusp.length(1e-9).accuracy);
    EXPECT_NE(PathCurve(cusp).length(), cusp.length(1e-9).length) << "beside, never instead";
}

class CurveMeasuredLengthOfKind : public ::testing::TestWithParam<CurveKind> {};

TEST_P(CurveMeasuredLengthOfKind, isAsAccurateAsItSays) {
    RandomCurves random(GetParam());
    for (int i = 0; i < 12; ++i) {
        const CubicBezier curve = random.curve();
        const CurveTruth truth(curve);
        const CGFloat size = static_cast<CGFloat>(truth.polygonLength());
        const CGFloat trueLength = static_cast<CGFloat>(truth.length());
        const CGFloat rounding = 1e-15 * size;
        for (const CGFloat accuracy : {1e-2 * size, 1e-6 * size, 1e-10 * size, 0.0}) {
            const auto [length, reached] = curve.length(accuracy);
            EXPECT_NEAR(length, trueLength, reached + rounding) << PathCurve(curve).description();
            EXPECT_LE(reached, std::max(accuracy, 1e-12 * size)) << PathCurve(curve).description();
        }
    }
}

TEST_P(CurveMeasuredLengthOfKind, isAsAccurateForAStretch) {
    RandomCurves random(GetParam());
    for (int i = 0; i < 12; ++i) {
        const CubicBezier curve = random.curve();
        const CurveTruth truth(curve);
        const CGFloat size = static_cast<CGFloat>(truth.polygonLength());
        const CGFloat from = random.between(0, 1), to = random.between(from, 1);
        const CGFloat expected = static_cast<CGFloat>(truth.lengthBetween(from, to));
        for (const CGFloat accuracy : {1e-3 * size, 1e-8 * size, 1e-15 * size}) {
            const auto [length, reached] = curve.lengthBetween(from, to, accuracy);
            EXPECT_NEAR(length, expected, std::max(accuracy, reached) + 1e-15 * size)
                << PathCurve(curve).description() << " from " << from << " to " << to;
        }
    }
}

TEST_P(CurveMeasuredLengthOfKind, addsUp) {
    RandomCurves random(GetParam());
    for (int i = 0; i < 100; ++i) {
        const CubicBezier curve = random.curve();
        const CGFloat size = static_cast<CGFloat>(CurveTruth(curve).polygonLength());
        const CGFloat accuracy = 1e-3 * size;
        const CGFloat a = random.between(0, 1), b = random.between(0, 1), c = random.between(0, 1);
        const auto between = [&](CGFloat from, CGFloat to) {
            return curve.lengthBetween(from, to, accuracy).length;
        };
        // Far better than the accuracy, since all stretches are cut from the same cells.
        EXPECT_NEAR(between(a, b) + between(b, c), between(a, c), 4e-15 * size);
        EXPECT_NEAR(between(0, a) + between(a, 1), curve.length(accuracy).length, 4e-15 * size);
        EXPECT_EQ(between(b, a), -between(a, b));
        EXPECT_EQ(between(a, a), 0);
    }
}

TEST_P(CurveMeasuredLengthOfKind, neverShrinksAsTheStretchGrows) {
    RandomCurves random(GetParam());
    for (int i = 0; i < 10; ++i) {
        const CubicBezier curve = random.curve();
        const CGFloat accuracy = 1e-3 * static_cast<CGFloat>(CurveTruth(curve).polygonLength());
        CGFloat shorter = 0;
        for (int step = 0; step <= 300; ++step) {
            const CGFloat to = step / 300.0;
            const CGFloat length = curve.lengthBetween(0, to, accuracy).length;
            EXPECT_GE(length, shorter) << to << " of " << PathCurve(curve).description();
            shorter = length;
        }
        EXPECT_EQ(shorter, curve.length(accuracy).length);
    }
}

INSTANTIATE_TEST_SUITE_P(Curves, CurveMeasuredLengthOfKind,
                         ::testing::ValuesIn(test::finiteCurveKinds),
                         [](const auto& kind) { return nameOf(kind.param); });

TEST(CurveMeasuredLength, neverShrinksFromOneDoubleToTheNext) {
    RandomCurves random(CurveKind::anywhere);
    for (int i = 0; i < 20; ++i) {
        const CubicBezier curve = random.curve();
        CGFloat to = random.between(0.1, 0.9);
        CGFloat shorter = curve.lengthBetween(0, to, 1e-6).length;
        for (int step = 0; step < 100; ++step) {
            to = std::nextafter(to, 1.0);
            const CGFloat length = curve.lengthBetween(0, to, 1e-6).length;
            EXPECT_GE(length, shorter);
            shorter = length;
        }
    }
}

TEST(CurveMeasuredLength, runsOnSmoothlyWhereTheSpeedTurnsAround) {
    // The derivative is (90·(t - 1/3), 30): slowest at 1/3, which no double hits.
    const CubicBezier parabola{{0, 0}, {-10, 10}, {-20, -10}, {15, 30}};
    const CurveTruth truth(parabola);
    for (int i = -40; i <= 40; ++i) {
        const CGFloat to = 1.0 / 3 + i * 0.3e-9;
        const CGFloat expected = static_cast<CGFloat>(truth.lengthBetween(0, to));
        EXPECT_NEAR(parabola.lengthBetween(0, to, 1e-12).length, expected, 2e-14);
    }
}

TEST(CurveMeasuredLength, isNotFooledByATurnTooNarrowToBeSeen) {
    // y = far·(2t - 1)³ slows down so much at the middle that there, for a moment, only x moves.
    // Halves of the curve agree about the length long before it is right.
    for (const CGFloat far : {1e4, 1e5, 1e6, 1e7, 1e8}) {
        SCOPED_TRACE(far);
        const CubicBezier curve{{0, -far}, {10, 2 * far}, {-10, -2 * far}, {30, far}};
        const CGFloat expected = static_cast<CGFloat>(CurveTruth(curve).length());
        for (const CGFloat accuracy : {1.0, 1e-2, 1e-4}) {
            const auto [length, reached] = curve.length(accuracy);
            EXPECT_LE(reached, accuracy);
            EXPECT_NEAR(length, expected, reached);
        }
    }
}

TEST(CurveMeasuredLength, saysWhatItReachedWhenMoreIsAskedThanDoublesHold) {
    const CubicBezier wave = test::cubic({0, 0}, {100, 0}, {0, 100}, {100, 100});
    for (const CGFloat accuracy : {0.0, -1.0, 1e-300}) {
        const auto [length, reached] = wave.length(accuracy);
        EXPECT_GT(reached, 0);
        EXPECT_LT(reached, 1e-11);
        EXPECT_NEAR(length, 167.6542627420286, reached + 1e-13);
    }
}

TEST(CurveMeasuredLength, comesToAnEndWhereNothingCanBeMeasured) {
    RandomCurves random(CurveKind::notFinite);
    for (int i = 0; i < 200; ++i) {
        const auto [length, reached] = random.curve().length(1e-9);
        EXPECT_FALSE(length < 0);
        EXPECT_FALSE(reached < 0);
    }
    RandomCurves overflowing(CurveKind::overflowing);
    for (int i = 0; i < 200; ++i)
        EXPECT_FALSE(overflowing.curve().length(1e-9).length < 0);
    const CubicBezier wave = test::cubic({0, 0}, {100, 0}, {0, 100}, {100, 100});
    EXPECT_NEAR(wave.length(std::numeric_limits<CGFloat>::quiet_NaN()).length, 167.65, 0.1);
    EXPECT_NEAR(wave.length(std::numeric_limits<CGFloat>::infinity()).length, 167.65, 1);
}

}  // namespace
}  // namespace quorin
