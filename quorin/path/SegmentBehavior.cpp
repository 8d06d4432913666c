#include "quorin/path/Segment.h"

#include <algorithm>
#include <cmath>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/linear/Vector2.h"
#include "quorin/path/Path.h"

namespace quorin {
namespace {

/// How far a made handle reaches towards the neighbour.
constexpr CGFloat reach = 0.45;

struct Neighbours {
    std::optional<PathSegment> previous, next;
};

Neighbours neighboursOf(const PathSegment& segment) {
    const auto path = segment.path();
    const auto index = segment.index();
    if (!path || !index)
        return {};

    const auto count = static_cast<std::ptrdiff_t>(path->segments().count());
    std::ptrdiff_t previous = *index - 1;
    std::ptrdiff_t next = *index + 1;
    if (path->isClosed()) {
        if (previous < 0)
            previous = count - 1;
        if (next >= count)
            next = 0;
    }
    return {path->segments().segmentAt(previous), path->segments().segmentAt(next)};
}

CGPoint smoothHandleOut(CGPoint point, const Neighbours& neighbours) {
    const auto& [previous, next] = neighbours;
    if (previous && next) {
        const CGPoint before = previous->point();
        const CGPoint after = next->point();
        const CGFloat length = reach * std::min({distance(point, before), distance(point, after),
                                                 distance(before, after)});
        return CGPoint(Vector2(after - before).normalized()) * length;
    }
    if (previous)
        return (point - previous->point()) * reach;
    if (next)
        return (next->point() - point) * reach;
    return {20, 0};
}

/// As long as `handle`, in the direction opposite to `leading`. A zero `leading` has one too:
/// both arguments are then -0.0, the angle is -π, and the result points along -y.
CGPoint turnedAgainst(CGPoint leading, CGPoint handle) {
    const CGFloat length = std::sqrt(dot(handle, handle));
    const CGFloat angle = std::atan2(-leading.x, -leading.y);
    return {length * std::sin(angle), length * std::cos(angle)};
}

CGPoint coupled(CGPoint leading, CGPoint opposite, PointBehavior behavior) {
    switch (behavior) {
        case PointBehavior::mirrored:
            return -leading;
        case PointBehavior::asymmetric:
            return turnedAgainst(leading, opposite);
        case PointBehavior::straight:
        case PointBehavior::disconnected:
            break;
    }
    return opposite;
}

}  // namespace

void PathSegment::setHandle(CGPoint handle, HandleType type) {
    const bool isIn = type == HandleType::handleIn;
    CGPoint& opposite = isIn ? anchor.handleOut : anchor.handleIn;
    (isIn ? anchor.handleIn : anchor.handleOut) = handle;
    opposite = coupled(handle, opposite, anchor.behavior);
    invalidatePathCache();
}

void PathSegment::setControlPoint(CGPoint controlPoint, HandleType type) {
    setHandle(controlPoint - anchor.point, type);
}

void PathSegment::clearHandles() {
    anchor.handleIn = anchor.handleOut = CGPoint::zero;
    invalidatePathCache();
}

void PathSegment::setBehavior(PointBehavior behavior) {
    const bool wasCorner = anchor.behavior == PointBehavior::straight;
    anchor.behavior = behavior;
    if (behavior == PointBehavior::straight) {
        clearHandles();
    } else if (wasCorner) {
        // Every smooth behaviour starts mirrored; the first drag shows what it couples.
        anchor.handleOut = smoothHandleOut(anchor.point, neighboursOf(*this));
        anchor.handleIn = -anchor.handleOut;
        invalidatePathCache();
    } else {
        setHandle(anchor.handleOut, HandleType::handleOut);
    }
}

}  // namespace quorin
