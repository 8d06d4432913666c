#include "quorin/svg/reading/SvgScanner.h"

#include <cmath>
#include <limits>
#include <string>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

TEST(SvgScanner, readsNumbersAndStopsWhereTheNextBegins) {
    struct Row {
        const char* text;
        CGFloat number;
        const char* rest;
    };
    const Row table[] = {
        {"0", 0, ""},
        {"12.5px", 12.5, "px"},
        {"+7", 7, ""},
        {"-.5.25", -.5, ".25"},
        {"1.5.5", 1.5, ".5"},
        {"3-4", 3, "-4"},
        {"1e3", 1000, ""},
        {"1E-2,", .01, ","},
        {"4E+5", 400'000, ""},
        {"2em", 2, "em"},
        {"2ex", 2, "ex"},
        {"1e", 1, "e"},
        {"1e+", 1, "e+"},
        {"5.", 5, ""},
        {"007", 7, ""},
        {"1e-123-4E+5", 1e-123, "-4E+5"},
        {"0x10", 0, "x10"},
        {"179769313486231570000000000000000000000000000000000000", 1.7976931348623157e53, ""},
        {"4.9e-324", std::numeric_limits<CGFloat>::denorm_min(), ""},
        {"1e-400", 0, ""},
        {"0.0000000001e-330", 0, ""},
        {"1e-99999999999999999999", 0, ""},
        {"1e-40000000000000000000000000000000000000000 7", 0, " 7"},
        {"1e308", 1e308, ""},
    };
    for (const auto& [text, number, rest] : table) {
        SCOPED_TRACE(text);
        SvgScanner scanner(text);
        EXPECT_EQ(scanner.number(), number);
        EXPECT_EQ(scanner.rest(), rest);
    }
}

TEST(SvgScanner, staysWhereThereIsNoNumber) {
    for (const char* text : {"", "-", "+", ".", "-.", "+-1", "--1", "e5", ".e5", "inf", "-inf",
                             "nan", "NaN", "x", " 1", ",1"}) {
        SCOPED_TRACE(text);
        SvgScanner scanner(text);
        EXPECT_EQ(scanner.number(), std::nullopt);
        EXPECT_EQ(scanner.offset(), 0u);
    }
}

TEST(SvgScanner, refusesNumbersTooLargeForADouble) {
    for (const char* text : {"1e309", "-1e400", "1e99999999999999999999", "1000e306"}) {
        SCOPED_TRACE(text);
        SvgScanner scanner(text);
        EXPECT_EQ(scanner.number(), std::nullopt);
        EXPECT_EQ(scanner.offset(), 0u);
    }
    const std::string digits(400, '9');
    EXPECT_EQ(SvgScanner(digits).number(), std::nullopt);
    const std::string tiny = "0." + std::string(400, '0') + "1";
    EXPECT_EQ(SvgScanner(tiny).number(), 0);
    const std::string large = "0." + std::string(400, '0') + "1e401";
    EXPECT_DOUBLE_EQ(SvgScanner(large).number().value(), 1);
}

TEST(SvgScanner, keepsTheSignOfNegativeZero) {
    EXPECT_TRUE(std::signbit(SvgScanner("-0").number().value()));
}

TEST(SvgScanner, readsFlagsOfOneCharacter) {
    SvgScanner scanner("012");
    EXPECT_EQ(scanner.flag(), false);
    EXPECT_EQ(scanner.flag(), true);
    EXPECT_EQ(scanner.flag(), std::nullopt);
    EXPECT_EQ(scanner.rest(), "2");
}

TEST(SvgScanner, skipsSpaceWithAtMostOneComma) {
    SvgScanner scanner(" \t\r\n\f, ,x");
    EXPECT_TRUE(scanner.skipCommaSpace());
    EXPECT_EQ(scanner.rest(), ",x");
    EXPECT_TRUE(scanner.skipCommaSpace());
    EXPECT_FALSE(scanner.skipCommaSpace());
    EXPECT_EQ(scanner.peek(), 'x');
}

TEST(SvgScanner, readsWordsAndTellsTheEnd) {
    SvgScanner scanner("skew-X_2(");
    EXPECT_EQ(scanner.word(), "skew-X_2");
    EXPECT_FALSE(scanner.take(')'));
    EXPECT_TRUE(scanner.take('('));
    EXPECT_TRUE(scanner.isAtEnd());
    EXPECT_EQ(scanner.peek(), '\0');
    EXPECT_EQ(scanner.word(), "");
    EXPECT_FALSE(scanner.take('('));
}

TEST(SvgScanner, comparesWithoutCase) {
    EXPECT_TRUE(equalsIgnoringCase("CurrentColor", "currentcolor"));
    EXPECT_FALSE(equalsIgnoringCase("current", "currentcolor"));
    EXPECT_FALSE(equalsIgnoringCase("currentcolour", "currentcolor"));
    EXPECT_EQ(trimmedSvgSpace(" \n a b\t"), "a b");
    EXPECT_EQ(trimmedSvgSpace(" \n "), "");
}

}  // namespace
}  // namespace quorin
