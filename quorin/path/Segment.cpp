#include "quorin/path/Segment.h"

#include <string>
#include <utility>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/path/Path.h"
#include "quorin/platform/values/TextForm.h"

namespace quorin {
namespace {

PointBehavior inferredBehavior(CGPoint handleIn, CGPoint handleOut) {
    if (handleIn == CGPoint::zero && handleOut == CGPoint::zero)
        return PointBehavior::straight;
    return handleIn == -handleOut ? PointBehavior::mirrored : PointBehavior::disconnected;
}

}  // namespace

PathSegment::PathSegment(CGPoint point, CGPoint handleIn, CGPoint handleOut, PointBehavior behavior,
                         std::weak_ptr<Path> of, std::optional<std::ptrdiff_t> at)
    : anchor{point, handleIn, handleOut, 0, at ? storedIndex(*at) : PathAnchor::noIndex, behavior},
      _path(std::move(of)) {}

PathSegment PathSegment::withControlPoints(CGPoint point, CGPoint controlPointIn,
                                           CGPoint controlPointOut,
                                           std::optional<PointBehavior> behavior,
                                           std::weak_ptr<Path> of,
                                           std::optional<std::ptrdiff_t> at) {
    const CGPoint handleIn = controlPointIn - point;
    const CGPoint handleOut = controlPointOut - point;
    return PathSegment(point, handleIn, handleOut,
                       behavior.value_or(inferredBehavior(handleIn, handleOut)), std::move(of), at);
}

std::optional<std::ptrdiff_t> PathSegment::index() const {
    if (anchor.index == PathAnchor::noIndex)
        return std::nullopt;
    return anchor.index;
}

void PathSegment::invalidatePathCache() const {
    if (const auto owner = path())
        owner->invalidatePathCache();
}

void PathSegment::setHandleIn(CGPoint handle) {
    anchor.handleIn = handle;
    invalidatePathCache();
}

void PathSegment::setHandleOut(CGPoint handle) {
    anchor.handleOut = handle;
    invalidatePathCache();
}

CGPoint PathSegment::controlPointIn() const { return anchor.point + anchor.handleIn; }

CGPoint PathSegment::controlPointOut() const { return anchor.point + anchor.handleOut; }

void PathSegment::setControlPointIn(CGPoint controlPoint) {
    setHandleIn(controlPoint - anchor.point);
}

void PathSegment::setControlPointOut(CGPoint controlPoint) {
    setHandleOut(controlPoint - anchor.point);
}

CGPoint PathSegment::controlPoint(HandleType type) const {
    return type == HandleType::handleIn ? controlPointIn() : controlPointOut();
}

std::array<CGPoint, 3> PathSegment::allPoints() const {
    return {anchor.point, controlPointIn(), controlPointOut()};
}

PathSegment PathSegment::reversed() const {
    return PathSegment(anchor.point, anchor.handleOut, anchor.handleIn, anchor.behavior, _path,
                       index());
}

std::string PathSegment::description() const {
    return textForm(anchor.point) + " in: " + textForm(anchor.handleIn) +
           " out: " + textForm(anchor.handleOut) + " " +
           std::string(quorin::description(anchor.behavior)) +
           " radius: " + textForm(anchor.radius) +
           " path: " + (_path.expired() ? "nil" : "Optional(Path)") +
           " index: " + textForm(index());
}

}  // namespace quorin
