#include "quorin/transformers/DegreeRadianTransformer.h"

#include <cmath>
#include <numbers>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::DoubleEq;
using testing::Optional;

struct DegreeRadianTransformerTest : testing::Test {
    const std::shared_ptr<DegreeRadianTransformer> transformer =
        makeObject<DegreeRadianTransformer>();
};

TEST_F(DegreeRadianTransformerTest, showsRadiansAsDegrees) {
    EXPECT_THAT(transformer->transformedValue(std::numbers::pi).asDouble(),
                Optional(DoubleEq(180)));
    EXPECT_THAT(transformer->transformedValue(1).asDouble(), Optional(57.29577951308232))
        << "an integer is a number too";
}

TEST_F(DegreeRadianTransformerTest, readsDegreesAsRadians) {
    EXPECT_THAT(transformer->reverseTransformedValue(90).asDouble(),
                Optional(DoubleEq(std::numbers::pi / 2)));
    EXPECT_THAT(transformer->reverseTransformedValue(1.0).asDouble(),
                Optional(0.017453292519943295));
}

TEST_F(DegreeRadianTransformerTest, keepsWhatIsNotFinite) {
    EXPECT_THAT(transformer->transformedValue(-INFINITY).asDouble(), Optional(-INFINITY));
    EXPECT_TRUE(std::isnan(transformer->reverseTransformedValue(NAN).asDouble().value()));
}

TEST_F(DegreeRadianTransformerTest, makesNothingOfWhatIsNoNumber) {
    for (const Value& value : {Value(), Value("90"), Value(true), Value(Value::List{1.0})}) {
        EXPECT_TRUE(transformer->transformedValue(value).isNothing());
        EXPECT_TRUE(transformer->reverseTransformedValue(value).isNothing());
    }
}

}  // namespace
}  // namespace quorin
