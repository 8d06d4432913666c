#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include "quorin/path/Segment.h"
#include "quorin/platform/values/FunctionRef.h"

namespace quorin {

/// The ordered anchors of a path, in one contiguous array. Every operation that stores a segment
/// stores a copy that carries the collection's path and its position; every change drops the
/// path's cached platform path. A position outside the collection is a programming error.
class PathSegmentCollection {
public:
    using const_iterator = std::vector<PathSegment>::const_iterator;
    using value_type = PathSegment;

    PathSegmentCollection() = default;
    /// Holds the segments as they are, with no path.
    explicit PathSegmentCollection(std::vector<PathSegment> segments);
    /// Copies of the segments of `other` that belong to `path`, with the indices they have there.
    PathSegmentCollection(std::weak_ptr<Path> path, const PathSegmentCollection& other);

    std::shared_ptr<Path> path() const { return _path.lock(); }

    std::size_t count() const { return _segments.size(); }
    bool isEmpty() const { return _segments.empty(); }
    std::size_t startIndex() const { return 0; }
    std::size_t endIndex() const { return count(); }
    std::size_t indexAfter(std::size_t index) const { return index + 1; }
    const_iterator begin() const { return _segments.begin(); }
    const_iterator end() const { return _segments.end(); }
    std::optional<PathSegment> first() const;
    std::optional<PathSegment> last() const;
    const PathSegment& operator[](std::size_t index) const;
    /// Nothing when there is no such position.
    std::optional<PathSegment> segmentAt(std::ptrdiff_t index) const;

    void reserve(std::size_t count) { _segments.reserve(count); }
    /// Replaces the segment at `index`.
    void setAt(std::size_t index, PathSegment segment);
    void append(PathSegment segment);
    void prepend(PathSegment segment);
    void removeAt(std::size_t index);
    void removeLast();
    /// Keeps the storage.
    void removeAll();
    /// Gives every segment the collection's path and its position again.
    void reindex();
    /// Lets `body` change each segment in order, then stores it back in its place.
    void transform(FunctionRef<void(PathSegment&)> body);

    /// Equal counts and equal segments; a collection always equals itself.
    friend bool operator==(const PathSegmentCollection& a, const PathSegmentCollection& b);

private:
    friend class Path;

    void invalidatePathCache() const;
    void store(PathSegment& place, PathSegment&& segment, std::size_t index);

    std::weak_ptr<Path> _path;
    std::vector<PathSegment> _segments;
};

}  // namespace quorin
