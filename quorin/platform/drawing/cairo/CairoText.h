#pragma once

#include <string_view>

#include "quorin/platform/drawing/cairo/CairoHandles.h"
#include "quorin/platform/drawing/cairo/LinearShape.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// How far a line of text reaches to the right, in units of which a letter is `size` high.
CGFloat textAdvance(cairo_t* context, std::string_view text, CGFloat size);

/// Adds the outlines of the letters to the path, the first one's left end of the baseline at a
/// pixel. `shape` leads from the units of `size` to pixels.
void addTextOutline(cairo_t* context, std::string_view text, CGFloat size, const LinearShape& shape,
                    CGPoint pixel);

}  // namespace quorin
