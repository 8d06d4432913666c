#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <functional>
#include <span>
#include <string>

#include "quorin/geometry/Finiteness.h"
#include "quorin/geometry/Hashing.h"
#include "quorin/geometry/RectCorner.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/geometry/TolerantEquality.h"
#include "quorin/linear/Vector2.h"
#include "quorin/linear/VectorArrayConvertible.h"
#include "quorin/linear/VectorComponents.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

class Decoder;
class Encoder;
struct Vector4;

/// A place or offset in space, or a scale factor for each axis, or three angles in radians. Any
/// component may hold any double.
struct Vector3 {
    CGFloat x = 0, y = 0, z = 0;

    static const Vector3 zero;
    /// The identity scale (1, 1, 1), not a vector of length one.
    static const Vector3 unit;
    // The axes are not named x, y and z, since the components are.
    static const Vector3 unitX;
    static const Vector3 unitY;
    static const Vector3 unitZ;

    constexpr Vector3() = default;
    constexpr Vector3(CGFloat xValue, CGFloat yValue, CGFloat zValue)
        : x(xValue), y(yValue), z(zValue) {}
    constexpr explicit Vector3(const std::array<CGFloat, 3>& a) : Vector3(a[0], a[1], a[2]) {}
    /// The first three elements; fewer stop the process.
    constexpr explicit Vector3(std::span<const CGFloat> list)
        : Vector3(leadingComponents<3>(list, "Vector3")) {}
    constexpr explicit Vector3(std::span<const float> list)
        : Vector3(leadingComponents<3>(list, "Vector3")) {}
    constexpr explicit Vector3(CGPoint point) : Vector3(point.x, point.y, 0) {}
    /// A size is a scale, so it leaves the third axis as it is: (width, height, 1).
    constexpr explicit Vector3(CGSize size) : Vector3(size.width, size.height, 1) {}
    /// Without w.
    constexpr explicit Vector3(const Vector4& vector);

    constexpr std::array<CGFloat, 3> array() const { return {x, y, z}; }
    constexpr std::array<float, 3> floatArray() const {
        return {static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)};
    }

    constexpr Vector2 xy() const { return {x, y}; }
    constexpr Vector2 xz() const { return {x, z}; }
    constexpr Vector2 yz() const { return {y, z}; }
    constexpr void setXY(const Vector2& pair) { *this = {pair.x, pair.y, z}; }
    constexpr void setXZ(const Vector2& pair) { *this = {pair.x, y, pair.y}; }
    constexpr void setYZ(const Vector2& pair) { *this = {x, pair.x, pair.y}; }

    constexpr CGFloat dot(const Vector3& other) const {
        return x * other.x + y * other.y + z * other.z;
    }
    constexpr Vector3 cross(const Vector3& other) const {
        return {y * other.z - z * other.y, z * other.x - x * other.z, x * other.y - y * other.x};
    }
    constexpr CGFloat lengthSquared() const { return dot(*this); }
    CGFloat length() const { return std::sqrt(lengthSquared()); }

    /// The vector of length one; unchanged when the squared length is within `epsilon` of 0 or 1.
    Vector3 normalized() const;
    /// The additive inverse, never the reciprocal.
    constexpr Vector3 inverse() const { return {-x, -y, -z}; }
    Vector3 absolute() const { return {std::abs(x), std::abs(y), std::abs(z)}; }
    /// This vector at t = 0, the other at t = 1, and on along the line beyond.
    constexpr Vector3 interpolated(const Vector3& with, CGFloat t) const;
    /// Each component within the bounds, the lower one winning where they cross; NaN becomes the
    /// lower bound.
    Vector3 clamped(const Vector3& min, const Vector3& max) const;
    Vector3 clamped(CGFloat min, CGFloat max) const;

    bool isFinite() const { return std::isfinite(x) && std::isfinite(y) && std::isfinite(z); }
    /// Each component repaired as `finite` does a number.
    Vector3 finite() const;
    /// Fit to scale and to divide by: a component below `geometricEpsilon` in magnitude becomes
    /// +`geometricEpsilon`, also when it was negative; then all are made finite.
    Vector3 safeVector() const;

    /// Whether this is exactly the identity scale.
    constexpr bool isUnit() const { return *this == unit; }
    bool isNearlyUnit() const;
    /// For angles: whether all are multiples of a full turn, within `epsilon`.
    bool isZeroAngle() const;
    /// For angles: whether the rotation leaves the plane, x or y not being a zero angle.
    bool is3DTransformed() const;
    /// For angles: whether this is a rotation in the plane by a multiple of a quarter turn.
    bool isRightAngle() const;
    /// Whether `to` is a `Vector3` whose components differ by less than `tolerant`.
    bool isGeometricallyEqual(GeometricallyComparable to, CGFloat tolerant) const;

    /// Gives both planar components the value of greater magnitude, x when they tie.
    void makeProportional();
    /// The drag of a rect's handle as the change of its width and height, growing towards the
    /// bottom right.
    constexpr Vector3 resizeVectorWithRectCorner(RectCorner corner) const;

    /// "Vector3(  1.000, -2.000,  0.500)": three decimals, a blank in the place of a plus.
    std::string description() const;

    /// Under the keys "x", "y" and "z".
    void encode(Encoder& encoder) const;
    static Vector3 decode(Decoder& decoder);

    /// Exact; -0.0 equals 0.0 and NaN equals nothing.
    friend constexpr bool operator==(const Vector3&, const Vector3&) = default;
};

