#include "quorin/svg/reading/EllipticalArc.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/Scalar.h"

namespace quorin {
namespace {

/// The map from the unit circle to the ellipse, and the stretch of angles on that circle.
struct ArcOnCircle {
    CGPoint center, axisX, axisY;
    CGFloat start = 0, sweep = 0;

    CGPoint pointAt(CGFloat angle) const {
        return center + axisX * std::cos(angle) + axisY * std::sin(angle);
    }
    CGPoint derivativeAt(CGFloat angle) const {
        return axisY * std::cos(angle) - axisX * std::sin(angle);
    }
    bool isFinite() const {
        return std::isfinite(center.x + center.y + start + sweep) &&
               std::isfinite(axisX.x + axisX.y + axisY.x + axisY.y);
    }
};

ArcOnCircle onCircle(const EllipticalArc& arc) {
    const CGFloat rotation = std::fmod(arc.rotation, 360.0) * scalar::radiansPerDegree;
    const CGPoint alongX{std::cos(rotation), std::sin(rotation)};
    const CGPoint alongY{-alongX.y, alongX.x};

    // Half of the chord, seen from the unit circle; the chord's middle lies between its ends.
    const CGPoint half = arc.from * 0.5 - arc.to * 0.5;
    CGFloat radiusX = std::abs(arc.radiusX);
    CGFloat radiusY = std::abs(arc.radiusY);
    CGPoint unit{dot(half, alongX) / radiusX, dot(half, alongY) / radiusY};
    const CGFloat reach = std::hypot(unit.x, unit.y);
    if (reach > 1) {
        radiusX *= reach;
        radiusY *= reach;
        unit = unit / reach;
    }

    const CGFloat height = std::sqrt(std::max(0.0, (1 - reach) * (1 + reach)));
    const CGFloat halfChord = std::min(reach, 1.0);
    const CGFloat side = (arc.isLarge == arc.isSweep ? -1 : 1) * height / halfChord;
    const CGPoint unitCenter{side * unit.y, -side * unit.x};
    const CGPoint first = unit - unitCenter;
    // From the chord, not as a difference of angles: on a huge circle both ends have one angle.
    const CGFloat smallSweep = 2 * std::atan2(halfChord, height);
    const CGFloat turn = arc.isLarge ? scalar::twoPi - smallSweep : smallSweep;

    ArcOnCircle circle;
    circle.axisX = alongX * radiusX;
    circle.axisY = alongY * radiusY;
    const CGPoint middle = arc.from * 0.5 + arc.to * 0.5;
    circle.center = middle + circle.axisX * unitCenter.x + circle.axisY * unitCenter.y;
    circle.start = std::atan2(first.y, first.x);
    circle.sweep = arc.isSweep ? turn : -turn;
    return circle;
}

}  // namespace

std::vector<CubicPiece> cubicPieces(const EllipticalArc& arc) {
    if (arc.from == arc.to)
        return {};
    const CubicPiece straight{arc.from, arc.to, arc.to};
    if (arc.radiusX == 0 || arc.radiusY == 0)
        return {straight};
    const ArcOnCircle circle = onCircle(arc);
    if (!circle.isFinite())
        return {straight};

    // The allowance keeps a rounded half turn from becoming three pieces.
    const CGFloat quarters = std::ceil(std::abs(circle.sweep) / scalar::halfPi - 1e-7);
    const auto count = static_cast<std::size_t>(std::max(1.0, quarters));
    const CGFloat step = circle.sweep / static_cast<CGFloat>(count);
    const CGFloat handle = 4.0 / 3.0 * std::tan(step / 4);

    std::vector<CubicPiece> pieces(count);
    CGPoint start = arc.from;
    for (std::size_t i = 0; i < count; ++i) {
        const CGFloat angle = circle.start + step * static_cast<CGFloat>(i);
        const CGPoint end = i + 1 == count ? arc.to : circle.pointAt(angle + step);
        pieces[i] = {start + circle.derivativeAt(angle) * handle,
                     end - circle.derivativeAt(angle + step) * handle, end};
        start = end;
    }
    return pieces;
}

}  // namespace quorin
