#include <cmath>
#include <limits>
#include <optional>
#include <set>
#include <vector>

#include "quorin/geometry/Polynomial.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::DoubleEq;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pointwise;
using testing::SizeIs;

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat notANumber = std::numeric_limits<CGFloat>::quiet_NaN();

/// Fails where every x is a root.
Roots solve(CGFloat a, CGFloat b, CGFloat c, std::optional<CGFloat> min = std::nullopt,
            std::optional<CGFloat> max = std::nullopt) {
    return scalar::solveQuadratic(a, b, c, min, max).value();
}

TEST(SolveQuadratic, givesEachRootOnceLargerMagnitudeFirst) {
    struct Row {
        const char* says;
        CGFloat a, b, c;
        std::vector<CGFloat> roots;
    };
    const Row table[] = {
        {"(x - 1)(x - 2)", 1, -3, 2, {2, 1}},
        {"(x + 1)(x + 2)", 1, 3, 2, {-2, -1}},
        {"2(x + 1)(x - 3)", 2, -4, -6, {3, -1}},
        {"x² - 4", 1, 0, -4, {2, -2}},
        {"-x² + 4, where the sign goes with c / R", -1, 0, 4, {-2, 2}},
        {"x(x - 5)", 1, -5, 0, {5, 0}},
        {"x²", 1, 0, 0, {0}},
        {"(x - 3)² touches zero", 1, -6, 9, {3}},
        {"x² + 1 has none", 1, 0, 1, {}},
        {"x² + x + 1 has none", 1, 1, 1, {}},
        {"the textbook formula loses a quarter of the small root", 1, -1e8, 1, {1e8, 1e-8}},
        {"(x - 2³⁶)(x - 1) / 2³⁶", 0x1p-36, -1 - 0x1p-36, 1, {0x1p36, 1}},
    };
    for (const auto& [says, a, b, c, expected] : table) {
        SCOPED_TRACE(says);
        EXPECT_THAT(solve(a, b, c), Pointwise(DoubleEq(), expected));
    }
}

TEST(SolveQuadratic, answersNothingWhenEveryCoefficientIsNegligible) {
    EXPECT_EQ(scalar::solveQuadratic(0, 0, 0), std::nullopt);
    EXPECT_EQ(scalar::solveQuadratic(-0.0, 9.99e-13, -9.99e-13, 0, 1), std::nullopt);
}

TEST(SolveQuadratic, hasNoRootsWhenOnlyTheConstantCounts) {
    EXPECT_THAT(solve(0, 0, 1), IsEmpty());
    EXPECT_THAT(solve(9e-13, -9e-13, 1e-12), IsEmpty());
}

TEST(SolveQuadratic, dropsALeadingCoefficientBelowEpsilon) {
    EXPECT_THAT(solve(0, 2, -3), ElementsAre(1.5));
    EXPECT_THAT(solve(9.99e-13, 2, -3), ElementsAre(1.5));
    EXPECT_THAT(solve(1e-12, 2, -3), SizeIs(2));
    EXPECT_THAT(solve(0, 1e-12, -1), ElementsAre(DoubleEq(1e12)));
}

TEST(SolveQuadratic, filtersAndClampsTheRootOfALineToo) {
    EXPECT_THAT(solve(0, 2, -3, 0, 1), IsEmpty());
    EXPECT_THAT(solve(0, 1, 5e-13, 0, 1), ElementsAre(0));
}

TEST(SolveQuadratic, keepsTheDiscriminantWhereItsProductsNearlyCancel) {
    // b² - a·c is 1.890625, but both products round to the same double.
    EXPECT_THAT(solve(94906265.625, -2 * 94906267.0, 94906268.375),
                ElementsAre(DoubleEq(1.0000000289759583510), 1));
}

TEST(SolveQuadratic, countsADiscriminantWithinMachineEpsilonOfZeroAsADoubleRoot) {
    const CGFloat bit = std::ldexp(1, -53);  // 1.11e-16, just below the tolerance
    EXPECT_THAT(solve(1, -1, 0.25 + 2 * bit), IsEmpty());
    EXPECT_THAT(solve(1, -1, 0.25), ElementsAre(0.5));
    // c / R is another number than R / a, so the double root comes as two.
    EXPECT_THAT(solve(1, -1, 0.25 + bit), ElementsAre(0.5, 0.5 + 2 * bit));
    EXPECT_THAT(solve(1, 0, bit), ElementsAre(bit, -bit));
}

