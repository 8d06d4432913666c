#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <vector>

#include "quorin/geometry/Polynomial.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::Contains;
using testing::DoubleNear;
using testing::IsEmpty;
using testing::Not;
using testing::Pointwise;
using testing::SizeIs;

#ifdef __SIZEOF_FLOAT128__
__extension__ using Quad = __float128;
#else
using Quad = long double;
#endif

Quad magnitude(Quad x) { return x < 0 ? -x : x; }

struct Cubic {
    CGFloat a, b, c, d;

    Quad value(Quad x) const { return ((a * x + b) * x + c) * x + d; }
    Quad slope(Quad x) const { return (3 * Quad(a) * x + 2 * Quad(b)) * x + c; }
    /// The sum of the terms' magnitudes.
    Quad terms(Quad x) const {
        const Quad r = magnitude(x);
        return ((std::abs(a) * r + std::abs(b)) * r + std::abs(c)) * r + std::abs(d);
    }

    Roots roots() const { return scalar::solveCubic(a, b, c, d).value(); }
    Roots roots(CGFloat min, CGFloat max) const {
        return scalar::solveCubic(a, b, c, d, min, max).value();
    }
};

/// scale·(x - r)(x - s)(x - t), with its coefficients rounded to doubles.
Cubic withRoots(CGFloat r, CGFloat s, CGFloat t, CGFloat scale = 1) {
    return {scale, -scale * (r + s + t), scale * (r * s + s * t + t * r), -scale * r * s * t};
}

/// y(t) of a Bézier curve.
Cubic withControlValues(CGFloat p0, CGFloat p1, CGFloat p2, CGFloat p3) {
    return {p3 - p0 + 3 * (p1 - p2), 3 * (p0 - 2 * p1 + p2), 3 * (p1 - p0), p0};
}

/// Where `f`, of different signs at the ends, passes through zero, to the last bit.
template <typename Function>
Quad crossing(Function f, Quad left, Quad right) {
    const bool isRising = f(left) < 0;
    for (;;) {
        const Quad middle = left + (right - left) / 2;
        if (middle == left || middle == right || f(middle) == 0)
            return middle;
        ((f(middle) < 0) == isRising ? left : right) = middle;
    }
}

/// Every place where the cubic changes its sign, by halving between the extrema; the extrema by
/// halving on either side of the inflection.
std::vector<Quad> signChanges(const Cubic& f) {
    const Quad radius =
        1 + std::max({std::abs(f.b), std::abs(f.c), std::abs(f.d)}) / Quad(std::abs(f.a));
    std::vector<Quad> knots{-radius, radius};
    const Quad inflection = -f.b / (3 * Quad(f.a));
    if (f.a * f.slope(inflection) < 0) {
        const auto slope = [&](Quad x) { return f.slope(x); };
        knots = {-radius, crossing(slope, -radius, inflection), crossing(slope, inflection, radius),
                 radius};
    }
    std::vector<Quad> found;
    for (std::size_t i = 1; i < knots.size(); ++i) {
        const Quad before = f.value(knots[i - 1]);
        const Quad after = f.value(knots[i]);
        if ((before < 0 && after > 0) || (before > 0 && after < 0))
            found.push_back(crossing([&](Quad x) { return f.value(x); }, knots[i - 1], knots[i]));
    }
    return found;
}

CGFloat errorOf(CGFloat root, const std::vector<Quad>& truth) {
    CGFloat least = std::numeric_limits<CGFloat>::infinity();
    for (const Quad x : truth)
        least = std::min(least, static_cast<CGFloat>(magnitude(root - x)));
    return least;
}

/// Whether `x` is a root but for the rounding of the coefficients.
bool isWithinRounding(const Cubic& f, CGFloat x) {
    return magnitude(f.value(x)) <= 20 * std::numeric_limits<CGFloat>::epsilon() / 2 * f.terms(x);
}

/// Between the bounds every sign change has to be found, and nothing that is not a root.
void checkAgainstTruth(const Cubic& f, CGFloat min, CGFloat max) {
    const std::vector<Quad> truth = signChanges(f);
    const Roots roots = f.roots(min, max);
    const auto tolerance = [&](Quad x) {
        const auto size = static_cast<CGFloat>(magnitude(x));
        return 1e-12 * std::min(size, max - min) + std::numeric_limits<CGFloat>::epsilon() * size;
    };
    for (const Quad x : truth) {
        if (x < min || x > max)
            continue;
        RC_ASSERT(std::any_of(roots.begin(), roots.end(),
                              [&](CGFloat root) { return magnitude(root - x) <= tolerance(x); }));
    }
    for (const CGFloat root : roots)
        RC_ASSERT(errorOf(root, truth) <= std::max(tolerance(root), 1e-12) ||
                  isWithinRounding(f, root));
}

