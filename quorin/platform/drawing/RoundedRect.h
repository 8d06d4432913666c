#pragma once

#include <memory>

#include "quorin/platform/drawing/CGContext.h"
#include "quorin/platform/drawing/CGImage.h"
#include "quorin/platform/values/CGGeometry.h"
#include "quorin/platform/values/CGRect.h"

namespace quorin {

/// Adds a rect to the context's path whose corners are quarter ellipses `ovalWidth` wide and
/// `ovalHeight` high each, all in the units of drawing; a plain rect when one of the two is 0.
/// Corners are not made smaller to fit: beyond half a side they overlap.
void addRoundedRectToPath(const CGRect& rect, CGContext& context, CGFloat ovalWidth,
                          CGFloat ovalHeight);

/// The image stretched to `size` and cut to a rect with round corners `borderSize` inside of it.
/// The size in pixels is cut down to whole numbers; one that is not finite or beyond 64 bits is a
/// programming error. When there is no bitmap of that size, the answer is the image itself.
std::shared_ptr<const CGImage> roundedCornerImage(const std::shared_ptr<const CGImage>& image,
                                                  CGSize size, CGFloat cornerSize,
                                                  CGFloat borderSize);

}  // namespace quorin
