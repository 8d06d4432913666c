#pragma once

#include <cstdint>
#include <variant>
#include <vector>

#include "quorin/platform/values/CGAffineTransform.h"
#include "quorin/platform/values/CGColor.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

struct CGGradientStop {
    CGFloat location = 0;  ///< from 0 at the start to 1 at the end
    CGColor color;

    friend constexpr bool operator==(const CGGradientStop&, const CGGradientStop&) = default;
};

/// How a gradient goes on beyond its ends: with the colours of the ends, there and back, or again
/// and again.
enum class CGGradientSpread : std::uint8_t { pad, reflect, repeat };

/// Colours that pass into each other. Of several stops at one location the last one leads on.
/// Without any stop nothing is painted.
struct CGGradient {
    std::vector<CGGradientStop> stops;
    CGGradientSpread spread = CGGradientSpread::pad;

    friend bool operator==(const CGGradient&, const CGGradient&) = default;
};

/// A gradient along a line; all of it is the last colour where the line has no length. `transform`
/// leads from the space of its points to that of the paths painted with it.
struct CGLinearShading {
    CGGradient gradient;
    CGPoint start, end;
    CGAffineTransform transform;

    friend bool operator==(const CGLinearShading&, const CGLinearShading&) = default;
};

/// A gradient from one circle to another, otherwise like the linear one.
struct CGRadialShading {
    CGGradient gradient;
    CGPoint startCenter;
    CGFloat startRadius = 0;
    CGPoint endCenter;
    CGFloat endRadius = 0;
    CGAffineTransform transform;

    friend bool operator==(const CGRadialShading&, const CGRadialShading&) = default;
};

using CGShading = std::variant<CGLinearShading, CGRadialShading>;

}  // namespace quorin
