#include "quorin/svg/writing/SvgNumberText.h"

#include <array>
#include <charconv>

namespace quorin {

std::string svgNumberText(CGFloat number) {
    if (number == 0)
        return "0";
    std::array<char, 32> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
    std::string text(buffer.data(), end);

    const bool isNegative = text.front() == '-';
    if (text.compare(isNegative ? 1 : 0, 2, "0.") == 0)
        text.erase(isNegative ? 1 : 0, 1);
    const std::size_t exponent = text.find('e');
    if (exponent == std::string::npos)
        return text;
    // "e+05" and "e-05" have a sign and a zero more than they need.
    const bool isSmall = text[exponent + 1] == '-';
    const std::size_t digits = text.find_first_not_of('0', exponent + 2);
    return text.substr(0, exponent + 1) + (isSmall ? "-" : "") + text.substr(digits);
}

void SvgNumberList::append(CGFloat number) {
    const std::string next = svgNumberText(number);
    const bool isApart = next.front() == '-' || (next.front() == '.' && canPointFollow);
    if (isAfterNumber && !isApart)
        text += ' ';
    text += next;
    isAfterNumber = true;
    canPointFollow = next.find_first_of(".e") != std::string::npos;
}

void SvgNumberList::append(std::string_view other) {
    text += other;
    isAfterNumber = false;
}

}  // namespace quorin
