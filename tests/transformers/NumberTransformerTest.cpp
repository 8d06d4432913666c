#include "quorin/transformers/NumberTransformer.h"

#include <cmath>

#include "quorin/platform/foundation/NSLocale.h"
#include "quorin/platform/foundation/NSNull.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::Optional;

struct NumberTransformerTest : testing::Test {
    Value shown(const Value& value) const { return transformer->transformedValue(value); }
    Value read(const Value& value) const { return transformer->reverseTransformedValue(value); }

    const NSLocale::CurrentScope english{"en_US"};
    const std::shared_ptr<NumberTransformer> transformer = makeObject<NumberTransformer>();
};

TEST_F(NumberTransformerTest, startsWithItsDefaults) {
    EXPECT_EQ(transformer->pointScale(), 1.0);
    EXPECT_FALSE(transformer->allowNil());
    EXPECT_EQ(transformer->roundingIncrement(), 0.1);
}

TEST_F(NumberTransformerTest, showsNumbersToItsIncrement) {
    const std::pair<Value, const char*> table[] = {
        {12, "12"},    {12.0, "12"},         {0.04, "0"},        {0.05, "0"},
        {0.15, "0.2"}, {0.25, "0.2"},        {0.35, "0.4"},      {-7.26, "-7.3"},
        {0.06, "0.1"}, {1234.56, "1,234.6"}, {1e6, "1,000,000"},
    };
    for (const auto& [number, text] : table)
        EXPECT_EQ(shown(number), Value(text));
    transformer->setRoundingIncrement(5);
    EXPECT_EQ(shown(12.5), Value("10")) << "a half to the even multiple";
    EXPECT_EQ(shown(13), Value("15"));
}

TEST_F(NumberTransformerTest, showsThreeDigitsAtMost) {
    transformer->setRoundingIncrement(0);
    EXPECT_EQ(shown(1.23456), Value("1.235"));
    transformer->setRoundingIncrement(0.0001);
    EXPECT_EQ(shown(1.23456), Value("1.235"));
}

TEST_F(NumberTransformerTest, neverShowsNegativeZero) {
    for (const double number : {-0.0, -0.04, -1e-300})
        EXPECT_EQ(shown(number), Value("0")) << number;
    EXPECT_EQ(shown(-0.06), Value("-0.1"));
}

TEST_F(NumberTransformerTest, showsTheMinusOfALocaleThatHasItsOwn) {
    const NSLocale::CurrentScope swedish("sv_SE");
    EXPECT_EQ(shown(-7.25), Value("\u22127,2"));
    EXPECT_EQ(shown(-0.04), Value("\u22120")) << "this is not \"-0\"";
}

TEST_F(NumberTransformerTest, showsNumbersAsTheLocaleWritesThem) {
    const std::pair<const char*, const char*> table[] = {
        {"en_US", "1,234,567.9"},           {"C", "1,234,567.9"},
        {"de_DE", "1.234.567,9"},           {"fr_FR", "1\u202F234\u202F567,9"},
        {"sv_SE", "1\u00A0234\u00A0567,9"}, {"hi_IN", "12,34,567.9"},
    };
    for (const auto& [locale, text] : table) {
        const NSLocale::CurrentScope scope(locale);
        EXPECT_EQ(shown(1234567.89), Value(text)) << locale;
        EXPECT_THAT(read(text).asDouble(), Optional(1234567.9)) << locale;
    }
}

TEST_F(NumberTransformerTest, showsInfinitiesAndNaN) {
    EXPECT_EQ(shown(INFINITY), Value("\u221E"));
    EXPECT_EQ(shown(-INFINITY), Value("-\u221E"));
    EXPECT_EQ(shown(NAN), Value("NaN"));
}

TEST_F(NumberTransformerTest, handsOnWhatIsNoNumber) {
    for (const Value& value :
         {Value(), Value("12"), Value(true), Value(NSNull::null()), Value(Value::List{1.5})})
        EXPECT_EQ(shown(value), value);
}

TEST_F(NumberTransformerTest, multipliesByThePointScaleToShow) {
    transformer->setPointScale(2);
    EXPECT_EQ(shown(10.25), Value("20.5"));
    EXPECT_EQ(shown(0.02), Value("0"));
}

TEST_F(NumberTransformerTest, dividesByThePointScaleToRead) {
    transformer->setPointScale(2);
    EXPECT_THAT(read("10+5").asDouble(), Optional(7.5));
    EXPECT_THAT(read("-3").asDouble(), Optional(-1.5));
}

TEST_F(NumberTransformerTest, readsArithmetic) {
    EXPECT_THAT(read("12*2").asDouble(), Optional(24.0));
    EXPECT_THAT(read("(10+5)/3").asDouble(), Optional(5.0));
    EXPECT_THAT(read("1,234.5").asDouble(), Optional(1234.5));
    EXPECT_THAT(read("1/0").asDouble(), Optional(INFINITY));
}

