#pragma once

#include <cstdint>

namespace quorin {

/// The eight handles of a rect: the corners clockwise from the top left, then the middles of the
/// edges. Top is the smaller y.
enum class RectCorner : std::uint8_t {
    topLeft = 0,
    topRight = 1,
    bottomRight = 2,
    bottomLeft = 3,
    top = 4,
    right = 5,
    bottom = 6,
    left = 7,
};

}  // namespace quorin
