#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>

#include "quorin/path/PointBehavior.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

class Decoder;
class Encoder;
class Path;

/// An anchor of a path: a point, an in-handle and an out-handle relative to it, how the handles
/// are coupled, and the corner radius, all in points.
///
/// A value: a segment read from a path is a snapshot that knows its place (`index`) and its path
/// (a weak reference). Changing it drops that path's cached platform path, but changes nothing
/// else until it is stored back.
class PathSegment {
public:
    using PointBehavior = quorin::PointBehavior;
    using HandleType = quorin::HandleType;

    PathSegment() = default;
    /// Handles relative to `point`, stored as they are whatever the behaviour. An index beyond 32
    /// bits is a programming error.
    PathSegment(CGPoint point, CGPoint handleIn, CGPoint handleOut, PointBehavior behavior,
                std::weak_ptr<Path> of = {}, std::optional<std::ptrdiff_t> at = std::nullopt);
    /// Absolute control points. A missing behaviour is inferred with exact comparisons: straight
    /// without handles, mirrored when they are opposites, otherwise disconnected.
    static PathSegment withControlPoints(CGPoint point, CGPoint controlPointIn,
                                         CGPoint controlPointOut,
                                         std::optional<PointBehavior> behavior = std::nullopt,
                                         std::weak_ptr<Path> of = {},
                                         std::optional<std::ptrdiff_t> at = std::nullopt);

    CGPoint point() const { return _point; }
    CGPoint handleIn() const { return _handleIn; }
    CGPoint handleOut() const { return _handleOut; }
    PointBehavior behavior() const { return _behavior; }
    CGFloat radius() const { return _radius; }
    std::optional<std::ptrdiff_t> index() const {
        return _index == noIndex ? std::nullopt : std::optional<std::ptrdiff_t>(_index);
    }
    std::shared_ptr<Path> path() const { return _path.lock(); }

    void setPoint(CGPoint point) { _point = point; }
    void setRadius(CGFloat radius) { _radius = radius; }
    /// Stores this handle only, without coupling, and drops the path's cached platform path.
    void setHandleIn(CGPoint handle);
    void setHandleOut(CGPoint handle);

    CGPoint controlPointIn() const;
    CGPoint controlPointOut() const;
    void setControlPointIn(CGPoint controlPoint);
    void setControlPointOut(CGPoint controlPoint);
    CGPoint controlPoint(HandleType type) const;

    /// What an editor does while a handle is dragged: stores it and moves the opposite handle as
    /// the behaviour wants.
    void setHandle(CGPoint handle, HandleType type);
    void setControlPoint(CGPoint controlPoint, HandleType type);
    /// Makes handles from the neighbours when a corner becomes smooth, drops them when it becomes
    /// straight, and couples them anew, the out-handle leading, between smooth behaviours.
    void setBehavior(PointBehavior behavior);
    /// Both handles become zero; the behaviour stays.
    void clearHandles();

    /// Whether the behaviour is anything but straight, whatever the handles are.
    bool hasHandles() const { return _behavior != PointBehavior::straight; }
    /// The point, the in-control point, the out-control point.
    std::array<CGPoint, 3> allPoints() const;
    /// A copy with the handles exchanged and the radius back at 0.
    PathSegment reversed() const;
    std::string description() const;

    /// Keys "point", "handleIn", "handleOut", "behavior", "radius", all required in reading.
    void encode(Encoder& encoder) const;
    static PathSegment decode(Decoder& decoder);

    /// Exact, index and radius included; which path it belongs to does not count.
    friend bool operator==(const PathSegment& a, const PathSegment& b);

private:
    friend class Path;
    friend class PathSegmentCollection;

    static constexpr std::int32_t noIndex = std::numeric_limits<std::int32_t>::min();

    static std::int32_t storedIndex(std::ptrdiff_t index);
    void invalidatePathCache() const;

    CGPoint _point, _handleIn, _handleOut;
    CGFloat _radius = 0;
    std::weak_ptr<Path> _path;
    std::int32_t _index = noIndex;
    PointBehavior _behavior = PointBehavior::straight;
};

static_assert(sizeof(PathSegment) <= 96, "a path of 100,000 anchors is walked at every click");

}  // namespace quorin
