#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "quorin/platform/values/KeyedCoding.h"
#include "quorin/svg/Drawing.h"

namespace quorin {
namespace {

constexpr std::int64_t currentVersion = 1;

template <typename T, std::size_t count>
using Words = std::array<std::pair<std::string_view, T>, count>;

constexpr Words<CGPathFillRule, 2> fillRules = {
    {{"winding", CGPathFillRule::winding}, {"evenOdd", CGPathFillRule::evenOdd}}};
constexpr Words<DrawingLineCap, 3> lineCaps = {{{"butt", DrawingLineCap::butt},
                                                {"round", DrawingLineCap::round},
                                                {"square", DrawingLineCap::square}}};
constexpr Words<DrawingLineJoin, 3> lineJoins = {{{"miter", DrawingLineJoin::miter},
                                                  {"round", DrawingLineJoin::round},
                                                  {"bevel", DrawingLineJoin::bevel}}};
constexpr Words<DrawingGradientSpread, 3> spreads = {{{"pad", DrawingGradientSpread::pad},
                                                      {"reflect", DrawingGradientSpread::reflect},
                                                      {"repeat", DrawingGradientSpread::repeat}}};

template <typename T, std::size_t count>
void encodeWord(Encoder& encoder, std::string_view key, T value, const Words<T, count>& words) {
    for (const auto& [word, meaning] : words)
        if (meaning == value)
            encoder.encodeText(key, word);
}

template <typename T, std::size_t count>
T decodeWord(Decoder& decoder, std::string_view key, const Words<T, count>& words) {
    const std::string text = decoder.decodeText(key);
    const auto found = std::find_if(words.begin(), words.end(),
                                    [&](const auto& word) { return word.first == text; });
    if (found == words.end())
        decoder.corrupted(key, "'" + text + "' is not known");
    return found->second;
}

CGFloat decodeFraction(Decoder& decoder, std::string_view key) {
    const CGFloat value = decoder.decodeNumber(key);
    if (!(value >= 0 && value <= 1))
        decoder.corrupted(key, "not between 0 and 1");
    return value;
}

CGFloat decodeAtLeast(Decoder& decoder, std::string_view key, CGFloat least) {
    const CGFloat value = decoder.decodeNumber(key);
    if (!(value >= least))
        decoder.corrupted(key, least == 0 ? "negative" : "less than 1");
    return value;
}

void encodeColor(Encoder& encoder, const DrawingColor& color) {
    encoder.encodeRecord("color", [&](Encoder& record) {
        record.encodeNumber("red", color.red);
        record.encodeNumber("green", color.green);
        record.encodeNumber("blue", color.blue);
        record.encodeNumber("alpha", color.alpha);
    });
}

DrawingColor decodeColor(Decoder& decoder) {
    DrawingColor color;
    decoder.decodeRecord("color", [&](Decoder& record) {
        color.red = decodeFraction(record, "red");
        color.green = decodeFraction(record, "green");
        color.blue = decodeFraction(record, "blue");
        color.alpha = decodeFraction(record, "alpha");
    });
    return color;
}

/// What both kinds of gradient have besides their points.
template <typename Gradient>
void encodeColors(Encoder& encoder, const Gradient& gradient) {
    encoder.encodeTransform("transform", gradient.transform);
    encodeWord(encoder, "spread", gradient.spread, spreads);
    encoder.encodeRecords("stops", gradient.stops.size(), [&](Encoder& record, std::size_t index) {
        record.encodeNumber("offset", gradient.stops[index].offset);
        encodeColor(record, gradient.stops[index].color);
    });
}

template <typename Gradient>
void decodeColors(Decoder& decoder, Gradient& gradient) {
    gradient.transform = decoder.decodeTransform("transform");
    gradient.spread = decodeWord(decoder, "spread", spreads);
    decoder.decodeRecords("stops", [&](Decoder& record, std::size_t) {
        DrawingGradientStop stop;
        stop.offset = decodeFraction(record, "offset");
        stop.color = decodeColor(record);
        if (!gradient.stops.empty() && stop.offset < gradient.stops.back().offset)
            record.corrupted("offset", "less than the one before");
        gradient.stops.push_back(stop);
    });
    if (gradient.stops.empty())
        decoder.corrupted("stops", "empty");
}

void encodeBrush(Encoder& encoder, const DrawingBrush& brush) {
    if (const auto* const color = std::get_if<DrawingColor>(&brush)) {
        encoder.encodeText("kind", "color");
        encodeColor(encoder, *color);
    } else if (const auto* const linear = std::get_if<DrawingLinearGradient>(&brush)) {
        encoder.encodeText("kind", "linearGradient");
        encoder.encodePoint("start", linear->start);
        encoder.encodePoint("end", linear->end);
        encodeColors(encoder, *linear);
    } else if (const auto* const radial = std::get_if<DrawingRadialGradient>(&brush)) {
        encoder.encodeText("kind", "radialGradient");
        encoder.encodePoint("focus", radial->focus);
        encoder.encodeNumber("focusRadius", radial->focusRadius);
        encoder.encodePoint("center", radial->center);
        encoder.encodeNumber("radius", radial->radius);
        encodeColors(encoder, *radial);
    } else {
        encoder.encodeText("kind", "none");
    }
}

DrawingBrush decodeBrush(Decoder& decoder) {
    const std::string kind = decoder.decodeText("kind");
    if (kind == "none")
        return {};
    if (kind == "color")
        return decodeColor(decoder);
    if (kind == "linearGradient") {
        DrawingLinearGradient gradient;
        gradient.start = decoder.decodePoint("start");
        gradient.end = decoder.decodePoint("end");
        decodeColors(decoder, gradient);
        return gradient;
    }
    if (kind != "radialGradient")
        decoder.corrupted("kind", "'" + kind + "' is not known");
    DrawingRadialGradient gradient;
    gradient.focus = decoder.decodePoint("focus");
    gradient.focusRadius = decodeAtLeast(decoder, "focusRadius", 0);
    gradient.center = decoder.decodePoint("center");
    gradient.radius = decodeAtLeast(decoder, "radius", 0);
    decodeColors(decoder, gradient);
    return gradient;
}

std::vector<CGFloat> decodeDashes(Decoder& decoder) {
    std::vector<CGFloat> dashes = decoder.decodeNumbers("dashes");
    if (dashes.size() % 2 != 0)
        decoder.corrupted("dashes", "the last dash has no gap");
    if (!std::all_of(dashes.begin(), dashes.end(), [](CGFloat dash) { return dash >= 0; }))
        decoder.corrupted("dashes", "negative");
    return dashes;
}

void encodePaint(Encoder& encoder, const DrawingPaint& paint) {
    encoder.encodeRecord("fill", [&](Encoder& record) { encodeBrush(record, paint.fill); });
    encoder.encodeNumber("fillOpacity", paint.fillOpacity);
    encodeWord(encoder, "fillRule", paint.fillRule, fillRules);
    encoder.encodeRecord("stroke", [&](Encoder& record) { encodeBrush(record, paint.stroke); });
    encoder.encodeNumber("strokeOpacity", paint.strokeOpacity);
    encoder.encodeNumber("strokeWidth", paint.strokeWidth);
    encodeWord(encoder, "lineCap", paint.lineCap, lineCaps);
    encodeWord(encoder, "lineJoin", paint.lineJoin, lineJoins);
    encoder.encodeNumber("miterLimit", paint.miterLimit);
    encoder.encodeNumbers("dashes", paint.dashes);
    encoder.encodeNumber("dashOffset", paint.dashOffset);
    encoder.encodeBool("isStrokeFirst", paint.isStrokeFirst);
    encoder.encodeNumber("opacity", paint.opacity);
}

DrawingPaint decodePaint(Decoder& decoder) {
    DrawingPaint paint;
    decoder.decodeRecord("fill", [&](Decoder& record) { paint.fill = decodeBrush(record); });
    paint.fillOpacity = decodeFraction(decoder, "fillOpacity");
    paint.fillRule = decodeWord(decoder, "fillRule", fillRules);
    decoder.decodeRecord("stroke", [&](Decoder& record) { paint.stroke = decodeBrush(record); });
    paint.strokeOpacity = decodeFraction(decoder, "strokeOpacity");
    paint.strokeWidth = decodeAtLeast(decoder, "strokeWidth", 0);
    paint.lineCap = decodeWord(decoder, "lineCap", lineCaps);
    paint.lineJoin = decodeWord(decoder, "lineJoin", lineJoins);
    paint.miterLimit = decodeAtLeast(decoder, "miterLimit", 1);
    paint.dashes = decodeDashes(decoder);
    paint.dashOffset = decoder.decodeNumber("dashOffset");
    paint.isStrokeFirst = decoder.decodeBool("isStrokeFirst");
    paint.opacity = decodeFraction(decoder, "opacity");
    return paint;
}

void encodeOutline(Encoder& encoder, const CompoundPath& outline) {
    const auto& contours = outline.children();
    encoder.encodeRecords("outline", contours.size(), [&](Encoder& record, std::size_t index) {
        contours[index]->encode(record);
    });
}

std::shared_ptr<CompoundPath> decodeOutline(Decoder& decoder) {
    std::vector<std::shared_ptr<Path>> contours;
    decoder.decodeRecords(
        "outline", [&](Decoder& record, std::size_t) { contours.push_back(Path::decode(record)); });
    return CompoundPath::create(std::move(contours));
}

void encodeShape(Encoder& encoder, const DrawingShape& shape) {
    encoder.encodeText("id", shape.id);
    encodeOutline(encoder, *shape.outline);
    encoder.encodeRecord("paint", [&](Encoder& record) { encodePaint(record, shape.paint); });
    encoder.encodeRecords("clips", shape.clips.size(), [&](Encoder& record, std::size_t index) {
        encodeWord(record, "rule", shape.clips[index].rule, fillRules);
        encodeOutline(record, *shape.clips[index].outline);
    });
}

DrawingShape decodeShape(Decoder& decoder) {
    DrawingShape shape;
    shape.id = decoder.decodeText("id");
    shape.outline = decodeOutline(decoder);
    decoder.decodeRecord("paint", [&](Decoder& record) { shape.paint = decodePaint(record); });
    decoder.decodeRecords("clips", [&](Decoder& record, std::size_t) {
        const CGPathFillRule rule = decodeWord(record, "rule", fillRules);
        shape.clips.push_back({rule, decodeOutline(record)});
    });
    return shape;
}

}  // namespace

void Drawing::encode(Encoder& encoder) const {
    encoder.encodeInt("version", currentVersion);
    encoder.encodeRect("viewBox", viewBox);
    encoder.encodeSize("size", size);
    encoder.encodeRecords("shapes", shapes.size(), [&](Encoder& record, std::size_t index) {
        encodeShape(record, shapes[index]);
    });
}

Drawing Drawing::decode(Decoder& decoder) {
    const std::int64_t version = decoder.decodeInt("version");
    if (version != currentVersion)
        decoder.corrupted("version", std::to_string(version) + " is not known");
    Drawing drawing;
    drawing.viewBox = decoder.decodeRect("viewBox");
    drawing.size = decoder.decodeSize("size");
    if (!(drawing.viewBox.size.width >= 0 && drawing.viewBox.size.height >= 0))
        decoder.corrupted("viewBox", "negative size");
    if (!(drawing.size.width >= 0 && drawing.size.height >= 0))
        decoder.corrupted("size", "negative");
    decoder.decodeRecords("shapes", [&](Decoder& record, std::size_t) {
        drawing.shapes.push_back(decodeShape(record));
    });
    return drawing;
}

}  // namespace quorin
