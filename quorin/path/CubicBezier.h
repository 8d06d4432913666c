#pragma once

#include <optional>
#include <utility>

#include "quorin/geometry/BitComparison.h"
#include "quorin/geometry/Line.h"
#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/Polynomial.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/path/CurveOverlap.h"
#include "quorin/path/MeasuredLength.h"
#include "quorin/path/PowerBasis.h"
#include "quorin/platform/values/CGGeometry.h"
#include "quorin/platform/values/CGRect.h"

namespace quorin {

/// The bare geometry of a curve: two anchors and the handles between them, which are vectors from
/// their anchors. It has all the mathematics and neither caches nor a path, so it is as cheap to
/// make from two segments as four points are to copy, and safe to read from several threads.
///
/// Positions and lengths are in points, times are the Bézier parameter in [0, 1].
struct CubicBezier {
    CGPoint p1, h1, h2, p2;

    CGPoint c1() const { return p1 + h1; }
    CGPoint c2() const { return p2 + h2; }

    /// Places, directions and curvature at a time; nothing outside [0, 1].
    std::optional<CGPoint> pointAt(CGFloat t) const {
        if (isInsideUnitInterval(t)) [[likely]]
            return PowerBasis::forEvaluation(*this).interiorPointAt(t);
        if (t < 0 || t > 1)
            return std::nullopt;
        return PowerBasis::forEvaluation(*this).pointAt(t);
    }
    /// The unit direction. At an end whose handle is zero it points along the controls' chord;
    /// a direction within 1e-12 of length 0 or 1 (squared) is left as it is.
    std::optional<CGPoint> tangentAt(CGFloat t) const;
    /// The derivative, within `curvetimeEpsilon` of the ends that of the end itself.
    std::optional<CGPoint> weightedTangentAt(CGFloat t) const;
    /// The tangent turned to (y, -x).
    std::optional<CGPoint> normalAt(CGFloat t) const;
    std::optional<CGPoint> weightedNormalAt(CGFloat t) const;
    /// The cross product of second and first derivative over the cube of the second derivative's
    /// length; 0 where the second derivative vanishes.
    std::optional<CGFloat> curvatureAt(CGFloat t) const;

    /// Arc length by Gauss-Legendre quadrature with 32 points a unit of time, 2 at least and 16
    /// at most. A straight curve is measured between its ends.
    CGFloat length() const { return lengthBetween(0, 1); }
    CGFloat lengthBetween(CGFloat from, CGFloat to) const;
    CGFloat offsetAt(CGFloat t) const { return lengthBetween(0, t); }
    /// See `PathCurve::timeAt`.
    std::optional<CGFloat> timeAt(CGFloat offset, std::optional<CGFloat> start) const;

    /// Arc length to `accuracy` points. Stretches add up, a longer stretch is never shorter, and
    /// the answer says what was reached when doubles or the cell limit forbid more.
    ///
    /// Source: composite Gauss-Legendre quadrature, halved until a cell agrees with its halves,
    /// between the extrema of the speed, where cusps and hairpins sit.
    MeasuredLength length(CGFloat accuracy) const { return lengthBetween(0, 1, accuracy); }
    MeasuredLength lengthBetween(CGFloat from, CGFloat to, CGFloat accuracy) const;

    /// Whether both handles are zero, or the controls lie within `geometricEpsilon` of the chord
    /// and between its ends. A curve that ends where it starts is straight only without handles.
    bool isStraight() const;
    /// Whether the controls are exactly at the thirds of the chord, so that time is uniform.
    bool isLinear() const;

    /// De Casteljau's two parts.
    std::pair<CubicBezier, CubicBezier> subdivide(CGFloat t) const;
    /// The stretch between two times; run backwards when `from` is after `to`.
    CubicBezier partialCurve(CGFloat from, CGFloat to) const;
    CubicBezier reversed() const { return {p2, h2, h1, p1}; }

    /// The tight box.
    CGRect bounds() const;

    /// See the operations of these names in `PathCurve`.
    std::optional<CGFloat> nearestTime(CGPoint from) const;
    std::optional<CGFloat> timeOf(CGPoint point) const;
    std::optional<Roots> intesections(const Line& line) const;
    std::optional<CurveOverlap> overlap(const CubicBezier& other) const;

    /// A time and its distance.
    struct Nearest {
        CGFloat time;
        CGFloat distance;
    };
    /// The nearest place of all: no other is nearer by more than `accuracy` points. Unlike
    /// `nearestTime` it cannot miss a narrow loop between samples.
    ///
    /// Source: branch and bound on the Bernstein form of the squared distance.
    Nearest nearest(CGPoint from, CGFloat accuracy) const;

    /// Exact.
    friend constexpr bool operator==(const CubicBezier&, const CubicBezier&) = default;
};

inline PowerBasis PowerBasis::of(const CubicBezier& curve) {
    return PowerBasis(curve.p1, curve.c1(), curve.c2(), curve.p2);
}

inline PowerBasis PowerBasis::forEvaluation(const CubicBezier& curve) {
    // A handle too small to matter is left out, so that a curve drawn without handles and one
    // whose handles were computed to nothing evaluate alike.
    const auto isZero = [](CGPoint handle) {
        return isMagnitudeBelow(handle.x, scalar::epsilon) &&
               isMagnitudeBelow(handle.y, scalar::epsilon);
    };
    return PowerBasis(curve.p1, isZero(curve.h1) ? curve.p1 : curve.c1(),
                      isZero(curve.h2) ? curve.p2 : curve.c2(), curve.p2);
}

}  // namespace quorin
