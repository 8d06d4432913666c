#pragma once

#include "quorin/linear/ScalarWrapper.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// The Bézier parameter of a place on a curve, meaningful in [0, 1].
struct PathCurveTime {
    using NativeType = CGFloat;

    CGFloat rawValue = 0;

    constexpr PathCurveTime() = default;
    constexpr PathCurveTime(CGFloat value) : rawValue(value) {}  // NOLINT: a scalar is a time
    constexpr explicit operator CGFloat() const { return rawValue; }

    static const PathCurveTime start;
    static const PathCurveTime end;
};
inline constexpr PathCurveTime PathCurveTime::start{0};
inline constexpr PathCurveTime PathCurveTime::end{1};

/// An arc length along a curve, in points; negative means backwards.
struct PathCurveOffset {
    using NativeType = CGFloat;

    CGFloat rawValue = 0;

    constexpr PathCurveOffset() = default;
    constexpr PathCurveOffset(CGFloat value) : rawValue(value) {}  // NOLINT: a scalar is an offset
    constexpr explicit operator CGFloat() const { return rawValue; }
};

}  // namespace quorin
