#include <cmath>

#include "quorin/path/CubicBezier.h"

namespace quorin {

namespace {

bool isNearlyZero(CGPoint vector) { return isNearlyEqual(vector, CGPoint::zero); }

bool isFarFromLine(CGPoint offset, CGPoint direction, CGFloat directionSquared) {
    // The distance squared without root and division, with room for the rounding of both.
    constexpr CGFloat reach = scalar::geometricEpsilon * scalar::geometricEpsilon * (1 + 1e-9);
    const CGFloat area = cross(offset, direction);
    return area * area > reach * directionSquared;
}

bool isProjectedInto(CGFloat low, CGFloat high, CGPoint handle, CGPoint v, CGFloat vSquared) {
    const CGFloat projection = dot(v, handle) / vSquared;
    return projection >= low && projection <= high;
}

}  // namespace

bool CubicBezier::isStraight() const {
    if (isNearlyZero(h1) && isNearlyZero(h2))
        return true;
    const CGPoint v = p2 - p1;
    if (isNearlyZero(v))
        return false;

    // Nearly every real curve leaves here, before anything is divided.
    const CGFloat vSquared = dot(v, v);
    if (isFarFromLine(c1() - p1, v, vSquared) || isFarFromLine(c2() - p1, v, vSquared))
        return false;

    const Line chord = Line::along(p1, v);
    return chord.distance(c1()) < scalar::geometricEpsilon &&
           chord.distance(c2()) < scalar::geometricEpsilon &&
           isProjectedInto(0, 1, h1, v, vSquared) && isProjectedInto(-1, 0, h2, v, vSquared);
}

bool CubicBezier::isLinear() const {
    const CGPoint v = p2 - p1;
    return h1 == v / 3 && h2 == -v / 3;
}

}  // namespace quorin
