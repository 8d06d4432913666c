#pragma once

#include <memory>

#include "apps/quorin/TimeCurve.h"
#include "quorin/platform/drawing/CGImage.h"
#include "quorin/svg/Drawing.h"

namespace quorin::app {

/// Whether the times and values are such that an axis can be laid out for them.
bool isPlottable(const TimeCurve& curve);

/// A curve over time from 0 on, with a grid and a dashed line at 1, on white. Drawings have no text
/// and so no numbers.
Drawing plotDrawing(const TimeCurve& curve, CGSize size);

/// The same with the title, and numbers along the axes where there is room for them. Throws
/// `ImageError` for a size that no image has.
std::shared_ptr<const CGImage> plotPicture(const TimeCurve& curve, CGSize size);

}  // namespace quorin::app
