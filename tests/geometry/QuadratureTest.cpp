#include "quorin/geometry/Quadrature.h"

#include <cmath>
#include <numbers>
#include <utility>
#include <vector>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using scalar::integrate;

struct Node {
    long double place, weight;
};

/// The Legendre polynomial of degree n at x, and its derivative, by the three-term recurrence.
std::pair<long double, long double> legendre(int n, long double x) {
    long double before = 1, value = x;
    for (int k = 2; k <= n; ++k) {
        const long double next = ((2 * k - 1) * x * value - (k - 1) * before) / k;
        before = value;
        value = next;
    }
    return {value, n * (x * value - before) / (x * x - 1)};
}

/// The non-negative half of the n-point rule, ascending, by Newton's method.
std::vector<Node> computedRule(int n) {
    std::vector<Node> rule;
    for (int k = (n + 1) / 2; k >= 1; --k) {
        long double x = std::cos(std::numbers::pi_v<long double> * (k - 0.25L) / (n + 0.5L));
        for (int i = 0; i < 10; ++i) {
            const auto [value, slope] = legendre(n, x);
            x -= value / slope;
        }
        const long double slope = legendre(n, x).second;
        rule.push_back({x, 2 / ((1 - x * x) * slope * slope)});
    }
    return rule;
}

/// How far `rounded` is off: half a unit for the nearest double, and a hundredth more for what
/// long double itself may be off.
long double unitsInLastPlace(CGFloat rounded, long double exact) {
    const CGFloat unit = std::nextafter(rounded, 2) - rounded;
    return std::abs(rounded - exact) / unit;
}

CGFloat power(CGFloat x, int exponent) {
    CGFloat result = 1;
    for (int i = 0; i < exponent; ++i)
        result *= x;
    return result;
}

TEST(Quadrature, hasTheNodesAndWeightsOfEveryNumberOfPoints) {
    for (int n = 2; n <= 16; ++n) {
        SCOPED_TRACE(n);
        const std::vector<Node> expected = computedRule(n);
        const auto nodes = scalar::gaussLegendreNodes(n);
        const auto weights = scalar::gaussLegendreWeights(n);
        ASSERT_EQ(nodes.size(), expected.size());
        ASSERT_EQ(weights.size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_LT(unitsInLastPlace(nodes[i], expected[i].place), 0.51);
            EXPECT_LT(unitsInLastPlace(weights[i], expected[i].weight), 0.51);
        }
    }
}

TEST(Quadrature, startsTheNodesOfAnOddRuleAtTheCentre) {
    EXPECT_THAT(scalar::gaussLegendreNodes(3), testing::ElementsAre(0, 0.7745966692414834));
    EXPECT_EQ(scalar::gaussLegendreNodes(15).front(), 0);
    EXPECT_GT(scalar::gaussLegendreNodes(16).front(), 0);
}

TEST(Quadrature, isExactForPolynomialsOfDegreeTwiceThePointsLessOne) {
    const CGFloat a = -0.5, b = 1.25;
    for (int n = 2; n <= 16; ++n)
        for (int degree = 0; degree <= 2 * n - 1; ++degree) {
            SCOPED_TRACE(testing::Message() << n << " points, degree " << degree);
            const CGFloat expected = (power(b, degree + 1) - power(a, degree + 1)) / (degree + 1);
            EXPECT_NEAR(integrate([=](CGFloat x) { return power(x, degree); }, a, b, n), expected,
                        1e-14 * (1 + expected));
        }
}

TEST(Quadrature, isNoLongerExactOneDegreeAbove) {
    for (int n = 2; n <= 5; ++n) {
        SCOPED_TRACE(n);
        const CGFloat exact = 2.0 / (2 * n + 1);
        const CGFloat measured = integrate([=](CGFloat x) { return power(x, 2 * n); }, -1, 1, n);
        EXPECT_GT(std::abs(measured - exact), 1e-5);
    }
}

TEST(Quadrature, integratesSmoothFunctionsToTheLastDigits) {
    EXPECT_NEAR(integrate([](CGFloat x) { return std::exp(x); }, 0, 1, 16), std::numbers::e - 1,
                1e-15);
    EXPECT_NEAR(integrate([](CGFloat x) { return std::sin(x); }, 0, std::numbers::pi, 15), 2,
                1e-14);
}

TEST(Quadrature, isZeroBelowTwoPoints) {
    const auto one = [](CGFloat) { return 1.0; };
    EXPECT_EQ(integrate(one, 0, 1, 1), 0);
    EXPECT_EQ(integrate(one, 0, 1, 0), 0);
    EXPECT_EQ(integrate(one, 0, 1, -3), 0);
}

TEST(Quadrature, asksTheFunctionOncePerPoint) {
    for (int n = 2; n <= 16; ++n) {
        int asked = 0;
        integrate([&](CGFloat) { return ++asked; }, 0, 1, n);
        EXPECT_EQ(asked, n);
    }
}

TEST(QuadratureDeathTest, stopsTheProcessAboveSixteenPoints) {
    const auto one = [](CGFloat) { return 1.0; };
    EXPECT_DEATH(integrate(one, 0, 1, 17), "quadrature with 17 points, not 2 to 16");
    EXPECT_DEATH(scalar::gaussLegendreNodes(1), "quadrature with 1 points");
}

RC_GTEST_PROP(Quadrature, changesSignWithTheDirection, (int seedA, int seedB)) {
    const CGFloat a = seedA % 100, b = seedB % 100;
    const int n = *rc::gen::inRange(2, 17);
    const auto f = [](CGFloat x) { return x * x * x - 7 * x + 3; };
    RC_ASSERT(std::abs(integrate(f, a, b, n) + integrate(f, b, a, n)) <
              1e-14 * (1e9 + std::abs(integrate(f, a, b, n))));
}

}  // namespace
}  // namespace quorin
