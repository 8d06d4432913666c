#include "quorin/linear/FixedText.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace quorin {

// Not printf: in a program that has set a locale it may write a comma.
std::string fixedText(CGFloat number) {
    if (std::isnan(number))
        return " nan";

    constexpr int decimals = 3;
    std::array<char, std::numeric_limits<CGFloat>::max_exponent10 + decimals + 4> digits;
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                       std::chars_format::fixed, decimals);
    std::string text = std::signbit(number) ? "" : " ";
    return text.append(digits.data(), written.ptr);
}

}  // namespace quorin
