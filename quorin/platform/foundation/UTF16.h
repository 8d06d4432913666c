#pragma once

#include <string>
#include <string_view>

namespace quorin {

/// The text in UTF-16. What is no UTF-8 becomes U+FFFD, one for each broken-off character and one
/// for each byte that cannot start or continue one, so that every input has a result.
///
/// Source: The Unicode Standard 15.0, section 3.9, substitution of maximal subparts.
std::u16string utf16(std::string_view text);

/// The same into a text whose memory is used again. Whether it is ASCII alone, so that all stands
/// at the same places in both.
bool convertToUtf16(std::string_view text, std::u16string& result);

/// The text in UTF-8; half a surrogate pair becomes U+FFFD.
std::string utf8(std::u16string_view text);

}  // namespace quorin
