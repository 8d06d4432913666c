#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quorin {

/// The text in UTF-8, whatever it came in: UTF-8 or UTF-16 by its byte order mark or first
/// character, or ISO 8859-1 when its XML declaration says so. Other encodings are taken as UTF-8,
/// which holds for their ASCII part. A UTF-8 byte order mark stays.
std::string utf8SvgText(std::string_view text);

/// `text` with every byte that is not part of a character replaced by U+FFFD.
std::string repairedUtf8(std::string_view text);

/// Finds the line of a place in a text.
class SvgLines {
public:
    explicit SvgLines(std::string_view text);

    /// Counted from 1; the last line for a place beyond the end.
    std::size_t lineOf(std::size_t offset) const;

private:
    std::vector<std::size_t> ends;  // offsets of the line feeds
};

/// How many elements begin in an XML text, comments and character data passed over; counting
/// stops above `limit`. `offset` is then where it stopped.
struct SvgElementCount {
    std::size_t count = 0;
    std::size_t offset = 0;
};
SvgElementCount countElements(std::string_view text, std::size_t limit);

}  // namespace quorin
