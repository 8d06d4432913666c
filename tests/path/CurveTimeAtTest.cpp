#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "quorin/geometry/Quadrature.h"
#include "quorin/geometry/RootFinding.h"
#include "quorin/path/Curve.h"
#include "quorin/path/CurveSpeed.h"
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

const CGFloat k = scalar::kappa;
const PathCurve quarter({100, 0}, {0, 100 * k}, {100 * k, 0}, {0, 100});
const PathCurve line({0, 0}, {}, {}, {10, 0});

CGFloat timeOf(const PathCurve& curve, CGFloat offset,
               std::optional<PathCurve::Time> start = std::nullopt) {
    const auto time = curve.timeAt(offset, start);
    return time ? time->rawValue : std::numeric_limits<CGFloat>::quiet_NaN();
}

TEST(CurveTimeAt, startsWhereItIsAskedForNoOffset) {
    EXPECT_EQ(timeOf(quarter, 0), 0);
    EXPECT_EQ(timeOf(quarter, -0.0), 0);
    EXPECT_EQ(timeOf(quarter, 0, 0.3), 0.3);
    EXPECT_EQ(timeOf(quarter, 0, 1), 1);
    EXPECT_EQ(timeOf(line, 0, 0.7), 0.7);
}

TEST(CurveTimeAt, arrivesAtTheEndWithinEpsilonOfTheLength) {
    for (const PathCurve& curve : {quarter, line}) {
        const CGFloat length = curve.length();
        EXPECT_EQ(timeOf(curve, length), 1);
        EXPECT_EQ(timeOf(curve, length + 1e-13), 1);
        EXPECT_EQ(timeOf(curve, length - 1e-13), 1);
        EXPECT_EQ(timeOf(curve, -length), 0);
        EXPECT_EQ(timeOf(curve, -(length + 1e-13)), 0);
    }
}

TEST(CurveTimeAt, answersNothingBeyondTheEnds) {
    for (const PathCurve& curve : {quarter, line}) {
        const CGFloat length = curve.length();
        EXPECT_EQ(curve.timeAt(length + 1e-6), std::nullopt);
        EXPECT_EQ(curve.timeAt(length + 1e-11), std::nullopt);
        EXPECT_EQ(curve.timeAt(-length - 1e-6), std::nullopt);
        EXPECT_EQ(curve.timeAt(1e300), std::nullopt);
        EXPECT_EQ(curve.timeAt(-std::numeric_limits<CGFloat>::infinity()), std::nullopt);
    }
    const PathCurve point({1, 2}, {}, {}, {1, 2});
    EXPECT_EQ(point.timeAt(1), std::nullopt);
    EXPECT_EQ(timeOf(point, 1e-13), 1);
    EXPECT_EQ(timeOf(point, -1e-13), 0);
}

TEST(CurveTimeAt, walksBackwardsFromTheEndForANegativeOffset) {
    EXPECT_NEAR(timeOf(line, -2.5), 1 - timeOf(line, 2.5), 1e-12);
    for (const CGFloat offset : {0.5, 20.0, 100.0, 157.0}) {
        SCOPED_TRACE(offset);
        // The arc is symmetric.
        EXPECT_NEAR(timeOf(quarter, -offset), 1 - timeOf(quarter, offset), 1e-9);
        EXPECT_NEAR(quarter.offsetAt(timeOf(quarter, -offset)).rawValue, quarter.length() - offset,
                    1e-8);
    }
}

TEST(CurveTimeAt, walksEitherWayFromAStart) {
    const PathCurve::Time start = 0.4;
    const CGFloat before = quarter.offsetAt(start).rawValue;
    const CGFloat behind = quarter.cubic().lengthBetween(0.4, 1);
    EXPECT_NEAR(timeOf(quarter, 10, start), timeOf(quarter, before + 10), 1e-9);
    EXPECT_NEAR(timeOf(quarter, -10, start), timeOf(quarter, before - 10), 1e-9);
    EXPECT_EQ(timeOf(quarter, behind, start), 1);
    EXPECT_EQ(timeOf(quarter, behind + 1e-13, start), 1);
    EXPECT_EQ(timeOf(quarter, -before, start), 0);
    EXPECT_EQ(quarter.timeAt(behind + 1e-6, start), std::nullopt);
    EXPECT_EQ(quarter.timeAt(-before - 1e-6, start), std::nullopt);
}

TEST(CurveTimeAt, walksOnlyTheWayItWasAsked) {
    EXPECT_EQ(quarter.timeAt(10, 1), std::nullopt) << "nothing is left behind the end";
    EXPECT_EQ(quarter.timeAt(-10, 0), std::nullopt);
}

TEST(CurveTimeAt, findsTheTimeOnAStraightCurveWithUnevenHandles) {
    const PathCurve cubed({0, 0}, {}, {-10, 0}, {10, 0});  // x = 10·t³
    EXPECT_NEAR(timeOf(cubed, 1.25), 0.5, 1e-9);
    EXPECT_NEAR(timeOf(cubed, -8.75), 0.5, 1e-9);
    const PathCurve even({0, 0}, {5, 0}, {-5, 0}, {10, 0});
    EXPECT_NEAR(timeOf(even, 5), 0.5, 1e-12);
}

