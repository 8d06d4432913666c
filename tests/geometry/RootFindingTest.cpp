#include "quorin/geometry/RootFinding.h"

#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

#include "quorin/geometry/Scalar.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

using scalar::findRoot;
using testing::ElementsAre;

constexpr CGFloat one(CGFloat) { return 1; }
constexpr CGFloat same(CGFloat x) { return x; }

TEST(FindRoot, findsTheRootOfASmoothFunction) {
    const auto f = [](CGFloat x) { return x * x - 2; };
    const auto df = [](CGFloat x) { return 2 * x; };
    EXPECT_NEAR(findRoot(f, df, 1, 0, 2, 32, scalar::epsilon), std::numbers::sqrt2, 1e-15);
}

TEST(FindRoot, halvesTheBracketWhereNewtonWouldFlyOff) {
    // From 1.5 on, Newton's steps for the arctangent grow without end.
    const auto f = [](CGFloat x) { return std::atan(x); };
    const auto df = [](CGFloat x) { return 1 / (1 + x * x); };
    EXPECT_NEAR(findRoot(f, df, 3, -4, 5, 32, scalar::epsilon), 0, 1e-12);
    EXPECT_NEAR(findRoot(f, df, -3, -5, 4, 32, scalar::epsilon), 0, 1e-12);
}

TEST(FindRoot, treatsAStepOntoTheBoundOfTheBracketAsLeavingIt) {
    // Newton from 1 would be at the root 0 at once, but 0 is the bound, so 1 is halved ten times.
    EXPECT_EQ(findRoot(same, one, 1, 0, 2, 10, scalar::epsilon), std::ldexp(1, -10));
    EXPECT_EQ(findRoot(same, one, -1, -2, 0, 10, scalar::epsilon), -std::ldexp(1, -10));
}

TEST(FindRoot, endsWithTheLastStepWhenItIsShorterThanTheTolerance) {
    std::vector<CGFloat> asked;
    const auto f = [&](CGFloat x) {
        asked.push_back(x);
        return x - 1;
    };
    EXPECT_EQ(findRoot(f, one, 1.25, 0, 2, 32, 0.5), 1);
    EXPECT_THAT(asked, ElementsAre(1.25));
}

TEST(FindRoot, goesOnWhenTheStepIsExactlyTheTolerance) {
    std::vector<CGFloat> asked;
    const auto f = [&](CGFloat x) {
        asked.push_back(x);
        return x - 1;
    };
    EXPECT_EQ(findRoot(f, one, 1.5, 0, 2, 32, 0.5), 1);
    EXPECT_THAT(asked, ElementsAre(1.5, 1));
}

TEST(FindRoot, stopsWhereTheFunctionIsZeroThoughTheDerivativeVanishesToo) {
    const auto f = [](CGFloat x) { return x * x * x; };
    const auto df = [](CGFloat x) { return 3 * x * x; };
    EXPECT_EQ(findRoot(f, df, 0, -1, 1, 32, scalar::epsilon), 0);
}

TEST(FindRoot, halvesTheBracketWhereTheDerivativeVanishes) {
    const auto f = [](CGFloat x) { return x * x * x - 8; };
    const auto df = [](CGFloat x) { return 3 * x * x; };
    EXPECT_NEAR(findRoot(f, df, 0, -1, 5, 32, scalar::epsilon), 2, 1e-15);
}

TEST(FindRoot, answersTheStartWithinTheBracketWithoutIterations) {
    EXPECT_EQ(findRoot(same, one, 0.5, 0, 2, 0, scalar::epsilon), 0.5);
    EXPECT_EQ(findRoot(same, one, 3, 0, 2, 0, scalar::epsilon), 2);
    EXPECT_EQ(findRoot(same, one, -3, 0, 2, 0, scalar::epsilon), 0);
}

TEST(FindRoot, staysInTheBracketWhenTheRootLiesOutside) {
    const auto f = [](CGFloat x) { return x - 10; };
    const CGFloat root = findRoot(f, one, 1, 0, 2, 60, scalar::epsilon);
    EXPECT_NEAR(root, 2, 1e-12);
    EXPECT_LE(root, 2);
}

TEST(FindRoot, makesNoMoreThanTheGivenIterations) {
    int asked = 0;
    const auto f = [&](CGFloat x) {
        ++asked;
        return std::exp(x) - 1e6;
    };
    findRoot(
        f, [](CGFloat x) { return std::exp(x); }, 0, 0, 100, 3, scalar::epsilon);
    EXPECT_EQ(asked, 3);
}

TEST(FindRootDeathTest, stopsTheProcessForANegativeNumberOfIterations) {
    EXPECT_DEATH(findRoot(same, one, 0, 0, 1, -1, 1e-12), "root finding in -1 iterations");
}

RC_GTEST_PROP(FindRoot, invertsEveryIncreasingCubic, ()) {
    const CGFloat root = *rc::gen::inRange(-1000, 1001) / 1000.0;
    const CGFloat slope = *rc::gen::inRange(1, 1000) / 100.0;
    const CGFloat start = *rc::gen::inRange(-2000, 2001) / 1000.0;
    const auto f = [=](CGFloat x) {
        const CGFloat d = x - root;
        return d * (slope + d * d);
    };
    const auto df = [=](CGFloat x) {
        const CGFloat d = x - root;
        return slope + 3 * d * d;
    };
    RC_ASSERT(std::abs(findRoot(f, df, start, -2, 2, 64, scalar::epsilon) - root) < 1e-12);
}

}  // namespace
}  // namespace quorin