TEST(SolveQuadratic, rescalesCoefficientsThatHideTheDiscriminant) {
    EXPECT_THAT(solve(1e-9, 0, 1e-9), IsEmpty());
    EXPECT_THAT(solve(9.9e-9, 9.9e-9, 9.9e-9), IsEmpty());
    EXPECT_THAT(solve(1e-9, -3e-9, 2e-9), Pointwise(DoubleEq(), {2.0, 1.0}));
    EXPECT_THAT(solve(1e12, -2e12, 1e12), ElementsAre(1));
}

TEST(SolveQuadratic, rescalesByTheLargestMagnitudeWhicheverCoefficientHasIt) {
    EXPECT_THAT(solve(-1e-9, 1e-12, -1e-12), IsEmpty());
    EXPECT_THAT(solve(2e-12, 1e-12, 3e-9), IsEmpty());
    EXPECT_THAT(solve(-2e-12, 1e-12, -3e-9), IsEmpty());
}

TEST(SolveQuadratic, rescalesByTheNearestPowerOfTwo) {
    // By 2³⁹ both times. The discriminant becomes -0.75·2⁻⁵³, a zero, and then -1.25·2⁻⁵³.
    const CGFloat root = 0x1p-52 / 1.5;
    EXPECT_THAT(solve(1.5 * 0x1p-40, 0, 0x1p-92), ElementsAre(root, -root));
    EXPECT_THAT(solve(1.25 * 0x1p-39, 0, 0x1p-92), IsEmpty());
}

TEST(SolveQuadratic, leavesCoefficientsFromOneHundredMillionthUpAsTheyAre) {
    // The discriminant, -1e-16, counts as zero here, and the roots become c / a and -c / a.
    EXPECT_THAT(solve(1e-8, 0, 1e-8), ElementsAre(1, -1));
}

TEST(SolveQuadratic, findsRootsWhoseDiscriminantOverflows) {
    EXPECT_THAT(solve(1, 1e200, 1), ElementsAre(DoubleEq(-1e200), DoubleEq(-1e-200)));
    EXPECT_THAT(solve(1e300, -3e300, 2e300), Pointwise(DoubleEq(), {2.0, 1.0}));
    EXPECT_THAT(solve(1e308, 0, 1e308), IsEmpty());
}

TEST(SolveQuadratic, dropsARootThatIsTooLargeForADouble) {
    EXPECT_THAT(solve(1e-10, 1e300, 1), ElementsAre(DoubleEq(-1e-300)));
    EXPECT_THAT(solve(0, 1e-12, 1e300), IsEmpty());
}

TEST(SolveQuadratic, hasNoRootsWhenACoefficientIsNotFinite) {
    for (const CGFloat bad : {notANumber, infinity, -infinity}) {
        EXPECT_THAT(solve(bad, 1, -1), IsEmpty());
        EXPECT_THAT(solve(1, bad, -1), IsEmpty());
        EXPECT_THAT(solve(1, 1, bad), IsEmpty());
        EXPECT_THAT(solve(0, bad, 1), IsEmpty());
        EXPECT_THAT(solve(0, 1, bad), IsEmpty());
        EXPECT_THAT(solve(0, 0, bad), IsEmpty());
    }
}

TEST(SolveQuadratic, keepsRootsInsideTheBounds) {
    EXPECT_THAT(solve(1, -3, 2, 0, 1.5), ElementsAre(1));
    EXPECT_THAT(solve(1, -3, 2, 1.5, 3), ElementsAre(2));
    EXPECT_THAT(solve(1, -3, 2, 1, 2), ElementsAre(2, 1));
    EXPECT_THAT(solve(1, -3, 2, 3, 4), IsEmpty());
    EXPECT_THAT(solve(1, -3, 2, 4, 0), IsEmpty());
}

TEST(SolveQuadratic, obeysOneBoundAlone) {
    EXPECT_THAT(solve(1, -3, 2, 1.5), ElementsAre(2));
    EXPECT_THAT(solve(1, -3, 2, std::nullopt, 1.5), ElementsAre(1));
    EXPECT_THAT(solve(1, -3, 2, -infinity, infinity), ElementsAre(2, 1));
}

