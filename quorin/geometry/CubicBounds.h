#pragma once

#include <limits>

#include "quorin/platform/values/CGGeometry.h"
#include "quorin/platform/values/CGRect.h"

namespace quorin {

/// A box being gathered: empty at first, then the least upright box around all it was given.
/// A coordinate that is not a number is passed over.
struct Bounds {
    CGFloat minX = std::numeric_limits<CGFloat>::infinity();
    CGFloat minY = std::numeric_limits<CGFloat>::infinity();
    CGFloat maxX = -std::numeric_limits<CGFloat>::infinity();
    CGFloat maxY = -std::numeric_limits<CGFloat>::infinity();

    bool isEmpty() const { return !(minX <= maxX && minY <= maxY); }
    /// The null rect while the box is empty.
    CGRect rect() const {
        return isEmpty() ? CGRectNull : CGRectMake(minX, minY, maxX - minX, maxY - minY);
    }

    friend bool operator==(const Bounds&, const Bounds&) = default;
};

inline void extendByPoint(Bounds& box, CGPoint point) {
    box.minX = point.x < box.minX ? point.x : box.minX;
    box.minY = point.y < box.minY ? point.y : box.minY;
    box.maxX = point.x > box.maxX ? point.x : box.maxX;
    box.maxY = point.y > box.maxY ? point.y : box.maxY;
}

namespace detail {

void extendByExtrema(CGFloat& min, CGFloat& max, CGFloat p1, CGFloat c1, CGFloat c2, CGFloat p2);
void extendByExtrema(CGFloat& min, CGFloat& max, CGFloat p1, CGFloat c, CGFloat p2);

/// False for NaN.
inline bool holds(CGFloat min, CGFloat max, CGFloat value) { return value >= min && value <= max; }

}  // namespace detail

/// Extends the box by the curve itself: its extrema, not its control points. Never leaves the
/// control hull, however the extrema round; a control at infinity draws the box there.
///
/// The box takes the ends first. Where it then holds the controls it holds the curve, so the
/// extrema are not worth computing, and most curves of a drawing cost a few comparisons.
inline void extendByCubic(Bounds& box, CGPoint p1, CGPoint c1, CGPoint c2, CGPoint p2) {
    extendByPoint(box, p1);
    extendByPoint(box, p2);
    if (!detail::holds(box.minX, box.maxX, c1.x) || !detail::holds(box.minX, box.maxX, c2.x))
        detail::extendByExtrema(box.minX, box.maxX, p1.x, c1.x, c2.x, p2.x);
    if (!detail::holds(box.minY, box.maxY, c1.y) || !detail::holds(box.minY, box.maxY, c2.y))
        detail::extendByExtrema(box.minY, box.maxY, p1.y, c1.y, c2.y, p2.y);
}

/// The same for a quadratic.
inline void extendByQuadratic(Bounds& box, CGPoint p1, CGPoint c, CGPoint p2) {
    extendByPoint(box, p1);
    extendByPoint(box, p2);
    if (!detail::holds(box.minX, box.maxX, c.x))
        detail::extendByExtrema(box.minX, box.maxX, p1.x, c.x, p2.x);
    if (!detail::holds(box.minY, box.maxY, c.y))
        detail::extendByExtrema(box.minY, box.maxY, p1.y, c.y, p2.y);
}

}  // namespace quorin
