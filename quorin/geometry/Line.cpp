#include "quorin/geometry/Line.h"

#include <cmath>

#include "quorin/geometry/Clamped.h"
#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/Scalar.h"

namespace quorin {
namespace {

// Neighbouring curves share an anchor, so segments that only touch have to meet there.
bool isOnSegment(CGFloat u) { return u > -scalar::epsilon && u < 1 + scalar::epsilon; }

CGFloat productOfLengths(CGPoint a, CGPoint b) { return std::sqrt(dot(a, a) * dot(b, b)); }

}  // namespace

Line::Line(CGPoint p1, CGPoint p2) : p(p1), v(p2 - p1) {}

Line Line::along(CGPoint point, CGPoint direction) {
    Line line;
    line.p = point;
    line.v = direction;
    return line;
}

CGFloat Line::length() const { return std::sqrt(v.x * v.x + v.y * v.y); }

CGFloat Line::signedDistance(CGPoint point) const {
    const CGPoint d = point - p;
    // Along an axis the distance is a difference of coordinates, free of rounding by a division.
    if (v.x == 0)
        return v.y > 0 ? d.x : -d.x;
    if (v.y == 0)
        return v.x < 0 ? d.y : -d.y;
    return cross(d, v) / length();
}

CGFloat Line::distance(CGPoint point) const { return std::abs(signedDistance(point)); }

std::optional<CGPoint> Line::intersect(const Line& other, bool isInfinite) const {
    const CGFloat area = cross(v, other.v);
    if (std::abs(area) < scalar::epsilon)
        return std::nullopt;

    const CGPoint d = p - other.p;
    const CGFloat u1 = (d.y * other.v.x - d.x * other.v.y) / area;
    const CGFloat u2 = (d.y * v.x - d.x * v.y) / area;
    if (isInfinite)
        return p + v * u1;

    if (!isOnSegment(u1) || !isOnSegment(u2))
        return std::nullopt;
    return p + v * clamped(u1, ClosedRange{0.0, 1.0});
}

CGFloat Line::side(CGPoint point, bool isInfinite) const {
    const CGPoint d = point - p;
    CGFloat ccw = cross(d, v);
    if (ccw == 0 && !isInfinite) {
        // In line with the segment: before it is one side, beyond it the other.
        ccw = dot(d, v) / dot(v, v);
        if (ccw >= 0 && ccw <= 1)
            ccw = 0;
    }
    if (ccw < 0)
        return -1;
    return ccw > 0 ? 1 : 0;
}

bool Line::isCollinear(const Line& other) const {
    return std::abs(cross(v, other.v)) <=
           productOfLengths(v, other.v) * scalar::trigonometricEpsilon;
}

bool Line::isOrthogonal(const Line& other) const {
    return std::abs(dot(v, other.v)) <= productOfLengths(v, other.v) * scalar::trigonometricEpsilon;
}

}  // namespace quorin