TEST(SolveQuadratic, movesARootWithinTheMarginOntoItsBound) {
    EXPECT_THAT(solve(0, 1, 9.99e-13, 0, 1), ElementsAre(0));
    EXPECT_THAT(solve(0, 1, -1 - 9e-13, 0, 1), ElementsAre(1));
}

TEST(SolveQuadratic, excludesTheEndsOfTheMargin) {
    EXPECT_THAT(solve(0, 1, 1e-12, 0, 1), IsEmpty());
    EXPECT_THAT(solve(0, 1, -1e-12, -1, 0), IsEmpty());
    EXPECT_THAT(solve(0, 1, -1 - 1e-12, 0, 1), IsEmpty());
}

TEST(SolveQuadratic, keepsARootThatEqualsALargeBound) {
    EXPECT_THAT(solve(0, 1, -1e6, 1e6, 2e6), ElementsAre(1e6));
    EXPECT_THAT(solve(0, 1, -2e6, 1e6, 2e6), ElementsAre(2e6));
    EXPECT_THAT(solve(1, -3e6, 2e12, 1e6, 2e6), ElementsAre(2e6, 1e6));
}

TEST(SolveQuadratic, comparesTheRootsBeforeClampingThem) {
    EXPECT_THAT(solve(1, 5e-13, 0, 0, 1), ElementsAre(0, 0));
}

TEST(SolveQuadratic, findsNothingBeyondABoundThatIsNotANumber) {
    EXPECT_THAT(solve(1, -3, 2, notANumber, 3), IsEmpty());
    EXPECT_THAT(solve(1, -3, 2, 0, notANumber), IsEmpty());
}

TEST(SolveQuadratic, findsTheExtremaOfAFlatCurve) {
    const auto extrema = [](CGFloat p0, CGFloat p1, CGFloat p2, CGFloat p3) {
        return scalar::solveQuadratic(3 * (p3 - p0 + 3 * (p1 - p2)), 6 * (p0 - 2 * p1 + p2),
                                      3 * (p1 - p0), 0, 1);
    };
    EXPECT_THAT(
        extrema(10, 9.99, 20.01, 20).value(),
        ElementsAre(DoubleNear(0.9995012467586639, 1e-15), DoubleNear(0.0004987532413361, 1e-15)));
    EXPECT_THAT(extrema(10, 18, 12, 20).value(), IsEmpty());
    EXPECT_THAT(extrema(10, 10, 20, 20).value(), ElementsAre(1, 0));
    EXPECT_EQ(extrema(10, 10, 10, 10), std::nullopt);
}

RC_GTEST_PROP(SolveQuadratic, findsTheRootsItsPolynomialWasBuiltFrom, ()) {
    const auto wholeNumber = rc::gen::inRange(-1000, 1001);  // small enough to stay exact
    const CGFloat first = *wholeNumber;
    const CGFloat second = *wholeNumber;
    const Roots roots = solve(1, -(first + second), first * second);
    RC_ASSERT(std::set(roots.begin(), roots.end()) == (std::set{first, second}));
    RC_ASSERT(roots.size() == 1 || std::abs(roots[0]) >= std::abs(roots[1]));
}

RC_GTEST_PROP(SolveQuadratic, boundedGivesTheUnboundedRootsThatLieInside, ()) {
    const auto number = rc::gen::map(rc::gen::inRange(-4096, 4097), [](int n) { return n / 64.0; });
    const CGFloat a = *number, b = *number, c = *number, min = *number, max = *number;
    const auto all = scalar::solveQuadratic(a, b, c);
    const auto some = scalar::solveQuadratic(a, b, c, min, max);
    RC_ASSERT(all.has_value() == some.has_value());
    std::vector<CGFloat> expected;
    for (const CGFloat root : all.value_or(Roots()))
        if (root > min - 1e-12 && root < max + 1e-12)
            expected.push_back(root < min ? min : root > max ? max : root);
    const Roots found = some.value_or(Roots());
    RC_ASSERT(std::vector(found.begin(), found.end()) == expected);
}

}  // namespace
}  // namespace quorin
