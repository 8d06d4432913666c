#include <algorithm>
#include <cmath>
#include <span>

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

/// Calls `body(cubic, index)` for the curves in order that may have a place within `reach` of a
/// point, until it answers true. `body` may shorten the reach. Curves that are left out cost a few
/// comparisons each, the search of a curve a few hundred nanoseconds.
template <typename Body>
void walkCurvesInReach(const Path& path, CGPoint from, const CGFloat& reach, Body&& body) {
    constexpr int halvings = 5;
    const auto anchors = path.segments().anchors();
    if (anchors.size() < 2)
        return;
    const std::size_t curveCount = path.isClosed() ? anchors.size() : anchors.size() - 1;
    for (std::size_t i = 0; i < curveCount; ++i) {
        const PathAnchor& start = anchors[i];
        const PathAnchor& end = anchors[i + 1 < anchors.size() ? i + 1 : 0];
        if (ControlBox::between(start, end).isBeyond(from, reach, halvings))
            continue;
        if (body(cubicBetween(start, end), i))
            return;
    }
}

/// The position of the anchor nearest to a point; some position when nothing can be compared.
std::size_t nearestAnchor(std::span<const PathAnchor> anchors, CGPoint from) {
    std::size_t nearest = 0;
    CGFloat least = scalar::greatestFinite;
    for (std::size_t i = 0; i < anchors.size(); ++i) {
        const CGPoint d = anchors[i].point - from;
        const CGFloat squared = dot(d, d);
        if (squared < least) {
            least = squared;
            nearest = i;
        }
    }
    return nearest;
}

/// A curve that starts or ends at the anchor.
std::optional<CubicBezier> curveAtAnchor(const Path& path, std::size_t index) {
    const auto anchors = path.segments().anchors();
    if (anchors.size() < 2)
        return std::nullopt;
    const std::size_t start = std::min(index, anchors.size() - 2);
    return cubicBetween(anchors[start], anchors[start + 1]);
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
    walkCurvesInReach(*this, point, reach, [&](const CubicBezier& cubic, std::size_t index) {
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
    if (const auto cubic = curveAtAnchor(*this, nearestAnchor(_segments.anchors(), from)))
        if (const auto place = nearestPlace(*cubic, 0, from))
            limit = std::min(limit, place->distance);

    std::optional<Place> nearest;
    walkCurvesInReach(*this, from, limit, [&](const CubicBezier& cubic, std::size_t index) {
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
    CGFloat limit = scalar::greatestFinite;
    if (const auto cubic = curveAtAnchor(*this, nearestAnchor(_segments.anchors(), from)))
        limit = cubic->nearest(from, accuracy).distance;
    walkCurvesInReach(*this, from, limit, [&](const CubicBezier& cubic, std::size_t index) {
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
