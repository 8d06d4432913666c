#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "quorin/platform/values/Value.h"

namespace quorin {

/// What an observer asks to be told; combined with `|`.
enum class NSKeyValueObservingOptions : std::uint64_t {
    none = 0,
    newValue = 1,  ///< the value after the change
    oldValue = 2,  ///< the value before the change
    initial = 4,   ///< one delivery at once, before registration returns
    prior = 8,     ///< a delivery of its own before each change
};

constexpr NSKeyValueObservingOptions operator|(NSKeyValueObservingOptions a,
                                               NSKeyValueObservingOptions b) {
    return static_cast<NSKeyValueObservingOptions>(static_cast<std::uint64_t>(a) |
                                                   static_cast<std::uint64_t>(b));
}

/// Whether `options` asks for any of `wanted`.
constexpr bool contains(NSKeyValueObservingOptions options, NSKeyValueObservingOptions wanted) {
    return (static_cast<std::uint64_t>(options) & static_cast<std::uint64_t>(wanted)) != 0;
}

/// What happened: a value was set, or elements of an ordered collection came, went or changed.
enum class NSKeyValueChange : std::uint64_t {
    setting = 1,
    insertion = 2,
    removal = 3,
    replacement = 4,
};

/// The entries that a change record may have.
enum class NSKeyValueChangeKey : std::uint8_t {
    kind,                 ///< the number of the `NSKeyValueChange`
    newValue,             ///< NSNull for a missing value; the elements that came, as a list
    oldValue,             ///< NSNull for a missing value; the elements that went, as a list
    indexes,              ///< NSIndexSet, unless the kind is setting
    notificationIsPrior,  ///< true, in a delivery before the change only
};

/// A map from change keys to values. There are so few keys that all entries stand in place: a
/// record costs no memory of its own. A value that is nothing is no entry.
class NSKeyValueChangeRecord {
public:
    /// Nothing when there is no such entry.
    const Value& operator[](NSKeyValueChangeKey key) const { return entries[place(key)]; }
    bool contains(NSKeyValueChangeKey key) const { return !(*this)[key].isNothing(); }
    /// Nothing takes the entry out.
    void set(NSKeyValueChangeKey key, Value value) { entries[place(key)] = std::move(value); }

    std::size_t count() const;
    bool isEmpty() const { return count() == 0; }

    friend bool operator==(const NSKeyValueChangeRecord&, const NSKeyValueChangeRecord&) = default;

private:
    static std::size_t place(NSKeyValueChangeKey key) { return static_cast<std::size_t>(key); }

    std::array<Value, 5> entries;
};

}  // namespace quorin
