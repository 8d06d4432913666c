#include "quorin/svg/reading/SvgShapes.h"

#include <algorithm>
#include <optional>
#include <string>

#include "quorin/geometry/Scalar.h"
#include "quorin/platform/cgpath/CGMutablePath.h"
#include "quorin/svg/reading/PathData.h"
#include "quorin/svg/reading/SvgScanner.h"

namespace quorin {
namespace {

std::shared_ptr<const CGPath> nothing() { return CGMutablePath().take(); }

/// Clockwise from the rightmost point where y points down, as path data of an ellipse would.
std::shared_ptr<const CGPath> ellipseAround(CGPoint center, CGFloat radiusX, CGFloat radiusY) {
    if (radiusX == 0 || radiusY == 0)
        return nothing();
    const CGFloat left = center.x - radiusX, right = center.x + radiusX;
    const CGFloat top = center.y - radiusY, bottom = center.y + radiusY;
    const CGFloat handleX = radiusX * scalar::kappa, handleY = radiusY * scalar::kappa;
    CGMutablePath path;
    path.moveTo({right, center.y});
    path.addCurveTo({center.x, bottom}, {right, center.y + handleY}, {center.x + handleX, bottom});
    path.addCurveTo({left, center.y}, {center.x - handleX, bottom}, {left, center.y + handleY});
    path.addCurveTo({center.x, top}, {left, center.y - handleY}, {center.x - handleX, top});
    path.addCurveTo({right, center.y}, {center.x + handleX, top}, {right, center.y - handleY});
    path.closeSubpath();
    return path.take();
}

std::shared_ptr<const CGPath> roundedRect(const CGRect& rect, CGFloat radiusX, CGFloat radiusY) {
    const CGFloat left = rect.origin.x, right = left + rect.size.width;
    const CGFloat top = rect.origin.y, bottom = top + rect.size.height;
    // From the corner to the control, and so the rest of the radius that the handle leaves.
    const CGFloat restX = radiusX * (1 - scalar::kappa), restY = radiusY * (1 - scalar::kappa);
    const bool hasSides = radiusX * 2 < rect.size.width, hasEnds = radiusY * 2 < rect.size.height;

    CGMutablePath path;
    const auto lineUnlessRound = [&](bool isLine, CGPoint point) {
        if (isLine)
            path.addLineTo(point);
    };
    path.moveTo({left + radiusX, top});
    lineUnlessRound(hasSides, {right - radiusX, top});
    path.addCurveTo({right, top + radiusY}, {right - restX, top}, {right, top + restY});
    lineUnlessRound(hasEnds, {right, bottom - radiusY});
    path.addCurveTo({right - radiusX, bottom}, {right, bottom - restY}, {right - restX, bottom});
    lineUnlessRound(hasSides, {left + radiusX, bottom});
    path.addCurveTo({left, bottom - radiusY}, {left + restX, bottom}, {left, bottom - restY});
    lineUnlessRound(hasEnds, {left, top + radiusY});
    path.addCurveTo({left + radiusX, top}, {left, top + restY}, {left + restX, top});
    path.closeSubpath();
    return path.take();
}

}  // namespace

std::optional<CGFloat> SvgLengthReader::length(const char* name, SvgAxis axis) const {
    const SvgValue value = document.attribute(node, name);
    if (!value || trimmedSvgSpace(value.text) == "auto")
        return std::nullopt;
    const std::optional<SvgLength> length = parseSvgLength(value.text);
    if (!length) {
        document.messages().warn(value.offset, std::string(name) + ": expected a length");
        return std::nullopt;
    }
    return length->resolved(viewport, axis);
}

std::optional<CGFloat> SvgLengthReader::size(const char* name, SvgAxis axis) const {
    const std::optional<CGFloat> size = length(name, axis);
    if (!size || *size >= 0)
        return size;
    document.messages().warn(document.attribute(node, name).offset,
                             std::string(name) + ": must not be negative");
    return std::nullopt;
}

SvgShapes::Reader SvgShapes::readerOf(std::string_view name) {
    struct Shape {
        std::string_view name;
        Reader reader;
    };
    constexpr Shape shapes[] = {
        {"path", &SvgShapes::path},       {"rect", &SvgShapes::rect},
        {"circle", &SvgShapes::circle},   {"ellipse", &SvgShapes::ellipse},
        {"polygon", &SvgShapes::polygon}, {"polyline", &SvgShapes::polyline},
        {"line", &SvgShapes::line},
    };
    for (const Shape& shape : shapes)
        if (shape.name == name)
            return shape.reader;
    return nullptr;
}

bool SvgShapes::isShape(std::string_view name) { return readerOf(name) != nullptr; }

std::shared_ptr<const CGPath> SvgShapes::outline(pugi::xml_node node, CGSize viewport) {
    return (this->*readerOf(document.name(node)))(node, viewport);
}

std::shared_ptr<const CGPath> SvgShapes::circle(pugi::xml_node node, CGSize viewport) {
    const SvgLengthReader read(document, node, viewport);
    const CGFloat radius = read.size("r", SvgAxis::diagonal).value_or(0);
    return ellipseAround(
        {read.lengthOr(0, "cx", SvgAxis::horizontal), read.lengthOr(0, "cy", SvgAxis::vertical)},
        radius, radius);
}

std::shared_ptr<const CGPath> SvgShapes::ellipse(pugi::xml_node node, CGSize viewport) {
    const SvgLengthReader read(document, node, viewport);
    const std::optional<CGFloat> radiusX = read.size("rx", SvgAxis::horizontal);
    const std::optional<CGFloat> radiusY = read.size("ry", SvgAxis::vertical);
    return ellipseAround(
        {read.lengthOr(0, "cx", SvgAxis::horizontal), read.lengthOr(0, "cy", SvgAxis::vertical)},
        radiusX.value_or(radiusY.value_or(0)), radiusY.value_or(radiusX.value_or(0)));
}

std::shared_ptr<const CGPath> SvgShapes::line(pugi::xml_node node, CGSize viewport) {
    const SvgLengthReader read(document, node, viewport);
    CGMutablePath path;
    path.moveTo(
        {read.lengthOr(0, "x1", SvgAxis::horizontal), read.lengthOr(0, "y1", SvgAxis::vertical)});
    path.addLineTo(
        {read.lengthOr(0, "x2", SvgAxis::horizontal), read.lengthOr(0, "y2", SvgAxis::vertical)});
    return path.take();
}

std::shared_ptr<const CGPath> SvgShapes::rect(pugi::xml_node node, CGSize viewport) {
    const SvgLengthReader read(document, node, viewport);
    const CGRect rect = CGRectMake(read.lengthOr(0, "x", SvgAxis::horizontal),
                                   read.lengthOr(0, "y", SvgAxis::vertical),
                                   read.size("width", SvgAxis::horizontal).value_or(0),
                                   read.size("height", SvgAxis::vertical).value_or(0));
    if (rect.size.width == 0 || rect.size.height == 0)
        return nothing();

    const std::optional<CGFloat> rx = read.size("rx", SvgAxis::horizontal);
    const std::optional<CGFloat> ry = read.size("ry", SvgAxis::vertical);
    const CGFloat radiusX = std::min(rx.value_or(ry.value_or(0)), rect.size.width / 2);
    const CGFloat radiusY = std::min(ry.value_or(rx.value_or(0)), rect.size.height / 2);
    if (radiusX > 0 && radiusY > 0)
        return roundedRect(rect, radiusX, radiusY);
    CGMutablePath path;
    path.addRect(rect);
    return path.take();
}

std::shared_ptr<const CGPath> SvgShapes::polygon(pugi::xml_node node, CGSize) {
    return points(node, true);
}

std::shared_ptr<const CGPath> SvgShapes::polyline(pugi::xml_node node, CGSize) {
    return points(node, false);
}

std::shared_ptr<const CGPath> SvgShapes::points(pugi::xml_node node, bool isClosed) {
    const SvgValue value = document.attribute(node, "points");
    const auto warn = [&](std::size_t index, std::string_view what) {
        document.messages().warn(document.offset(value, index), "points: " + std::string(what));
    };
    SvgScanner scanner(value.text);
    CGMutablePath path;
    std::size_t count = 0;
    scanner.skipSpace();
    while (!scanner.isAtEnd()) {
        const std::optional<CGFloat> x = scanner.number();
        if (x)
            scanner.skipCommaSpace();
        const std::optional<CGFloat> y = x ? scanner.number() : std::nullopt;
        if (!y) {
            warn(scanner.offset(),
                 x && scanner.isAtEnd() ? "the last point has no y" : "expected a number");
            break;
        }
        if (count++ == 0)
            path.moveTo({*x, *y});
        else
            path.addLineTo({*x, *y});
        scanner.skipCommaSpace();
    }
    commands.spend(count, document.offset(node));
    if (count < 2)
        return nothing();
    if (isClosed)
        path.closeSubpath();
    return path.take();
}

std::shared_ptr<const CGPath> SvgShapes::path(pugi::xml_node node, CGSize) {
    const SvgValue value = document.attribute(node, "d");
    if (!value || trimmedSvgSpace(value.text) == "none")
        return nothing();
    const PathData data = parsePathData(value.text, commands.remaining());
    commands.spend(data.commands + (data.hasTooManyCommands ? 1 : 0), document.offset(node));
    if (data.error)
        document.messages().warn(document.offset(value, data.error->offset),
                                 "path data: " + data.error->message);
    return data.path;
}

}  // namespace quorin
