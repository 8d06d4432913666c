#pragma once

#include <string>
#include <string_view>

/// Bytes as URLs write them: `%` and two hexadecimal digits.
namespace quorin {

/// All bytes but ASCII letters, digits and those of `plain` as `%` and two upper-case digits.
std::string percentEncoded(std::string_view bytes, std::string_view plain = {});

/// The same, except that escapes which stand there already stay as they are.
std::string percentCompleted(std::string_view text, std::string_view plain);

/// The bytes of all escapes; a `%` without two digits behind it stands for itself. What comes out
/// need not be UTF-8.
std::string percentDecoded(std::string_view text);

/// Whether the text starts with a whole escape.
bool startsWithEscape(std::string_view text);

}  // namespace quorin
