#include "quorin/platform/drawing/cairo/CairoShading.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <optional>
#include <variant>

#include "quorin/platform/drawing/cairo/LinearShape.h"

namespace quorin {
namespace {

/// NaN becomes 0.
double unit(double value) { return value > 0 ? std::min(value, 1.0) : 0; }

bool areFinite(std::initializer_list<CGFloat> values) {
    return std::all_of(values.begin(), values.end(), [](CGFloat v) { return std::isfinite(v); });
}

/// Two ends in one place have no colours between them; nothing then.
CairoPattern withoutStops(const CGLinearShading& shading, const CGAffineTransform& toPattern,
                          CGFloat) {
    const CGPoint start = CGPointApplyAffineTransform(shading.start, toPattern);
    const CGPoint end = CGPointApplyAffineTransform(shading.end, toPattern);
    if (!areFinite({start.x, start.y, end.x, end.y}) || start == end)
        return nullptr;
    return CairoPattern(cairo_pattern_create_linear(start.x, start.y, end.x, end.y));
}

CairoPattern withoutStops(const CGRadialShading& shading, const CGAffineTransform& toPattern,
                          CGFloat scale) {
    const CGPoint c0 = CGPointApplyAffineTransform(shading.startCenter, toPattern);
    const CGPoint c1 = CGPointApplyAffineTransform(shading.endCenter, toPattern);
    const CGFloat r0 = std::max(shading.startRadius, 0.0) * scale;
    const CGFloat r1 = std::max(shading.endRadius, 0.0) * scale;
    if (!areFinite({c0.x, c0.y, c1.x, c1.y, r0, r1}) || (c0 == c1 && r0 == r1))
        return nullptr;
    return CairoPattern(cairo_pattern_create_radial(c0.x, c0.y, r0, c1.x, c1.y, r1));
}

cairo_extend_t extendOf(CGGradientSpread spread) {
    switch (spread) {
        case CGGradientSpread::reflect:
            return CAIRO_EXTEND_REFLECT;
        case CGGradientSpread::repeat:
            return CAIRO_EXTEND_REPEAT;
        case CGGradientSpread::pad:
            break;
    }
    return CAIRO_EXTEND_PAD;
}

const CGGradient& gradientOf(const CGShading& shading) {
    return std::visit([](const auto& kind) -> const CGGradient& { return kind.gradient; }, shading);
}

}  // namespace

CairoPattern makeCairoPattern(const CGColor& color, CGFloat alpha) {
    return CairoPattern(cairo_pattern_create_rgba(
        unit(color.red), unit(color.green), unit(color.blue), unit(color.alpha) * unit(alpha)));
}

CairoPattern makeCairoPattern(const CGShading& shading, const CGAffineTransform& toDevice,
                              CGFloat alpha) {
    const CGGradient& gradient = gradientOf(shading);
    if (gradient.stops.empty())
        return nullptr;
    const std::optional<LinearShape> shape = linearShapeOf(toDevice);
    if (!shape)
        return nullptr;

    // The space of the pattern has the size and the origin of the bitmap: far from either, cairo
    // runs out of digits.
    const CGAffineTransform fromDevice = CGAffineTransformInvert(shape->linear);
    const CGAffineTransform toPattern = CGAffineTransformConcat(toDevice, fromDevice);
    CairoPattern pattern = std::visit(
        [&](const auto& kind) { return withoutStops(kind, toPattern, shape->scale); }, shading);
    if (!pattern)
        return makeCairoPattern(gradient.stops.back().color, alpha);
    const cairo_matrix_t matrix = cairoMatrix(fromDevice);
    cairo_pattern_set_matrix(pattern.get(), &matrix);
    for (const auto& [location, color] : gradient.stops)
        cairo_pattern_add_color_stop_rgba(pattern.get(), unit(location), unit(color.red),
                                          unit(color.green), unit(color.blue),
                                          unit(color.alpha) * unit(alpha));
    cairo_pattern_set_extend(pattern.get(), extendOf(gradient.spread));
    return pattern;
}

}  // namespace quorin
