#include "quorin/platform/drawing/CGImage.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

#include "quorin/platform/drawing/cairo/CairoImage.h"
#include "quorin/platform/foundation/AtomicFile.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {
namespace {

constexpr std::string_view pngSignature = "\x89PNG\r\n\x1A\n";

std::size_t bigEndian(std::string_view bytes) {
    std::size_t value = 0;
    for (const char byte : bytes)
        value = value << 8 | static_cast<unsigned char>(byte);
    return value;
}

/// Before anything is unpacked: a small file can hold a picture of any size.
void requireReadableSize(std::string_view png, const std::string& name) {
    constexpr std::size_t sizeAt = 16;  // signature, length and name of the header chunk
    if (!png.starts_with(pngSignature))
        throw FileError(name, "not a PNG image");
    if (png.size() < sizeAt + 8)
        throw FileError(name, "the PNG image ends early");
    try {
        CGImage::requireSize(bigEndian(png.substr(sizeAt, 4)),
                             bigEndian(png.substr(sizeAt + 4, 4)));
    } catch (const ImageError& error) {
        throw FileError(name, error.what());
    }
}

cairo_status_t readFrom(void* closure, unsigned char* target, unsigned int count) {
    auto& rest = *static_cast<std::string_view*>(closure);
    if (rest.size() < count)
        return CAIRO_STATUS_READ_ERROR;
    std::memcpy(target, rest.data(), count);
    rest.remove_prefix(count);
    return CAIRO_STATUS_SUCCESS;
}

cairo_status_t appendTo(void* closure, const unsigned char* bytes, unsigned int count) noexcept {
    try {
        static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(bytes), count);
    } catch (const std::bad_alloc&) {
        return CAIRO_STATUS_NO_MEMORY;
    }
    return CAIRO_STATUS_SUCCESS;
}

}  // namespace

void CGImage::requireSize(std::size_t width, std::size_t height) {
    const auto fail = [&](const std::string& rule) {
        throw ImageError("an image of " + std::to_string(width) + " x " + std::to_string(height) +
                         " pixels: " + rule);
    };
    const auto [shorter, longer] = std::minmax(width, height);
    if (shorter == 0 || longer > maximumSide)
        fail("a side has to be from 1 to " + std::to_string(maximumSide));
    if (width * height > maximumPixelCount)
        fail("there may be " + std::to_string(maximumPixelCount) + " at most");
}

CGImage::CGImage(Token, std::size_t width, std::size_t height, std::vector<std::uint8_t> pixels)
    : _width(width), _height(height), _pixels(std::move(pixels)) {}

std::shared_ptr<const CGImage> CGImage::create(std::size_t width, std::size_t height,
                                               std::vector<std::uint8_t> pixels) {
    requireSize(width, height);
    if (pixels.size() != 4 * width * height)
        fatalError(std::to_string(pixels.size()) + " bytes for " + std::to_string(width) + " x " +
                   std::to_string(height) + " pixels");
    return std::make_shared<const CGImage>(Token{}, width, height, std::move(pixels));
}

std::shared_ptr<const CGImage> CGImage::readPNG(const std::string& path) {
    return decodePNG(readFile(path), path);
}

std::shared_ptr<const CGImage> CGImage::decodePNG(std::string_view bytes, const std::string& name) {
    requireReadableSize(bytes, name);
    const CairoSurface decoded(cairo_image_surface_create_from_png_stream(readFrom, &bytes));
    const cairo_status_t status = cairo_surface_status(decoded.get());
    if (status == CAIRO_STATUS_READ_ERROR)
        throw FileError(name, "the PNG image ends early");
    if (status != CAIRO_STATUS_SUCCESS)
        throw FileError(name, "damaged PNG image");

    // What is read may have no alpha, or more bits than we keep.
    const CairoSurface surface =
        makeCairoSurface(static_cast<std::size_t>(cairo_image_surface_get_width(decoded.get())),
                         static_cast<std::size_t>(cairo_image_surface_get_height(decoded.get())));
    const CairoContext painter(cairo_create(surface.get()));
    cairo_set_operator(painter.get(), CAIRO_OPERATOR_SOURCE);
    cairo_set_source_surface(painter.get(), decoded.get(), 0, 0);
    cairo_paint(painter.get());
    requireSuccess(cairo_status(painter.get()));
    return imageOf(surface.get());
}

CGImage::Pixel CGImage::pixelAt(std::size_t x, std::size_t y) const {
    if (x >= _width || y >= _height)
        fatalError("pixel (" + std::to_string(x) + ", " + std::to_string(y) + ") of " +
                   std::to_string(_width) + " x " + std::to_string(_height));
    const std::size_t at = 4 * (y * _width + x);
    return {_pixels[at], _pixels[at + 1], _pixels[at + 2], _pixels[at + 3]};
}

std::string CGImage::encodePNG() const {
    std::string bytes;
    requireSuccess(
        cairo_surface_write_to_png_stream(makeCairoSurface(*this).get(), appendTo, &bytes));
    return bytes;
}

void CGImage::writePNG(const std::string& path) const { writeFileAtomically(path, encodePNG()); }

}  // namespace quorin
