#include "quorin/path/Path.h"

#include "quorin/geometry/PointArithmetic.h"

namespace quorin {

std::shared_ptr<Path> Path::create() {
    auto path = std::make_shared<Path>(Token());
    path->_segments = SegmentCollection(path, {});
    return path;
}

std::shared_ptr<Path> Path::create(const Path& other) {
    auto path = std::make_shared<Path>(Token());
    path->_isClosed = other._isClosed;
    path->_segments = SegmentCollection(path, other._segments);
    return path;
}

std::shared_ptr<Path> Path::create(std::span<const Curve> curves, bool isClosed) {
    auto path = create();
    path->_isClosed = isClosed;
    path->setCurves(curves);
    return path;
}

void Path::dropPlatformPath() { _cgPath = nullptr; }

inline void Path::bendLast(CGPoint handleOut) {
    const std::size_t index = _segments.count() - 1;
    if (_segments._owner == this) {
        PathAnchor& last = _segments._anchors[index];
        last.handleOut = handleOut;
        last.index = static_cast<std::int32_t>(index);
    } else {
        Segment last = _segments[index];
        last.setHandleOut(handleOut);
        _segments.setAt(index, last);
    }
}

void Path::moveTo(CGPoint point) {
    if (_segments.isEmpty())
        append().point = point;
}

void Path::addLineTo(CGPoint point) {
    if (!_segments.isEmpty())
        bendLast(CGPoint::zero);
    PathAnchor& anchor = append();
    anchor.point = point;
    // Not straight: an edit of one handle later on must leave the other side alone.
    anchor.behavior = PointBehavior::disconnected;
}

void Path::addCurveTo(CGPoint point, CGPoint controlPoint1, CGPoint controlPoint2) {
    if (!_segments.isEmpty())
        bendLast(controlPoint1 - _segments.anchors().back().point);
    PathAnchor& anchor = append();
    anchor.point = point;
    anchor.handleIn = controlPoint2 - point;
    anchor.behavior = PointBehavior::disconnected;
}

void Path::closePath() {
    _isClosed = true;
    const auto anchors = _segments.anchors();
    if (anchors.size() >= 3 && anchors.front().point == anchors.back().point) {
        Segment first = _segments[0];
        first.setHandleIn(anchors.back().handleIn);
        _segments.setAt(0, first);
        _segments.removeLast();
    }
    invalidatePathCache();
}

bool operator==(const Path& a, const Path& b) {
    return a._segments == b._segments && a._isClosed == b._isClosed;
}

}  // namespace quorin
