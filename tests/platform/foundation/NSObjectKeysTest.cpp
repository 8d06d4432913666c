#include <limits>

#include "quorin/platform/foundation/NSNull.h"
#include "quorin/platform/foundation/NSObject.h"
#include "tests/TestSupport.h"
#include "tests/support/ObservedModels.h"

namespace quorin {
namespace {

using test::chain;
using test::Leaf;
using test::Node;
using test::Recorder;

enum class Shade : std::uint8_t { light = 1, dark = 2 };

/// One key of every type that a key can have.
struct Everything : NSObject {
    using Class = NSClassOf<Everything, NSObject>;

    static void declareKeys(NSKeyList<Everything>& keys) {
        add(keys, "flag", &Everything::flag);
        add(keys, "small", &Everything::small);
        add(keys, "big", &Everything::big);
        add(keys, "real", &Everything::real);
        add(keys, "text", &Everything::text);
        add(keys, "point", &Everything::point);
        add(keys, "size", &Everything::size);
        add(keys, "rect", &Everything::rect);
        add(keys, "transform", &Everything::transform);
        add(keys, "color", &Everything::color);
        add(keys, "shade", &Everything::shade);
        add(keys, "map", &Everything::map);
        add(keys, "any", &Everything::any);
        add(keys, "perhaps", &Everything::perhaps);
        add(keys, "list", &Everything::list);
        add(keys, "node", &Everything::node);
        add(keys, "parent", &Everything::parent);
    }

    template <typename Field>
    static void add(NSKeyList<Everything>& keys, const char* key, Field Everything::*field) {
        keys.property(key, field,
                      [field](Everything& owner, Field value) { owner.*field = std::move(value); });
    }

    bool flag = false;
    std::int8_t small = 0;
    std::uint64_t big = 0;
    double real = 0;
    std::string text;
    CGPoint point;
    CGSize size;
    CGRect rect;
    CATransform3D transform;
    CGColor color;
    Shade shade = Shade::light;
    Value::Map map;
    Value any;
    std::optional<double> perhaps;
    std::vector<std::string> list;
    std::shared_ptr<Node> node;
    std::weak_ptr<Node> parent;
};

TEST(KeyedProperty, holdsEveryTypeThatAValueHolds) {
    const auto node = makeObject<Node>();
    const std::pair<const char*, Value> table[] = {
        {"flag", true},
        {"small", -128},
        {"big", std::numeric_limits<std::int64_t>::max()},
        {"real", 0.5},
        {"text", "words"},
        {"point", CGPoint{1, 2}},
        {"size", CGSize{3, 4}},
        {"rect", CGRect{{1, 2}, {3, 4}}},
        {"transform", CATransform3D{}},
        {"color", CGColor{0.25, 0.5, 0.75, 1}},
        {"shade", 2},
        {"map", Value::Map{{"a", 1}}},
        {"any", Value::List{1, "x"}},
        {"perhaps", 1.5},
        {"perhaps", Value()},
        {"list", Value::List{"a", "b"}},
        {"node", node},
        {"node", Value()},
        {"parent", node},
    };
    const auto object = makeObject<Everything>();
    for (const auto& [key, value] : table) {
        SCOPED_TRACE(key);
        object->setValueForKey(value, key);
        EXPECT_EQ(object->valueForKey(key), value);
    }
    EXPECT_EQ(object->shade, Shade::dark);
}

TEST(KeyedProperty, readsAWeakObjectThatIsGoneAsNothing) {
    const auto object = makeObject<Everything>();
    object->parent = makeObject<Node>();
    EXPECT_TRUE(object->valueForKey("parent").isNothing());
}

TEST(KeyedProperty, takesAWholeDoubleForAnInteger) {
    const auto object = makeObject<Everything>();
    object->setValueForKey(12.0, "small");
    EXPECT_EQ(object->small, 12);
    object->setValueForKey(3, "real");
    EXPECT_EQ(object->real, 3.0);
}

TEST(KeyedPropertyDeathTest, refusesAValueOfAnotherTypeNamingClassAndKey) {
    const std::pair<const char*, Value> table[] = {
        {"flag", 1},
        {"small", 128},
        {"small", 1.5},
        {"small", true},
        {"big", -1},
        {"big", 0x1p63},
        {"real", true},
        {"real", Value()},
        {"text", 1},
        {"shade", 256},
        {"list", Value::List{"a", 1}},
        {"list", "a"},
        {"perhaps", "a"},
        {"node", makeObject<Recorder>()},
        {"node", NSNull::null()},
        {"point", CGSize{1, 2}},
    };
    const auto object = makeObject<Everything>();
    for (const auto& [key, value] : table) {
        SCOPED_TRACE(key);
        const std::string message = std::string("key \"").append(key).append(
            "\" of Everything cannot hold a value of this type");
        EXPECT_DEATH(object->setValueForKey(value, key), message);
    }
}

TEST(KeyedProperty, isInheritedBySubclasses) {
    const auto leaf = makeObject<Leaf>();
    leaf->setValueForKey("oak", "name");
    leaf->setValueForKey(2.5, "weight");
    EXPECT_EQ(leaf->name, "oak");
    EXPECT_EQ(leaf->valueForKey("weight"), Value(2.5));
}

struct Shouting : Node {
    using Class = NSClassOf<Shouting, Node>;

