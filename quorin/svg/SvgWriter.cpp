#include "quorin/svg/SvgWriter.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <unordered_set>

#include "quorin/platform/values/KeyedCoding.h"
#include "quorin/svg/DrawnElements.h"
#include "quorin/svg/writing/SvgNumberText.h"
#include "quorin/svg/writing/XmlText.h"

namespace quorin {
namespace {

/// Shapes of the drawing as text, and the gradients and clips they share.
class SvgPrinter {
public:
    explicit SvgPrinter(const Drawing& source) : drawing(source) {
        for (const DrawingShape& shape : drawing.shapes)
            takenIds.insert(shape.id);
    }

    std::string print() {
        std::string shapes;
        for (const DrawingShape& shape : drawing.shapes) {
            place = "shapes[" + std::to_string(&shape - drawing.shapes.data()) + "]";
            shapes += shapeText(shape);
        }
        place = "viewBox";
        std::string text = "<svg xmlns=\"http://www.w3.org/2000/svg\"" + frameText() + ">\n";
        if (!definitions.empty())
            text += "<defs>\n" + definitions + "</defs>\n";
        return text + shapes + "</svg>\n";
    }

private:
    CGFloat finite(CGFloat number) const {
        if (!std::isfinite(number))
            throw EncodingError(place + ": number is not finite");
        return number;
    }

    static std::string attribute(std::string_view name, std::string_view value) {
        return " " + std::string(name) + "=\"" + std::string(value) + "\"";
    }
    std::string attribute(std::string_view name, CGFloat value) const {
        return attribute(name, svgNumberText(finite(value)));
    }
    /// Nothing for a value that need not be written.
    std::string attributeUnless(CGFloat usual, std::string_view name, CGFloat value) const {
        return value == usual ? std::string() : attribute(name, value);
    }

    std::string numbers(std::initializer_list<CGFloat> values) const {
        std::string text;
        SvgNumberList list(text);
        for (const CGFloat value : values)
            list.append(finite(value));
        return text;
    }

    std::string frameText() const {
        const CGRect& box = drawing.viewBox;
        const CGSize& size = drawing.size;
        std::string text;
        if (size.width > 0 && size.height > 0)
            text += attribute("width", size.width) + attribute("height", size.height);
        if (!(box.size.width > 0 && box.size.height > 0))
            return text;
        text += attribute("viewBox",
                          numbers({box.origin.x, box.origin.y, box.size.width, box.size.height}));
        // Proportions that differ were meant to, and not to show more of the plane.
        if (size.width * box.size.height != size.height * box.size.width)
            text += attribute("preserveAspectRatio", "none");
        return text;
    }

    std::string shapeText(const DrawingShape& shape) {
        std::string text = "<path";
        if (!shape.id.empty() && writtenIds.insert(shape.id).second)
            text += attribute("id", xmlAttributeText(shape.id));
        text += attribute("d", pathData(*shape.outline));
        const DrawingPaint& paint = shape.paint;
        if (paint.fill != DrawingBrush(DrawingColor{}))
            text += attribute("fill", brushText(paint.fill));
        text += attributeUnless(1, "fill-opacity", paint.fillOpacity);
        if (paint.fillRule == CGPathFillRule::evenOdd)
            text += attribute("fill-rule", "evenodd");
        text += strokeText(paint);
        text += attributeUnless(1, "opacity", paint.opacity);
        return text + clipText(shape.clips) + "/>\n";
    }

    /// An element has one clip, so several are clipped by each other, the first innermost.
    std::string clipText(const std::vector<DrawingClip>& clips) {
        std::string text;
        for (const DrawingClip& clip : clips) {
            std::string path = "<path" + attribute("d", pathData(*clip.outline));
            if (clip.rule == CGPathFillRule::evenOdd)
                path += attribute("clip-rule", "evenodd");
            const std::string id = definitionId("clipPath", "clip", text + ">" + path + "/>");
            text = attribute("clip-path", "url(#" + id + ")");
        }
        return text;
    }

    std::string strokeText(const DrawingPaint& paint) {
        std::string text;
        if (paint.stroke != DrawingBrush())
            text += attribute("stroke", brushText(paint.stroke));
        text += attributeUnless(1, "stroke-opacity", paint.strokeOpacity);
        text += attributeUnless(1, "stroke-width", paint.strokeWidth);
        if (paint.lineCap != DrawingLineCap::butt)
            text += attribute("stroke-linecap",
                              paint.lineCap == DrawingLineCap::round ? "round" : "square");
        if (paint.lineJoin != DrawingLineJoin::miter)
            text += attribute("stroke-linejoin",
                              paint.lineJoin == DrawingLineJoin::round ? "round" : "bevel");
        text += attributeUnless(4, "stroke-miterlimit", paint.miterLimit);
        if (!paint.dashes.empty()) {
            std::string dashes;
            for (const CGFloat dash : paint.dashes)
                dashes += (dashes.empty() ? "" : " ") + svgNumberText(finite(dash));
            text += attribute("stroke-dasharray", dashes);
        }
        text += attributeUnless(0, "stroke-dashoffset", paint.dashOffset);
        return paint.isStrokeFirst ? text + attribute("paint-order", "stroke") : text;
    }

    std::string pathData(const CompoundPath& outline) const {
        std::string text;
        SvgNumberList list(text);
        for (const std::shared_ptr<Path>& contour : outline.children())
            appendContour(*contour, list);
        return text;
    }

