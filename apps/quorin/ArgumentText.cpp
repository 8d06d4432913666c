#include "apps/quorin/ArgumentText.h"

#include <CLI/CLI.hpp>
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

}  // namespace

CGFloat lengthOf(std::string_view option, std::string_view text) {
    const std::optional<CGFloat> length = parseFinite(text);
    if (!length || *length < 0)
        refuse(option, text, "expected a length of 0 or more");
    return *length;
}

CGPoint pointOf(std::string_view option, std::string_view text) {
    const std::size_t comma = text.find(',');
    if (comma != std::string_view::npos) {
        const auto x = parseFinite(text.substr(0, comma));
        const auto y = parseFinite(text.substr(comma + 1));
        if (x && y)
            return {*x, *y};
    }
    refuse(option, text, "expected two numbers X,Y");
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
