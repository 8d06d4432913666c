#pragma once

#include <cstdint>

/// Tags for what goes along one axis of the plane or the other.
namespace quorin {

enum class Axis : std::uint8_t { x, y };

constexpr bool isHorizontal(Axis axis) { return axis == Axis::x; }
constexpr bool isVertical(Axis axis) { return axis == Axis::y; }

enum class Orientation : std::uint8_t { horizontal, vertical };

constexpr bool isHorizontal(Orientation orientation) {
    return orientation == Orientation::horizontal;
}
constexpr bool isVertical(Orientation orientation) { return orientation == Orientation::vertical; }

/// As seen in the editor, where y grows downwards.
enum class Direction : std::uint8_t { left, right, up, down };

constexpr bool isHorizontal(Direction direction) {
    return direction == Direction::left || direction == Direction::right;
}
constexpr bool isVertical(Direction direction) { return !isHorizontal(direction); }
/// Whether coordinates grow that way.
constexpr bool isAscendant(Direction direction) {
    return direction == Direction::right || direction == Direction::down;
}

}  // namespace quorin
