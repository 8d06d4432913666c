#include "quorin/platform/foundation/JSONDecoder.h"

#include <cmath>
#include <limits>
#include <string>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::ElementsAre;
using Kind = DecodingError::Kind;

/// The message of the error that decoding throws, after its kind is checked.
std::string failure(Kind kind, std::string_view text, FunctionRef<void(Decoder&)> body,
                    JSONDecoder::Options options = {}) {
    try {
        JSONDecoder(options).decode(text, body);
    } catch (const DecodingError& error) {
        EXPECT_EQ(error.kind(), kind);
        return error.what();
    }
    return "no error";
}

constexpr auto readNothing = [](Decoder&) {};

CGFloat number(const std::string& digits) {
    CGFloat result = 0;
    JSONDecoder().decode("{\"n\":" + digits + '}',
                         [&](Decoder& decoder) { result = decoder.decodeNumber("n"); });
    return result;
}

std::int64_t integer(const std::string& digits) {
    std::int64_t result = 0;
    JSONDecoder().decode("{\"n\":" + digits + '}',
                         [&](Decoder& decoder) { result = decoder.decodeInt("n"); });
    return result;
}

TEST(JSONDecoder, readsEveryKindOfValueInAnyOrder) {
    const char* const text = R"( {"numbers": [7, 8.5], "rect": [[1,2],[3,4]], "bool": false,
        "transform": [1,2,3,4,5,6], "vector": [5,6], "size": [3,4], "point": [1,-2.5],
        "text": "a\u00e9\ud83d\ude00\"\\\/\b\f\n\r\t\u0000", "number": 0.1, "int": -7} )";
    JSONDecoder().decode(text, [](Decoder& decoder) {
        EXPECT_FALSE(decoder.decodeBool("bool"));
        EXPECT_EQ(decoder.decodeInt("int"), -7);
        EXPECT_EQ(decoder.decodeNumber("number"), 0.1);
        EXPECT_EQ(decoder.decodeText("text"),
                  std::string("a\u00e9\U0001F600\"\\/\b\f\n\r\t") + '\0');
        EXPECT_EQ(decoder.decodePoint("point"), (CGPoint{1, -2.5}));
        EXPECT_EQ(decoder.decodeSize("size"), (CGSize{3, 4}));
        EXPECT_EQ(decoder.decodeVector("vector"), (CGVector{5, 6}));
        EXPECT_EQ(decoder.decodeRect("rect"), CGRectMake(1, 2, 3, 4));
        EXPECT_EQ(decoder.decodeTransform("transform"), (CGAffineTransform{1, 2, 3, 4, 5, 6}));
        EXPECT_THAT(decoder.decodeNumbers("numbers"), ElementsAre(7, 8.5));
    });
}

TEST(JSONDecoder, readsRecordsInRecords) {
    const char* const text = R"({"a":{"b":{"x":1},"c":[{"x":2},{"x":3}],"none":[]},"z":4})";
    std::vector<std::int64_t> seen;
    JSONDecoder().decode(text, [&](Decoder& outer) {
        outer.decodeRecord("a", [&](Decoder& a) {
            a.decodeRecord("b", [&](Decoder& b) { seen.push_back(b.decodeInt("x")); });
            EXPECT_EQ(a.recordCount("c"), 2u);
            EXPECT_EQ(a.recordCount("none"), 0u);
            a.decodeRecords("c", [&](Decoder& c, std::size_t i) {
                EXPECT_EQ(c.decodeInt("x"), static_cast<std::int64_t>(i) + 2);
                // The records around one may be read while it is open.
                seen.push_back(outer.decodeInt("z"));
            });
            a.decodeRecords("none", [&](Decoder&, std::size_t) { seen.push_back(-1); });
        });
    });
    EXPECT_THAT(seen, ElementsAre(1, 4, 4));
}

TEST(JSONDecoder, readsAListWithoutARecordAroundIt) {
    std::vector<std::int64_t> seen;
    JSONDecoder().decodeRecords(R"([{"x":5},{"x":6}])", [&](Decoder& decoder, std::size_t i) {
        EXPECT_EQ(i, seen.size());
        seen.push_back(decoder.decodeInt("x"));
    });
    EXPECT_THAT(seen, ElementsAre(5, 6));
    const auto readX = [](Decoder& decoder, std::size_t) { decoder.decodeInt("x"); };
    EXPECT_THAT([&] { JSONDecoder().decodeRecords(R"([{"x":5},{"y":6}])", readX); },
                testing::ThrowsMessage<DecodingError>("[1].x: key not found"));
    EXPECT_THAT([&] { JSONDecoder().decodeRecords("{}", readX); },
                testing::ThrowsMessage<DecodingError>("not a list"));
}

