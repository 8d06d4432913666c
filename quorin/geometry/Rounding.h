#pragma once

#include <cmath>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/RectCorner.h"
#include "quorin/geometry/SizeArithmetic.h"
#include "quorin/platform/values/CGGeometry.h"

/// Rounding of points and sizes. To nearest means halves away from zero. With a `scale` values
/// snap to the pixel grid: each component c becomes op(c / scale) · scale.
namespace quorin {

inline CGPoint rounding(CGPoint p) { return {std::round(p.x), std::round(p.y)}; }
inline CGPoint flooring(CGPoint p) { return {std::floor(p.x), std::floor(p.y)}; }
inline CGPoint ceiling(CGPoint p) { return {std::ceil(p.x), std::ceil(p.y)}; }

inline void round(CGPoint& p) { p = rounding(p); }
inline void floor(CGPoint& p) { p = flooring(p); }
inline void ceil(CGPoint& p) { p = ceiling(p); }

inline CGSize rounding(CGSize s) { return {std::round(s.width), std::round(s.height)}; }
inline CGSize flooring(CGSize s) { return {std::floor(s.width), std::floor(s.height)}; }
inline CGSize ceiling(CGSize s) { return {std::ceil(s.width), std::ceil(s.height)}; }

inline CGPoint rounding(CGPoint p, CGFloat scale) { return rounding(p / scale) * scale; }
inline CGPoint flooring(CGPoint p, CGFloat scale) { return flooring(p / scale) * scale; }
inline CGPoint ceiling(CGPoint p, CGFloat scale) { return ceiling(p / scale) * scale; }

inline CGSize rounding(CGSize s, CGFloat scale) { return rounding(s / scale) * scale; }
inline CGSize flooring(CGSize s, CGFloat scale) { return flooring(s / scale) * scale; }
inline CGSize ceiling(CGSize s, CGFloat scale) { return ceiling(s / scale) * scale; }

/// With `keepProportion` only the width snaps, and the height follows it in proportion; a size
/// less wide than one pixel stays as it is.
inline CGSize rounding(CGSize s, CGFloat scale, bool keepProportion) {
    if (!keepProportion)
        return rounding(s, scale);
    if (s.width < scale)
        return s;
    const CGFloat width = std::round(s.width / scale) * scale;
    return {width, width / s.width * s.height};
}

/// Snaps a corner of a rect so that a hairline through it lands on pixel centres: down the grid
/// and `offset` inwards, but up the grid in y for every corner that is not at the top.
inline CGPoint rounding(CGPoint p, RectCorner corner, CGFloat scale, CGFloat offset) {
    const bool isAtTop = corner == RectCorner::topLeft || corner == RectCorner::topRight ||
                         corner == RectCorner::top;
    const CGFloat x = std::floor(p.x / scale) * scale + offset;
    const CGFloat y = isAtTop ? std::floor(p.y / scale) * scale + offset
                              : std::ceil(p.y / scale) * scale - offset;
    return {x, y};
}

}  // namespace quorin
