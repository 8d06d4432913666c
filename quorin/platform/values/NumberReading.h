#pragma once

#include <charconv>
#include <string_view>

/// Decimal numbers in texts, whatever the locale.
namespace quorin {

/// The number that the text starts with, after white space and a sign, correctly rounded; the rest
/// is ignored: `50%` reads 50. 0 when there is none. Too large a number reads as infinity; the
/// words for it and for NaN are no numbers, and hexadecimal ends behind its 0.
double doubleValue(std::string_view text);

/// Reads digits with a point among, before or behind them and, unless `format` is fixed, with an
/// exponent. Gives where they end, `first` when there are none. Unlike `std::from_chars` it takes
/// no sign and no words, and what a double cannot hold reads as infinity or 0.
const char* readDecimal(const char* first, const char* last, std::chars_format format,
                        double& value);

}  // namespace quorin
