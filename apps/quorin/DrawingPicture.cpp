#include "apps/quorin/DrawingPicture.h"

#include <algorithm>

#include "apps/quorin/AnchorMarks.h"
#include "quorin/svg/DrawingRenderer.h"

namespace quorin::app {

namespace {

/// Where the drawing comes to lie within `into`: in the middle, aspect kept.
CGRect fittedRect(const Drawing& drawing, const CGRect& into) {
    const CGFloat scale =
        std::min(into.size.width / drawing.size.width, into.size.height / drawing.size.height);
    const CGSize size = {drawing.size.width * scale, drawing.size.height * scale};
    return {{CGRectGetMidX(into) - size.width / 2, CGRectGetMidY(into) - size.height / 2}, size};
}

/// From the drawing's plane to the rect.
CGAffineTransform transformInto(const CGRect& rect, const Drawing& drawing) {
    const CGRect& box = drawing.viewBox;
    const CGFloat scaleX = rect.size.width / box.size.width;
    const CGFloat scaleY = rect.size.height / box.size.height;
    return {scaleX,
            0,
            0,
            scaleY,
            rect.origin.x - box.origin.x * scaleX,
            rect.origin.y - box.origin.y * scaleY};
}

}  // namespace

void paint(const Drawing& drawing, CGContext& context, const CGRect& into) {
    const CGRect rect = fittedRect(drawing, into);
    context.saveGState();
    context.clipToRect(rect);
    context.concatCTM(transformInto(rect, drawing));
    render(drawing, context);
    context.restoreGState();
}

void paintAnchors(const Drawing& drawing, CGContext& context, const CGRect& into,
                  CGFloat lineWidth) {
    AnchorMarks marks(transformInto(fittedRect(drawing, into), drawing), lineWidth);
    for (const DrawingShape& shape : drawing.shapes)
        for (const auto& path : shape.outline->children())
            marks.add(*path);
    marks.paint(context);
}

CGColor platformColor(const DrawingColor& color) {
    return {color.red, color.green, color.blue, color.alpha};
}

}  // namespace quorin::app
