#include "quorin/observation/KVOController.h"

#include "quorin/platform/foundation/NSNull.h"
#include "tests/TestSupport.h"
#include "tests/support/ObservedModels.h"

namespace quorin {
namespace {

using test::chain;
using test::Leaf;
using test::Node;
using test::numbered;
using testing::ElementsAre;
using Options = NSKeyValueObservingOptions;

constexpr Options both = Options::newValue | Options::oldValue;

struct KVOControllerTest : testing::Test {
    /// A block that writes down under which name it was called.
    KVOController::Block noting(const char* name) {
        return [this, name](const KVONotification&) { calls.emplace_back(name); };
    }

    std::shared_ptr<Node> node = makeObject<Node>();
    KVOController controller;
    std::vector<std::string> calls;
};

TEST_F(KVOControllerTest, callsTheBlockWithTheChangeAndTheKeyPath) {
    std::vector<KVONotification> notifications;
    controller.observe(*node, "number", both, [&](const KVONotification& notification) {
        notifications.push_back(notification);
    });
    node->setNumber(4);
    ASSERT_EQ(notifications.size(), 1u);
    EXPECT_EQ(notifications[0].keyPath, "number");
    EXPECT_EQ(notifications[0].kind(), NSKeyValueChange::setting);
    EXPECT_EQ(notifications[0].oldValue(), Value(0));
    EXPECT_EQ(notifications[0].newValue(), Value(4));
    EXPECT_FALSE(notifications[0].isPrior());
}

TEST_F(KVOControllerTest, handsOnPriorAndInitialAndCollectionChanges) {
    std::vector<KVONotification> notifications;
    controller.observe(*node, "items", both | Options::prior | Options::initial,
                       [&](const KVONotification& each) { notifications.push_back(each); });
    node->edit(NSKeyValueChange::insertion, {0}, [](auto& items) { items = {7}; });
    ASSERT_EQ(notifications.size(), 3u);
    EXPECT_EQ(notifications[0].newValue(), Value(Value::List()));
    EXPECT_TRUE(notifications[1].isPrior());
    EXPECT_EQ(notifications[2].kind(), NSKeyValueChange::insertion);
    EXPECT_THAT(notifications[2].indexes()->indexes(), ElementsAre(0));
}

TEST_F(KVOControllerTest, leavesOneLiveObservationWhenTheSameIsObservedTwice) {
    const auto held = std::make_shared<int>(0);
    controller.observe(*node, "number", both, [held](const KVONotification&) { ++*held; });
    controller.observe(*node, "number", both, noting("second"));
    EXPECT_EQ(held.use_count(), 1);
    node->setNumber(1);
    EXPECT_EQ(*held, 0);
    EXPECT_THAT(calls, ElementsAre("second"));
    controller.unobserve(*node, "number");
    node->setNumber(2);
    EXPECT_EQ(calls.size(), 1u);
}

TEST_F(KVOControllerTest, registersTheNewObservationBeforeItStopsTheOldOne) {
    // The closure of the old one is released after the new one got its initial value.
    struct Farewell {
        explicit Farewell(std::vector<std::string>& notes) : calls(notes) {}
        ~Farewell() { calls.emplace_back("released"); }

        std::vector<std::string>& calls;
    };
    controller.observe(*node, "number", both,
                       [held = std::make_shared<Farewell>(calls)](const KVONotification&) {});
    controller.observe(*node, "number", both | Options::initial, noting("second"));
    EXPECT_THAT(calls, ElementsAre("second", "released"));
}

TEST_F(KVOControllerTest, observesEachKeyPathOfAListInOrder) {
    controller.observe(*node, {"number", "name"}, both | Options::initial,
                       [&](const auto& each) { calls.push_back(each.keyPath); });
    const std::vector<std::string> keyPaths{"next", "items"};
    controller.observe(*node, keyPaths, both | Options::initial,
                       [&](const auto& each) { calls.push_back(each.keyPath); });
    EXPECT_THAT(calls, ElementsAre("number", "name", "next", "items"));
    calls.clear();
    controller.unobserve(*node, {"number", "next", "nothing like it"});
    controller.unobserve(*node, std::vector<std::string>{"items"});
    node->setNumber(1);
    node->setNext(numbered(1));
    node->changeValues({"items", "name"});
    EXPECT_THAT(calls, ElementsAre("name"));
}

TEST_F(KVOControllerTest, leavesTheOtherKeyPathsOfAnObjectLive) {
    controller.observe(*node, "number", both, noting("number"));
    controller.observe(*node, "name", both, noting("name"));
    controller.unobserve(*node, "number");
    node->setNumber(1);
    node->setValueForKey("a", "name");
    EXPECT_THAT(calls, ElementsAre("name"));
}

TEST_F(KVOControllerTest, stopsEveryObservationOfOneObject) {
    const auto other = makeObject<Node>();
    controller.observe(*node, "number", both, noting("number"));
    controller.observe(*node, "name", both, noting("name"));
    controller.observe(*other, "number", both, noting("other"));
    controller.unobserve(*node);
    node->setNumber(1);
    node->setValueForKey("a", "name");
    other->setNumber(1);
    EXPECT_THAT(calls, ElementsAre("other"));
}

TEST_F(KVOControllerTest, stopsEveryObservationAndCanObserveAgain) {
    const auto other = makeObject<Node>();
    controller.observe(*node, "number", both, noting("node"));
    controller.observe(*other, "number", both, noting("other"));
    controller.unobserve();
    node->setNumber(1);
    other->setNumber(1);
    EXPECT_THAT(calls, testing::IsEmpty());
    controller.observe(*node, "number", both, noting("again"));
    node->setNumber(2);
    EXPECT_THAT(calls, ElementsAre("again"));
}

TEST_F(KVOControllerTest, doesNothingToStopWhatIsNotObserved) {
    controller.unobserve();
    controller.unobserve(*node);
    controller.unobserve(*node, "number");
    controller.observe(*node, "number", both, noting("number"));
    controller.unobserve(*node, "name");
    controller.unobserve(*node, "number");
    controller.unobserve(*node, "number");
    controller.unobserve(*node);
    controller.unobserve();
}

TEST_F(KVOControllerTest, keepsRegistriesApart) {
    KVOController second;
    controller.observe(*node, "number", both, noting("first"));
    second.observe(*node, "number", both, noting("second"));
    controller.unobserve(*node);
    node->setNumber(1);
    EXPECT_THAT(calls, ElementsAre("second"));
}

struct Twin : Node {
    using Class = NSClassOf<Twin, Node>;

