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

template <typename... Values>
void extendAxis(Bounds& box, int axis, CGFloat p1, CGFloat p2, Values... controls) {
    const auto extend = [&](CGFloat value) {
        if (value < box.min[axis])
            box.min[axis] = value;
        if (value > box.max[axis])
            box.max[axis] = value;
    };
    const auto holds = [&](CGFloat value) {
        return value >= box.min[axis] && value <= box.max[axis];
    };
    if ((holds(controls) && ...))
        return;
    for (const CGFloat control : {controls...})
        if (std::isinf(control))
            extend(control);
    for (const CGFloat t : extremumTimes(p1, controls..., p2))
        extend(valueAt(t, p1, controls..., p2));
}

}  // namespace

void extendByTurns(Bounds& box, CGPoint p1, CGPoint c1, CGPoint c2, CGPoint p2) {
    extendAxis(box, 0, p1.x, p2.x, c1.x, c2.x);
    extendAxis(box, 1, p1.y, p2.y, c1.y, c2.y);
}

void extendByTurns(Bounds& box, CGPoint p1, CGPoint c, CGPoint p2) {
    extendAxis(box, 0, p1.x, p2.x, c.x);
    extendAxis(box, 1, p1.y, p2.y, c.y);
}

}  // namespace quorin::detail
