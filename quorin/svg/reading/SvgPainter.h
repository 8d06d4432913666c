#pragma once

#include <pugixml.hpp>
#include <vector>

#include "quorin/svg/Drawing.h"
#include "quorin/svg/reading/SvgBudget.h"
#include "quorin/svg/reading/SvgCascade.h"
#include "quorin/svg/reading/SvgDocument.h"
#include "quorin/svg/reading/SvgGradients.h"
#include "quorin/svg/reading/SvgStyle.h"

namespace quorin {

/// What an element and its ancestors say about how it is drawn.
struct SvgContext {
    SvgStyle style;
    CGAffineTransform transform;  ///< from the element's coordinates to the drawing's
    CGFloat opacity = 1;          ///< that of the element and of all groups around it
    CGSize viewport;
    std::vector<DrawingClip> clips;  ///< in the drawing's coordinates
};

/// Turns the style of a shape into paint in the drawing's units.
class SvgPainter {
public:
    /// Every stop of a gradient that a shape takes over is spent from `budget`.
    SvgPainter(SvgDocument& svgDocument, SvgCascade& cascade, SvgBudget& elementBudget)
        : document(svgDocument), gradients(svgDocument, cascade), budget(elementBudget) {}

    /// `path` is the outline in the element's coordinates.
    DrawingPaint paint(pugi::xml_node node, const SvgContext& context, const CGPath& path);

private:
    DrawingBrush brush(pugi::xml_node node, const SvgPaintValue& value, const SvgContext& context,
                       const CGPath& path);
    void paintStroke(pugi::xml_node node, const SvgContext& context, DrawingPaint& paint);

    SvgDocument& document;
    SvgGradients gradients;
    SvgBudget& budget;
};

}  // namespace quorin
