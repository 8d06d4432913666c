#include "quorin/platform/foundation/JSONSyntax.h"

#include <string>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

constexpr std::size_t deep = 1'024;

TEST(JSONSyntax, findsNoFaultInGoodTexts) {
    for (const char* text : {"0", "-0", "-12.5e+10", "1E-7", "\"\"", "true", "false", "null", "[]",
                             "{}", " [ 1 , 2 ] ", "{\"a\":{\"b\":[[],{}]},\"c\":null}",
                             "\"\\\"\\\\\\/\\b\\f\\n\\r\\t\\u00e9\\ud83d\\ude00\"",
                             "\"\u00e9\u20ac\U0001F600\x7F\"", "\t\r\n1\n", "1e-999999999999",
                             "0e999999999999", "123456789012345678901234567890", "[[],[]]"})
        EXPECT_FALSE(findJSONSyntaxError(text, deep)) << text;
}

TEST(JSONSyntax, namesTheFirstFaultAndItsPlace) {
    struct Row {
        const char* text;
        std::size_t offset;
        const char* reason;
    };
    const Row table[] = {
        {"", 0, "empty text"},
        {" \n", 2, "empty text"},
        {"x", 0, "expected a value"},
        {"nul", 0, "expected a value"},
        {"[1,]", 3, "expected a value"},
        {"[1 2]", 3, "expected ',' or ']'"},
        {"[1", 2, "the text ends, expected ',' or ']'"},
        {"[1}", 2, "expected ',' or ']'"},
        {"{\"a\":1", 6, "the text ends, expected ',' or '}'"},
        {"{a:1}", 1, "expected a key in quotes"},
        {"{\"a\":1,}", 7, "expected a key in quotes"},
        {"{\"a\" 1}", 5, "expected ':'"},
        {"{\"a\":}", 5, "expected a value"},
        {"{", 1, "the text ends, expected a key in quotes"},
        {"{} {}", 3, "more text after the end"},
        {"1]", 1, "more text after the end"},
        {"[01]", 1, "malformed number"},
        {"[1.]", 3, "expected a digit"},
        {"[-]", 2, "expected a digit"},
        {"[1e]", 3, "expected a digit"},
        {"[1e+]", 4, "expected a digit"},
        {"[1.2.3]", 1, "malformed number"},
        {"[+1]", 1, "expected a value"},
        {"[.5]", 1, "expected a value"},
        {"[NaN]", 1, "expected a value"},
        {"[1e400]", 1, "number too large for a double"},
        {"[-0.001e312]", 1, "number too large for a double"},
        {"[1e99999999999]", 1, "number too large for a double"},
        {"[\"abc]", 1, "a text that is never closed"},
        {"[\"a\nb\"]", 3, "a control character inside a text"},
        {"[\"a\\x\"]", 3, "unknown escape"},
        {"[\"\\u12g4\"]", 4, "expected four hexadecimal digits"},
        {"[\"\\ud800\"]", 2, "half of a surrogate pair"},
        {"[\"\\udc00\"]", 2, "half of a surrogate pair"},
        {"[\"\\ud800\\u0041\"]", 2, "half of a surrogate pair"},
        {"[\"ab\xFF\"]", 4, "not UTF-8"},
        {"[\xC3\xA9]", 1, "expected a value"},
    };
    for (const auto& [text, offset, reason] : table) {
        SCOPED_TRACE(text);
        const auto error = findJSONSyntaxError(text, deep);
        ASSERT_TRUE(error);
        EXPECT_EQ(error->offset, offset);
        EXPECT_EQ(error->reason, reason);
    }
}

TEST(JSONSyntax, countsOnlyLevelsThatHoldSomething) {
    EXPECT_FALSE(findJSONSyntaxError("[[1]]", 2));
    EXPECT_FALSE(findJSONSyntaxError("[[[]]]", 2));
    const auto error = findJSONSyntaxError("[[{\"a\":1}]]", 2);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->offset, 3u);
    EXPECT_EQ(error->reason, "nesting deeper than the limit of 2");
}

TEST(JSONSyntax, takesTooSmallANumberForZero) {
    const std::string tiny = "[0." + std::string(400, '0') + "1e5]";
    EXPECT_FALSE(findJSONSyntaxError(tiny, deep));
    const std::string huge = '[' + std::string(400, '9') + "e-5]";
    ASSERT_TRUE(findJSONSyntaxError(huge, deep));
}

TEST(JSONSyntax, countsLinesAndCharacters) {
    EXPECT_EQ(describePlace("", 0), "line 1, column 1");
    EXPECT_EQ(describePlace("ab\ncd", 2), "line 1, column 3");
    EXPECT_EQ(describePlace("ab\ncd", 3), "line 2, column 1");
    EXPECT_EQ(describePlace("\n\n\u20ac\u20acx", 8), "line 3, column 3");
}

TEST(JSONSyntax, spellsOutOnlyIntegersThatNeedADouble) {
    const char* const untouched =
        "[0,-1,-0.0,-0e1,9223372036854775807,-9223372036854775808,18446744073709551615,1e30,"
        "\"-0\",\"123456789012345678901234567890\",\"\\\"-0\",\"\\\\\",true]";
    EXPECT_EQ(spellingOutDoubles(untouched), untouched);
    EXPECT_EQ(spellingOutDoubles("[-0,-9223372036854775809,18446744073709551616]"),
              "[-0.0,-9223372036854775809.0,18446744073709551616.0]");
    EXPECT_EQ(spellingOutDoubles("\"never closed -0"), "\"never closed -0");
}

TEST(JSONSyntax, findsNegativeZeroIntegersAnywhere) {
    for (std::size_t blanks = 1'000; blanks < 1'050; ++blanks) {
        const std::string before(blanks, ' ');
        ASSERT_TRUE(hasNegativeZeroIntegers(before + "-0"));
        ASSERT_TRUE(hasNegativeZeroIntegers(before + "-0.5,-0]"));
        ASSERT_FALSE(hasNegativeZeroIntegers(before + "-0.5"));
        ASSERT_FALSE(hasNegativeZeroIntegers(before + "-"));
    }
    EXPECT_FALSE(hasNegativeZeroIntegers(""));
    EXPECT_FALSE(hasNegativeZeroIntegers("0-"));
}

}  // namespace
}  // namespace quorin
