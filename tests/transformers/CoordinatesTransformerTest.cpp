#include "quorin/transformers/CoordinatesTransformer.h"

#include "quorin/platform/foundation/NSLocale.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

struct CoordinatesTransformerTest : testing::Test {
    const NSLocale::CurrentScope english{"en_US"};
    const std::shared_ptr<CoordinatesTransformer> transformer =
        makeObject<CoordinatesTransformer>();
};

TEST_F(CoordinatesTransformerTest, showsHundredths) {
    EXPECT_EQ(transformer->transformedValue(1.234), Value("1.23"));
    EXPECT_EQ(transformer->transformedValue(1.235), Value("1.24"));
    EXPECT_EQ(transformer->transformedValue(-0.004), Value("0"));
}

TEST_F(CoordinatesTransformerTest, ignoresAnotherIncrement) {
    transformer->setRoundingIncrement(5);
    EXPECT_EQ(transformer->roundingIncrement(), 0.01);
    transformer->setValueForKey(5, "roundingIncrement");
    EXPECT_EQ(transformer->valueForKey("roundingIncrement"), Value(0.01));
    EXPECT_EQ(transformer->transformedValue(1.234), Value("1.23"));
}

TEST_F(CoordinatesTransformerTest, isANumberTransformerOtherwise) {
    transformer->setPointScale(2);
    EXPECT_EQ(transformer->transformedValue(1.234), Value("2.47"));
    EXPECT_EQ(transformer->reverseTransformedValue("3"), Value(1.5));
    EXPECT_EQ(transformer->incrementValue(10.2, 1, 1), Value(10.5));
}

}  // namespace
}  // namespace quorin
