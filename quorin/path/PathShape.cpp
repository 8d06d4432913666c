#include "quorin/path/Path.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/linear/Vector2.h"
#include "quorin/path/CurveWalk.h"

namespace quorin {
namespace {

bool isCornerWithoutHandles(const PathSegment& segment) {
    return segment.behavior() == PointBehavior::straight && segment.handleIn() == CGPoint::zero &&
           segment.handleOut() == CGPoint::zero;
}

constexpr auto isOblique = [](const PathSegment& a, const PathSegment& b) {
    return a.point().x != b.point().x && a.point().y != b.point().y;
};

std::size_t distinctAnchors(const PathSegmentCollection& segments) {
    std::size_t distinct = 0;
    for (auto segment = segments.begin(); segment != segments.end(); ++segment)
        distinct += std::none_of(segments.begin(), segment, [&](const PathSegment& earlier) {
            return earlier.point() == segment->point();
        });
    return distinct;
}

}  // namespace

bool Path::iterateSegments(FunctionRef<bool(const Segment&, const Segment&)> body) const {
    if (_segments.isEmpty())
        return false;
    for (auto to = _segments.begin() + 1; to != _segments.end(); ++to)
        if (body(*(to - 1), *to))
            return true;

    const Segment& first = *_segments.begin();
    const Segment& last = *(_segments.end() - 1);
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
    if (!_isClosed || _segments.count() != 4)
        return false;
    if (!std::all_of(_segments.begin(), _segments.end(), isCornerWithoutHandles))
        return false;
    if (iterateSegments(isOblique))
        return false;
    // Squares shrunk to a line or a point still pass; one doubled corner makes a triangle.
    if (distinctAnchors(_segments) == 3)
        return false;
    const CGFloat radius = _segments[0].radius();
    return std::all_of(_segments.begin(), _segments.end(),
                       [radius](const Segment& segment) { return segment.radius() == radius; });
}

}  // namespace quorin
