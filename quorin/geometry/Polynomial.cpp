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

    bool contains(CGFloat root) const {
        // As differences, so that a root equal to a large bound is not lost in rounding.
        return std::isfinite(root) && root - min > -scalar::epsilon &&
               max - root > -scalar::epsilon;
    }

    void keep(CGFloat root, Roots& roots) const {
        if (contains(root))
            roots.append(std::max(min, std::min(root, max)));
    }
};

template <typename... T>
bool areFinite(T... coefficients) {
    return (std::isfinite(coefficients) && ...);
}

/// b² - a·c, right to the last bits also where the products nearly cancel.
CGFloat discriminant(CGFloat a, CGFloat b, CGFloat c) {
    const CGFloat p = b * b;
    const CGFloat q = a * c;
    const CGFloat d = p - q;
    if (3 * std::abs(d) >= p + std::abs(q))
        return d;
    return d + (std::fma(b, b, -p) - std::fma(a, c, -q));
}

/// The power of two that brings `magnitude`, which is finite, near to one.
CGFloat normalizingFactor(CGFloat magnitude) {
    return std::ldexp(1.0, -static_cast<int>(std::round(std::log2(magnitude))));
}

/// A cubic that does not overflow anywhere between its roots.
template <typename T>
struct Cubic {
    T a, b, c, d;

    /// Half the unit in the last place of one.
    static constexpr T u = std::numeric_limits<T>::epsilon() / 2;

    T value(T x) const { return ((a * x + b) * x + c) * x + d; }
    T slope(T x) const { return (3 * a * x + 2 * b) * x + c; }
    T halfCurvature(T x) const { return 3 * a * x + b; }

    /// The sum of the terms' magnitudes, which rounding errors of `value` are in proportion to.
    T magnitude(T x) const {
        const T r = std::abs(x);
        return ((std::abs(a) * r + std::abs(b)) * r + std::abs(c)) * r + std::abs(d);
    }

    /// The value as if computed with twice as many digits; zero when even those leave the sign
    /// open. Source: S. Graillat, P. Langlois, N. Louvet, "Compensated Horner Scheme", 2005.
    T preciseValue(T x) const {
        T sum = a;
        T lost = 0;
        for (const T coefficient : {b, c, d}) {
            const T product = sum * x;
            const T lostProduct = std::fma(sum, x, -product);
            sum = product + coefficient;
            const T shared = sum - product;
            lost = lost * x + (lostProduct + ((product - (sum - shared)) + (coefficient - shared)));
        }
        const T result = sum + lost;
        return std::abs(result) > 64 * u * u * magnitude(x) ? result : 0;
    }

    /// The value with a sign to be relied on.
    T certainValue(T x) const {
        const T plain = value(x);
        return std::abs(plain) > 8 * u * magnitude(x) ? plain : preciseValue(x);
    }

    /// Whether the value at `x` may be nothing but the rounding of the coefficients.
    bool isZeroWithinRounding(T x) const { return std::abs(value(x)) <= 16 * u * magnitude(x); }
};

/// Brackets the roots between the extrema and polishes them there.
template <typename T>
class CubicSolver {
public:
    explicit CubicSolver(const Cubic<T>& cubic, T lower, T upper)
        : f(cubic), lo(lower), hi(upper), reach(upper - lower) {}

    Roots solve(const Range& range) {
        const T left = std::max(lo, -radius());
        const T right = std::min(hi, radius());
        if (!(left <= right))
            return {};

        T knots[4] = {left};
        int last = 0;
        for (const T extremum : extrema())
            if (extremum > left && extremum < right)
                knots[++last] = extremum;
        knots[++last] = right;

        T before = f.certainValue(left);
        collect(before, left);
        for (int i = 1; i <= last; ++i) {
            const T here = f.certainValue(knots[i]);
            if ((before < 0 && here > 0) || (before > 0 && here < 0))
                found[count++] = rootBetween(knots[i - 1], knots[i], before);
            const bool isTouching = i < last && here * f.halfCurvature(knots[i]) > 0 &&
                                    f.isZeroWithinRounding(knots[i]);
            collect(isTouching ? 0 : here, knots[i]);
            before = here;
        }

        Roots roots;
        for (int i = 0; i < count; ++i)
            if (i == 0 || found[i] != found[i - 1])
                range.keep(static_cast<CGFloat>(found[i]), roots);
        return roots;
    }

private:
    Cubic<T> f;
    T lo, hi, reach;
    T found[5];
    int count = 0;

    /// No root is farther from zero.
    T radius() const {
        return 2 + 2 * std::max({std::abs(f.b), std::abs(f.c), std::abs(f.d)}) / std::abs(f.a);
    }

    void collect(T value, T x) {
        if (value == 0 && (count == 0 || found[count - 1] != x))
            found[count++] = x;
    }

    std::array<T, 2> extrema() const {
        constexpr T none = std::numeric_limits<T>::quiet_NaN();
        const T a3 = 3 * f.a;
        const T p = f.b * f.b;
        const T q = a3 * f.c;
        const T lostLeading = std::fma(T(3), f.a, -a3);
        const T D = (p - q) + (std::fma(f.b, f.b, -p) - std::fma(a3, f.c, -q) - lostLeading * f.c);
        const T R = -(f.b + std::copysign(std::sqrt(std::max(D, T(0))), f.b));
        if (!(D > 0) || R == 0)
            return {none, none};
        const T first = R / a3;
        const T second = f.c / R;
        return {std::min(first, second), std::max(first, second)};
    }

    T rootBetween(T left, T right, T leftValue) const {
        T x = left + (right - left) / 2;
        T lastStep = right - left;
        for (int i = 0; i < 1200; ++i) {
            const T value = f.certainValue(x);
            if (value == 0)
                return x;
            ((value < 0) == (leftValue < 0) ? left : right) = x;
            T step = value / f.slope(x);
            T next = x - step;
            if (!(next > left && next < right) || std::abs(step) > lastStep / 2) {
                next = left + (right - left) / 2;
                step = x - next;
            }
            if (next == x || next == left || next == right ||
                std::abs(step) <= Cubic<T>::u * std::abs(x) / 2)
                return next;
            lastStep = std::abs(step);
            x = next;
        }
        return x;
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
    const CGFloat largest = std::max({std::abs(a), std::abs(b), std::abs(c), std::abs(d)});
    if (largest < 1e40)
        return CubicSolver<CGFloat>({a, b, c, d}, lo, hi).solve(range);
    return CubicSolver<long double>({a, b, c, d}, lo, hi).solve(range);
}

}  // namespace scalar
}  // namespace quorin
