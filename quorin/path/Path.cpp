#include "quorin/path/Path.h"

#include <utility>

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

void Path::append(Segment segment) {
    _segments.adoptLast(std::move(segment));
    // The collection would lock its weak reference to find this cache, at more than the cost of
    // the anchor. One that was supplied may lead elsewhere, and drops that path's cache as well.
    if (_segments._owner != this)
        _segments.invalidatePathCache();
    invalidatePathCache();
}

void Path::bendLast(CGPoint handleOut) {
    if (_segments.isEmpty())
        return;
    const std::size_t index = _segments.count() - 1;
    if (_segments._owner == this) {
        Segment& last = _segments._segments[index];
        last._handleOut = handleOut;
        _segments.adopt(last, index);
    } else {
        Segment last = _segments[index];
        last.setHandleOut(handleOut);
        _segments.setAt(index, std::move(last));
    }
}

void Path::moveTo(CGPoint point) {
    if (_segments.isEmpty())
        append(Segment(point, CGPoint::zero, CGPoint::zero, PointBehavior::straight));
}

void Path::addLineTo(CGPoint point) {
    bendLast(CGPoint::zero);
    // Not straight: an edit of one handle later on must leave the other side alone.
    append(Segment(point, CGPoint::zero, CGPoint::zero, PointBehavior::disconnected));
}

void Path::addCurveTo(CGPoint point, CGPoint controlPoint1, CGPoint controlPoint2) {
    if (!_segments.isEmpty())
        bendLast(controlPoint1 - _segments[_segments.count() - 1].point());
    append(Segment(point, controlPoint2 - point, CGPoint::zero, PointBehavior::disconnected));
}

void Path::closePath() {
    _isClosed = true;
    const std::size_t count = _segments.count();
    if (count >= 3 && _segments[0].point() == _segments[count - 1].point()) {
        Segment first = _segments[0];
        first.setHandleIn(_segments[count - 1].handleIn());
        _segments.setAt(0, std::move(first));
        _segments.removeLast();
    }
    invalidatePathCache();
}

bool operator==(const Path& a, const Path& b) {
    return a._segments == b._segments && a._isClosed == b._isClosed;
}

}  // namespace quorin
