#include "quorin/platform/values/CGAffineTransform.h"

#include <algorithm>
#include <cmath>

namespace quorin {

CGAffineTransform CGAffineTransformMakeTranslation(CGFloat tx, CGFloat ty) {
    return {1, 0, 0, 1, tx, ty};
}

CGAffineTransform CGAffineTransformMakeScale(CGFloat sx, CGFloat sy) {
    return {sx, 0, 0, sy, 0, 0};
}

CGAffineTransform CGAffineTransformMakeRotation(CGFloat angle) {
    const CGFloat sine = std::sin(angle);
    const CGFloat cosine = std::cos(angle);
    return {cosine, sine, -sine, cosine, 0, 0};
}

bool CGAffineTransformIsIdentity(const CGAffineTransform& transform) {
    return transform == CGAffineTransform::identity;
}

CGAffineTransform CGAffineTransformConcat(const CGAffineTransform& first,
                                          const CGAffineTransform& second) {
    return {
        first.a * second.a + first.b * second.c,
        first.a * second.b + first.b * second.d,
        first.c * second.a + first.d * second.c,
        first.c * second.b + first.d * second.d,
        first.tx * second.a + first.ty * second.c + second.tx,
        first.tx * second.b + first.ty * second.d + second.ty,
    };
}

CGAffineTransform CGAffineTransformInvert(const CGAffineTransform& transform) {
    const auto& [a, b, c, d, tx, ty] = transform;
    const CGFloat determinant = a * d - b * c;
    if (determinant == 0 || !std::isfinite(determinant))
        return transform;
    return {
        d / determinant,
        -b / determinant,
        -c / determinant,
        a / determinant,
        (c * ty - d * tx) / determinant,
        (b * tx - a * ty) / determinant,
    };
}

CGPoint CGPointApplyAffineTransform(CGPoint point, const CGAffineTransform& transform) {
    return {transform.a * point.x + transform.c * point.y + transform.tx,
            transform.b * point.x + transform.d * point.y + transform.ty};
}

CGSize CGSizeApplyAffineTransform(CGSize size, const CGAffineTransform& transform) {
    return {transform.a * size.width + transform.c * size.height,
            transform.b * size.width + transform.d * size.height};
}

CGRect CGRectApplyAffineTransform(const CGRect& rect, const CGAffineTransform& transform) {
    if (CGRectIsNull(rect) || CGRectIsInfinite(rect))
        return rect;

    const CGFloat left = CGRectGetMinX(rect), right = CGRectGetMaxX(rect);
    const CGFloat bottom = CGRectGetMinY(rect), top = CGRectGetMaxY(rect);
    const CGPoint corners[] = {{left, bottom}, {right, bottom}, {right, top}, {left, top}};

    CGPoint least = CGPointApplyAffineTransform(corners[0], transform);
    CGPoint most = least;
    for (const CGPoint corner : corners) {
        const CGPoint image = CGPointApplyAffineTransform(corner, transform);
        least = {std::min(least.x, image.x), std::min(least.y, image.y)};
        most = {std::max(most.x, image.x), std::max(most.y, image.y)};
    }
    return {least, {most.x - least.x, most.y - least.y}};
}

}  // namespace quorin