TEST(JSONDecoder, returnsWhatReadsItself) {
    struct Anchor {
        CGPoint point;
        explicit Anchor(CGPoint at) : point(at) {}
        static Anchor decode(Decoder& decoder) { return Anchor(decoder.decodePoint("point")); }
    };
    EXPECT_EQ(JSONDecoder().decode<Anchor>(R"({"point":[1,2]})").point, (CGPoint{1, 2}));
    EXPECT_THROW(JSONDecoder().decode<Anchor>("{}"), DecodingError);
}

TEST(JSONDecoder, requiresEveryKeyNamingTheCodingPath) {
    const auto readRadius = [](Decoder& decoder) {
        decoder.decodeRecords(
            "segments", [](Decoder& segment, std::size_t) { segment.decodeNumber("radius"); });
    };
    EXPECT_EQ(failure(Kind::keyNotFound,
                      R"({"segments":[{"radius":1},{"radius":1},{"radius":1},{"Radius":1}]})",
                      readRadius),
              "segments[3].radius: key not found");
    EXPECT_EQ(failure(Kind::keyNotFound, "{}", readRadius), "segments: key not found");
    EXPECT_EQ(failure(Kind::typeMismatch, R"({"segments":{}})", readRadius),
              "segments: not a list");
    EXPECT_EQ(failure(Kind::typeMismatch, R"({"segments":[{"radius":1},[]]})", readRadius),
              "segments[1]: not a record");
    EXPECT_EQ(failure(Kind::typeMismatch, R"({"segments":[{"radius":null}]})", readRadius),
              "segments[0].radius: not a number");
    EXPECT_EQ(failure(Kind::typeMismatch, "[]", readRadius), "not a record");
}

TEST(JSONDecoder, tellsWhichKeysThereAre) {
    JSONDecoder().decode(R"({"a":null,"\u0062":1})", [](Decoder& decoder) {
        EXPECT_TRUE(decoder.contains("a"));
        EXPECT_TRUE(decoder.contains("b"));
        EXPECT_FALSE(decoder.contains("c"));
        EXPECT_FALSE(decoder.contains(""));
    });
}

TEST(JSONDecoder, takesNoTypeForAnother) {
    struct Row {
        const char* value;
        void (*read)(Decoder&);
        const char* message;
    };
    const auto readBool = [](Decoder& d) { d.decodeBool("k"); };
    const auto readInt = [](Decoder& d) { d.decodeInt("k"); };
    const auto readNumber = [](Decoder& d) { d.decodeNumber("k"); };
    const auto readText = [](Decoder& d) { d.decodeText("k"); };
    const auto readPoint = [](Decoder& d) { d.decodePoint("k"); };
    const auto readRect = [](Decoder& d) { d.decodeRect("k"); };
    const auto readNumbers = [](Decoder& d) { d.decodeNumbers("k"); };
    const auto readRecord = [](Decoder& d) { d.decodeRecord("k", readNothing); };
    const auto readCount = [](Decoder& d) { d.recordCount("k"); };
    const Row table[] = {
        {"1", readBool, "k: not a Boolean"},
        {"0", readBool, "k: not a Boolean"},
        {"\"true\"", readBool, "k: not a Boolean"},
        {"true", readNumber, "k: not a number"},
        {"\"1\"", readNumber, "k: not a number"},
        {"\"inf\"", readNumber, "k: not a number"},
        {"[1]", readNumber, "k: not a number"},
        {"true", readInt, "k: not an integer"},
        {"1.5", readInt, "k: not an integer"},
        {"-1e-3", readInt, "k: not an integer"},
        {"\"1\"", readInt, "k: not an integer"},
        {"1", readText, "k: not a text"},
        {"null", readText, "k: not a text"},
        {"1", readPoint, "k: not a list"},
        {"{\"x\":1,\"y\":2}", readPoint, "k: not a list"},
        {"[1,\"2\"]", readPoint, "k[1]: not a number"},
        {"[true,2]", readPoint, "k[0]: not a number"},
        {"[1,[2,3]]", readRect, "k[0]: not a list"},
        {"[[1,2],[3,false]]", readRect, "k[1][1]: not a number"},
        {"[1,null]", readNumbers, "k[1]: not a number"},
        {"[]", readRecord, "k: not a record"},
        {"7", readCount, "k: not a list"},
    };
    for (const auto& [value, read, message] : table)
        EXPECT_EQ(failure(Kind::typeMismatch, std::string("{\"k\":") + value + '}', read), message);
}

