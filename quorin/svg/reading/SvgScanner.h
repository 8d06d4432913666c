#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// Whether `c` is white space to SVG: space, tab, line feed, form feed or carriage return.
constexpr bool isSvgSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\f' || c == '\r';
}
std::string_view trimmedSvgSpace(std::string_view text);
/// Equal but for the case of ASCII letters; `lower` has none but small ones.
bool equalsIgnoringCase(std::string_view text, std::string_view lower);

/// A place in a text that moves forward over the small grammars in SVG's attributes. What it does
/// not find leaves it where it was.
class SvgScanner {
public:
    explicit SvgScanner(std::string_view source) : text(source) {}

    std::size_t offset() const { return position; }
    bool isAtEnd() const { return position == text.size(); }
    /// NUL at the end.
    char peek() const { return isAtEnd() ? '\0' : text[position]; }
    std::string_view rest() const { return text.substr(position); }
    void advance(std::size_t count = 1) { position += count; }

    void skipSpace();
    /// White space with at most one comma in it. Whether there was a comma.
    bool skipCommaSpace();
    bool take(char c);

    /// Sign, digits, fraction and exponent in any usual mixture: "-.5e-3". A number ends where the
    /// next can begin ("1.5.5", "3-4"), and at an "e" without digits ("2em"). What is too small
    /// is zero; nothing when it is too large for a double.
    std::optional<CGFloat> number();
    /// One character, 0 or 1, which the next number may follow at once.
    std::optional<bool> flag();
    /// ASCII letters, digits, "-" and "_"; empty when there are none.
    std::string_view word();

private:
    std::string_view text;
    std::size_t position = 0;
};

}  // namespace quorin
