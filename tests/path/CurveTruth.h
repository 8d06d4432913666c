#pragma once

#include <array>

#include "quorin/path/CubicBezier.h"

namespace quorin::test {

/// A curve in long double, by formulas other than the library's, to judge its answers by. Slow
/// and thorough: what it says of lengths and distances holds to about 1e-15 of the curve's size.
class CurveTruth {
public:
    struct Point {
        long double x, y;
    };
    struct Nearest {
        long double time, distance;
    };

    explicit CurveTruth(const CubicBezier& curve);

    Point pointAt(long double t) const;
    Point velocityAt(long double t) const;
    long double speedAt(long double t) const;

    /// By adaptive Simpson quadrature.
    long double lengthBetween(long double from, long double to) const;
    long double length() const { return lengthBetween(0, 1); }
    /// What the Gauss-Legendre rule with n points makes of that length, exact or not.
    long double ruleLengthBetween(long double from, long double to, int n) const;
    /// When the stretch from the start is `length` long; the end when none is.
    long double timeAtLength(long double length) const;

    /// By 2000 samples and a golden-section search around each that is nearer than its neighbours.
    Nearest nearest(CGPoint from) const;

    /// The length of the control polygon.
    long double polygonLength() const;

private:
    long double squaredDistanceAt(long double t, Point from) const;
    Nearest goldenSection(long double low, long double high, Point from) const;

    std::array<Point, 4> q;
};

}  // namespace quorin::test
