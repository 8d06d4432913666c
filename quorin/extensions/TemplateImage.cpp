#include "quorin/extensions/TemplateImage.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <utility>
#include <vector>

namespace quorin {
namespace {

/// The nearest component within 0 and 1; 0 for NaN.
double within01(double component) { return component > 0 ? std::min(component, 1.0) : 0; }

}  // namespace

std::shared_ptr<const NSImage> createTemplateImage(std::string_view named, const CGColor& with,
                                                   const std::string& folder) {
    const std::shared_ptr<const NSImage> image = NSImage::named(named, folder);
    if (!image)
        return nullptr;
    return std::make_shared<const NSImage>(tinted(*image->cgImage(), with), true);
}

std::shared_ptr<const CGImage> tinted(const CGImage& image, const CGColor& color) {
    const double alpha = within01(color.alpha);
    // An image has only 256 alphas, and each makes one pixel.
    std::array<CGImage::Pixel, 256> pixels{};
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        const double covered = static_cast<double>(i) * alpha;
        const auto byte = [&](double part) {
            return static_cast<std::uint8_t>(std::round(covered * part));
        };
        pixels[i] = {byte(within01(color.red)), byte(within01(color.green)),
                     byte(within01(color.blue)), byte(1)};
    }

    std::vector<std::uint8_t> bytes(image.pixels().begin(), image.pixels().end());
    for (std::size_t at = 0; at < bytes.size(); at += 4) {
        const CGImage::Pixel& pixel = pixels[bytes[at + 3]];
        std::copy(pixel.begin(), pixel.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at));
    }
    return CGImage::create(image.width(), image.height(), std::move(bytes));
}

}  // namespace quorin
