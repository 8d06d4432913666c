#include "quorin/path/Path.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>
#include <utility>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/linear/Vector2.h"
#include "quorin/path/CurveWalk.h"

namespace quorin {
namespace {

bool isCornerWithoutHandles(const PathAnchor& anchor) {
    return anchor.behavior == PointBehavior::straight && anchor.handleIn == CGPoint::zero &&
           anchor.handleOut == CGPoint::zero;
}

constexpr auto isOblique = [](const PathSegment& a, const PathSegment& b) {
    return a.point().x != b.point().x && a.point().y != b.point().y;
};

std::size_t distinctPoints(std::span<const PathAnchor> anchors) {
    std::size_t distinct = 0;
    for (auto anchor = anchors.begin(); anchor != anchors.end(); ++anchor)
        distinct += std::none_of(anchors.begin(), anchor, [&](const PathAnchor& earlier) {
            return earlier.point == anchor->point;
        });
    return distinct;
}

}  // namespace

bool Path::iterateSegments(FunctionRef<bool(const Segment&, const Segment&)> body) const {
    if (_segments.isEmpty())
        return false;
    Segment from = _segments[0];
    for (std::size_t i = 1; i < _segments.count(); ++i) {
        Segment to = _segments[i];
        if (body(from, to))
            return true;
        from = std::move(to);
    }
    const Segment& last = from;
    const Segment first = _segments[0];
    return _isClosed && !(last == first) && body(last, first);
}

bool Path::isStraight() const {
    std::optional<Vector2> direction;
    const bool isBent = walkCurves(*this, [&direction](const CubicBezier& curve, std::size_t) {
        if (!curve.isStraight())
            return true;
        const Vector2 next(curve.p1 - curve.p2);
        const CGFloat turn = direction ? direction->angle(next) : 0;
        direction = next;
        return !(std::abs(turn) < scalar::epsilon);
    });
    return direction && !isBent;
}

bool Path::isSimpleRectangle() const {
    const auto anchors = _segments.anchors();
    if (!_isClosed || anchors.size() != 4)
        return false;
    if (!std::ranges::all_of(anchors, isCornerWithoutHandles))
        return false;
    if (iterateSegments(isOblique))
        return false;
    // Squares shrunk to a line or a point still pass; one doubled corner makes a triangle.
    if (distinctPoints(anchors) == 3)
        return false;
    const CGFloat radius = anchors[0].radius;
    return std::ranges::all_of(
        anchors, [radius](const PathAnchor& anchor) { return anchor.radius == radius; });
}

}  // namespace quorin
