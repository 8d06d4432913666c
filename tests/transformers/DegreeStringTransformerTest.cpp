#include "quorin/transformers/DegreeStringTransformer.h"

#include <numbers>

#include "quorin/platform/foundation/NSLocale.h"
#include "quorin/platform/foundation/NSNull.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::DoubleEq;
using testing::Optional;

constexpr double pi = std::numbers::pi;
constexpr double radiansPerDegree = pi / 180;

struct DegreeStringTransformerTest : testing::Test {
    Value shown(const Value& value) const { return transformer->transformedValue(value); }
    Value read(const Value& value) const { return transformer->reverseTransformedValue(value); }

    const NSLocale::CurrentScope english{"en_US"};
    const std::shared_ptr<DegreeStringTransformer> transformer =
        makeObject<DegreeStringTransformer>();
};

TEST_F(DegreeStringTransformerTest, showsRadiansAsDegrees) {
    EXPECT_EQ(shown(1.5707963), Value("90"));
    EXPECT_EQ(shown(1), Value("57.3"));
    EXPECT_EQ(shown(10'000), Value("572,957.8")) << "all digits of pi count";
    EXPECT_EQ(shown(-pi), Value("-180"));
    EXPECT_EQ(shown(-0.0001), Value("0")) << "never -0";
}

TEST_F(DegreeStringTransformerTest, showsNothingForWhatIsNoNumber) {
    for (const Value& value :
         {Value(), Value("90"), Value(true), Value(NSNull::null()), Value(Value::List{1.0})})
        EXPECT_TRUE(shown(value).isNothing());
}

TEST_F(DegreeStringTransformerTest, readsDegreesAsRadians) {
    EXPECT_THAT(read("45").asDouble(), Optional(DoubleEq(pi / 4)));
    EXPECT_THAT(read("360/8").asDouble(), Optional(DoubleEq(pi / 4)));
}

TEST_F(DegreeStringTransformerTest, readsTheInteger0FromOtherText) {
    for (const char* text : {"", "abc", "45\u00B0", "1+"})
        EXPECT_THAT(read(text).asInteger(), Optional(0)) << text;
}

TEST_F(DegreeStringTransformerTest, reads0FromWhatIsNoText) {
    EXPECT_THAT(read({}).asDouble(), Optional(0.0));
    EXPECT_THAT(read(45).asDouble(), Optional(0.0));
    transformer->setAllowNil(true);
    EXPECT_THAT(read({}).asInteger(), Optional(0)) << "nothing is no number of degrees";
}

TEST_F(DegreeStringTransformerTest, appliesPointScaleAndIncrement) {
    transformer->setPointScale(2);
    transformer->setRoundingIncrement(5);
    EXPECT_EQ(shown(pi / 2), Value("180"));
    EXPECT_EQ(shown(1), Value("115")) << "114.59 in fives";
    EXPECT_THAT(read("90").asDouble(), Optional(DoubleEq(pi / 4)));
}

TEST_F(DegreeStringTransformerTest, stepsInDegreesWhateverThePointScale) {
    transformer->setPointScale(2);
    EXPECT_THAT(transformer->incrementValue(10.2 * radiansPerDegree, 1, 1).asDouble(),
                Optional(DoubleEq(11 * radiansPerDegree)));
    EXPECT_THAT(transformer->incrementValue(10.2 * radiansPerDegree, 45, -1).asDouble(),
                Optional(DoubleEq(-45 * radiansPerDegree)));
    EXPECT_EQ(transformer->incrementValue("1", 1, 1), Value("1"));
    EXPECT_TRUE(transformer->incrementValue({}, 1, 1).isNothing());
}

TEST_F(DegreeStringTransformerTest, clampsRadiansToScaledBounds) {
    transformer->setPointScale(2);
    EXPECT_THAT(transformer->clampValue(1.5, {0, 1}).asDouble(), Optional(1.5));
    EXPECT_THAT(transformer->clampValue(2.5, {0, 1}).asDouble(), Optional(2.0));
}

}  // namespace
}  // namespace quorin
