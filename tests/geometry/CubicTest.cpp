#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <optional>
#include <utility>
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
Roots solve(CGFloat a, CGFloat b, CGFloat c, CGFloat d, std::optional<CGFloat> min = std::nullopt,
            std::optional<CGFloat> max = std::nullopt) {
    return scalar::solveCubic(a, b, c, d, min, max).value();
}

std::vector<CGFloat> asVector(const Roots& roots) { return {roots.begin(), roots.end()}; }

TEST(SolveCubic, givesEachRootOnceInAscendingOrder) {
    struct Row {
        const char* says;
        CGFloat a, b, c, d;
        std::vector<CGFloat> roots;
    };
    const Row table[] = {
        {"(x - 1)(x - 2)(x - 3)", 1, -6, 11, -6, {1, 2, 3}},
        {"-2(x - 1)(x - 2)(x - 3)", -2, 12, -22, 12, {1, 2, 3}},
        {"(x + 4)(x - 1)(x - 64)", 1, -61, -196, 256, {-4, 1, 64}},
        {"x³ - x", 1, 0, -1, 0, {-1, 0, 1}},
        {"x³ + x crosses once", 1, 0, 1, 0, {0}},
        {"(x - 2)(x² + 1) crosses once", 1, -2, 1, -2, {2}},
        {"x³ - 27", 1, 0, 0, -27, {3}},
        {"(x - 1)²(x + 2) touches zero from above", 1, 0, -3, 2, {-2, 1}},
        {"(x + 1)²(x - 2) touches zero from below", 1, 0, -3, -2, {-1, 2}},
        {"-(x - 1)²(x + 2)", -1, 0, 3, -2, {-2, 1}},
        {"x²(x - 1)", 1, -1, 0, 0, {0, 1}},
        {"x(x - 1)²", 1, -2, 1, 0, {0, 1}},
        {"x(x² - 2x + 1 + 2⁻⁴⁰) has only one", 1, -2, 1 + 0x1p-40, 0, {0}},
        {"(x - 1)³", 1, -3, 3, -1, {1}},
        {"(x + 7)³", 1, 21, 147, 343, {-7}},
        {"x³", 1, 0, 0, 0, {0}},
    };
    for (const auto& [says, a, b, c, d, expected] : table) {
        SCOPED_TRACE(says);
        EXPECT_THAT(solve(a, b, c, d), Pointwise(DoubleNear(1e-14), expected));
    }
}

TEST(SolveCubic, answersNothingWhenEveryCoefficientIsNegligible) {
    EXPECT_EQ(scalar::solveCubic(0, 0, 0, 0), std::nullopt);
    EXPECT_EQ(scalar::solveCubic(9e-13, -9e-13, 9e-13, -9e-13, 0, 1), std::nullopt);
    EXPECT_THAT(solve(0, 0, 0, 1e-12), IsEmpty());
}

TEST(SolveCubic, leavesANegligibleLeadingCoefficientToTheQuadratic) {
    EXPECT_THAT(solve(0, 1, -3, 2), ElementsAre(2, 1));
    EXPECT_THAT(solve(-9.99e-13, 1, -3, 2), ElementsAre(2, 1));
    EXPECT_THAT(solve(9.99e-13, 1, -3, 2, 0, 1.5), ElementsAre(1));
    EXPECT_THAT(solve(0, 0, 2, -3), ElementsAre(1.5));
    EXPECT_THAT(solve(1e-12, 1, -3, 2), SizeIs(3));
}

