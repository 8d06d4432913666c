#include "quorin/platform/drawing/RoundedRect.h"

#include <cstddef>
#include <cstdint>
#include <new>
#include <string>

#include "quorin/platform/values/FatalError.h"
#include "quorin/platform/values/TextForm.h"

namespace quorin {
namespace {

std::int64_t wholePixels(CGFloat side) {
    if (!(side >= -0x1p63 && side < 0x1p63))
        fatalError(std::string("an image side of ").append(textForm(side)).append(" pixels"));
    return static_cast<std::int64_t>(side);
}

}  // namespace

void addRoundedRectToPath(const CGRect& rect, CGContext& context, CGFloat ovalWidth,
                          CGFloat ovalHeight) {
    if (ovalWidth == 0 || ovalHeight == 0)
        return context.addRect(rect);

    context.saveGState();
    context.translateBy(CGRectGetMinX(rect), CGRectGetMinY(rect));
    context.scaleBy(ovalWidth, ovalHeight);
    const CGFloat width = CGRectGetWidth(rect) / ovalWidth;
    const CGFloat height = CGRectGetHeight(rect) / ovalHeight;
    context.moveTo({width, height / 2});
    context.addArcToPoint({width, height}, {width / 2, height}, 1);
    context.addArcToPoint({0, height}, {0, height / 2}, 1);
    context.addArcToPoint({0, 0}, {width / 2, 0}, 1);
    context.addArcToPoint({width, 0}, {width, height / 2}, 1);
    context.closePath();
    context.restoreGState();
}

std::shared_ptr<const CGImage> roundedCornerImage(const std::shared_ptr<const CGImage>& image,
                                                  CGSize size, CGFloat cornerSize,
                                                  CGFloat borderSize) {
    const std::int64_t width = wholePixels(size.width);
    const std::int64_t height = wholePixels(size.height);
    if (width <= 0 || height <= 0)
        return image;
    try {
        const auto context = CGContext::createBitmap(static_cast<std::size_t>(width),
                                                     static_cast<std::size_t>(height));
        context->beginPath();
        addRoundedRectToPath(CGRectMake(borderSize, borderSize, size.width - 2 * borderSize,
                                        size.height - 2 * borderSize),
                             *context, cornerSize, cornerSize);
        context->closePath();
        context->clip(CGPathFillRule::winding);
        context->drawImage(*image, CGRectMake(0, 0, size.width, size.height));
        return context->makeImage();
    } catch (const ImageError&) {
        return image;
    } catch (const std::bad_alloc&) {
        return image;
    }
}

}  // namespace quorin
