#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "quorin/path/Anchor.h"
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

    CGPoint point() const { return anchor.point; }
    CGPoint handleIn() const { return anchor.handleIn; }
    CGPoint handleOut() const { return anchor.handleOut; }
    PointBehavior behavior() const { return anchor.behavior; }
    CGFloat radius() const { return anchor.radius; }
    std::optional<std::ptrdiff_t> index() const;
    std::shared_ptr<Path> path() const { return _path.lock(); }

    void setPoint(CGPoint point) { anchor.point = point; }
    void setRadius(CGFloat radius) { anchor.radius = radius; }
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
    bool hasHandles() const { return anchor.behavior != PointBehavior::straight; }
    /// The point, the in-control point, the out-control point.
    std::array<CGPoint, 3> allPoints() const;
    /// A copy with the handles exchanged and the radius back at 0.
    PathSegment reversed() const;
    std::string description() const;

    /// Keys "point", "handleIn", "handleOut", "behavior", "radius", all required in reading.
    void encode(Encoder& encoder) const;
    static PathSegment decode(Decoder& decoder);

    /// Exact, index and radius included; which path it belongs to does not count.
    friend bool operator==(const PathSegment& a, const PathSegment& b) {
        return a.anchor == b.anchor;
    }

private:
    friend class Path;
    friend class PathSegmentCollection;

    PathSegment(const PathAnchor& stored, std::weak_ptr<Path> path)
        : anchor(stored), _path(std::move(path)) {}

    void invalidatePathCache() const;

    PathAnchor anchor;
    std::weak_ptr<Path> _path;
};

}  // namespace quorin
