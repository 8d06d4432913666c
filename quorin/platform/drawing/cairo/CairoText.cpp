#include "quorin/platform/drawing/cairo/CairoText.h"

#include <cmath>
#include <memory>
#include <string>

#include "quorin/platform/foundation/UTF8.h"

namespace quorin {
namespace {

struct FontOptionsRelease {
    void operator()(cairo_font_options_t* options) const { cairo_font_options_destroy(options); }
};
using FontOptions = std::unique_ptr<cairo_font_options_t, FontOptionsRelease>;

/// Cairo goes out of order at a text that is not UTF-8 and ends it at a zero byte: both become the
/// replacement character.
std::string cairoText(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const std::size_t good = utf8ValidPrefix(text.substr(0, text.find('\0')));
        result += text.substr(0, good);
        if (good == text.size())
            break;
        result += "\uFFFD";
        text.remove_prefix(good + 1);
    }
    return result;
}

/// A letter is as wide at every size and place as it is on paper: without hinting no outline is
/// bent to whole pixels.
void selectFont(cairo_t* context, const CGAffineTransform& toPixels) {
    const FontOptions options(cairo_font_options_create());
    cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
    cairo_set_font_options(context, options.get());
    cairo_select_font_face(context, "sans-serif", CAIRO_FONT_SLANT_NORMAL,
                           CAIRO_FONT_WEIGHT_NORMAL);
    const cairo_matrix_t matrix = cairoMatrix(toPixels);
    cairo_set_font_matrix(context, &matrix);
}

}  // namespace

CGFloat textAdvance(cairo_t* context, std::string_view text, CGFloat size) {
    // Measured at one size: cairo counts in parts of a pixel, of which small letters have few.
    constexpr CGFloat measured = 256;
    selectFont(context, CGAffineTransformMakeScale(measured, measured));
    cairo_text_extents_t extents;
    cairo_text_extents(context, cairoText(text).c_str(), &extents);
    return extents.x_advance / measured * size;
}

void addTextOutline(cairo_t* context, std::string_view text, CGFloat size, const LinearShape& shape,
                    CGPoint pixel) {
    const CGFloat letter = size * shape.scale;
    // Beyond the largest bitmap a letter shows nothing but its inside; far below a pixel, nothing.
    constexpr CGFloat smallest = 0.01, largest = 10'000;
    if (!(letter * shape.stretch >= smallest && letter * shape.stretch <= largest))
        return;
    selectFont(context,
               CGAffineTransformConcat(CGAffineTransformMakeScale(letter, letter), shape.linear));
    cairo_move_to(context, pixel.x, pixel.y);
    cairo_text_path(context, cairoText(text).c_str());
}

}  // namespace quorin
