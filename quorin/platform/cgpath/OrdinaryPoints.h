#pragma once

#include <cmath>
#include <span>
#include <vector>

#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// The size up to which coordinates are ordinary: differences, and products of two of them, stay
/// finite.
inline constexpr CGFloat ordinaryLimit = 0x1p500;

/// False also for NaN.
inline bool isOrdinary(CGPoint point) {
    return std::abs(point.x) <= ordinaryLimit && std::abs(point.y) <= ordinaryLimit;
}

/// Replaces what is too large by the limit, and what is not a number by the point before or zero.
std::vector<CGPoint> madeOrdinary(std::span<const CGPoint> points);

}  // namespace quorin
