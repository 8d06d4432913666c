#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <functional>
#include <span>

#include "quorin/linear/MatrixElements.h"
#include "quorin/linear/Vector2.h"
#include "quorin/linear/Vector3.h"
#include "quorin/linear/VectorArrayConvertible.h"
#include "quorin/platform/values/CGAffineTransform.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

class Decoder;
class Encoder;

/// A 3×3 matrix, for affine work in the plane. mIJ stands in column I and row J, and is stored
/// column after column; a vector is a column, so the translation is (m31, m32). Any element may
/// hold any double.
struct Matrix3 {
    CGFloat m11 = 1, m12 = 0, m13 = 0;
    CGFloat m21 = 0, m22 = 1, m23 = 0;
    CGFloat m31 = 0, m32 = 0, m33 = 1;

    static const Matrix3 identity;

    constexpr Matrix3() = default;
    /// The elements as they are stored.
    constexpr Matrix3(CGFloat a11, CGFloat a12, CGFloat a13, CGFloat a21, CGFloat a22, CGFloat a23,
                      CGFloat a31, CGFloat a32, CGFloat a33)
        : m11(a11),
          m12(a12),
          m13(a13),
          m21(a21),
          m22(a22),
          m23(a23),
          m31(a31),
          m32(a32),
          m33(a33) {}
    constexpr explicit Matrix3(const std::array<CGFloat, 9>& a)
        : Matrix3(std::bit_cast<Matrix3>(a)) {}
    /// The first nine numbers, as they are stored; fewer stop the process.
    constexpr explicit Matrix3(std::span<const CGFloat> list)
        : Matrix3(leadingComponents<9>(list, "Matrix3")) {}
    constexpr explicit Matrix3(std::span<const float> list)
        : Matrix3(leadingComponents<9>(list, "Matrix3")) {}

    constexpr explicit Matrix3(const CGAffineTransform& t)
        : Matrix3(t.a, t.b, 0, t.c, t.d, 0, t.tx, t.ty, 1) {}
    /// Without the third row, whatever it holds.
    constexpr explicit operator CGAffineTransform() const { return {m11, m12, m21, m22, m31, m32}; }

    static constexpr Matrix3 withColumns(const Vector3& first, const Vector3& second,
                                         const Vector3& third);
    static constexpr Matrix3 withScale(const Vector2& scale);
    static constexpr Matrix3 withTranslation(const Vector2& translation);
    /// By radians, counter-clockwise in a y-up plane.
    static Matrix3 withRotation(CGFloat angle);

    constexpr std::array<CGFloat, 9> array() const {
        return std::bit_cast<std::array<CGFloat, 9>>(*this);
    }
    constexpr std::array<float, 9> floatArray() const { return singlePrecision(array()); }

    constexpr Matrix3 transpose() const;
    constexpr CGFloat determinant() const;
    /// The transpose of the cofactors: the product with it is the determinant times the identity.
    constexpr Matrix3 adjugate() const;
    /// Not finite where the determinant is 0.
    constexpr Matrix3 inverse() const;
    /// This matrix at t = 0, the other at t = 1, and on beyond, each element for itself.
    constexpr Matrix3 interpolated(const Matrix3& with, CGFloat t) const;

    /// Under the keys "m11" to "m33".
    void encode(Encoder& encoder) const;
    static Matrix3 decode(Decoder& decoder);

    /// Exact; -0.0 equals 0.0 and NaN equals nothing.
    friend constexpr bool operator==(const Matrix3&, const Matrix3&) = default;
};

inline constexpr Matrix3 Matrix3::identity{};

constexpr Matrix3 Matrix3::withColumns(const Vector3& first, const Vector3& second,
                                       const Vector3& third) {
    return {first.x, first.y, first.z, second.x, second.y, second.z, third.x, third.y, third.z};
}

constexpr Matrix3 Matrix3::withScale(const Vector2& scale) {
    return {scale.x, 0, 0, 0, scale.y, 0, 0, 0, 1};
}

constexpr Matrix3 Matrix3::withTranslation(const Vector2& translation) {
    return {1, 0, 0, 0, 1, 0, translation.x, translation.y, 1};
}

constexpr Vector3 operator*(const Matrix3& m, const Vector3& v) {
    return {m.m11 * v.x + m.m21 * v.y + m.m31 * v.z,  //
            m.m12 * v.x + m.m22 * v.y + m.m32 * v.z,  //
            m.m13 * v.x + m.m23 * v.y + m.m33 * v.z};
}
constexpr Vector3 operator*(const Vector3& v, const Matrix3& m) { return m * v; }

/// The place in the plane moved by an affine matrix: the third row does not count.
constexpr Vector2 operator*(const Matrix3& m, const Vector2& v) {
    return {m.m11 * v.x + m.m21 * v.y + m.m31, m.m12 * v.x + m.m22 * v.y + m.m32};
}
constexpr Vector2 operator*(const Vector2& v, const Matrix3& m) { return m * v; }

/// Does `b` to a vector first, then `a`.
constexpr Matrix3 operator*(const Matrix3& a, const Matrix3& b) {
    return Matrix3::withColumns(a * Vector3{b.m11, b.m12, b.m13}, a * Vector3{b.m21, b.m22, b.m23},
                                a * Vector3{b.m31, b.m32, b.m33});
}

constexpr Matrix3 operator*(const Matrix3& m, CGFloat s) {
    return Matrix3(eachElement(m.array(), [s](CGFloat element) { return element * s; }));
}

/// The inverse, not the negated elements.
constexpr Matrix3 operator-(const Matrix3& m) { return m.inverse(); }

/// Whether all elements differ by less than `scalar::epsilon`.
inline bool isNearlyEqual(const Matrix3& a, const Matrix3& b) {
    return areNearlyEqual(a.array(), b.array());
}

constexpr Matrix3 Matrix3::transpose() const {
    return {m11, m21, m31, m12, m22, m32, m13, m23, m33};
}

constexpr Matrix3 Matrix3::adjugate() const {
    return {m22 * m33 - m23 * m32, m13 * m32 - m12 * m33, m12 * m23 - m13 * m22,
            m23 * m31 - m21 * m33, m11 * m33 - m13 * m31, m13 * m21 - m11 * m23,
            m21 * m32 - m22 * m31, m12 * m31 - m11 * m32, m11 * m22 - m12 * m21};
}

constexpr CGFloat Matrix3::determinant() const {
    const Matrix3 adjugated = adjugate();
    return m11 * adjugated.m11 + m12 * adjugated.m21 + m13 * adjugated.m31;
}

constexpr Matrix3 Matrix3::inverse() const { return adjugate() * (1 / determinant()); }

constexpr Matrix3 Matrix3::interpolated(const Matrix3& with, CGFloat t) const {
    return Matrix3(eachElement(array(), with.array(),
                               [t](CGFloat from, CGFloat to) { return from + (to - from) * t; }));
}

}  // namespace quorin

template <>
struct std::hash<quorin::Matrix3> {
    std::size_t operator()(const quorin::Matrix3& m) const {
        return quorin::hashOfElements(m.array());
    }
};
