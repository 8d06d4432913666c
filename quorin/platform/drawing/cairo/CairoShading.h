#pragma once

#include "quorin/platform/drawing/CGShading.h"
#include "quorin/platform/drawing/cairo/CairoHandles.h"

namespace quorin {

/// What paints the shading, `toDevice` leading from the space of its points to pixels and `alpha`
/// multiplied in. Nothing when the shading paints nothing.
CairoPattern makeCairoPattern(const CGShading& shading, const CGAffineTransform& toDevice,
                              CGFloat alpha);

/// A single colour, its components brought into the range from 0 to 1.
CairoPattern makeCairoPattern(const CGColor& color, CGFloat alpha);

}  // namespace quorin
