#include "tests/path/CurveTruth.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace quorin::test {
namespace {

using Long = long double;

/// The integral of f over [low, high], of which the ends, the middle and Simpson's sum are known.
template <typename Function>
Long simpson(const Function& f, Long low, Long high, std::array<Long, 3> values, Long whole,
             Long tolerance, int depth) {
    const Long middle = (low + high) / 2;
    const Long leftValue = f((low + middle) / 2);
    const Long rightValue = f((middle + high) / 2);
    const Long left = (middle - low) / 6 * (values[0] + 4 * leftValue + values[1]);
    const Long right = (high - middle) / 6 * (values[1] + 4 * rightValue + values[2]);
    const Long error = left + right - whole;
    if (std::abs(error) <= 15 * tolerance || depth == 0)
        return left + right + error / 15;
    return simpson(f, low, middle, {values[0], leftValue, values[1]}, left, tolerance / 2,
                   depth - 1) +
           simpson(f, middle, high, {values[1], rightValue, values[2]}, right, tolerance / 2,
                   depth - 1);
}

struct Node {
    Long place, weight;
};

/// The n-point rule on [-1, 1]: the roots of the Legendre polynomial, by Newton's method.
std::vector<Node> gaussLegendreRule(int n) {
    std::vector<Node> rule;
    for (int k = 1; k <= n; ++k) {
        Long x = std::cos(std::numbers::pi_v<Long> * (k - 0.25L) / (n + 0.5L));
        Long slope = 0;
        for (int i = 0; i < 10; ++i) {
            Long before = 1, value = x;
            for (int degree = 2; degree <= n; ++degree) {
                const Long next = ((2 * degree - 1) * x * value - (degree - 1) * before) / degree;
                before = value;
                value = next;
            }
            slope = n * (x * value - before) / (x * x - 1);
            x -= value / slope;
        }
        rule.push_back({x, 2 / ((1 - x * x) * slope * slope)});
    }
    return rule;
}

}  // namespace

CurveTruth::CurveTruth(const CubicBezier& curve) {
    const std::array<CGPoint, 4> points{curve.p1, curve.c1(), curve.c2(), curve.p2};
    std::transform(points.begin(), points.end(), q.begin(), [](CGPoint point) {
        return Point{point.x, point.y};
    });
}

CurveTruth::Point CurveTruth::pointAt(Long t) const {
    const Long u = 1 - t;
    const std::array<Long, 4> weights{u * u * u, 3 * u * u * t, 3 * u * t * t, t * t * t};
    Point sum{0, 0};
    for (std::size_t i = 0; i < 4; ++i)
        sum = {sum.x + weights[i] * q[i].x, sum.y + weights[i] * q[i].y};
    return sum;
}

CurveTruth::Point CurveTruth::velocityAt(Long t) const {
    const Long u = 1 - t;
    const std::array<Long, 3> weights{3 * u * u, 6 * u * t, 3 * t * t};
    Point sum{0, 0};
    for (std::size_t i = 0; i < 3; ++i)
        sum = {sum.x + weights[i] * (q[i + 1].x - q[i].x),
               sum.y + weights[i] * (q[i + 1].y - q[i].y)};
    return sum;
}

Long CurveTruth::speedAt(Long t) const {
    const Point velocity = velocityAt(t);
    return std::hypot(velocity.x, velocity.y);
}

Long CurveTruth::polygonLength() const {
    Long sum = 0;
    for (std::size_t i = 0; i < 3; ++i)
        sum += std::hypot(q[i + 1].x - q[i].x, q[i + 1].y - q[i].y);
    return sum;
}

Long CurveTruth::lengthBetween(Long from, Long to) const {
    const auto speed = [this](Long t) { return speedAt(t); };
    // Stretches of uneven number, so that what is symmetric is not sampled at its middle alone.
    constexpr int count = 13;
    const Long tolerance = polygonLength() * 1e-17L;
    Long sum = 0;
    for (int i = 0; i < count; ++i) {
        const Long low = from + (to - from) * i / count;
        const Long high = from + (to - from) * (i + 1) / count;
        const std::array<Long, 3> values{speed(low), speed((low + high) / 2), speed(high)};
        const Long whole = (high - low) / 6 * (values[0] + 4 * values[1] + values[2]);
        sum += simpson(speed, low, high, values, whole, tolerance, 40);
    }
    return sum;
}

Long CurveTruth::ruleLengthBetween(Long from, Long to, int n) const {
    const Long middle = (from + to) / 2;
    const Long half = (to - from) / 2;
    Long sum = 0;
    for (const auto& [place, weight] : gaussLegendreRule(n))
        sum += weight * speedAt(middle + half * place);
    return half * sum;
}

Long CurveTruth::timeAtLength(Long length) const {
    Long low = 0, high = 1, untilLow = 0;
    for (int i = 0; i < 60; ++i) {
        const Long middle = (low + high) / 2;
        const Long untilMiddle = untilLow + lengthBetween(low, middle);
        if (untilMiddle < length) {
            low = middle;
            untilLow = untilMiddle;
        } else {
            high = middle;
        }
    }
    return high;
}

Long CurveTruth::squaredDistanceAt(Long t, Point from) const {
    const Point point = pointAt(t);
    const Long dx = point.x - from.x;
    const Long dy = point.y - from.y;
    return dx * dx + dy * dy;
}

CurveTruth::Nearest CurveTruth::goldenSection(Long low, Long high, Point from) const {
    constexpr Long golden = std::numbers::phi_v<Long> - 1;
    Long left = high - golden * (high - low), right = low + golden * (high - low);
    Long leftSquared = squaredDistanceAt(left, from), rightSquared = squaredDistanceAt(right, from);
    for (int i = 0; i < 90; ++i) {
        if (leftSquared < rightSquared) {
            high = right;
            right = left;
            rightSquared = leftSquared;
            left = high - golden * (high - low);
            leftSquared = squaredDistanceAt(left, from);
        } else {
            low = left;
            left = right;
            leftSquared = rightSquared;
            right = low + golden * (high - low);
            rightSquared = squaredDistanceAt(right, from);
        }
    }
    const Long time = (low + high) / 2;
    return {time, std::sqrt(squaredDistanceAt(time, from))};
}

CurveTruth::Nearest CurveTruth::nearest(CGPoint from) const {
    constexpr std::size_t last = 2000;
    const Point point{from.x, from.y};
    const auto timeOf = [](std::size_t i) { return static_cast<Long>(i) / last; };

    std::vector<Long> squared(last + 1);
    for (std::size_t i = 0; i <= last; ++i)
        squared[i] = squaredDistanceAt(timeOf(i), point);

    Nearest best{0, std::sqrt(squared[0])};
    const auto consider = [&best](const Nearest& other) {
        if (other.distance < best.distance)
            best = other;
    };
    consider({1, std::sqrt(squared[last])});
    for (std::size_t i = 1; i < last; ++i)
        if (squared[i] < squared[i - 1] && squared[i] <= squared[i + 1])
            consider(goldenSection(timeOf(i - 1), timeOf(i + 1), point));
    consider(goldenSection(0, timeOf(1), point));
    consider(goldenSection(timeOf(last - 1), 1, point));
    return best;
}

}  // namespace quorin::test
