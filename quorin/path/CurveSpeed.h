#pragma once

#include <cmath>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/path/CubicBezier.h"

namespace quorin {

/// How fast a curve's point moves as time passes, in points per unit of time: the length of the
/// derivative (A·t + B)·t + C.
class CurveSpeed {
public:
    explicit CurveSpeed(const CubicBezier& curve)
        : A(9 * (curve.c1() - curve.c2()) + 3 * (curve.p2 - curve.p1)),
          B(6 * (curve.p1 + curve.c2()) - 12 * curve.c1()),
          C(3 * (curve.c1() - curve.p1)) {}

    CGFloat at(CGFloat t) const {
        const CGPoint velocity = (A * t + B) * t + C;
        return std::sqrt(velocity.x * velocity.x + velocity.y * velocity.y);
    }

    /// The arc length from one time to another, negative when it runs backwards, by
    /// `scalar::integrate` with 32 points a unit of time, 2 at least and 16 at most.
    CGFloat integrated(CGFloat from, CGFloat to) const;
    /// The same with a given number of points, 2 to 16.
    CGFloat integrated(CGFloat from, CGFloat to, int pointCount) const;

    CGPoint A, B, C;
};

}  // namespace quorin
