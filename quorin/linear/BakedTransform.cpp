#include <string>

#include "quorin/linear/Matrix3.h"
#include "quorin/linear/Matrix4.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {

namespace {

/// The map of the plane, in homogeneous coordinates, that takes the three axes and their sum
/// (1, 1, 1) to four points.
///
/// Source: P. Heckbert, "Fundamentals of Texture Mapping and Image Warping", 1989, which reaches
/// one quadrilateral from another by way of such a frame.
Matrix3 basisOf(std::span<const CGPoint, 4> q) {
    const auto place = [](CGPoint point) { return Vector3{point.x, point.y, 1}; };
    const Matrix3 corners = Matrix3::withColumns(place(q[0]), place(q[1]), place(q[2]));
    const Vector3 weights = corners.adjugate() * place(q[3]);
    return Matrix3::withColumns(place(q[0]) * weights.x, place(q[1]) * weights.y,
                                place(q[2]) * weights.z);
}

std::array<CGPoint, 4> cornersOf(const CGRect& rect) {
    const auto [x, y] = rect.origin;
    const auto [width, height] = rect.size;
    return {{{x, y}, {x + width, y}, {x + width, y + height}, {x, y + height}}};
}

}  // namespace

Matrix4 Matrix4::bakedTransform(std::span<const CGPoint> points, const CGRect& withBounds) {
    const CGRect centred =
        CGRectOffset(withBounds, -CGRectGetMidX(withBounds), -CGRectGetMidY(withBounds));
    if (centred.size == CGSize::zero)
        return identity;
    if (points.size() < 4)
        fatalError("baked transform from " + std::to_string(points.size()) + " of 4 points");

    const Matrix3 unscaled = basisOf(points.first<4>()) * basisOf(cornersOf(centred)).adjugate();
    const Matrix3 h(
        eachElement(unscaled.array(), [=](CGFloat element) { return element / unscaled.m33; }));
    const Matrix4 projection(h.m11, h.m12, 0, h.m13,  //
                             h.m21, h.m22, 0, h.m23,  //
                             0, 0, 1, 0,              //
                             h.m31, h.m32, 0, 1);
    return withTranslation({-h.m31, -h.m32, 0}) * projection;
}

}  // namespace quorin
