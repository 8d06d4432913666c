#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quorin {

/// The first place at which a text stops being JSON (RFC 8259).
struct JSONSyntaxError {
    std::size_t offset;  ///< in bytes
    std::string reason;
};

/// Walks the whole text, which is slow, to say what a fast reader does not: where and why it
/// failed. A number too large for a double and lists and records that hold something more than
/// `maximumDepth` levels down are errors too.
std::optional<JSONSyntaxError> findJSONSyntaxError(std::string_view text, std::size_t maximumDepth);

/// "line 3, column 14", both counted from 1, the column in characters.
std::string describePlace(std::string_view text, std::size_t offset);

/// Whether the text has the integer -0, whose sign a reader of integers loses.
bool hasNegativeZeroIntegers(std::string_view text);

/// The text with ".0" after the integers that only a double holds: -0 and those beyond 64 bits.
std::string spellingOutDoubles(std::string_view text);

}  // namespace quorin
