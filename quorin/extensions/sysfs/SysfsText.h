#pragma once

#include <optional>
#include <string>

namespace quorin {

/// What the kernel tells in a file, without white space around it. Nothing when the file cannot be
/// read, is empty, or holds something that is no text.
std::optional<std::string> sysfsText(const std::string& path);

}  // namespace quorin
