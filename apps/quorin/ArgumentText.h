#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "quorin/platform/values/CGAffineTransform.h"
#include "quorin/platform/values/CGGeometry.h"
#include "quorin/svg/Drawing.h"

/// Texts of the command line as values. A text that is none throws `CLI::ValidationError`, so the
/// command line as a whole cannot be used; `option` is named in the message.
namespace quorin::app {

/// A finite number, as the C locale writes it, whatever the user's is.
CGFloat numberOf(std::string_view option, std::string_view text);
/// A number above 0.
CGFloat positiveOf(std::string_view option, std::string_view text);
/// A number of at least 0.
CGFloat lengthOf(std::string_view option, std::string_view text);
/// From 0 to 1.
CGFloat fractionOf(std::string_view option, std::string_view text);
/// The damping ratio of a spring that swings or just does not, above 0 and at most 1.
CGFloat swingingRatioOf(std::string_view option, std::string_view text);
/// 0 or at least 1: what is less than a unit of a corner's radius does not count.
CGFloat cornerRadiusOf(std::string_view option, std::string_view text);
/// "X,Y"
CGPoint pointOf(std::string_view option, std::string_view text);
/// "WxH", or "S" for both, above 0.
CGSize extentOf(std::string_view option, std::string_view text);
/// "S" for both directions or "SX,SY", neither of them 0.
CGSize scaleOf(std::string_view option, std::string_view text);
/// "A,B,C,D,TX,TY", with an inverse.
CGAffineTransform matrixOf(std::string_view option, std::string_view text);
/// A whole number from `least` to `most`.
std::size_t countOf(std::string_view option, std::string_view text, std::size_t least,
                    std::size_t most);
/// A colour as CSS writes it; nothing for "none".
std::optional<DrawingColor> colorOf(std::string_view option, std::string_view text);

/// Of a picture, in pixels.
struct PixelSize {
    std::size_t width = 0, height = 0;
};
/// "WxH", or "N" for the longer side, which leaves the other one 0.
PixelSize pixelSizeOf(std::string_view option, std::string_view text);

}  // namespace quorin::app
