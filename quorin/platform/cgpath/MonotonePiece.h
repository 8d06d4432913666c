#pragma once

#include <algorithm>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// How often an outline winds around a point, clockwise in a y-up plane; 0 for a point on it.
struct Winding {
    int number = 0;
    bool isOnOutline = false;

    friend bool operator==(const Winding&, const Winding&) = default;
};

/// A line, quadratic or cubic as start + ((a3·t + a2)·t + a1)·t, without raising its degree.
struct OutlineCurve {
    CGPoint start, a1, a2, a3;

    static OutlineCurve line(CGPoint p1, CGPoint p2) { return {p1, p2 - p1, {}, {}}; }
    static OutlineCurve quadratic(CGPoint p1, CGPoint c, CGPoint p2) {
        const CGPoint d1 = c - p1;
        const CGPoint d2 = p2 - c;
        return {p1, 2 * d1, d2 - d1, {}};
    }
    static OutlineCurve cubic(CGPoint p1, CGPoint c1, CGPoint c2, CGPoint p2) {
        const CGPoint d1 = c1 - p1;
        const CGPoint d2 = c2 - c1;
        const CGPoint d3 = p2 - c2;
        return {p1, 3 * d1, 3 * (d2 - d1), (d3 - d2) - (d2 - d1)};
    }

    /// The way from the start to the place at `t`.
    CGPoint wayTo(CGFloat t) const {
        return {((a3.x * t + a2.x) * t + a1.x) * t, ((a3.y * t + a2.y) * t + a1.y) * t};
    }
    CGPoint velocityAt(CGFloat t) const {
        return {(3 * a3.x * t + 2 * a2.x) * t + a1.x, (3 * a3.y * t + 2 * a2.y) * t + a1.y};
    }
};

/// A stretch of a curve along which neither x nor y turns around, so that the upright box of its
/// ends holds it.
struct MonotonePiece {
    CGFloat startTime, endTime;
    CGPoint start, end;

    /// What the piece adds to the winding number of a point of this height to its right. It covers
    /// the height of its lower end and not that of its upper one, so that pieces that meet cover
    /// each height once.
    int stepAt(CGFloat y) const {
        return static_cast<int>(end.y > y) - static_cast<int>(start.y > y);
    }

    /// What the piece adds to the winding around `point`, by the ray towards smaller x. Within
    /// `scalar::windingEpsilon` of the piece the point is on the outline.
    Winding windingAround(CGPoint point, const OutlineCurve& curve) const {
        constexpr CGFloat reach = scalar::windingEpsilon;
        if (point.y < std::min(start.y, end.y) - reach ||
            point.y > std::max(start.y, end.y) + reach ||
            point.x < std::min(start.x, end.x) - reach)
            return {};
        if (point.x > std::max(start.x, end.x) + reach)
            return {stepAt(point.y), false};
        return windingInsideBox(point, curve);
    }

private:
    Winding windingInsideBox(CGPoint point, const OutlineCurve& curve) const;
};

}  // namespace quorin
