#pragma once

#include "quorin/linear/Matrix4.h"
#include "quorin/linear/Vector3.h"
#include "quorin/platform/values/CATransform3D.h"

/// Transforms of space built one on the other. Each answer does the new part first, then what
/// `transform` did; angles are in radians.
namespace quorin {

/// About the axis (x, y, z) of any length.
inline CATransform3D rotate(const CATransform3D& transform, CGFloat angle, CGFloat x, CGFloat y,
                            CGFloat z) {
    return CATransform3DRotate(transform, angle, x, y, z);
}

/// About the x axis, the turned y axis and the twice turned z axis, as `Matrix4::rotate`.
inline CATransform3D rotate(const CATransform3D& transform, const Vector3& angles) {
    const CATransform3D aboutX = CATransform3DRotate(transform, angles.x, 1, 0, 0);
    const CATransform3D aboutXY = CATransform3DRotate(aboutX, angles.y, 0, 1, 0);
    return CATransform3DRotate(aboutXY, angles.z, 0, 0, 1);
}

inline CATransform3D scale(const CATransform3D& transform, CGFloat x, CGFloat y, CGFloat z) {
    return CATransform3DScale(transform, x, y, z);
}
inline CATransform3D scale(const CATransform3D& transform, const Vector3& v) {
    return scale(transform, v.x, v.y, v.z);
}

inline CATransform3D translate(const CATransform3D& transform, CGFloat x, CGFloat y, CGFloat z) {
    return CATransform3DTranslate(transform, x, y, z);
}
inline CATransform3D translate(const CATransform3D& transform, const Vector3& v) {
    return translate(transform, v.x, v.y, v.z);
}
inline CATransform3D translate(const CATransform3D& transform, CGPoint p) {
    return translate(transform, p.x, p.y, 0);
}

inline bool isIdentity(const CATransform3D& transform) {
    return CATransform3DIsIdentity(transform);
}
inline bool isNearlyIdentity(const CATransform3D& transform) {
    return Matrix4(transform).isNearlyIdentity();
}

/// What the transform does within the plane z = 0, perspective left out.
inline CGAffineTransform affineTransform(const CATransform3D& transform) {
    return CATransform3DGetAffineTransform(transform);
}

}  // namespace quorin
