#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <span>
#include <string_view>

#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// A type made from a list of its components, and giving them back as `array()`. A longer list is
/// cut, a shorter one is a programming error.
template <typename Vector>
concept VectorArrayConvertible = requires(const Vector& vector) {
    { vector.array() } -> std::convertible_to<std::span<const CGFloat>>;
    requires std::constructible_from<Vector, std::span<const CGFloat>>;
};

/// The same in single precision, as graphics processors take vectors: `floatArray()`.
template <typename Vector>
concept VectorFloatArrayConvertible = requires(const Vector& vector) {
    { vector.floatArray() } -> std::convertible_to<std::span<const float>>;
    requires std::constructible_from<Vector, std::span<const float>>;
};

/// Stops the process: a `type` of `wanted` components cannot be made from `given` ones.
[[noreturn]] void failComponentCount(std::string_view type, std::size_t given, std::size_t wanted);

/// The first `count` elements of the list a `type` is made from; a shorter list stops the process.
template <std::size_t count, typename Component>
constexpr std::array<CGFloat, count> leadingComponents(std::span<const Component> components,
                                                       std::string_view type) {
    if (components.size() < count)
        failComponentCount(type, components.size(), count);
    std::array<CGFloat, count> leading{};
    for (std::size_t i = 0; i < count; ++i)
        leading[i] = components[i];
    return leading;
}

}  // namespace quorin
