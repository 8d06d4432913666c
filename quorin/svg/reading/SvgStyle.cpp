#include "quorin/svg/reading/SvgStyle.h"

#include <algorithm>
#include <array>
#include <optional>

#include "quorin/svg/SvgColor.h"
#include "quorin/svg/reading/SvgScanner.h"
#include "quorin/svg/reading/SvgTransform.h"

namespace quorin {
namespace {

/// What is inside the parentheses of `url(...)`, and how long all of it is; 0 when there is none.
struct Url {
    std::string_view target;
    std::size_t length = 0;
};

Url urlAtStart(std::string_view text) {
    constexpr std::string_view start = "url(";
    const std::size_t end = text.find(')');
    if (!equalsIgnoringCase(text.substr(0, start.size()), start) || end == std::string_view::npos)
        return {};
    std::string_view target = trimmedSvgSpace(text.substr(start.size(), end - start.size()));
    if (target.size() >= 2 && (target.front() == '"' || target.front() == '\'') &&
        target.front() == target.back())
        target = target.substr(1, target.size() - 2);
    return {target, end + 1};
}

bool readColorValue(SvgColorValue& result, std::string_view value) {
    if (equalsIgnoringCase(value, "currentcolor")) {
        result = {{}, true};
        return true;
    }
    const std::optional<DrawingColor> color = parseSvgColor(value);
    if (color)
        result = {*color, false};
    return color.has_value();
}

bool readColor(SvgStyle& style, std::string_view value, const SvgStyle& parent) {
    SvgColorValue read;
    if (!readColorValue(read, value))
        return false;
    style.color = read.resolved(parent.color);
    return true;
}

template <SvgPaintValue SvgStyle::*member>
bool readPaint(SvgStyle& style, std::string_view value, const SvgStyle&) {
    SvgPaintValue paint;
    const Url url = urlAtStart(value);
    if (url.length > 0) {
        paint.reference = parseSvgReference(value);
        if (paint.reference.empty())
            return false;
        value = trimmedSvgSpace(value.substr(url.length));
    }
    const bool hasNoColor = equalsIgnoringCase(value, "none") || (url.length > 0 && value.empty());
    paint.hasColor = !hasNoColor;
    if (paint.hasColor && !readColorValue(paint.color, value))
        return false;
    style.*member = std::move(paint);
    return true;
}

template <SvgColorValue SvgStyle::*member>
bool readStopColor(SvgStyle& style, std::string_view value, const SvgStyle&) {
    return readColorValue(style.*member, value);
}

template <CGFloat SvgStyle::*member>
bool readFraction(SvgStyle& style, std::string_view value, const SvgStyle&) {
    const std::optional<CGFloat> fraction = parseSvgFraction(value);
    if (fraction)
        style.*member = *fraction;
    return fraction.has_value();
}

template <SvgLength SvgStyle::*member>
bool readLength(SvgStyle& style, std::string_view value, const SvgStyle&) {
    const std::optional<SvgLength> length = parseSvgLength(value);
    if (length)
        style.*member = *length;
    return length.has_value();
}

bool readStrokeWidth(SvgStyle& style, std::string_view value, const SvgStyle&) {
    const std::optional<SvgLength> length = parseSvgLength(value);
    if (!length || length->value < 0)
        return false;
    style.strokeWidth = *length;
    return true;
}

bool readMiterLimit(SvgStyle& style, std::string_view value, const SvgStyle&) {
    const std::optional<CGFloat> limit = parseSvgNumber(value);
    if (!limit || *limit < 1)
        return false;
    style.miterLimit = *limit;
    return true;
}

/// An odd list is run through twice, so that dashes and gaps change places. Nothing but zeros
/// means a solid line.
bool readDashes(SvgStyle& style, std::string_view value, const SvgStyle&) {
    std::vector<SvgLength> dashes;
    std::string_view rest = equalsIgnoringCase(value, "none") ? "" : value;
    while (!(rest = trimmedSvgSpace(rest)).empty()) {
        const std::size_t length = std::min(rest.find_first_of(", \t\r\n\f"), rest.size());
        const std::optional<SvgLength> dash = parseSvgLength(rest.substr(0, length));
        if (!dash || dash->value < 0)
            return false;
        dashes.push_back(*dash);
        SvgScanner separator(rest.substr(length));
        separator.skipCommaSpace();
        rest = separator.rest();
    }
    if (dashes.size() % 2 == 1) {
        const std::vector<SvgLength> again = dashes;
        dashes.insert(dashes.end(), again.begin(), again.end());
    }
    if (std::all_of(dashes.begin(), dashes.end(), [](SvgLength dash) { return dash.value == 0; }))
        dashes.clear();
    style.dashes = std::move(dashes);
    return true;
}

/// One of a few words, in any case.
template <typename T, std::size_t count>
bool readWord(T& result, std::string_view value,
              const std::array<std::pair<std::string_view, T>, count>& words) {
    for (const auto& [word, meaning] : words) {
        if (equalsIgnoringCase(value, word)) {
            result = meaning;
            return true;
        }
    }
    return false;
}

template <CGPathFillRule SvgStyle::*member>
bool readFillRule(SvgStyle& style, std::string_view value, const SvgStyle&) {
    using Words = std::array<std::pair<std::string_view, CGPathFillRule>, 2>;
    return readWord(
        style.*member, value,
        Words{{{"nonzero", CGPathFillRule::winding}, {"evenodd", CGPathFillRule::evenOdd}}});
}

bool readLineCap(SvgStyle& style, std::string_view value, const SvgStyle&) {
    using Words = std::array<std::pair<std::string_view, DrawingLineCap>, 3>;
    return readWord(style.lineCap, value,
                    Words{{{"butt", DrawingLineCap::butt},
                           {"round", DrawingLineCap::round},
                           {"square", DrawingLineCap::square}}});
}

/// The two joins of SVG 2 that hardly anybody draws fall back on a mitre, as is laid down there.
bool readLineJoin(SvgStyle& style, std::string_view value, const SvgStyle&) {
    using Words = std::array<std::pair<std::string_view, DrawingLineJoin>, 5>;
    return readWord(style.lineJoin, value,
                    Words{{{"miter", DrawingLineJoin::miter},
                           {"round", DrawingLineJoin::round},
                           {"bevel", DrawingLineJoin::bevel},
                           {"miter-clip", DrawingLineJoin::miter},
                           {"arcs", DrawingLineJoin::miter}}});
}

bool readVisibility(SvgStyle& style, std::string_view value, const SvgStyle&) {
    using Words = std::array<std::pair<std::string_view, bool>, 3>;
    return readWord(style.isVisible, value,
                    Words{{{"visible", true}, {"hidden", false}, {"collapse", false}}});
}

bool readDisplay(SvgStyle& style, std::string_view value, const SvgStyle&) {
    style.isDisplayed = !equalsIgnoringCase(value, "none");
    return true;
}

bool readPaintOrder(SvgStyle& style, std::string_view value, const SvgStyle&) {
    const std::size_t fill = std::min(value.find("fill"), value.size());
    const std::size_t stroke = std::min(value.find("stroke"), value.size());
    style.isStrokeFirst = stroke < fill;
    return true;
}

bool readVectorEffect(SvgStyle& style, std::string_view value, const SvgStyle&) {
    style.isStrokeScaled = value.find("non-scaling-stroke") == std::string_view::npos;
    return true;
}

bool readBlendMode(SvgStyle& style, std::string_view value, const SvgStyle&) {
    style.isBlended = !equalsIgnoringCase(value, "normal");
    return true;
}

template <bool SvgMarkers::*place>
bool readMarker(SvgStyle& style, std::string_view value, const SvgStyle&) {
    style.markers.*place = !equalsIgnoringCase(value, "none");
    return true;
}

bool readMarkers(SvgStyle& style, std::string_view value, const SvgStyle&) {
    const bool isSet = !equalsIgnoringCase(value, "none");
    style.markers = {isSet, isSet, isSet};
    return true;
}

bool readTransform(SvgStyle& style, std::string_view value, const SvgStyle&) {
    const SvgTransformResult result = parseSvgTransform(value);
    if (!result.error)
        style.transform = result.transform;
    return !result.error;
}

template <std::string SvgStyle::*member>
bool readEffect(SvgStyle& style, std::string_view value, const SvgStyle&) {
    const std::string_view id = parseSvgReference(value);
    style.*member = equalsIgnoringCase(value, "none") ? "" : id.empty() ? value : id;
    return true;
}

template <auto SvgStyle::*member>
void copyMember(SvgStyle& to, const SvgStyle& from) {
    to.*member = from.*member;
}

struct Property {
    std::string_view name;
    bool isInherited;
    bool (*read)(SvgStyle&, std::string_view, const SvgStyle& parent);
    void (*copy)(SvgStyle& to, const SvgStyle& from);
};

using S = SvgStyle;

/// In alphabetical order.
constexpr Property properties[] = {
    {"clip-path", false, readEffect<&S::clip>, copyMember<&S::clip>},
    {"clip-rule", true, readFillRule<&S::clipRule>, copyMember<&S::clipRule>},
    {"color", true, readColor, copyMember<&S::color>},
    {"display", false, readDisplay, copyMember<&S::isDisplayed>},
    {"fill", true, readPaint<&S::fill>, copyMember<&S::fill>},
    {"fill-opacity", true, readFraction<&S::fillOpacity>, copyMember<&S::fillOpacity>},
    {"fill-rule", true, readFillRule<&S::fillRule>, copyMember<&S::fillRule>},
    {"filter", false, readEffect<&S::filter>, copyMember<&S::filter>},
    {"marker", true, readMarkers, copyMember<&S::markers>},
    {"marker-end", true, readMarker<&SvgMarkers::end>, copyMember<&S::markers>},
    {"marker-mid", true, readMarker<&SvgMarkers::mid>, copyMember<&S::markers>},
    {"marker-start", true, readMarker<&SvgMarkers::start>, copyMember<&S::markers>},
    {"mask", false, readEffect<&S::mask>, copyMember<&S::mask>},
    {"mix-blend-mode", false, readBlendMode, copyMember<&S::isBlended>},
    {"opacity", false, readFraction<&S::opacity>, copyMember<&S::opacity>},
    {"paint-order", true, readPaintOrder, copyMember<&S::isStrokeFirst>},
    {"stop-color", false, readStopColor<&S::stopColor>, copyMember<&S::stopColor>},
    {"stop-opacity", false, readFraction<&S::stopOpacity>, copyMember<&S::stopOpacity>},
    {"stroke", true, readPaint<&S::stroke>, copyMember<&S::stroke>},
    {"stroke-dasharray", true, readDashes, copyMember<&S::dashes>},
    {"stroke-dashoffset", true, readLength<&S::dashOffset>, copyMember<&S::dashOffset>},
    {"stroke-linecap", true, readLineCap, copyMember<&S::lineCap>},
    {"stroke-linejoin", true, readLineJoin, copyMember<&S::lineJoin>},
    {"stroke-miterlimit", true, readMiterLimit, copyMember<&S::miterLimit>},
    {"stroke-opacity", true, readFraction<&S::strokeOpacity>, copyMember<&S::strokeOpacity>},
    {"stroke-width", true, readStrokeWidth, copyMember<&S::strokeWidth>},
    {"transform", false, readTransform, copyMember<&S::transform>},
    {"vector-effect", false, readVectorEffect, copyMember<&S::isStrokeScaled>},
    {"visibility", true, readVisibility, copyMember<&S::isVisible>},
};

const Property* propertyOfName(std::string_view name) {
    const auto* const found = std::lower_bound(
        std::begin(properties), std::end(properties), name,
        [](const Property& property, std::string_view wanted) { return property.name < wanted; });
    return found != std::end(properties) && found->name == name ? found : nullptr;
}

}  // namespace

SvgStyle SvgStyle::inherited() const {
    SvgStyle child;
    for (const Property& property : properties)
        if (property.isInherited)
            property.copy(child, *this);
    return child;
}

SvgPropertyResult applyProperty(SvgStyle& style, const SvgStyle& parent, std::string_view name,
                                std::string_view value) {
    const Property* property = propertyOfName(name);
    if (property == nullptr)
        return SvgPropertyResult::unknown;
    value = trimmedSvgSpace(value);

    const bool isUnset = equalsIgnoringCase(value, "unset");
    if (equalsIgnoringCase(value, "inherit") || (isUnset && property->isInherited)) {
        property->copy(style, parent);
        return SvgPropertyResult::applied;
    }
    if (equalsIgnoringCase(value, "initial") || isUnset) {
        property->copy(style, SvgStyle());
        return SvgPropertyResult::applied;
    }
    return property->read(style, value, parent) ? SvgPropertyResult::applied
                                                : SvgPropertyResult::unreadable;
}

std::string_view parseSvgReference(std::string_view text) {
    const std::string_view target = urlAtStart(trimmedSvgSpace(text)).target;
    return target.starts_with('#') ? target.substr(1) : std::string_view();
}

}  // namespace quorin
