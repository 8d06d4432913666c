#include "quorin/svg/reading/SvgClips.h"

#include <algorithm>
#include <string>

#include "quorin/platform/cgpath/CGMutablePath.h"
#include "quorin/svg/reading/SvgOutline.h"
#include "quorin/svg/reading/SvgScanner.h"

namespace quorin {
namespace {

/// Of clips that are clipped themselves.
constexpr std::size_t longestChain = 100;

}  // namespace

bool SvgClips::apply(pugi::xml_node node, SvgContext& context) {
    const std::vector<pugi::xml_node> nodes = chain(node, context.style);
    for (std::size_t i = nodes.size(); i-- > 0;) {
        const std::optional<CGAffineTransform> units = unitsOf(nodes[i], node, context);
        if (!units)
            continue;
        std::optional<DrawingClip> clip = read(nodes[i], context, *units);
        if (!clip)
            return false;
        context.clips.push_back(std::move(*clip));
    }
    return true;
}

std::vector<pugi::xml_node> SvgClips::chain(pugi::xml_node node, const SvgStyle& style) {
    std::vector<pugi::xml_node> nodes;
    std::string id = style.clip;
    while (!id.empty()) {
        const pugi::xml_node next = document.elementWithId(id);
        if (document.name(next) != "clipPath") {
            document.messages().warn(document.offset(node),
                                     "clip-path: there is no clipPath '" + id + "'");
            break;
        }
        if (nodes.size() == longestChain ||
            std::find(nodes.begin(), nodes.end(), next) != nodes.end()) {
            document.messages().warn(document.offset(next), "clip-path: it refers to itself");
            break;
        }
        nodes.push_back(next);
        id = cascade.styleOf(next, {}).clip;
        node = next;
    }
    return nodes;
}

/// From the coordinates of the clip's shapes to the element's.
std::optional<CGAffineTransform> SvgClips::unitsOf(pugi::xml_node clip, pugi::xml_node node,
                                                   const SvgContext& context) {
    const SvgValue units = document.attribute(clip, "clipPathUnits");
    if (trimmedSvgSpace(units.text) != "objectBoundingBox")
        return CGAffineTransform::identity;
    if (!SvgShapes::isShape(document.name(node))) {
        document.messages().warn(document.offset(node),
                                 "clip-path: it is left out, being in parts of a group's box");
        return std::nullopt;
    }
    const std::shared_ptr<const CGPath> path = shapes.outline(node, context.viewport);
    const CGRect box = path->pathBoundingBox();
    return CGAffineTransform{box.size.width, 0, 0, box.size.height, box.origin.x, box.origin.y};
}

std::optional<DrawingClip> SvgClips::read(pugi::xml_node clip, const SvgContext& context,
                                          const CGAffineTransform& units) {
    const SvgStyle style = cascade.styleOf(clip, {});
    CGMutablePath whole;
    DrawingClip result;
    for (const pugi::xml_node child : clip.children()) {
        budget.spend(1, document.offset(child));
        CGPathFillRule rule = CGPathFillRule::winding;
        const std::shared_ptr<const CGPath> path = outlineOf(child, style, context.viewport, rule);
        // Shapes of different rules have no outline in common, but nobody draws them.
        if (whole.isEmpty())
            result.rule = rule;
        whole.addPath(*path);
    }
    const CGAffineTransform toElement = CGAffineTransformConcat(style.transform, units);
    result.outline =
        editableOutline(*whole.take(), CGAffineTransformConcat(toElement, context.transform));
    return result.outline ? std::optional<DrawingClip>(std::move(result)) : std::nullopt;
}

std::shared_ptr<const CGPath> SvgClips::outlineOf(pugi::xml_node child, const SvgStyle& parent,
                                                  CGSize viewport, CGPathFillRule& rule) {
    SvgStyle style = cascade.styleOf(child, parent);
    CGAffineTransform transform = style.transform;
    pugi::xml_node shape = child;
    if (document.name(child) == "use") {
        const SvgLengthReader lengths(document, child, viewport);
        const CGAffineTransform shift =
            CGAffineTransformMakeTranslation(lengths.lengthOr(0, "x", SvgAxis::horizontal),
                                             lengths.lengthOr(0, "y", SvgAxis::vertical));
        shape = document.elementWithId(document.reference(child).text);
        style = cascade.styleOf(shape, style);
        transform =
            CGAffineTransformConcat(CGAffineTransformConcat(style.transform, shift), transform);
    }
    CGMutablePath path;
    rule = style.clipRule;
    if (style.isDisplayed && style.isVisible && SvgShapes::isShape(document.name(shape)))
        path.addPath(*shapes.outline(shape, viewport), transform);
    return path.take();
}

}  // namespace quorin
