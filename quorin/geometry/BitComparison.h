#pragma once

#include <bit>
#include <cstdint>

#include "quorin/platform/values/CGGeometry.h"

/// Comparisons by bit patterns, which order like the numbers they stand for. They do not wait for
/// the floating-point units, which a curve's arithmetic keeps busy.
namespace quorin {

/// |x| < bound for a positive bound; false for NaN.
constexpr bool isMagnitudeBelow(CGFloat x, CGFloat bound) {
    return std::bit_cast<std::uint64_t>(x) << 1 < std::bit_cast<std::uint64_t>(bound) << 1;
}

/// 0 < x < 1; false for NaN.
constexpr bool isInsideUnitInterval(CGFloat x) {
    return std::bit_cast<std::uint64_t>(x) - 1 < std::bit_cast<std::uint64_t>(1.0) - 1;
}

}  // namespace quorin
