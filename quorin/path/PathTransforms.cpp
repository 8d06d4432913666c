#include "quorin/path/Path.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/linear/Vector3.h"

namespace quorin {

/// Lets `body` change each stored anchor where it stands, and leaves it as if it had been stored
/// back: with its position, and with the collection's path.
template <typename Body>
void Path::changeAnchors(Body body) {
    std::int32_t index = 0;
    for (PathAnchor& anchor : _segments._anchors.span()) {
        body(anchor);
        anchor.index = index++;
    }
    _segments._listedPaths.clear();
    // A collection that was supplied may lead to another path, which shows what is stored in it.
    _segments.invalidatePathCache();
    invalidatePathCache();
}

void Path::setBounds(const CGRect& rect) {
    // The fields as they are stored: a negative size mirrors the order of the corners.
    const auto& [x, y] = rect.origin;
    const auto& [width, height] = rect.size;
    const CGPoint corners[] = {{x, y}, {x + width, y}, {x + width, y + height}, {x, y + height}};
    std::size_t index = 0;
    for (const CGPoint& corner : corners) {
        Segment segment = _segments[index];
        segment.setPoint(corner);
        _segments.setAt(index++, segment);
        invalidatePathCache();
    }
}

void Path::scale(const Vector3& v) {
    const CGPoint factors = {v.x, v.y};
    changeAnchors([factors](PathAnchor& anchor) {
        anchor.point *= factors;
        anchor.handleIn *= factors;
        anchor.handleOut *= factors;
    });
}

std::shared_ptr<Path> Path::scaled(const Vector3& v) const {
    auto copy = create(*this);
    if (!v.isNearlyUnit())
        copy->scale(v);
    return copy;
}

void Path::moveBy(CGPoint delta) {
    changeAnchors([delta](PathAnchor& anchor) { anchor.point += delta; });
}

std::shared_ptr<Path> Path::offsetBy(CGPoint delta) const {
    auto copy = create(*this);
    if (!isNearlyEqual(delta, CGPoint::zero))
        copy->moveBy(delta);
    return copy;
}

void Path::reverse() {
    std::ranges::reverse(_segments._anchors.span());
    changeAnchors([](PathAnchor& anchor) { std::swap(anchor.handleIn, anchor.handleOut); });
}

std::shared_ptr<Path> Path::reversed() const {
    auto copy = create(*this);
    copy->reverse();
    return copy;
}

void Path::adjustPathSegments(Path& adjustingPath) const {
    SegmentCollection& adjusted = adjustingPath._segments;
    const std::size_t count = _segments.count();
    if (adjusted.count() == count)
        return;
    adjusted.reserve(count);
    while (adjusted.count() < count)
        adjusted.append(_segments[adjusted.count()]);
    while (adjusted.count() > count)
        adjusted.removeLast();
    adjustingPath.invalidatePathCache();
}

}  // namespace quorin
