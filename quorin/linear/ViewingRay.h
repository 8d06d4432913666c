#pragma once

#include "quorin/linear/Vector3.h"

namespace quorin {

/// Where the line from `origin` along `eyevector` meets the plane of all points p with
/// planeNormal · p = d, which may be behind the origin. Zero when the two are exactly parallel.
constexpr Vector3 intersectionWithCamera(const Vector3& origin, const Vector3& eyevector,
                                         const Vector3& planeNormal, CGFloat d) {
    const CGFloat k = eyevector.dot(planeNormal);
    if (k == 0)
        return Vector3::zero;

    const CGFloat s = (d - origin.dot(planeNormal)) / k;
    return origin + eyevector * s;
}

}  // namespace quorin