    void appendContour(const Path& contour, SvgNumberList& list) const {
        const std::size_t last = elementCount(contour);
        std::size_t index = 0;
        CGPoint start, current;
        forEachDrawnElement(contour, [&](const CGPathElement& element) {
            for (const CGPoint point : element.points)
                finite(point.x + point.y);
            const CGPoint end = element.points.empty() ? start : element.points.back();
            if (++index == 1)
                start = end;
            // The line before a close is drawn by the close, unless it has no length: read back,
            // it takes the place of the anchor that would be folded into the first.
            const bool isDrawnByClose = contour.isClosed() && index + 1 == last &&
                                        element.type == CGPathElementType::addLineToPoint &&
                                        current != start;
            if (!isDrawnByClose)
                appendElement(element, current, list);
            current = end;
        });
    }

    static std::size_t elementCount(const Path& contour) {
        std::size_t count = 0;
        forEachDrawnElement(contour, [&](const CGPathElement&) { ++count; });
        return count;
    }

    static void appendElement(const CGPathElement& element, CGPoint current, SvgNumberList& list) {
        switch (element.type) {
            case CGPathElementType::moveToPoint:
                list.append("M");
                list.append(element.points[0]);
                break;
            case CGPathElementType::addLineToPoint:
                appendLine(element.points[0], current, list);
                break;
            case CGPathElementType::addQuadCurveToPoint:  // contours have none
            case CGPathElementType::addCurveToPoint:
                list.append("C");
                for (const CGPoint point : element.points)
                    list.append(point);
                break;
            case CGPathElementType::closeSubpath:
                list.append("Z");
                break;
        }
    }

    static void appendLine(CGPoint point, CGPoint current, SvgNumberList& list) {
        if (point.y == current.y) {
            list.append("H");
            list.append(point.x);
        } else if (point.x == current.x) {
            list.append("V");
            list.append(point.y);
        } else {
            list.append("L");
            list.append(point);
        }
    }

    std::string brushText(const DrawingBrush& brush) {
        if (const auto* const color = std::get_if<DrawingColor>(&brush))
            return colorText(*color);
        if (const auto* const linear = std::get_if<DrawingLinearGradient>(&brush))
            return "url(#" + definitionId("linearGradient", "gradient", linearText(*linear)) + ")";
        if (const auto* const radial = std::get_if<DrawingRadialGradient>(&brush))
            return "url(#" + definitionId("radialGradient", "gradient", radialText(*radial)) + ")";
        return "none";
    }

    int byteOf(CGFloat component) const {
        return static_cast<int>(std::round(std::clamp(finite(component), 0.0, 1.0) * 255));
    }

    std::string colorText(const DrawingColor& color) const {
        const int bytes[] = {byteOf(color.red), byteOf(color.green), byteOf(color.blue)};
        if (color.alpha != 1)
            return "rgba(" + std::to_string(bytes[0]) + "," + std::to_string(bytes[1]) + "," +
                   std::to_string(bytes[2]) + "," + svgNumberText(finite(color.alpha)) + ")";
        constexpr std::string_view digits = "0123456789abcdef";
        const bool isShort =
            std::all_of(std::begin(bytes), std::end(bytes), [](int b) { return b % 17 == 0; });
        std::string text = "#";
        for (const int byte : bytes) {
            if (!isShort)
                text += digits[static_cast<std::size_t>(byte / 16)];
            text += digits[static_cast<std::size_t>(byte % 16)];
        }
        return text;
    }

    std::string linearText(const DrawingLinearGradient& gradient) const {
        return attribute("x1", gradient.start.x) + attribute("y1", gradient.start.y) +
               attribute("x2", gradient.end.x) + attribute("y2", gradient.end.y) +
               gradientText(gradient);
    }

    std::string radialText(const DrawingRadialGradient& gradient) const {
        return attribute("cx", gradient.center.x) + attribute("cy", gradient.center.y) +
               attribute("r", gradient.radius) + attribute("fx", gradient.focus.x) +
               attribute("fy", gradient.focus.y) + attributeUnless(0, "fr", gradient.focusRadius) +
               gradientText(gradient);
    }

    /// From the attributes that both kinds have to the stops.
    template <typename Gradient>
    std::string gradientText(const Gradient& gradient) const {
        std::string text = attribute("gradientUnits", "userSpaceOnUse");
        const CGAffineTransform& t = gradient.transform;
        if (t != CGAffineTransform::identity)
            text += attribute("gradientTransform",
                              "matrix(" + numbers({t.a, t.b, t.c, t.d, t.tx, t.ty}) + ")");
        if (gradient.spread != DrawingGradientSpread::pad)
            text +=
                attribute("spreadMethod",
                          gradient.spread == DrawingGradientSpread::reflect ? "reflect" : "repeat");
        text += ">";
        for (const DrawingGradientStop& stop : gradient.stops)
            text += "<stop" + attribute("offset", stop.offset) +
                    attribute("stop-color",
                              colorText({stop.color.red, stop.color.green, stop.color.blue, 1})) +
                    attributeUnless(1, "stop-opacity", stop.color.alpha) + "/>";
        return text;
    }

    /// The id of a definition with that text, which is written at its first use. `name` begins it.
    std::string definitionId(std::string_view element, std::string_view name,
                             const std::string& text) {
        std::string& id = definitionIds[std::string(element) + text];
        if (!id.empty())
            return id;
        do
            id = std::string(name) + std::to_string(++definitionNumber);
        while (takenIds.contains(id));
        definitions += "<" + std::string(element) + attribute("id", id) + text + "</" +
                       std::string(element) + ">\n";
        return id;
    }

    const Drawing& drawing;
    std::string place;  // for messages
    std::string definitions;
    std::unordered_map<std::string, std::string> definitionIds;
    std::unordered_set<std::string> takenIds, writtenIds;
    std::size_t definitionNumber = 0;
};

}  // namespace

std::string writeSvg(const Drawing& drawing) { return SvgPrinter(drawing).print(); }

}  // namespace quorin
