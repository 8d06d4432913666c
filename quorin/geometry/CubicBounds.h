#pragma once

#include <limits>

#include "quorin/geometry/PointLanes.h"
#include "quorin/platform/values/CGGeometry.h"
#include "quorin/platform/values/CGRect.h"

namespace quorin {

/// A box being gathered: empty at first, then the least upright box around all it was given.
/// A coordinate that is not a number is passed over.
struct Bounds {
    static constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();

    PointLanes min{infinity, infinity};
    PointLanes max{-infinity, -infinity};

    bool isEmpty() const { return !areBothAtMost(min, max); }
    /// Whether both points lie inside or on the edge.
    bool holds(PointLanes a, PointLanes b) const {
        const auto inside = (min <= lesser(a, b)) & (greater(a, b) <= max);
        return (inside[0] & inside[1]) != 0;
    }
    /// The null rect while the box is empty.
    CGRect rect() const {
        return isEmpty() ? CGRectNull : CGRect{pointOf(min), {max[0] - min[0], max[1] - min[1]}};
    }
};

namespace detail {

void extendByTurns(Bounds& box, CGPoint p1, CGPoint c1, CGPoint c2, CGPoint p2);
void extendByTurns(Bounds& box, CGPoint p1, CGPoint c, CGPoint p2);

}  // namespace detail

inline void extendByPoint(Bounds& box, CGPoint point) {
    box.min = lesser(lanesOf(point), box.min);
    box.max = greater(lanesOf(point), box.max);
}

/// Extends the box by the curve itself: its extrema, not its control points. Never leaves the
/// control hull, however the extrema round; a control at infinity draws the box there.
///
/// The box takes the ends first. Where it then holds the controls it holds the curve, so the
/// extrema are not worth computing, and most curves of a drawing cost a few comparisons.
inline void extendByCubic(Bounds& box, CGPoint p1, CGPoint c1, CGPoint c2, CGPoint p2) {
    extendByPoint(box, p1);
    extendByPoint(box, p2);
    if (!box.holds(lanesOf(c1), lanesOf(c2)))
        detail::extendByTurns(box, p1, c1, c2, p2);
}

/// The same for a quadratic.
inline void extendByQuadratic(Bounds& box, CGPoint p1, CGPoint c, CGPoint p2) {
    extendByPoint(box, p1);
    extendByPoint(box, p2);
    if (!box.holds(lanesOf(c), lanesOf(c)))
        detail::extendByTurns(box, p1, c, p2);
}

}  // namespace quorin
