#pragma once

#include "quorin/platform/values/CGGeometry.h"
#include "quorin/platform/values/CGRect.h"

namespace quorin {

/// x' = a·x + c·y + tx, y' = b·x + d·y + ty.
struct CGAffineTransform {
    CGFloat a = 1, b = 0, c = 0, d = 1, tx = 0, ty = 0;

    static const CGAffineTransform identity;

    friend constexpr bool operator==(const CGAffineTransform&, const CGAffineTransform&) = default;
};
inline constexpr CGAffineTransform CGAffineTransform::identity{};

CGAffineTransform CGAffineTransformMakeTranslation(CGFloat tx, CGFloat ty);
CGAffineTransform CGAffineTransformMakeScale(CGFloat sx, CGFloat sy);
/// Counter-clockwise in a y-up plane, in radians.
CGAffineTransform CGAffineTransformMakeRotation(CGFloat angle);

bool CGAffineTransformIsIdentity(const CGAffineTransform& transform);
/// Applies `first`, then `second`.
CGAffineTransform CGAffineTransformConcat(const CGAffineTransform& first,
                                          const CGAffineTransform& second);
/// The transform itself when it has no inverse.
CGAffineTransform CGAffineTransformInvert(const CGAffineTransform& transform);

CGPoint CGPointApplyAffineTransform(CGPoint point, const CGAffineTransform& transform);
CGSize CGSizeApplyAffineTransform(CGSize size, const CGAffineTransform& transform);
/// The smallest upright rect that holds the transformed one.
CGRect CGRectApplyAffineTransform(const CGRect& rect, const CGAffineTransform& transform);

}  // namespace quorin
