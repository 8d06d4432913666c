#include "quorin/transformers/SuffixlessMillisecondTransformer.h"

#include "quorin/platform/foundation/NSLocale.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

struct SuffixlessMillisecondTransformerTest : testing::Test {
    Value shown(const Value& value) const { return transformer->transformedValue(value); }

    const NSLocale::CurrentScope english{"en_US"};
    const std::shared_ptr<SuffixlessMillisecondTransformer> transformer =
        makeObject<SuffixlessMillisecondTransformer>();
};

TEST_F(SuffixlessMillisecondTransformerTest, showsGroupedDigitsWithoutASuffix) {
    EXPECT_EQ(shown(1234.5), Value("1,234,500"));
    EXPECT_EQ(shown(0.0015), Value("1"));
    EXPECT_EQ(shown({}), Value("0"));
}

TEST_F(SuffixlessMillisecondTransformerTest, ignoresAWishForTheSuffix) {
    transformer->setUsesMillisecondSuffix(true);
    EXPECT_FALSE(transformer->usesMillisecondSuffix());
    transformer->setValueForKey(true, "usesMillisecondSuffix");
    EXPECT_EQ(transformer->valueForKey("usesMillisecondSuffix"), Value(false));
    EXPECT_EQ(shown(0.25), Value("250"));
}

TEST_F(SuffixlessMillisecondTransformerTest, ignoresAnotherFormatter) {
    const auto own = transformer->numberFormatter();
    EXPECT_EQ(own->numberStyle(), NSNumberFormatterStyle::decimal);
    EXPECT_TRUE(own->usesGroupingSeparator());
    transformer->setNumberFormatter(nullptr);
    transformer->setNumberFormatter(std::make_shared<NSNumberFormatter>());
    EXPECT_EQ(transformer->numberFormatter(), own);
    EXPECT_EQ(shown(1234.5), Value("1,234,500"));
}

TEST_F(SuffixlessMillisecondTransformerTest, keepsTheLocaleItWasMadeIn) {
    const NSLocale::CurrentScope german("de_DE");
    EXPECT_EQ(shown(1234.5), Value("1,234,500"));
    EXPECT_EQ(makeObject<SuffixlessMillisecondTransformer>()->transformedValue(1234.5),
              Value("1.234.500"));
}

TEST_F(SuffixlessMillisecondTransformerTest, readsBothUnits) {
    EXPECT_EQ(transformer->reverseTransformedValue("1,234,500"), Value(1234.5));
    EXPECT_EQ(transformer->reverseTransformedValue("2s"), Value(2.0));
}

}  // namespace
}  // namespace quorin
