#pragma once

#include <cmath>
#include <optional>

#include "quorin/platform/values/CGAffineTransform.h"

namespace quorin {

/// What a transform does to shapes, apart from how far it moves and enlarges them. Pens and
/// patterns are handed to cairo in this form, which keeps all numbers near 1.
struct LinearShape {
    CGAffineTransform linear;  ///< of determinant 1 or -1, moving nothing
    CGFloat scale;             ///< by which the transform enlarges on average
    CGFloat stretch;           ///< at least the factor by which `linear` enlarges any length
};

/// None for a transform so flat that nothing is seen through it: when one diameter of a circle is
/// as large as the largest bitmap, the other is not worth a pixel.
inline std::optional<LinearShape> linearShapeOf(const CGAffineTransform& m) {
    const CGFloat scale = std::sqrt(std::abs(m.a * m.d - m.b * m.c));
    if (!(scale > 0) || !std::isfinite(scale))
        return std::nullopt;
    const CGAffineTransform linear{m.a / scale, m.b / scale, m.c / scale, m.d / scale, 0, 0};
    const CGFloat stretch =
        std::hypot(std::hypot(linear.a, linear.b), std::hypot(linear.c, linear.d));
    constexpr CGFloat flattest = 1e4;
    if (!(stretch <= flattest))
        return std::nullopt;
    return LinearShape{linear, scale, stretch};
}

}  // namespace quorin
