#pragma once

#include <cstddef>
#include <memory>

#include "quorin/platform/drawing/CGImage.h"
#include "quorin/platform/drawing/cairo/CairoHandles.h"

namespace quorin {

/// A transparent surface of premultiplied colours. Throws `ImageError` for a size that `CGImage`
/// does not take.
CairoSurface makeCairoSurface(std::size_t width, std::size_t height);

/// A surface with the pixels of the image.
CairoSurface makeCairoSurface(const CGImage& image);

/// An image with the pixels of a surface made by `makeCairoSurface`.
std::shared_ptr<const CGImage> imageOf(cairo_surface_t* surface);

/// What paints the image on a bitmap of this size, `toDevice` leading from the image's pixels to
/// the bitmap's. Nothing when no pixel of the bitmap would change.
CairoPattern makeCairoPattern(const CGImage& image, const CGAffineTransform& toDevice,
                              std::size_t bitmapWidth, std::size_t bitmapHeight);

/// Throws `std::bad_alloc` when there was no memory, otherwise `ImageError` unless all is well.
void requireSuccess(cairo_status_t status);

}  // namespace quorin
