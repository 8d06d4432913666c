#include "quorin/geometry/Polynomial.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "quorin/geometry/Scalar.h"

namespace quorin {
namespace {

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();

/// Where roots are wanted; an absent bound is infinitely far away.
struct Range {
    CGFloat min, max;

    Range(std::optional<CGFloat> lower, std::optional<CGFloat> upper)
        : min(lower.value_or(-infinity)), max(upper.value_or(infinity)) {}

    void keep(CGFloat root, Roots& roots) const {
        // As differences, so that a root equal to a large bound is not lost in rounding.
        if (std::isfinite(root) && root - min > -scalar::epsilon && max - root > -scalar::epsilon)
            roots.append(std::max(min, std::min(root, max)));
    }
};

template <typename... T>
bool areFinite(T... coefficients) {
    return (std::isfinite(coefficients) && ...);
}

/// b² - a·c, right to the last bits also where the products nearly cancel.
template <typename T>
T discriminant(T a, T b, T c) {
    const T p = b * b;
    const T q = a * c;
    const T d = p - q;
    if (3 * std::abs(d) >= p + std::abs(q))
        return d;
    return d + (std::fma(b, b, -p) - std::fma(a, c, -q));
}

/// The power of two that brings `magnitude` near to one.
CGFloat normalizingFactor(CGFloat magnitude) {
    return std::ldexp(1.0, -static_cast<int>(std::round(std::log2(magnitude))));
}

/// a·x³ + b·x² + c·x + d, with as much certainty about its value as a caller needs.
template <typename T>
struct Cubic {
    T a, b, c, d;

    /// The relative error of one rounding.
    static constexpr T u = std::numeric_limits<T>::epsilon() / 2;
    /// How much of `magnitude` the rounding of all coefficients may amount to, a few bits of each.
    static constexpr T coefficientRounding = 8 * scalar::actualMachineEpsilon;

    T value(T x) const { return ((a * x + b) * x + c) * x + d; }
    T slope(T x) const { return (3 * a * x + 2 * b) * x + c; }
    T halfCurvature(T x) const { return 3 * a * x + b; }

    /// The sum of the terms' magnitudes: `value` is wrong by less than 8·u of it.
    T magnitude(T x) const {
        const T r = std::abs(x);
        return ((std::abs(a) * r + std::abs(b)) * r + std::abs(c)) * r + std::abs(d);
    }

    /// The value as if computed with twice the digits; zero when even those leave the sign open.
    /// Source: S. Graillat, P. Langlois, N. Louvet, "Compensated Horner Scheme", 2005.
    T preciseValue(T x) const {
        T sum = a;
        T lost = 0;
        for (const T coefficient : {b, c, d}) {
            const T product = sum * x;
            const T lostOfProduct = std::fma(sum, x, -product);
            sum = product + coefficient;
            const T added = sum - product;
            const T lostOfSum = (product - (sum - added)) + (coefficient - added);
            lost = lost * x + (lostOfProduct + lostOfSum);
        }
        const T result = sum + lost;
        return std::abs(result) > 64 * u * u * magnitude(x) ? result : 0;
    }

    /// The value with a sign to be relied on.
    T certainValue(T x) const {
        const T plain = value(x);
        return std::abs(plain) > 8 * u * magnitude(x) ? plain : preciseValue(x);
    }

    bool isZeroWithinRounding(T x) const {
        return std::abs(value(x)) <= coefficientRounding * magnitude(x);
    }

