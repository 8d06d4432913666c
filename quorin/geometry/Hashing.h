#pragma once

#include <cstddef>
#include <functional>

namespace quorin {

/// Mixes the hash of `value` into `seed`; the order of the calls counts.
template <typename Value>
void hashCombine(std::size_t& seed, const Value& value) {
    // The constant is 2^64 over the golden ratio, whose bits repeat no pattern; the shifts carry
    // what went in before into all places.
    constexpr auto goldenBits = static_cast<std::size_t>(0x9e3779b97f4a7c15U);
    seed ^= std::hash<Value>{}(value) + goldenBits + (seed << 6) + (seed >> 2);
}

/// One hash of several values in their order. Values that are equal hash equally, 0.0 and -0.0
/// included.
template <typename... Values>
std::size_t hashOf(const Values&... values) {
    std::size_t seed = 0;
    (hashCombine(seed, values), ...);
    return seed;
}

}  // namespace quorin