TEST(SolveCubic, keepsRootsInsideTheBounds) {
    EXPECT_THAT(solve(1, -6, 11, -6, 0, 1.5), ElementsAre(DoubleEq(1)));
    EXPECT_THAT(solve(1, -6, 11, -6, 1.5, 2.5), ElementsAre(DoubleEq(2)));
    EXPECT_THAT(solve(1, -6, 11, -6, 1, 3), Pointwise(DoubleNear(1e-14), {1.0, 2.0, 3.0}));
    EXPECT_THAT(solve(1, -6, 11, -6, 2, 2), ElementsAre(2));
    EXPECT_THAT(solve(1, -6, 11, -6, 1.1, 1.9), IsEmpty());
    EXPECT_THAT(solve(1, -6, 11, -6, 4, 9), IsEmpty());
    EXPECT_THAT(solve(1, -6, 11, -6, 3, 1), IsEmpty());
}

TEST(SolveCubic, obeysOneBoundAlone) {
    EXPECT_THAT(solve(1, -6, 11, -6, 1.5), Pointwise(DoubleNear(1e-14), {2.0, 3.0}));
    EXPECT_THAT(solve(1, -6, 11, -6, std::nullopt, 2.5), Pointwise(DoubleNear(1e-14), {1.0, 2.0}));
    EXPECT_THAT(solve(1, -6, 11, -6, -infinity, 1.5), ElementsAre(DoubleEq(1)));
}

TEST(SolveCubic, movesARootWithinTheMarginOntoItsBound) {
    EXPECT_THAT(solve(1, 0, 1, 9e-13, 0, 1), ElementsAre(0));
    EXPECT_THAT(solve(1, 0, 1, -2 - 3.6e-12, 0, 1), ElementsAre(1));  // the root is 1 + 9e-13
    EXPECT_THAT(solve(1, 0, 1, 1.1e-12, 0, 1), IsEmpty());
    EXPECT_THAT(solve(1, 0, 1, -2 - 4.4e-12, 0, 1), IsEmpty());
}

TEST(SolveCubic, keepsARootThatEqualsALargeBound) {
    // (x - 10⁶)(x - 2·10⁶)(x + 1)
    EXPECT_THAT(solve(1, -2999999, 1999997e6, 2e12, 1e6, 2e6), ElementsAre(1e6, 2e6));
    EXPECT_THAT(solve(1, -2999999, 1999997e6, 2e12, 1e6, 1e6), ElementsAre(1e6));
    EXPECT_THAT(solve(1, 0, 0, -1e18 - 128, 1e6, 1e6), ElementsAre(1e6));  // 1e6 + 4e-11, rounded
    EXPECT_THAT(solve(1, 0, 0, -1e18 + 128, 1e6, 1e6), ElementsAre(1e6));  // 1e6 - 4e-11, rounded
}

TEST(SolveCubic, comparesTheRootsBeforeClampingThem) {
    EXPECT_THAT(solve(1, 1 + 5e-13, 5e-13, 0, 0, 1), ElementsAre(0, 0));
}

TEST(SolveCubic, givesZeroExactlyWhereTheConstantVanishes) {
    EXPECT_THAT(solve(3, -7, 0.7, 0, 0, 0.05), ElementsAre(0));
    EXPECT_THAT(solve(3, 7, 0.7, 0, 0, 1), ElementsAre(0));
}

TEST(SolveCubic, findsNothingBeyondABoundThatIsNotANumber) {
    EXPECT_THAT(solve(1, -6, 11, -6, notANumber, 9), IsEmpty());
    EXPECT_THAT(solve(1, -6, 11, -6, 0, notANumber), IsEmpty());
    EXPECT_THAT(solve(1, -6, 11, 0, 0, notANumber), IsEmpty());
}

TEST(SolveCubic, hasNoRootsWhenACoefficientIsNotFinite) {
    for (const CGFloat bad : {notANumber, infinity, -infinity}) {
        EXPECT_THAT(solve(bad, 1, 1, -1), IsEmpty());
        EXPECT_THAT(solve(1, bad, 1, -1), IsEmpty());
        EXPECT_THAT(solve(1, 1, bad, -1), IsEmpty());
        EXPECT_THAT(solve(1, 1, 1, bad), IsEmpty());
        EXPECT_THAT(solve(0, bad, 6e-154, -2.2e304), IsEmpty());
    }
}

