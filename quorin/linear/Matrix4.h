#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <type_traits>

#include "quorin/geometry/PointLanes.h"
#include "quorin/linear/MatrixElements.h"
#include "quorin/linear/Vector2.h"
#include "quorin/linear/Vector3.h"
#include "quorin/linear/Vector4.h"
#include "quorin/linear/VectorArrayConvertible.h"
#include "quorin/platform/values/CATransform3D.h"
#include "quorin/platform/values/CGGeometry.h"
#include "quorin/platform/values/CGRect.h"

namespace quorin {

class Decoder;
class Encoder;
struct Quaternion;
struct TransformDecomposition;

/// A 4×4 matrix, for transforms of layers in space. mIJ stands in column I and row J, and is
/// stored column after column; a vector is a column, so the translation is (m41, m42, m43) and
/// the perspective is (m14, m24, m34, m44). Any element may hold any double.
struct Matrix4 {
    CGFloat m11 = 1, m12 = 0, m13 = 0, m14 = 0;
    CGFloat m21 = 0, m22 = 1, m23 = 0, m24 = 0;
    CGFloat m31 = 0, m32 = 0, m33 = 1, m34 = 0;
    CGFloat m41 = 0, m42 = 0, m43 = 0, m44 = 1;

    static const Matrix4 identity;

    constexpr Matrix4() = default;
    /// The elements as they are stored.
    constexpr Matrix4(CGFloat a11, CGFloat a12, CGFloat a13, CGFloat a14,  //
                      CGFloat a21, CGFloat a22, CGFloat a23, CGFloat a24,  //
                      CGFloat a31, CGFloat a32, CGFloat a33, CGFloat a34,  //
                      CGFloat a41, CGFloat a42, CGFloat a43, CGFloat a44)
        : m11(a11),
          m12(a12),
          m13(a13),
          m14(a14),
          m21(a21),
          m22(a22),
          m23(a23),
          m24(a24),
          m31(a31),
          m32(a32),
          m33(a33),
          m34(a34),
          m41(a41),
          m42(a42),
          m43(a43),
          m44(a44) {}
    constexpr explicit Matrix4(const std::array<CGFloat, 16>& a)
        : Matrix4(std::bit_cast<Matrix4>(a)) {}
    /// The first sixteen numbers, as they are stored; fewer stop the process.
    constexpr explicit Matrix4(std::span<const CGFloat> list)
        : Matrix4(leadingComponents<16>(list, "Matrix4")) {}
    constexpr explicit Matrix4(std::span<const float> list)
        : Matrix4(leadingComponents<16>(list, "Matrix4")) {}

    /// Each field from and to the one of its name: a row of the one is a column of the other.
    constexpr explicit Matrix4(const CATransform3D& transform)
        : Matrix4(std::bit_cast<Matrix4>(transform)) {}
    constexpr explicit operator CATransform3D() const {
        return std::bit_cast<CATransform3D>(*this);
    }

    static constexpr Matrix4 withColumns(const Vector4& first, const Vector4& second,
                                         const Vector4& third, const Vector4& fourth);
    static constexpr Matrix4 withScale(const Vector3& scale);
    static constexpr Matrix4 withTranslation(const Vector3& translation);
    /// By w radians about the axis (x, y, z), which is taken as it is: it should have length one.
    static Matrix4 withRotation(const Vector4& axisAngle);
    /// `Quaternion::rotationMatrix`.
    static Matrix4 withQuaternion(const Quaternion& quaternion);

    /// The perspective of an eye at the origin that looks along -z. Angles are in radians from
    /// edge to edge of the view, `aspect` is its width over its height, and what lies from `near`
    /// to `far` ahead comes out between -1 and 1.
    static Matrix4 withFovy(CGFloat fovy, CGFloat aspect, CGFloat near, CGFloat far);
    /// The same, the ratio of the angles standing for the aspect.
    static Matrix4 withFovxFovy(CGFloat fovx, CGFloat fovy, CGFloat near, CGFloat far);
    /// The same, `fovx / aspect` standing for the vertical angle.
    static Matrix4 withFovx(CGFloat fovx, CGFloat aspect, CGFloat near, CGFloat far);
    /// Takes the box between these edges to the cube from -1 to 1, parallels staying parallel.
    static constexpr Matrix4 orthographic(CGFloat top, CGFloat right, CGFloat bottom, CGFloat left,
                                          CGFloat near, CGFloat far);

    /// The perspective that takes the corners of `withBounds`, from the origin along its width and
    /// round, to the first four points, seen from the centre of the bounds; the image of that
    /// centre is moved back to the origin. Fewer points stop the process, further ones do not
    /// count, and bounds of size zero give the identity without a look at the points. Four points
    /// in one line give NaN, three of them an image that collapses or runs to infinity.
    static Matrix4 bakedTransform(std::span<const CGPoint> points, const CGRect& withBounds);

