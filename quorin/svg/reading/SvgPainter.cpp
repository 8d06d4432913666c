#include "quorin/svg/reading/SvgPainter.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "quorin/svg/reading/SvgTransform.h"

namespace quorin {
namespace {

/// A stroke that is a quarter wider one way than the other looks different.
constexpr CGFloat noticeableUnevenness = 1.25;

}  // namespace

DrawingPaint SvgPainter::paint(pugi::xml_node node, const SvgContext& context, const CGPath& path) {
    const SvgStyle& style = context.style;
    DrawingPaint paint;
    paint.fill = brush(node, style.fill, context, path);
    paint.fillOpacity = style.fillOpacity;
    paint.fillRule = style.fillRule;
    paint.stroke = brush(node, style.stroke, context, path);
    paintStroke(node, context, paint);
    paint.isStrokeFirst = style.isStrokeFirst;
    paint.opacity = context.opacity;
    return paint;
}

void SvgPainter::paintStroke(pugi::xml_node node, const SvgContext& context, DrawingPaint& paint) {
    const SvgStyle& style = context.style;
    const bool isSeen = !std::holds_alternative<std::monostate>(paint.stroke);
    if (isSeen && style.isStrokeScaled && unevenness(context.transform) > noticeableUnevenness)
        document.messages().warn(document.offset(node),
                                 "stroke: it is drawn evenly where the transform stretches it");
    const CGFloat scale = style.isStrokeScaled ? meanScale(context.transform) : 1;
    const auto resolved = [&](const SvgLength& length) {
        return length.resolved(context.viewport, SvgAxis::diagonal) * scale;
    };
    paint.strokeOpacity = style.strokeOpacity;
    paint.strokeWidth = resolved(style.strokeWidth);
    paint.lineCap = style.lineCap;
    paint.lineJoin = style.lineJoin;
    paint.miterLimit = style.miterLimit;
    for (const SvgLength& dash : style.dashes)
        paint.dashes.push_back(resolved(dash));
    paint.dashOffset = resolved(style.dashOffset);
    const auto isFinite = [](CGFloat length) { return std::isfinite(length); };
    if (!isFinite(paint.dashOffset) ||
        !std::all_of(paint.dashes.begin(), paint.dashes.end(), isFinite)) {
        paint.dashes.clear();
        paint.dashOffset = 0;
    }
}

DrawingBrush SvgPainter::brush(pugi::xml_node node, const SvgPaintValue& value,
                               const SvgContext& context, const CGPath& path) {
    const DrawingBrush color =
        value.hasColor ? DrawingBrush(value.color.resolved(context.style.color)) : DrawingBrush();
    if (value.reference.empty())
        return color;

    const pugi::xml_node target = document.elementWithId(value.reference);
    const SvgGradient* gradient = gradients.gradient(target);
    if (gradient == nullptr) {
        const std::string id = "'" + value.reference + "'";
        document.messages().warn(
            document.offset(node),
            target ? "paint: <" + std::string(document.name(target)) + "> " + id + " is no gradient"
                   : "paint: there is no gradient " + id);
        return color;
    }
    budget.spend(gradient->stops.size(), document.offset(node));
    const CGRect box = gradient->isInUserSpace ? CGRect() : path.pathBoundingBox();
    return brushOf(*gradient, {box, context.viewport, context.transform});
}

}  // namespace quorin
