#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <span>

#include "quorin/path/Anchor.h"

namespace quorin {

/// A growing array of anchors, all in one piece. It grows where it stands as long as the allocator
/// can extend it: a list of doubling copies would spend more on fresh pages of memory than a pen
/// spends on drawing. Positions are not checked. Throws `std::bad_alloc`.
class AnchorArray {
public:
    AnchorArray() = default;
    AnchorArray(const AnchorArray& other);
    AnchorArray(AnchorArray&& other) noexcept { swap(other); }
    AnchorArray& operator=(AnchorArray other) noexcept {
        swap(other);
        return *this;
    }

    std::size_t count() const { return _count; }
    bool isEmpty() const { return _count == 0; }
    PathAnchor& operator[](std::size_t index) { return memory.get()[index]; }
    const PathAnchor& operator[](std::size_t index) const { return memory.get()[index]; }
    std::span<PathAnchor> span() { return {memory.get(), _count}; }
    std::span<const PathAnchor> span() const { return {memory.get(), _count}; }

    void reserve(std::size_t needed) {
        if (needed > capacity)
            reallocate(needed);
    }
    /// A new last anchor, to be filled where it stands. All others may move.
    PathAnchor& append() {
        if (_count == capacity)
            grow();
        return memory.get()[_count++] = PathAnchor();
    }
    void prepend(const PathAnchor& anchor) { insertAt(0, anchor); }
    /// Puts the anchor at `index`, which may be the count, and moves what is there by one.
    void insertAt(std::size_t index, const PathAnchor& anchor);
    void removeAt(std::size_t index);
    void removeLast() { --_count; }
    /// Keeps the memory.
    void removeAll() { _count = 0; }

private:
    struct Release {
        void operator()(PathAnchor* anchors) const { std::free(anchors); }
    };

    void swap(AnchorArray& other) noexcept;
    void reallocate(std::size_t newCapacity);
    void grow();

    std::unique_ptr<PathAnchor[], Release> memory;
    std::size_t _count = 0;
    std::size_t capacity = 0;
};

}  // namespace quorin
