#pragma once

#include <cmath>
#include <initializer_list>
#include <memory>
#include <span>

#include "quorin/path/Path.h"

namespace quorin::test {

/// Straight anchors, all of one radius.
inline std::shared_ptr<Path> polygonWithRadius(std::span<const CGPoint> points, CGFloat radius,
                                               bool isClosed = true) {
    auto path = Path::create();
    for (const CGPoint& point : points) {
        PathSegment corner(point, {}, {}, PointBehavior::straight);
        corner.setRadius(radius);
        path->segments().append(corner);
    }
    path->setIsClosed(isClosed);
    return path;
}
inline std::shared_ptr<Path> polygonWithRadius(std::initializer_list<CGPoint> points,
                                               CGFloat radius, bool isClosed = true) {
    return polygonWithRadius(std::span(points.begin(), points.size()), radius, isClosed);
}

inline std::shared_ptr<Path> squareWithRadius(CGFloat side, CGFloat radius) {
    return polygonWithRadius({{0, 0}, {side, 0}, {side, side}, {0, side}}, radius);
}

inline void setRadius(Path& path, std::size_t index, CGFloat radius) {
    PathSegment segment = path.segments()[index];
    segment.setRadius(radius);
    path.segments().setAt(index, segment);
}

inline void setBehavior(Path& path, std::size_t index, PointBehavior behavior) {
    const PathSegment old = path.segments()[index];
    PathSegment segment(old.point(), old.handleIn(), old.handleOut(), behavior);
    segment.setRadius(old.radius());
    path.segments().setAt(index, segment);
}

/// Two sides of the given length that meet at `corner` under `angle`, the path coming from where
/// `direction` points and turning left, or right.
inline std::shared_ptr<Path> cornerOf(CGPoint corner, CGFloat direction, CGFloat angle,
                                      CGFloat sideLength, CGFloat radius) {
    const auto at = [&](CGFloat turn) {
        return CGPoint{corner.x + sideLength * std::cos(turn),
                       corner.y + sideLength * std::sin(turn)};
    };
    return polygonWithRadius({at(direction), corner, at(direction + angle)}, radius, false);
}

}  // namespace quorin::test
