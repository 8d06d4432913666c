#pragma once

#include <array>
#include <cmath>
#include <cstddef>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/RectCorner.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/platform/values/CGGeometry.h"
#include "quorin/platform/values/CGRect.h"

/// The handles of a rect, read from its stored fields: with a negative width the right handles lie
/// to the left.
namespace quorin {

/// The corners and then the middles of the edges, in the order of `RectCorner`.
constexpr std::array<CGPoint, 8> handlePoints(const CGRect& rect) {
    const auto [x, y] = rect.origin;
    const auto [w, h] = rect.size;
    return {{
        {x, y},
        {x + w, y},
        {x + w, y + h},
        {x, y + h},
        {x + w / 2, y},
        {x + w, y + h / 2},
        {x + w / 2, y + h},
        {x, y + h / 2},
    }};
}

/// Moves the rect so that the handle lies at `point`.
constexpr void setPosition(CGRect& rect, CGPoint point, RectCorner ofCorner) {
    const auto fromOrigin = handlePoints({CGPoint::zero, rect.size});
    rect.origin = point - fromOrigin[static_cast<std::size_t>(ofCorner)];
}

/// Where the point is in the rect, the origin being (0, 0) and the far corner (1, 1). A rect
/// without size answers (0, 0); if one side alone is zero, that coordinate is infinite or NaN.
inline CGPoint anchorPoint(const CGRect& rect, CGPoint forPoint) {
    if (std::abs(rect.size.width) < scalar::epsilon && std::abs(rect.size.height) < scalar::epsilon)
        return CGPoint::zero;
    return (forPoint - rect.origin) / rect.size;
}

}  // namespace quorin
