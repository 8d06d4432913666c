#include "quorin/platform/values/NumberReading.h"

#include <algorithm>
#include <limits>
#include <system_error>

namespace quorin {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isWhiteSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

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

std::size_t readDecimal(std::string_view text, std::chars_format format, double& value) {
    const std::size_t firstDigit = text.starts_with('.') ? 1 : 0;
    // Without a digit here, from_chars would go on to read a sign, "inf" or "nan".
    if (firstDigit == text.size() || !isDigit(text[firstDigit]))
        return 0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), value, format);
    const auto size = static_cast<std::size_t>(end - text.data());
    if (error == std::errc::result_out_of_range)
        value = isTiny(text.substr(0, size)) ? 0 : std::numeric_limits<double>::infinity();
    return size;
}

double doubleValue(std::string_view text) {
    const auto start = std::find_if_not(text.begin(), text.end(), isWhiteSpace);
    text.remove_prefix(static_cast<std::size_t>(start - text.begin()));
    const bool isNegative = text.starts_with('-');
    if (isNegative || text.starts_with('+'))
        text.remove_prefix(1);
    double value = 0;
    if (readDecimal(text, std::chars_format::general, value) == 0)
        return 0;
    return isNegative ? -value : value;
}

}  // namespace quorin
