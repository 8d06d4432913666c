#include "quorin/svg/reading/SvgWalk.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "quorin/geometry/Finiteness.h"
#include "quorin/svg/reading/SvgOutline.h"
#include "quorin/svg/reading/SvgScanner.h"

namespace quorin {
namespace {

/// What CSS gives a picture of unknown size.
constexpr CGSize defaultSize{300, 150};

/// Elements that are only drawn through others, or say something about the drawing.
bool isSilent(std::string_view name) {
    constexpr std::string_view names[] = {
        "",       "clipPath", "defs",    "desc",          "filter", "linearGradient",
        "marker", "mask",     "pattern", "metadata",      "script", "radialGradient",
        "style",  "symbol",   "title",   "color-profile", "view",
    };
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

/// Greater than zero and not out of range.
bool isUsable(CGSize size) { return isFinite(size) && size.width > 0 && size.height > 0; }

struct Sizes {
    std::optional<CGFloat> width, height;
};

/// Lengths that are missing or parts of something unknown follow from the view box.
CGSize sizeOfDrawing(const Sizes& given, const std::optional<CGRect>& viewBox) {
    const CGSize base = viewBox ? viewBox->size : defaultSize;
    CGSize size = {given.width.value_or(base.width), given.height.value_or(base.height)};
    if (given.width && !given.height && viewBox)
        size.height = *given.width * base.height / base.width;
    if (given.height && !given.width && viewBox)
        size.width = *given.height * base.width / base.height;
    return isUsable(size) ? size : base;
}

std::size_t anchorCount(const CompoundPath& outline) {
    std::size_t count = 0;
    for (const std::shared_ptr<Path>& contour : outline.children())
        count += contour->segments().count();
    return count;
}

}  // namespace

SvgWalk::SvgWalk(SvgDocument& svgDocument, const SvgLimits& limits)
    : document(svgDocument),
      maximumDepth(limits.depth),
      elements(svgDocument.messages(), limits.elements, "elements, repeated ones included"),
      commands(svgDocument.messages(), limits.pathCommands, "path commands"),
      cascade(svgDocument),
      painter(svgDocument, cascade, elements),
      shapes(svgDocument, commands),
      clips(svgDocument, cascade, shapes, elements) {}

Drawing SvgWalk::draw() {
    enterRoot();
    while (!levels.empty()) {
        Level& level = levels.back();
        const pugi::xml_node node = level.next;
        if (!node) {
            levels.pop_back();
            continue;
        }
        level.next = level.isSingle ? pugi::xml_node() : node.next_sibling();
        visit(node);
    }
    return std::move(drawing);
}

void SvgWalk::enterRoot() {
    const pugi::xml_node root = document.root();
    const std::optional<CGRect> viewBox = viewBoxOf(root);
    const auto length = [&](const char* name) -> std::optional<CGFloat> {
        const SvgValue value = document.attribute(root, name);
        const std::optional<SvgLength> read = parseSvgLength(value.text);
        const bool isUsable = read && std::isfinite(read->value) && read->value > 0;
        if (value && !isUsable && trimmedSvgSpace(value.text) != "auto")
            document.messages().warn(value.offset,
                                     std::string(name) + ": expected a length greater than zero");
        return isUsable && !read->isPercentage ? std::optional<CGFloat>(read->value) : std::nullopt;
    };
    drawing.size = sizeOfDrawing({length("width"), length("height")}, viewBox);
    const CGRect box = viewBox.value_or(CGRect{CGPoint::zero, drawing.size});
    const CGRect shown = shownRect(box, drawing.size, aspectRatioOf(root));
    drawing.viewBox = isFinite(shown.origin) && isUsable(shown.size) ? shown : box;

    SvgContext surroundings;
    surroundings.viewport = box.size;
    if (std::optional<SvgContext> context = contextOf(root, surroundings))
        push({root.first_child(), std::move(*context), false, {}}, root);
}

void SvgWalk::visit(pugi::xml_node node) {
    elements.spend(1, document.offset(node));
    const std::string_view name = document.name(node);
    const pugi::xml_node use = levels.back().use;
    const bool isUsedSymbol = name == "symbol" && use;
    if (isSilent(name) && !isUsedSymbol)
        return;

    std::optional<SvgContext> context = contextOf(node, levels.back().context);
    if (!context)
        return;
    if (SvgShapes::isShape(name))
        addShape(node, *context);
    else if (name == "g" || name == "a")
        push({node.first_child(), std::move(*context), false, {}}, node);
    else if (name == "use")
        enterUse(node, std::move(*context));
    else if (name == "svg" || isUsedSymbol)
        enterViewport(node, std::move(*context), use);
    else if (name == "switch")
        enterSwitch(node, std::move(*context));
    else
        document.messages().warn(document.offset(node), "<" + std::string(name) + "> is left out");
}

std::optional<SvgContext> SvgWalk::contextOf(pugi::xml_node node, const SvgContext& parent) {
    SvgContext context{cascade.styleOf(node, parent.style), parent.transform, parent.opacity,
                       parent.viewport, parent.clips};
    context.transform = CGAffineTransformConcat(context.style.transform, parent.transform);
    context.opacity *= context.style.opacity;
    const CGAffineTransform& t = context.transform;
    if (!context.style.isDisplayed || t.a * t.d == t.b * t.c || !clips.apply(node, context))
        return std::nullopt;
    warnOfEffects(node, context.style);
    return context;
}

void SvgWalk::push(Level level, pugi::xml_node node) {
    if (levels.size() == maximumDepth)
        document.messages().fail(document.offset(node),
                                 "elements lead deeper than " + std::to_string(maximumDepth));
    levels.push_back(std::move(level));
}

/// Draws the first child that asks for nothing special.
void SvgWalk::enterSwitch(pugi::xml_node node, SvgContext context) {
    for (const pugi::xml_node child : node.children()) {
        if (document.name(child).empty() || document.attribute(child, "requiredExtensions"))
            continue;
        push({child, std::move(context), true, {}}, node);
        return;
    }
}

void SvgWalk::enterUse(pugi::xml_node use, SvgContext context) {
    const SvgValue reference = document.reference(use);
    const pugi::xml_node target = document.elementWithId(reference.text);
    if (!target || isEntered(use)) {
        document.messages().warn(document.offset(use), target
                                                           ? "use: it draws itself"
                                                           : "use: there is no element '" +
                                                                 std::string(reference.text) + "'");
        return;
    }
    const SvgLengthReader read(document, use, context.viewport);
    const CGAffineTransform shift = CGAffineTransformMakeTranslation(
        read.lengthOr(0, "x", SvgAxis::horizontal), read.lengthOr(0, "y", SvgAxis::vertical));
    context.transform = CGAffineTransformConcat(shift, context.transform);
    push({target, std::move(context), true, use}, use);
}

bool SvgWalk::isEntered(pugi::xml_node use) const {
    return std::any_of(levels.begin(), levels.end(),
                       [&](const Level& level) { return level.use == use; });
}

void SvgWalk::enterViewport(pugi::xml_node node, SvgContext context, pugi::xml_node use) {
    const CGRect viewport = viewportOf(node, use, context.viewport);
    if (!(viewport.size.width > 0) || !(viewport.size.height > 0))
        return;
    const std::optional<CGRect> viewBox = viewBoxOf(node);
    const CGRect box = viewBox.value_or(CGRect{CGPoint::zero, viewport.size});
    const CGRect shown = shownRect(box, viewport.size, aspectRatioOf(node));
    context.transform =
        CGAffineTransformConcat(transformBetween(shown, viewport), context.transform);
    context.viewport = box.size;
    push({node.first_child(), std::move(context), false, {}}, node);
}

/// A `use` may give what it draws another size; a symbol has no place of its own.
CGRect SvgWalk::viewportOf(pugi::xml_node node, pugi::xml_node use, CGSize surroundings) {
    const SvgLengthReader read(document, node, surroundings);
    CGRect viewport{CGPoint::zero, surroundings};
    if (document.name(node) != "symbol")
        viewport = CGRectMake(read.lengthOr(0, "x", SvgAxis::horizontal),
                              read.lengthOr(0, "y", SvgAxis::vertical),
                              read.lengthOr(surroundings.width, "width", SvgAxis::horizontal),
                              read.lengthOr(surroundings.height, "height", SvgAxis::vertical));
    if (use) {
        const SvgLengthReader readUse(document, use, surroundings);
        viewport.size.width = readUse.lengthOr(viewport.size.width, "width", SvgAxis::horizontal);
        viewport.size.height = readUse.lengthOr(viewport.size.height, "height", SvgAxis::vertical);
    }
    return viewport;
}

std::optional<CGRect> SvgWalk::viewBoxOf(pugi::xml_node node) {
    const SvgValue value = document.attribute(node, "viewBox");
    const std::optional<CGRect> viewBox = parseSvgViewBox(value.text);
    if (value && !viewBox)
        document.messages().warn(value.offset,
                                 "viewBox: expected four numbers, the sizes greater than zero");
    return viewBox;
}

SvgAspectRatio SvgWalk::aspectRatioOf(pugi::xml_node node) {
    const SvgValue value = document.attribute(node, "preserveAspectRatio");
    const std::optional<SvgAspectRatio> aspectRatio = parseSvgAspectRatio(value.text);
    if (value && !aspectRatio)
        document.messages().warn(value.offset, "preserveAspectRatio: expected an alignment");
    return aspectRatio.value_or(SvgAspectRatio());
}

void SvgWalk::addShape(pugi::xml_node node, const SvgContext& context) {
    if (!context.style.isVisible)
        return;
    const std::shared_ptr<const CGPath> path = shapes.outline(node, context.viewport);
    if (path->isEmpty())
        return;
    std::shared_ptr<CompoundPath> outline = editableOutline(*path, context.transform);
    DrawingPaint paint = painter.paint(node, context, *path);
    if (!outline || !std::isfinite(paint.strokeWidth)) {
        document.messages().warn(document.offset(node), "<" + std::string(document.name(node)) +
                                                            "> is too far out to be drawn");
        return;
    }
    // Clips are shared here, but whoever writes the shapes writes them again for each.
    for (const DrawingClip& clip : context.clips)
        commands.spend(anchorCount(*clip.outline), document.offset(node));
    drawing.shapes.push_back({repairedUtf8(document.attribute(node, "id").text), std::move(outline),
                              std::move(paint), context.clips});
}

void SvgWalk::warnOfEffects(pugi::xml_node node, const SvgStyle& style) {
    const auto warn = [&](bool isAsked, std::string_view what) {
        if (isAsked)
            document.messages().warn(document.offset(node), std::string(what) + " is left out");
    };
    const SvgMarkers& markers = style.markers;
    const bool hasMarkers = markers.start || markers.mid || markers.end;
    warn(!style.mask.empty(), "mask");
    warn(!style.filter.empty(), "filter");
    warn(style.isBlended, "mix-blend-mode");
    warn(hasMarkers && SvgShapes::isShape(document.name(node)), "marker");
}

}  // namespace quorin
