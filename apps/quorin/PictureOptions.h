#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <optional>
#include <string>

#include "apps/quorin/ArgumentText.h"
#include "quorin/platform/drawing/CGImage.h"
#include "quorin/svg/Drawing.h"

namespace quorin::app {

/// How a drawing is painted into a picture of its own.
struct PictureOptions {
    std::optional<PixelSize> size;
    std::optional<DrawingColor> background;
    bool showsAnchors = false;
};

void addPictureOptions(CLI::App& command, PictureOptions& options);

/// The drawing of one file as the picture for another; both are named in messages only. Throws
/// `InputError`.
std::shared_ptr<const CGImage> pictureOf(const Drawing& drawing, const std::string& file,
                                         const std::string& output, const PictureOptions& options);

}  // namespace quorin::app
