#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <limits>

#include "quorin/geometry/Quadrature.h"
#include "quorin/path/CubicBezier.h"
#include "quorin/path/CurveSpeed.h"

namespace quorin {

namespace {

using ComplexTime = std::complex<CGFloat>;

constexpr int pointCount = scalar::greatestPointCount;
/// What needs more cells than this is beyond doubles.
constexpr int greatestCellCount = 4096;
/// Between times this far apart the length is a line, to the last bit of a double.
constexpr CGFloat timeStep = 0x1p-28;

constexpr ComplexTime never = std::numeric_limits<CGFloat>::infinity();

/// A speed is analytic around all times but those at which the derivative, taken as one complex
/// number, vanishes. A cusp has such a time on the real axis, a hairpin just beside it.
std::array<ComplexTime, 2> vanishingTimes(const CurveSpeed& speed, CGFloat fastest) {
    const ComplexTime a = ComplexTime(speed.A.x, speed.A.y) / fastest;
    const ComplexTime b = ComplexTime(speed.B.x, speed.B.y) / fastest;
    const ComplexTime c = ComplexTime(speed.C.x, speed.C.y) / fastest;
    ComplexTime root = std::sqrt(b * b - 4.0 * a * c);
    if (std::real(std::conj(b) * root) < 0)
        root = -root;
    const ComplexTime q = -(b + root) / 2.0;
    const ComplexTime first = a == 0.0 ? never : q / a;
    return {first, q == 0.0 ? first : c / q};
}

/// Arc lengths from the start of a curve to two times, added up over cells. Which cells there are
/// depends on the curve and the accuracy alone, and within a cell the length is held between
/// nothing and the cell's, so that a later time never gives a shorter length.
class LengthsUntil {
public:
    LengthsUntil(const CubicBezier& curve, CGFloat earlier, CGFloat later, CGFloat accuracy)
        : speed(curve),
          first(earlier),
          last(later),
          fastest(fastestWithin(0, 1)),
          vanishing(vanishingTimes(speed, fastest)) {
        std::array<CGFloat, 4> times{0, 1, 1, 1};
        for (std::size_t i = 0; i < 2; ++i) {
            ComplexTime& time = vanishing[i];
            if (time.real() > 0 && time.real() < 1)
                times[i + 1] = time.real();
            // On either side of a cusp the speed goes on smoothly.
            if (std::abs(time.imag()) <= 4 * scalar::actualMachineEpsilon)
                time = never;
        }
        std::sort(times.begin(), times.end());
        for (std::size_t i = 0; i + 1 < times.size(); ++i)
            addCell(times[i], times[i + 1], accuracy / 3);
    }

    CGFloat untilFirst() const { return toFirst; }
    CGFloat untilLast() const { return toLast; }
    CGFloat error() const { return errorSum; }

private:
    /// No speed is greater at any complex time within `radius` of `middle`.
    CGFloat fastestWithin(CGFloat middle, CGFloat radius) const {
        const auto size = [](CGPoint vector) { return std::sqrt(dot(vector, vector)); };
        return size((speed.A * middle + speed.B) * middle + speed.C) +
               (size(2 * speed.A * middle + speed.B) + size(speed.A) * radius) * radius;
    }

    /// How far the rule may be from the length of a cell.
    ///
    /// Source: L. N. Trefethen, "Is Gauss quadrature better than Clenshaw-Curtis?", 2008, theorem
    /// 4.5: on [-1, 1] the error is below 64/15 · M · ρ^-2n / (1 - ρ^-2) where the function stays
    /// below M in the ellipse around ±1 whose semi-axes add up to ρ.
    CGFloat errorBound(CGFloat low, CGFloat high) const {
        const CGFloat half = (high - low) / 2;
        const CGFloat middle = low + half;
        CGFloat semiMajor = 8;  // large enough that nothing is left of the error
        for (const ComplexTime& t : vanishing)
            semiMajor = std::min(semiMajor, (std::abs(t - low) + std::abs(t - high)) / (2 * half));
        const CGFloat rho = semiMajor + std::sqrt(std::max(semiMajor * semiMajor - 1, 0.0));
        const CGFloat ofRule = 64.0 / 15 * half * fastestWithin(middle, half * semiMajor) *
                               std::pow(rho, -2 * pointCount) / (1 - 1 / (rho * rho));
        return std::min(2 * half * fastestWithin(middle, half), ofRule);
    }

    void addCell(CGFloat low, CGFloat high, CGFloat tolerance) {
        if (low == high)
            return;
        const CGFloat length = speed.integrated(low, high, pointCount);
        const CGFloat rounding =
            scalar::actualMachineEpsilon * (8 * fastest * (high - low) + 2 * length);
        const CGFloat error = errorBound(low, high);
        const CGFloat middle = (low + high) / 2;
        if (error > std::max(rounding, tolerance) && cellCount < greatestCellCount) {
            ++cellCount;
            addCell(low, middle, tolerance / 2);
            addCell(middle, high, tolerance / 2);
            return;
        }
        errorSum += error + rounding;
        toFirst += lengthUntil(first, low, high, length);
        toLast += lengthUntil(last, low, high, length);
    }

    CGFloat lengthUntil(CGFloat t, CGFloat low, CGFloat high, CGFloat length) const {
        if (t <= low)
            return 0;
        if (t >= high)
            return length;
        // Rounding lets the lengths of neighbouring times waver, but not of times a step apart.
        const CGFloat step = std::floor(t / timeStep);
        const CGFloat earlier = std::max(step * timeStep, low);
        const CGFloat later = std::min((step + 1) * timeStep, high);
        const auto until = [&](CGFloat time) {
            return std::clamp(speed.integrated(low, time, pointCount), 0.0, length);
        };
        const CGFloat least = until(earlier);
        const CGFloat most = std::max(least, later == high ? length : until(later));
        return std::min(least + (most - least) * ((t - earlier) / (later - earlier)), most);
    }

    CurveSpeed speed;
    CGFloat first, last;
    CGFloat fastest;
    std::array<ComplexTime, 2> vanishing;
    int cellCount = 0;
    CGFloat toFirst = 0, toLast = 0, errorSum = 0;
};

}  // namespace

MeasuredLength CubicBezier::lengthBetween(CGFloat from, CGFloat to, CGFloat accuracy) const {
    if (from > to) {
        const auto [length, reached] = lengthBetween(to, from, accuracy);
        return {-length, reached};
    }
    const LengthsUntil lengths(*this, from, to, accuracy);
    return {lengths.untilLast() - lengths.untilFirst(), lengths.error()};
}

}  // namespace quorin
