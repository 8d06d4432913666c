#include "quorin/transformers/StringTransformer.h"

#include "quorin/platform/foundation/NSNull.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

struct StringTransformerTest : testing::Test {
    const std::shared_ptr<StringTransformer> transformer = makeObject<StringTransformer>();
};

TEST_F(StringTransformerTest, handsOnTextBothWays) {
    for (const std::string text : {"", "layer", "12", "\xFF\xFE", "H\u00f6he"}) {
        EXPECT_EQ(transformer->transformedValue(text), Value(text));
        EXPECT_EQ(transformer->reverseTransformedValue(text), Value(text));
    }
}

TEST_F(StringTransformerTest, makesTheEmptyTextOfEverythingElse) {
    for (const Value& value : {Value(), Value(12), Value(0.5), Value(true), Value(NSNull::null()),
                               Value(Value::List{"text"}), Value(CGPoint{1, 2})}) {
        EXPECT_EQ(transformer->transformedValue(value), Value(""));
        EXPECT_EQ(transformer->reverseTransformedValue(value), Value(""));
    }
}

}  // namespace
}  // namespace quorin
