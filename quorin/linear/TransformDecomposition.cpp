#include "quorin/linear/TransformDecomposition.h"

#include <cmath>

#include "quorin/linear/Matrix3.h"
#include "quorin/linear/Matrix4.h"

namespace quorin {

namespace {

/// The quaternion of a rotation. Its vector part has the opposite sign of the quaternion that
/// `rotationMatrix` makes the same matrix from; whoever takes transforms apart and puts them
/// together again relies on that.
///
/// Source: K. Shoemake, "Animating Rotation with Quaternion Curves", 1985, for dividing by the
/// largest of the four fields.
Quaternion quaternionOf(const Matrix3& r) {
    const CGFloat fourTimesWSquared = 1 + r.m11 + r.m22 + r.m33;
    if (fourTimesWSquared > 0) {
        const CGFloat s = 2 * std::sqrt(fourTimesWSquared);
        return {(r.m32 - r.m23) / s, (r.m13 - r.m31) / s, (r.m21 - r.m12) / s, s / 4};
    }
    if (r.m11 > (r.m22 > r.m33 ? r.m22 : r.m33)) {
        const CGFloat s = 2 * std::sqrt(1 + r.m11 - r.m22 - r.m33);
        return {s / 4, (r.m21 + r.m12) / s, (r.m13 + r.m31) / s, (r.m32 - r.m23) / s};
    }
    if (r.m33 < r.m22) {
        const CGFloat s = 2 * std::sqrt(1 + r.m22 - r.m11 - r.m33);
        return {(r.m21 + r.m12) / s, s / 4, (r.m32 + r.m23) / s, (r.m13 - r.m31) / s};
    }
    const CGFloat s = 2 * std::sqrt(1 + r.m33 - r.m11 - r.m22);
    return {(r.m13 + r.m31) / s, (r.m32 + r.m23) / s, s / 4, (r.m21 - r.m12) / s};
}

}  // namespace

TransformDecomposition Matrix4::decompose() const {
    const Vector3 first{m11, m12, m13}, second{m21, m22, m23}, third{m31, m32, m33};
    Vector3 lengths{first.length(), second.length(), third.length()};
    // Of these columns alone: perspective may turn the sign of the whole determinant around.
    if (Matrix3::withColumns(first, second, third).determinant() < 0)
        lengths.x = -lengths.x;

    const Matrix3 rotation =
        Matrix3::withColumns(first / lengths.x, second / lengths.y, third / lengths.z);
    return {{m41, m42, m43}, quaternionOf(rotation), lengths};
}

}  // namespace quorin
