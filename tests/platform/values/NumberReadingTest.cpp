#include "quorin/platform/values/NumberReading.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

struct Row {
    std::string text;
    double number;
};

void expectDoubleValues(std::initializer_list<Row> table) {
    for (const auto& [text, number] : table) {
        SCOPED_TRACE(text.substr(0, 40));
        const double read = doubleValue(text);
        EXPECT_EQ(read, number);
        EXPECT_EQ(std::signbit(read), std::signbit(number));
    }
}

TEST(DoubleValue, readsTheLeadingNumberAndIgnoresTheRest) {
    expectDoubleValues({{"50%", 50},
                        {"12.5 pt", 12.5},
                        {"-3abc", -3},
                        {"1,5", 1},
                        {"1.2.3", 1.2},
                        {".5", 0.5},
                        {"5.", 5},
                        {"1e3", 1000},
                        {"-2.5E-2x", -0.025},
                        {"1e", 1},
                        {"1e+", 1},
                        {"1e5.5", 1e5}});
}

TEST(DoubleValue, skipsWhiteSpaceAndOneSign) {
    expectDoubleValues({{" \t\r\n\v\f7", 7},
                        {"+7", 7},
                        {" -7", -7},
                        {"+-7", 0},
                        {"--7", 0},
                        {"- 7", 0},
                        {"\xC2\xA0"
                         "7",
                         0}});
}

TEST(DoubleValue, isZeroWithoutANumber) {
    expectDoubleValues({{"", 0}, {" ", 0}, {"abc", 0}, {".", 0}, {"-", 0}, {"-.", 0}, {".e5", 0}});
    expectDoubleValues({{std::string("\0"
                                     "5",
                                     2),
                         0},
                        {"\xFF", 0},
                        {"-0", -0.0}});
}

TEST(DoubleValue, knowsNoWordsAndNoHexadecimal) {
    expectDoubleValues(
        {{"inf", 0}, {"-infinity", 0}, {"nan", 0}, {"NAN(1)", 0}, {"0x1F", 0}, {"-0x1p3", -0.0}});
}

TEST(DoubleValue, becomesInfiniteOrZeroWhereADoubleEnds) {
    const std::string zeros(1000, '0');
    expectDoubleValues({{"1e309", infinity},
                        {"-1e309", -infinity},
                        {"1.7976931348623157e308", std::numeric_limits<double>::max()},
                        {"5e-324", std::numeric_limits<double>::denorm_min()},
                        {"1e-400", 0},
                        {"-1e-400", -0.0},
                        {"1" + zeros, infinity},
                        {"0." + zeros + "1", 0},
                        {"0." + zeros + "1e1001", 1},
                        {"0." + zeros + "1e2000", infinity},
                        {"1" + zeros + "e-2000", 0},
                        {"1e99999999999999999999", infinity},
                        {"1e-99999999999999999999", 0},
                        {"0e99999999999999999999", 0}});
}

RC_GTEST_PROP(DoubleValue, readsWhatIsWrittenWithAllDigits, (double number)) {
    RC_PRE(std::isfinite(number));
    std::array<char, 40> text;
    std::snprintf(text.data(), text.size(), "%.17g", number);
    RC_ASSERT(doubleValue(text.data()) == number);
}

TEST(ReadDecimal, tellsTheSizeOfTheNumber) {
    struct Case {
        const char* text;
        std::chars_format format;
        std::size_t size;
        double number;
    };
    constexpr auto fixed = std::chars_format::fixed, general = std::chars_format::general;
    const Case table[] = {
        {"12.5)", fixed, 4, 12.5}, {"1e5", fixed, 1, 1}, {"1e5", general, 3, 1e5},
        {"1E5", fixed, 1, 1},      {"5.", fixed, 2, 5},  {".5.5", fixed, 2, 0.5},
        {"0x1", general, 1, 0},
    };
    for (const auto& [text, format, size, number] : table) {
        SCOPED_TRACE(text);
        double read = -1;
        EXPECT_EQ(readDecimal(text, format, read), size);
        EXPECT_EQ(read, number);
    }
}

TEST(ReadDecimal, readsNothingElse) {
    for (const char* text : {"", ".", "-1", "+1", " 1", "inf", "nan", "..5", ".e1"}) {
        SCOPED_TRACE(text);
        double read = -1;
        EXPECT_EQ(readDecimal(text, std::chars_format::general, read), 0u);
        EXPECT_EQ(read, -1);
    }
}

}  // namespace
}  // namespace quorin
