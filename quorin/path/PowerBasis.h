#pragma once

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

struct CubicBezier;

/// A cubic as the polynomial ((a·t + b)·t + c)·t + p1, with its control points, so that both ends
/// are met exactly. Made once to evaluate many times; every evaluation of the library goes
/// through it, in this order of operations.
struct PowerBasis {
    CGPoint p1, c1, c2, p2;
    CGPoint a, b, c;

    PowerBasis(CGPoint start, CGPoint control1, CGPoint control2, CGPoint end)
        : p1(start), c1(control1), c2(control2), p2(end) {
        c = 3 * (c1 - p1);
        b = 3 * (c2 - c1) - c;
        a = p2 - p1 - c - b;
    }
    static PowerBasis of(const CubicBezier& curve);
    /// The same with handles below `epsilon` taken as zero.
    static PowerBasis forEvaluation(const CubicBezier& curve);

    CGPoint pointAt(CGFloat t) const {
        if (t == 0)
            return p1;
        if (t == 1)
            return p2;
        return interiorPointAt(t);
    }
    /// The polynomial itself, which meets p1 at 0 but p2 at 1 only nearly.
    CGPoint interiorPointAt(CGFloat t) const { return ((a * t + b) * t + c) * t + p1; }

    /// The derivative, constant within `curvetimeEpsilon` of either end.
    CGPoint derivativeAt(CGFloat t) const {
        if (isAtStart(t))
            return c;
        if (isAtEnd(t))
            return 3 * (p2 - c2);
        return (3 * a * t + 2 * b) * t + c;
    }
    CGPoint secondDerivativeAt(CGFloat t) const { return 6 * a * t + 2 * b; }

    static bool isAtStart(CGFloat t) { return t < scalar::curvetimeEpsilon; }
    static bool isAtEnd(CGFloat t) { return t > 1 - scalar::curvetimeEpsilon; }
};

}  // namespace quorin
