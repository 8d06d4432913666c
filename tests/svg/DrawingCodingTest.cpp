#include <string>

#include "quorin/platform/foundation/JSONDecoder.h"
#include "quorin/platform/foundation/JSONEncoder.h"
#include "quorin/svg/Drawing.h"
#include "quorin/svg/SvgWriter.h"
#include "tests/TestSupport.h"
#include "tests/support/MemoryRecord.h"
#include "tests/svg/RandomDrawing.h"
#include "tests/svg/ReadDrawing.h"

namespace quorin {
namespace {

using test::MemoryDecoder;
using test::MemoryEncoder;
using test::MemoryRecord;
using test::readDrawing;
using ::testing::ElementsAre;
using ::testing::StartsWith;
using ::testing::StrEq;
using ::testing::ThrowsMessage;

MemoryRecord encoded(const Drawing& drawing) {
    MemoryRecord record;
    MemoryEncoder encoder(record);
    drawing.encode(encoder);
    return record;
}

Drawing decoded(const MemoryRecord& record) {
    MemoryDecoder decoder(record);
    return Drawing::decode(decoder);
}

/// A shape with a gradient of each kind, dashes and a clip.
Drawing painted() {
    return readDrawing(
        "<linearGradient id='l' gradientUnits='userSpaceOnUse' x1='1' x2='9' "
        "gradientTransform='scale(2)' spreadMethod='repeat'><stop stop-color='red'/>"
        "<stop offset='0.5' stop-opacity='0.25'/></linearGradient>"
        "<radialGradient id='r'><stop/></radialGradient>"
        "<path id='p' d='M0 0H9V9Z' fill='url(#l)' stroke='url(#r)' stroke-dasharray='1 2' "
        "fill-rule='evenodd' stroke-linecap='round' stroke-linejoin='bevel' opacity='0.5' "
        "paint-order='stroke' clip-path='url(#c)'/>"
        "<clipPath id='c'><circle r='5' clip-rule='evenodd'/></clipPath>");
}

MemoryRecord& inner(MemoryRecord& record, std::string_view key, std::size_t index = 0) {
    return std::get<MemoryRecord::Records>(record[key])[index];
}

TEST(DrawingCoding, writesTheKeysInTheirOrder) {
    MemoryRecord record = encoded(painted());
    EXPECT_THAT(record.keys(), ElementsAre("version", "viewBox", "size", "shapes"));
    MemoryRecord& shape = inner(record, "shapes");
    EXPECT_THAT(shape.keys(), ElementsAre("id", "outline", "paint", "clips"));
    EXPECT_THAT(inner(shape, "outline").keys(), ElementsAre("isClosed", "segments"));
    EXPECT_THAT(inner(shape, "clips").keys(), ElementsAre("rule", "outline"));
    MemoryRecord& paint = inner(shape, "paint");
    EXPECT_THAT(paint.keys(),
                ElementsAre("fill", "fillOpacity", "fillRule", "stroke", "strokeOpacity",
                            "strokeWidth", "lineCap", "lineJoin", "miterLimit", "dashes",
                            "dashOffset", "isStrokeFirst", "opacity"));
    EXPECT_THAT(inner(paint, "fill").keys(),
                ElementsAre("kind", "start", "end", "transform", "spread", "stops"));
    EXPECT_THAT(inner(paint, "stroke").keys(),
                ElementsAre("kind", "focus", "focusRadius", "center", "radius", "transform",
                            "spread", "stops"));
    MemoryRecord& stop = inner(inner(paint, "fill"), "stops");
    EXPECT_THAT(stop.keys(), ElementsAre("offset", "color"));
    EXPECT_THAT(inner(stop, "color").keys(), ElementsAre("red", "green", "blue", "alpha"));
}

TEST(DrawingCoding, bringsBackWhatItWrote) {
    const Drawing drawing = painted();
    const MemoryRecord record = encoded(drawing);
    const Drawing back = decoded(record);
    EXPECT_EQ(back.viewBox, drawing.viewBox);
    EXPECT_EQ(back.size, drawing.size);
    ASSERT_EQ(back.shapes.size(), 1u);
    EXPECT_EQ(back.shapes[0].id, "p");
    EXPECT_EQ(back.shapes[0].paint, drawing.shapes[0].paint);
    EXPECT_EQ(*back.shapes[0].outline->children()[0], *drawing.shapes[0].outline->children()[0]);
    ASSERT_EQ(back.shapes[0].clips.size(), 1u);
    EXPECT_EQ(back.shapes[0].clips[0].rule, CGPathFillRule::evenOdd);
    EXPECT_TRUE(hasSameGeometry(back, drawing));
    EXPECT_EQ(encoded(back), record);
}

/// Calls `body` with each key of the record and of all records in it.
void forEachKey(const MemoryRecord& record, const std::string& path,
                FunctionRef<void(const std::string&)> body) {
    for (const auto& [key, entry] : record.entries) {
        body(path + key);
        if (const auto* const records = std::get_if<MemoryRecord::Records>(&entry))
            for (std::size_t i = 0; i < records->size(); ++i)
                forEachKey((*records)[i], path + key + "/" + std::to_string(i) + "/", body);
    }
}

/// The record without the entry at a path of keys and indices with slashes between them.
MemoryRecord without(MemoryRecord record, std::string_view path) {
    MemoryRecord* place = &record;
    for (std::size_t slash = path.find('/'); slash != std::string_view::npos;
         slash = path.find('/')) {
        const std::size_t end = path.find('/', slash + 1);
        place = &inner(*place, path.substr(0, slash),
                       std::stoul(std::string(path.substr(slash + 1, end - slash - 1))));
        path.remove_prefix(end + 1);
    }
    place->remove(path);
    return record;
}

TEST(DrawingCoding, requiresEveryKey) {
    const MemoryRecord record = encoded(painted());
    std::size_t keys = 0;
    forEachKey(record, "", [&](const std::string& path) {
        SCOPED_TRACE(path);
        ++keys;
        EXPECT_THROW(decoded(without(record, path)), DecodingError);
    });
    EXPECT_GT(keys, 60u);
    EXPECT_THAT([&] { decoded(without(record, "shapes/0/paint/0/lineCap")); },
                ThrowsMessage<DecodingError>(StrEq("shapes[0].paint.lineCap: key not found")));
}

TEST(DrawingCoding, refusesValuesThatCannotBe) {
    struct Row {
        const char* key;
        MemoryRecord::Entry value;
        const char* message;
    };
    const Row table[] = {
        {"fillOpacity", 1.5, "shapes[0].paint.fillOpacity: not between 0 and 1"},
        {"strokeOpacity", -0.5, "shapes[0].paint.strokeOpacity: not between 0 and 1"},
        {"opacity", 2.0, "shapes[0].paint.opacity: not between 0 and 1"},
        {"strokeWidth", -1.0, "shapes[0].paint.strokeWidth: negative"},
        {"miterLimit", 0.5, "shapes[0].paint.miterLimit: less than 1"},
        {"fillRule", std::string("odd"), "shapes[0].paint.fillRule: 'odd' is not known"},
        {"lineCap", std::string(""), "shapes[0].paint.lineCap: '' is not known"},
        {"lineJoin", std::string("Round"), "shapes[0].paint.lineJoin: 'Round' is not known"},
        {"dashes", MemoryRecord::Numbers{1, 2, 3},
         "shapes[0].paint.dashes: the last dash has no gap"},
        {"dashes", MemoryRecord::Numbers{1, -2}, "shapes[0].paint.dashes: negative"},
    };
    for (const auto& [key, value, message] : table) {
        SCOPED_TRACE(message);
        MemoryRecord record = encoded(painted());
        inner(inner(record, "shapes"), "paint")[key] = value;
        EXPECT_THAT([&] { decoded(record); }, ThrowsMessage<DecodingError>(StrEq(message)));
    }
}

TEST(DrawingCoding, refusesGradientsThatCannotBe) {
    struct Row {
        const char* brush;
        const char* key;
        MemoryRecord::Entry value;
        const char* message;
    };
    const Row table[] = {
        {"fill", "kind", std::string("pattern"),
         "shapes[0].paint.fill.kind: 'pattern' is not known"},
        {"fill", "spread", std::string("wrap"), "shapes[0].paint.fill.spread: 'wrap' is not known"},
        {"fill", "stops", MemoryRecord::Records{}, "shapes[0].paint.fill.stops: empty"},
        {"stroke", "radius", -1.0, "shapes[0].paint.stroke.radius: negative"},
        {"stroke", "focusRadius", -1.0, "shapes[0].paint.stroke.focusRadius: negative"},
    };
    for (const auto& [brush, key, value, message] : table) {
        SCOPED_TRACE(message);
        MemoryRecord record = encoded(painted());
        inner(inner(inner(record, "shapes"), "paint"), brush)[key] = value;
        EXPECT_THAT([&] { decoded(record); }, ThrowsMessage<DecodingError>(StrEq(message)));
    }
    MemoryRecord record = encoded(painted());
    MemoryRecord& fill = inner(inner(inner(record, "shapes"), "paint"), "fill");
    inner(fill, "stops", 0)["offset"] = 0.75;
    EXPECT_THAT([&] { decoded(record); },
                ThrowsMessage<DecodingError>(
                    StrEq("shapes[0].paint.fill.stops[1].offset: less than the one before")));
}

TEST(DrawingCoding, refusesOtherVersionsAndFrames) {
    struct Row {
        const char* key;
        MemoryRecord::Entry value;
        const char* message;
    };
    const Row table[] = {
        {"version", std::int64_t{2}, "version: 2 is not known"},
        {"viewBox", MemoryRecord::Numbers{0, 0, -1, 5}, "viewBox: negative size"},
        {"size", MemoryRecord::Numbers{0, -1}, "size: negative"},
    };
    for (const auto& [key, value, message] : table) {
        MemoryRecord record = encoded(painted());
        record[key] = value;
        EXPECT_THAT([&] { decoded(record); }, ThrowsMessage<DecodingError>(StrEq(message)));
    }
}

TEST(DrawingCoding, namesThePlaceInATextOfJson) {
    std::string text = JSONEncoder().encode(painted());
    const std::size_t radius = text.find("\"radius\"");
    ASSERT_NE(radius, std::string::npos);
    text.replace(radius, 8, "\"radium\"");
    EXPECT_THAT(
        [&] { JSONDecoder().decode<Drawing>(text); },
        ThrowsMessage<DecodingError>(StartsWith("shapes[0].outline[0].segments[0].radius")));
}

RC_GTEST_PROP(DrawingCoding, keepsEveryDrawingThroughJsonAndSvg, ()) {
    const Drawing drawing = test::randomDrawing(*rc::gen::arbitrary<std::uint64_t>());
    const std::string json = JSONEncoder().encode(drawing);
    const Drawing back = JSONDecoder().decode<Drawing>(json);
    RC_ASSERT(hasSameGeometry(drawing, back));
    RC_ASSERT(JSONEncoder().encode(back) == json);
    RC_ASSERT(writeSvg(back) == writeSvg(drawing));
}

}  // namespace
}  // namespace quorin
