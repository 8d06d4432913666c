#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <random>

#include "quorin/platform/foundation/NSLocale.h"
#include "quorin/transformers/ValueTransformer.h"
#include "tests/TestSupport.h"

/// Whatever is typed into a field gives a value or the stated fallback.
namespace quorin {
namespace {

constexpr std::size_t textCount = 10'000;

/// The same texts in each run: from arithmetic that is nearly right to arbitrary bytes.
class TextSource {
public:
    std::string next() {
        std::string text;
        const bool isArithmetic = below(4) > 0;
        for (std::size_t left = below(below(10) == 0 ? 600 : 20); left > 0; --left)
            if (isArithmetic)
                text.append(pieces[below(std::size(pieces))]);
            else
                text.push_back(static_cast<char>(below(256)));
        return text;
    }

private:
    static constexpr const char* pieces[] = {
        "0",          "1",
        "9",          "12.5",
        "1e9",        "9999999999999999999",
        ".",          ",",
        ";",          "%",
        "+",          "-",
        "*",          "/",
        "(",          ")",
        "((((",       "m",
        "s",          "ms",
        " ",          "\n",
        "e",          "inf",
        "nan",        "0x1p",
        "%@",         "%n",
        "'",          "\"",
        "\\",         "**",
        "\u00A0",     "\u202F",
        "\u2212",     "\u0663",
        "\xFF",       "\xE2\x80",
        "\xC0",       "\xED\xA0\x80",
        "self",       "FUNCTION(",
        "\U0001F600", "\u221E",
    };

    std::size_t below(std::size_t limit) { return generator() % limit; }

    std::mt19937 generator{20'240'607};
};

bool isNumber(const Value& value) { return value.asNumber().has_value(); }

/// Calls `holds(transformer, text, value)` for every text in turns of the locales.
template <typename Promise>
void readHostileTexts(const char* className, const Promise& holds) {
    const auto transformer = ValueTransformer::create(className);
    const NSLocale locales[] = {NSLocale("en_US"), NSLocale("de_DE"), NSLocale("fr_FR"),
                                NSLocale("sv_SE"), NSLocale("hi_IN"), NSLocale("C")};
    TextSource texts;
    for (std::size_t i = 0; i < textCount; ++i) {
        const NSLocale::CurrentScope scope(locales[i % std::size(locales)]);
        const std::string text = texts.next();
        const Value value = transformer->reverseTransformedValue(text);
        ASSERT_TRUE(holds(text, value)) << className << " of " << testing::PrintToString(text);
        transformer->transformedValue(value);
        transformer->transformedValue(text);
    }
}

TEST(HostileText, isANumberOrComesBackFromWhatReadsArithmetic) {
    for (const char* name :
         {"NumberTransformer", "CoordinatesTransformer", "DoubleValueTransformer"})
        readHostileTexts(name, [](const std::string& text, const Value& value) {
            return isNumber(value) || value == Value(text);
        });
}

TEST(HostileText, isANumberForWhatFallsBackToOne) {
    for (const char* name :
         {"PercentValueTransformer", "IntValueTransformer", "DegreeStringTransformer",
          "MillisecondTransformer", "SuffixlessMillisecondTransformer"})
        readHostileTexts(name,
                         [](const std::string&, const Value& value) { return isNumber(value); });
}

TEST(HostileText, isARadiusForEachPieceBetweenSemicolons) {
    readHostileTexts("CornerRadiusTransformer", [](const std::string& text, const Value& value) {
        const auto semicolons = std::count(text.begin(), text.end(), ';');
        const Value::List& radii = *value.asList();
        const auto isRadius = [](const Value& radius) {
            const double number = radius.asDouble().value();
            return std::isnan(number) || (number >= 0 && !std::signbit(number));
        };
        return radii.size() == static_cast<std::size_t>(semicolons) + 1 &&
               std::all_of(radii.begin(), radii.end(), isRadius);
    });
}

TEST(HostileText, staysTextForTexts) {
    readHostileTexts("StringTransformer", [](const std::string& text, const Value& value) {
        return value == Value(text);
    });
}

TEST(HostileText, isNoNumberOfRadians) {
    readHostileTexts("DegreeRadianTransformer",
                     [](const std::string&, const Value& value) { return value.isNothing(); });
}

TEST(HostileText, ofAMegabyteIsReadToItsEnd) {
    for (const char* piece : {"1", "(", ")", "-", "%", ";", "ms", ",", "+1", "\xFF", "1;", " "}) {
        std::string text;
        while (text.size() < 1'000'000)
            text.append(piece);
        for (const std::string& name : ValueTransformer::classNames())
            (void)ValueTransformer::create(name)->reverseTransformedValue(text);
    }
}

TEST(HostileNumber, isShownAsText) {
    for (const double number :
         {std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest(),
          std::numeric_limits<double>::denorm_min(), double(NAN), double(INFINITY), 1e15, -0.0})
        for (const std::string& name : ValueTransformer::classNames()) {
            const auto transformer = ValueTransformer::create(name);
            const Value shown = transformer->transformedValue(number);
            if (transformer->transformedValueClass() == "NSString") {
                ASSERT_NE(shown.asText(), nullptr) << name << " of " << number;
                EXPECT_EQ(shown.asText()->empty(), name == "StringTransformer");
            }
        }
}

}  // namespace
}  // namespace quorin