    std::size_t hashValue() const override { return 42; }
};

TEST_F(KVOControllerTest, tellsObjectsApartByTheirHashValueAlone) {
    const auto one = makeObject<Twin>();
    const auto two = makeObject<Twin>();
    controller.observe(*one, "number", both, noting("one"));
    controller.observe(*two, "number", both, noting("two"));  // takes the place of the first
    one->setNumber(1);
    two->setNumber(1);
    EXPECT_THAT(calls, ElementsAre("two"));
    controller.unobserve(*one);
    two->setNumber(2);
    EXPECT_EQ(calls.size(), 1u);
}

TEST_F(KVOControllerTest, takesThePlaceOfAnObserverWhoseObjectIsGone) {
    controller.observe(*makeObject<Twin>(), "number", both, noting("gone"));
    const auto two = makeObject<Twin>();
    controller.observe(*two, "number", both, noting("two"));
    two->setNumber(1);
    EXPECT_THAT(calls, ElementsAre("two"));
}

TEST_F(KVOControllerTest, stopsBeforeAnObservedObjectIsDestroyed) {
    const auto held = std::make_shared<int>(0);
    controller.observe(*node, {"number", "next.number"}, both,
                       [held](const KVONotification&) { ++*held; });
    const auto next = numbered(1);
    node->setNext(next);
    *held = 0;
    node.reset();  // an object that ends observed would stop the process
    EXPECT_EQ(held.use_count(), 1);
    next->setNumber(2);
    EXPECT_EQ(*held, 0);
    controller.unobserve();
}

TEST_F(KVOControllerTest, stopsWhenTheRegistryEndsFirst) {
    const auto held = std::make_shared<int>(0);
    {
        KVOController passing;
        passing.observe(*node, "number", both, [held](const KVONotification&) { ++*held; });
        node->setNumber(1);
    }
    node->setNumber(2);
    EXPECT_EQ(*held, 1);
    EXPECT_EQ(held.use_count(), 1);
}

struct SelfWatching : Node {
    using Class = NSClassOf<SelfWatching, Node>;

    SelfWatching() = default;
    ~SelfWatching() override { registry.unobserve(*this); }

