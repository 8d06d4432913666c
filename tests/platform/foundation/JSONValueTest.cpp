#include "quorin/platform/foundation/JSONValue.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::HasSubstr;
using testing::ThrowsMessage;

Value nestedLists(std::size_t levels) {
    Value value = 1;
    for (std::size_t i = 0; i < levels; ++i)
        value = Value::List{value};
    return value;
}

std::string brackets(std::size_t levels) {
    return std::string(levels, '[') + '1' + std::string(levels, ']');
}

TEST(JSONValue, writesEveryKindThatJSONHas) {
    struct Row {
        Value value;
        const char* text;
    };
    const Row table[] = {
        {nullptr, "null"},
        {true, "true"},
        {false, "false"},
        {0, "0"},
        {std::numeric_limits<std::int64_t>::min(), "-9223372036854775808"},
        {std::numeric_limits<std::int64_t>::max(), "9223372036854775807"},
        {0.1, "0.1"},
        {"", R"("")"},
        {"caf\u00e9 \"\\\n", R"("café \"\\\n")"},
        {std::string("a\0b", 3), R"("a\u0000b")"},
        {Value::List{}, "[]"},
        {Value::List{1, "two", nullptr, Value::List{true}}, R"([1,"two",null,[true]])"},
        {Value::Map{}, "{}"},
        {Value::Map{{"b", 1}, {"a", Value::Map{{"", 2}}}}, R"({"a":{"":2},"b":1})"},
    };
    for (const auto& [value, text] : table) {
        EXPECT_EQ(encodeJSONValue(value), text);
        EXPECT_EQ(decodeJSONValue(text), value) << text;
    }
}

TEST(JSONValue, writesDoublesSoThatTheyComeBackAsDoubles) {
    struct Row {
        double number;
        const char* text;
    };
    const Row table[] = {
        {1, "1.0"},           {-0.0, "-0.0"},
        {100000, "100000.0"}, {9007199254740994.0, "9007199254740994.0"},
        {1e300, "1e+300"},    {-5e-324, "-5e-324"},
    };
    for (const auto& [number, text] : table) {
        EXPECT_EQ(encodeJSONValue(number), text);
        const Value read = decodeJSONValue(text);
        ASSERT_TRUE(read.asDouble()) << text;
        EXPECT_EQ(std::bit_cast<std::uint64_t>(*read.asDouble()),
                  std::bit_cast<std::uint64_t>(number));
    }
    EXPECT_TRUE(decodeJSONValue(encodeJSONValue(1)).asInteger());
}

RC_GTEST_PROP(JSONValue, keepsEveryFiniteDoubleBitForBitAndADouble, (std::uint64_t bits)) {
    const auto number = std::bit_cast<double>(bits);
    RC_PRE(std::isfinite(number));
    const Value read = decodeJSONValue(encodeJSONValue(Value::List{number}));
    RC_ASSERT(read.asList()->front().asDouble().has_value());
    RC_ASSERT(std::bit_cast<std::uint64_t>(*read.asList()->front().asDouble()) == bits);
}

RC_GTEST_PROP(JSONValue, keepsEveryInteger, (std::int64_t number)) {
    RC_ASSERT(decodeJSONValue(encodeJSONValue(number)).asInteger() == number);
}

TEST(JSONValue, readsIntegersBeyond64BitsAsDoubles) {
    EXPECT_EQ(decodeJSONValue("18446744073709551615").asDouble(), 18446744073709551615.0);
    EXPECT_EQ(decodeJSONValue("-9223372036854775809").asDouble(), -9223372036854775808.0);
    EXPECT_EQ(decodeJSONValue("123456789012345678901234567890").asDouble(), 1.2345678901234568e29);
    EXPECT_TRUE(std::signbit(decodeJSONValue("-0").asDouble().value()));
}

TEST(JSONValue, takesTheLastOfEqualKeys) {
    EXPECT_EQ(decodeJSONValue(R"({"a":1,"b":2,"a":3})"), Value(Value::Map{{"a", 3}, {"b", 2}}));
}

TEST(JSONValue, setsNestedValuesInWhenAsked) {
    const Value value =
        Value::Map{{"a", Value::List{1, Value::Map{{"b", true}}}}, {"c", Value::List{}}};
    const std::string text =
        "{\n  \"a\": [\n    1,\n    {\n      \"b\": true\n    }\n  ],\n  \"c\": []\n}";
    EXPECT_EQ(encodeJSONValue(value, {.indentation = 2}), text);
    EXPECT_EQ(decodeJSONValue(text), value);
}

TEST(JSONValue, refusesWhatJSONDoesNotHaveAndNamesThePlace) {
    struct Row {
        Value value;
        const char* message;
    };
    const Row table[] = {
        {CGPoint{1, 2}, "not a value that JSON has"},
        {Value::Map{{"colour", CGColor{}}}, "colour: not a value that JSON has"},
        {Value::Map{{"a", Value::List{1, Value::Map{{"b", std::nan("")}}}}},
         "a[1].b: not a finite number"},
        {Value::List{"x", "\xFF"}, "[1]: not UTF-8 text"},
        {Value::Map{{"\xC0\x80", 1}}, "not UTF-8 text"},
    };
    for (const Row& row : table)
        EXPECT_THAT([&] { encodeJSONValue(row.value); },
                    ThrowsMessage<EncodingError>(HasSubstr(row.message)));
}

TEST(JSONValue, writesNumbersThatAreNotFiniteAsTextsWhenAsked) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(
        encodeJSONValue(Value::List{infinity, -infinity, std::nan("")}, {.nonFiniteAsTexts = true}),
        R"(["inf","-inf","nan"])");
}

TEST(JSONValue, writesNoMoreLevelsThanItReads) {
    EXPECT_EQ(encodeJSONValue(nestedLists(1'024)), brackets(1'024));
    EXPECT_EQ(decodeJSONValue(brackets(1'024)), nestedLists(1'024));
    EXPECT_THAT([] { encodeJSONValue(nestedLists(1'025)); },
                ThrowsMessage<EncodingError>(HasSubstr("more than 1024 levels")));
    EXPECT_THROW(decodeJSONValue(brackets(1'025)), DecodingError);
    EXPECT_THROW(decodeJSONValue(brackets(100'000), {.maximumDepth = 1'000'000}), DecodingError);
}

TEST(JSONValue, namesThePlaceWhereATextIsDamaged) {
    EXPECT_THAT([] { decodeJSONValue("{\"a\":\n[1,}"); },
                ThrowsMessage<DecodingError>(HasSubstr("line 2, column 4")));
    for (const char* text : {"", " ", "nul", "1 2", "\"\xFF\"", "\"open", "{\"a\"}", "[1", "1e999"})
        EXPECT_THROW(decodeJSONValue(text), DecodingError) << text;
}

}  // namespace
}  // namespace quorin
