#pragma once

#include <cstddef>
#include <optional>
#include <pugixml.hpp>
#include <vector>

#include "quorin/svg/Drawing.h"
#include "quorin/svg/reading/SvgBudget.h"
#include "quorin/svg/reading/SvgCascade.h"
#include "quorin/svg/reading/SvgClips.h"
#include "quorin/svg/reading/SvgDocument.h"
#include "quorin/svg/reading/SvgPainter.h"
#include "quorin/svg/reading/SvgShapes.h"
#include "quorin/svg/reading/SvgViewBox.h"

namespace quorin {

/// Goes through the elements of a document in the order of painting and collects their shapes.
///
/// The way down is kept in a list of levels and not on the stack, so that no drawing, however
/// deep, can overflow it.
class SvgWalk {
public:
    SvgWalk(SvgDocument& svgDocument, const SvgLimits& limits);

    /// Throws `SvgError`.
    Drawing draw();

private:
    /// Children of a container that are still to come.
    struct Level {
        pugi::xml_node next;
        SvgContext context;
        bool isSingle = false;  ///< only `next` is drawn, not what stands behind it
        pugi::xml_node use;     ///< the `use` that led here
    };

    void enterRoot();
    void visit(pugi::xml_node node);
    std::optional<SvgContext> contextOf(pugi::xml_node node, const SvgContext& parent);
    void push(Level level, pugi::xml_node node);

    void enterSwitch(pugi::xml_node node, SvgContext context);
    void enterUse(pugi::xml_node use, SvgContext context);
    void enterViewport(pugi::xml_node node, SvgContext context, pugi::xml_node use);
    CGRect viewportOf(pugi::xml_node node, pugi::xml_node use, CGSize surroundings);
    bool isEntered(pugi::xml_node use) const;

    std::optional<CGRect> viewBoxOf(pugi::xml_node node);
    SvgAspectRatio aspectRatioOf(pugi::xml_node node);

    void addShape(pugi::xml_node node, const SvgContext& context);
    void warnOfEffects(pugi::xml_node node, const SvgStyle& style);

    SvgDocument& document;
    std::size_t maximumDepth;
    SvgBudget elements, commands;
    SvgCascade cascade;
    SvgPainter painter;
    SvgShapes shapes;
    SvgClips clips;
    std::vector<Level> levels;
    Drawing drawing;
};

}  // namespace quorin
