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
    /// Holds the segments as they are, without a path: each keeps its own path and index until an
    /// operation stores it.
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
    const PathSegment& operator[](std::size_t index) const {
        requireIndex(index);
        return _segments[index];
    }
    /// Nothing when there is no such position.
    std::optional<PathSegment> segmentAt(std::ptrdiff_t index) const;

    void reserve(std::size_t count) { _segments.reserve(count); }
    /// Replaces the segment at `index`.
    void setAt(std::size_t index, PathSegment segment);
    void append(PathSegment segment);
    /// Puts the segment first and adds one to the index of every other.
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

    void requireIndex(std::size_t index) const {
        if (index >= count())
            failAt(index);
    }
    [[noreturn]] void failAt(std::size_t index) const;
    void invalidatePathCache() const;
    /// Gives `segment` the collection's path and `index`.
    void adopt(PathSegment& segment, std::size_t index) const;
    /// `append` for a caller who drops the cache.
    void adoptLast(PathSegment&& segment);

    std::weak_ptr<Path> _path;
    /// Where `_path` led at first, to be compared only: the weak reference keeps the place from
    /// being used again. When set, every stored segment has `_path` as its path.
    const Path* _owner = nullptr;
    std::vector<PathSegment> _segments;
};

}  // namespace quorin
