#pragma once

#include <algorithm>
#include <array>

#include "quorin/geometry/Extrema.h"
#include "quorin/geometry/PointArithmetic.h"
#include "quorin/platform/cgpath/MonotonePiece.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// The upright box of a curve's points, which holds the curve.
struct ControlHull {
    CGPoint min, max;

    template <typename... Points>
    static ControlHull of(Points... points) {
        return {{std::min({points.x...}), std::min({points.y...})},
                {std::max({points.x...}), std::max({points.y...})}};
    }
};

namespace detail {

/// Calls `body` with the pieces between the given times. Neighbours share an end, bit for bit,
/// and no end leaves the hull.
template <typename Body>
void cut(const OutlineCurve& curve, const ControlHull& hull, CGPoint end, const Roots& turnsInX,
         const Roots& turnsInY, Body&& body) {
    std::array<CGFloat, 6> times;
    CGFloat* last = std::merge(turnsInX.begin(), turnsInX.end(), turnsInY.begin(), turnsInY.end(),
                               times.data());
    CGFloat time = 0;
    CGPoint place = curve.start;
    for (const CGFloat* next = times.data(); next != last; ++next) {
        if (*next == time)
            continue;
        const CGPoint turn = curve.start + curve.wayTo(*next);
        const CGPoint inside{std::clamp(turn.x, hull.min.x, hull.max.x),
                             std::clamp(turn.y, hull.min.y, hull.max.y)};
        body(MonotonePiece{time, *next, place, inside});
        time = *next;
        place = inside;
    }
    body(MonotonePiece{time, 1, place, end});
}

}  // namespace detail

/// Calls `body` with the stretches of a curve between its turns in x and in y, in order.
template <typename Body>
void forEachMonotonePiece(const OutlineCurve& curve, CGPoint p1, CGPoint c1, CGPoint c2, CGPoint p2,
                          Body&& body) {
    detail::cut(curve, ControlHull::of(p1, c1, c2, p2), p2, extremumTimes(p1.x, c1.x, c2.x, p2.x),
                extremumTimes(p1.y, c1.y, c2.y, p2.y), body);
}

/// The same for a quadratic.
template <typename Body>
void forEachMonotonePiece(const OutlineCurve& curve, CGPoint p1, CGPoint c, CGPoint p2,
                          Body&& body) {
    detail::cut(curve, ControlHull::of(p1, c, p2), p2, extremumTimes(p1.x, c.x, p2.x),
                extremumTimes(p1.y, c.y, p2.y), body);
}

}  // namespace quorin
