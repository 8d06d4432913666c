#include "quorin/transformers/DoubleValueTransformer.h"

#include <bit>
#include <cmath>

#include "quorin/platform/foundation/NSExpression.h"
#include "quorin/platform/foundation/NSLocale.h"
#include "quorin/platform/foundation/PlatformException.h"
#include "tests/TestSupport.h"
#include "tests/support/AllocationCount.h"

namespace quorin {
namespace {

using testing::Optional;

Value calcNumber(const Value& text) { return DoubleValueTransformer::calcNumber(text); }

struct CalcNumber : testing::Test {
    const NSLocale::CurrentScope english{"en_US"};
};

TEST_F(CalcNumber, evaluatesArithmeticInDoubles) {
    const std::pair<const char*, double> table[] = {
        {"12", 12},          {"7/2", 3.5},     {"(7)/2", 3.5}, {"2*(3+1)", 8},
        {"(10+5)/3", 5},     {"-2", -2},       {"--2", 2},     {"1-2", -1},
        {"-(3)", -3},        {"2*-(1+1)", -4}, {".5", 0.5},    {"5.", 5},
        {" 1 + 2 * 3 ", 7},  {"((2))*(3)", 6}, {"8/2/2", 2},   {"1/0", INFINITY},
        {"-1/0", -INFINITY},
    };
    for (const auto& [text, number] : table)
        EXPECT_THAT(calcNumber(text).asDouble(), Optional(number)) << text;
    EXPECT_TRUE(std::isnan(calcNumber("0/0").asDouble().value()));
}

TEST_F(CalcNumber, makes0OfNothing) { EXPECT_THAT(calcNumber({}).asDouble(), Optional(0.0)); }

TEST_F(CalcNumber, handsBackWhatItCannotEvaluateAsItWasGiven) {
    for (const std::string text :
         {"", " ", "1+", "abc", "()", ")(", "(1", "1)", "+5", "1e5", "2**3", "1.2.3", "3 4", "%d",
          "%@", "nan", "0x10", "(1,234", "\xC3("})
        EXPECT_EQ(calcNumber(text), Value(text)) << text;
    EXPECT_EQ(calcNumber(std::string("1\0", 2)), Value(std::string("1\0", 2)));
}

TEST_F(CalcNumber, handsBackWhatIsNoText) {
    for (const Value& value :
         {Value(7), Value(true), Value(Value::List{"7"}), Value(CGPoint{1, 2})})
        EXPECT_EQ(calcNumber(value), value);
    EXPECT_THAT(calcNumber(7).asInteger(), Optional(7)) << "the very same, not 7.0";
}

TEST_F(CalcNumber, readsTheSeparatorsOfTheLocale) {
    struct Row {
        const char *locale, *text;
        double number;
    };
    const Row table[] = {
        {"en_US", "1,234.5", 1234.5},      {"C", "1,234.5", 1234.5},
        {"de_DE", "1.234,5", 1234.5},      {"de_DE", "1,5", 1.5},
        {"fr_FR", "1\u202F234,5*2", 2469}, {"sv_SE", "1\u00A0234,5", 1234.5},
        {"sv_SE", "-(1,5)", -1.5},         {"hi_IN", "12,34,567.5", 1234567.5},
    };
    for (const auto& [locale, text, number] : table) {
        const NSLocale::CurrentScope scope(locale);
        EXPECT_THAT(calcNumber(text).asDouble(), Optional(number)) << locale << ": " << text;
    }
}

TEST_F(CalcNumber, removesGroupingSeparatorsWhereverTheyStand) {
    EXPECT_THAT(calcNumber(",1,,2,").asDouble(), Optional(12.0));
    const NSLocale::CurrentScope german("de_DE");
    EXPECT_THAT(calcNumber("1.5").asDouble(), Optional(15.0)) << "removed before the decimal comma";
}

TEST_F(CalcNumber, handsBackTextWithTheDecimalSeparatorOfAnotherLocale) {
    const NSLocale::CurrentScope french("fr_FR");
    EXPECT_THAT(calcNumber("1.5").asDouble(), Optional(1.5)) << "a point stays one";
    EXPECT_EQ(calcNumber("1\u00A0234"), Value("1\u00A0234")) << "French groups by another blank";
}

TEST_F(CalcNumber, bearsParenthesesOnlySoDeep) {
    const auto nested = [](std::size_t depth) {
        return std::string(depth, '(').append("1").append(depth, ')');
    };
    EXPECT_THAT(calcNumber(nested(256)).asDouble(), Optional(1.0));
    EXPECT_EQ(calcNumber(nested(257)), Value(nested(257)));
}

TEST_F(CalcNumber, allocatesNothingForWhatPeopleType) {
    const Value typed = "(1,024*2+(10+5)/3)*-(7-0.125)/(1,000+24)";
    ASSERT_NE(calcNumber(typed).asNumber(), std::nullopt);
    const std::size_t before = test::allocationCount();
    (void)calcNumber(typed);
    EXPECT_EQ(test::allocationCount(), before);
}

TEST_F(CalcNumber, readsLongTexts) {
    std::string sum = "1";
    while (sum.size() < 1'000'000)
        sum.append("+(1)");
    EXPECT_THAT(calcNumber(sum).asDouble(), Optional(static_cast<double>(sum.size() / 4 + 1)));
    const std::string groups(1'000'000, ',');
    EXPECT_EQ(calcNumber(groups), Value(groups));
    const std::string open(1'000'000, '(');
    EXPECT_EQ(calcNumber(open), Value(open));
}

std::string withEach(const std::string& part, const std::string& replacement, std::string text) {
    for (std::size_t at = text.find(part); !part.empty() && at != std::string::npos;
         at = text.find(part, at + replacement.size()))
        text.replace(at, part.size(), replacement);
    return text;
}

/// Step by step on whole texts.
Value plainlyEvaluated(const std::string& text) {
    const NSLocale& locale = NSLocale::current();
    const std::string ungrouped = withEach(locale.groupingSeparator(), "", text);
    const std::string pointed = withEach(locale.decimalSeparator(), ".", ungrouped);
    try {
        return NSExpression::value(withEach("(", "(1.0*", std::string("1.0*").append(pointed)));
    } catch (const PlatformException&) {
        return text;
    }
}

RC_GTEST_FIXTURE_PROP(CalcNumber, givesTheBitsOfThePlainRewriting, ()) {
    const NSLocale::CurrentScope scope(
        *rc::gen::element<const char*>("en_US", "de_DE", "fr_FR", "sv_SE", "hi_IN", "ar_EG"));
    const auto pieces = *rc::gen::container<std::vector<std::string>>(rc::gen::element<std::string>(
        "1", "23", "0.5", ".", ",", "+", "-", "*", "/", "(", ")", "(4)", " ", "\u202F", "\u00A0",
        "\u2019", "\u066B", "\u066C", "\xE2", "\x80", "\xAF"));
    std::string text;
    for (const std::string& piece : pieces)
        text.append(piece);

    const Value value = calcNumber(text), expected = plainlyEvaluated(text);
    RC_ASSERT(value.asDouble().has_value() == expected.asDouble().has_value());
    if (const auto number = value.asDouble())
        RC_ASSERT(std::bit_cast<std::uint64_t>(*number) ==
                  std::bit_cast<std::uint64_t>(expected.asDouble().value()));
    else
        RC_ASSERT(value == expected);
}

struct DoubleValueTransformerTest : CalcNumber {
    const std::shared_ptr<DoubleValueTransformer> transformer =
        makeObject<DoubleValueTransformer>();
};

TEST_F(DoubleValueTransformerTest, showsEverythingAsItIs) {
    for (const Value& value : {Value(), Value(1.5), Value(2), Value("7/2"), Value(true)})
        EXPECT_EQ(transformer->transformedValue(value), value);
}

TEST_F(DoubleValueTransformerTest, readsAsCalcNumberDoes) {
    EXPECT_THAT(transformer->reverseTransformedValue("7/2").asDouble(), Optional(3.5));
    EXPECT_THAT(transformer->reverseTransformedValue({}).asDouble(), Optional(0.0));
    EXPECT_EQ(transformer->reverseTransformedValue("1+"), Value("1+"));
    EXPECT_EQ(transformer->reverseTransformedValue(true), Value(true));
}

}  // namespace
}  // namespace quorin
