#include "quorin/platform/drawing/cairo/CairoImage.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "quorin/platform/drawing/cairo/LinearShape.h"
#include "quorin/platform/values/CGRect.h"

namespace quorin {
namespace {

// A pixel of the surface is a number of 32 bits in the machine's order, alpha in the highest ones.
std::uint32_t packed(const std::uint8_t* rgba) {
    return std::uint32_t{rgba[3]} << 24 | std::uint32_t{rgba[0]} << 16 |
           std::uint32_t{rgba[1]} << 8 | rgba[2];
}
void unpack(std::uint32_t pixel, std::uint8_t* rgba) {
    rgba[0] = static_cast<std::uint8_t>(pixel >> 16);
    rgba[1] = static_cast<std::uint8_t>(pixel >> 8);
    rgba[2] = static_cast<std::uint8_t>(pixel);
    rgba[3] = static_cast<std::uint8_t>(pixel >> 24);
}

/// Calls `body` with the surface's bytes and ours, pixel by pixel.
template <typename Byte, typename Body>
void forEachPixel(cairo_surface_t* surface, Byte* rgba, const Body& body) {
    const int width = cairo_image_surface_get_width(surface);
    const int height = cairo_image_surface_get_height(surface);
    const int stride = cairo_image_surface_get_stride(surface);
    unsigned char* row = cairo_image_surface_get_data(surface);
    for (int y = 0; y < height; ++y, row += stride)
        for (int x = 0; x < width; ++x, rgba += 4)
            body(row + std::ptrdiff_t{4} * x, rgba);
}

}  // namespace

void requireSuccess(cairo_status_t status) {
    if (status == CAIRO_STATUS_NO_MEMORY)
        throw std::bad_alloc();
    if (status != CAIRO_STATUS_SUCCESS)
        throw ImageError(std::string("drawing failed: ") + cairo_status_to_string(status));
}

CairoSurface makeCairoSurface(std::size_t width, std::size_t height) {
    CGImage::requireSize(width, height);
    CairoSurface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, static_cast<int>(width),
                                                    static_cast<int>(height)));
    requireSuccess(cairo_surface_status(surface.get()));
    return surface;
}

CairoSurface makeCairoSurface(const CGImage& image) {
    CairoSurface surface = makeCairoSurface(image.width(), image.height());
    forEachPixel(surface.get(), image.pixels().data(),
                 [](unsigned char* native, const std::uint8_t* rgba) {
                     const std::uint32_t pixel = packed(rgba);
                     std::memcpy(native, &pixel, sizeof pixel);
                 });
    cairo_surface_mark_dirty(surface.get());
    return surface;
}

CairoPattern makeCairoPattern(const CGImage& image, const CGAffineTransform& toDevice,
                              std::size_t bitmapWidth, std::size_t bitmapHeight) {
    const CGRect whole =
        CGRectMake(0, 0, static_cast<CGFloat>(image.width()), static_cast<CGFloat>(image.height()));
    const CGRect bitmap =
        CGRectMake(0, 0, static_cast<CGFloat>(bitmapWidth), static_cast<CGFloat>(bitmapHeight));
    const std::optional<LinearShape> shape = linearShapeOf(toDevice);
    if (!shape || !CGRectIntersectsRect(CGRectApplyAffineTransform(whole, toDevice), bitmap))
        return nullptr;
    const CGAffineTransform fromDevice = CGAffineTransformInvert(toDevice);
    // Beyond this a pixel of the bitmap is larger than any image.
    constexpr CGFloat largest = CGImage::maximumSide;
    for (const CGFloat factor : {fromDevice.a, fromDevice.b, fromDevice.c, fromDevice.d})
        if (!(std::abs(factor) < largest))
            return nullptr;

    CairoPattern pattern(cairo_pattern_create_for_surface(makeCairoSurface(image).get()));
    const cairo_matrix_t matrix = cairoMatrix(fromDevice);
    cairo_pattern_set_matrix(pattern.get(), &matrix);
    // Beyond its edges the image goes on, so that the clip alone decides how they look.
    cairo_pattern_set_extend(pattern.get(), CAIRO_EXTEND_PAD);
    return pattern;
}

std::shared_ptr<const CGImage> imageOf(cairo_surface_t* surface) {
    cairo_surface_flush(surface);
    requireSuccess(cairo_surface_status(surface));
    const auto width = static_cast<std::size_t>(cairo_image_surface_get_width(surface));
    const auto height = static_cast<std::size_t>(cairo_image_surface_get_height(surface));
    std::vector<std::uint8_t> pixels(4 * width * height);
    forEachPixel(surface, pixels.data(), [](const unsigned char* native, std::uint8_t* rgba) {
        std::uint32_t pixel = 0;
        std::memcpy(&pixel, native, sizeof pixel);
        unpack(pixel, rgba);
    });
    return CGImage::create(width, height, std::move(pixels));
}

}  // namespace quorin