TEST_F(NumberTransformerTest, handsBackTextThatIsNoArithmetic) {
    transformer->setPointScale(2);
    for (const std::string text : {"abc", "", "1+", "12px", "\xFF", "1,,2,x"})
        EXPECT_EQ(read(text), Value(text));
}

TEST_F(NumberTransformerTest, reads0FromWhatIsNoText) {
    for (const Value& value : {Value(), Value(7.5), Value(true), Value(Value::List{"1"})})
        EXPECT_THAT(read(value).asDouble(), Optional(0.0));
}

TEST_F(NumberTransformerTest, readsNothingFromWhatIsNoTextWhenThatIsAllowed) {
    transformer->setAllowNil(true);
    for (const Value& value : {Value(), Value(7.5), Value(Value::List{"1"})})
        EXPECT_TRUE(read(value).isNothing());
    EXPECT_EQ(read("abc"), Value("abc"));
    EXPECT_EQ(read(""), Value("")) << "an empty text is a text";
}

TEST_F(NumberTransformerTest, stepsInDisplayedUnits) {
    transformer->setPointScale(2);
    EXPECT_THAT(transformer->incrementValue(10.2, 1, 1).asDouble(), Optional(10.5));
    EXPECT_THAT(transformer->incrementValue(10.2, 1, -1).asDouble(), Optional(9.5));
    EXPECT_THAT(transformer->incrementValue(10, 10, 1).asDouble(), Optional(15.0));
    EXPECT_EQ(transformer->incrementValue("10", 1, 1), Value("10"));
}

TEST_F(NumberTransformerTest, dividesByThePointScaleToTheLastBit) {
    transformer->setPointScale(3);
    EXPECT_THAT(read("5").asDouble(), Optional(5.0 / 3)) << "5 * (1.0 / 3) is another double";
    EXPECT_THAT(transformer->incrementValue(10.2, 5, 1).asDouble(), Optional(5.0 / 3 * 7));
}

TEST_F(NumberTransformerTest, clampsToBoundsTimesThePointScale) {
    transformer->setPointScale(2);
    EXPECT_THAT(transformer->clampValue(15, {0, 10}).asDouble(), Optional(15.0));
    EXPECT_THAT(transformer->clampValue(25, {0, 10}).asDouble(), Optional(20.0));
    EXPECT_THAT(transformer->clampValue(7, {5, 10}).asDouble(), Optional(10.0));
    EXPECT_EQ(transformer->clampValue("7", {5, 10}), Value("7"));
}

TEST_F(NumberTransformerTest, clampsAsAllDo) {
    EXPECT_FALSE(std::signbit(transformer->clampValue(-0.0, {0.0, 1}).asDouble().value()));
    EXPECT_TRUE(std::isnan(transformer->clampValue(NAN, {0, 1}).asDouble().value()));
}

TEST_F(NumberTransformerTest, canBeSetUpByKeys) {
    transformer->setValueForKey(2, "pointScale");
    transformer->setValueForKey(true, "allowNil");
    transformer->setValueForKey(0.5, "roundingIncrement");
    EXPECT_EQ(transformer->pointScale(), 2.0);
    EXPECT_TRUE(transformer->allowNil());
    EXPECT_EQ(transformer->roundingIncrement(), 0.5);
    EXPECT_EQ(transformer->valueForKey("pointScale"), Value(2.0));
    EXPECT_EQ(transformer->valueForKey("allowNil"), Value(true));
    EXPECT_EQ(transformer->valueForKey("roundingIncrement"), Value(0.5));
}

/// Overrides every getter and leaves what is stored at its default.
struct FixedTransformer : NumberTransformer {
    using Class = NSClassOf<FixedTransformer, NumberTransformer>;

    CGFloat pointScale() const override { return 4; }
    bool allowNil() const override { return true; }
    double roundingIncrement() const override { return 1; }
};

TEST_F(NumberTransformerTest, readsItsPropertiesThroughTheirGetters) {
    const auto fixed = makeObject<FixedTransformer>();
    EXPECT_EQ(fixed->transformedValue(1.3), Value("5"));
    EXPECT_THAT(fixed->reverseTransformedValue("10").asDouble(), Optional(2.5));
    EXPECT_TRUE(fixed->reverseTransformedValue({}).isNothing());
    EXPECT_THAT(fixed->incrementValue(1, 1, 1).asDouble(), Optional(1.25));
    EXPECT_THAT(fixed->clampValue(9, {0, 2}).asDouble(), Optional(8.0));
    EXPECT_EQ(fixed->valueForKey("pointScale"), Value(4.0));
}

}  // namespace
}  // namespace quorin