    constexpr std::array<CGFloat, 16> array() const {
        return std::bit_cast<std::array<CGFloat, 16>>(*this);
    }
    constexpr std::array<float, 16> floatArray() const { return singlePrecision(array()); }

    /// This matrix times the other, which is done to a vector first.
    constexpr Matrix4 multiply(const Matrix4& other) const;

    /// This matrix after a translation, a scale, or rotations about z, then y, then x by the
    /// angles in radians.
    constexpr Matrix4 translate(const Vector3& v) const;
    constexpr Matrix4 translate(CGPoint p) const;
    constexpr Matrix4 scale(const Vector3& v) const;
    Matrix4 rotate(const Vector3& angles) const;

    constexpr Matrix4 transpose() const;
    constexpr CGFloat determinant() const;
    /// The transpose of the cofactors: the product with it is the determinant times the identity.
    constexpr Matrix4 adjugate() const;
    /// Not finite where the determinant is 0.
    constexpr Matrix4 inverse() const;

    /// Exact, as `==`.
    constexpr bool isIdentity() const;
    /// Whether all elements are within `scalar::epsilon` of the identity's.
    bool isNearlyIdentity() const;
    /// Whether there is no perspective: m14, m24 and m34 are within `scalar::epsilon` of 0, and
    /// m44 does not count.
    bool isAffine() const;

    /// The translation, rotation and scale that this matrix is made of. A mirror is in the x of
    /// the scale; of a rotation by a quaternion comes back its conjugate. Perspective and skew do
    /// not count, and a scale of 0 makes the rotation NaN.
    TransformDecomposition decompose() const;

    /// Several lines for a log: the rows, then the parts it decomposes into, angles in degrees.
    std::string description() const;

    /// Under the keys "m11" to "m44".
    void encode(Encoder& encoder) const;
    static Matrix4 decode(Decoder& decoder);

