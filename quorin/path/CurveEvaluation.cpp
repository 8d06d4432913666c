#include <cmath>

#include "quorin/path/CubicBezier.h"

namespace quorin {

namespace {

bool isInside(CGFloat t) { return !(t < 0 || t > 1); }

CGPoint normalized(CGPoint vector) {
    const CGFloat lengthSquared = dot(vector, vector);
    if (std::abs(lengthSquared) < scalar::epsilon || std::abs(lengthSquared - 1) < scalar::epsilon)
        return vector;
    return vector / std::sqrt(lengthSquared);
}

CGPoint turnedClockwise(CGPoint vector) { return {vector.y, -vector.x}; }

CGPoint unitTangent(const PowerBasis& basis, CGFloat t) {
    CGPoint derivative = basis.derivativeAt(t);
    // A zero handle at an end leaves no direction there; the controls' chord stands in.
    if (derivative == CGPoint::zero && (PowerBasis::isAtStart(t) || PowerBasis::isAtEnd(t)))
        derivative = basis.c2 - basis.c1;
    return normalized(derivative);
}

}  // namespace

std::optional<CGPoint> CubicBezier::weightedTangentAt(CGFloat t) const {
    if (!isInside(t))
        return std::nullopt;
    return PowerBasis::forEvaluation(*this).derivativeAt(t);
}

std::optional<CGPoint> CubicBezier::tangentAt(CGFloat t) const {
    if (!isInside(t))
        return std::nullopt;
    return unitTangent(PowerBasis::forEvaluation(*this), t);
}

std::optional<CGPoint> CubicBezier::weightedNormalAt(CGFloat t) const {
    const auto tangent = weightedTangentAt(t);
    return tangent ? std::optional(turnedClockwise(*tangent)) : std::nullopt;
}

std::optional<CGPoint> CubicBezier::normalAt(CGFloat t) const {
    const auto tangent = tangentAt(t);
    return tangent ? std::optional(turnedClockwise(*tangent)) : std::nullopt;
}

std::optional<CGFloat> CubicBezier::curvatureAt(CGFloat t) const {
    if (!isInside(t))
        return std::nullopt;
    const PowerBasis basis = PowerBasis::forEvaluation(*this);
    const CGPoint d = basis.derivativeAt(t);
    const CGPoint e = basis.secondDerivativeAt(t);
    const CGFloat denominator = std::pow(e.x * e.x + e.y * e.y, 1.5);
    if (denominator == 0)
        return 0;
    return (e.y * d.x - e.x * d.y) / denominator;
}

}  // namespace quorin
