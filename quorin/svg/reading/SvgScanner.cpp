#include "quorin/svg/reading/SvgScanner.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace quorin {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isWordCharacter(char c) {
    return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '-' || c == '_';
}

/// Whether digits out of a double's range stand for something below 1. `std::from_chars` does not
/// tell too small from too large.
bool isTiny(std::string_view digits) {
    const std::size_t exponentAt = std::min(digits.find_first_of("eE"), digits.size());
    const std::string_view mantissa = digits.substr(0, exponentAt);
    const auto point = static_cast<std::ptrdiff_t>(std::min(mantissa.find('.'), mantissa.size()));
    const auto leading = static_cast<std::ptrdiff_t>(mantissa.find_first_of("123456789"));

    const bool isNegative = exponentAt + 1 < digits.size() && digits[exponentAt + 1] == '-';
    std::ptrdiff_t exponent = 0;
    for (const char c : digits.substr(exponentAt))
        if (isDigit(c) && exponent < 1'000'000'000'000)
            exponent = exponent * 10 + (c - '0');
    return (isNegative ? -exponent : exponent) + point - leading < 0;
}

}  // namespace

std::string_view trimmedSvgSpace(std::string_view text) {
    while (!text.empty() && isSvgSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isSvgSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

bool equalsIgnoringCase(std::string_view text, std::string_view lower) {
    return std::equal(text.begin(), text.end(), lower.begin(), lower.end(), [](char c, char l) {
        return (c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c) == l;
    });
}

void SvgScanner::skipSpace() {
    while (!isAtEnd() && isSvgSpace(text[position]))
        ++position;
}

bool SvgScanner::skipCommaSpace() {
    skipSpace();
    if (!take(','))
        return false;
    skipSpace();
    return true;
}

bool SvgScanner::take(char c) {
    if (isAtEnd() || text[position] != c)
        return false;
    ++position;
    return true;
}

std::optional<CGFloat> SvgScanner::number() {
    const std::string_view here = rest();
    const bool hasSign = !here.empty() && (here[0] == '+' || here[0] == '-');
    const std::string_view digits = here.substr(hasSign ? 1 : 0);
    // Without a digit at its start, from_chars would go on to read "inf" or a second sign.
    const bool hasDigit =
        !digits.empty() &&
        (isDigit(digits[0]) || (digits[0] == '.' && digits.size() > 1 && isDigit(digits[1])));
    if (!hasDigit)
        return std::nullopt;

    CGFloat value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    const auto length = static_cast<std::size_t>(end - digits.data());
    if (error == std::errc::result_out_of_range) {
        if (!isTiny(digits.substr(0, length)))
            return std::nullopt;
        value = 0;
    }
    position += length + (hasSign ? 1 : 0);
    return here[0] == '-' ? -value : value;
}

std::optional<bool> SvgScanner::flag() {
    const char c = peek();
    if (c != '0' && c != '1')
        return std::nullopt;
    ++position;
    return c == '1';
}

std::string_view SvgScanner::word() {
    const std::size_t start = position;
    while (!isAtEnd() && isWordCharacter(text[position]))
        ++position;
    return text.substr(start, position - start);
}

}  // namespace quorin
