#include "apps/quorin/ArgumentText.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>

#include "quorin/platform/drawing/CGImage.h"
#include "quorin/svg/SvgColor.h"

namespace quorin::app {

namespace {

[[noreturn]] void refuse(std::string_view option, std::string_view text, const std::string& what) {
    std::string message = what;
    message.append(", not '").append(text).append("'");
    throw CLI::ValidationError(std::string(option), message);
}

/// All of the text as one number.
template <typename Number>
std::optional<Number> parse(std::string_view text) {
    Number number = 0;
    const char* const end = text.data() + text.size();
    const auto [stopped, failure] = std::from_chars(text.data(), end, number);
    if (failure != std::errc() || stopped != end)
        return std::nullopt;
    return number;
}

std::optional<CGFloat> parseFinite(std::string_view text) {
    const std::optional<CGFloat> number = parse<CGFloat>(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

/// All of the text as exactly so many numbers with commas between them.
template <std::size_t count>
std::optional<std::array<CGFloat, count>> parseList(std::string_view text) {
    std::array<CGFloat, count> numbers{};
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t end = i + 1 < count ? text.find(',') : text.size();
        const auto number = parseFinite(text.substr(0, end));
        if (end == std::string_view::npos || !number)
            return std::nullopt;
        numbers[i] = *number;
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return numbers;
}

}  // namespace

CGFloat numberOf(std::string_view option, std::string_view text) {
    const std::optional<CGFloat> number = parseFinite(text);
    if (!number)
        refuse(option, text, "expected a number");
    return *number;
}

CGFloat positiveOf(std::string_view option, std::string_view text) {
    const std::optional<CGFloat> number = parseFinite(text);
    if (!number || *number <= 0)
        refuse(option, text, "expected a number above 0");
    return *number;
}

CGFloat lengthOf(std::string_view option, std::string_view text) {
    const std::optional<CGFloat> length = parseFinite(text);
    if (!length || *length < 0)
        refuse(option, text, "expected a length of 0 or more");
    return *length;
}

CGFloat fractionOf(std::string_view option, std::string_view text) {
    const std::optional<CGFloat> fraction = parseFinite(text);
    if (!fraction || *fraction < 0 || *fraction > 1)
        refuse(option, text, "expected a fraction from 0 to 1");
    return *fraction;
}

CGFloat swingingRatioOf(std::string_view option, std::string_view text) {
    const std::optional<CGFloat> ratio = parseFinite(text);
    if (!ratio || *ratio <= 0 || *ratio > 1)
        refuse(option, text, "expected a ratio above 0 and up to 1");
    return *ratio;
}

CGFloat cornerRadiusOf(std::string_view option, std::string_view text) {
    const std::optional<CGFloat> radius = parseFinite(text);
    if (!radius || *radius < 0 || (*radius > 0 && *radius < 1))
        refuse(option, text, "expected a radius of 1 or more, or 0");
    return *radius;
}

CGPoint pointOf(std::string_view option, std::string_view text) {
    if (const auto numbers = parseList<2>(text))
        return {(*numbers)[0], (*numbers)[1]};
    refuse(option, text, "expected two numbers X,Y");
}

CGSize extentOf(std::string_view option, std::string_view text) {
    const std::size_t cross = text.find('x');
    const auto width = parseFinite(text.substr(0, cross));
    const auto height =
        cross == std::string_view::npos ? width : parseFinite(text.substr(cross + 1));
    if (!width || !height || *width <= 0 || *height <= 0)
        refuse(option, text, "expected a size as S or WxH, above 0");
    return {*width, *height};
}

CGSize scaleOf(std::string_view option, std::string_view text) {
    CGSize scale;
    if (const auto factor = parseFinite(text))
        scale = {*factor, *factor};
    else if (const auto factors = parseList<2>(text))
        scale = {(*factors)[0], (*factors)[1]};
    if (scale.width == 0 || scale.height == 0)
        refuse(option, text, "expected a scale as S or SX,SY, neither of them 0");
    return scale;
}

CGAffineTransform matrixOf(std::string_view option, std::string_view text) {
    const auto numbers = parseList<6>(text);
    if (!numbers)
        refuse(option, text, "expected six numbers A,B,C,D,TX,TY");
    const auto [a, b, c, d, tx, ty] = *numbers;
    // Of 0.1,0.3,0.2,0.6 only rounding leaves a difference.
    constexpr CGFloat cancelled = 1e-14;
    if (!(std::abs(a * d - b * c) > cancelled * (std::abs(a * d) + std::abs(b * c))))
        refuse(option, text, "expected a matrix that has an inverse");
    return {a, b, c, d, tx, ty};
}

std::size_t countOf(std::string_view option, std::string_view text, std::size_t least,
                    std::size_t most) {
    const auto count = parse<std::size_t>(text);
    if (!count || *count < least || *count > most) {
        std::string what = "expected a whole number from ";
        what.append(std::to_string(least)).append(" to ").append(std::to_string(most));
        refuse(option, text, what);
    }
    return *count;
}

std::optional<DrawingColor> colorOf(std::string_view option, std::string_view text) {
    if (text == "none")
        return std::nullopt;
    const std::optional<DrawingColor> color = parseSvgColor(text);
    if (!color)
        refuse(option, text, "expected a colour such as white, #f4f5f7 or none");
    return color;
}

PixelSize pixelSizeOf(std::string_view option, std::string_view text) {
    const auto isSide = [](const std::optional<std::size_t>& side) {
        return side && *side >= 1 && *side <= CGImage::maximumSide;
    };
    const std::size_t cross = text.find('x');
    const auto width = parse<std::size_t>(text.substr(0, cross));
    if (isSide(width) && cross == std::string_view::npos)
        return {*width, 0};
    if (isSide(width)) {
        const auto height = parse<std::size_t>(text.substr(cross + 1));
        if (isSide(height))
            return {*width, *height};
    }
    refuse(option, text,
           "expected pixels as N or WxH, up to " + std::to_string(CGImage::maximumSide));
}

}  // namespace quorin::app
