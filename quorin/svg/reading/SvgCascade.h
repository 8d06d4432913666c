#pragma once

#include <cstddef>
#include <pugixml.hpp>
#include <unordered_map>

#include "quorin/svg/reading/SvgDocument.h"
#include "quorin/svg/reading/SvgStyle.h"
#include "quorin/svg/reading/SvgStyleSheet.h"

namespace quorin {

/// Finds the style of elements: presentation attributes, over them the rules of the document's
/// style sheets, over them the element's own `style`, and important declarations over all.
class SvgCascade {
public:
    /// Reads the document's style sheets.
    explicit SvgCascade(SvgDocument& document);

    SvgStyle styleOf(pugi::xml_node node, const SvgStyle& parent);
    /// The property `color` of an element where it stands, whether it is drawn there or not.
    DrawingColor colorOf(pugi::xml_node node);

private:
    void applyAttributes(pugi::xml_node node, SvgStyle& style, const SvgStyle& parent);
    void apply(std::string_view property, std::string_view value, std::size_t offset,
               SvgStyle& style, const SvgStyle& parent);

    SvgDocument& document;
    SvgStyleSheet sheet;
    std::unordered_map<std::size_t, DrawingColor> colors;  // by the node's hash value
};

}  // namespace quorin
