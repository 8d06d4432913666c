#include "quorin/svg/reading/SvgLength.h"

#include <algorithm>
#include <cmath>

#include "quorin/svg/reading/SvgScanner.h"

namespace quorin {
namespace {

struct Unit {
    std::string_view name;
    CGFloat numerator, denominator;  // apart, so that 1in is exactly 96 and 72pt is too
};
constexpr Unit units[] = {
    {"", 1, 1},        {"px", 1, 1},  {"pt", 96, 72}, {"pc", 16, 1},  {"mm", 960, 254},
    {"cm", 9600, 254}, {"in", 96, 1}, {"em", 16, 1},  {"rem", 16, 1}, {"ex", 8, 1},
};

}  // namespace

CGFloat SvgLength::resolved(CGSize viewport, SvgAxis axis) const {
    if (!isPercentage)
        return value;
    switch (axis) {
        case SvgAxis::horizontal:
            return value / 100 * viewport.width;
        case SvgAxis::vertical:
            return value / 100 * viewport.height;
        case SvgAxis::diagonal:
            break;
    }
    const CGFloat meanSquare =
        (viewport.width * viewport.width + viewport.height * viewport.height) / 2;
    return value / 100 * std::sqrt(meanSquare);
}

std::optional<SvgLength> parseSvgLength(std::string_view text) {
    SvgScanner scanner(trimmedSvgSpace(text));
    const std::optional<CGFloat> number = scanner.number();
    if (!number)
        return std::nullopt;
    if (scanner.rest() == "%")
        return SvgLength{*number, true};
    for (const Unit& unit : units)
        if (equalsIgnoringCase(scanner.rest(), unit.name))
            return SvgLength{*number * unit.numerator / unit.denominator, false};
    return std::nullopt;
}

std::optional<CGFloat> parseSvgNumber(std::string_view text) {
    SvgScanner scanner(trimmedSvgSpace(text));
    const std::optional<CGFloat> number = scanner.number();
    return scanner.isAtEnd() ? number : std::nullopt;
}

std::optional<CGFloat> parseSvgFraction(std::string_view text) {
    SvgScanner scanner(trimmedSvgSpace(text));
    std::optional<CGFloat> number = scanner.number();
    if (number && scanner.take('%'))
        number = *number / 100;
    if (!number || !scanner.isAtEnd())
        return std::nullopt;
    return std::clamp(*number, 0.0, 1.0);
}

}  // namespace quorin