    /// Both extrema in ascending order; twice the inflection when there are none.
    std::array<T, 2> turns() const {
        const T a3 = 3 * a;
        // Its last bits would only move turns so close together that their values are the same.
        const T D = b * b - a3 * c;
        if (!(D > 0))
            return {-b / a3, -b / a3};
        const T R = -(b + std::copysign(std::sqrt(D), b));
        return {std::min(R / a3, c / R), std::max(R / a3, c / R)};
    }
};

/// A place where the search for roots is divided, and the cubic's value there.
template <typename T>
struct Knot {
    T x, value;
    bool isTurn;  ///< An extremum or the inflection, rather than an end of the interval.
};

/// Divides the interval until no part has more than one root, and polishes each inside its part.
template <typename T>
class CubicSolver {
public:
    /// Looks from `lower` to `upper` for what `range` will keep.
    CubicSolver(const Cubic<T>& cubic, const Range& wanted, T lower, T upper)
        : f(cubic), range(wanted), lo(lower), hi(upper) {}

    Roots solve() {
        constexpr T far = 0x1p40;
        const bool isFar = !(lo > -far && hi < far);
        if (isFar) {
            // Cauchy's bound on the magnitude of every root, doubled against rounding.
            const T others = std::max({std::abs(f.b), std::abs(f.c), std::abs(f.d)});
            const T radius = 2 + 2 * others / std::abs(f.a);
            lo = std::max(lo, -radius);
            hi = std::min(hi, radius);
        }
        if (!(lo <= hi))
            return roots;
        if (f.d == 0)
            searchBesideZero();
        else if (isFar || !isSettledByControlPolygon())
            searchBetweenTurns();
        return roots;
    }

private:
    const Cubic<T> f;
    const Range range;
    T lo, hi;
    /// No smaller than the cubic's magnitude anywhere between `lo` and `hi`.
    T greatestMagnitude = std::numeric_limits<T>::infinity();
    Roots roots;
    CGFloat latest = std::numeric_limits<CGFloat>::quiet_NaN();

    /// Roots arrive in ascending order, so a repeated one comes right after the first.
    void keep(T x) {
        const auto root = static_cast<CGFloat>(x);
        if (root != latest)
            range.keep(root, roots);
        latest = root;
    }

    /// For d = 0, as where a curve is cut through its first point. The rest is a quadratic.
    void searchBesideZero() {
        const T D = discriminant(4 * f.a, f.b, f.c);
        if (D < -f.coefficientRounding * f.b * f.b)
            return keep(0);
        const T R = -(f.b + std::copysign(std::sqrt(std::max(D, T(0))), f.b)) / 2;
        std::array<T, 3> all{0, R / f.a, R == 0 ? 0 : f.c / R};
        std::sort(all.begin(), all.end());
        for (const T root : all)
            keep(root);
    }

    /// Descartes' rule on the control values of the cubic as a Bézier curve over the interval:
    /// as many roots as sign changes, or an even number less. Answers none and one at once.
    bool isSettledByControlPolygon() {
        const T third = (hi - lo) / 3;
        const T step = f.slope(lo) * third;
        const T p0 = f.value(lo);
        const T p1 = p0 + step;
        const T p2 = p1 + step + f.halfCurvature(lo) * (hi - lo) * third;
        const std::array<T, 4> p{p0, p1, p2, f.value(hi)};
        greatestMagnitude = std::max(f.magnitude(lo), f.magnitude(hi));

        // So wide that neither rounding nor a root that is merely touched can be at stake.
        const T margin = 0x1p-40 * greatestMagnitude;
        std::size_t above = 0;
        std::size_t below = 0;
        for (const T value : p) {
            above += value > margin;
            below += value < -margin;
        }
        if (above + below < 4)
            return false;
        if (above == 0 || below == 0)
            return true;
        const bool isRising = p[0] < 0;
        if (((p[0] < 0) != (p[1] < 0)) + ((p[1] < 0) != (p[2] < 0)) + ((p[2] < 0) != (p[3] < 0)) >
            1)
            return false;
        const std::size_t before = (isRising ? below : above) - 1;
        const T l = p[before];
        const T r = p[before + 1];
        keep(rootBetween(lo, hi, isRising, lo + third * (static_cast<T>(before) + l / (l - r))));
        return true;
    }

