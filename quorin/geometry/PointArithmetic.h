#pragma once

#include <cmath>
#include <concepts>

#include "quorin/geometry/Scalar.h"
#include "quorin/platform/values/CGGeometry.h"

/// Component-wise arithmetic that gives points. A size stands for the point (width, height).
namespace quorin {

constexpr CGPoint operator-(CGPoint p) { return {-p.x, -p.y}; }

constexpr CGPoint operator+(CGPoint a, CGPoint b) { return {a.x + b.x, a.y + b.y}; }
constexpr CGPoint operator-(CGPoint a, CGPoint b) { return {a.x - b.x, a.y - b.y}; }
constexpr CGPoint operator*(CGPoint a, CGPoint b) { return {a.x * b.x, a.y * b.y}; }
constexpr CGPoint operator/(CGPoint a, CGPoint b) { return {a.x / b.x, a.y / b.y}; }

constexpr CGPoint operator+(CGPoint p, CGSize s) { return {p.x + s.width, p.y + s.height}; }
constexpr CGPoint operator-(CGPoint p, CGSize s) { return {p.x - s.width, p.y - s.height}; }
constexpr CGPoint operator*(CGPoint p, CGSize s) { return {p.x * s.width, p.y * s.height}; }
constexpr CGPoint operator/(CGPoint p, CGSize s) { return {p.x / s.width, p.y / s.height}; }

constexpr CGPoint operator*(CGPoint p, CGFloat s) { return {p.x * s, p.y * s}; }
constexpr CGPoint operator*(CGFloat s, CGPoint p) { return {s * p.x, s * p.y}; }
constexpr CGPoint operator/(CGPoint p, CGFloat s) { return {p.x / s, p.y / s}; }
/// Multiplies: a scalar over a point scales the point. Callers rely on it.
constexpr CGPoint operator/(CGFloat s, CGPoint p) { return {s * p.x, s * p.y}; }

template <typename Value>
concept PointOrSize = std::same_as<Value, CGPoint> || std::same_as<Value, CGSize>;

// The compound forms exist wherever the plain operator gives the left operand's type, so sizes
// and vectors on the right need none of their own.
template <PointOrSize Value, typename Operand>
constexpr auto operator+=(Value& a, const Operand& b) -> decltype(a = a + b) {
    return a = a + b;
}
template <PointOrSize Value, typename Operand>
constexpr auto operator-=(Value& a, const Operand& b) -> decltype(a = a - b) {
    return a = a - b;
}
template <PointOrSize Value, typename Operand>
constexpr auto operator*=(Value& a, const Operand& b) -> decltype(a = a * b) {
    return a = a * b;
}
template <PointOrSize Value, typename Operand>
constexpr auto operator/=(Value& a, const Operand& b) -> decltype(a = a / b) {
    return a = a / b;
}

constexpr CGFloat dot(CGPoint a, CGPoint b) { return a.x * b.x + a.y * b.y; }
constexpr CGFloat cross(CGPoint a, CGPoint b) { return a.x * b.y - a.y * b.x; }

/// Euclidean distance, or its square, for which no root is taken.
inline CGFloat distance(CGPoint a, CGPoint with, bool squared = false) {
    const CGPoint d = a - with;
    const CGFloat square = dot(d, d);
    return squared ? square : std::sqrt(square);
}

/// Whether both components differ by less than `scalar::epsilon`.
inline bool isNearlyEqual(CGPoint a, CGPoint b) {
    return isNearlyEqual(a.x, b.x) && isNearlyEqual(a.y, b.y);
}

}  // namespace quorin
