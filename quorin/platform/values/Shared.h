#pragma once

#include <memory>
#include <utility>

namespace quorin {

/// A value that never changes, kept outside its holder: copies share it and cost next to nothing.
template <typename Wrapped>
class Shared {
public:
    explicit Shared(Wrapped value) : pointer(std::make_shared<const Wrapped>(std::move(value))) {}

    // Copies only: a move would leave an empty one behind, which nobody could read.
    Shared(const Shared&) = default;
    Shared& operator=(const Shared&) = default;

    const Wrapped& operator*() const { return *pointer; }
    const Wrapped* operator->() const { return pointer.get(); }

    /// Compares what is kept, not where.
    friend bool operator==(const Shared& a, const Shared& b) { return *a == *b; }

private:
    std::shared_ptr<const Wrapped> pointer;
};

}  // namespace quorin
