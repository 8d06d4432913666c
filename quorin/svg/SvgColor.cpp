#include "quorin/svg/SvgColor.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "quorin/svg/reading/NamedColors.h"
#include "quorin/svg/reading/SvgScanner.h"

namespace quorin {
namespace {

DrawingColor colorOfBytes(std::array<unsigned, 4> bytes) {
    return {bytes[0] / 255.0, bytes[1] / 255.0, bytes[2] / 255.0, bytes[3] / 255.0};
}

std::optional<unsigned> hexadecimalDigit(char c) {
    if (c >= '0' && c <= '9')
        return static_cast<unsigned>(c - '0');
    if (c >= 'a' && c <= 'f')
        return static_cast<unsigned>(c - 'a' + 10);
    if (c >= 'A' && c <= 'F')
        return static_cast<unsigned>(c - 'A' + 10);
    return std::nullopt;
}

std::optional<DrawingColor> parseHexadecimal(std::string_view digits) {
    const bool isShort = digits.size() == 3 || digits.size() == 4;
    if (!isShort && digits.size() != 6 && digits.size() != 8)
        return std::nullopt;
    std::array<unsigned, 8> values{};
    for (std::size_t i = 0; i < digits.size(); ++i) {
        const std::optional<unsigned> digit = hexadecimalDigit(digits[i]);
        if (!digit)
            return std::nullopt;
        values[i] = *digit;
    }
    std::array<unsigned, 4> bytes = {0, 0, 0, 255};
    for (std::size_t i = 0; i < (isShort ? digits.size() : digits.size() / 2); ++i)
        bytes[i] = isShort ? values[i] * 17 : values[2 * i] * 16 + values[2 * i + 1];
    return colorOfBytes(bytes);
}

/// An argument of a colour function, a percentage being of what the place counts in.
struct Component {
    CGFloat value = 0;
    bool isPercentage = false;

    CGFloat of(CGFloat whole) const { return isPercentage ? value / 100 * whole : value; }
};

/// Degrees of a hue, whatever unit it is in.
std::optional<CGFloat> degreesPerUnit(std::string_view unit) {
    if (unit.empty() || unit == "deg")
        return 1;
    if (unit == "turn")
        return 360;
    if (unit == "rad")
        return 57.29577951308232;
    if (unit == "grad")
        return 0.9;
    return std::nullopt;
}

struct Components {
    std::array<Component, 4> values{};
    std::size_t count = 0;
};

/// Three or four numbers with commas or white space between them, and a slash before the alpha.
std::optional<Components> parseComponents(SvgScanner& scanner) {
    Components result;
    scanner.skipSpace();
    while (!scanner.take(')')) {
        const std::optional<CGFloat> number = scanner.number();
        if (!number || result.count == result.values.size())
            return std::nullopt;
        Component& component = result.values[result.count++];
        component.isPercentage = scanner.take('%');
        const std::optional<CGFloat> factor = degreesPerUnit(scanner.word());
        if (!factor)
            return std::nullopt;
        component.value = *number * *factor;
        if (!scanner.skipCommaSpace() && scanner.take('/'))
            scanner.skipSpace();
    }
    return result.count >= 3 ? std::optional<Components>(result) : std::nullopt;
}

CGFloat roundedComponent(CGFloat of255) { return std::round(std::clamp(of255, 0.0, 255.0)) / 255; }

/// Source: CSS Color 4, section "Converting HSL colors to sRGB".
CGFloat componentOfHsl(CGFloat hue, CGFloat saturation, CGFloat lightness, CGFloat shift) {
    const CGFloat k = std::fmod(shift + hue / 30, 12.0);
    const CGFloat a = saturation * std::min(lightness, 1 - lightness);
    return lightness - a * std::max(-1.0, std::min({k - 3, 9 - k, 1.0}));
}

std::optional<DrawingColor> parseFunction(std::string_view name, SvgScanner& scanner) {
    const bool isHsl = equalsIgnoringCase(name, "hsl") || equalsIgnoringCase(name, "hsla");
    const bool isRgb = equalsIgnoringCase(name, "rgb") || equalsIgnoringCase(name, "rgba");
    if (!isHsl && !isRgb)
        return std::nullopt;
    const std::optional<Components> components = parseComponents(scanner);
    if (!components)
        return std::nullopt;

    const auto& v = components->values;
    DrawingColor color;
    color.alpha = components->count == 4 ? std::clamp(v[3].of(1), 0.0, 1.0) : 1;
    if (isRgb) {
        color.red = roundedComponent(v[0].of(255));
        color.green = roundedComponent(v[1].of(255));
        color.blue = roundedComponent(v[2].of(255));
        return color;
    }
    const CGFloat turned = std::fmod(v[0].value, 360.0);
    const CGFloat hue = turned < 0 ? turned + 360 : turned;
    const CGFloat saturation = std::clamp(v[1].value / 100, 0.0, 1.0);
    const CGFloat lightness = std::clamp(v[2].value / 100, 0.0, 1.0);
    color.red = roundedComponent(componentOfHsl(hue, saturation, lightness, 0) * 255);
    color.green = roundedComponent(componentOfHsl(hue, saturation, lightness, 8) * 255);
    color.blue = roundedComponent(componentOfHsl(hue, saturation, lightness, 4) * 255);
    return color;
}

}  // namespace

std::optional<DrawingColor> parseSvgColor(std::string_view text) {
    text = trimmedSvgSpace(text);
    const std::size_t iccAt = text.find("icc-color(");
    if (iccAt != std::string_view::npos)
        text = trimmedSvgSpace(text.substr(0, iccAt));

    if (!text.empty() && text.front() == '#')
        return parseHexadecimal(text.substr(1));
    if (equalsIgnoringCase(text, "transparent"))
        return DrawingColor{0, 0, 0, 0};
    SvgScanner scanner(text);
    const std::string_view name = scanner.word();
    if (scanner.isAtEnd())
        return namedColor(name);
    if (!scanner.take('('))
        return std::nullopt;
    const std::optional<DrawingColor> color = parseFunction(name, scanner);
    return scanner.isAtEnd() ? color : std::nullopt;
}

}  // namespace quorin
