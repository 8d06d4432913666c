#pragma once

#include <string>
#include <string_view>

namespace quorin {

/// What stands for `text` between the quotes of an XML attribute. Characters that XML cannot hold
/// are left out.
std::string xmlAttributeText(std::string_view text);

}  // namespace quorin
