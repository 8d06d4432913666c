#include "quorin/path/SegmentCollection.h"

#include <string>
#include <utility>

#include "quorin/path/Path.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {
namespace {

bool isSameReference(const std::weak_ptr<Path>& a, const std::weak_ptr<Path>& b) {
    return !a.owner_before(b) && !b.owner_before(a);
}

}  // namespace

PathSegmentCollection::PathSegmentCollection(std::vector<PathSegment> segments)
    : _segments(std::move(segments)) {}

PathSegmentCollection::PathSegmentCollection(std::weak_ptr<Path> path,
                                             const PathSegmentCollection& other)
    : _path(std::move(path)), _owner(_path.lock().get()), _segments(other._segments) {
    for (PathSegment& segment : _segments)
        segment._path = _path;
}

void PathSegmentCollection::failAt(std::size_t index) const {
    // Back to signed: a caller who computed -1 should read -1.
    fatalError("segment " + std::to_string(static_cast<std::ptrdiff_t>(index)) + " of " +
               std::to_string(count()));
}

void PathSegmentCollection::invalidatePathCache() const {
    if (const auto owner = path())
        owner->invalidatePathCache();
}

void PathSegmentCollection::adopt(PathSegment& segment, std::size_t index) const {
    // Counting a weak reference is an atomic operation, comparing two is not.
    if (!isSameReference(segment._path, _path))
        segment._path = _path;
    segment._index = static_cast<std::int32_t>(index);
}

void PathSegmentCollection::adoptLast(PathSegment&& segment) {
    adopt(segment, count());
    _segments.push_back(std::move(segment));
}

std::optional<PathSegment> PathSegmentCollection::first() const { return segmentAt(0); }

std::optional<PathSegment> PathSegmentCollection::last() const {
    return segmentAt(static_cast<std::ptrdiff_t>(count()) - 1);
}

std::optional<PathSegment> PathSegmentCollection::segmentAt(std::ptrdiff_t index) const {
    if (index < 0 || index >= static_cast<std::ptrdiff_t>(count()))
        return std::nullopt;
    return _segments[static_cast<std::size_t>(index)];
}

void PathSegmentCollection::setAt(std::size_t index, PathSegment segment) {
    requireIndex(index);
    adopt(segment, index);
    _segments[index] = std::move(segment);
    invalidatePathCache();
}

void PathSegmentCollection::append(PathSegment segment) {
    adoptLast(std::move(segment));
    invalidatePathCache();
}

void PathSegmentCollection::prepend(PathSegment segment) {
    // Shifted, not renumbered: a segment without an index stays without one.
    for (PathSegment& existing : _segments)
        if (existing._index != PathSegment::noIndex)
            existing._index = PathSegment::storedIndex(std::ptrdiff_t{existing._index} + 1);
    adopt(segment, 0);
    _segments.insert(_segments.begin(), std::move(segment));
    invalidatePathCache();
}

void PathSegmentCollection::removeAt(std::size_t index) {
    requireIndex(index);
    _segments.erase(begin() + static_cast<std::ptrdiff_t>(index));
    reindex();
}

void PathSegmentCollection::removeLast() {
    if (isEmpty())
        fatalError("no last segment of 0");
    _segments.pop_back();
    invalidatePathCache();
}

void PathSegmentCollection::removeAll() {
    _segments.clear();
    invalidatePathCache();
}

void PathSegmentCollection::reindex() {
    for (std::size_t i = 0; i < count(); ++i)
        adopt(_segments[i], i);
    invalidatePathCache();
}

void PathSegmentCollection::transform(FunctionRef<void(PathSegment&)> body) {
    for (std::size_t i = 0; i < count(); ++i) {
        // A copy, so that a body that asks the path about the neighbours sees the segment as it
        // was until it is done.
        PathSegment segment = _segments[i];
        body(segment);
        setAt(i, std::move(segment));
    }
    invalidatePathCache();
}

bool operator==(const PathSegmentCollection& a, const PathSegmentCollection& b) {
    // The same collection first: a segment that holds a NaN does not equal itself.
    return &a == &b || a._segments == b._segments;
}

}  // namespace quorin
