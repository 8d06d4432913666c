#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "quorin/path/Anchor.h"
#include "quorin/path/AnchorArray.h"
#include "quorin/path/Segment.h"
#include "quorin/platform/values/FunctionRef.h"

namespace quorin {

/// The ordered anchors of a path, in one contiguous array. Every operation that stores a segment
/// stores a copy that carries the collection's path and its position; every change drops the
/// path's cached platform path. A position outside the collection is a programming error.
class PathSegmentCollection {
public:
    class const_iterator;
    using value_type = PathSegment;

    PathSegmentCollection() = default;
    /// Holds the segments as they are, without a path: each keeps its own path and index until an
    /// operation stores it.
    explicit PathSegmentCollection(const std::vector<PathSegment>& segments);
    /// Copies of the segments of `other` that belong to `path`, with the indices they have there.
    PathSegmentCollection(std::weak_ptr<Path> path, const PathSegmentCollection& other);

    std::shared_ptr<Path> path() const { return _path.lock(); }

    std::size_t count() const { return _anchors.count(); }
    bool isEmpty() const { return _anchors.isEmpty(); }
    std::size_t startIndex() const { return 0; }
    std::size_t endIndex() const { return count(); }
    std::size_t indexAfter(std::size_t index) const { return index + 1; }
    const_iterator begin() const;
    const_iterator end() const;
    std::optional<PathSegment> first() const;
    std::optional<PathSegment> last() const;
    PathSegment operator[](std::size_t index) const;
    /// Nothing when there is no such position.
    std::optional<PathSegment> segmentAt(std::ptrdiff_t index) const;
    /// What is stored of the segments, for who walks all of them: making a segment counts a
    /// reference to its path. Valid until the next change.
    std::span<const PathAnchor> anchors() const { return _anchors.span(); }

    void reserve(std::size_t count) { _anchors.reserve(count); }
    /// Replaces the segment at `index`.
    void setAt(std::size_t index, const PathSegment& segment);
    void append(const PathSegment& segment);
    /// Puts the segment first and adds one to the index of every other.
    void prepend(const PathSegment& segment);
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
    friend class PathRebuild;

    void requireIndex(std::size_t index) const;
    void invalidatePathCache() const;
    /// A new last anchor in its place, to be filled by a caller who drops the cache.
    PathAnchor& add() {
        PathAnchor& anchor = _anchors.append();
        anchor.index = static_cast<std::int32_t>(count() - 1);
        if (!_listedPaths.empty())
            addListedPath();
        return anchor;
    }
    void addListedPath();

    std::weak_ptr<Path> _path;
    /// Where `_path` led at first, to be compared only: the weak reference keeps the place from
    /// being used again.
    const Path* _owner = nullptr;
    AnchorArray _anchors;
    /// The paths of listed segments, one each. Empty when all belong to `_path`, as they do
    /// whenever there is an `_owner`.
    std::vector<std::weak_ptr<Path>> _listedPaths;
};

/// Walks a collection. A segment is made when it is looked at, so there is no reference to it.
class PathSegmentCollection::const_iterator {
public:
    using iterator_concept = std::random_access_iterator_tag;
    using iterator_category = std::input_iterator_tag;  // the most without references
    using value_type = PathSegment;
    using reference = PathSegment;
    using pointer = void;
    using difference_type = std::ptrdiff_t;

    const_iterator() = default;
    const_iterator(const PathSegmentCollection& walked, difference_type start)
        : segments(&walked), index(start) {}

    PathSegment operator*() const { return (*this)[0]; }
    PathSegment operator[](difference_type offset) const {
        return (*segments)[static_cast<std::size_t>(index + offset)];
    }

    const_iterator& operator+=(difference_type offset) {
        index += offset;
        return *this;
    }
    const_iterator& operator-=(difference_type offset) { return *this += -offset; }
    const_iterator& operator++() { return *this += 1; }
    const_iterator& operator--() { return *this += -1; }
    const_iterator operator++(int) { return std::exchange(*this, *this + 1); }
    const_iterator operator--(int) { return std::exchange(*this, *this - 1); }

    friend const_iterator operator+(const_iterator i, difference_type offset) {
        return i += offset;
    }
    friend const_iterator operator+(difference_type offset, const_iterator i) {
        return i += offset;
    }
    friend const_iterator operator-(const_iterator i, difference_type offset) {
        return i -= offset;
    }
    friend difference_type operator-(const_iterator a, const_iterator b) {
        return a.index - b.index;
    }
    friend bool operator==(const_iterator a, const_iterator b) { return a.index == b.index; }
    friend auto operator<=>(const_iterator a, const_iterator b) { return a.index <=> b.index; }

private:
    const PathSegmentCollection* segments = nullptr;
    difference_type index = 0;
};

inline PathSegmentCollection::const_iterator PathSegmentCollection::begin() const {
    return {*this, 0};
}

inline PathSegmentCollection::const_iterator PathSegmentCollection::end() const {
    return {*this, static_cast<std::ptrdiff_t>(count())};
}

}  // namespace quorin
