#include "quorin/platform/values/NumberReading.h"

#include <algorithm>
#include <cstddef>
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

const char* readDecimal(const char* first, const char* last, std::chars_format format,
                        double& value) {
    const char* digit = first != last && *first == '.' ? first + 1 : first;
    // Without a digit here, from_chars would go on to read a sign, "inf" or "nan".
    if (digit == last || !isDigit(*digit))
        return first;
    const auto [end, error] = std::from_chars(first, last, value, format);
    if (error == std::errc::result_out_of_range)
        value = isTiny({first, static_cast<std::size_t>(end - first)})
                    ? 0
                    : std::numeric_limits<double>::infinity();
    return end;
}

double doubleValue(std::string_view text) {
    const char* at = text.data();
    const char* const end = at + text.size();
    while (at != end && isWhiteSpace(*at))
        ++at;
    const bool hasSign = at != end && (*at == '+' || *at == '-');
    const bool isNegative = hasSign && *at == '-';
    double value = 0;
    const char* const start = hasSign ? at + 1 : at;
    if (readDecimal(start, end, std::chars_format::general, value) == start)
        return 0;
    return isNegative ? -value : value;
}

}  // namespace quorin
