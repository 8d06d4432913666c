#include "quorin/platform/foundation/JSONEncoder.h"

#include <limits>
#include <string>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::ThrowsMessage;

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat notANumber = std::numeric_limits<CGFloat>::quiet_NaN();

std::string number(CGFloat value) {
    return JSONEncoder().encode([&](Encoder& encoder) { encoder.encodeNumber("n", value); });
}

constexpr auto encodeEverything = [](Encoder& encoder) {
    encoder.encodeBool("bool", true);
    encoder.encodeInt("int", -7);
    encoder.encodeNumber("number", 0.1);
    encoder.encodeText("text", "ab");
    encoder.encodePoint("point", {1, -2.5});
    encoder.encodeSize("size", {3, 4});
    encoder.encodeVector("vector", {5, 6});
    encoder.encodeRect("rect", CGRectMake(1, 2, 3, 4));
    encoder.encodeTransform("transform", {1, 2, 3, 4, 5, 6});
    encoder.encodeNumbers("numbers", std::vector<CGFloat>{7, 8});
    encoder.encodeNumbers("none", {});
    encoder.encodeRecord("record", [](Encoder& inner) { inner.encodeInt("a", 1); });
    encoder.encodeRecord("emptyRecord", [](Encoder&) {});
    encoder.encodeRecords("records", 2, [](Encoder& inner, std::size_t i) {
        inner.encodeInt("i", static_cast<std::int64_t>(i));
    });
    encoder.encodeRecords("noRecords", 0, [](Encoder&, std::size_t) {});
};

TEST(JSONEncoder, writesOneLineInTheOrderOfTheCalls) {
    EXPECT_EQ(JSONEncoder().encode(encodeEverything),
              R"({"bool":true,"int":-7,"number":0.1,"text":"ab","point":[1,-2.5],"size":[3,4],)"
              R"("vector":[5,6],"rect":[[1,2],[3,4]],"transform":[1,2,3,4,5,6],"numbers":[7,8],)"
              R"("none":[],"record":{"a":1},"emptyRecord":{},"records":[{"i":0},{"i":1}],)"
              R"("noRecords":[]})");
}

TEST(JSONEncoder, setsLevelsInForHumanReaders) {
    const JSONEncoder encoder({.indentation = 2});
    EXPECT_EQ(encoder.encode(encodeEverything), R"({
  "bool": true,
  "int": -7,
  "number": 0.1,
  "text": "ab",
  "point": [1, -2.5],
  "size": [3, 4],
  "vector": [5, 6],
  "rect": [[1, 2], [3, 4]],
  "transform": [1, 2, 3, 4, 5, 6],
  "numbers": [7, 8],
  "none": [],
  "record": {
    "a": 1
  },
  "emptyRecord": {},
  "records": [
    {
      "i": 0
    },
    {
      "i": 1
    }
  ],
  "noRecords": []
})");
}

TEST(JSONEncoder, writesAListWithoutARecordAroundIt) {
    const auto body = [](Encoder& encoder, std::size_t i) {
        encoder.encodeBool("even", i % 2 == 0);
    };
    EXPECT_EQ(JSONEncoder().encodeRecords(2, body), R"([{"even":true},{"even":false}])");
    EXPECT_EQ(JSONEncoder({.indentation = 1}).encodeRecords(1, body),
              "[\n {\n  \"even\": true\n }\n]");
    EXPECT_EQ(JSONEncoder().encodeRecords(0, body), "[]");
}

TEST(JSONEncoder, writesValuesThatWriteThemselves) {
    struct Anchor {
        CGPoint point;
        void encode(Encoder& encoder) const { encoder.encodePoint("point", point); }
    };
    EXPECT_EQ(JSONEncoder().encode(Anchor{{1, 2}}), R"({"point":[1,2]})");
}

TEST(JSONEncoder, givesNumbersTheFewestDigits) {
    struct Row {
        CGFloat value;
        const char* text;
    };
    const Row table[] = {
        {0, "0"},
        {-0.0, "-0.0"},
        {100000, "100000"},
        {-42, "-42"},
        {0.1, "0.1"},
        {1.0 / 3, "0.3333333333333333"},
        {9007199254740991.0, "9007199254740991"},
        {9007199254740992.0, "9007199254740992"},
        {9007199254740994.0, "9007199254740994"},  // 2^53 + 1 itself is no double
        {9223372036854775808.0, "9.223372036854776e+18"},
        {1e300, "1e+300"},
        {5e-324, "5e-324"},
        {1.7976931348623157e308, "1.7976931348623157e+308"},
        {-2.2250738585072014e-308, "-2.2250738585072014e-308"},
    };
    for (const auto& [value, text] : table)
        EXPECT_EQ(number(value), std::string("{\"n\":") + text + '}');
}

