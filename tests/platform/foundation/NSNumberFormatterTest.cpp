#include "quorin/platform/foundation/NSNumberFormatter.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <string>
#include <thread>
#include <vector>

#include "tests/TestSupport.h"
#include "tests/support/AllocationCount.h"

namespace quorin {
namespace {

using Style = NSNumberFormatterStyle;
using Mode = NSNumberFormatterRoundingMode;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double greatest = std::numeric_limits<double>::max();

struct Settings {
    double increment = 0;
    Mode mode = Mode::halfEven;
    Style style = Style::decimal;
};

/// In a formatter of its own.
std::string shown(double number, const Settings& settings = {},
                  const NSLocale& locale = NSLocale("en_US")) {
    NSNumberFormatter formatter(locale);
    formatter.setNumberStyle(settings.style);
    formatter.setRoundingIncrement(settings.increment);
    formatter.setRoundingMode(settings.mode);
    return formatter.string(number).value_or("nothing");
}

std::optional<NSNumber> readIn(const char* locale, std::string_view text) {
    return NSNumberFormatter(NSLocale(locale)).number(text);
}

TEST(NSNumberFormatter, writesTheDecimalStyleOfEachLocale) {
    const double numbers[] = {0, 12.5, 1234, -1234567.891, 0.0625, -0.04, 1e15};
    struct Row {
        const char* locale;
        std::vector<std::string> texts;
    };
    const Row table[] = {
        {"en_US",
         {"0", "12.5", "1,234", "-1,234,567.891", "0.062", "-0.04", "1,000,000,000,000,000"}},
        {"de_DE",
         {"0", "12,5", "1.234", "-1.234.567,891", "0,062", "-0,04", "1.000.000.000.000.000"}},
        {"fr_FR",
         {"0", "12,5", "1\u202F234", "-1\u202F234\u202F567,891", "0,062", "-0,04",
          "1\u202F000\u202F000\u202F000\u202F000\u202F000"}},
        {"sv_SE",
         {"0", "12,5", "1\u00A0234", "\u22121\u00A0234\u00A0567,891", "0,062", "\u22120,04",
          "1\u00A0000\u00A0000\u00A0000\u00A0000\u00A0000"}},
        {"hi_IN",
         {"0", "12.5", "1,234", "-12,34,567.891", "0.062", "-0.04", "1,00,00,00,00,00,00,000"}},
        {"C", {"0", "12.5", "1,234", "-1,234,567.891", "0.062", "-0.04", "1,000,000,000,000,000"}},
    };
    for (const auto& [locale, texts] : table) {
        SCOPED_TRACE(locale);
        std::vector<std::string> results;
        for (const double number : numbers)
            results.push_back(shown(number, {}, NSLocale(locale)));
        EXPECT_EQ(results, texts);
    }
}

TEST(NSNumberFormatter, roundsToItsIncrement) {
    struct Row {
        double increment, number;
        const char* text;
    };
    const Row table[] = {
        {0.1, 1234.5678, "1,234.6"},
        {0.1, 1, "1"},
        {0.1, 0.04, "0"},
        {0.01, 1.234, "1.23"},
        {0.25, 0.3, "0.25"},
        {0.25, 0.4, "0.5"},
        {5, 12, "10"},
        {5, 13, "15"},
        {100, 12345.678, "12,300"},
        {7, 10, "7"},
        {7, 11, "14"},
        {1e15, 1.2e15, "1,000,000,000,000,000"},
    };
    for (const auto& [increment, number, text] : table)
        EXPECT_EQ(shown(number, {increment}), text);
}

TEST(NSNumberFormatter, judgesHalvesOnTheDecimalsThatStandForThem) {
    const double numbers[] = {0.15, 0.25, 0.35, 0.45, -0.25, 2.675, 1.005};
    struct Row {
        Mode mode;
        double increment;
        std::vector<std::string> texts;
    };
    const Row table[] = {
        {Mode::halfEven, 0.1, {"0.2", "0.2", "0.4", "0.4", "-0.2", "2.7", "1"}},
        {Mode::halfUp, 0.1, {"0.2", "0.3", "0.4", "0.5", "-0.3", "2.7", "1"}},
        {Mode::halfDown, 0.1, {"0.1", "0.2", "0.3", "0.4", "-0.2", "2.7", "1"}},
        {Mode::halfEven, 0.01, {"0.15", "0.25", "0.35", "0.45", "-0.25", "2.68", "1"}},
        {Mode::halfUp, 0.01, {"0.15", "0.25", "0.35", "0.45", "-0.25", "2.68", "1.01"}},
        {Mode::up, 0.1, {"0.2", "0.3", "0.4", "0.5", "-0.3", "2.7", "1.1"}},
        {Mode::down, 0.1, {"0.1", "0.2", "0.3", "0.4", "-0.2", "2.6", "1"}},
        {Mode::ceiling, 0.1, {"0.2", "0.3", "0.4", "0.5", "-0.2", "2.7", "1.1"}},
        {Mode::floor, 0.1, {"0.1", "0.2", "0.3", "0.4", "-0.3", "2.6", "1"}},
    };
    for (const auto& [mode, increment, texts] : table) {
        std::vector<std::string> results;
        for (const double number : numbers)
            results.push_back(shown(number, {increment, mode}));
        EXPECT_EQ(results, texts) << static_cast<int>(mode);
    }
}

TEST(NSNumberFormatter, keepsTheMinusOfWhatRoundsToZero) {
    for (const double number : {-0.0, -0.04, -1e-300})
        EXPECT_EQ(shown(number, {0.1}), "-0");
    EXPECT_EQ(shown(-0.04, {0.1}, NSLocale("sv_SE")), "\u22120");
    EXPECT_EQ(shown(-0.05, {0.1}), "-0");
    EXPECT_EQ(shown(-0.05, {0.1, Mode::halfUp}), "-0.1");
}

TEST(NSNumberFormatter, cutsFinerIncrementsToThreeDigits) {
    struct Row {
        double increment, number;
        const char* text;
    };
    const Row table[] = {
        {0.001, 1.23456, "1.235"},
        {0.0001, 1.23456, "1.235"},
        {0.0005, 0.0006, "0.001"},
        {1e-9, 12345.6789, "12,345.679"},
        {5e-324, 0.15, "0.15"},
        // First to the multiple, 12345.6775 and 0.0025, then to three digits.
        {0.00125, 12345.678, "12,345.678"},
        {0.00125, 0.002, "0.002"},
        {0.00125, -0.0004, "-0"},
        {1.0 / 3, 0.4, "0.333"},
        {1.0 / 3, 5, "5"},
        {0.0625, 0.05, "0.062"},
        {0.0625, 1.19, "1.188"},
    };
    for (const auto& [increment, number, text] : table)
        EXPECT_EQ(shown(number, {increment}), text);
    EXPECT_EQ(shown(0.002, {0.00125, Mode::halfUp}), "0.003");
    EXPECT_EQ(shown(12345.678, {0.00125}, NSLocale("de_DE")), "12.345,678");
    EXPECT_EQ(shown(infinity, {0.00125}), "\u221E");
    EXPECT_EQ(shown(nan, {0.00125}), "NaN");
}

TEST(NSNumberFormatter, takesAnIncrementThatIsNoneForNone) {
    for (const double increment : {0.0, -0.0, -1.0, -infinity, infinity, nan})
        EXPECT_EQ(shown(1234.56789, {increment}), "1,234.568") << increment;
}

TEST(NSNumberFormatter, writesNumbersOfEveryMagnitude) {
    EXPECT_EQ(shown(999'999'999'999'999.9, {0.1}), "999,999,999,999,999.9");
    EXPECT_EQ(shown(1e21, {0.1}), "1,000,000,000,000,000,000,000");
    EXPECT_EQ(shown(infinity, {0.1}), "\u221E");
    EXPECT_EQ(shown(-infinity, {0.1}), "-\u221E");
    EXPECT_EQ(shown(nan, {0.1}), "NaN");
    EXPECT_EQ(shown(-infinity, {0.1}, NSLocale("sv_SE")), "\u2212\u221E");
    EXPECT_EQ(shown(5e-324, {0.1}), "0");
    const std::string all = shown(-greatest);
    EXPECT_EQ(all.substr(0, 25), "-179,769,313,486,231,570,");
    EXPECT_EQ(all.size(), 1u + 309u + 102u);
    // Groups of two digits, each in four bytes: the longest text of all.
    EXPECT_NE(shown(-greatest, {}, NSLocale("ccp_IN")), "nothing");
}

TEST(NSNumberFormatter, writesNaNWithoutTheSignThatAProcessorGivesIt) {
    EXPECT_EQ(shown(-nan, {0.1}), "NaN");
    EXPECT_EQ(shown(-nan, {0.00125}), "NaN");
    EXPECT_EQ(shown(-nan, {}, NSLocale("sv_SE")), "NaN");
}

TEST(NSNumberFormatter, showsWhatIsTooLargeForItsIncrementAsItIs) {
    for (const double increment : {0.7, 1.0 / 3, 7.0, 0.00125}) {
        EXPECT_EQ(shown(1e300, {increment}).substr(0, 9), "1,000,000") << increment;
        EXPECT_EQ(shown(-1e300, {increment}).size(), 1u + 301u + 100u) << increment;
    }
    EXPECT_EQ(shown(5, {1e300}), "0");
    EXPECT_EQ(shown(1e300, {1e-300}), shown(1e300));
    EXPECT_EQ(shown(greatest, {greatest}), shown(greatest));
}

TEST(NSNumberFormatter, writesWholeNumbersWithoutAStyle) {
    EXPECT_EQ(NSNumberFormatter().numberStyle(), Style::none);
    const Settings plain{0, Mode::halfEven, Style::none};
    EXPECT_EQ(shown(1234567.5, plain), "1234568");
    EXPECT_EQ(shown(0.5, plain), "0");
    EXPECT_EQ(shown(-12, plain, NSLocale("sv_SE")), "\u221212");
    EXPECT_EQ(shown(13, {5, Mode::halfEven, Style::none}), "15");
    EXPECT_EQ(shown(1.4, {0.7, Mode::halfEven, Style::none}), "1");
}

TEST(NSNumberFormatter, turnsGroupsOnAndOffWithTheStyle) {
    NSNumberFormatter formatter(NSLocale("en_US"));
    EXPECT_FALSE(formatter.usesGroupingSeparator());
    formatter.setUsesGroupingSeparator(true);
    EXPECT_EQ(formatter.string(1234), "1,234");
    formatter.setNumberStyle(Style::decimal);
    EXPECT_TRUE(formatter.usesGroupingSeparator());
    formatter.setUsesGroupingSeparator(false);
    EXPECT_EQ(formatter.string(1234.5), "1234.5");
    formatter.setNumberStyle(Style::none);
    EXPECT_FALSE(formatter.usesGroupingSeparator());
}

TEST(NSNumberFormatter, keepsTheLocaleItWasMadeIn) {
    const NSLocale::CurrentScope german("de_DE");
    NSNumberFormatter formatter;
    formatter.setNumberStyle(Style::decimal);
    const NSLocale::CurrentScope hindi("hi_IN");
    EXPECT_EQ(formatter.string(1234567.5), "1.234.567,5");
    EXPECT_EQ(formatter.description(), "<NSNumberFormatter: de_DE>");
    formatter.setLocale(NSLocale::current());
    EXPECT_EQ(formatter.string(1234567.5), "12,34,567.5");
}

TEST(NSNumberFormatter, readsANumberThatIsTheWholeText) {
    struct Row {
        const char *locale, *text;
        NSNumber number;
    };
    const Row table[] = {
        {"en_US", "12", 12},
        {"en_US", "12.7", 12.7},
        {"en_US", "12.0", 12},
        {"en_US", "-12", -12},
        {"en_US", "1,234.5", 1234.5},
        {"en_US", "1,234,567", 1234567},
        {"en_US", "  12\t\n", 12},
        {"en_US", "\u00A0\u202F12\u3000", 12},
        {"en_US", ".5", 0.5},
        {"en_US", "5.", 5},
        {"en_US", "9223372036854775807", std::numeric_limits<std::int64_t>::max()},
        {"en_US", "-9223372036854775808", std::numeric_limits<std::int64_t>::min()},
        {"en_US", "9223372036854775808", 9223372036854775808.0},
        {"en_US", "1E400", infinity},
        {"de_DE", "1.234,5", 1234.5},
        {"fr_FR", "1\u202F234,5", 1234.5},
        {"fr_FR", "1 234,5", 1234.5},
        {"sv_SE", "\u22121\u00A0234,5", -1234.5},
        {"sv_SE", "-1 234,5", -1234.5},
        {"hi_IN", "12,34,567", 1234567},
        {"C", "1,234.5", 1234.5},
    };
    for (const auto& [locale, text, number] : table) {
        SCOPED_TRACE(text);
        const std::optional<NSNumber> read = readIn(locale, text);
        ASSERT_TRUE(read.has_value());
        EXPECT_EQ(*read, number);
        EXPECT_EQ(read->isInteger(), number.isInteger());
    }
    EXPECT_TRUE(std::signbit(readIn("en_US", "-0")->doubleValue()));
}

TEST(NSNumberFormatter, readsNothingElse) {
    for (const char* text : {"", " ", "abc", "12 kg", "12%", "12x", "x12", "1+1", "--1", "0x10",
                             "1,2,3", "1.2.3", "12\xFF",
                             "\xFF"
                             "12",
                             "-", ",", ".", "1 2", "(5)"})
        EXPECT_FALSE(readIn("en_US", text)) << text;
    EXPECT_FALSE(readIn("de_DE", "1,234.5"));
    EXPECT_FALSE(readIn("en_US", std::string_view("1\0", 2)));
    EXPECT_FALSE(readIn("en_US", std::string_view("1\0002", 3)));
}

TEST(NSNumberFormatter, readsNoTextLongerThanAThousandCharacters) {
    EXPECT_TRUE(readIn("en_US", std::string(1000, '0')));
    EXPECT_TRUE(readIn("en_US", std::string(100'000, ' ') + "5" + std::string(100'000, ' ')));
    EXPECT_FALSE(readIn("en_US", std::string(1001, '0')));
    EXPECT_FALSE(readIn("en_US", std::string(1'000'000, '7')));
}

RC_GTEST_PROP(NSNumberFormatter, readsAnyTextOrNothing, (const std::string& text)) {
    for (const char* locale : {"en_US", "sv_SE", "ar_EG"})
        (void)readIn(locale, text);
}

/// Thousandths in English, three digits a group.
std::string written(std::int64_t thousandths, bool isNegative) {
    std::string fraction = std::to_string(1000 + thousandths % 1000).substr(1);
    while (!fraction.empty() && fraction.back() == '0')
        fraction.pop_back();
    std::string whole = std::to_string(thousandths / 1000);
    for (std::size_t at = whole.size(); at > 3; at -= 3)
        whole.insert(at - 3, 1, ',');
    return (isNegative ? "-" : "") + whole + (fraction.empty() ? "" : "." + fraction);
}

RC_GTEST_PROP(NSNumberFormatter, roundsAsIntegersDo, ()) {
    const std::int64_t number = *rc::gen::inRange<std::int64_t>(0, 1'000'000'000'000);
    const std::int64_t increment = *rc::gen::element<std::int64_t>(1, 2, 5, 10, 50, 100, 250, 7000);
    const bool isHalfUp = *rc::gen::arbitrary<bool>();
    const bool isNegative = *rc::gen::arbitrary<bool>();
    std::int64_t multiple = number / increment;
    const std::int64_t twice = number % increment * 2;
    if (twice > increment || (twice == increment && (isHalfUp || multiple % 2 == 1)))
        ++multiple;
    const double magnitude = static_cast<double>(number) / 1000;
    RC_ASSERT(
        shown(isNegative ? -magnitude : magnitude,
              {static_cast<double>(increment) / 1000, isHalfUp ? Mode::halfUp : Mode::halfEven}) ==
        written(multiple * increment, isNegative));
}

RC_GTEST_PROP(NSNumberFormatter, readsWhatItWrites, ()) {
    const double number =
        static_cast<double>(*rc::gen::inRange<std::int64_t>(-100'000'000'000, 100'000'000'000)) /
        1000;
    const char* locale =
        *rc::gen::element("en_US", "de_DE", "fr_FR", "sv_SE", "hi_IN", "C", "es_ES", "ar_EG");
    const std::optional<NSNumber> read = readIn(locale, shown(number, {}, NSLocale(locale)));
    RC_ASSERT(read.has_value());
    RC_ASSERT(read->doubleValue() == number);
}

TEST(NSNumberFormatter, writesTheSameHoweverManyOthersThereAre) {
    std::vector<std::string> first, again;
    const auto writeAll = [](std::vector<std::string>& texts) {
        for (const char* locale : {"en_US", "de_DE", "hi_IN"})
            for (int i = 1; i <= 50; ++i)
                texts.push_back(shown(1234567.891, {i / 10.0}, NSLocale(locale)));
    };
    writeAll(first);
    writeAll(again);
    EXPECT_EQ(first, again);
    EXPECT_EQ(first[0], "1,234,567.9");
    EXPECT_EQ(first[49], "1,234,570");
    EXPECT_EQ(first[50], "1.234.567,9");
    EXPECT_EQ(first[149], "12,34,570");
}

TEST(NSNumberFormatter, writesOnManyThreadsAtOnce) {
    std::vector<std::thread> threads;
    for (const char* locale : {"en_US", "de_DE", "en_US", "hi_IN"})
        threads.emplace_back([locale] {
            const NSLocale::CurrentScope scope(locale);
            const std::string expected = shown(1234567.891, {0.1}, NSLocale(locale));
            for (int i = 0; i < 200; ++i)
                EXPECT_EQ(shown(1234567.891, {0.1}, NSLocale::current()), expected);
        });
    for (std::thread& thread : threads)
        thread.join();
}

TEST(NSNumberFormatter, isCheapToMakeAnew) {
    const NSLocale locale("en_US");
    (void)shown(1, {0.1}, locale);
    const std::size_t before = test::allocationCount();
    for (int i = 0; i < 100; ++i)
        (void)shown(1234.5 + i, {0.1}, locale);
    EXPECT_EQ(test::allocationCount(), before);
}

}  // namespace
}  // namespace quorin
