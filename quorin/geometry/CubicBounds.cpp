#include "quorin/geometry/CubicBounds.h"

#include <algorithm>
#include <cmath>

#include "quorin/geometry/Extrema.h"

namespace quorin::detail {

namespace {

/// A step from `a` to `b` that stays between them however it rounds.
CGFloat between(CGFloat a, CGFloat b, CGFloat t) {
    return std::clamp((1 - t) * a + t * b, std::min(a, b), std::max(a, b));
}

// De Casteljau's scheme takes only steps between two values, which keeps the result in the hull.
CGFloat valueAt(CGFloat t, CGFloat p1, CGFloat c, CGFloat p2) {
    return between(between(p1, c, t), between(c, p2, t), t);
}

CGFloat valueAt(CGFloat t, CGFloat p1, CGFloat c1, CGFloat c2, CGFloat p2) {
    return between(valueAt(t, p1, c1, c2), valueAt(t, c1, c2, p2), t);
}

void extendCoordinate(Bounds& box, int axis, CGFloat value) {
    if (value < box.min[axis])
        box.min[axis] = value;
    if (value > box.max[axis])
        box.max[axis] = value;
}

template <typename... Controls>
void extend(Bounds& box, CGPoint p1, CGPoint p2, Controls... controls) {
    for (const CGPoint control : {controls...}) {
        if (std::isinf(control.x))
            extendCoordinate(box, 0, control.x);
        if (std::isinf(control.y))
            extendCoordinate(box, 1, control.y);
    }
    const TurnTimes turns = turnTimes(p1, controls..., p2);
    for (const PointLanes times : {turns.first, turns.second}) {
        if (TurnTimes::isTurn(times[0]))
            extendCoordinate(box, 0, valueAt(times[0], p1.x, controls.x..., p2.x));
        if (TurnTimes::isTurn(times[1]))
            extendCoordinate(box, 1, valueAt(times[1], p1.y, controls.y..., p2.y));
    }
}

}  // namespace

void extendByTurns(Bounds& box, CGPoint p1, CGPoint c1, CGPoint c2, CGPoint p2) {
    extend(box, p1, p2, c1, c2);
}

void extendByTurns(Bounds& box, CGPoint p1, CGPoint c, CGPoint p2) { extend(box, p1, p2, c); }

}  // namespace quorin::detail
