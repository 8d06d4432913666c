#include "quorin/transformers/MillisecondTransformer.h"

#include <cmath>

#include "quorin/platform/foundation/NSLocale.h"
#include "quorin/platform/foundation/NSNull.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::Optional;

struct MillisecondTransformerTest : testing::Test {
    Value shown(const Value& value) const { return transformer->transformedValue(value); }
    std::optional<double> read(const Value& value) const {
        return transformer->reverseTransformedValue(value).asDouble();
    }

    const NSLocale::CurrentScope english{"en_US"};
    const std::shared_ptr<MillisecondTransformer> transformer =
        makeObject<MillisecondTransformer>();
};

TEST_F(MillisecondTransformerTest, startsWithASuffixAndNoFormatter) {
    EXPECT_TRUE(transformer->usesMillisecondSuffix());
    EXPECT_EQ(transformer->numberFormatter(), nullptr);
}

TEST_F(MillisecondTransformerTest, showsWholeMillisecondsRoundedDown) {
    EXPECT_EQ(shown(0.25), Value("250ms"));
    EXPECT_EQ(shown(0.0015), Value("1ms"));
    EXPECT_EQ(shown(1.2349), Value("1234ms"));
    EXPECT_EQ(shown(-0.0005), Value("-1ms")) << "down, not toward zero";
    EXPECT_EQ(shown(1.001), Value("1000ms")) << "the product is 1000.9999999999999";
    EXPECT_EQ(shown(2), Value("2000ms"));
}

TEST_F(MillisecondTransformerTest, showsPlainDigitsInEveryLocale) {
    const NSLocale::CurrentScope german("de_DE");
    EXPECT_EQ(shown(1234.5), Value("1234500ms"));
    EXPECT_EQ(shown(1e16), Value("1e+19ms"));
    EXPECT_EQ(shown(-0.0), Value("-0ms"));
}

TEST_F(MillisecondTransformerTest, showsWhatIsNoNumberAs0) {
    for (const Value& value :
         {Value(), Value("250"), Value(true), Value(NSNull::null()), Value(Value::List{1})})
        EXPECT_EQ(shown(value), Value("0ms"));
}

TEST_F(MillisecondTransformerTest, leavesTheSuffixOutWhenAsked) {
    transformer->setUsesMillisecondSuffix(false);
    EXPECT_EQ(shown(0.25), Value("250"));
    EXPECT_EQ(shown({}), Value("0"));
}

TEST_F(MillisecondTransformerTest, usesAFormatterThatItIsGiven) {
    const auto formatter = std::make_shared<NSNumberFormatter>(NSLocale("de_DE"));
    formatter->setNumberStyle(NSNumberFormatterStyle::decimal);
    transformer->setNumberFormatter(formatter);
    EXPECT_EQ(shown(1234.5), Value("1.234.500ms"));
    transformer->setNumberFormatter(nullptr);
    EXPECT_EQ(shown(1234.5), Value("1234500ms"));
}

/// Has nothing to show for any number.
struct SilentFormatter : NSNumberFormatter {
    std::optional<std::string> string(double) const override { return std::nullopt; }
};

TEST_F(MillisecondTransformerTest, shows0WhereItsFormatterFails) {
    transformer->setNumberFormatter(std::make_shared<SilentFormatter>());
    EXPECT_EQ(shown(0.25), Value("0ms"));
    transformer->setUsesMillisecondSuffix(false);
    EXPECT_EQ(shown(0.25), Value("0"));
}

TEST_F(MillisecondTransformerTest, readsMilliseconds) {
    EXPECT_THAT(read("250ms"), Optional(0.25));
    EXPECT_THAT(read("250"), Optional(0.25));
    EXPECT_THAT(read("100+150 ms"), Optional(0.25));
    EXPECT_THAT(read("1,250ms"), Optional(1.25));
    EXPECT_THAT(read("9ms"), Optional(0.009)) << "9 * 0.001 is another double";
}

TEST_F(MillisecondTransformerTest, readsSecondsWhereTheTextEndsInTheirLetter) {
    EXPECT_THAT(read("2s"), Optional(2.0));
    EXPECT_THAT(read("1.5s"), Optional(1.5));
    EXPECT_THAT(read("0.5s"), Optional(0.5));
    EXPECT_THAT(read("2*3 s"), Optional(6.0));
    EXPECT_THAT(read("2s "), Optional(0.002)) << "it ends in a blank";
    EXPECT_THAT(read("2S"), Optional(0.002)) << "the letter is a small one";
    EXPECT_THAT(read("2*3S"), Optional(0.002)) << "so this is no arithmetic";
}

TEST_F(MillisecondTransformerTest, removesTheLettersWhereverTheyStand) {
    EXPECT_THAT(read("m5"), Optional(0.005));
    EXPECT_THAT(read("5m"), Optional(0.005));
    EXPECT_THAT(read("5sm"), Optional(0.005));
    EXPECT_THAT(read("5m*2s"), Optional(10.0)) << "the end decides, wherever else an m stands";
    EXPECT_THAT(read("1s500ms"), Optional(1.5)) << "1500 milliseconds";
}

TEST_F(MillisecondTransformerTest, readsTheNumberThatOtherTextStartsWith) {
    EXPECT_THAT(read("12xms"), Optional(0.012));
    EXPECT_THAT(read("12xs"), Optional(12.0)) << "in seconds";
    EXPECT_THAT(read("1e3s"), Optional(1000.0)) << "no arithmetic, but a number";
    EXPECT_THAT(read("5m7x"), Optional(0.005)) << "without the letter it would be 57";
    for (const char* text : {"", "s", "ms", "soon", "\xFFs"})
        EXPECT_THAT(read(text), Optional(0.0)) << text;
}

TEST_F(MillisecondTransformerTest, reads0FromWhatIsNoText) {
    for (const Value& value : {Value(), Value(250), Value(true), Value(Value::List{"250"})})
        EXPECT_THAT(read(value), Optional(0.0));
}

TEST_F(MillisecondTransformerTest, stepsAndClampsSeconds) {
    EXPECT_THAT(transformer->incrementValue(0.3, 0.25, 1).asDouble(), Optional(0.5));
    EXPECT_THAT(transformer->clampValue(5, {0, 3}).asDouble(), Optional(3.0));
}

TEST_F(MillisecondTransformerTest, canBeSetUpByKeys) {
    transformer->setValueForKey(false, "usesMillisecondSuffix");
    transformer->setValueForKey(std::make_shared<NSNumberFormatter>(), "numberFormatter");
    EXPECT_EQ(shown(0.25), Value("250"));
    EXPECT_NE(transformer->numberFormatter(), nullptr);
    EXPECT_EQ(transformer->valueForKey("usesMillisecondSuffix"), Value(false));
}

/// Overrides both getters and leaves what is stored at its default.
struct FixedTransformer : MillisecondTransformer {
    using Class = NSClassOf<FixedTransformer, MillisecondTransformer>;

    bool usesMillisecondSuffix() const override { return false; }
    std::shared_ptr<NSNumberFormatter> numberFormatter() const override {
        return std::make_shared<NSNumberFormatter>();
    }
};

TEST_F(MillisecondTransformerTest, readsItsPropertiesThroughTheirGetters) {
    EXPECT_EQ(makeObject<FixedTransformer>()->transformedValue(1234.5), Value("1234500"));
}

}  // namespace
}  // namespace quorin