TEST(JSONDecoder, wantsExactlyAsManyNumbersAsAValueHas) {
    const auto readPoint = [](Decoder& d) { d.decodePoint("k"); };
    const auto readRect = [](Decoder& d) { d.decodeRect("k"); };
    const auto readTransform = [](Decoder& d) { d.decodeTransform("k"); };
    EXPECT_EQ(failure(Kind::valueCorrupted, R"({"k":[]})", readPoint),
              "k: 0 elements instead of 2");
    EXPECT_EQ(failure(Kind::valueCorrupted, R"({"k":[1,2,3]})", readPoint),
              "k: 3 elements instead of 2");
    EXPECT_EQ(failure(Kind::valueCorrupted, R"({"k":[[1,2],[3]]})", readRect),
              "k[1]: 1 elements instead of 2");
    EXPECT_EQ(failure(Kind::valueCorrupted, R"({"k":[1,2,3,4,5]})", readTransform),
              "k: 5 elements instead of 6");
}

TEST(JSONDecoder, letsTheReaderRejectAValue) {
    const auto reject = [](Decoder& decoder) {
        decoder.decodeRecords("segments", [](Decoder& segment, std::size_t) {
            segment.corrupted("behavior", "7 is no behaviour");
        });
    };
    EXPECT_EQ(failure(Kind::valueCorrupted, R"({"segments":[{}]})", reject),
              "segments[0].behavior: 7 is no behaviour");
}

TEST(JSONDecoder, keepsTheLastValueOfADuplicateKey) {
    JSONDecoder().decode(R"({"a":1,"b":2,"a":{"x":3},"b":4,"a":5})", [](Decoder& decoder) {
        EXPECT_EQ(decoder.decodeInt("a"), 5);
        EXPECT_EQ(decoder.decodeInt("b"), 4);
    });
}