TEST(CurveTimeAt, invertsTheTrueLengthOfGentleCurves) {
    RandomCurves random(CurveKind::anywhere);
    for (int i = 0; i < 10; ++i) {
        const CubicBezier drawn = random.curve();
        const CGPoint v = drawn.p2 - drawn.p1;
        const CGPoint bend = random.between(-0.3, 0.3) * CGPoint{-v.y, v.x};
        const PathCurve gentle(drawn.p1, v / 3 + bend, -v / 4 + bend, drawn.p2);
        const CurveTruth truth(gentle.cubic());
        const CGFloat offset = random.between(0, gentle.length());
        EXPECT_NEAR(timeOf(gentle, offset), static_cast<CGFloat>(truth.timeAtLength(offset)), 1e-7)
            << gentle.description();
    }
}

TEST(CurveTimeAt, findsItsWayOnLargeCurves) {
    for (const CGFloat scale : {1.0, 100.0}) {
        const auto curve = PathCurve::withControlPoints(
            {0, 0}, {5e7 * scale, 0}, {5e7 * scale, 1e7 * scale}, {1e8 * scale, 1e7 * scale});
        const CGFloat offset = 0.171 * curve.length();
        const CGFloat time = timeOf(curve, offset);
        EXPECT_NEAR(time, static_cast<CGFloat>(CurveTruth(curve.cubic()).timeAtLength(offset)),
                    1e-8);
        EXPECT_NEAR(curve.offsetAt(time).rawValue / offset, 1, 1e-8);
    }
}

TEST(CurveTimeAt, staysInsideOnHardCurves) {
    for (const auto& [says, cubic, trueLength] : test::hardCurves()) {
        SCOPED_TRACE(says);
        const PathCurve curve(cubic);
        for (const CGFloat part : {0.001, 0.171, 0.5, 0.999}) {
            for (const CGFloat sign : {-1.0, 1.0}) {
                const auto time = curve.timeAt(sign * part * curve.length());
                ASSERT_TRUE(time);
                EXPECT_GE(time->rawValue, 0);
                EXPECT_LE(time->rawValue, 1);
            }
        }
    }
}

RC_GTEST_PROP(CurveTimeAt, comesBackToTheOffsetItWasAskedFor, ()) {
    const auto degrees = rc::gen::inRange(1, 91);
    const CGFloat angle = *degrees * std::numbers::pi / 180;
    const CGFloat radius = *rc::gen::inRange(1, 1000);
    const CGFloat bend = 4.0 / 3 * std::tan(angle / 4) * radius;
    const CGPoint end{radius * std::cos(angle), radius * std::sin(angle)};
    const PathCurve arc({radius, 0}, {0, bend}, bend / radius * CGPoint{end.y, -end.x}, end);
    const CGFloat offset = *rc::gen::inRange(-1000, 1001) / 1000.0 * arc.length();
    const CGFloat walked = arc.offsetAt(timeOf(arc, offset)).rawValue;
    RC_ASSERT(std::abs(walked - (offset < 0 ? arc.length() + offset : offset)) < 1e-8 * radius);
}

/// One step after another: what has been walked is kept, and only the rest integrated anew.
std::optional<CGFloat> plainTimeAt(const CubicBezier& curve, CGFloat offset,
                                   std::optional<CGFloat> start) {
    const CGFloat begin = start ? *start : (offset < 0 ? 1 : 0);
    if (offset == 0)
        return begin;
    const CGFloat low = offset > 0 ? begin : 0, high = offset > 0 ? 1 : begin;
    const CGFloat length = curve.lengthBetween(low, high);
    const CGFloat beyond = std::abs(offset) - length;
    if (std::abs(beyond) < 1e-12)
        return offset > 0 ? 1 : 0;
    if (beyond > 1e-12)
        return std::nullopt;
    const CurveSpeed speed(curve);
    const auto at = [&speed](CGFloat t) { return speed.at(t); };
    CGFloat last = begin, walked = 0;
    const auto f = [&](CGFloat t) {
        const CGFloat points = std::ceil(std::abs(t - last) * 32);
        walked += scalar::integrate(at, last, t, static_cast<int>(std::clamp(points, 2.0, 16.0)));
        last = t;
        return walked - offset;
    };
    return scalar::findRoot(f, at, begin + offset / length, low, high, 32, 1e-12);
}

class CurveTimeAtOfKind : public ::testing::TestWithParam<CurveKind> {};

TEST_P(CurveTimeAtOfKind, walksAsThePlainSearchDoes) {
    RandomCurves random(GetParam());
    int found = 0;
    for (int i = 0; i < 1000; ++i) {
        const CubicBezier curve = random.curve();
        const CGFloat offset = random.between(-1.1, 1.1) * curve.length();
        const auto start = i % 2 == 0 ? std::nullopt : std::optional(random.between(0, 1));
        const auto time = curve.timeAt(offset, start);
        EXPECT_TRUE(areSame(time, plainTimeAt(curve, offset, start)));
        found += time.has_value();
    }
    EXPECT_GT(found, 200);
}

INSTANTIATE_TEST_SUITE_P(Curves, CurveTimeAtOfKind, ::testing::ValuesIn(test::finiteCurveKinds),
                         [](const auto& kind) { return nameOf(kind.param); });

}  // namespace
}  // namespace quorin
