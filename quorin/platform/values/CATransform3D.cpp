#include "quorin/platform/values/CATransform3D.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstddef>

namespace quorin {

CATransform3D CATransform3DMakeTranslation(CGFloat tx, CGFloat ty, CGFloat tz) {
    CATransform3D translation;
    translation.m41 = tx;
    translation.m42 = ty;
    translation.m43 = tz;
    return translation;
}

CATransform3D CATransform3DMakeScale(CGFloat sx, CGFloat sy, CGFloat sz) {
    CATransform3D scale;
    scale.m11 = sx;
    scale.m22 = sy;
    scale.m33 = sz;
    return scale;
}

CATransform3D CATransform3DMakeRotation(CGFloat angle, CGFloat x, CGFloat y, CGFloat z) {
    const CGFloat length = std::hypot(x, y, z);
    if (length == 0)
        return CATransform3D::identity;

    const CGFloat ux = x / length, uy = y / length, uz = z / length;
    const CGFloat sine = std::sin(angle);
    const CGFloat cosine = std::cos(angle);
    const CGFloat rest = 1 - cosine;

    // On the diagonal u² + (1 − u²)·cos rather than u²·(1 − cos) + cos: a turn about a coordinate
    // axis leaves exactly 1 there.
    CATransform3D rotation;
    rotation.m11 = ux * ux + (1 - ux * ux) * cosine;
    rotation.m12 = ux * uy * rest + uz * sine;
    rotation.m13 = ux * uz * rest - uy * sine;
    rotation.m21 = ux * uy * rest - uz * sine;
    rotation.m22 = uy * uy + (1 - uy * uy) * cosine;
    rotation.m23 = uy * uz * rest + ux * sine;
    rotation.m31 = ux * uz * rest + uy * sine;
    rotation.m32 = uy * uz * rest - ux * sine;
    rotation.m33 = uz * uz + (1 - uz * uz) * cosine;
    return rotation;
}

CATransform3D CATransform3DMakeAffineTransform(const CGAffineTransform& transform) {
    CATransform3D spatial;
    spatial.m11 = transform.a;
    spatial.m12 = transform.b;
    spatial.m21 = transform.c;
    spatial.m22 = transform.d;
    spatial.m41 = transform.tx;
    spatial.m42 = transform.ty;
    return spatial;
}

CATransform3D CATransform3DTranslate(const CATransform3D& transform, CGFloat tx, CGFloat ty,
                                     CGFloat tz) {
    return CATransform3DConcat(CATransform3DMakeTranslation(tx, ty, tz), transform);
}

CATransform3D CATransform3DScale(const CATransform3D& transform, CGFloat sx, CGFloat sy,
                                 CGFloat sz) {
    return CATransform3DConcat(CATransform3DMakeScale(sx, sy, sz), transform);
}

CATransform3D CATransform3DRotate(const CATransform3D& transform, CGFloat angle, CGFloat x,
                                  CGFloat y, CGFloat z) {
    if (x == 0 && y == 0 && z == 0)
        return transform;
    return CATransform3DConcat(CATransform3DMakeRotation(angle, x, y, z), transform);
}

CATransform3D CATransform3DConcat(const CATransform3D& first, const CATransform3D& second) {
    using Rows = std::array<std::array<CGFloat, 4>, 4>;
    const auto a = std::bit_cast<Rows>(first);
    const auto b = std::bit_cast<Rows>(second);
    Rows product{};
    for (std::size_t i = 0; i < 4; ++i)
        for (std::size_t j = 0; j < 4; ++j)
            product[i][j] =
                a[i][0] * b[0][j] + a[i][1] * b[1][j] + a[i][2] * b[2][j] + a[i][3] * b[3][j];
    return std::bit_cast<CATransform3D>(product);
}

bool CATransform3DIsIdentity(const CATransform3D& transform) {
    return transform == CATransform3D::identity;
}

bool CATransform3DIsAffine(const CATransform3D& transform) {
    return transform ==
           CATransform3DMakeAffineTransform(CATransform3DGetAffineTransform(transform));
}

CGAffineTransform CATransform3DGetAffineTransform(const CATransform3D& transform) {
    return {transform.m11, transform.m12, transform.m21,
            transform.m22, transform.m41, transform.m42};
}

}  // namespace quorin
