#include "quorin/path/SegmentCollection.h"

#include <algorithm>
#include <string>
#include <utility>

#include "quorin/path/Path.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {
namespace {

PathAnchor placedAt(std::size_t index, PathAnchor anchor) {
    anchor.index = static_cast<std::int32_t>(index);
    return anchor;
}

}  // namespace

PathSegmentCollection::PathSegmentCollection(const std::vector<PathSegment>& segments) {
    _anchors.reserve(segments.size());
    _listedPaths.reserve(segments.size());
    for (const PathSegment& segment : segments) {
        _anchors.append() = segment.anchor;
        _listedPaths.push_back(segment._path);
    }
}

PathSegmentCollection::PathSegmentCollection(std::weak_ptr<Path> path,
                                             const PathSegmentCollection& other)
    : _path(std::move(path)), _owner(_path.lock().get()), _anchors(other._anchors) {}

void PathSegmentCollection::requireIndex(std::size_t index) const {
    // Back to signed: a caller who computed -1 should read -1.
    if (index >= count())
        fatalError("segment " + std::to_string(static_cast<std::ptrdiff_t>(index)) + " of " +
                   std::to_string(count()));
}

void PathSegmentCollection::invalidatePathCache() const {
    if (const auto owner = path())
        owner->invalidatePathCache();
}

std::optional<PathSegment> PathSegmentCollection::first() const { return segmentAt(0); }

std::optional<PathSegment> PathSegmentCollection::last() const {
    return segmentAt(static_cast<std::ptrdiff_t>(count()) - 1);
}

PathSegment PathSegmentCollection::operator[](std::size_t index) const {
    requireIndex(index);
    return PathSegment(_anchors[index], _listedPaths.empty() ? _path : _listedPaths[index]);
}

std::optional<PathSegment> PathSegmentCollection::segmentAt(std::ptrdiff_t index) const {
    if (index < 0 || index >= static_cast<std::ptrdiff_t>(count()))
        return std::nullopt;
    return (*this)[static_cast<std::size_t>(index)];
}

void PathSegmentCollection::setAt(std::size_t index, const PathSegment& segment) {
    requireIndex(index);
    _anchors[index] = placedAt(index, segment.anchor);
    if (!_listedPaths.empty())
        _listedPaths[index] = _path;
    invalidatePathCache();
}

void PathSegmentCollection::addListedPath() { _listedPaths.push_back(_path); }

void PathSegmentCollection::append(const PathSegment& segment) {
    const std::size_t index = count();
    add() = placedAt(index, segment.anchor);
    invalidatePathCache();
}

void PathSegmentCollection::prepend(const PathSegment& segment) {
    // Shifted, not renumbered: a segment without an index stays without one.
    for (PathAnchor& anchor : _anchors.span())
        if (anchor.index != PathAnchor::noIndex)
            anchor.index = storedIndex(std::ptrdiff_t{anchor.index} + 1);
    _anchors.prepend(placedAt(0, segment.anchor));
    if (!_listedPaths.empty())
        _listedPaths.insert(_listedPaths.begin(), _path);
    invalidatePathCache();
}

void PathSegmentCollection::removeAt(std::size_t index) {
    requireIndex(index);
    _anchors.removeAt(index);
    reindex();
}

void PathSegmentCollection::removeLast() {
    if (isEmpty())
        fatalError("no last segment of 0");
    _anchors.removeLast();
    if (!_listedPaths.empty())
        _listedPaths.pop_back();
    invalidatePathCache();
}

void PathSegmentCollection::removeAll() {
    _anchors.removeAll();
    _listedPaths.clear();
    invalidatePathCache();
}

void PathSegmentCollection::reindex() {
    for (std::size_t i = 0; i < count(); ++i)
        _anchors[i] = placedAt(i, _anchors[i]);
    _listedPaths.clear();
    invalidatePathCache();
}

void PathSegmentCollection::transform(FunctionRef<void(PathSegment&)> body) {
    for (std::size_t i = 0; i < count(); ++i) {
        // A copy, so that a body that asks the path about the neighbours sees the segment as it
        // was until it is done.
        PathSegment segment = (*this)[i];
        body(segment);
        setAt(i, segment);
    }
    invalidatePathCache();
}

bool operator==(const PathSegmentCollection& a, const PathSegmentCollection& b) {
    // The same collection first: a segment that holds a NaN does not equal itself.
    return &a == &b || std::ranges::equal(a.anchors(), b.anchors());
}

}  // namespace quorin
