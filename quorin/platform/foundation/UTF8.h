#pragma once

#include <cstddef>
#include <string_view>

namespace quorin {

/// How many bytes from the start are whole characters in UTF-8: all of them in a good text.
/// Overlong forms, halves of surrogate pairs and codes above U+10FFFF are not characters.
///
/// Source: The Unicode Standard 15.0, table 3-7, well-formed byte sequences.
std::size_t utf8ValidPrefix(std::string_view text);

inline bool isUtf8(std::string_view text) { return utf8ValidPrefix(text) == text.size(); }

}  // namespace quorin
