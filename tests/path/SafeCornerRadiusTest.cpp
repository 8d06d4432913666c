#include <cmath>
#include <numbers>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/path/Curve.h"
#include "tests/TestSupport.h"
#include "tests/path/CurveTruth.h"
#include "tests/path/RandomCurves.h"

namespace quorin {
namespace {

using namespace test;

constexpr CGFloat turningLimit = 0.11080752372115311;

/// A quarter circle about the origin from +x to +y.
PathCurve quarterCircle(CGFloat radius) {
    const CGFloat handle = scalar::kappa * radius;
    return PathCurve({radius, 0}, {0, handle}, {handle, 0}, {0, radius});
}

TEST(SafeCornerRadius, isHalfOfAStraightCurve) {
    const PathCurve line({0, 0}, {}, {}, {30, 40});
    EXPECT_EQ(line.safeCornerRadius(true), 25);
    EXPECT_EQ(line.safeCornerRadius(false), 25);
    const PathCurve withHandles({0, 0}, {3, 4}, {-9, -12}, {30, 40});
    EXPECT_NEAR(withHandles.safeCornerRadius(true), 25, 1e-12);
    EXPECT_EQ(PathCurve({5, 5}, {}, {}, {5, 5}).safeCornerRadius(true), 0);
}

TEST(SafeCornerRadius, isHalfOfACurveThatHardlyTurnsUpToItsMiddle) {
    // An arch turns by about 4 · rise / width from end to middle.
    const auto arch = [](CGFloat rise) {
        return PathCurve({0, 0}, {30, rise}, {-30, rise}, {90, 0});
    };
    const PathCurve flat = arch(0.2);
    EXPECT_EQ(flat.safeCornerRadius(true), flat.length() * 0.5);
    EXPECT_EQ(flat.safeCornerRadius(false), flat.length() * 0.5);
    // 0.0099 and 0.0101 radians on either side of the threshold; the search never reaches the half.
    EXPECT_EQ(arch(30 * std::tan(0.0099)).safeCornerRadius(true),
              arch(30 * std::tan(0.0099)).length() * 0.5);
    EXPECT_LT(arch(30 * std::tan(0.0101)).safeCornerRadius(true),
              arch(30 * std::tan(0.0101)).length() * 0.5);
}

TEST(SafeCornerRadius, isWhatACircleTurnsByTheLimit) {
    for (const CGFloat radius : {20.0, 100.0, 1000.0}) {
        // The cubic's curvature is not quite the circle's; the search ends within 0.1.
        EXPECT_NEAR(quarterCircle(radius).safeCornerRadius(true), radius * turningLimit,
                    0.1 + radius * 2e-3);
        EXPECT_NEAR(quarterCircle(radius).safeCornerRadius(false), radius * turningLimit,
                    0.1 + radius * 2e-3);
    }
}

TEST(SafeCornerRadius, measuresFromTheEndThatIsAskedFor) {
    // Sharp at the start, all but straight at the end.
    const PathCurve hook({0, 0}, {0, 10}, {-100, 0}, {200, 10});
    EXPECT_LT(hook.safeCornerRadius(true), 5);
    EXPECT_GT(hook.safeCornerRadius(false), 80);
    const PathCurve back(hook.cubic().reversed());
    EXPECT_NEAR(back.safeCornerRadius(true), hook.safeCornerRadius(false), 1e-9);
    EXPECT_NEAR(back.safeCornerRadius(false), hook.safeCornerRadius(true), 1e-9);
}

TEST(SafeCornerRadius, stopsAtOnceWhenTheFirstStepIsNotAboveATenth) {
    // A quarter of the length is the first step: 0.1 at a length of 0.4.
    const CGFloat quarterLength = quarterCircle(1).length() / 4;
    const PathCurve small = quarterCircle(0.0999 / quarterLength);
    EXPECT_EQ(small.safeCornerRadius(true), small.length() * 0.5 - small.length() * 0.25);
    EXPECT_NEAR(small.safeCornerRadius(false), small.length() * 0.25, 1e-15);
    // Just above, one step is made: towards the end, as the curve has turned too far there.
    const PathCurve larger = quarterCircle(0.1001 / quarterLength);
    EXPECT_NEAR(larger.safeCornerRadius(true), larger.length() * 0.125, 1e-15);
    EXPECT_NEAR(larger.safeCornerRadius(false), larger.length() * 0.125, 1e-15);
}

TEST(SafeCornerRadius, halvesItsStepOnGridPlacesOfTheLength) {
    // Whatever the turns are, the place is an odd number of last steps, and the last step is the
    // first one of the halvings that is not above 0.1.
    const PathCurve curve({0, 0}, {20, 90}, {-30, 70}, {160, 10});
    const CGFloat length = curve.length();
    CGFloat lastStep = length / 4;
    while (lastStep > 0.1)
        lastStep /= 2;
    for (const bool fromBeginning : {true, false}) {
        const CGFloat steps = curve.safeCornerRadius(fromBeginning) / lastStep;
        EXPECT_NEAR(steps, std::round(steps), 1e-9);
        EXPECT_EQ(std::fmod(std::round(steps), 2), 1);
    }
}

TEST(SafeCornerRadius, answersForCurvesWithoutALength) {
    for (const CGFloat x : {INFINITY, NAN})
        EXPECT_FALSE(
            std::isfinite(PathCurve({0, 0}, {1, 2}, {3, 5}, {x, 0}).safeCornerRadius(true)));
    for (const CurveKind kind : {CurveKind::overflowing, CurveKind::notFinite}) {
        RandomCurves random(kind);
        for (int i = 0; i < 20; ++i) {
            const PathCurve curve(random.curve());
            curve.safeCornerRadius(true);
            curve.safeCornerRadius(false);
        }
    }
}

/// By how much the tangent has turned between a place and an end of the curve, in long double.
long double turnBetween(const CurveTruth& truth, long double length, long double end) {
    const auto a = truth.velocityAt(truth.timeAtLength(length));
    const auto b = truth.velocityAt(end);
    return std::abs(std::atan2(a.x * b.y - a.y * b.x, a.x * b.x + a.y * b.y));
}

TEST(SafeCornerRadius, liesWhereGentleCurvesHaveTurnedByTheLimit) {
    // Arches and waves whose direction moves one way up to the middle, so that there is one place.
    for (const CGFloat rise : {12.0, 25.0, 60.0, -40.0})
        for (const CGFloat sign : {1.0, -1.0}) {
            const PathCurve curve({0, 0}, {40, rise}, {-40, sign * rise}, {120, 0});
            const CurveTruth truth(curve.cubic());
            for (const bool fromBeginning : {true, false}) {
                const CGFloat room = curve.safeCornerRadius(fromBeginning);
                const auto turnAt = [&](long double r) {
                    return fromBeginning ? turnBetween(truth, r, 0)
                                         : turnBetween(truth, truth.length() - r, 1);
                };
                EXPECT_LT(turnAt(room - 0.2), turningLimit);
                EXPECT_GT(turnAt(room + 0.2), turningLimit);
            }
        }
}

}  // namespace
}  // namespace quorin
