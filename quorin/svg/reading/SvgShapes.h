#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <pugixml.hpp>
#include <string_view>

#include "quorin/platform/cgpath/CGPath.h"
#include "quorin/svg/reading/SvgBudget.h"
#include "quorin/svg/reading/SvgDocument.h"
#include "quorin/svg/reading/SvgLength.h"

namespace quorin {

/// Reads lengths from attributes, with a warning where there is none to be read.
class SvgLengthReader {
public:
    SvgLengthReader(SvgDocument& svgDocument, pugi::xml_node element, CGSize viewportSize)
        : document(svgDocument), node(element), viewport(viewportSize) {}

    /// In user units; nothing when the attribute is missing, "auto" or not a length.
    std::optional<CGFloat> length(const char* name, SvgAxis axis) const;
    CGFloat lengthOr(CGFloat fallback, const char* name, SvgAxis axis) const {
        return length(name, axis).value_or(fallback);
    }
    /// Nothing, with a warning, when it is negative too.
    std::optional<CGFloat> size(const char* name, SvgAxis axis) const;

private:
    SvgDocument& document;
    pugi::xml_node node;
    CGSize viewport;
};

/// Reads what the basic shapes and `path` draw, in the coordinates of the element.
class SvgShapes {
public:
    /// Path commands and points are spent from `commandBudget`.
    SvgShapes(SvgDocument& svgDocument, SvgBudget& commandBudget)
        : document(svgDocument), commands(commandBudget) {}

    /// Whether elements of that name are shapes.
    static bool isShape(std::string_view name);
    /// Every contour begins with a move; empty when nothing is drawn. Throws `SvgError` when the
    /// commands of all paths together are too many.
    std::shared_ptr<const CGPath> outline(pugi::xml_node node, CGSize viewport);

private:
    using Reader = std::shared_ptr<const CGPath> (SvgShapes::*)(pugi::xml_node, CGSize);

    static Reader readerOf(std::string_view name);
    std::shared_ptr<const CGPath> circle(pugi::xml_node node, CGSize viewport);
    std::shared_ptr<const CGPath> ellipse(pugi::xml_node node, CGSize viewport);
    std::shared_ptr<const CGPath> line(pugi::xml_node node, CGSize viewport);
    std::shared_ptr<const CGPath> path(pugi::xml_node node, CGSize viewport);
    std::shared_ptr<const CGPath> polygon(pugi::xml_node node, CGSize viewport);
    std::shared_ptr<const CGPath> polyline(pugi::xml_node node, CGSize viewport);
    std::shared_ptr<const CGPath> rect(pugi::xml_node node, CGSize viewport);
    std::shared_ptr<const CGPath> points(pugi::xml_node node, bool isClosed);

    SvgDocument& document;
    SvgBudget& commands;
};

}  // namespace quorin