    void searchBetweenTurns() {
        const auto [first, second] = f.turns();
        std::array<Knot<T>, 4> knots{end(lo), turn(first), turn(second), end(hi)};
        const bool isSure = std::all_of(knots.begin(), knots.end(), [this](const Knot<T>& knot) {
            const T value = std::abs(knot.value) / f.coefficientRounding;
            return value > greatestMagnitude || value > f.magnitude(knot.x);
        });
        bool isTriple = false;
        if (!isSure) {
            const bool firstIsZero = f.isZeroWithinRounding(first);
            const bool secondIsZero = f.isZeroWithinRounding(second);
            isTriple = firstIsZero && secondIsZero;
            settle(knots, firstIsZero && !isTriple, secondIsZero && !isTriple);
        }
        searchPart(knots[0], knots[1]);
        searchPart(knots[1], knots[2]);
        searchPart(knots[2], knots[3]);
        // Rounding may have moved the one place where it crosses zero out of the interval.
        if (isTriple && roots.empty())
            keep((first + second) / 2);
    }

    Knot<T> end(T x) const { return {x, f.value(x), false}; }

    /// A turn outside the interval gives way to the nearer end.
    Knot<T> turn(T x) const {
        const T inside = std::max(lo, std::min(x, hi));
        return {inside, f.value(inside), inside == x};
    }

    /// Makes the signs certain, and zero where the cubic turns back within rounding of zero.
    [[gnu::noinline]] void settle(std::array<Knot<T>, 4>& knots, bool firstIsZero,
                                  bool secondIsZero) const {
        for (Knot<T>& knot : knots)
            knot.value = f.certainValue(knot.x);
        if (firstIsZero && turnsBack(knots[1]))
            knots[1].value = 0;
        if (secondIsZero && turnsBack(knots[2]))
            knots[2].value = 0;
    }

    bool turnsBack(const Knot<T>& knot) const {
        return knot.isTurn && knot.value * f.halfCurvature(knot.x) > 0;
    }

    /// Between neighbouring knots the cubic is monotone.
    void searchPart(const Knot<T>& left, const Knot<T>& right) {
        if (left.value == 0)
            keep(left.x);
        if ((left.value < 0 && right.value > 0) || (left.value > 0 && right.value < 0))
            keep(rootBetween(left.x, right.x, left.value < 0, guess(left, right)));
        if (right.value == 0)
            keep(right.x);
    }

    T guess(const Knot<T>& left, const Knot<T>& right) const {
        if (left.isTurn && (!right.isTurn || std::abs(left.value) < std::abs(right.value)))
            return std::min(left.x + distanceToRoot(left), right.x);
        if (right.isTurn)
            return std::max(right.x - distanceToRoot(right), left.x);
        return left.x + (right.x - left.x) * (left.value / (left.value - right.value));
    }

    /// By the parabola that an extremum resembles, or the line that an inflection resembles.
    T distanceToRoot(const Knot<T>& turn) const {
        return std::min(std::abs(turn.value / f.slope(turn.x)),
                        std::sqrt(std::abs(turn.value / f.halfCurvature(turn.x))));
    }

    /// The one root between `left` and `right`, from a first guess.
    ///
    /// Source: A. S. Householder, "The Numerical Treatment of a Single Nonlinear Equation", 1970,
    /// for the iteration of fourth order and its error term.
    T rootBetween(T left, T right, bool isRising, T x) const {
        for (int i = 0; i < 16; ++i) {
            const T v = f.value(x);
            const T slope = f.slope(x);
            const T k = f.halfCurvature(x);
            const T slope2 = slope * slope;
            const T step = v * (slope2 - v * k) / (slope * (slope2 - 2 * v * k) + v * v * f.a);
            const T next = std::max(left, std::min(x - step, right));

            // What the next step would be, and what this one lost in rounding.
            const T steepness = std::abs(slope);
            const T cube = slope2 * steepness;
            const T length = std::abs(step);
            const T bend = length * std::abs(k);
            const T error = bend * (bend * bend + 2 * length * length * std::abs(f.a) * steepness);
            const T size = std::min(hi - lo, std::abs(next));
            if (length * (error + f.u * cube) < 0x1p-46 * size * cube) {
                // Beyond this ratio the rounding of the value would show in the root.
                const T stretch = 64 * size * steepness;
                if (stretch >= greatestMagnitude || stretch >= f.magnitude(next))
                    return next;
                break;
            }
            x = next;
        }
        return preciseRootBetween(left, right, isRising, x);
    }

