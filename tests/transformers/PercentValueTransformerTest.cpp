#include "quorin/transformers/PercentValueTransformer.h"

#include <cmath>

#include "quorin/platform/foundation/NSLocale.h"
#include "quorin/platform/foundation/NSNull.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::Optional;

struct PercentValueTransformerTest : testing::Test {
    Value shown(const Value& value) const { return transformer->transformedValue(value); }
    std::optional<double> read(const Value& value) const {
        return transformer->reverseTransformedValue(value).asDouble();
    }

    const NSLocale::CurrentScope english{"en_US"};
    const std::shared_ptr<PercentValueTransformer> transformer =
        makeObject<PercentValueTransformer>();
};

TEST_F(PercentValueTransformerTest, showsRatiosAsPercentages) {
    EXPECT_EQ(shown(0.5), Value("50%"));
    EXPECT_EQ(shown(1), Value("100%"));
    EXPECT_EQ(shown(0.1234), Value("12.3%"));
    EXPECT_EQ(shown(12.345), Value("1,234.5%"));
    EXPECT_EQ(shown(INFINITY), Value("\u221E%"));
    EXPECT_EQ(shown(NAN), Value("NaN%"));
}

TEST_F(PercentValueTransformerTest, roundsHalvesAwayFromZero) {
    transformer->setRoundingIncrement(1);
    EXPECT_EQ(shown(0.125), Value("13%")) << "to the even one it would be 12";
    EXPECT_EQ(shown(-0.125), Value("-13%"));
    EXPECT_EQ(shown(0.124), Value("12%"));
    EXPECT_EQ(shown(0.235), Value("24%")) << "23.5 as a product; 0.235 / 0.01 lies below it";
    transformer->setRoundingIncrement(0.1);
    EXPECT_EQ(shown(0.0025), Value("0.3%"));
}

TEST_F(PercentValueTransformerTest, showsSmallNegativesWithTheirSign) {
    EXPECT_EQ(shown(-0.0001), Value("-0%"));
    EXPECT_EQ(shown(-0.0), Value("-0%"));
}

TEST_F(PercentValueTransformerTest, shows0ForWhatIsNoNumber) {
    for (const Value& value :
         {Value(), Value("50"), Value(true), Value(NSNull::null()), Value(Value::List{0.5})})
        EXPECT_EQ(shown(value), Value("0%"));
}

TEST_F(PercentValueTransformerTest, showsPercentagesInTheStyleOfTheLocale) {
    const NSLocale::CurrentScope german("de_DE");
    EXPECT_EQ(shown(12.345), Value("1.234,5%"));
    EXPECT_THAT(read("1.234,5%"), Optional(12.345));
}

TEST_F(PercentValueTransformerTest, readsPercentagesWithAndWithoutTheSign) {
    EXPECT_THAT(read("50%"), Optional(0.5));
    EXPECT_THAT(read("50"), Optional(0.5));
    EXPECT_THAT(read("25*2"), Optional(0.5));
    EXPECT_THAT(read("%(20% + 5)*2%%"), Optional(0.5)) << "signs anywhere";
    EXPECT_THAT(read("1/0"), Optional(INFINITY));
}

TEST_F(PercentValueTransformerTest, readsTheNumberThatOtherTextStartsWith) {
    EXPECT_THAT(read("50 % of it"), Optional(0.5));
    EXPECT_THAT(read("  +7.5x"), Optional(0.075));
    EXPECT_THAT(read("1%2x"), Optional(0.01)) << "without the sign it would be 12";
    EXPECT_THAT(read("half"), Optional(0.0));
    EXPECT_THAT(read(""), Optional(0.0));
    EXPECT_THAT(read("%"), Optional(0.0));
    EXPECT_THAT(read("1,5x"), Optional(0.01)) << "separators of a locale mean nothing here";
}

TEST_F(PercentValueTransformerTest, reads0FromWhatIsNoText) {
    for (const Value& value : {Value(), Value(50), Value(true), Value(Value::List{"50"})})
        EXPECT_THAT(read(value), Optional(0.0));
}

TEST_F(PercentValueTransformerTest, stepsInPercent) {
    EXPECT_THAT(transformer->incrementValue(0.5, 25, 1).asDouble(), Optional(0.75));
    EXPECT_THAT(transformer->incrementValue(0.6, 25, -1).asDouble(), Optional(0.25));
    EXPECT_EQ(transformer->incrementValue("0.5", 25, 1), Value("0.5"));
}

TEST_F(PercentValueTransformerTest, dividesBy100ToTheLastBit) {
    EXPECT_THAT(read("35%"), Optional(0.35)) << "35 * 0.01 is another double";
    EXPECT_THAT(read("35 of it"), Optional(0.35));
    EXPECT_THAT(transformer->incrementValue(0.5, 35, 1).asDouble(), Optional(0.7));
}

TEST_F(PercentValueTransformerTest, clampsRatios) {
    EXPECT_THAT(transformer->clampValue(1.5, {0, 1}).asDouble(), Optional(1.0));
    EXPECT_THAT(transformer->clampValue(-0.5, {0, 1}).asDouble(), Optional(0.0));
}

TEST_F(PercentValueTransformerTest, hasItsIncrementAsAKey) {
    EXPECT_EQ(transformer->valueForKey("roundingIncrement"), Value(0.1));
    transformer->setValueForKey(0.5, "roundingIncrement");
    EXPECT_EQ(shown(0.123), Value("12.5%"));
}

}  // namespace
}  // namespace quorin
