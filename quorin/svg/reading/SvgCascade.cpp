#include "quorin/svg/reading/SvgCascade.h"

#include <string>
#include <vector>

#include "quorin/svg/reading/SvgTransform.h"

namespace quorin {
namespace {

std::string shortened(std::string_view value) {
    constexpr std::size_t longest = 60;
    return std::string(value.substr(0, longest)) + (value.size() > longest ? "..." : "");
}

}  // namespace

SvgCascade::SvgCascade(SvgDocument& svgDocument) : document(svgDocument) {
    for (const SvgValue& text : document.styleSheets())
        sheet.add(text.text, [&](std::string_view selector, std::size_t index) {
            document.messages().warn(
                document.offset(text, index),
                "style: the selector '" + shortened(selector) + "' is not read");
        });
}

SvgStyle SvgCascade::styleOf(pugi::xml_node node, const SvgStyle& parent) {
    SvgStyle style = parent.inherited();
    applyAttributes(node, style, parent);

    const SvgSelectable selectable{document.name(node), document.attribute(node, "id").text,
                                   document.attribute(node, "class").text};
    const std::vector<const SvgRule*> rules = sheet.rulesFor(selectable);
    const SvgValue own = document.attribute(node, "style");
    const std::string ownText = withoutCssComments(own.text);
    for (const bool isImportant : {false, true}) {
        for (const SvgRule* rule : rules)
            for (const SvgDeclaration& declaration : rule->declarations)
                if (declaration.isImportant == isImportant)
                    apply(declaration.property, declaration.value,
                          document.offset(document.styleSheets()[rule->sheet], declaration.offset),
                          style, parent);
        forEachDeclaration(ownText, [&](const SvgDeclaration& declaration) {
            if (declaration.isImportant == isImportant)
                apply(declaration.property, declaration.value,
                      document.offset(own, declaration.offset), style, parent);
        });
    }
    return style;
}

void SvgCascade::applyAttributes(pugi::xml_node node, SvgStyle& style, const SvgStyle& parent) {
    for (const pugi::xml_attribute attribute : node.attributes()) {
        const SvgValue value = document.value(attribute);
        apply(attribute.name(), value.text, value.offset, style, parent);
    }
}

void SvgCascade::apply(std::string_view property, std::string_view value, std::size_t offset,
                       SvgStyle& style, const SvgStyle& parent) {
    if (applyProperty(style, parent, property, value) != SvgPropertyResult::unreadable)
        return;
    if (property == "transform") {
        const SvgTransformResult read = parseSvgTransform(value);
        document.messages().warn(offset + read.errorOffset, "transform: " + *read.error);
        return;
    }
    document.messages().warn(offset,
                             std::string(property) + ": cannot read '" + shortened(value) + "'");
}

DrawingColor SvgCascade::colorOf(pugi::xml_node node) {
    std::vector<pugi::xml_node> unknown;
    SvgStyle style;
    for (; node && node.type() == pugi::node_element; node = node.parent()) {
        const auto known = colors.find(node.hash_value());
        if (known != colors.end()) {
            style.color = known->second;
            break;
        }
        unknown.push_back(node);
    }
    for (; !unknown.empty(); unknown.pop_back()) {
        style = styleOf(unknown.back(), style);
        colors.emplace(unknown.back().hash_value(), style.color);
    }
    return style.color;
}

}  // namespace quorin
