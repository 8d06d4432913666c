#include "quorin/extensions/ValueExtension.h"

#include <cmath>
#include <limits>

#include "quorin/platform/foundation/NSCopying.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::Optional;

struct Layer : Object, NSCopying {
    explicit Layer(std::string text) : name(std::move(text)) {}

    std::string description() const override { return name; }
    std::shared_ptr<Object> copy() const override { return std::make_shared<Layer>(name); }

    std::string name;
};

struct Window : Object {
    std::string description() const override { return "the only window"; }
};

TEST(DeepCopy, copiesTheObjectsOfAList) {
    const auto layer = std::make_shared<Layer>("a");
    const Value::List copies = deepCopy(Value::List{layer, layer});
    ASSERT_EQ(copies.size(), 2u);
    for (const Value& copy : copies)
        EXPECT_EQ(copy.asObject()->description(), "a");
    EXPECT_NE(copies[0].asObject(), layer);
    EXPECT_NE(copies[0].asObject(), copies[1].asObject()) << "each element for itself";
}

TEST(DeepCopy, copiesTheObjectsOfAMap) {
    const auto layer = std::make_shared<Layer>("a");
    const Value::Map copies = deepCopy(Value::Map{{"key", layer}, {"none", nullptr}});
    ASSERT_EQ(copies.size(), 2u);
    EXPECT_EQ(copies.at("key").asObject()->description(), "a");
    EXPECT_NE(copies.at("key").asObject(), layer);
    EXPECT_TRUE(copies.at("none").isNothing());
}

TEST(DeepCopy, reachesEveryDepth) {
    const auto layer = std::make_shared<Layer>("a");
    const Value::List copies = deepCopy(Value::List{Value::Map{{"key", Value::List{layer}}}});
    const Value inner = copies.at(0).asMap()->at("key").asList()->at(0);
    EXPECT_EQ(inner.asObject()->description(), "a");
    EXPECT_NE(inner.asObject(), layer);
}

TEST(DeepCopy, equalsWhatHasNoObjects) {
    const Value::List list = {
        1, 2.5, true, "text", CGPoint{1, 2}, nullptr, Value::Map{{"key", Value::List{"x"}}}};
    EXPECT_EQ(Value(deepCopy(list)), Value(list));
}

TEST(DeepCopyDeath, ofAnObjectThatCannotBeCopiedNamesIt) {
    const Value::List list = {std::make_shared<Window>()};
    EXPECT_DEATH(deepCopy(list), "an object that cannot be copied: the only window");
}

TEST(DictionaryReads, giveNumbersInTheTypeThatIsAskedFor) {
    const Value::Map map = {{"whole", 3}, {"broken", -2.75}};
    EXPECT_THAT(integer(map, "whole"), Optional(3));
    EXPECT_THAT(integer(map, "broken"), Optional(-2));
    EXPECT_THAT(cgFloat(map, "whole"), Optional(3.0));
    EXPECT_THAT(cgFloat(map, "broken"), Optional(-2.75));
}

TEST(DictionaryReads, giveNothingForWhatIsNoNumber) {
    const Value::Map map = {{"truth", true}, {"text", "3"}, {"nothing", nullptr}};
    for (const char* key : {"truth", "text", "nothing", "absent"}) {
        EXPECT_EQ(integer(map, key), std::nullopt) << key;
        EXPECT_EQ(cgFloat(map, key), std::nullopt) << key;
    }
}

TEST(DictionaryReads, haveAnIntegerForEveryNumber) {
    const Value::Map map = {{"huge", 1e300}, {"nan", NAN}};
    EXPECT_EQ(integer(map, "huge"), std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(integer(map, "nan"), 0);
}

}  // namespace
}  // namespace quorin
