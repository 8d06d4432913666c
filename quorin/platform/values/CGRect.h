#pragma once

#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// An origin and a size. The fields are stored as given, negative sizes included; the questions
/// below read the standardized rect, whose size is not negative.
struct CGRect {
    CGPoint origin;
    CGSize size;

    static const CGRect zero;

    friend constexpr bool operator==(const CGRect&, const CGRect&) = default;
};
inline constexpr CGRect CGRect::zero{};

/// The answer when there is no rect at all: origin (+inf, +inf), size zero.
extern const CGRect CGRectNull;
/// The largest rect that can be written, centred on the origin.
extern const CGRect CGRectInfinite;

constexpr CGRect CGRectMake(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
    return {{x, y}, {width, height}};
}

CGRect CGRectStandardize(const CGRect& rect);
CGFloat CGRectGetMinX(const CGRect& rect);
CGFloat CGRectGetMinY(const CGRect& rect);
CGFloat CGRectGetMidX(const CGRect& rect);
CGFloat CGRectGetMidY(const CGRect& rect);
CGFloat CGRectGetMaxX(const CGRect& rect);
CGFloat CGRectGetMaxY(const CGRect& rect);
CGFloat CGRectGetWidth(const CGRect& rect);
CGFloat CGRectGetHeight(const CGRect& rect);

bool CGRectIsNull(const CGRect& rect);
/// Null, or without width or without height.
bool CGRectIsEmpty(const CGRect& rect);
bool CGRectIsInfinite(const CGRect& rect);

/// Shrinks by `dx` on the left and right and `dy` above and below; negative values grow.
/// Null when nothing is left.
CGRect CGRectInset(const CGRect& rect, CGFloat dx, CGFloat dy);
CGRect CGRectOffset(const CGRect& rect, CGFloat dx, CGFloat dy);
/// A null operand answers the other one; a rect of zero size counts.
CGRect CGRectUnion(const CGRect& a, const CGRect& b);
/// Null when the rects are apart; rects that share an edge meet in a rect without area.
CGRect CGRectIntersection(const CGRect& a, const CGRect& b);
bool CGRectIntersectsRect(const CGRect& a, const CGRect& b);
/// Whether the union of both is `a`; so every rect contains the null rect.
bool CGRectContainsRect(const CGRect& a, const CGRect& b);
/// Minimum edges are inside, maximum edges outside.
bool CGRectContainsPoint(const CGRect& rect, CGPoint point);

}  // namespace quorin
