#include "quorin/geometry/Extrema.h"

namespace quorin::detail {

namespace {

/// Small enough to multiply, for the differences may have overflowed too.
PointLanes shrunk(CGPoint point) { return lanesOf(point) * 0x1p-600; }

}  // namespace

TurnTimes hugeTurnTimes(CGPoint p1, CGPoint c1, CGPoint c2, CGPoint p2) {
    return turnTimes(shrunk(c1) - shrunk(p1), shrunk(c2) - shrunk(c1), shrunk(p2) - shrunk(c2));
}

TurnTimes hugeTurnTimes(CGPoint p1, CGPoint c, CGPoint p2) {
    const PointLanes d1 = shrunk(c) - shrunk(p1);
    const PointLanes d2 = shrunk(p2) - shrunk(c);
    return {d1 / (d1 - d2), PointLanes{}};
}

}  // namespace quorin::detail