    KVOController registry;
};

TEST_F(KVOControllerTest, endsTogetherWithAnObjectThatOwnsItsRegistry) {
    auto object = makeObject<SelfWatching>();
    object->registry.observe(*object, "number", both, noting("own"));
    controller.observe(*object, "number", both, noting("foreign"));
    object->setNumber(1);
    EXPECT_THAT(calls, ElementsAre("own", "foreign"));
    object.reset();
    controller.unobserve();
}

TEST_F(KVOControllerTest, endsTogetherWithAnObjectWhoseBlockOwnsTheRegistry) {
    auto registry = std::make_shared<KVOController>();
    const std::weak_ptr<KVOController> reference = registry;
    registry->observe(*node, "number", both, [registry](const KVONotification&) {});
    registry->observe(*node, "name", both, [registry](const KVONotification&) {});
    registry.reset();
    EXPECT_FALSE(reference.expired());
    node.reset();
    EXPECT_TRUE(reference.expired());
}

TEST_F(KVOControllerTest, letsReleasedClosuresStopEachOtherWhileTheirObjectEnds) {
    const auto stopper = [this](const char* keyPath) {
        Node* const dying = node.get();
        return std::shared_ptr<void>(
            nullptr, [this, dying, keyPath](void*) { controller.unobserve(*dying, keyPath); });
    };
    controller.observe(*node, "name", both, [held = stopper("number")](const auto&) {});
    controller.observe(*node, "number", both, [held = stopper("name")](const auto&) {});
    node.reset();  // a registration left over would stop the process
    EXPECT_EQ(node, nullptr);
}

TEST_F(KVOControllerTest, doesNotKeepAnObservedObjectAlive) {
    const std::weak_ptr<Node> reference = node;
    controller.observe(*node, "number", both, noting("number"));
    node.reset();
    EXPECT_TRUE(reference.expired());
}

TEST_F(KVOControllerTest, lastsForSubclassesOfAnObservedClass) {
    controller.observe(*node, "number", both, noting("node"));
    auto leaf = makeObject<Leaf>();
    controller.observe(*leaf, "weight", both, noting("leaf"));
    leaf->setValueForKey(2.0, "weight");
    EXPECT_THAT(calls, ElementsAre("leaf"));
    leaf.reset();
    node.reset();
}

TEST_F(KVOControllerTest, letsABlockStopItsOwnObservation) {
    auto held = std::make_shared<int>(7);
    controller.observe(*node, "number", both, [&, held](const KVONotification&) {
        controller.unobserve(*node, "number");
        ++*held;  // the block lives on until it has run
    });
    controller.observe(*node, "name", both, noting("name"));
    node->setNumber(1);
    node->setNumber(2);
    EXPECT_EQ(*held, 8);
    EXPECT_EQ(held.use_count(), 1);
}

TEST_F(KVOControllerTest, skipsTheBlockThatAnotherOneStopped) {
    KVOController second;
    controller.observe(*node, "number", both, [&](const KVONotification&) {
        calls.emplace_back("first");
        second.unobserve(*node);
    });
    second.observe(*node, "number", both, noting("second"));
    node->setNumber(1);
    EXPECT_THAT(calls, ElementsAre("first"));
}

TEST_F(KVOControllerTest, letsABlockReplaceItself) {
    controller.observe(*node, "number", both, [&](const KVONotification&) {
        calls.emplace_back("first");
        controller.observe(*node, "number", both, noting("second"));
    });
    node->setNumber(1);
    EXPECT_THAT(calls, ElementsAre("first"));
    node->setNumber(2);
    EXPECT_THAT(calls, ElementsAre("first", "second"));
}

TEST_F(KVOControllerTest, letsABlockChangeTheValueAgain) {
    std::vector<Value> values;
    controller.observe(*node, "number", both, [&](const KVONotification& notification) {
        values.push_back(notification.newValue());
        if (node->number() < 3)
            node->setNumber(node->number() + 1);
    });
    node->setNumber(1);
    EXPECT_THAT(values, ElementsAre(Value(1), Value(2), Value(3)));
}

TEST_F(KVOControllerTest, letsABlockReleaseTheRegistry) {
    auto passing = std::make_unique<KVOController>();
    passing->observe(*node, "number", both, [&](const KVONotification&) {
        passing.reset();
        calls.emplace_back("after");
    });
    node->setNumber(1);
    node->setNumber(2);
    EXPECT_THAT(calls, ElementsAre("after"));
}

TEST_F(KVOControllerTest, letsABlockReleaseTheObservedObject) {
    controller.observe(*node, "number", both, [&](const KVONotification&) {
        node.reset();
        calls.emplace_back("after");
    });
    Node* const changed = node.get();
    changed->setNumber(1);
    EXPECT_THAT(calls, ElementsAre("after"));
    EXPECT_EQ(node, nullptr);
}

struct Again {
    ~Again() { controller.observe(*node, "number", both, std::move(block)); }

    KVOController& controller;
    std::shared_ptr<Node> node;
    KVOController::Block block;
};

TEST_F(KVOControllerTest, stopsWhatAReleasedClosureObservesAnew) {
    auto again = std::shared_ptr<Again>(new Again{controller, node, noting("again")});
    controller.observe(*node, "number", both, [again](const KVONotification&) {});
    again.reset();
    controller.unobserve();
    node->setNumber(1);
    EXPECT_THAT(calls, testing::IsEmpty());
}

TEST_F(KVOControllerTest, leavesOneObservationWhenTheReplacedClosureObservesAnew) {
    auto again = std::shared_ptr<Again>(new Again{controller, node, noting("again")});
    controller.observe(*node, "number", both, [again](const KVONotification&) {});
    again.reset();
    controller.observe(*node, "number", both, noting("wanted"));
    node->setNumber(1);
    EXPECT_THAT(calls, ElementsAre("wanted"));
}

TEST_F(KVOControllerTest, takesTenThousandObservations) {
    constexpr std::size_t count = 10'000;
    std::vector<std::unique_ptr<KVOController>> controllers;
    std::size_t told = 0;
    for (std::size_t i = 0; i < count; ++i) {
        controllers.push_back(std::make_unique<KVOController>());
        controllers.back()->observe(*node, "number", both, [&](const auto&) { ++told; });
    }
    node->setNumber(1);
    EXPECT_EQ(told, count);
    controllers.resize(count / 2);
    node->setNumber(2);
    EXPECT_EQ(told, count + count / 2);
    node.reset();
}

}  // namespace
}  // namespace quorin
