#pragma once

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/platform/values/CGGeometry.h"

/// What can be asked of points, and done to them, beyond arithmetic.
namespace quorin {

constexpr CGPoint offsetBy(CGPoint p, CGFloat dx, CGFloat dy) { return {p.x + dx, p.y + dy}; }
constexpr CGPoint offsetBy(CGPoint p, CGPoint point) { return p + point; }
constexpr CGPoint scaleBy(CGPoint p, CGFloat factor) { return p * factor; }

/// Whether the distance is at most `tolerance`.
inline bool isClose(CGPoint p, CGPoint to, CGFloat tolerance) {
    return distance(p, to) <= tolerance;
}

/// Rotated about the origin, counter-clockwise in a y-up plane.
inline CGPoint rotated(CGPoint p, CGFloat radian) {
    const CGFloat sine = std::sin(radian);
    const CGFloat cosine = std::cos(radian);
    return {p.x * cosine - p.y * sine, p.x * sine + p.y * cosine};
}

/// Both components by their magnitude.
inline CGPoint absolute(CGPoint p) { return {std::abs(p.x), std::abs(p.y)}; }

/// The direction from b to a, measured from the y axis: the x difference is the first argument of
/// the arctangent, so (1, 0) seen from the origin is at π/2.
inline CGFloat atan2(CGPoint a, CGPoint b) { return std::atan2(a.x - b.x, a.y - b.y); }

/// The component-wise minimum and maximum. Without points the minimum is greater than the maximum.
constexpr std::pair<CGPoint, CGPoint> getMinAndMaxPoint(std::span<const CGPoint> points) {
    CGPoint min{scalar::greatestFinite, scalar::greatestFinite};
    CGPoint max = -min;
    for (const CGPoint& p : points) {
        min = {std::min(min.x, p.x), std::min(min.y, p.y)};
        max = {std::max(max.x, p.x), std::max(max.y, p.y)};
    }
    return {min, max};
}

}  // namespace quorin