inline constexpr Vector3 Vector3::zero{0, 0, 0};
inline constexpr Vector3 Vector3::unit{1, 1, 1};
inline constexpr Vector3 Vector3::unitX{1, 0, 0};
inline constexpr Vector3 Vector3::unitY{0, 1, 0};
inline constexpr Vector3 Vector3::unitZ{0, 0, 1};

constexpr Vector3 operator-(const Vector3& a) { return a.inverse(); }
constexpr Vector3 operator+(const Vector3& a, const Vector3& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
constexpr Vector3 operator-(const Vector3& a, const Vector3& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
constexpr Vector3 operator*(const Vector3& a, const Vector3& b) {
    return {a.x * b.x, a.y * b.y, a.z * b.z};
}
constexpr Vector3 operator/(const Vector3& a, const Vector3& b) {
    return {a.x / b.x, a.y / b.y, a.z / b.z};
}
constexpr Vector3 operator*(const Vector3& a, CGFloat s) { return {a.x * s, a.y * s, a.z * s}; }
constexpr Vector3 operator/(const Vector3& a, CGFloat s) { return {a.x / s, a.y / s, a.z / s}; }

constexpr Vector3& operator+=(Vector3& a, const Vector3& b) { return a = a + b; }
constexpr Vector3& operator-=(Vector3& a, const Vector3& b) { return a = a - b; }
constexpr Vector3& operator*=(Vector3& a, const Vector3& b) { return a = a * b; }
constexpr Vector3& operator/=(Vector3& a, const Vector3& b) { return a = a / b; }

/// Whether all components differ by less than `scalar::epsilon`.
inline bool isNearlyEqual(const Vector3& a, const Vector3& b) {
    return isNearlyEqual(a.x, b.x) && isNearlyEqual(a.y, b.y) && isNearlyEqual(a.z, b.z);
}

constexpr Vector3 Vector3::interpolated(const Vector3& with, CGFloat t) const {
    return *this + (with - *this) * t;
}

inline Vector3 Vector3::normalized() const { return normalizedVector(*this); }

inline Vector3 Vector3::clamped(const Vector3& min, const Vector3& max) const {
    const auto clampedComponent = [](CGFloat c, CGFloat lower, CGFloat upper) {
        if (std::isnan(c))
            return lower;
        const CGFloat v = c < upper ? c : upper;
        return v >= lower ? v : lower;
    };
    return {clampedComponent(x, min.x, max.x), clampedComponent(y, min.y, max.y),
            clampedComponent(z, min.z, max.z)};
}

inline Vector3 Vector3::clamped(CGFloat min, CGFloat max) const {
    return clamped(Vector3{min, min, min}, Vector3{max, max, max});
}

inline Vector3 Vector3::finite() const {
    return {quorin::finite(x), quorin::finite(y), quorin::finite(z)};
}

inline Vector3 Vector3::safeVector() const {
    return {safeDivisor(x), safeDivisor(y), safeDivisor(z)};
}

inline bool Vector3::isNearlyUnit() const { return isNearlyEqual(*this, unit); }

inline bool Vector3::isZeroAngle() const {
    return quorin::isZeroAngle(x) && quorin::isZeroAngle(y) && quorin::isZeroAngle(z);
}

inline bool Vector3::is3DTransformed() const {
    return !quorin::isZeroAngle(x) || !quorin::isZeroAngle(y);
}

inline bool Vector3::isRightAngle() const {
    return !is3DTransformed() && isMultipleOf(scalar::halfPi, z);
}

inline bool Vector3::isGeometricallyEqual(GeometricallyComparable to, CGFloat tolerant) const {
    const Vector3* other = to.as<Vector3>();
    if (!other)
        return false;
    const Vector3 d = (*this - *other).absolute();
    return d.x < tolerant && d.y < tolerant && d.z < tolerant;
}

inline void Vector3::makeProportional() {
    if (std::abs(x) < std::abs(y))
        x = y;
    else
        y = x;
}

constexpr Vector3 Vector3::resizeVectorWithRectCorner(RectCorner corner) const {
    switch (corner) {
        case RectCorner::topLeft:
            // The one corner that turns z around as well.
            return {-x, -y, -z};
        case RectCorner::topRight:
            return {x, -y, z};
        case RectCorner::bottomRight:
            return *this;
        case RectCorner::bottomLeft:
            return {-x, y, z};
        case RectCorner::top:
            return {0, -y, z};
        case RectCorner::right:
            return {x, 0, z};
        case RectCorner::bottom:
            return {0, y, z};
        case RectCorner::left:
            return {-x, 0, z};
    }
    return *this;
}

}  // namespace quorin

template <>
struct std::hash<quorin::Vector3> {
    std::size_t operator()(const quorin::Vector3& v) const { return quorin::hashOf(v.x, v.y, v.z); }
};
