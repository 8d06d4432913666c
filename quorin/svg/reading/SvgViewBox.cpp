#include "quorin/svg/reading/SvgViewBox.h"

#include <array>
#include <cmath>

#include "quorin/svg/reading/SvgScanner.h"

namespace quorin {
namespace {

std::optional<CGFloat> alignment(std::string_view word) {
    if (word == "Min")
        return 0;
    if (word == "Mid")
        return 0.5;
    if (word == "Max")
        return 1;
    return std::nullopt;
}

}  // namespace

std::optional<CGRect> parseSvgViewBox(std::string_view text) {
    SvgScanner scanner(trimmedSvgSpace(text));
    std::array<CGFloat, 4> values{};
    for (CGFloat& value : values) {
        const std::optional<CGFloat> number = scanner.number();
        if (!number)
            return std::nullopt;
        value = *number;
        scanner.skipCommaSpace();
    }
    const CGRect box = CGRectMake(values[0], values[1], values[2], values[3]);
    const bool isUsable = box.size.width > 0 && box.size.height > 0 && scanner.isAtEnd();
    return isUsable ? std::optional<CGRect>(box) : std::nullopt;
}

std::optional<SvgAspectRatio> parseSvgAspectRatio(std::string_view text) {
    SvgScanner scanner(trimmedSvgSpace(text));
    std::string_view align = scanner.word();
    if (align == "defer") {
        scanner.skipSpace();
        align = scanner.word();
    }
    scanner.skipSpace();
    const std::string_view meetOrSlice = scanner.word();
    const bool isSlice = meetOrSlice == "slice";
    if (!scanner.isAtEnd() || (!meetOrSlice.empty() && !isSlice && meetOrSlice != "meet"))
        return std::nullopt;

    if (align == "none")
        return SvgAspectRatio{false, false, 0.5, 0.5};
    if (align.size() != 8 || align[0] != 'x' || align[4] != 'Y')
        return std::nullopt;
    const std::optional<CGFloat> x = alignment(align.substr(1, 3));
    const std::optional<CGFloat> y = alignment(align.substr(5, 3));
    if (!x || !y)
        return std::nullopt;
    return SvgAspectRatio{true, isSlice, *x, *y};
}

CGRect shownRect(const CGRect& viewBox, CGSize viewport, const SvgAspectRatio& aspectRatio) {
    const CGFloat widthByHeight = viewport.width * viewBox.size.height;
    const CGFloat heightByWidth = viewport.height * viewBox.size.width;
    if (!aspectRatio.isPreserved || widthByHeight == heightByWidth)
        return viewBox;
    // The tighter direction keeps its length, the other one shows more; in a slice the reverse.
    CGRect shown = viewBox;
    if ((widthByHeight > heightByWidth) != aspectRatio.isSlice)
        shown.size.width = widthByHeight / viewport.height;
    else
        shown.size.height = heightByWidth / viewport.width;
    shown.origin.x -= aspectRatio.alignX * (shown.size.width - viewBox.size.width);
    shown.origin.y -= aspectRatio.alignY * (shown.size.height - viewBox.size.height);
    return shown;
}

CGAffineTransform transformBetween(const CGRect& from, const CGRect& to) {
    const CGFloat scaleX = to.size.width / from.size.width;
    const CGFloat scaleY = to.size.height / from.size.height;
    return {scaleX,
            0,
            0,
            scaleY,
            to.origin.x - from.origin.x * scaleX,
            to.origin.y - from.origin.y * scaleY};
}

}  // namespace quorin
