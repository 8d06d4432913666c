#pragma once

namespace quorin {

/// The scalar of the whole library: a 64-bit IEEE double.
using CGFloat = double;

/// A place in the plane, in points.
struct CGPoint {
    CGFloat x = 0, y = 0;

    static const CGPoint zero;

    /// Exact; -0.0 equals 0.0 and NaN equals nothing.
    friend constexpr bool operator==(const CGPoint&, const CGPoint&) = default;
};
inline constexpr CGPoint CGPoint::zero{0, 0};

/// Width and height in points; either may be negative.
struct CGSize {
    CGFloat width = 0, height = 0;

    static const CGSize zero;

    friend constexpr bool operator==(const CGSize&, const CGSize&) = default;
};
inline constexpr CGSize CGSize::zero{0, 0};

/// A displacement in points.
struct CGVector {
    CGFloat dx = 0, dy = 0;

    static const CGVector zero;

    friend constexpr bool operator==(const CGVector&, const CGVector&) = default;
};
inline constexpr CGVector CGVector::zero{0, 0};

}  // namespace quorin
