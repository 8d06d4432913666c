#pragma once

#include <string_view>

namespace quorin {

/// Stops the process because of a programming error: writes the message with file and line to
/// standard error and aborts. On in release builds too. The message names the numbers that prove
/// the mistake, for example `segment 4 of 3`.
[[noreturn]] void fatalError(std::string_view message, const char* file = __builtin_FILE(),
                             int line = __builtin_LINE());

}  // namespace quorin
