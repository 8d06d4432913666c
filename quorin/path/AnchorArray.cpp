#include "quorin/path/AnchorArray.h"

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

namespace quorin {

AnchorArray::AnchorArray(const AnchorArray& other) {
    reserve(other._count);
    std::copy_n(other.memory.get(), other._count, memory.get());
    _count = other._count;
}

void AnchorArray::swap(AnchorArray& other) noexcept {
    std::swap(memory, other.memory);
    std::swap(_count, other._count);
    std::swap(capacity, other.capacity);
}

void AnchorArray::reallocate(std::size_t newCapacity) {
    if (newCapacity > std::numeric_limits<std::size_t>::max() / sizeof(PathAnchor))
        throw std::bad_alloc();
    void* moved = std::realloc(memory.get(), newCapacity * sizeof(PathAnchor));
    if (!moved)
        throw std::bad_alloc();
    (void)memory.release();  // realloc has released it
    memory.reset(static_cast<PathAnchor*>(moved));
    capacity = newCapacity;
}

void AnchorArray::grow() {
    constexpr std::size_t first = 4;  // a rectangle
    reallocate(std::max(first, 2 * capacity));
}

void AnchorArray::insertAt(std::size_t index, const PathAnchor& anchor) {
    const PathAnchor inserted = anchor;  // `anchor` may be one of this array, which moves
    append();
    PathAnchor* const place = memory.get() + index;
    std::copy_backward(place, memory.get() + _count - 1, memory.get() + _count);
    *place = inserted;
}

void AnchorArray::removeAt(std::size_t index) {
    PathAnchor* const removed = memory.get() + index;
    std::copy(removed + 1, memory.get() + _count, removed);
    --_count;
}

}  // namespace quorin