    /// Exact; -0.0 equals 0.0 and NaN equals nothing.
    friend constexpr bool operator==(const Matrix4&, const Matrix4&) = default;
};

inline constexpr Matrix4 Matrix4::identity{};

constexpr Matrix4 Matrix4::withColumns(const Vector4& first, const Vector4& second,
                                       const Vector4& third, const Vector4& fourth) {
    return {first.x,  first.y,  first.z,  first.w,   //
            second.x, second.y, second.z, second.w,  //
            third.x,  third.y,  third.z,  third.w,   //
            fourth.x, fourth.y, fourth.z, fourth.w};
}

constexpr Matrix4 Matrix4::withScale(const Vector3& scale) {
    return {scale.x, 0, 0, 0, 0, scale.y, 0, 0, 0, 0, scale.z, 0, 0, 0, 0, 1};
}

constexpr Matrix4 Matrix4::withTranslation(const Vector3& translation) {
    return {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, translation.x, translation.y, translation.z, 1};
}

constexpr Matrix4 Matrix4::orthographic(CGFloat top, CGFloat right, CGFloat bottom, CGFloat left,
                                        CGFloat near, CGFloat far) {
    Matrix4 m;
    m.m11 = 2 / (right - left);
    m.m22 = 2 / (top - bottom);
    m.m33 = -2 / (far - near);
    m.m41 = -(right + left) / (right - left);
    m.m42 = -(top + bottom) / (top - bottom);
    m.m43 = -(near + far) / (far - near);
    return m;
}

constexpr Vector4 operator*(const Matrix4& m, const Vector4& v) {
    return {m.m11 * v.x + m.m21 * v.y + m.m31 * v.z + m.m41 * v.w,  //
            m.m12 * v.x + m.m22 * v.y + m.m32 * v.z + m.m42 * v.w,  //
            m.m13 * v.x + m.m23 * v.y + m.m33 * v.z + m.m43 * v.w,  //
            m.m14 * v.x + m.m24 * v.y + m.m34 * v.z + m.m44 * v.w};
}
constexpr Vector4 operator*(const Vector4& v, const Matrix4& m) { return m * v; }

/// The place in space moved by the matrix, without perspective: nothing is divided by w.
constexpr Vector3 operator*(const Matrix4& m, const Vector3& v) {
    return {m.m11 * v.x + m.m21 * v.y + m.m31 * v.z + m.m41,  //
            m.m12 * v.x + m.m22 * v.y + m.m32 * v.z + m.m42,  //
            m.m13 * v.x + m.m23 * v.y + m.m33 * v.z + m.m43};
}
constexpr Vector3 operator*(const Vector3& v, const Matrix4& m) { return m * v; }

/// Does `b` to a vector first, then `a`.
constexpr Matrix4 operator*(const Matrix4& a, const Matrix4& b) {
    return Matrix4::withColumns(a * Vector4{b.m11, b.m12, b.m13, b.m14},  //
                                a * Vector4{b.m21, b.m22, b.m23, b.m24},  //
                                a * Vector4{b.m31, b.m32, b.m33, b.m34},  //
                                a * Vector4{b.m41, b.m42, b.m43, b.m44});
}

constexpr Matrix4 operator*(const Matrix4& m, CGFloat s) {
    return Matrix4(eachElement(m.array(), [s](CGFloat element) { return element * s; }));
}

/// The inverse, not the negated elements.
constexpr Matrix4 operator-(const Matrix4& m) { return m.inverse(); }

/// Whether all elements differ by less than `scalar::epsilon`.
inline bool isNearlyEqual(const Matrix4& a, const Matrix4& b) {
    return areNearlyEqual(a.array(), b.array());
}

constexpr Matrix4 Matrix4::multiply(const Matrix4& other) const { return *this * other; }

constexpr Matrix4 Matrix4::translate(const Vector3& v) const { return *this * withTranslation(v); }

constexpr Matrix4 Matrix4::translate(CGPoint p) const { return translate(Vector3(p)); }

constexpr Matrix4 Matrix4::scale(const Vector3& v) const { return *this * withScale(v); }

constexpr Matrix4 Matrix4::transpose() const {
    return {m11, m21, m31, m41, m12, m22, m32, m42, m13, m23, m33, m43, m14, m24, m34, m44};
}

/// The adjugate, worked out on pairs of rows, two `CGFloat`s each.
template <typename Pair>
constexpr Matrix4 adjugateInPairs(const Matrix4& m) {
    // The 2×2 minors of the first two columns and of the last two, named by their rows, from
    // which Laplace's expansion makes every cofactor.
    const CGFloat a12 = m.m11 * m.m22 - m.m21 * m.m12, b12 = m.m31 * m.m42 - m.m41 * m.m32;
    const CGFloat a13 = m.m11 * m.m23 - m.m21 * m.m13, b13 = m.m31 * m.m43 - m.m41 * m.m33;
    const CGFloat a14 = m.m11 * m.m24 - m.m21 * m.m14, b14 = m.m31 * m.m44 - m.m41 * m.m34;
    const CGFloat a23 = m.m12 * m.m23 - m.m22 * m.m13, b23 = m.m32 * m.m43 - m.m42 * m.m33;
    const CGFloat a24 = m.m12 * m.m24 - m.m22 * m.m14, b24 = m.m32 * m.m44 - m.m42 * m.m34;
    const CGFloat a34 = m.m13 * m.m24 - m.m23 * m.m14, b34 = m.m33 * m.m44 - m.m43 * m.m34;

    const Pair a1{m.m21, -m.m11}, a2{m.m22, -m.m12}, a3{m.m23, -m.m13}, a4{m.m24, -m.m14};
    const Pair b1{m.m41, -m.m31}, b2{m.m42, -m.m32}, b3{m.m43, -m.m33}, b4{m.m44, -m.m34};
    return std::bit_cast<Matrix4>(
        std::array<Pair, 8>{a2 * b34 - a3 * b24 + a4 * b23, b2 * a34 - b3 * a24 + b4 * a23,
                            a3 * b14 - a1 * b34 - a4 * b13, b3 * a14 - b1 * a34 - b4 * a13,
                            a1 * b24 - a2 * b14 + a4 * b12, b1 * a24 - b2 * a14 + b4 * a12,
                            a2 * b13 - a1 * b23 - a3 * b12, b2 * a13 - b1 * a23 - b3 * a12});
}

constexpr Matrix4 Matrix4::adjugate() const {
    // Compilers know no lanes in constants, and find no pairs to work on by themselves.
    return std::is_constant_evaluated() ? adjugateInPairs<Vector2>(*this)
                                        : adjugateInPairs<PointLanes>(*this);
}

constexpr CGFloat Matrix4::determinant() const {
    const Matrix4 adjugated = adjugate();
    return m11 * adjugated.m11 + m12 * adjugated.m21 + m13 * adjugated.m31 + m14 * adjugated.m41;
}

constexpr Matrix4 Matrix4::inverse() const { return adjugate() * (1 / determinant()); }

constexpr bool Matrix4::isIdentity() const { return *this == identity; }

inline bool Matrix4::isNearlyIdentity() const { return isNearlyEqual(*this, identity); }

inline bool Matrix4::isAffine() const {
    return quorin::isNearlyEqual(m14, 0) && quorin::isNearlyEqual(m24, 0) &&
           quorin::isNearlyEqual(m34, 0);
}

}  // namespace quorin

template <>
struct std::hash<quorin::Matrix4> {
    std::size_t operator()(const quorin::Matrix4& m) const {
        return quorin::hashOfElements(m.array());
    }
};
