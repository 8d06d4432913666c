#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "quorin/platform/drawing/NSImage.h"
#include "quorin/platform/values/CGColor.h"

namespace quorin {

/// The named image tinted with a colour, as a template image: every pixel gets the colour, and the
/// image's alpha times the colour's. Null when `NSImage::named` finds none.
std::shared_ptr<const NSImage> createTemplateImage(
    std::string_view named, const CGColor& with,
    const std::string& folder = NSImage::defaultFolder());

/// The pixels of `image` with their colours replaced in that way.
std::shared_ptr<const CGImage> tinted(const CGImage& image, const CGColor& color);

}  // namespace quorin
