#pragma once

#include <cmath>

#include "quorin/geometry/Scalar.h"
#include "quorin/platform/values/CGGeometry.h"

/// Component-wise arithmetic of points, sizes and scalars; the result has the left operand's type.
namespace quorin {

constexpr CGPoint operator-(CGPoint p) { return {-p.x, -p.y}; }

constexpr CGPoint operator+(CGPoint a, CGPoint b) { return {a.x + b.x, a.y + b.y}; }
constexpr CGPoint operator-(CGPoint a, CGPoint b) { return {a.x - b.x, a.y - b.y}; }
constexpr CGPoint operator*(CGPoint a, CGPoint b) { return {a.x * b.x, a.y * b.y}; }
constexpr CGPoint operator/(CGPoint a, CGPoint b) { return {a.x / b.x, a.y / b.y}; }

constexpr CGPoint operator*(CGPoint p, CGFloat s) { return {p.x * s, p.y * s}; }
constexpr CGPoint operator*(CGFloat s, CGPoint p) { return {s * p.x, s * p.y}; }
constexpr CGPoint operator/(CGPoint p, CGFloat s) { return {p.x / s, p.y / s}; }
/// Multiplies: a scalar over a point scales the point. Callers rely on it.
constexpr CGPoint operator/(CGFloat s, CGPoint p) { return {s * p.x, s * p.y}; }

inline CGFloat dot(CGPoint a, CGPoint b) { return a.x * b.x + a.y * b.y; }
inline CGFloat cross(CGPoint a, CGPoint b) { return a.x * b.y - a.y * b.x; }

/// Euclidean distance.
inline CGFloat distance(CGPoint a, CGPoint b) {
    const CGPoint d = a - b;
    return std::sqrt(d.x * d.x + d.y * d.y);
}

/// Whether both components differ by less than `scalar::epsilon`.
inline bool isNearlyEqual(CGPoint a, CGPoint b) {
    return isNearlyEqual(a.x, b.x) && isNearlyEqual(a.y, b.y);
}

}  // namespace quorin
