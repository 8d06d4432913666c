#include "apps/quorin/PictureOptions.h"

#include <algorithm>
#include <cmath>

#include "apps/quorin/DrawingFile.h"
#include "apps/quorin/DrawingPicture.h"
#include "apps/quorin/ParsedOption.h"
#include "apps/quorin/TextTable.h"

namespace quorin::app {

namespace {

PixelSize ownSize(const Drawing& drawing, const std::string& file) {
    const CGSize size = drawing.size;
    if (std::max(size.width, size.height) > static_cast<CGFloat>(CGImage::maximumSide))
        throw InputError(file, "the drawing is " + shortText(size.width) + " by " +
                                   shortText(size.height) + ", so a --size has to be chosen");
    return {static_cast<std::size_t>(std::ceil(size.width)),
            static_cast<std::size_t>(std::ceil(size.height))};
}

/// The asked size; of one that leaves a side open, that in the drawing's proportions.
PixelSize pictureSize(const Drawing& drawing, const std::string& file,
                      const PictureOptions& options) {
    requireArea(drawing, file);
    if (!options.size)
        return ownSize(drawing, file);
    if (options.size->height != 0)
        return *options.size;
    const auto longer = static_cast<CGFloat>(options.size->width);
    const CGFloat scale = longer / std::max(drawing.size.width, drawing.size.height);
    const auto side = [&](CGFloat length) {
        return static_cast<std::size_t>(std::clamp(std::round(length * scale), 1.0, longer));
    };
    return {side(drawing.size.width), side(drawing.size.height)};
}

/// Anchors at the edge of a drawing need room; a small picture has none to give.
CGFloat marginFor(CGFloat shorterSide, CGFloat lineWidth) {
    return shorterSide >= 64 ? 4 * lineWidth : 0;
}

std::shared_ptr<const CGImage> paintedPicture(const Drawing& drawing, const PixelSize& size,
                                              const PictureOptions& options) {
    const std::shared_ptr<CGContext> context = CGContext::createBitmap(size.width, size.height);
    const CGRect all =
        CGRectMake(0, 0, static_cast<CGFloat>(size.width), static_cast<CGFloat>(size.height));
    if (options.background) {
        context->setFillColor(platformColor(*options.background));
        context->fillRect(all);
    }
    if (!options.showsAnchors) {
        paint(drawing, *context, all);
        return context->makeImage();
    }
    const CGFloat shorterSide = std::min(all.size.width, all.size.height);
    const CGFloat lineWidth = std::max(1.0, std::round(shorterSide / 1280));
    const CGFloat margin = marginFor(shorterSide, lineWidth);
    const CGRect inner = CGRectInset(all, margin, margin);
    paint(drawing, *context, inner);
    paintAnchors(drawing, *context, inner, lineWidth);
    return context->makeImage();
}

}  // namespace

void addPictureOptions(CLI::App& command, PictureOptions& options) {
    addParsedOption(command, "--size", "N|WxH", options.size, pixelSizeOf,
                    "Pixels: the longer side, or both [the drawing's]");
    addParsedOption(command, "--background", "COLOUR", options.background, colorOf,
                    "A colour as in CSS, or none [none]");
    command.add_flag("--anchors", options.showsAnchors,
                     "Show outlines, anchors and handles over the drawing");
}

std::shared_ptr<const CGImage> pictureOf(const Drawing& drawing, const std::string& file,
                                         const std::string& output, const PictureOptions& options) {
    const PixelSize size = pictureSize(drawing, file, options);
    try {
        return paintedPicture(drawing, size, options);
    } catch (const ImageError& error) {
        throw InputError(output, error.what());
    }
}

}  // namespace quorin::app
