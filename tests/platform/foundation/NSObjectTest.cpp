#include "quorin/platform/foundation/NSObject.h"

#include "tests/TestSupport.h"
#include "tests/support/ObservedModels.h"

namespace quorin {
namespace {

using test::Leaf;
using test::Node;

std::vector<std::string> ended;

struct Base : NSObject {
    using Class = NSClassOf<Base, NSObject>;

    ~Base() override { ended.push_back("~Base"); }
};

struct Derived : Base {
    using Class = NSClassOf<Derived, Base>;

    ~Derived() override { ended.push_back("~Derived"); }
};

struct Tracker : Object {
    explicit Tracker(std::string given) : text(std::move(given)) {}
    ~Tracker() override { ended.push_back(text); }
    std::string description() const override { return text; }

    std::string text;
};

TEST(NSObject, knowsItsClassAndTheClassesAboveIt) {
    const auto leaf = makeObject<Leaf>();
    EXPECT_EQ(leaf->objectClass().name(), "Leaf");
    EXPECT_TRUE(leaf->objectClass().type() == typeid(Leaf));
    EXPECT_EQ(leaf->objectClass().superclass(), &NSClass::of<Node>());
    EXPECT_EQ(NSClass::of<Node>().superclass(), &NSClass::of<NSObject>());
    EXPECT_EQ(NSClass::of<NSObject>().superclass(), nullptr);
    const std::shared_ptr<Node> asNode = leaf;
    EXPECT_EQ(&asNode->objectClass(), &NSClass::of<Leaf>());
}

TEST(NSObject, isDescribedByClassAndAddress) {
    const auto leaf = makeObject<Leaf>();
    EXPECT_THAT(leaf->description(), testing::MatchesRegex("<Leaf: 0x[0-9a-f]+>"));
    EXPECT_NE(leaf->description(), makeObject<Leaf>()->description());
}

TEST(NSObject, isToldApartByItsHashValue) {
    const auto one = makeObject<Node>();
    const auto two = makeObject<Node>();
    EXPECT_EQ(one->hashValue(), one->hashValue());
    EXPECT_NE(one->hashValue(), two->hashValue());
    EXPECT_TRUE(one->isEqual(*one));
    EXPECT_FALSE(one->isEqual(*two));
}

TEST(NSObject, announcesItsEndMostDerivedFirstAndBeforeEveryDestructor) {
    NSClass::of<Base>().addDeallocationCallback([](NSObject*) { ended.push_back("base"); });
    NSClass::of<Derived>().addDeallocationCallback([](NSObject*) { ended.push_back("derived"); });
    NSClass::of<Derived>().addDeallocationCallback([](NSObject*) { ended.push_back("newer"); });
    ended.clear();
    makeObject<Derived>();
    EXPECT_THAT(ended, testing::ElementsAre("newer", "derived", "base", "~Derived", "~Base"));
    ended.clear();
    makeObject<Base>();
    EXPECT_THAT(ended, testing::ElementsAre("base", "~Base"));
}

struct Announced : NSObject {
    using Class = NSClassOf<Announced, NSObject>;

    int content = 7;
};

TEST(NSObject, announcesItselfWholeButOutOfReachOfWeakReferences) {
    static std::weak_ptr<NSObject> reference;
    static int seen = 0;
    static bool expired = false;
    NSClass::of<Announced>().addDeallocationCallback([](NSObject* object) {
        seen = static_cast<Announced*>(object)->content;
        expired = reference.expired();
    });
    auto object = makeObject<Announced>();
    reference = object;
    object.reset();
    EXPECT_EQ(seen, 7);
    EXPECT_TRUE(expired);
}

TEST(NSObject, keepsAssociatedObjectsUnderTheirPrivateKeys) {
    static const char one = 0;
    static const char two = 0;
    const auto node = makeObject<Node>();
    const auto first = std::make_shared<Tracker>("first");
    EXPECT_EQ(node->associatedObject(&one), nullptr);
    node->setAssociatedObject(&one, first);
    node->setAssociatedObject(&two, std::make_shared<Tracker>("second"));
    EXPECT_EQ(node->associatedObject(&one), first);
    EXPECT_EQ(node->associatedObject(&two)->description(), "second");
    EXPECT_EQ(makeObject<Node>()->associatedObject(&one), nullptr);
}

TEST(NSObject, releasesAnAssociatedObjectThatIsReplacedOrTakenOut) {
    static const char key = 0;
    ended.clear();
    const auto node = makeObject<Node>();
    node->setAssociatedObject(&key, std::make_shared<Tracker>("first"));
    node->setAssociatedObject(&key, std::make_shared<Tracker>("second"));
    EXPECT_THAT(ended, testing::ElementsAre("first"));
    node->setAssociatedObject(&key, nullptr);
    EXPECT_THAT(ended, testing::ElementsAre("first", "second"));
    EXPECT_EQ(node->associatedObject(&key), nullptr);
    node->setAssociatedObject(&key, nullptr);
}

struct Owner : NSObject {
    using Class = NSClassOf<Owner, NSObject>;

    ~Owner() override { ended.push_back("~Owner"); }
};

TEST(NSObject, releasesAssociatedObjectsAfterItsDestructors) {
    static const char key = 0;
    ended.clear();
    makeObject<Owner>()->setAssociatedObject(&key, std::make_shared<Tracker>("associated"));
    EXPECT_THAT(ended, testing::ElementsAre("~Owner", "associated"));
}

TEST(NSObjectDeathTest, hasNoClassWithoutTheFactory) {
    EXPECT_DEATH(std::make_shared<Node>()->valueForKey("name"),
                 "an object that was not made by makeObject has no class");
}

}  // namespace
}  // namespace quorin
