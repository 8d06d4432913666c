#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <functional>
#include <span>

#include "quorin/geometry/Clamped.h"
#include "quorin/geometry/Finiteness.h"
#include "quorin/geometry/Hashing.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/linear/VectorArrayConvertible.h"
#include "quorin/linear/VectorComponents.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

class Decoder;
class Encoder;

/// An offset, a place or a pair of scale factors in the plane. Any component may hold any double.
struct Vector2 {
    CGFloat x = 0, y = 0;

    static const Vector2 zero;
    /// The identity scale (1, 1), not a vector of length one.
    static const Vector2 unit;
    // The axes are not named x and y, since the components are.
    static const Vector2 unitX;
    static const Vector2 unitY;

    constexpr Vector2() = default;
    constexpr Vector2(CGFloat xValue, CGFloat yValue) : x(xValue), y(yValue) {}
    constexpr explicit Vector2(const std::array<CGFloat, 2>& a) : Vector2(a[0], a[1]) {}
    /// The first two elements; fewer stop the process.
    constexpr explicit Vector2(std::span<const CGFloat> list)
        : Vector2(leadingComponents<2>(list, "Vector2")) {}
    constexpr explicit Vector2(std::span<const float> list)
        : Vector2(leadingComponents<2>(list, "Vector2")) {}
    constexpr explicit Vector2(CGPoint point) : Vector2(point.x, point.y) {}
    constexpr explicit Vector2(CGSize size) : Vector2(size.width, size.height) {}
    constexpr explicit Vector2(CGVector vector) : Vector2(vector.dx, vector.dy) {}

    constexpr explicit operator CGPoint() const { return {x, y}; }
    constexpr explicit operator CGSize() const { return {x, y}; }
    constexpr explicit operator CGVector() const { return {x, y}; }

    constexpr std::array<CGFloat, 2> array() const { return {x, y}; }
    constexpr std::array<float, 2> floatArray() const {
        return {static_cast<float>(x), static_cast<float>(y)};
    }

    constexpr CGFloat dot(const Vector2& other) const { return x * other.x + y * other.y; }
    /// The z of the cross product in space.
    constexpr CGFloat cross(const Vector2& other) const { return x * other.y - y * other.x; }
    constexpr CGFloat lengthSquared() const { return dot(*this); }
    CGFloat length() const { return std::sqrt(lengthSquared()); }

    /// The signed angle in radians from this vector to the other, in (−π, π].
    CGFloat angle(const Vector2& with) const;

    /// The vector of length one; unchanged when the squared length is within `epsilon` of 0 or 1.
    Vector2 normalized() const;
    /// The additive inverse, never the reciprocal.
    constexpr Vector2 inverse() const { return {-x, -y}; }
    Vector2 absolute() const { return {std::abs(x), std::abs(y)}; }
    /// This vector at t = 0, the other at t = 1, and on along the line beyond.
    constexpr Vector2 interpolated(const Vector2& with, CGFloat t) const;
    /// The part of this vector along `onto`; zero along the zero vector.
    constexpr Vector2 projected(const Vector2& onto) const;
    /// Rotated by radians, counter-clockwise in a y-up plane.
    Vector2 rotatedBy(CGFloat angle) const;
    Vector2 rotatedBy(CGFloat angle, const Vector2& around) const;

    bool isFinite() const { return std::isfinite(x) && std::isfinite(y); }
    /// Repairs each component as `finite` does a number.
    void formFinite();

    /// Under the keys "x" and "y".
    void encode(Encoder& encoder) const;
    static Vector2 decode(Decoder& decoder);

    /// Exact; -0.0 equals 0.0 and NaN equals nothing.
    friend constexpr bool operator==(const Vector2&, const Vector2&) = default;
};

inline constexpr Vector2 Vector2::zero{0, 0};
inline constexpr Vector2 Vector2::unit{1, 1};
inline constexpr Vector2 Vector2::unitX{1, 0};
inline constexpr Vector2 Vector2::unitY{0, 1};

constexpr Vector2 operator-(const Vector2& a) { return a.inverse(); }
constexpr Vector2 operator+(const Vector2& a, const Vector2& b) { return {a.x + b.x, a.y + b.y}; }
constexpr Vector2 operator-(const Vector2& a, const Vector2& b) { return {a.x - b.x, a.y - b.y}; }
constexpr Vector2 operator*(const Vector2& a, const Vector2& b) { return {a.x * b.x, a.y * b.y}; }
constexpr Vector2 operator/(const Vector2& a, const Vector2& b) { return {a.x / b.x, a.y / b.y}; }
constexpr Vector2 operator*(const Vector2& a, CGFloat s) { return {a.x * s, a.y * s}; }
constexpr Vector2 operator/(const Vector2& a, CGFloat s) { return {a.x / s, a.y / s}; }

/// Whether both components differ by less than `scalar::epsilon`.
inline bool isNearlyEqual(const Vector2& a, const Vector2& b) {
    return isNearlyEqual(a.x, b.x) && isNearlyEqual(a.y, b.y);
}

inline CGFloat Vector2::angle(const Vector2& with) const {
    if (*this == with)
        return 0;
    const Vector2 a = normalized();
    const Vector2 b = with.normalized();
    // Opposite vectors are π apart, never −π: a cross product of -0.0 becomes 0.0.
    const CGFloat sine = a.cross(b) + 0.0;
    return std::atan2(sine, clamped(a.dot(b), ClosedRange{-1.0, 1.0}));
}

inline Vector2 Vector2::normalized() const { return normalizedVector(*this); }

constexpr Vector2 Vector2::interpolated(const Vector2& with, CGFloat t) const {
    return *this + (with - *this) * t;
}

constexpr Vector2 Vector2::projected(const Vector2& onto) const {
    if (onto == zero)
        return zero;
    return onto * (onto.dot(*this) / onto.dot(onto));
}

inline Vector2 Vector2::rotatedBy(CGFloat angle) const {
    const CGFloat sine = std::sin(angle);
    const CGFloat cosine = std::cos(angle);
    return {cosine * x - sine * y, sine * x + cosine * y};
}

inline Vector2 Vector2::rotatedBy(CGFloat angle, const Vector2& around) const {
    return (*this - around).rotatedBy(angle) + around;
}

inline void Vector2::formFinite() { *this = {finite(x), finite(y)}; }

}  // namespace quorin

template <>
struct std::hash<quorin::Vector2> {
    std::size_t operator()(const quorin::Vector2& v) const { return quorin::hashOf(v.x, v.y); }
};
