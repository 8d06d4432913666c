#pragma once

#include <optional>
#include <span>
#include <vector>

#include "quorin/platform/values/CGRect.h"

/// Questions to, and changes of, many rects at once, such as those of a selection.
namespace quorin {

/// The platform union of all rects, the zero rect for none.
CGRect unionOf(std::span<const CGRect> rects);

/// The rects moved and resized as `rect`, their bounding box, has to be in order to become
/// `newRect`. Where a side of either box is zero the numbers may be infinite or NaN.
std::vector<CGRect> resizeBoundingRect(const CGRect& rect, const CGRect& newRect,
                                       std::span<const CGRect> forRects);

/// The first rect that reaches at least as far left and as far right as every rect of the list;
/// exactly, by the stored fields. Takes time proportional to the length of the list.
std::optional<CGRect> GetHorizontallyContainingRectWithRects(std::span<const CGRect> rects);
/// The same from top to bottom.
std::optional<CGRect> GetVerticallyContainingRectWithRects(std::span<const CGRect> rects);

}  // namespace quorin
