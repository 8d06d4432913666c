#include "quorin/platform/values/TextForm.h"

#include <array>
#include <charconv>
#include <cmath>

namespace quorin {
namespace {

bool isWrittenPlainly(CGFloat number) {
    constexpr CGFloat least = 1e-4;
    constexpr CGFloat greatest = 9007199254740992;  // 2^53
    const CGFloat magnitude = std::abs(number);
    return magnitude == 0 || (magnitude >= least && magnitude <= greatest);
}

}  // namespace

std::string textForm(CGFloat number) {
    if (std::isnan(number))
        return "nan";  // whatever its sign bit says
    if (std::isinf(number))
        return number < 0 ? "-inf" : "inf";

    const bool isPlain = isWrittenPlainly(number);
    std::array<char, 32> buffer;  // the longest are 24 characters, as -2.2250738585072014e-308
    const auto written =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                      isPlain ? std::chars_format::fixed : std::chars_format::scientific);
    std::string text(buffer.data(), written.ptr);
    if (isPlain && text.find('.') == std::string::npos)
        text += ".0";
    return text;
}

std::string textForm(CGPoint point) {
    std::string text = "(";
    return text.append(textForm(point.x)).append(", ").append(textForm(point.y)).append(")");
}

}  // namespace quorin