rc::Gen<CGFloat> between(CGFloat from, CGFloat to) {
    return rc::gen::map(rc::gen::inRange(0, 1 << 30),
                        [=](int n) { return from + (to - from) * n / (1 << 30); });
}

/// Spread evenly over the orders of magnitude from 10^from to 10^to.
rc::Gen<CGFloat> orders(CGFloat from, CGFloat to) {
    return rc::gen::map(between(from, to), [](CGFloat n) { return std::pow(10, n); });
}

RC_GTEST_PROP(SolveCubicAccuracy, findsWhereACurveCrossesALine, ()) {
    const auto height = between(-1000, 1000);
    checkAgainstTruth(withControlValues(*height, *height, *height, *height), 0, 1);
}

RC_GTEST_PROP(SolveCubicAccuracy, findsPlantedRoots, ()) {
    const auto place = between(0, 1);
    checkAgainstTruth(withRoots(*place, *place, *place, *between(1, 1000)), 0, 1);
    checkAgainstTruth(withRoots(*place, *place, *place, -*between(1, 1000)), -1e9, 1e9);
}

RC_GTEST_PROP(SolveCubicAccuracy, findsPairsThatNearlyCoincide, ()) {
    const CGFloat place = *between(0, 1);
    const CGFloat gap = *orders(-15, -1);
    checkAgainstTruth(withRoots(place, place + gap, *between(-2, 2), *between(1, 9)), 0, 1);
    checkAgainstTruth(withRoots(place, place + gap, *orders(0, 14)), 0, 1);
}

RC_GTEST_PROP(SolveCubicAccuracy, findsTriplesThatNearlyCoincide, ()) {
    const CGFloat place = *between(0, 1);
    checkAgainstTruth(withRoots(place, place + *orders(-8, -1), place - *orders(-8, -1)), 0, 1);
}

RC_GTEST_PROP(SolveCubicAccuracy, findsRootsBesideAThirdOneFarAway, ()) {
    checkAgainstTruth(withRoots(*between(0, 1), *between(0, 1), *orders(0, 14)), 0, 1);
    checkAgainstTruth(withRoots(*between(0, 1), *between(0, 1), -*orders(0, 14)), -1e15, 1e15);
}

RC_GTEST_PROP(SolveCubicAccuracy, findsRootsUnderATinyLeadingCoefficient, ()) {
    const auto number = between(-1, 1);
    checkAgainstTruth({*orders(-11.9, 0), *number, *number, *number}, 0, 1);
}

RC_GTEST_PROP(SolveCubicAccuracy, findsRootsInANarrowIntervalFarFromZero, ()) {
    const CGFloat min = *between(-1000, 1000);
    const auto place = between(min, min + *orders(-3, 3));
    const CGFloat first = *place;
    const CGFloat last = *place;
    checkAgainstTruth(withRoots(first, *place, last), std::min(first, last), std::max(first, last));
}

RC_GTEST_PROP(SolveCubicAccuracy, findsRootsOfEveryMagnitude, ()) {
    const auto number = rc::gen::map(rc::gen::pair(orders(-12, 12), rc::gen::arbitrary<bool>()),
                                     [](const auto& n) { return n.second ? n.first : -n.first; });
    checkAgainstTruth({*number, *number, *number, *number}, -1e30, 1e30);
}

RC_GTEST_PROP(SolveCubicAccuracy, findsADoubleRootWhateverItsScale, ()) {
    const CGFloat place = *between(0, 1);
    const CGFloat other = *rc::gen::oneOf(between(-3, -0.1), between(1.1, 3));
    const CGFloat scale = std::ldexp(*between(1, 2), *rc::gen::inRange(-30, 300));
    const Roots roots = withRoots(place, place, other, scale).roots(0, 1);
    RC_ASSERT(!roots.empty());
    for (const CGFloat root : roots)
        RC_ASSERT(std::abs(root - place) < 1e-6);
}

RC_GTEST_PROP(SolveCubicAccuracy, boundedGivesTheUnboundedRootsThatLieInside, ()) {
    const auto height = between(-1000, 1000);
    const Cubic f = withControlValues(*height, *height, *height, *height);
    RC_PRE(std::abs(f.a) > 1);
    const auto bound = between(-2, 3);
    const CGFloat first = *bound, second = *bound;
    const CGFloat min = std::min(first, second), max = std::max(first, second);
    std::vector<CGFloat> expected;
    for (const CGFloat root : f.roots()) {
        if (root > min - 1e-12 && root < max + 1e-12)
            expected.push_back(std::clamp(root, min, max));
    }
    const Roots found = f.roots(min, max);
    RC_ASSERT(found.size() == expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i)
        RC_ASSERT(std::abs(found[i] - expected[i]) <= 1e-12 * std::max(1.0, std::abs(expected[i])));
}

