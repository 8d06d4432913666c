#pragma once

#include "quorin/geometry/Polynomial.h"
#include "quorin/platform/values/CGGeometry.h"

/// Where one coordinate of a Bézier curve turns around. Times lie strictly between 0 and 1, in
/// ascending order; a place where the coordinate only pauses is none. Nothing turns in a curve
/// with a coordinate that is infinite or not a number.
namespace quorin {

/// Source: the derivative in Bernstein form, d1·(1 − t)² + 2·d2·t·(1 − t) + d3·t². Its
/// discriminant is d2² − d1·d3, and q, with the sum of like signs, keeps both roots q / a and
/// c / q accurate.
Roots extremumTimes(CGFloat p1, CGFloat c1, CGFloat c2, CGFloat p2);

/// The same for a quadratic.
Roots extremumTimes(CGFloat p1, CGFloat c, CGFloat p2);

}  // namespace quorin
