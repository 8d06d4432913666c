#include "quorin/path/Segment.h"

#include <string>
#include <utility>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/path/Path.h"
#include "quorin/platform/values/FatalError.h"
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
    : _point(point),
      _handleIn(handleIn),
      _handleOut(handleOut),
      _path(std::move(of)),
      _index(at ? storedIndex(*at) : noIndex),
      _behavior(behavior) {}

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

std::int32_t PathSegment::storedIndex(std::ptrdiff_t index) {
    const auto stored = static_cast<std::int32_t>(index);
    if (stored != index || stored == noIndex)
        fatalError("segment index " + std::to_string(index) + " beyond 32 bits");
    return stored;
}

void PathSegment::invalidatePathCache() const {
    if (const auto owner = path())
        owner->invalidatePathCache();
}

void PathSegment::setHandleIn(CGPoint handle) {
    _handleIn = handle;
    invalidatePathCache();
}

void PathSegment::setHandleOut(CGPoint handle) {
    _handleOut = handle;
    invalidatePathCache();
}

CGPoint PathSegment::controlPointIn() const { return _point + _handleIn; }

CGPoint PathSegment::controlPointOut() const { return _point + _handleOut; }

void PathSegment::setControlPointIn(CGPoint controlPoint) { setHandleIn(controlPoint - _point); }

void PathSegment::setControlPointOut(CGPoint controlPoint) { setHandleOut(controlPoint - _point); }

CGPoint PathSegment::controlPoint(HandleType type) const {
    return type == HandleType::handleIn ? controlPointIn() : controlPointOut();
}

std::array<CGPoint, 3> PathSegment::allPoints() const {
    return {_point, controlPointIn(), controlPointOut()};
}

PathSegment PathSegment::reversed() const {
    return PathSegment(_point, _handleOut, _handleIn, _behavior, _path, index());
}

std::string PathSegment::description() const {
    return textForm(_point) + " in: " + textForm(_handleIn) + " out: " + textForm(_handleOut) +
           " " + std::string(quorin::description(_behavior)) + " radius: " + textForm(_radius) +
           " path: " + (_path.expired() ? "nil" : "Optional(Path)") +
           " index: " + textForm(index());
}

bool operator==(const PathSegment& a, const PathSegment& b) {
    return a._point == b._point && a._handleIn == b._handleIn && a._handleOut == b._handleOut &&
           a._behavior == b._behavior && a._index == b._index && a._radius == b._radius;
}

}  // namespace quorin
