#pragma once

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/SizeArithmetic.h"
#include "quorin/linear/Vector2.h"
#include "quorin/linear/Vector3.h"
#include "quorin/platform/values/CGGeometry.h"
#include "quorin/platform/values/CGRect.h"

/// Component-wise arithmetic between vectors and points, sizes and rects; the result has the left
/// operand's type. The third component of a vector on the right does not count, that of a vector
/// on the left stays. Points and sizes have the compound forms too, through the plain ones.
namespace quorin {

constexpr CGPoint operator+(CGPoint p, const Vector2& v) { return p + CGPoint(v); }
constexpr CGPoint operator-(CGPoint p, const Vector2& v) { return p - CGPoint(v); }
constexpr CGPoint operator*(CGPoint p, const Vector2& v) { return p * CGPoint(v); }
constexpr CGPoint operator/(CGPoint p, const Vector2& v) { return p / CGPoint(v); }

constexpr CGPoint operator+(CGPoint p, const Vector3& v) { return p + v.xy(); }
constexpr CGPoint operator-(CGPoint p, const Vector3& v) { return p - v.xy(); }
constexpr CGPoint operator*(CGPoint p, const Vector3& v) { return p * v.xy(); }
constexpr CGPoint operator/(CGPoint p, const Vector3& v) { return p / v.xy(); }

constexpr Vector3 operator+(const Vector3& v, CGPoint p) { return {v.x + p.x, v.y + p.y, v.z}; }
constexpr Vector3 operator-(const Vector3& v, CGPoint p) { return {v.x - p.x, v.y - p.y, v.z}; }
constexpr Vector3 operator*(const Vector3& v, CGPoint p) { return {v.x * p.x, v.y * p.y, v.z}; }
constexpr Vector3 operator/(const Vector3& v, CGPoint p) { return {v.x / p.x, v.y / p.y, v.z}; }
constexpr Vector3& operator+=(Vector3& v, CGPoint p) { return v = v + p; }
constexpr Vector3& operator-=(Vector3& v, CGPoint p) { return v = v - p; }
constexpr Vector3& operator*=(Vector3& v, CGPoint p) { return v = v * p; }
constexpr Vector3& operator/=(Vector3& v, CGPoint p) { return v = v / p; }

constexpr CGSize operator*(CGSize s, const Vector3& v) { return s * CGPoint(v.xy()); }
constexpr CGSize operator/(CGSize s, const Vector3& v) { return s / CGPoint(v.xy()); }

constexpr Vector3 operator*(const Vector3& v, CGSize s) { return v * CGPoint{s.width, s.height}; }
constexpr Vector3 operator/(const Vector3& v, CGSize s) { return v / CGPoint{s.width, s.height}; }
constexpr Vector3& operator*=(Vector3& v, CGSize s) { return v = v * s; }
constexpr Vector3& operator/=(Vector3& v, CGSize s) { return v = v / s; }

/// Origin and size both, x and width by x, y and height by y.
constexpr CGRect operator*(const CGRect& r, const Vector3& v) { return {r.origin * v, r.size * v}; }
constexpr CGRect operator/(const CGRect& r, const Vector3& v) { return {r.origin / v, r.size / v}; }

}  // namespace quorin