RC_GTEST_PROP(SolveCubicAccuracy, doesNotDependOnThePowerOfTwoInTheCoefficients, ()) {
    const auto number = between(-1, 1);
    const Cubic f{*number, *number, *number, *number};
    RC_PRE(std::abs(f.a) > 1e-6);
    const CGFloat scale = std::ldexp(1, *rc::gen::inRange(-19, 90));
    const Cubic scaled{scale * f.a, scale * f.b, scale * f.c, scale * f.d};
    const Roots one = f.roots(), other = scaled.roots();
    RC_ASSERT(std::equal(one.begin(), one.end(), other.begin(), other.end()));
    const Roots bounded = f.roots(0, 1), otherBounded = scaled.roots(0, 1);
    RC_ASSERT(std::equal(bounded.begin(), bounded.end(), otherBounded.begin(), otherBounded.end()));
}

RC_GTEST_PROP(SolveCubicAccuracy, hugeCoefficientsHaveTheRootsOfTheirScaledDownCopy, ()) {
    const auto number = between(-1, 1);
    const Cubic f{*number, *number, *number, *number};
    RC_PRE(std::abs(f.a) > 1e-6);
    const CGFloat scale = std::ldexp(1, *rc::gen::inRange(105, 1023));
    const Roots one = f.roots();
    const Roots other = Cubic{scale * f.a, scale * f.b, scale * f.c, scale * f.d}.roots();
    RC_ASSERT(one.size() == other.size());
    for (std::size_t i = 0; i < one.size(); ++i)
        RC_ASSERT(std::abs(one[i] - other[i]) <= 1e-13 * std::abs(one[i]));
}

TEST(SolveCubicAccuracy, separatesAPairAsLongAsTheCoefficientsDo) {
    // Exact coefficients: roots a multiple of 2⁻¹⁶ apart, the third a whole number.
    for (int bits = 2; bits <= 16; ++bits) {
        SCOPED_TRACE(bits);
        const CGFloat gap = std::ldexp(1, -bits);
        const Cubic f = withRoots(0.5, 0.5 + gap, -3);
        EXPECT_THAT(f.roots(0, 1), Pointwise(DoubleNear(2e-14), {0.5, 0.5 + gap}));
    }
    // A quadratic factor alone leaves room for a pair at the very resolution of a double root.
    const CGFloat gap = 0x1p-24;
    const Cubic f{1, -1 - gap, 0.25 + gap / 2, 0};
    EXPECT_THAT(f.roots(), Pointwise(DoubleNear(1e-16), {0.0, 0.5, 0.5 + gap}));
}

TEST(SolveCubicAccuracy, findsMultipleRootsFromRoundedCoefficients) {
    for (const CGFloat place : {0.1, 0.3, 0.5, 0.7, 0.9, 1 / 3.0}) {
        SCOPED_TRACE(place);
        for (const CGFloat root : withRoots(place, place, -1).roots(0, 1))
            EXPECT_NEAR(root, place, 1e-7);
        EXPECT_THAT(withRoots(place, place, -1).roots(0, 1), Not(IsEmpty()));
        // The roots of the rounded coefficients lie the cube root of a last bit apart.
        const Roots triple = withRoots(place, place, place).roots(0, 1);
        ASSERT_THAT(triple, SizeIs(1));
        EXPECT_NEAR(triple[0], place, 2e-5);
    }
}

TEST(SolveCubicAccuracy, findsATripleRootAtABoundWhereverRoundingMovesIt) {
    for (int hundredths = 1; hundredths <= 100; ++hundredths) {
        SCOPED_TRACE(hundredths);
        const CGFloat place = hundredths / 100.0;
        const Cubic f = withRoots(place, place, place, 0.7);
        for (const Roots& roots : {f.roots(0, place), f.roots(place, 2)}) {
            EXPECT_THAT(roots, Not(IsEmpty()));
            for (const CGFloat root : roots)
                EXPECT_NEAR(root, place, 2e-5);
        }
    }
}

TEST(SolveCubicAccuracy, findsADoubleRootBesideZero) {
    for (int hundredths = 1; hundredths <= 100; ++hundredths) {
        const CGFloat place = hundredths / 100.0;
        const Roots roots = withRoots(0, place, place, 0.7).roots(0, 2);
        EXPECT_EQ(roots[0], 0);
        EXPECT_THAT(roots, Contains(DoubleNear(place, 1e-7)));
    }
}

TEST(SolveCubicAccuracy, findsADoubleRootAtEitherBound) {
    for (int tenths = 1; tenths <= 200; ++tenths) {
        SCOPED_TRACE(tenths);
        const CGFloat height = tenths / 10.0;
        EXPECT_THAT(withControlValues(height, height / 7, 0, 0).roots(0, 1),
                    Contains(DoubleNear(1, 1e-7)));
        EXPECT_THAT(withControlValues(0, 0, height / 7, height).roots(0, 1), Contains(0.0));
    }
}

}  // namespace
}  // namespace quorin
