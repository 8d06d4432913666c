#pragma once

#include <optional>
#include <string_view>

#include "quorin/platform/values/CGAffineTransform.h"
#include "quorin/platform/values/CGRect.h"

namespace quorin {

/// How a view box is fitted into a viewport of other proportions.
struct SvgAspectRatio {
    bool isPreserved = true;
    bool isSlice = false;                ///< fill the viewport rather than show the whole box
    CGFloat alignX = 0.5, alignY = 0.5;  ///< where the box goes in what it leaves: 0, 0.5 or 1
};

/// Four numbers, the sizes greater than zero; nothing for anything else.
std::optional<CGRect> parseSvgViewBox(std::string_view text);
/// "none", or an alignment like "xMinYMid" and "meet" or "slice" behind it.
std::optional<SvgAspectRatio> parseSvgAspectRatio(std::string_view text);

/// The part of the view box's plane that a viewport of that size shows. The view box itself, to
/// the bit, when its proportions are those of the viewport.
CGRect shownRect(const CGRect& viewBox, CGSize viewport, const SvgAspectRatio& aspectRatio);
/// What takes the one rect to the other.
CGAffineTransform transformBetween(const CGRect& from, const CGRect& to);

}  // namespace quorin
