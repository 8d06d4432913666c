#include <algorithm>
#include <array>
#include <cmath>

#include "quorin/geometry/Quadrature.h"
#include "quorin/path/CubicBezier.h"
#include "quorin/path/CurveSpeed.h"

namespace quorin {

namespace {

constexpr int pointCount = scalar::greatestPointCount;
/// Halving a cell gains a digit or more; what needs more cells than this is noise.
constexpr int greatestCellCount = 4096;

/// The times at which the speed has an extremum, ascending, between both ends; ends stand in for
/// those that are missing. There the speed may fall to nothing within no time, which no
/// polynomial follows.
std::array<CGFloat, 5> speedExtrema(const CurveSpeed& speed) {
    const CGPoint a = speed.A, b = speed.B, c = speed.C;
    std::array<CGFloat, 5> times{0, 1, 1, 1, 1};
    // Half the derivative of the squared speed.
    const auto roots = scalar::solveCubic(2 * dot(a, a), 3 * dot(a, b), 2 * dot(a, c) + dot(b, b),
                                          dot(b, c), 0, 1);
    if (roots)
        std::copy(roots->begin(), roots->end(), times.begin() + 1);
    std::sort(times.begin(), times.end());
    return times;
}

/// Arc lengths from the start of a curve to two times, added up over cells. Which cells there are
/// depends on the curve and the accuracy alone, and within a cell the length is held between
/// nothing and the cell's, so that a later time never gives a shorter length.
class LengthsUntil {
public:
    LengthsUntil(const CubicBezier& curve, CGFloat earlier, CGFloat later, CGFloat accuracy)
        : speed(curve), first(earlier), last(later) {
        const CGFloat fastest = std::sqrt(dot(speed.A, speed.A)) +
                                std::sqrt(dot(speed.B, speed.B)) + std::sqrt(dot(speed.C, speed.C));
        noise = 8 * scalar::actualMachineEpsilon * fastest;
        const auto times = speedExtrema(speed);
        for (std::size_t i = 0; i + 1 < times.size(); ++i)
            addCell(times[i], times[i + 1], speed.integrated(times[i], times[i + 1], pointCount),
                    accuracy / 4);
    }

    CGFloat untilFirst() const { return toFirst; }
    CGFloat untilLast() const { return toLast; }
    CGFloat error() const { return errorSum; }

private:
    void addCell(CGFloat low, CGFloat high, CGFloat whole, CGFloat tolerance) {
        const CGFloat middle = (low + high) / 2;
        const CGFloat left = speed.integrated(low, middle, pointCount);
        const CGFloat right = speed.integrated(middle, high, pointCount);
        const CGFloat error = std::abs(whole - (left + right));
        const CGFloat rounding = noise * (high - low);
        if (error > std::max(tolerance, rounding) && cellCount < greatestCellCount) {
            ++cellCount;
            addCell(low, middle, left, tolerance / 2);
            addCell(middle, high, right, tolerance / 2);
            return;
        }
        errorSum += error + rounding;
        addPart(low, middle, left);
        addPart(middle, high, right);
    }

    void addPart(CGFloat low, CGFloat high, CGFloat length) {
        toFirst += lengthUntil(first, low, high, length);
        toLast += lengthUntil(last, low, high, length);
    }

    CGFloat lengthUntil(CGFloat t, CGFloat low, CGFloat high, CGFloat length) const {
        if (t <= low)
            return 0;
        if (t >= high)
            return length;
        return std::clamp(speed.integrated(low, t, pointCount), 0.0, length);
    }

    CurveSpeed speed;
    CGFloat first, last;
    CGFloat noise = 0;
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
