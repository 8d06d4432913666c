#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "quorin/platform/values/CGAffineTransform.h"

namespace quorin {

struct SvgTransformResult {
    /// The identity when there is an error: half a transform would put things where nobody
    /// wanted them.
    CGAffineTransform transform;
    /// What is wrong, and how many bytes from the start of the text.
    std::optional<std::string> error;
    std::size_t errorOffset = 0;
};

/// A list of matrix, translate, scale, rotate, skewX and skewY, the first one outermost. Angles
/// are in degrees, also with deg, rad, grad or turn behind them; px may follow a length.
/// Quarter turns are exact.
SvgTransformResult parseSvgTransform(std::string_view text);

/// The square root of the area that a unit square takes after the transform.
CGFloat meanScale(const CGAffineTransform& transform);
/// How many times longer a circle becomes one way than the other: 1 when it stays a circle.
CGFloat unevenness(const CGAffineTransform& transform);

}  // namespace quorin
