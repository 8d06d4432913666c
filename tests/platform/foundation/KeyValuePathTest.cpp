/// Observing along paths of objects that are replaced, shared and released.
#include <array>

#include "quorin/platform/foundation/NSNull.h"
#include "quorin/platform/foundation/NSObject.h"
#include "tests/TestSupport.h"
#include "tests/support/ObservedModels.h"

namespace quorin {
namespace {

using test::chain;
using test::Node;
using test::numbered;
using test::Recorder;
using Options = NSKeyValueObservingOptions;

constexpr Options both = Options::newValue | Options::oldValue;

struct KeyValuePath : testing::Test {
    std::shared_ptr<Recorder> recorder = makeObject<Recorder>();
};

TEST_F(KeyValuePath, tellsTheObjectAndThePathOfTheRegistration) {
    const auto nodes = chain(2);
    nodes[0]->addObserver(*recorder, "next.number", both);
    nodes[1]->setNumber(9);
    ASSERT_EQ(recorder->told.size(), 1u);
    EXPECT_EQ(recorder->told[0].object, nodes[0].get());
    EXPECT_EQ(recorder->told[0].keyPath, "next.number");
    EXPECT_EQ(recorder->lastOld(), Value(1));
    EXPECT_EQ(recorder->lastNew(), Value(9));
    nodes[0]->removeObserver(*recorder, "next.number");
}

TEST_F(KeyValuePath, movesToTheObjectThatReplacesOneInItsMiddle) {
    const auto nodes = chain(4);
    const std::string path = "next.next.next.number";
    nodes[0]->addObserver(*recorder, path, both);
    const auto before = nodes[1]->next();
    const auto others = chain(2);
    nodes[1]->setNext(others[0]);
    EXPECT_EQ(recorder->lastOld(), Value(3));
    EXPECT_EQ(recorder->lastNew(), Value(1));

    recorder->told.clear();
    nodes[3]->setNumber(100);  // no longer on the path
    before->setNext(makeObject<Node>());
    EXPECT_EQ(recorder->told.size(), 0u);
    others[1]->setNumber(200);
    EXPECT_EQ(recorder->lastNew(), Value(200));
    nodes[0]->removeObserver(*recorder, path);
    others[1]->setNumber(300);
    EXPECT_EQ(recorder->told.size(), 1u);
}

TEST_F(KeyValuePath, waitsAtAMissingObject) {
    const auto node = makeObject<Node>();
    node->addObserver(*recorder, "next.next.number", both);
    const auto nodes = chain(2);
    node->setNext(nodes[1]);
    EXPECT_EQ(recorder->lastNew(), Value(NSNull::null()));
    nodes[1]->setNext(numbered(5));
    EXPECT_EQ(recorder->lastOld(), Value(NSNull::null()));
    EXPECT_EQ(recorder->lastNew(), Value(5));
    node->setNext(nullptr);
    EXPECT_EQ(recorder->lastOld(), Value(5));
    EXPECT_EQ(recorder->lastNew(), Value(NSNull::null()));
    recorder->told.clear();
    nodes[1]->setNext(nullptr);
    EXPECT_EQ(recorder->told.size(), 0u);
    node->removeObserver(*recorder, "next.next.number");
}

TEST_F(KeyValuePath, tellsOnceOfAnObjectThatIsReachedByBothSidesOfADiamond) {
    const auto top = makeObject<Node>();
    const auto shared = numbered(1);
    top->setNext(makeObject<Node>());
    top->setOther(makeObject<Node>());
    top->next()->setNext(shared);
    top->other()->setNext(shared);
    top->addObserver(*recorder, "next.next.number", both);
    top->addObserver(*recorder, "other.next.number", both);
    shared->setNumber(2);
    ASSERT_EQ(recorder->told.size(), 2u);
    EXPECT_EQ(recorder->told[0].keyPath, "next.next.number");
    EXPECT_EQ(recorder->told[1].keyPath, "other.next.number");

    top->other()->setNext(nullptr);  // one side leaves, the other stays
    recorder->told.clear();
    shared->setNumber(3);
    ASSERT_EQ(recorder->told.size(), 1u);
    EXPECT_EQ(recorder->told[0].keyPath, "next.next.number");
    top->removeObserver(*recorder, "next.next.number");
    top->removeObserver(*recorder, "other.next.number");
}

TEST_F(KeyValuePath, tellsOnceWhenARingLeadsItThroughTheSameKeyAgain) {
    const auto node = numbered(1);
    node->setNext(node);
    node->addObserver(*recorder, "next.next.number", both | Options::prior);
    node->setNext(node);
    EXPECT_EQ(recorder->told.size(), 2u);  // once before and once after
    node->removeObserver(*recorder, "next.next.number");
    recorder->told.clear();

    node->addObserver(*recorder, "next.next.number", both);
    const auto other = chain(2);
    node->setNext(other[0]);
    ASSERT_EQ(recorder->told.size(), 1u);
    EXPECT_EQ(recorder->lastOld(), Value(1));
    EXPECT_EQ(recorder->lastNew(), Value(1));
    other[1]->setNumber(7);
    EXPECT_EQ(recorder->told.size(), 2u);
    node->setNext(node);
    node->removeObserver(*recorder, "next.next.number");
    node->setNext(nullptr);  // opens the ring, which would keep itself alive
    EXPECT_EQ(recorder->told.size(), 3u);
}

TEST_F(KeyValuePath, ofAThousandObjectsFollowsChangesAnywhereOnIt) {
    const auto nodes = chain(1001);
    std::string path;
    for (int i = 0; i < 1000; ++i)
        path.append("next.");
    path.append("number");
    nodes[0]->addObserver(*recorder, path, both);
    nodes[1000]->setNumber(1);
    EXPECT_EQ(recorder->lastOld(), Value(1000));
    nodes[999]->setNext(numbered(5));
    EXPECT_EQ(recorder->lastNew(), Value(5));
    nodes[0]->setNext(nullptr);
    EXPECT_EQ(recorder->lastOld(), Value(5));
    nodes[0]->removeObserver(*recorder, path);
    EXPECT_EQ(recorder->told.size(), 3u);
}

TEST_F(KeyValuePath, survivesTheEndOfTheObjectItLeavesWithinTheChange) {
    const auto node = makeObject<Node>();
    node->setNext(numbered(1));
    node->addObserver(*recorder, "next.number", both);
    const std::weak_ptr<Node> replaced = node->next();
    node->setNext(numbered(2));  // the first is destroyed before the change is done
    EXPECT_TRUE(replaced.expired());
    EXPECT_EQ(recorder->lastOld(), Value(1));
    EXPECT_EQ(recorder->lastNew(), Value(2));
    node->removeObserver(*recorder, "next.number");
}

TEST_F(KeyValuePath, leavesTheObjectsOnItWhenTheObservedOneEnds) {
    auto node = makeObject<Node>();
    const auto next = numbered(1);
    node->setNext(next);
    node->addObserver(*recorder, "next.number", both);
    node->removeObserver(*recorder, "next.number");
    node.reset();
    next->setNumber(2);
    EXPECT_EQ(recorder->told.size(), 0u);
}

TEST_F(KeyValuePath, leavesTheObjectsOnItWhenAnObserverEndedWithoutAWord) {
    auto node = makeObject<Node>();
    const auto next = numbered(1);
    node->setNext(next);
    node->addObserver(*recorder, "next.number", both);
    recorder.reset();
    next->setNumber(2);
    node.reset();
    next->setNumber(3);
}

TEST_F(KeyValuePath, tellsNobodyOfAChangeOnAnObjectThatLeftThePathMeanwhile) {
    const auto node = makeObject<Node>();
    const auto next = numbered(1);
    node->setNext(next);
    node->addObserver(*recorder, "next.number", both);
    next->willChangeValue("number");
    node->setNext(numbered(2));
    next->didChangeValue("number");
    EXPECT_EQ(recorder->told.size(), 1u);
    node->removeObserver(*recorder, "next.number");
}

TEST_F(KeyValuePath, isInOrderForAllBeforeAnybodyIsTold) {
    const auto node = makeObject<Node>();
    node->setNext(numbered(1));
    const auto late = makeObject<Recorder>();
    node->addObserver(*recorder, "next", both);
    node->addObserver(*late, "next.number", both);
    recorder->then = [&] { node->next()->setNumber(20); };
    node->setNext(numbered(2));
    ASSERT_EQ(late->told.size(), 2u);
    const auto entry = [&](std::size_t index, NSKeyValueChangeKey key) {
        return late->told[index].change[key];
    };
    EXPECT_EQ(entry(0, NSKeyValueChangeKey::oldValue), Value(2));
    EXPECT_EQ(entry(0, NSKeyValueChangeKey::newValue), Value(20));
    EXPECT_EQ(entry(1, NSKeyValueChangeKey::oldValue), Value(1));
    EXPECT_EQ(entry(1, NSKeyValueChangeKey::newValue), Value(2));
    node->removeObserver(*recorder, "next");
    node->removeObserver(*late, "next.number");
}

TEST_F(KeyValuePath, followsAReplacementThatWasAnnouncedBeforeItBegan) {
    const auto node = makeObject<Node>();
    node->setNext(numbered(1));
    const auto early = makeObject<Recorder>();
    early->then = [&] {  // before the replacement, then no more
        early->then = nullptr;
        node->addObserver(*recorder, "next.number", both);
    };
    node->addObserver(*early, "next", Options::prior);
    node->setNext(numbered(2));
    EXPECT_EQ(recorder->told.size(), 0u);  // it came too late to be told of this
    node->next()->setNumber(20);
    ASSERT_EQ(recorder->told.size(), 1u);
    EXPECT_EQ(recorder->lastOld(), Value(2));
    EXPECT_EQ(recorder->lastNew(), Value(20));
    node->removeObserver(*recorder, "next.number");
    node->removeObserver(*early, "next");
}

struct Child : NSObject {
    using Class = NSClassOf<Child, NSObject>;