    static void declareKeys(NSKeyList<Shouting>& keys) {
        keys.property("name", [](const Shouting& node) { return node.name + "!"; });
    }
};

TEST(KeyedProperty, ofASubclassTakesThePlaceOfAnInheritedOne) {
    const auto node = makeObject<Shouting>();
    node->name = "oak";
    EXPECT_EQ(node->valueForKey("name"), Value("oak!"));
}

struct Plain : Node {
    using Class = NSClassOf<Plain, Node>;
};

TEST(KeyedProperty, isNotTakenUpTwiceByASubclassWithoutKeysOfItsOwn) {
    EXPECT_EQ(makeObject<Plain>()->valueForKey("number"), Value(0));
    EXPECT_EQ(NSClass::of<Plain>().property("number"), NSClass::of<Node>().property("number"));
}

TEST(KeyedPropertyDeathTest, thatTheClassDoesNotHaveIsNamedWithTheClass) {
    const auto node = makeObject<Leaf>();
    EXPECT_DEATH(node->valueForKey("wieght"), "Leaf has no key \"wieght\"");
    EXPECT_DEATH(node->setValueForKey(1, ""), "Leaf has no key \"\"");
    EXPECT_DEATH(makeObject<Node>()->valueForKey("weight"), "Node has no key \"weight\"");
}

TEST(KeyedPropertyDeathTest, thatCanOnlyBeReadIsNotSet) {
    EXPECT_DEATH(makeObject<Node>()->setValueForKey("a", "text"),
                 "key \"text\" of Node can only be read");
}

TEST(KeyPath, leadsFromObjectToObject) {
    const auto nodes = chain(4);
    EXPECT_EQ(nodes[0]->valueForKeyPath("number"), Value(0));
    EXPECT_EQ(nodes[0]->valueForKeyPath("next.next.next.number"), Value(3));
    nodes[0]->setValueForKeyPath(30, "next.next.next.number");
    EXPECT_EQ(nodes[3]->number(), 30);
    nodes[0]->setValueForKeyPath("zero", "name");
    EXPECT_EQ(nodes[0]->name, "zero");
}

TEST(KeyPath, throughAMissingObjectReadsNothingAndSetsNothing) {
    const auto nodes = chain(2);
    EXPECT_TRUE(nodes[0]->valueForKeyPath("next.next.number").isNothing());
    nodes[0]->setValueForKeyPath(5, "next.next.number");
    EXPECT_EQ(nodes[1]->number(), 1);
}

TEST(KeyPathDeathTest, throughSomethingWithoutKeysIsNamedWithTheClass) {
    EXPECT_DEATH(chain(2)[0]->valueForKeyPath("next.number.name"),
                 "key \"number\" of Node is no object with keys");
    EXPECT_DEATH(chain(2)[0]->setValueForKeyPath(1, "next.number.name"),
                 "key \"number\" of Node is no object with keys");
    EXPECT_DEATH(chain(2)[0]->valueForKeyPath("next..number"), "Node has no key \"\"");
}

TEST(KeyPath, ofAThousandKeysIsFollowedToItsEnd) {
    const auto nodes = chain(1001);
    std::string keyPath;
    for (int i = 0; i < 1000; ++i)
        keyPath.append("next.");
    EXPECT_EQ(nodes[0]->valueForKeyPath(keyPath.append("number")), Value(1000));
}

TEST(SettingByName, announcesTheChangeOnceWhoeverAnnouncesIt) {
    const auto node = makeObject<Node>();
    const auto recorder = makeObject<Recorder>();
    const auto both = NSKeyValueObservingOptions::newValue | NSKeyValueObservingOptions::oldValue;
    node->addObserver(*recorder, "name", both);    // announced around its setter
    node->addObserver(*recorder, "number", both);  // announced by its setter
    node->setValueForKey("a", "name");
    ASSERT_EQ(recorder->told.size(), 1u);
    EXPECT_EQ(recorder->lastOld(), Value(""));
    EXPECT_EQ(recorder->lastNew(), Value("a"));
    node->setValueForKey(7, "number");
    ASSERT_EQ(recorder->told.size(), 2u);
    EXPECT_EQ(recorder->lastNew(), Value(7));
    node->removeObserver(*recorder, "name");
    node->removeObserver(*recorder, "number");
}

}  // namespace
}  // namespace quorin
