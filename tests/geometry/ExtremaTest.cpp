#include "quorin/geometry/Extrema.h"

#include <algorithm>
#include <limits>
#include <vector>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pointwise;

std::vector<CGFloat> turns(const TurnTimes& times, int axis) {
    std::vector<CGFloat> result;
    for (const CGFloat time : {times.first[axis], times.second[axis]})
        if (TurnTimes::isTurn(time))
            result.push_back(time);
    std::sort(result.begin(), result.end());
    return result;
}

/// The turns of a coordinate with these controls, which has to be the same in x and in y.
std::vector<CGFloat> turns(CGFloat p1, CGFloat c1, CGFloat c2, CGFloat p2) {
    const auto inX = turns(turnTimes({p1, 1}, {c1, 2}, {c2, 3}, {p2, 4}), 0);
    const auto inY = turns(turnTimes({0, p1}, {9, c1}, {-9, c2}, {0, p2}), 1);
    EXPECT_EQ(inX, inY);
    return inX;
}

std::vector<CGFloat> turns(CGFloat p1, CGFloat c, CGFloat p2) {
    const auto inX = turns(turnTimes({p1, 1}, {c, 2}, {p2, 3}), 0);
    const auto inY = turns(turnTimes({0, p1}, {9, c}, {1, p2}), 1);
    EXPECT_EQ(inX, inY);
    return inX;
}

TEST(TurnTimes, areThoseOfHardCubics) {
    EXPECT_THAT(
        turns(10, 9.99, 20.01, 20),
        Pointwise(DoubleNear(1e-13), (std::vector<CGFloat>{.0004987532413361, .9995012467586639})));
    EXPECT_THAT(turns(10, 18, 12, 20), IsEmpty());
    EXPECT_THAT(turns(10, 10, 20, 20), IsEmpty()) << "it starts and ends flat";
    EXPECT_THAT(turns(10, 10, 10, 10), IsEmpty());
}

TEST(TurnTimes, findTheSingleTurnOfAQuadraticShape) {
    EXPECT_THAT(turns(0, 1, 1, 0), ElementsAre(0.5));
    EXPECT_THAT(turns(0, 2, 0), ElementsAre(0.5));
    EXPECT_THAT(turns(0, 3, 2), ElementsAre(0.75));
}

TEST(TurnTimes, leaveOutAPauseWithoutATurn) {
    // Derivative 3·(1 − 2t)².
    EXPECT_THAT(turns(0, 1, 0, 1), IsEmpty());
}

TEST(TurnTimes, areNoneOnAMonotoneCurve) {
    EXPECT_THAT(turns(0, 1, 2, 3), IsEmpty());
    EXPECT_THAT(turns(5, 5, 1, 0), IsEmpty());
    EXPECT_THAT(turns(0, 1, 2), IsEmpty());
    EXPECT_THAT(turns(3, 3, 3), IsEmpty());
}

TEST(TurnTimes, keepBothRootsWhenTheLeadingCoefficientNearlyVanishes) {
    // 1e-9·(1 − t)² + 2·t·(1 − t) − t²: the root near −5e-10 is outside, that near 2/3 inside.
    EXPECT_THAT(turns(0, 1e-9, 1 + 1e-9, 1e-9),
                Pointwise(DoubleNear(1e-9), (std::vector<CGFloat>{2.0 / 3})));
}

TEST(TurnTimes, doNotDependOnTheUnit) {
    for (const CGFloat unit : {1e-120, 1e120, 1e200, 1e307})
        EXPECT_THAT(turns(0, 3 * unit, -3 * unit, unit),
                    Pointwise(DoubleNear(1e-12), turns(0, 3, -3, 1)))
            << unit;
    for (const CGFloat unit : {1e-120, 1e200, 1.7e308})
        EXPECT_THAT(turns(unit, -unit, unit), ElementsAre(0.5)) << unit;
}

TEST(TurnTimes, areNoneWhereSomethingIsNotFinite) {
    for (const CGFloat wild :
         {std::numeric_limits<CGFloat>::infinity(), -std::numeric_limits<CGFloat>::infinity(),
          std::numeric_limits<CGFloat>::quiet_NaN()}) {
        EXPECT_THAT(turns(wild, 1, -1, 0), IsEmpty());
        EXPECT_THAT(turns(0, wild, -1, 0), IsEmpty());
        EXPECT_THAT(turns(0, 1, wild, wild), IsEmpty());
        EXPECT_THAT(turns(0, wild, 1), IsEmpty());
    }
}

RC_GTEST_PROP(TurnTimes, areWhereTheDerivativeChangesItsSign, ()) {
    const auto whole = [] { return static_cast<CGFloat>(*rc::gen::inRange(-50, 51)); };
    const CGFloat p1 = whole(), c1 = whole(), c2 = whole(), p2 = whole();
    const auto derivative = [&](long double t) {
        const long double s = 1 - t;
        return (c1 - p1) * s * s + 2 * (c2 - c1) * s * t + (p2 - c2) * t * t;
    };
    const auto found = turns(p1, c1, c2, p2);
    CGFloat from = 0;
    for (const CGFloat turn : found) {
        // Between neighbouring turns the derivative keeps its sign, at each it changes.
        const long double before = derivative((from + turn) / 2);
        const CGFloat next = turn == found.back() ? 1 : found.back();
        const long double after = derivative((turn + next) / 2);
        RC_ASSERT(before * after < 0);
        from = turn;
    }
    if (found.empty())
        RC_ASSERT(derivative(0.25L) * derivative(0.75L) >= 0);
}

}  // namespace
}  // namespace quorin
