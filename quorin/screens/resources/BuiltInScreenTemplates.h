#pragma once

#include <string_view>

namespace quorin {

/// The text of ScreenTemplates.json as it was when the library was built.
std::string_view builtInScreenTemplates();

}  // namespace quorin
