#pragma once

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

/// The element `index` of the list a `type` of `wanted` components is made from; a list too short
/// for the type stops the process.
template <typename Component>
constexpr CGFloat component(std::span<const Component> components, std::size_t index,
                            std::size_t wanted, std::string_view type) {
    if (components.size() < wanted)
        failComponentCount(type, components.size(), wanted);
    return static_cast<CGFloat>(components[index]);
}

}  // namespace quorin
