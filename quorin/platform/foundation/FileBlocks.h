#pragma once

#include <string>
#include <string_view>

#include "quorin/platform/values/FunctionRef.h"

namespace quorin {

/// Calls `body` with the bytes of a file in order, some at a time, however large the file is.
/// Throws `FileError`, also for a directory, and whatever `body` throws.
void forEachBlock(const std::string& path, FunctionRef<void(std::string_view)> body);

}  // namespace quorin
