#include "quorin/transformers/IntValueTransformer.h"

#include <cmath>
#include <cstdint>
#include <limits>

#include "quorin/platform/foundation/NSLocale.h"
#include "quorin/platform/foundation/NSNull.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::Optional;

constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();

struct IntValueTransformerTest : testing::Test {
    Value shown(const Value& value) const { return transformer->transformedValue(value); }
    Value read(const Value& value) const { return transformer->reverseTransformedValue(value); }

    const NSLocale::CurrentScope english{"en_US"};
    const std::shared_ptr<IntValueTransformer> transformer = makeObject<IntValueTransformer>();
};

TEST_F(IntValueTransformerTest, cutsOffFractions) {
    EXPECT_THAT(shown(3.9).asInteger(), Optional(3));
    EXPECT_THAT(shown(-3.9).asInteger(), Optional(-3));
    EXPECT_THAT(shown(-0.5).asInteger(), Optional(0));
    EXPECT_THAT(shown(7).asInteger(), Optional(7));
}

TEST_F(IntValueTransformerTest, keepsEveryIntegerExactly) {
    EXPECT_THAT(shown(highest).asInteger(), Optional(highest));
    EXPECT_THAT(shown(lowest).asInteger(), Optional(lowest));
    EXPECT_THAT(shown(-0x1p63).asInteger(), Optional(lowest));
    EXPECT_THAT(read("9,223,372,036,854,775,807").asInteger(), Optional(highest));
    EXPECT_THAT(read("-9223372036854775808").asInteger(), Optional(lowest));
}

TEST_F(IntValueTransformerTest, gives0Beyond64Bits) {
    for (const double number : {0x1p63, -1e19, 1e300, double(INFINITY), -double(INFINITY)})
        EXPECT_THAT(shown(number).asDouble(), Optional(0.0)) << number;
    EXPECT_THAT(read("9223372036854775808").asDouble(), Optional(0.0));
    EXPECT_THAT(read("-123456789012345678901234567890").asDouble(), Optional(0.0));
}

TEST_F(IntValueTransformerTest, gives0ForWhatIsNoNumber) {
    for (const Value& value : {Value(), Value("3"), Value(true), Value(NAN), Value(NSNull::null()),
                               Value(Value::List{3})})
        EXPECT_THAT(shown(value).asDouble(), Optional(0.0));
}

TEST_F(IntValueTransformerTest, readsNumbers) {
    EXPECT_THAT(read("12.7").asInteger(), Optional(12));
    EXPECT_THAT(read("-12.7").asInteger(), Optional(-12));
    EXPECT_THAT(read("  1,234 ").asInteger(), Optional(1234));
    EXPECT_THAT(read(".5").asInteger(), Optional(0));
    const NSLocale::CurrentScope german("de_DE");
    EXPECT_THAT(read("1.234,9").asInteger(), Optional(1234));
}

TEST_F(IntValueTransformerTest, reads0FromTextThatIsNoNumberAsAWhole) {
    for (const char* text :
         {"", " ", "12x", "x12", "1+1", "(3)", "2*3", "12 13", "NaN", "\u221E", "\xFF", "3\xFF"})
        EXPECT_THAT(read(text).asDouble(), Optional(0.0)) << text;
}

TEST_F(IntValueTransformerTest, reads0FromWhatIsNoText) {
    for (const Value& value : {Value(), Value(3), Value(true), Value(Value::List{"3"})})
        EXPECT_THAT(read(value).asDouble(), Optional(0.0));
}

TEST_F(IntValueTransformerTest, stepsAndClampsAsAllDo) {
    EXPECT_THAT(transformer->incrementValue(3, 10, 1).asDouble(), Optional(10.0));
    EXPECT_THAT(transformer->clampValue(5, {0, 3}).asDouble(), Optional(3.0));
}

}  // namespace
}  // namespace quorin
