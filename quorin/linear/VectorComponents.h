#pragma once

#include <cmath>

#include "quorin/geometry/Finiteness.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/platform/values/CGGeometry.h"

/// What vectors of any dimension do to, and ask of, their components.
namespace quorin {

/// A number fit to scale and to divide by: below `geometricEpsilon` in magnitude it becomes
/// +`geometricEpsilon`, its sign lost; otherwise it is made finite.
inline CGFloat safeDivisor(CGFloat c) {
    return finite(std::abs(c) < scalar::geometricEpsilon ? scalar::geometricEpsilon : c);
}

/// Whether the angle lies within `epsilon` of a whole number of `step`s, negative ones included.
inline bool isMultipleOf(CGFloat step, CGFloat angle) {
    return std::abs(std::remainder(angle, step)) < scalar::epsilon;
}

/// Whether the angle in radians is a number of full turns.
inline bool isZeroAngle(CGFloat angle) { return isMultipleOf(scalar::twoPi, angle); }

/// The vector of length one; unchanged when the squared length is within `epsilon` of 0 or 1.
template <typename Vector>
Vector normalizedVector(const Vector& v) {
    const CGFloat s = v.lengthSquared();
    if (isNearlyEqual(s, 0) || isNearlyEqual(s, 1))
        return v;
    return v / std::sqrt(s);
}

}  // namespace quorin
