#pragma once

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/SizeArithmetic.h"
#include "quorin/platform/values/CGGeometry.h"
#include "quorin/platform/values/CGRect.h"

namespace quorin {

/// The rect moved by the point; its size stays.
constexpr CGRect operator+(const CGRect& r, CGPoint p) { return {r.origin + p, r.size}; }
constexpr CGRect operator-(const CGRect& r, CGPoint p) { return {r.origin - p, r.size}; }

/// Origin and size both divided.
constexpr CGRect operator/(const CGRect& r, CGFloat s) { return {r.origin / s, r.size / s}; }
constexpr CGRect& operator/=(CGRect& r, CGFloat s) { return r = r / s; }
/// Origin and size both multiplied.
constexpr CGRect& operator*=(CGRect& r, CGFloat s) { return r = {r.origin * s, r.size * s}; }

}  // namespace quorin
