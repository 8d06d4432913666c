#pragma once

#include <optional>
#include <string_view>

#include "quorin/svg/Drawing.h"

namespace quorin {

/// The colour that CSS gives a name, written in any case; nothing for an unknown name.
std::optional<DrawingColor> namedColor(std::string_view name);

}  // namespace quorin
