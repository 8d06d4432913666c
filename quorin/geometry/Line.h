#pragma once

#include <optional>

#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// A point and a direction. Read as a segment it runs from `p` to `p + v`.
struct Line {
    CGPoint p;
    CGPoint v;

    Line() = default;
    /// Through both points, as a segment from `p1` to `p2`.
    Line(CGPoint p1, CGPoint p2);
    /// From `point` along `direction`.
    static Line along(CGPoint point, CGPoint direction);

    CGFloat length() const;
    CGFloat signedDistance(CGPoint point) const;
    CGFloat distance(CGPoint point) const;
    std::optional<CGPoint> intersect(const Line& other, bool isInfinite) const;
    CGFloat side(CGPoint point, bool isInfinite) const;
    bool isCollinear(const Line& other) const;
    bool isOrthogonal(const Line& other) const;
};

}  // namespace quorin
