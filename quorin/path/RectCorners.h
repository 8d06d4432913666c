#pragma once

#include <array>

#include "quorin/platform/values/CGRect.h"

namespace quorin {

/// The corners as a path runs through them: from the origin along the width, then along the height.
/// The fields are read as they are stored, so a negative size mirrors the order.
constexpr std::array<CGPoint, 4> rectCorners(const CGRect& rect) {
    const auto& [x, y] = rect.origin;
    const auto& [width, height] = rect.size;
    return {{{x, y}, {x + width, y}, {x + width, y + height}, {x, y + height}}};
}

}  // namespace quorin
