#pragma once

#include <charconv>
#include <cstddef>
#include <string_view>

/// Decimal numbers in texts, whatever the locale.
namespace quorin {

/// The number that the text starts with, after white space and a sign, correctly rounded; the rest
/// is ignored: `50%` reads 50. 0 when there is none. Too large a number reads as infinity; the
/// words for it and for NaN are no numbers, and hexadecimal ends behind its 0.
double doubleValue(std::string_view text);

/// The size in bytes of the number without a sign that the text starts with, 0 when there is none:
/// digits with a point among, before or behind them and, unless `format` is fixed, an exponent.
/// Unlike `std::from_chars` it knows no words, and what a double cannot hold reads as infinity or
/// 0.
std::size_t readDecimal(std::string_view text, std::chars_format format, double& value);

}  // namespace quorin