TEST(SolveCubic, crossesTheMiddleOfASymmetricCurve) {
    const auto crossings = [](CGFloat p0, CGFloat p1, CGFloat p2, CGFloat p3) {
        return asVector(
            solve(p3 - p0 + 3 * (p1 - p2), 3 * (p0 - 2 * p1 + p2), 3 * (p1 - p0), p0, 0, 1));
    };
    EXPECT_THAT(crossings(0, 2, -2, 0), Pointwise(DoubleNear(1e-15), {0.0, 0.5, 1.0}));
    EXPECT_THAT(crossings(-1, -1, 1, 1), Pointwise(DoubleNear(1e-15), {0.5}));
    EXPECT_THAT(crossings(1, 1, 1, 0.5), IsEmpty());
}

TEST(SolveCubic, missesALineThatOnlyItsTinyLeadingCoefficientWouldReach) {
    // The control points of one curve, measured from the line (385, 146) to (438, 243).
    const auto side = [](CGFloat x, CGFloat y) { return 53 * (y - 146) - 97 * (x - 385); };
    const CGFloat p0 = side(452, 240), p1 = side(462.667, 78.667);
    const CGFloat p2 = side(480.667, -146.333), p3 = side(506, -435);
    const CGFloat a = p3 - p0 + 3 * (p1 - p2), b = 3 * (p0 - 2 * p1 + p2), c = 3 * (p1 - p0);
    EXPECT_THAT(solve(a, b, c, p0, 0, 1), IsEmpty());
    EXPECT_THAT(asVector(solve(a, b, c, p0, -10, 10)),
                Pointwise(DoubleNear(1e-11), {-2.292103063422, -0.05399689810156}));
}

TEST(SolveCubic, staysAccurateWithATinyLeadingCoefficient) {
    const Roots near = solve(-0.00010129655, 186392.8125, 0, -170009.8125);
    ASSERT_THAT(near, SizeIs(3));
    EXPECT_NEAR(near[0], -0.9550418731307, 1e-13);
    EXPECT_NEAR(near[1], 0.9550418736264, 1e-13);
    EXPECT_NEAR(near[2], 1840070688.4884, 1e-4);

    const Roots far = solve(9.5367431640625e-07, 1182.1614990234375, 0, -1180.0950927734375);
    ASSERT_THAT(far, SizeIs(3));
    EXPECT_NEAR(far[0], -1239586176, 1);
    EXPECT_NEAR(far[1], -0.9991256232317, 1e-13);
    EXPECT_NEAR(far[2], 0.9991256224263, 1e-13);
}

TEST(SolveCubic, staysAccurateWithAThirdRootFarAway) {
    // (x - 1/4)(x - 3/4)(x - 2⁴⁶), 2⁴⁶ being about 7e13, and every coefficient exact
    EXPECT_THAT(solve(1, -1 - 0x1p46, 0x1p46 + 0.1875, -0.1875 * 0x1p46),
                Pointwise(DoubleEq(), {0.25, 0.75, 0x1p46}));
    EXPECT_THAT(solve(1, -1 - 0x1p46, 0x1p46 + 0.1875, -0.1875 * 0x1p46, 0, 1),
                Pointwise(DoubleEq(), {0.25, 0.75}));
}

TEST(SolveCubic, tellsAPairOfRootsFromNoneByOneBitOfADouble) {
    EXPECT_THAT(asVector(solve(1, 4, 5, 2 - 1e-12)),
                Pointwise(DoubleNear(1e-12), {-1.999999999999, -1.000001000045, -0.999998999956}));
    EXPECT_THAT(solve(1, 4, 5, 2 + 1e-12), ElementsAre(DoubleNear(-2.000000000001, 1e-14)));
}

