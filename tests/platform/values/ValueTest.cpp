#include "quorin/platform/values/Value.h"

#include <array>
#include <limits>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr CGRect rect{{1, 2}, {3, 4}};
constexpr CATransform3D transform{2, 3, 5, 7, 11, 13, 17, 19, 23, 29, 31, 37, 41, 43, 47, 53};

class Layer : public Object {
public:
    std::string description() const override { return "layer"; }
};

class Named : public Object {
public:
    explicit Named(std::string text) : name(std::move(text)) {}
    bool isEqual(const Object& other) const override {
        const auto* named = dynamic_cast<const Named*>(&other);
        return named && named->name == name;
    }
    std::string description() const override { return name; }

private:
    std::string name;
};

// One of each type, no two equal.
std::vector<Value> oneOfEachType() {
    const std::array<std::uint8_t, 1> byte{1};
    return {
        Value(),
        true,
        3,
        1.5,
        "text",
        Value::List{1, 2},
        Value::Map{{"x", 1.0}},
        CGPoint{1, 2},
        CGSize{1, 2},
        rect,
        transform,
        CGColor{1, 0, 0, 1},
        NSValue(byte, "C"),
        std::make_shared<Layer>(),
    };
}

TEST(Value, isNothingAtFirst) {
    EXPECT_TRUE(Value().isNothing());
    EXPECT_TRUE(Value(nullptr).isNothing());
    EXPECT_FALSE(Value(false).isNothing());
    EXPECT_FALSE(Value("").isNothing());
}

TEST(Value, isMadeFromWhateverItCanHold) {
    EXPECT_EQ(Value{true}.asBool(), true);
    EXPECT_EQ(Value{3}.asInteger(), 3);
    EXPECT_EQ(Value{std::size_t{3}}.asInteger(), 3);
    EXPECT_EQ(Value{1.5}.asDouble(), 1.5);
    EXPECT_EQ(Value{1.5f}.asDouble(), 1.5);
    EXPECT_EQ(Value{NSNumber(3)}.asInteger(), 3);
    EXPECT_EQ(*Value{"text"}.asText(), "text");
    EXPECT_EQ(*Value{std::string("text")}.asText(), "text");
    EXPECT_EQ(*Value{std::string_view("text")}.asText(), "text");
    EXPECT_EQ((Value{CGPoint{1, 2}}.asPoint()), (CGPoint{1, 2}));
    EXPECT_EQ((Value{CGSize{1, 2}}.asSize()), (CGSize{1, 2}));
    EXPECT_EQ(Value{rect}.asRect(), rect);
    EXPECT_EQ(Value{transform}.asTransform3D(), transform);
    EXPECT_EQ((Value{CGColor{1, 0, 0, 1}}.asColor()), (CGColor{1, 0, 0, 1}));
    EXPECT_EQ(*Value{NSValue(rect)}.asNSValue(), NSValue(rect));
}

TEST(Value, isNothingForANullObject) { EXPECT_TRUE(Value(std::shared_ptr<Layer>()).isNothing()); }

TEST(Value, keepsAnObjectItself) {
    const auto layer = std::make_shared<Layer>();
    const Value value = layer;
    EXPECT_EQ(value.asObject(), layer);
    EXPECT_EQ(value.asObject()->description(), "layer");
}

TEST(Value, takesNoOtherPointerForABoolean) {
    EXPECT_FALSE((std::is_convertible_v<Layer*, Value>));
    EXPECT_FALSE((std::is_convertible_v<std::shared_ptr<const Layer>, Value>));
    EXPECT_FALSE((std::is_convertible_v<std::shared_ptr<int>, Value>));
}

TEST(Value, takesNoCharacterForANumber) {
    EXPECT_FALSE((std::is_constructible_v<Value, char>));
    EXPECT_FALSE((std::is_constructible_v<Value, char32_t>));
}

TEST(Value, isNothingForANullText) {
    EXPECT_TRUE(Value(static_cast<const char*>(nullptr)).isNothing());
}

TEST(Value, readsListsAndMapsOfValuesWithinEachOther) {
    const Value value = Value::Map{
        {"isClosed", true},
        {"segments", Value::List{Value::Map{{"point", CGPoint{1, 2}}, {"radius", 3}}, "two"}},
    };
    ASSERT_NE(value.asMap(), nullptr);
    EXPECT_EQ(value.asMap()->at("isClosed").asBool(), true);
    const Value::List& segments = *value.asMap()->at("segments").asList();
    ASSERT_EQ(segments.size(), 2U);
    EXPECT_EQ(segments[0].asMap()->at("point").asPoint(), (CGPoint{1, 2}));
    EXPECT_EQ(segments[0].asMap()->at("radius").asNumber(), 3.0);
    EXPECT_EQ(*segments[1].asText(), "two");
}

TEST(Value, answersForItsOwnTypeOnly) {
    for (const Value& value : oneOfEachType()) {
        const bool answers[] = {
            value.isNothing(),
            value.asBool().has_value(),
            value.asInteger().has_value(),
            value.asDouble().has_value(),
            value.asText() != nullptr,
            value.asList() != nullptr,
            value.asMap() != nullptr,
            value.asPoint().has_value(),
            value.asSize().has_value(),
            value.asRect().has_value(),
            value.asTransform3D().has_value(),
            value.asColor().has_value(),
            value.asNSValue() && !value.asNSValue()->bytes().empty(),
            value.asObject() != nullptr,
        };
        EXPECT_EQ(std::count(std::begin(answers), std::end(answers), true), 1);
    }
}

