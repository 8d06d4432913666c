#include "quorin/svg/reading/SvgGradients.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "quorin/geometry/Finiteness.h"
#include "quorin/geometry/PointArithmetic.h"
#include "quorin/svg/reading/SvgScanner.h"
#include "quorin/svg/reading/SvgTransform.h"

namespace quorin {
namespace {

/// Of gradients that take over from each other; drawing programs make two or three.
constexpr std::size_t longestChain = 100;

bool isGradient(std::string_view name) {
    return name == "linearGradient" || name == "radialGradient";
}

bool isFinite(const CGAffineTransform& t) {
    return std::isfinite(t.a + t.b + t.c + t.d) && std::isfinite(t.tx + t.ty);
}

}  // namespace

const SvgGradient* SvgGradients::gradient(pugi::xml_node node) {
    if (!isGradient(document.name(node)))
        return nullptr;
    const auto known = gradients.find(node.hash_value());
    if (known != gradients.end())
        return &known->second;
    return &gradients.emplace(node.hash_value(), read(node)).first->second;
}

SvgGradient SvgGradients::read(pugi::xml_node node) {
    SvgGradient gradient;
    gradient.isRadial = document.name(node) == "radialGradient";
    const std::vector<pugi::xml_node> nodes = chain(node);
    for (const pugi::xml_node link : nodes) {
        readStops(link, gradient);
        if (!gradient.stops.empty())
            break;
    }
    // From the far end, so that what is nearer overrides it.
    for (std::size_t i = nodes.size(); i-- > 0;)
        readAttributes(nodes[i], gradient);
    return gradient;
}

std::vector<pugi::xml_node> SvgGradients::chain(pugi::xml_node node) {
    std::vector<pugi::xml_node> nodes;
    while (isGradient(document.name(node))) {
        if (nodes.size() == longestChain ||
            std::find(nodes.begin(), nodes.end(), node) != nodes.end()) {
            document.messages().warn(document.offset(node), "gradient: it refers to itself");
            break;
        }
        nodes.push_back(node);
        const SvgValue next = document.reference(node);
        if (next.text.empty())
            break;
        node = document.elementWithId(next.text);
        if (!isGradient(document.name(node)))
            document.messages().warn(
                next.offset, "gradient: there is no gradient '" + std::string(next.text) + "'");
    }
    return nodes;
}

void SvgGradients::readAttributes(pugi::xml_node node, SvgGradient& gradient) {
    const auto warn = [&](const SvgValue& value, std::size_t index, const std::string& message) {
        document.messages().warn(document.offset(value, index), message);
    };
    const auto readLength = [&](const char* name, auto& length) {
        const SvgValue value = document.attribute(node, name);
        const std::optional<SvgLength> read = parseSvgLength(value.text);
        if (read)
            length = *read;
        else if (value)
            warn(value, 0, std::string(name) + ": expected a length");
    };
    readLength("x1", gradient.x1);
    readLength("y1", gradient.y1);
    readLength("x2", gradient.x2);
    readLength("y2", gradient.y2);
    readLength("cx", gradient.cx);
    readLength("cy", gradient.cy);
    readLength("r", gradient.r);
    readLength("fx", gradient.fx);
    readLength("fy", gradient.fy);
    readLength("fr", gradient.fr);

    if (const SvgValue units = document.attribute(node, "gradientUnits"))
        gradient.isInUserSpace = trimmedSvgSpace(units.text) == "userSpaceOnUse";
    if (const SvgValue spread = document.attribute(node, "spreadMethod")) {
        const std::string_view name = trimmedSvgSpace(spread.text);
        gradient.spread = name == "reflect"  ? DrawingGradientSpread::reflect
                          : name == "repeat" ? DrawingGradientSpread::repeat
                                             : DrawingGradientSpread::pad;
    }
    if (const SvgValue value = document.attribute(node, "gradientTransform")) {
        const SvgTransformResult read = parseSvgTransform(value.text);
        gradient.transform = read.transform;
        if (read.error)
            warn(value, read.errorOffset, "gradientTransform: " + *read.error);
    }
}

void SvgGradients::readStops(pugi::xml_node node, SvgGradient& gradient) {
    SvgStyle parent;
    bool isFirst = true;
    for (const pugi::xml_node stop : node.children()) {
        if (document.name(stop) != "stop")
            continue;
        if (isFirst)
            parent.color = cascade.colorOf(node);
        isFirst = false;

        const SvgStyle style = cascade.styleOf(stop, parent);
        const SvgValue value = document.attribute(stop, "offset");
        const std::optional<CGFloat> offset = parseSvgFraction(value.text);
        if (value && !offset)
            document.messages().warn(value.offset, "offset: expected a number or a percentage");
        DrawingColor color = style.stopColor.resolved(style.color);
        color.alpha *= style.stopOpacity;
        const CGFloat floor = gradient.stops.empty() ? 0 : gradient.stops.back().offset;
        gradient.stops.push_back({std::max(floor, offset.value_or(0)), color});
    }
}

DrawingBrush brushOf(const SvgGradient& gradient, const SvgGradientPlace& place) {
    if (gradient.stops.empty())
        return {};
    const DrawingColor last = gradient.stops.back().color;
    CGAffineTransform transform = gradient.transform;
    if (!gradient.isInUserSpace) {
        const CGRect& box = place.box;
        if (box.size.width <= 0 || box.size.height <= 0)
            return {};
        transform = CGAffineTransformConcat(
            transform, {box.size.width, 0, 0, box.size.height, box.origin.x, box.origin.y});
    }
    transform = CGAffineTransformConcat(transform, place.transform);
    if (!isFinite(transform) || transform.a * transform.d == transform.b * transform.c)
        return last;

    const CGSize unit = gradient.isInUserSpace ? place.viewport : CGSize{1, 1};
    const auto pointOf = [&](SvgLength x, SvgLength y) {
        return CGPoint{x.resolved(unit, SvgAxis::horizontal), y.resolved(unit, SvgAxis::vertical)};
    };
    if (!gradient.isRadial) {
        const CGPoint start = pointOf(gradient.x1, gradient.y1);
        const CGPoint end = pointOf(gradient.x2, gradient.y2);
        if (start == end || !isFinite(start) || !isFinite(end))
            return last;
        return DrawingLinearGradient{start, end, transform, gradient.spread, gradient.stops};
    }

    const CGPoint center = pointOf(gradient.cx, gradient.cy);
    const CGFloat radius = gradient.r.resolved(unit, SvgAxis::diagonal);
    if (!(radius > 0) || !std::isfinite(radius) || !isFinite(center))
        return last;
    CGPoint focus = pointOf(gradient.fx.value_or(gradient.cx), gradient.fy.value_or(gradient.cy));
    // A focus outside would make a cone; the older rule that moves it to the edge is what drawings
    // count on.
    const CGFloat reach = distance(center, focus);
    if (reach > radius)
        focus = center + (focus - center) * (radius / reach);
    const CGFloat focusRadius = std::max(0.0, gradient.fr.resolved(unit, SvgAxis::diagonal));
    if (!isFinite(focus) || !std::isfinite(focusRadius))
        return last;
    return DrawingRadialGradient{focus,     focusRadius,     center,        radius,
                                 transform, gradient.spread, gradient.stops};
}

}  // namespace quorin
