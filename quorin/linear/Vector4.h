#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <functional>
#include <span>

#include "quorin/geometry/Hashing.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/linear/Vector2.h"
#include "quorin/linear/Vector3.h"
#include "quorin/linear/VectorArrayConvertible.h"
#include "quorin/linear/VectorComponents.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

class Decoder;
class Encoder;

/// A homogeneous place in space, or a column of a matrix. Any component may hold any double.
struct Vector4 {
    CGFloat x = 0, y = 0, z = 0, w = 0;

    static const Vector4 zero;
    /// All ones, not a vector of length one.
    static const Vector4 unit;
    // The axes are not named x, y, z and w, since the components are.
    static const Vector4 unitX;
    static const Vector4 unitY;
    static const Vector4 unitZ;
    static const Vector4 unitW;

    constexpr Vector4() = default;
    constexpr Vector4(CGFloat xValue, CGFloat yValue, CGFloat zValue, CGFloat wValue)
        : x(xValue), y(yValue), z(zValue), w(wValue) {}
    constexpr explicit Vector4(const std::array<CGFloat, 4>& a) : Vector4(a[0], a[1], a[2], a[3]) {}
    /// The first four elements; fewer stop the process.
    constexpr explicit Vector4(std::span<const CGFloat> list)
        : Vector4(leadingComponents<4>(list, "Vector4")) {}
    constexpr explicit Vector4(std::span<const float> list)
        : Vector4(leadingComponents<4>(list, "Vector4")) {}
    /// A place: w is 1.
    constexpr explicit Vector4(const Vector3& v) : Vector4(v.x, v.y, v.z, 1) {}

    constexpr std::array<CGFloat, 4> array() const { return {x, y, z, w}; }
    constexpr std::array<float, 4> floatArray() const {
        return {static_cast<float>(x), static_cast<float>(y), static_cast<float>(z),
                static_cast<float>(w)};
    }

    constexpr Vector2 xy() const { return {x, y}; }
    constexpr Vector2 xz() const { return {x, z}; }
    constexpr Vector2 yz() const { return {y, z}; }
    constexpr Vector3 xyz() const { return {x, y, z}; }
    constexpr void setXY(const Vector2& pair) { *this = {pair.x, pair.y, z, w}; }
    constexpr void setXZ(const Vector2& pair) { *this = {pair.x, y, pair.y, w}; }
    constexpr void setYZ(const Vector2& pair) { *this = {x, pair.x, pair.y, w}; }
    constexpr void setXYZ(const Vector3& v) { *this = {v.x, v.y, v.z, w}; }

    constexpr CGFloat dot(const Vector4& other) const {
        return x * other.x + y * other.y + z * other.z + w * other.w;
    }
    constexpr CGFloat lengthSquared() const { return dot(*this); }
    CGFloat length() const { return std::sqrt(lengthSquared()); }

    /// The vector of length one; unchanged when the squared length is within `epsilon` of 0 or 1.
    Vector4 normalized() const;
    /// The additive inverse, never the reciprocal.
    constexpr Vector4 inverse() const { return {-x, -y, -z, -w}; }
    Vector4 absolute() const { return {std::abs(x), std::abs(y), std::abs(z), std::abs(w)}; }
    /// This vector at t = 0, the other at t = 1, and on along the line beyond.
    constexpr Vector4 interpolated(const Vector4& with, CGFloat t) const;
    /// The same place with w = 1; unchanged when w is 0, a direction.
    constexpr Vector4 toReal() const;

    bool isFinite() const;
    /// Fit to scale and to divide by: a component below `geometricEpsilon` in magnitude becomes
    /// +`geometricEpsilon`, also when it was negative; then all are made finite.
    Vector4 safeVector() const;

    /// Under the keys "x", "y", "z" and "w".
    void encode(Encoder& encoder) const;
    static Vector4 decode(Decoder& decoder);

    /// Exact; -0.0 equals 0.0 and NaN equals nothing.
    friend constexpr bool operator==(const Vector4&, const Vector4&) = default;
};

inline constexpr Vector4 Vector4::zero{0, 0, 0, 0};
inline constexpr Vector4 Vector4::unit{1, 1, 1, 1};
inline constexpr Vector4 Vector4::unitX{1, 0, 0, 0};
inline constexpr Vector4 Vector4::unitY{0, 1, 0, 0};
inline constexpr Vector4 Vector4::unitZ{0, 0, 1, 0};
inline constexpr Vector4 Vector4::unitW{0, 0, 0, 1};

constexpr Vector4 operator-(const Vector4& a) { return a.inverse(); }
constexpr Vector4 operator+(const Vector4& a, const Vector4& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z, a.w + b.w};
}
constexpr Vector4 operator-(const Vector4& a, const Vector4& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z, a.w - b.w};
}
constexpr Vector4 operator*(const Vector4& a, const Vector4& b) {
    return {a.x * b.x, a.y * b.y, a.z * b.z, a.w * b.w};
}
constexpr Vector4 operator/(const Vector4& a, const Vector4& b) {
    return {a.x / b.x, a.y / b.y, a.z / b.z, a.w / b.w};
}
constexpr Vector4 operator*(const Vector4& a, CGFloat s) {
    return {a.x * s, a.y * s, a.z * s, a.w * s};
}
constexpr Vector4 operator/(const Vector4& a, CGFloat s) {
    return {a.x / s, a.y / s, a.z / s, a.w / s};
}

/// Whether all components differ by less than `scalar::epsilon`.
inline bool isNearlyEqual(const Vector4& a, const Vector4& b) {
    return isNearlyEqual(a.xyz(), b.xyz()) && isNearlyEqual(a.w, b.w);
}

constexpr Vector3::Vector3(const Vector4& v) : Vector3(v.x, v.y, v.z) {}

inline Vector4 Vector4::normalized() const { return normalizedVector(*this); }

constexpr Vector4 Vector4::interpolated(const Vector4& with, CGFloat t) const {
    return *this + (with - *this) * t;
}

constexpr Vector4 Vector4::toReal() const {
    if (w == 0 || w == 1)
        return *this;
    return {x / w, y / w, z / w, 1};
}

inline bool Vector4::isFinite() const { return xyz().isFinite() && std::isfinite(w); }

inline Vector4 Vector4::safeVector() const {
    return {safeDivisor(x), safeDivisor(y), safeDivisor(z), safeDivisor(w)};
}

}  // namespace quorin

template <>
struct std::hash<quorin::Vector4> {
    std::size_t operator()(const quorin::Vector4& v) const {
        return quorin::hashOf(v.x, v.y, v.z, v.w);
    }
};