    /// Newton's method on certain values, halving the bracket whenever it gains less than that.
    [[gnu::noinline]] T preciseRootBetween(T left, T right, bool isRising, T x) const {
        T lastLength = right - left;
        for (;;) {
            const T value = f.certainValue(x);
            if (value == 0)
                return x;
            ((value < 0) == isRising ? left : right) = x;
            T next = x - value / f.slope(x);
            if (!(next > left && next < right && std::abs(next - x) <= lastLength / 2))
                next = left + (right - left) / 2;
            const T length = std::abs(next - x);
            if (next == left || next == right || length <= f.u / 2 * std::abs(x))
                return next;
            lastLength = length;
            x = next;
        }
    }
};

}  // namespace

namespace scalar {

std::optional<Roots> solveQuadratic(CGFloat a, CGFloat b, CGFloat c, std::optional<CGFloat> min,
                                    std::optional<CGFloat> max) {
    const Range range(min, max);
    Roots roots;
    if (!areFinite(a, b, c))
        return roots;
    if (std::abs(a) < epsilon) {
        if (std::abs(b) >= epsilon)
            range.keep(-c / b, roots);
        else if (std::abs(c) < epsilon)
            return std::nullopt;
        return roots;
    }

    CGFloat B = -b / 2;
    CGFloat D = discriminant(a, B, c);
    if (std::abs(D) < machineEpsilon || !std::isfinite(D)) {
        const CGFloat largest = std::max({std::abs(a), std::abs(B), std::abs(c)});
        if (largest < 1e-8 || largest > 1e8) {
            const CGFloat factor = normalizingFactor(largest);
            a *= factor;
            B *= factor;
            c *= factor;
            D = discriminant(a, B, c);
        }
    }
    if (D < -machineEpsilon)
        return roots;

    const CGFloat root = std::sqrt(std::max(D, 0.0));
    const CGFloat R = B + (B < 0 ? -root : root);
    const CGFloat x1 = R == 0 ? c / a : R / a;
    const CGFloat x2 = R == 0 ? -x1 : c / R;
    range.keep(x1, roots);
    if (x2 != x1)
        range.keep(x2, roots);
    return roots;
}

std::optional<Roots> solveCubic(CGFloat a, CGFloat b, CGFloat c, CGFloat d,
                                std::optional<CGFloat> min, std::optional<CGFloat> max) {
    if (std::abs(a) < epsilon)
        return solveQuadratic(b, c, d, min, max);
    if (!areFinite(a, b, c, d))
        return Roots();

    const Range range(min, max);
    // One last place more than the margin, since beside a large bound the margin rounds to nothing.
    const CGFloat lo = range.min - epsilon - std::abs(range.min) * actualMachineEpsilon;
    const CGFloat hi = range.max + epsilon + std::abs(range.max) * actualMachineEpsilon;
    // Up to here no product overflows. Beyond, the exponent of a long double has room for every
    // one, while its digits, and so the last bit of a root, are up to the machine.
    constexpr CGFloat comfortable = 1e30;
    if (std::max({std::abs(a), std::abs(b), std::abs(c), std::abs(d)}) < comfortable)
        return CubicSolver<CGFloat>({a, b, c, d}, range, lo, hi).solve();
    return CubicSolver<long double>({a, b, c, d}, range, lo, hi).solve();
}

}  // namespace scalar
}  // namespace quorin
