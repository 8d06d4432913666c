#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

#include "quorin/path/CubicBezier.h"

namespace quorin {

namespace {

/// How far a point is from the segment a b.
CGFloat distanceToSegment(CGPoint point, CGPoint a, CGPoint b) {
    const CGPoint v = b - a;
    const CGFloat vSquared = dot(v, v);
    const CGFloat u = vSquared > 0 ? std::clamp(dot(point - a, v) / vSquared, 0.0, 1.0) : 0;
    return distance(point, a + u * v);
}

/// A stretch of the curve seen from the point that is asked about, which is the origin.
struct Stretch {
    CGFloat low, high;
    std::array<CGPoint, 4> q;

    std::pair<Stretch, Stretch> halves() const {
        const CGFloat middle = (low + high) / 2;
        const CGPoint q01 = (q[0] + q[1]) / 2, q12 = (q[1] + q[2]) / 2, q23 = (q[2] + q[3]) / 2;
        const CGPoint r1 = (q01 + q12) / 2, r2 = (q12 + q23) / 2;
        const CGPoint s = (r1 + r2) / 2;
        return {{low, middle, {q[0], q01, r1, s}}, {middle, high, {s, r2, q23, q[3]}}};
    }
};

/// No place of the stretch is nearer than this. The first bound shrinks with the square of the
/// stretch and is good close by; the second is blind to roundness and good around centres.
CGFloat lowerBound(const Stretch& stretch) {
    const auto& q = stretch.q;
    const CGFloat thickness =
        std::max(distanceToSegment(q[1], q[0], q[3]), distanceToSegment(q[2], q[0], q[3]));
    const CGFloat toHull = distanceToSegment(CGPoint::zero, q[0], q[3]) - thickness;

    const std::array<CGFloat, 7> squared = {
        dot(q[0], q[0]),
        dot(q[0], q[1]),
        (2 * dot(q[0], q[2]) + 3 * dot(q[1], q[1])) / 5,
        (dot(q[0], q[3]) + 9 * dot(q[1], q[2])) / 10,
        (2 * dot(q[1], q[3]) + 3 * dot(q[2], q[2])) / 5,
        dot(q[2], q[3]),
        dot(q[3], q[3]),
    };
    const CGFloat noise =
        8 * scalar::actualMachineEpsilon * *std::max_element(squared.begin(), squared.end());
    const CGFloat least = *std::min_element(squared.begin(), squared.end()) - noise;
    return std::max(toHull, least > 0 ? std::sqrt(least) : 0.0);
}

/// The slope of the squared distance over a stretch, in Bernstein form of degree five.
class Slope {
public:
    explicit Slope(const Stretch& stretch) {
        const auto& q = stretch.q;
        const std::array<CGPoint, 3> d = {q[1] - q[0], q[2] - q[1], q[3] - q[2]};
        values = {
            dot(q[0], d[0]),
            (2 * dot(q[0], d[1]) + 3 * dot(q[1], d[0])) / 5,
            (dot(q[0], d[2]) + 6 * dot(q[1], d[1]) + 3 * dot(q[2], d[0])) / 10,
            (3 * dot(q[1], d[2]) + 6 * dot(q[2], d[1]) + dot(q[3], d[0])) / 10,
            (3 * dot(q[2], d[2]) + 2 * dot(q[3], d[1])) / 5,
            dot(q[3], d[2]),
        };
    }

    bool hasOneSign() const {
        const auto [low, high] = std::minmax_element(values.begin(), values.end());
        return *low >= 0 || *high <= 0;
    }
    bool isIncreasing() const {
        return std::adjacent_find(values.begin(), values.end(), std::greater_equal<>()) ==
               values.end();
    }
    /// Where an increasing slope passes zero, in [0, 1] of the stretch.
    CGFloat zero() const {
        CGFloat low = 0, high = 1, s = 0.5;
        for (int i = 0; i < 60 && low < high; ++i) {
            const auto [value, slope] = valueAndSlopeAt(s);
            if (value == 0)
                return s;
            (value > 0 ? high : low) = s;
            CGFloat next = s - value / slope;
            if (!(next > low && next < high))
                next = (low + high) / 2;
            if (std::abs(next - s) <= scalar::actualMachineEpsilon)
                return next;
            s = next;
        }
        return s;
    }

private:
    std::pair<CGFloat, CGFloat> valueAndSlopeAt(CGFloat s) const {
        std::array<CGFloat, 6> row = values;
        for (std::size_t degree = 5; degree > 1; --degree)
            for (std::size_t i = 0; i < degree; ++i)
                row[i] = (1 - s) * row[i] + s * row[i + 1];
        return {(1 - s) * row[0] + s * row[1], 5 * (row[1] - row[0])};
    }

    std::array<CGFloat, 6> values;
};

class NearestPlace {
public:
    NearestPlace(const CubicBezier& curve, CGPoint point)
        : basis(PowerBasis::forEvaluation(curve)), from(point) {
        consider(0);
        consider(1);
    }

    CubicBezier::Nearest search(CGFloat accuracy) {
        // Depth first: a stretch is halved at most as often as a double has digits.
        std::array<Stretch, 128> waiting;
        std::size_t count = 0;
        waiting[count++] = whole();
        const CGFloat least = accuracyInReach(waiting[0], accuracy);
        while (count > 0) {
            const Stretch stretch = waiting[--count];
            if (!(lowerBound(stretch) < best.distance - least))
                continue;
            const Slope slope(stretch);
            if (slope.hasOneSign())
                continue;
            if (slope.isIncreasing()) {
                consider(stretch.low + slope.zero() * (stretch.high - stretch.low));
                continue;
            }
            const auto [first, second] = stretch.halves();
            if (!(first.low < first.high && second.low < second.high) || count + 2 > waiting.size())
                continue;
            consider(first.high);
            const bool isFirstNearer = lowerBound(first) < lowerBound(second);
            waiting[count++] = isFirstNearer ? second : first;
            waiting[count++] = isFirstNearer ? first : second;
        }
        return best;
    }

private:
    Stretch whole() const {
        return {0, 1, {basis.p1 - from, basis.c1 - from, basis.c2 - from, basis.p2 - from}};
    }

    /// Rounding of the points themselves and of their squares bounds what can be told apart. Seen
    /// from the centre of a short arc all places are as near, and asking for more never ends.
    static CGFloat accuracyInReach(const Stretch& stretch, CGFloat accuracy) {
        CGFloat reach = 0;
        for (const CGPoint& point : stretch.q)
            reach = std::max(reach, std::abs(point.x) + std::abs(point.y));
        return std::max(8 * scalar::actualMachineEpsilon * reach, accuracy);
    }

    void consider(CGFloat t) {
        const CGFloat d = distance(basis.pointAt(t), from);
        if (d < best.distance)
            best = {t, d};
    }

    PowerBasis basis;
    CGPoint from;
    CubicBezier::Nearest best{0, scalar::greatestFinite};
};

}  // namespace

CubicBezier::Nearest CubicBezier::nearest(CGPoint from, CGFloat accuracy) const {
    return NearestPlace(*this, from).search(accuracy);
}

}  // namespace quorin