    static void declareKeys(NSKeyList<Child>& keys) {
        keys.property("parent", &Child::parent,
                      [](Child& child, std::weak_ptr<Node> given) { child.parent = given; });
    }

    std::weak_ptr<Node> parent;
};

TEST_F(KeyValuePath, readsAnObjectThatEndedWithoutAWordAsMissing) {
    const auto child = makeObject<Child>();
    auto parent = numbered(1);
    child->setValueForKey(parent, "parent");
    child->addObserver(*recorder, "parent.number", both);
    parent.reset();  // no change of the child is announced
    EXPECT_EQ(recorder->told.size(), 0u);
    const auto other = numbered(2);
    child->setValueForKey(other, "parent");
    EXPECT_EQ(recorder->lastOld(), Value(NSNull::null()));
    EXPECT_EQ(recorder->lastNew(), Value(2));
    other->setNumber(3);
    EXPECT_EQ(recorder->told.size(), 2u);
    child->removeObserver(*recorder, "parent.number");
}

TEST_F(KeyValuePath, followsAReplacementThatNobodyObservedWhenItWasAnnounced) {
    const auto child = makeObject<Child>();
    const auto parent = numbered(1);
    child->willChangeValue("parent");
    child->addObserver(*recorder, "parent.number", both);
    child->parent = parent;
    child->didChangeValue("parent");
    EXPECT_EQ(recorder->told.size(), 0u);
    parent->setNumber(2);
    EXPECT_EQ(recorder->told.size(), 1u);
    child->removeObserver(*recorder, "parent.number");
}

TEST_F(KeyValuePath, letsAnObserverReplaceTheMiddleAgainWhileItIsTold) {
    const auto nodes = chain(3);
    nodes[0]->addObserver(*recorder, "next.next.number", both);
    const auto last = numbered(30);
    recorder->then = [&] {
        recorder->then = nullptr;
        nodes[1]->setNext(last);
    };
    nodes[1]->setNext(nullptr);
    ASSERT_EQ(recorder->told.size(), 2u);
    EXPECT_EQ(recorder->lastOld(), Value(NSNull::null()));
    EXPECT_EQ(recorder->lastNew(), Value(30));
    last->setNumber(31);
    EXPECT_EQ(recorder->told.size(), 3u);
    nodes[2]->setNumber(9);
    EXPECT_EQ(recorder->told.size(), 3u);
    nodes[0]->removeObserver(*recorder, "next.next.number");
}

struct KeyValuePathDeathTest : KeyValuePath {};

TEST_F(KeyValuePathDeathTest, stopsTheProcessWhenAnObjectEndsObserved) {
    auto node = makeObject<Node>();
    node->addObserver(*recorder, "next.number", both);
    EXPECT_DEATH(node.reset(),
                 "<Node: 0x[0-9a-f]+> is destroyed while <Recorder: 0x[0-9a-f]+> observes "
                 "\"next.number\"");
    node->removeObserver(*recorder, "next.number");
}

struct Holder : NSObject {
    using Class = NSClassOf<Holder, NSObject>;