TEST(SolveCubic, tellsATangentFromANearMiss) {
    // 2x(1 - x) + 10⁻¹¹x³ rises to 0.5 + 1.25·10⁻¹².
    const auto hits = [](CGFloat height) { return solve(1e-11, -2, 2, -height, 0, 1).size(); };
    EXPECT_EQ(hits(0.5 + 1e-12), 2u);
    EXPECT_EQ(hits(0.5 + 2e-12), 0u);
    EXPECT_THAT(solve(0, -2, 2, -0.5, 0, 1), ElementsAre(0.5));
    EXPECT_THAT(solve(0, -2, 2, -0.5 - 1e-12, 0, 1), IsEmpty());
}

TEST(SolveCubic, resolvesCoefficientsThatWouldOverflow) {
    EXPECT_THAT(solve(1e308, -1.5e308, 0.56e308, -0.06e308),
                Pointwise(DoubleNear(1e-14), {0.2, 0.3, 1.0}));
    EXPECT_THAT(solve(1e308, -1.5e308, 0.56e308, -0.06e308, 0.25, 2),
                Pointwise(DoubleNear(1e-14), {0.3, 1.0}));
    // x³ is of no weight beside x² + x - 1 until x reaches -10³⁰⁰.
    EXPECT_THAT(solve(1, 1e300, 1e300, -1e300),
                Pointwise(DoubleEq(), {-1e300, -1.6180339887498949, 0.6180339887498949}));
    EXPECT_THAT(solve(-2, 0, -5.0746e102, 5.3626e154), ElementsAre(DoubleEq(2.71139970000676e51)));
    EXPECT_THAT(solve(-2, 0, -5.0746e102, 5.3626e154, 0, 1), IsEmpty());
}

TEST(SolveCubic, dropsARootThatIsTooLargeForADouble) {
    EXPECT_THAT(solve(1e-12, -1e308, 0, 1e308), ElementsAre(DoubleEq(-1), DoubleEq(1)));
}

TEST(SolveCubic, resolvesRootsWhoseSquaresUnderflow) {
    EXPECT_THAT(solve(1, 0, 0, -1e-300), ElementsAre(DoubleEq(1e-100)));
    EXPECT_THAT(solve(1, 0, -1e-200, -1e-310),
                Pointwise(DoubleNear(1e-110), {-1e-100, -1e-110, 1e-100}));
}

TEST(SolveCubic, givesATinyRootBesideLargeOnesAllItsDigits) {
    EXPECT_THAT(solve(9466193.9289110042, 0.12879505348870088, -1.1485990770250267e19,
                      -0.00026683197561509076),
                ElementsAre(DoubleNear(-1101530.515382266, 1e-8), DoubleEq(-2.3231080448559058e-23),
                            DoubleNear(1101530.515382252, 1e-8)));
}

RC_GTEST_PROP(SolveCubic, staysFiniteSortedAndInsideItsBoundsForAnyBits, ()) {
    const auto anyDouble = rc::gen::map(rc::gen::arbitrary<std::uint64_t>(), [](std::uint64_t n) {
        CGFloat result;
        std::memcpy(&result, &n, sizeof result);
        return result;
    });
    const auto special = rc::gen::elementOf(
        std::vector<CGFloat>{0, -0.0, 1, -1, 1e-12, -9.9e-13, 1e30, -1e30, 1e154, 1e308, -1e308,
                             5e-324, 2.3e-308, 0x1p40, infinity, -infinity, notANumber});
    const auto number = rc::gen::oneOf(anyDouble, special);
    const CGFloat a = *number, b = *number, c = *number, d = *number;
    CGFloat min = *number, max = *number;
    if (max < min)
        std::swap(min, max);
    CGFloat previous = -infinity;
    for (const CGFloat root : scalar::solveCubic(a, b, c, d, min, max).value_or(Roots())) {
        RC_ASSERT(std::isfinite(root));
        RC_ASSERT(root >= min && root <= max);
        RC_ASSERT(root >= previous || std::abs(a) < 1e-12);
        previous = root;
    }
}

}  // namespace
}  // namespace quorin
