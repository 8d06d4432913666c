#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <functional>
#include <string>

#include "quorin/geometry/Hashing.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/linear/Matrix4.h"
#include "quorin/linear/Vector3.h"
#include "quorin/linear/Vector4.h"
#include "quorin/linear/VectorComponents.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

class Decoder;
class Encoder;

/// A rotation in space: the vector part (x, y, z), then the scalar part w. Nothing keeps it at
/// length one; an operation that normalizes says so. Angles are in radians.
struct Quaternion {
    CGFloat x = 0, y = 0, z = 0, w = 1;

    static const Quaternion identity;
    static const Quaternion zero;

    constexpr Quaternion() = default;
    constexpr Quaternion(CGFloat xValue, CGFloat yValue, CGFloat zValue, CGFloat wValue)
        : x(xValue), y(yValue), z(zValue), w(wValue) {}

    /// By w about the axis (x, y, z), which is taken as it is: it should have length one.
    static Quaternion withAxisAngle(const Vector4& axisAngle);
    /// Three angles of 0 give (1, 0, 0, 0), half a turn about x, and each angle brings in a field
    /// of its own: `pitch()`, `yaw()` and `roll()` do not lead back to these angles.
    static Quaternion withPitchYawRoll(CGFloat pitch, CGFloat yaw, CGFloat roll);

    constexpr Vector3 xyz() const { return {x, y, z}; }
    constexpr void setXYZ(const Vector3& v) { *this = {v.x, v.y, v.z, w}; }

    CGFloat pitch() const;
    /// NaN when rounding has made the quaternion a little longer than one at a quarter turn.
    CGFloat yaw() const;
    CGFloat roll() const;
    /// Pitch, yaw, roll.
    Vector3 toPitchYawRoll() const { return {pitch(), yaw(), roll()}; }
    std::array<CGFloat, 3> toPitchYawRollArray() const { return toPitchYawRoll().array(); }
    Vector3 rotationVector() const { return toPitchYawRoll(); }

    /// The axis and, as w, the angle about it; (0, 0, 1, 0) when the vector part has a length
    /// within `epsilon` of 0 or of 2π.
    Vector4 toAxisAngle() const;
    constexpr Matrix4 rotationMatrix() const;

    constexpr CGFloat dot(const Quaternion& other) const {
        return x * other.x + y * other.y + z * other.z + w * other.w;
    }
    constexpr CGFloat lengthSquared() const { return dot(*this); }
    CGFloat length() const { return std::sqrt(lengthSquared()); }

    /// The quaternion of length one; unchanged when the squared length is within `epsilon` of 0
    /// or 1.
    Quaternion normalized() const;
    /// The conjugate, which is the inverse at length one.
    constexpr Quaternion inverse() const { return {-x, -y, -z, w}; }

    /// Along the arc from this one at t = 0 to the other at t = 1, and on beyond. Of the two arcs
    /// it is the one between the quaternions as they are, which may be the longer one.
    Quaternion interpolated(const Quaternion& with, CGFloat t) const;

    /// "Quaternion(  0.000, -0.500,  0.000,  1.000)": three decimals, a blank in the place of a
    /// plus.
    std::string description() const;

    /// Under the keys "x", "y", "z" and "w".
    void encode(Encoder& encoder) const;
    static Quaternion decode(Decoder& decoder);

    /// Exact; -0.0 equals 0.0 and NaN equals nothing.
    friend constexpr bool operator==(const Quaternion&, const Quaternion&) = default;
};

inline constexpr Quaternion Quaternion::identity{0, 0, 0, 1};
inline constexpr Quaternion Quaternion::zero{0, 0, 0, 0};

/// The conjugate, not the negated fields.
constexpr Quaternion operator-(const Quaternion& q) { return q.inverse(); }
constexpr Quaternion operator+(const Quaternion& a, const Quaternion& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z, a.w + b.w};
}
constexpr Quaternion operator-(const Quaternion& a, const Quaternion& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z, a.w - b.w};
}
constexpr Quaternion operator*(const Quaternion& q, CGFloat s) {
    return {q.x * s, q.y * s, q.z * s, q.w * s};
}
constexpr Quaternion operator/(const Quaternion& q, CGFloat s) {
    return {q.x / s, q.y / s, q.z / s, q.w / s};
}

/// Hamilton's product: rotates by `b` first, then by `a`.
constexpr Quaternion operator*(const Quaternion& a, const Quaternion& b) {
    return {a.w * b.x + a.x * b.w + a.y * b.z - a.z * b.y,
            a.w * b.y + a.y * b.w + a.z * b.x - a.x * b.z,
            a.w * b.z + a.z * b.w + a.x * b.y - a.y * b.x,
            a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z};
}

/// The vector rotated by the quaternion, which is taken as it is.
constexpr Vector3 operator*(const Quaternion& q, const Vector3& v) {
    const Vector3 u = q.xyz();
    const Vector3 t = u.cross(v);
    return v + t * (2 * q.w) + u.cross(t) * 2;
}
constexpr Vector3 operator*(const Vector3& v, const Quaternion& q) { return q * v; }

/// Whether all fields differ by less than `scalar::epsilon`.
inline bool isNearlyEqual(const Quaternion& a, const Quaternion& b) {
    return isNearlyEqual(a.xyz(), b.xyz()) && isNearlyEqual(a.w, b.w);
}

inline Quaternion Quaternion::normalized() const { return normalizedVector(*this); }

constexpr Matrix4 Quaternion::rotationMatrix() const {
    Matrix4 m;
    m.m11 = 1 - 2 * (y * y + z * z);
    m.m12 = 2 * (x * y + z * w);
    m.m13 = 2 * (x * z - y * w);
    m.m21 = 2 * (x * y - z * w);
    m.m22 = 1 - 2 * (x * x + z * z);
    m.m23 = 2 * (y * z + x * w);
    m.m31 = 2 * (x * z + y * w);
    m.m32 = 2 * (y * z - x * w);
    m.m33 = 1 - 2 * (x * x + y * y);
    return m;
}

}  // namespace quorin

template <>
struct std::hash<quorin::Quaternion> {
    std::size_t operator()(const quorin::Quaternion& q) const {
        return quorin::hashOf(q.x, q.y, q.z, q.w);
    }
};