TEST(JSONEncoder, escapesWhatJSONDoesNotTakeAsItIs) {
    std::string controls;
    for (char c = 0; c < 0x20; ++c)
        controls += c;
    EXPECT_EQ(
        JSONEncoder().encode([&](Encoder& encoder) {
            encoder.encodeText("k\"\\", "\"\\/\x7F\u00e9\U0001F600");
            encoder.encodeText("c", controls);
        }),
        "{\"k\\\"\\\\\":\"\\\"\\\\/\x7F\u00e9\U0001F600\",\"c\":\""
        "\\u0000\\u0001\\u0002\\u0003\\u0004\\u0005\\u0006\\u0007\\b\\t\\n\\u000b\\f\\r\\u000e"
        "\\u000f\\u0010\\u0011\\u0012\\u0013\\u0014\\u0015\\u0016\\u0017\\u0018\\u0019\\u001a"
        "\\u001b\\u001c\\u001d\\u001e\\u001f\"}");
}

TEST(JSONEncoder, refusesNumbersThatAreNotFiniteNamingThePlace) {
    const auto encode = [](FunctionRef<void(Encoder&)> body) {
        return [=] { JSONEncoder().encode(body); };
    };
    const auto inSegments = [](Encoder& encoder) {
        encoder.encodeRecords("segments", 4, [](Encoder& segment, std::size_t i) {
            segment.encodePoint("point", {0, i == 3 ? notANumber : 0});
        });
    };
    EXPECT_THAT(encode(inSegments),
                ThrowsMessage<EncodingError>("segments[3].point[1]: not a finite number"));
    const auto inRecord = [](Encoder& encoder) {
        encoder.encodeRecord("spring",
                             [](Encoder& spring) { spring.encodeNumber("mass", infinity); });
    };
    EXPECT_THAT(encode(inRecord), ThrowsMessage<EncodingError>("spring.mass: not a finite number"));
    const auto inRect = [](Encoder& encoder) {
        encoder.encodeRect("frame", CGRectMake(0, 0, -infinity, 0));
    };
    EXPECT_THAT(encode(inRect), ThrowsMessage<EncodingError>("frame[1][0]: not a finite number"));
    EXPECT_THAT(([] {
                    JSONEncoder().encodeRecords(1, [](Encoder& encoder, std::size_t) {
                        encoder.encodeNumber("n", notANumber);
                    });
                }),
                ThrowsMessage<EncodingError>("[0].n: not a finite number"));
}

TEST(JSONEncoder, writesNumbersThatAreNotFiniteAsTextsWhenAsked) {
    const JSONEncoder encoder({.nonFiniteAsTexts = true});
    EXPECT_EQ(encoder.encode([](Encoder& record) {
        record.encodePoint("p", {infinity, -infinity});
        record.encodeNumber("n", notANumber);
        record.encodeNumber("m", -notANumber);
    }),
              R"({"p":["inf","-inf"],"n":"nan","m":"nan"})");
}

TEST(JSONEncoder, refusesTextThatIsNotUTF8) {
    EXPECT_THAT(
        ([] {
            JSONEncoder().encode([](Encoder& encoder) { encoder.encodeText("title", "caf\xE9"); });
        }),
        ThrowsMessage<EncodingError>("title: not UTF-8 text"));
}

TEST(JSONEncoder, growsPastEveryFirstGuess) {
    const std::string longText(100'000, 'x');
    const std::string text = JSONEncoder().encode([&](Encoder& encoder) {
        encoder.encodeText("long", longText);
        encoder.encodeNumbers("many", std::vector<CGFloat>(50'000, 0.25));
    });
    EXPECT_EQ(text.size(),
              std::string(R"({"long":"","many":[]})").size() + 100'000 + 50'000 * 5 - 1);
    EXPECT_THAT(text, testing::EndsWith("0.25,0.25]}"));
}

TEST(JSONEncoder, mayBeWrongAboutTheRecordsToCome) {
    for (const bool becomeLonger : {false, true}) {
        const std::string text =
            JSONEncoder().encodeRecords(300, [&](Encoder& encoder, std::size_t i) {
                encoder.encodeText("t", std::string((i < 100) == becomeLonger ? 1 : 1'000, 'x'));
            });
        const std::size_t longOnes = becomeLonger ? 200 : 100;
        EXPECT_EQ(text.size(), 300 * std::string(R"({"t":"x"},)").size() + 999 * longOnes + 1);
    }
}

TEST(JSONEncoderDeathTest, stopsWhenARecordIsWrittenWhileAnInnerOneIsOpen) {
    const auto misuse = [](Encoder& outer) {
        outer.encodeRecord("inner", [&](Encoder&) { outer.encodeInt("x", 1); });
    };
    EXPECT_DEATH(JSONEncoder().encode(misuse), "x: an inner record is still open");
}

}  // namespace
}  // namespace quorin
