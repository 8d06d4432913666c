#pragma once

#include <algorithm>
#include <cmath>

#include "quorin/path/CubicBezier.h"

namespace quorin {

/// The square of a distance that no point computed on the curve is nearer than, by the box of its
/// control points. Cheap enough to ask of every curve before any search.
inline CGFloat squaredDistanceAtLeast(const CubicBezier& curve, CGPoint from) {
    // Rounding may put a computed point outside the box, and evaluation leaves out handles below
    // `epsilon`; both are far less than this.
    constexpr CGFloat relativeSlack = 1e-12;
    constexpr CGFloat absoluteSlack = 4e-12;
    const auto gap = [](CGFloat p1, CGFloat h1, CGFloat h2, CGFloat p2, CGFloat at) {
        const CGFloat c1 = p1 + h1;
        const CGFloat c2 = p2 + h2;
        const CGFloat low = std::min(std::min(p1, p2), std::min(c1, c2));
        const CGFloat high = std::max(std::max(p1, p2), std::max(c1, c2));
        const CGFloat slack = relativeSlack * std::max(-low, high) + absoluteSlack;
        return std::max(std::max(low - at, at - high) - slack, 0.0);
    };
    const CGFloat x = gap(curve.p1.x, curve.h1.x, curve.h2.x, curve.p2.x, from.x);
    const CGFloat y = gap(curve.p1.y, curve.h1.y, curve.h2.y, curve.p2.y, from.y);
    return x * x + y * y;
}

/// Whether every place within `reach` of a point may be ruled out at a squared distance of at
/// least `squared`; says no when a number is not one.
inline bool isOutOfReach(CGFloat squared, CGFloat reach) {
    return squared > reach * reach * (1 + 1e-14);
}

}  // namespace quorin