TEST(Value, readsIntegersAndDoublesAsNumbersButNoBooleans) {
    EXPECT_EQ(Value(3).asNumber(), 3.0);
    EXPECT_EQ(Value(1.5).asNumber(), 1.5);
    EXPECT_EQ(Value(true).asNumber(), std::nullopt);
    EXPECT_EQ(Value("3").asNumber(), std::nullopt);
}

TEST(Value, showsTheBoxesOfNumbersAndGeometry) {
    EXPECT_NE(Value(3).asNSNumber(), nullptr);
    EXPECT_NE(Value(3).asNSValue(), nullptr);
    EXPECT_NE(Value(true).asNSNumber(), nullptr);
    EXPECT_NE(Value(rect).asNSValue(), nullptr);
    EXPECT_EQ(Value(rect).asNSNumber(), nullptr);
    EXPECT_EQ(Value("3").asNSValue(), nullptr);
    EXPECT_EQ(Value("3").asNSNumber(), nullptr);
    EXPECT_EQ(Value(CGColor()).asNSValue(), nullptr);
}

TEST(Value, equalsItsCopyAndNoValueOfAnotherType) {
    const std::vector<Value> values = oneOfEachType();
    for (std::size_t i = 0; i < values.size(); ++i)
        for (std::size_t j = 0; j < values.size(); ++j)
            EXPECT_EQ(values[i] == Value(values[j]), i == j) << i << " and " << j;
}

TEST(Value, equalsByValueAcrossIntegersAndDoubles) {
    EXPECT_EQ(Value(3), Value(3.0));
    EXPECT_EQ(Value(3.0), 3);
    EXPECT_FALSE(Value(3) == Value(3.5));
    EXPECT_EQ((Value(Value::List{1, 2.0})), (Value(Value::List{1.0, 2})));
    EXPECT_EQ((Value(Value::Map{{"x", 1}})), (Value(Value::Map{{"x", 1.0}})));
}

TEST(Value, aBooleanEqualsNoNumber) {
    EXPECT_FALSE(Value(true) == Value(1));
    EXPECT_FALSE(Value(0.0) == Value(false));
}

TEST(Value, nanEqualsNothingAlsoWithinAList) {
    EXPECT_FALSE(Value(nan) == Value(nan));
    const Value list = Value::List{nan};
    const Value copy = list;
    EXPECT_FALSE(list == copy);
}

TEST(Value, tellsContentsApart) {
    EXPECT_FALSE(Value("a") == Value("b"));
    EXPECT_FALSE((Value(Value::List{1, 2}) == Value(Value::List{2, 1})));
    EXPECT_FALSE((Value(Value::Map{{"x", 1}}) == Value(Value::Map{{"y", 1}})));
    EXPECT_FALSE((Value(CGColor{1, 0, 0, 1}) == Value(CGColor{1, 0, 0, 0.5})));
}

TEST(Value, objectsAreEqualOnlyToThemselvesUnlessTheySayOtherwise) {
    const auto layer = std::make_shared<Layer>();
    EXPECT_EQ(Value(layer), Value(layer));
    EXPECT_FALSE(Value(layer) == Value(std::make_shared<Layer>()));
    EXPECT_EQ(Value(std::make_shared<Named>("a")), Value(std::make_shared<Named>("a")));
    EXPECT_FALSE(Value(std::make_shared<Named>("a")) == Value(std::make_shared<Named>("b")));
    EXPECT_FALSE(Value(std::make_shared<Named>("a")) == Value(layer));
}

TEST(Value, copiesShareListsAndMaps) {
    const Value list = Value::List{1, 2}, map = Value::Map{{"x", 1}};
    const Value listCopy = list, mapCopy = map;
    EXPECT_EQ(listCopy.asList(), list.asList());
    EXPECT_EQ(mapCopy.asMap(), map.asMap());
}

TEST(Value, canStillBeReadAfterAMove) {
    Value list = Value::List{1, 2};
    const Value moved = std::move(list);
    EXPECT_EQ(moved.asList()->size(), 2U);
    EXPECT_EQ(list, moved);  // NOLINT: the very case
}

TEST(Value, takesTheFirstOfItsOwnElementsByAssignment) {
    for (const Value& element : oneOfEachType()) {
        Value list = Value::List{element};
        list = list.asList()->front();
        EXPECT_EQ(list, element);
        Value map = Value::Map{{"x", element}};
        map = map.asMap()->at("x");
        EXPECT_EQ(map, element);
    }
    Value itself = Value::List{1, 2};
    itself = *&itself;
    EXPECT_EQ(itself.asList()->size(), 2U);
}

TEST(Value, canNestAThousandLevelsDeep) {
    const auto nested = [](Value innermost) {
        for (int level = 0; level < 1000; ++level)
            innermost = Value::List{Value::Map{{"x", innermost}}};
        return innermost;
    };
    EXPECT_EQ(nested(1), nested(1));
    EXPECT_FALSE(nested(1) == nested(2));
}

TEST(Value, isMovedWithinAGrowingList) {
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<Value>);
    EXPECT_TRUE(std::is_nothrow_move_assignable_v<Value>);
}

TEST(Value, takesAnotherTypeByAssignment) {
    Value value = 1.5;
    value = "text";
    EXPECT_EQ(*value.asText(), "text");
    value = nullptr;
    EXPECT_TRUE(value.isNothing());
}

}  // namespace
}  // namespace quorin
