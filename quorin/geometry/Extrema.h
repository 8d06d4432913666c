#pragma once

#include <cmath>
#include <limits>

#include "quorin/geometry/PointLanes.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// Where a Bézier curve turns around in x and where in y: at most two times for each, in no order.
/// A time that is not strictly between 0 and 1 stands for none; a place where a coordinate only
/// pauses is none. Nothing turns that is infinite or not a number, or less than 1e-150 in size.
struct TurnTimes {
    PointLanes first, second;

    static bool isTurn(CGFloat time) { return time > 0 && time < 1; }
};

namespace detail {

/// Source: the derivative in Bernstein form, d1·(1 − t)² + 2·d2·t·(1 − t) + d3·t². Its
/// discriminant is d2² − d1·d3, and q, a sum of like signs, keeps both roots q / a and d1 / q
/// accurate.
inline TurnTimes turnTimes(PointLanes d1, PointLanes d2, PointLanes d3) {
    constexpr CGFloat none = std::numeric_limits<CGFloat>::quiet_NaN();
    const PointLanes discriminant = d2 * d2 - d1 * d3;
    const PointLanes turning = discriminant > 0.0 ? discriminant : PointLanes{none, none};
    const PointLanes root{std::sqrt(turning[0]), std::sqrt(turning[1])};
    const PointLanes half = d1 - d2;
    const PointLanes q = half + (half < 0.0 ? -root : root);
    return {q / (half - d2 + d3), d1 / q};
}

/// For coordinates whose squares overflow.
TurnTimes hugeTurnTimes(CGPoint p1, CGPoint c1, CGPoint c2, CGPoint p2);
TurnTimes hugeTurnTimes(CGPoint p1, CGPoint c, CGPoint p2);

inline bool haveSafeSquares(PointLanes a, PointLanes b, PointLanes c) {
    constexpr PointLanes most{0x1p500, 0x1p500};
    return areBothAtMost(greater(greater(a, b), c), most) &&
           areBothAtMost(-most, lesser(lesser(a, b), c));
}

}  // namespace detail

inline TurnTimes turnTimes(CGPoint p1, CGPoint c1, CGPoint c2, CGPoint p2) {
    const PointLanes d1 = lanesOf(c1) - lanesOf(p1);
    const PointLanes d2 = lanesOf(c2) - lanesOf(c1);
    const PointLanes d3 = lanesOf(p2) - lanesOf(c2);
    if (!detail::haveSafeSquares(d1, d2, d3))
        return detail::hugeTurnTimes(p1, c1, c2, p2);
    return detail::turnTimes(d1, d2, d3);
}

/// The same for a quadratic: `second` never is a turn.
inline TurnTimes turnTimes(CGPoint p1, CGPoint c, CGPoint p2) {
    const PointLanes d1 = lanesOf(c) - lanesOf(p1);
    const PointLanes d2 = lanesOf(p2) - lanesOf(c);
    if (!detail::haveSafeSquares(d1, d2, d2))
        return detail::hugeTurnTimes(p1, c, p2);
    return {d1 / (d1 - d2), PointLanes{}};
}

}  // namespace quorin
