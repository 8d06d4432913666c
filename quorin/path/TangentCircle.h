#pragma once

#include <optional>

#include "quorin/path/CubicBezier.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// A circle that touches the two sides of a corner where they are at these times.
struct TangentCircle {
    CGFloat radius = 0;
    CGFloat timeBefore = 1, timeAfter = 0;
};

/// The sides of a corner, the one that ends and the one that starts there, and how near to the
/// other end of each a circle may touch it.
struct CornerSides {
    CubicBezier before, after;
    CGFloat firstTime = 0, lastTime = 1;
};

/// The circle of this radius inside of the corner that touches both sides and is crossed by
/// neither; when there is no room for it the largest smaller one, to about 1e-13 of the radius, in
/// nearly flat corners to 1e-7. Nothing where sides pass on in line, where they leave in one
/// direction, and where one has none.
///
/// Source: the touching times are the root of the difference between the sides' offset curves,
/// found by Newton's method and followed from small circles to large ones.
std::optional<TangentCircle> largestTangentCircle(const CornerSides& sides, CGFloat radius);

}  // namespace quorin
