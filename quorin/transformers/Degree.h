#pragma once

#include <cmath>

#include "quorin/geometry/Scalar.h"
#include "quorin/linear/ScalarWrapper.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// An angle in degrees, of any number of turns. Equal and ordered as the raw values are.
struct Degree {
    using NativeType = CGFloat;

    CGFloat rawValue = 0;

    constexpr Degree() = default;
    constexpr explicit Degree(CGFloat degrees) : rawValue(degrees) {}
    static constexpr Degree withRadian(CGFloat radian) {
        return Degree(radian * scalar::degreesPerRadian);
    }

    constexpr CGFloat radian() const { return rawValue * scalar::radiansPerDegree; }

    /// At the nearest whole degree, halves away from zero.
    Degree rounding() const { return Degree(std::round(rawValue)); }

    /// At the nearest multiple of 45, halves away from zero; never -0.0. A value that is not
    /// finite, or so large that the multiple is beyond 64 bits, stops the process.
    Degree roundingAt45Degree() const;
};

}  // namespace quorin
