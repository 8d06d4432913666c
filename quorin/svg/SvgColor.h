#pragma once

#include <optional>
#include <string_view>

#include "quorin/svg/Drawing.h"

namespace quorin {

/// A colour in one of CSS's forms: #rgb, #rgba, #rrggbb, #rrggbbaa, rgb(), rgba(), hsl(), hsla(),
/// a name, or transparent. Red, green and blue are rounded to whole 255ths, as they are in every
/// browser; alpha is not. An ICC colour behind it is passed over.
std::optional<DrawingColor> parseSvgColor(std::string_view text);

}  // namespace quorin