TEST(JSONDecoder, readsWholeNumbersAsIntegersHoweverTheyAreWritten) {
    EXPECT_EQ(integer("9223372036854775807"), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(integer("-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(integer("3.0"), 3);
    EXPECT_EQ(integer("-25e2"), -2500);
    EXPECT_EQ(integer("-0"), 0);
    const auto readInt = [](Decoder& d) { d.decodeInt("k"); };
    for (const char* tooLarge :
         {"9223372036854775808", "-9223372036854775809", "1e19", "123456789012345678901234567890"})
        EXPECT_EQ(failure(Kind::valueCorrupted, std::string("{\"k\":") + tooLarge + '}', readInt),
                  "k: an integer beyond 64 bits");
}

TEST(JSONDecoder, readsIntegersBeyond64BitsAsDoubles) {
    EXPECT_EQ(number("18446744073709551615"), 18446744073709551616.0);
    EXPECT_EQ(number("18446744073709551616"), 18446744073709551616.0);
    EXPECT_EQ(number("-9223372036854775809"), -9223372036854775808.0);
    EXPECT_EQ(number("123456789012345678901234567890"), 123456789012345678901234567890.0);
    EXPECT_EQ(number('1' + std::string(308, '0')), 1e308);
}

TEST(JSONDecoder, keepsTheSignOfZero) {
    for (const char* zero : {"-0", "-0.0", "-0e5", "-1e-400"})
        EXPECT_TRUE(number(zero) == 0 && std::signbit(number(zero))) << zero;
    for (const char* zero : {"0", "0.0", "1e-400"})
        EXPECT_TRUE(number(zero) == 0 && !std::signbit(number(zero))) << zero;
}

TEST(JSONDecoder, roundsCorrectlyWhereItIsHard) {
    EXPECT_EQ(number("9007199254740993"), 9007199254740992.0);  // 2^53 + 1, to even
    EXPECT_EQ(number("9007199254740993.0"), 9007199254740992.0);
    EXPECT_EQ(number("9007199254740993.00000000000000000000001"), 9007199254740994.0);
    EXPECT_EQ(number("2.2250738585072011e-308"), 0x0.fffffffffffffp-1022);
    EXPECT_EQ(number("2.4703282292062327e-324"), 0);       // just below half of the smallest
    EXPECT_EQ(number("2.4703282292062328e-324"), 5e-324);  // just above
    EXPECT_EQ(number("1.7976931348623158e308"), std::numeric_limits<CGFloat>::max());
}

TEST(JSONDecoder, readsNumbersThatAreNotFiniteFromTextsWhenAsked) {
    const JSONDecoder decoder({.nonFiniteAsTexts = true});
    decoder.decode(R"({"p":["inf","-inf"],"n":"nan"})", [](Decoder& record) {
        const CGPoint p = record.decodePoint("p");
        EXPECT_EQ(p.x, std::numeric_limits<CGFloat>::infinity());
        EXPECT_EQ(p.y, -std::numeric_limits<CGFloat>::infinity());
        EXPECT_TRUE(std::isnan(record.decodeNumber("n")));
    });
    EXPECT_EQ(failure(Kind::typeMismatch, R"({"k":"infinity"})",
                      [](Decoder& d) { d.decodeNumber("k"); }, {.nonFiniteAsTexts = true}),
              "k: not a number");
}

TEST(JSONDecoder, namesLineAndColumnOfMalformedText) {
    struct Row {
        const char* text;
        const char* message;
    };
    const Row table[] = {
        {"", "line 1, column 1: empty text"},
        {" \n\t ", "line 2, column 3: empty text"},
        {"{\n  \"a\": 1,\n  \"b\" 2\n}", "line 3, column 7: expected ':'"},
        {"{\"a\":[1,2}", "line 1, column 10: expected ',' or ']'"},
        {"{\"a\":1", "line 1, column 7: the text ends, expected ',' or '}'"},
        {"{\"a\":1} x", "line 1, column 9: more text after the end"},
        {"{\"a\":1e999}", "line 1, column 6: number too large for a double"},
        {"{\"a\":\"\n\"}", "line 1, column 7: a control character inside a text"},
        {"{\"\u20ac\":\"\xFF\"}", "line 1, column 7: not UTF-8"},
        {"{\"a\":-0,\"b\":.5}", "line 1, column 13: expected a value"},
        {"\xFF\xFE{", "line 1, column 1: expected a value"},
    };
    for (const auto& [text, message] : table)
        EXPECT_EQ(failure(Kind::valueCorrupted, text, readNothing), message);
}

TEST(JSONDecoder, skipsAByteOrderMark) {
    JSONDecoder().decode("\xEF\xBB\xBF{\"a\":1}",
                         [](Decoder& decoder) { EXPECT_EQ(decoder.decodeInt("a"), 1); });
    EXPECT_EQ(failure(Kind::valueCorrupted, "\xEF\xBB\xBF{\"a\"}", readNothing),
              "line 1, column 5: expected ':'");
    EXPECT_EQ(failure(Kind::valueCorrupted, "\xEF\xBB\xBF", readNothing),
              "line 1, column 1: empty text");
}

std::string nested(std::size_t levels) {
    std::string text;
    for (std::size_t i = 0; i < levels; ++i)
        text += "{\"a\":";
    return text + '1' + std::string(levels, '}');
}

TEST(JSONDecoder, limitsTheDepth) {
    EXPECT_NO_THROW(JSONDecoder().decode(nested(1'024), readNothing));
    EXPECT_EQ(failure(Kind::valueCorrupted, nested(1'025), readNothing),
              "line 1, column 5122: nesting deeper than the limit of 1024");
    EXPECT_EQ(failure(Kind::valueCorrupted, nested(3), readNothing, {.maximumDepth = 2}),
              "line 1, column 12: nesting deeper than the limit of 2");
    EXPECT_EQ(failure(Kind::valueCorrupted, std::string(1'000'000, '['), readNothing),
              "line 1, column 1026: nesting deeper than the limit of 1024");
    EXPECT_NO_THROW(JSONDecoder({.maximumDepth = 100'000}).decode(nested(100'000), readNothing));
}

TEST(JSONDecoder, limitsTheTextSize) {
    EXPECT_NO_THROW(JSONDecoder({.maximumTextSize = 2}).decode("{}", readNothing));
    EXPECT_EQ(failure(Kind::valueCorrupted, "{ }", readNothing, {.maximumTextSize = 2}),
              "text of 3 bytes, the limit is 2");
}

TEST(JSONDecoder, looksNotBeyondTheGivenText) {
    const std::string larger = "{\"a\":12}345";
    JSONDecoder().decode(std::string_view(larger).substr(0, 8),
                         [](Decoder& decoder) { EXPECT_EQ(decoder.decodeInt("a"), 12); });
}

TEST(JSONDecoder, passesOnWhatTheReaderThrows) {
    const auto readTwo = [](Decoder& decoder) {
        decoder.decodeRecords("list", [](Decoder&, std::size_t i) {
            if (i == 1)
                throw std::logic_error("enough");
        });
    };
    EXPECT_THROW(JSONDecoder().decode(R"({"list":[{"a":1},{"a":2},{"a":3}]})", readTwo),
                 std::logic_error);
}

}  // namespace
}  // namespace quorin
