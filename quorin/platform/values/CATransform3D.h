#pragma once

#include "quorin/platform/values/CGAffineTransform.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// A transform of space, read with row vectors: (x, y, z, 1) times the matrix whose rows are
/// m11 … m14 to m41 … m44. The translation stands in m41, m42 and m43.
struct CATransform3D {
    CGFloat m11 = 1, m12 = 0, m13 = 0, m14 = 0;
    CGFloat m21 = 0, m22 = 1, m23 = 0, m24 = 0;
    CGFloat m31 = 0, m32 = 0, m33 = 1, m34 = 0;
    CGFloat m41 = 0, m42 = 0, m43 = 0, m44 = 1;

    static const CATransform3D identity;

    /// Exact; -0.0 equals 0.0 and NaN equals nothing.
    friend constexpr bool operator==(const CATransform3D&, const CATransform3D&) = default;
};
inline constexpr CATransform3D CATransform3D::identity{};

CATransform3D CATransform3DMakeTranslation(CGFloat tx, CGFloat ty, CGFloat tz);
CATransform3D CATransform3DMakeScale(CGFloat sx, CGFloat sy, CGFloat sz);
/// By radians about the axis (x, y, z) of any length, right-handed. About the zero vector, the
/// identity.
CATransform3D CATransform3DMakeRotation(CGFloat angle, CGFloat x, CGFloat y, CGFloat z);
CATransform3D CATransform3DMakeAffineTransform(const CGAffineTransform& transform);

/// The three apply the new part first, then `transform`.
CATransform3D CATransform3DTranslate(const CATransform3D& transform, CGFloat tx, CGFloat ty,
                                     CGFloat tz);
CATransform3D CATransform3DScale(const CATransform3D& transform, CGFloat sx, CGFloat sy,
                                 CGFloat sz);
CATransform3D CATransform3DRotate(const CATransform3D& transform, CGFloat angle, CGFloat x,
                                  CGFloat y, CGFloat z);

/// Applies `first`, then `second`.
CATransform3D CATransform3DConcat(const CATransform3D& first, const CATransform3D& second);

bool CATransform3DIsIdentity(const CATransform3D& transform);
/// Whether it is exactly an affine transform of the plane.
bool CATransform3DIsAffine(const CATransform3D& transform);
/// What it does within the plane z = 0, perspective left out.
CGAffineTransform CATransform3DGetAffineTransform(const CATransform3D& transform);

}  // namespace quorin
