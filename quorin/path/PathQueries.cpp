#include <algorithm>
#include <cmath>

#include "quorin/geometry/CubicBounds.h"
#include "quorin/path/ControlBox.h"
#include "quorin/path/CurveWalk.h"
#include "quorin/path/Path.h"

namespace quorin {

namespace {

struct Place {
    CubicBezier cubic;
    std::size_t index;
    CGFloat time;
    CGPoint point;
    CGFloat distance;
};

std::optional<Place> nearestPlace(const CubicBezier& cubic, std::size_t index, CGPoint from) {
    const auto time = cubic.nearestTime(from);
    if (!time)
        return std::nullopt;
    const auto point = cubic.pointAt(*time);
    if (!point)
        return std::nullopt;
    return Place{cubic, index, *time, *point, distance(from, *point)};
}

CGFloat reachOf(CGFloat lineWidth, CGFloat tolerance) { return lineWidth * 0.5 + tolerance; }

struct NearestAnchor {
    std::optional<CubicBezier> curve;
    CGFloat distance = scalar::greatestFinite;
};

/// The anchor nearest to a point and the curve that starts there. No place of the path that is
/// farther away can be the nearest, so most curves need not be searched.
NearestAnchor nearestAnchor(const Path& path, CGPoint from) {
    NearestAnchor nearest;
    CGFloat leastSquared = scalar::greatestFinite;
    walkCurves(path, [&](const CubicBezier& cubic, std::size_t) {
        const CGPoint d = cubic.p1 - from;
        const CGFloat squared = dot(d, d);
        if (squared < leastSquared) {
            leastSquared = squared;
            nearest.curve = cubic;
        }
        return false;
    });
    nearest.distance = std::sqrt(leastSquared);
    return nearest;
}

std::optional<PathCurveLocation> locationOf(const Path& path, const std::optional<Place>& place) {
    if (!place)
        return std::nullopt;
    const PathCurve curve(place->cubic, path.weak_from_this(),
                          static_cast<std::ptrdiff_t>(place->index));
    return PathCurveLocation(curve, place->time, place->point, false, place->distance);
}

}  // namespace

std::optional<CGPoint> Path::hitTestOnPath(CGPoint point, CGFloat lineWidth,
                                           CGFloat tolerance) const {
    const CGFloat reach = reachOf(lineWidth, tolerance);
    std::optional<CGPoint> hit;
    walkCurves(*this, [&](const CubicBezier& cubic, std::size_t index) {
        if (isOutOfReach(squaredDistanceAtLeast(cubic, point), reach))
            return false;
        const auto place = nearestPlace(cubic, index, point);
        if (place && place->distance < reach)
            hit = place->point;
        return hit.has_value();
    });
    return hit;
}

std::optional<PathCurveLocation> Path::nearestCurveLocation(CGPoint from, CGFloat lineWidth,
                                                            CGFloat tolerance) const {
    const CGFloat reach = reachOf(lineWidth, tolerance);
    CGFloat limit = reach;
    // What the search finds on one curve bounds what is worth searching on all the others.
    if (const auto anchor = nearestAnchor(*this, from); anchor.curve)
        if (const auto place = nearestPlace(*anchor.curve, 0, from))
            limit = std::min(limit, place->distance);

    std::optional<Place> nearest;
    walkCurves(*this, [&](const CubicBezier& cubic, std::size_t index) {
        if (isOutOfReach(squaredDistanceAtLeast(cubic, from), limit))
            return false;
        const auto place = nearestPlace(cubic, index, from);
        if (place && place->distance < (nearest ? nearest->distance : reach)) {
            nearest = place;
            limit = std::min(limit, place->distance);
        }
        return false;
    });
    return locationOf(*this, nearest);
}

std::optional<PathCurveLocation> Path::nearestLocation(CGPoint from, CGFloat accuracy) const {
    std::optional<Place> nearest;
    CGFloat limit = nearestAnchor(*this, from).distance;
    walkCurves(*this, [&](const CubicBezier& cubic, std::size_t index) {
        if (isOutOfReach(squaredDistanceAtLeast(cubic, from), limit))
            return false;
        const auto [time, distance] = cubic.nearest(from, accuracy);
        if (!nearest || distance < nearest->distance) {
            nearest = Place{cubic, index, time, *cubic.pointAt(time), distance};
            limit = std::min(limit, distance);
        }
        return false;
    });
    return locationOf(*this, nearest);
}

bool Path::contains(CGPoint point) const { return cg()->contains(point, CGPathFillRule::winding); }

CGRect Path::boundingBox() const {
    if (_segments.count() == 1)
        return {_segments[0].point(), CGSize::zero};
    if (_cgPath)
        return _cgPath->pathBoundingBox();

    Bounds bounds;
    walkCurves(*this, [&](const CubicBezier& cubic, std::size_t) {
        extendByCubic(bounds, cubic.p1, cubic.c1(), cubic.c2(), cubic.p2);
        return false;
    });
    return bounds.rect();
}

}  // namespace quorin