    static void declareKeys(NSKeyList<Holder>& keys) {
        keys.property("content", &Holder::content,
                      [](Holder& owner, Value value) { owner.content = value; });
    }

    Value content;
};

TEST_F(KeyValuePathDeathTest, namesClassAndKeyWhenAReplacementLacksTheKey) {
    const auto holder = makeObject<Node>();
    const auto object = makeObject<Holder>();
    object->addObserver(*recorder, "content.number", both);
    object->setValueForKey(numbered(1), "content");
    EXPECT_EQ(recorder->lastNew(), Value(1));
    EXPECT_DEATH(object->setValueForKey(recorder, "content"), "Recorder has no key \"number\"");
    EXPECT_DEATH(object->setValueForKey("text", "content"),
                 "key \"content\" of Holder is no object with keys");
    object->removeObserver(*recorder, "content.number");
}

struct Late : Node {
    using Class = NSClassOf<Late, Node>;

    explicit Late(Recorder& recorder) : by(recorder) {}
    ~Late() override { addObserver(by, "number", both); }

    Recorder& by;
};

TEST_F(KeyValuePathDeathTest, cannotStartAtAnObjectThatIsBeingDestroyed) {
    EXPECT_DEATH(makeObject<Late>(*recorder), "cannot be observed while it is destroyed");
}

/// Whatever is replaced in a net of objects, an observer has been told the value that the path
/// leads to now.
RC_GTEST_PROP(KeyValuePathLaw, whatWasToldLastIsWhatThePathLeadsTo, ()) {
    constexpr std::size_t count = 5;
    std::array<std::shared_ptr<Node>, count> nodes;
    for (auto& node : nodes)
        node = makeObject<Node>();
    const std::vector<std::string> paths{"next.number", "other.next.number", "next.next.number",
                                         "next.other.next.number", "number"};
    std::vector<std::shared_ptr<Recorder>> recorders;
    for (const std::string& path : paths) {
        recorders.push_back(makeObject<Recorder>());
        nodes[0]->addObserver(*recorders.back(), path, both | Options::initial);
    }

    const auto anyNode = rc::gen::inRange<std::size_t>(0, count);
    const auto steps = *rc::gen::inRange(1, 30);
    bool holds = true;
    for (int i = 0; i < steps; ++i) {
        const auto& node = nodes[*anyNode];
        const auto target = *rc::gen::inRange<std::size_t>(0, count + 1);
        const auto object = target < count ? nodes[target] : nullptr;
        switch (*rc::gen::inRange(0, 3)) {
            case 0:
                node->setNext(object);
                break;
            case 1:
                node->setOther(object);
                break;
            default:
                node->setNumber(i + 1);
        }
        for (std::size_t path = 0; path < paths.size(); ++path) {
            Value leadsTo = nodes[0]->valueForKeyPath(paths[path]);
            if (leadsTo.isNothing())
                leadsTo = NSNull::null();
            holds = holds && recorders[path]->lastNew() == leadsTo;
        }
    }
    for (std::size_t path = 0; path < paths.size(); ++path)
        nodes[0]->removeObserver(*recorders[path], paths[path]);
    for (const auto& node : nodes) {  // no ring may stay
        node->setNext(nullptr);
        node->setOther(nullptr);
    }
    RC_ASSERT(holds);
}

}  // namespace
}  // namespace quorin
