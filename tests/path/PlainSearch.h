#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <optional>

#include "quorin/path/CubicBezier.h"
#include "quorin/path/Path.h"

/// The searches one step after another, as they would be written were there no hurry: what the
/// library's faster ways have to agree with to the last bit.
namespace quorin::test {

/// Whether the doubles are the same, bit for bit; what is not a number has no bits to speak of.
inline bool areSame(CGFloat a, CGFloat b) {
    return (std::isnan(a) && std::isnan(b)) ||
           std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}
inline bool areSame(CGPoint a, CGPoint b) { return areSame(a.x, b.x) && areSame(a.y, b.y); }
template <typename Value>
bool areSame(const std::optional<Value>& a, const std::optional<Value>& b) {
    return a && b ? areSame(*a, *b) : a.has_value() == b.has_value();
}

inline CGFloat plainNearestSampledTime(const CubicBezier& curve, CGPoint from) {
    const auto squaredAt = [&](CGFloat t) { return distance(*curve.pointAt(t), from, true); };
    CGFloat time = 0;
    CGFloat least = squaredAt(0);
    for (int i = 1; i <= 100; ++i) {
        const CGFloat t = static_cast<CGFloat>(i) / 100;
        const CGFloat squared = squaredAt(t);
        if (squared < least) {
            time = t;
            least = squared;
        }
    }
    const auto moveTo = [&](CGFloat t) {
        if (!(t >= 0 && t <= 1))
            return false;
        const CGFloat squared = squaredAt(t);
        if (!(squared < least))
            return false;
        time = t;
        least = squared;
        return true;
    };
    for (CGFloat step = 0.005; step > scalar::curvetimeEpsilon;)
        if (!moveTo(time - step) && !moveTo(time + step))
            step /= 2;
    return time;
}

/// The first curve within reach.
inline std::optional<CGPoint> plainHit(const Path& path, CGPoint point, CGFloat reach) {
    for (const PathCurve& curve : path.curves()) {
        const auto time = curve.nearestTime(point);
        const auto place = time ? curve.pointAt(*time) : std::nullopt;
        if (place && distance(*place, point) < reach)
            return place;
    }
    return std::nullopt;
}

/// The nearest place within reach, the earliest of equally near ones.
inline std::optional<PathCurveLocation> plainNearest(const Path& path, CGPoint point,
                                                     CGFloat reach) {
    std::optional<PathCurveLocation> nearest;
    for (const PathCurve& curve : path.curves()) {
        const auto time = curve.nearestTime(point);
        const auto place = time ? curve.pointAt(*time) : std::nullopt;
        if (!place)
            continue;
        const PathCurveLocation candidate(curve, *time, place, false, distance(point, *place));
        if (candidate.distance() < (nearest ? nearest->distance() : reach))
            nearest = candidate;
    }
    return nearest;
}

}  // namespace quorin::test
