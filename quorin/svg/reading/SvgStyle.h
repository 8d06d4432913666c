#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "quorin/platform/cgpath/CGPath.h"
#include "quorin/platform/values/CGAffineTransform.h"
#include "quorin/svg/Drawing.h"
#include "quorin/svg/reading/SvgLength.h"

namespace quorin {

/// A colour, or the one that the property `color` has where it is used.
struct SvgColorValue {
    DrawingColor color;
    bool isCurrent = false;

    DrawingColor resolved(const DrawingColor& current) const { return isCurrent ? current : color; }
};

/// What `fill` and `stroke` hold: nothing, a colour, or a reference to a gradient with a colour
/// or nothing to fall back on.
struct SvgPaintValue {
    std::string reference;  ///< an id; empty without reference
    bool hasColor = false;
    SvgColorValue color;
};

/// At which points of an outline markers are asked for.
struct SvgMarkers {
    bool start = false, mid = false, end = false;
};

/// The properties of an element that matter to outlines and their paint, as the cascade left
/// them. The first group passes to children.
struct SvgStyle {
    DrawingColor color;
    SvgPaintValue fill{{}, true, {}};
    SvgPaintValue stroke;
    CGFloat fillOpacity = 1;
    CGFloat strokeOpacity = 1;
    CGPathFillRule fillRule = CGPathFillRule::winding;
    CGPathFillRule clipRule = CGPathFillRule::winding;
    SvgLength strokeWidth{1, false};
    DrawingLineCap lineCap = DrawingLineCap::butt;
    DrawingLineJoin lineJoin = DrawingLineJoin::miter;
    CGFloat miterLimit = 4;
    std::vector<SvgLength> dashes;
    SvgLength dashOffset;
    bool isStrokeFirst = false;
    bool isVisible = true;
    SvgMarkers markers;

    CGAffineTransform transform;
    bool isDisplayed = true;
    bool isStrokeScaled = true;
    bool isBlended = false;
    CGFloat opacity = 1;
    std::string clip, mask, filter;  // ids, or what else was written; empty for none
    SvgColorValue stopColor;
    CGFloat stopOpacity = 1;

    /// What a child begins with: the first group from here, the rest at its initial values.
    SvgStyle inherited() const;
};

enum class SvgPropertyResult : std::uint8_t { applied, unknown, unreadable };

/// Sets what the property says. `parent` answers `inherit`. A value that cannot be read changes
/// nothing.
SvgPropertyResult applyProperty(SvgStyle& style, const SvgStyle& parent, std::string_view property,
                                std::string_view value);

/// The id inside of `url(#id)`, with or without quotes; empty when it is something else.
std::string_view parseSvgReference(std::string_view text);

}  // namespace quorin
