#pragma once

#include <memory>
#include <optional>
#include <pugixml.hpp>
#include <string_view>
#include <vector>

#include "quorin/svg/Drawing.h"
#include "quorin/svg/reading/SvgCascade.h"
#include "quorin/svg/reading/SvgDocument.h"
#include "quorin/svg/reading/SvgPainter.h"
#include "quorin/svg/reading/SvgShapes.h"

namespace quorin {

/// Reads what elements are clipped to. The shapes in a `clipPath` are taken as one outline.
class SvgClips {
public:
    /// Every child of a clip that is read is spent from `elementBudget`.
    SvgClips(SvgDocument& svgDocument, SvgCascade& svgCascade, SvgShapes& svgShapes,
             SvgBudget& elementBudget)
        : document(svgDocument), cascade(svgCascade), shapes(svgShapes), budget(elementBudget) {}

    /// Adds the clips that the style of `node` asks for to those of the context. False when nothing
    /// can be seen through them.
    bool apply(pugi::xml_node node, SvgContext& context);

private:
    std::vector<pugi::xml_node> chain(pugi::xml_node node, const SvgStyle& style);
    std::optional<CGAffineTransform> unitsOf(pugi::xml_node clip, pugi::xml_node node,
                                             const SvgContext& context);
    std::optional<DrawingClip> read(pugi::xml_node clip, const SvgContext& context,
                                    const CGAffineTransform& units);
    /// What an element in a clip draws, itself or through a `use`; empty when that is nothing.
    std::shared_ptr<const CGPath> outlineOf(pugi::xml_node child, const SvgStyle& parent,
                                            CGSize viewport, CGPathFillRule& rule);

    SvgDocument& document;
    SvgCascade& cascade;
    SvgShapes& shapes;
    SvgBudget& budget;
};

}  // namespace quorin
