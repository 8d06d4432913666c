#include "quorin/svg/DrawingRenderer.h"

#include <memory>

#include "quorin/platform/cgpath/CGMutablePath.h"
#include "quorin/platform/drawing/CGContext.h"
#include "quorin/svg/DrawnElements.h"

namespace quorin {
namespace {

/// From the anchors and not through `Path::cg()`, so that a drawing can be rendered by several
/// threads at once.
std::shared_ptr<const CGPath> pathOf(const CompoundPath& outline) {
    CGMutablePath path;
    for (const std::shared_ptr<Path>& contour : outline.children())
        forEachDrawnElement(*contour, [&](const CGPathElement& element) {
            if (element.type == CGPathElementType::moveToPoint)
                path.moveTo(element.points[0]);
            else if (element.type == CGPathElementType::addLineToPoint)
                path.addLineTo(element.points[0]);
            else if (element.type == CGPathElementType::addCurveToPoint)
                path.addCurveTo(element.points[2], element.points[0], element.points[1]);
            else
                path.closeSubpath();
        });
    return path.take();
}

CGColor colorOf(const DrawingColor& color) {
    return {color.red, color.green, color.blue, color.alpha};
}

template <typename Gradient>
CGGradient gradientOf(const Gradient& gradient) {
    CGGradient result;
    for (const DrawingGradientStop& stop : gradient.stops)
        result.stops.push_back({stop.offset, colorOf(stop.color)});
    result.spread = gradient.spread == DrawingGradientSpread::reflect  ? CGGradientSpread::reflect
                    : gradient.spread == DrawingGradientSpread::repeat ? CGGradientSpread::repeat
                                                                       : CGGradientSpread::pad;
    return result;
}

CGShading shadingOf(const DrawingLinearGradient& gradient) {
    return CGLinearShading{gradientOf(gradient), gradient.start, gradient.end, gradient.transform};
}

CGShading shadingOf(const DrawingRadialGradient& gradient) {
    return CGRadialShading{gradientOf(gradient), gradient.focus,  gradient.focusRadius,
                           gradient.center,      gradient.radius, gradient.transform};
}

using ColorSetter = void (CGContext::*)(const CGColor&);
using ShadingSetter = void (CGContext::*)(const CGShading&);

void setBrush(CGContext& context, const DrawingBrush& brush, ColorSetter setColor,
              ShadingSetter setShading) {
    if (const auto* const color = std::get_if<DrawingColor>(&brush))
        (context.*setColor)(colorOf(*color));
    else if (const auto* const linear = std::get_if<DrawingLinearGradient>(&brush))
        (context.*setShading)(shadingOf(*linear));
    else if (const auto* const radial = std::get_if<DrawingRadialGradient>(&brush))
        (context.*setShading)(shadingOf(*radial));
}

bool isPainted(const DrawingBrush& brush) { return !std::holds_alternative<std::monostate>(brush); }

void fill(const DrawingPaint& paint, const CGPath& path, CGFloat opacity, CGContext& context) {
    if (!isPainted(paint.fill))
        return;
    setBrush(context, paint.fill, &CGContext::setFillColor, &CGContext::setFillShading);
    context.setAlpha(paint.fillOpacity * opacity);
    context.addPath(path);
    context.fillPath(paint.fillRule);
}

CGLineCap lineCapOf(DrawingLineCap cap) {
    return cap == DrawingLineCap::round    ? CGLineCap::round
           : cap == DrawingLineCap::square ? CGLineCap::square
                                           : CGLineCap::butt;
}

CGLineJoin lineJoinOf(DrawingLineJoin join) {
    return join == DrawingLineJoin::round   ? CGLineJoin::round
           : join == DrawingLineJoin::bevel ? CGLineJoin::bevel
                                            : CGLineJoin::miter;
}

void stroke(const DrawingPaint& paint, const CGPath& path, CGFloat opacity, CGContext& context) {
    if (!isPainted(paint.stroke))
        return;
    setBrush(context, paint.stroke, &CGContext::setStrokeColor, &CGContext::setStrokeShading);
    context.setAlpha(paint.strokeOpacity * opacity);
    context.setLineWidth(paint.strokeWidth);
    context.setLineCap(lineCapOf(paint.lineCap));
    context.setLineJoin(lineJoinOf(paint.lineJoin));
    context.setMiterLimit(paint.miterLimit);
    context.setLineDash(paint.dashOffset, paint.dashes);
    context.addPath(path);
    context.strokePath();
}

void paintShape(const DrawingPaint& paint, const CGPath& path, CGFloat opacity,
                CGContext& context) {
    const auto first = paint.isStrokeFirst ? stroke : fill;
    const auto second = paint.isStrokeFirst ? fill : stroke;
    first(paint, path, opacity, context);
    second(paint, path, opacity, context);
}

}  // namespace

void render(const Drawing& drawing, CGContext& context) {
    for (const DrawingShape& shape : drawing.shapes) {
        const DrawingPaint& paint = shape.paint;
        const std::shared_ptr<const CGPath> path = pathOf(*shape.outline);
        // A layer costs a bitmap; without one, the fill would show through the stroke over it.
        const bool needsLayer =
            paint.opacity < 1 && isPainted(paint.fill) && isPainted(paint.stroke);
        context.saveGState();
        for (const DrawingClip& clip : shape.clips) {
            context.addPath(*pathOf(*clip.outline));
            context.clip(clip.rule);
        }
        if (needsLayer)
            context.beginTransparencyLayer(paint.opacity);
        paintShape(paint, *path, needsLayer ? 1 : paint.opacity, context);
        if (needsLayer)
            context.endTransparencyLayer();
        context.restoreGState();
    }
}

}  // namespace quorin
