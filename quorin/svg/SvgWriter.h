#pragma once

#include <string>

#include "quorin/svg/Drawing.h"

namespace quorin {

/// The drawing as an SVG document, numbers as short as they can be while reading back to the
/// same double. `readSvg` gives shapes that draw the same elements with the same points, bit for
/// bit but for the sign of zero, and equal paint.
///
/// Corner radii and behaviours of anchors have no place in SVG and are not written.
/// Throws `EncodingError` when a number is not finite.
std::string writeSvg(const Drawing& drawing);

}  // namespace quorin
