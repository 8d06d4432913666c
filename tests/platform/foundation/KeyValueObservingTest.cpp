#include "quorin/platform/foundation/NSNull.h"
#include "quorin/platform/foundation/NSObject.h"
#include "tests/TestSupport.h"
#include "tests/support/ObservedModels.h"

namespace quorin {
namespace {

using test::Node;
using test::numbered;
using test::Recorder;
using Key = NSKeyValueChangeKey;
using Kind = NSKeyValueChange;
using Options = NSKeyValueObservingOptions;

constexpr Options both = Options::newValue | Options::oldValue;
constexpr Options everything = both | Options::prior;

const char contextOne = 0;
const char contextTwo = 0;

Value numberOf(Kind kind) { return static_cast<std::uint64_t>(kind); }

/// A record of these entries and no others.
NSKeyValueChangeRecord record(std::initializer_list<std::pair<Key, Value>> entries) {
    NSKeyValueChangeRecord made;
    for (const auto& [key, value] : entries)
        made.set(key, value);
    return made;
}

class KeyValueObserving : public testing::Test {
protected:
    ~KeyValueObserving() override { node->removeAllFor(*recorder); }

    struct Observed : Node {
        using Class = NSClassOf<Observed, Node>;

        void observe(Recorder& by, const char* keyPath, Options options) {
            addObserver(by, keyPath, options);
            keyPaths.emplace_back(keyPath);
        }
        void removeAllFor(Recorder& by) {
            for (const std::string& keyPath : keyPaths)
                removeObserver(by, keyPath);
        }

        std::vector<std::string> keyPaths;
    };

    NSKeyValueChangeRecord told(std::size_t index) const { return recorder->told.at(index).change; }

    std::shared_ptr<Observed> node = makeObject<Observed>();
    std::shared_ptr<Recorder> recorder = makeObject<Recorder>();
};

TEST_F(KeyValueObserving, numbersOptionsAndKindsAsHostsStoreThem) {
    EXPECT_EQ(static_cast<int>(Options::newValue), 1);
    EXPECT_EQ(static_cast<int>(Options::oldValue), 2);
    EXPECT_EQ(static_cast<int>(Options::initial), 4);
    EXPECT_EQ(static_cast<int>(Options::prior), 8);
    EXPECT_EQ(static_cast<int>(Kind::setting), 1);
    EXPECT_EQ(static_cast<int>(Kind::insertion), 2);
    EXPECT_EQ(static_cast<int>(Kind::removal), 3);
    EXPECT_EQ(static_cast<int>(Kind::replacement), 4);
}

TEST_F(KeyValueObserving, tellsTheKindAndTheValuesThatWereAskedFor) {
    const std::pair<Options, NSKeyValueChangeRecord> table[] = {
        {Options::none, record({{Key::kind, 1}})},
        {Options::newValue, record({{Key::kind, 1}, {Key::newValue, 8}})},
        {Options::oldValue, record({{Key::kind, 1}, {Key::oldValue, 7}})},
        {both, record({{Key::kind, 1}, {Key::oldValue, 7}, {Key::newValue, 8}})},
    };
    for (const auto& [options, expected] : table) {
        const auto watched = numbered(7);
        watched->addObserver(*recorder, "number", options, &contextOne);
        watched->setNumber(8);
        const Recorder::Told& last = recorder->told.back();
        EXPECT_EQ(last.change, expected);
        EXPECT_EQ(last.keyPath, "number");
        EXPECT_EQ(last.object, watched.get());
        EXPECT_EQ(last.context, &contextOne);
        watched->removeObserver(*recorder, "number");
    }
}

TEST_F(KeyValueObserving, takesTheOldValueBeforeAndTheNewOneAfterTheChange) {
    node->observe(*recorder, "number", both);
    node->willChangeValue("number");
    node->setNumber(5);  // a whole change within: delivered first
    node->didChangeValue("number");
    ASSERT_EQ(recorder->told.size(), 2u);
    EXPECT_EQ(told(0), record({{Key::kind, 1}, {Key::oldValue, 0}, {Key::newValue, 5}}));
    EXPECT_EQ(told(1), record({{Key::kind, 1}, {Key::oldValue, 0}, {Key::newValue, 5}}));
}

TEST_F(KeyValueObserving, putsTheNullObjectForAMissingValue) {
    node->observe(*recorder, "next", both);
    const auto next = makeObject<Node>();
    node->setNext(next);
    EXPECT_EQ(recorder->lastOld(), Value(NSNull::null()));
    EXPECT_EQ(recorder->lastNew(), Value(next));
    node->setNext(nullptr);
    EXPECT_EQ(recorder->lastOld(), Value(next));
    EXPECT_EQ(recorder->lastNew(), Value(NSNull::null()));
}

TEST_F(KeyValueObserving, tellsTheInitialValueOnceBeforeRegistrationReturns) {
    node->setNumber(3);
    node->observe(*recorder, "number", everything | Options::initial);
    ASSERT_EQ(recorder->told.size(), 1u);
    EXPECT_EQ(told(0), record({{Key::kind, 1}, {Key::newValue, 3}}));
    node->observe(*recorder, "next.number", Options::newValue | Options::initial);
    EXPECT_EQ(told(1), record({{Key::kind, 1}, {Key::newValue, NSNull::null()}}));
    node->observe(*recorder, "name", Options::oldValue | Options::initial);
    EXPECT_EQ(told(2), record({{Key::kind, 1}}));
}

TEST_F(KeyValueObserving, tellsBeforeTheChangeWithoutTheNewValue) {
    node->observe(*recorder, "number", everything);
    std::vector<std::int64_t> seen;
    recorder->then = [&] { seen.push_back(node->number()); };
    node->setNumber(4);
    EXPECT_THAT(seen, testing::ElementsAre(0, 4));
    EXPECT_EQ(told(0),
              record({{Key::kind, 1}, {Key::notificationIsPrior, true}, {Key::oldValue, 0}}));
    EXPECT_EQ(told(1), record({{Key::kind, 1}, {Key::oldValue, 0}, {Key::newValue, 4}}));
}

TEST_F(KeyValueObserving, tellsBeforeTheChangeWithoutTheOldValueUnlessAsked) {
    node->observe(*recorder, "number", Options::prior | Options::newValue);
    node->setNumber(4);
    EXPECT_EQ(told(0), record({{Key::kind, 1}, {Key::notificationIsPrior, true}}));
    EXPECT_EQ(told(1), record({{Key::kind, 1}, {Key::newValue, 4}}));
}

TEST_F(KeyValueObserving, tellsWhichElementsOfACollectionChangedAndHow) {
    node->items = {10, 11, 12};
    node->observe(*recorder, "items", everything);
    node->edit(Kind::insertion, {3, 0}, [](auto& items) { items = {9, 10, 11, 13, 12}; });
    node->edit(Kind::removal, {0, 4}, [](auto& items) { items = {10, 11, 13}; });
    node->edit(Kind::replacement, {1}, [](auto& items) { items[1] = 21; });

    const auto places = [](std::vector<std::size_t> indexes) {
        return std::pair<Key, Value>(Key::indexes, NSIndexSet::create(std::move(indexes)));
    };
    const auto kind = [](Kind which) { return std::pair(Key::kind, numberOf(which)); };
    const auto old = [](Value::List values) {
        return std::pair<Key, Value>(Key::oldValue, values);
    };
    const auto now = [](Value::List values) {
        return std::pair<Key, Value>(Key::newValue, values);
    };
    const std::pair<Key, Value> prior(Key::notificationIsPrior, true);
    ASSERT_EQ(recorder->told.size(), 6u);
    EXPECT_EQ(told(0), record({kind(Kind::insertion), places({0, 3}), prior}));
    EXPECT_EQ(told(1), record({kind(Kind::insertion), places({0, 3}), now({9, 13})}));
    EXPECT_EQ(told(2), record({kind(Kind::removal), places({0, 4}), old({9, 12}), prior}));
    EXPECT_EQ(told(3), record({kind(Kind::removal), places({0, 4}), old({9, 12})}));
    EXPECT_EQ(told(4), record({kind(Kind::replacement), places({1}), old({11}), prior}));
    EXPECT_EQ(told(5), record({kind(Kind::replacement), places({1}), old({11}), now({21})}));
}

TEST_F(KeyValueObserving, tellsNoIndexesWhenAWholeCollectionIsSet) {
    node->observe(*recorder, "items", both);
    node->edit(Kind::setting, {0}, [](auto& items) { items = {1}; });
    EXPECT_EQ(
        told(0),
        record({{Key::kind, 1}, {Key::oldValue, Value::List()}, {Key::newValue, Value::List{1}}}));
}

TEST_F(KeyValueObserving, tellsOfElementsAtTheEndOfAPath) {
    const auto next = makeObject<Node>();
    node->setNext(next);
    node->observe(*recorder, "next.items", both);
    next->edit(Kind::insertion, {0}, [](auto& items) { items = {5}; });
    ASSERT_EQ(recorder->told.size(), 1u);
    EXPECT_EQ(recorder->told[0].object, node.get());
    EXPECT_EQ(recorder->lastNew(), Value(Value::List{5}));
}

TEST_F(KeyValueObserving, tellsTheSameObserverOncePerRegistration) {
    node->addObserver(*recorder, "number", both, &contextOne);
    node->addObserver(*recorder, "number", both, &contextOne);
    node->setNumber(1);
    EXPECT_EQ(recorder->told.size(), 2u);
    node->removeObserver(*recorder, "number", &contextOne);
    node->setNumber(2);
    EXPECT_EQ(recorder->told.size(), 3u);
    node->removeObserver(*recorder, "number", &contextOne);
    node->setNumber(3);
    EXPECT_EQ(recorder->told.size(), 3u);
}

TEST_F(KeyValueObserving, endsTheRegistrationOfTheGivenContext) {
    node->addObserver(*recorder, "number", both, &contextOne);
    node->addObserver(*recorder, "number", both, &contextTwo);
    node->removeObserver(*recorder, "number", &contextOne);
    node->setNumber(1);
    ASSERT_EQ(recorder->told.size(), 1u);
    EXPECT_EQ(recorder->told[0].context, &contextTwo);
    node->removeObserver(*recorder, "number", &contextTwo);
}

TEST_F(KeyValueObserving, takesANullContextForOneOfItsOwn) {
    node->addObserver(*recorder, "number", both, nullptr);
    node->addObserver(*recorder, "number", both, &contextOne);
    node->removeObserver(*recorder, "number", nullptr);
    node->setNumber(1);
    ASSERT_EQ(recorder->told.size(), 1u);
    EXPECT_EQ(recorder->told[0].context, &contextOne);
    node->removeObserver(*recorder, "number", &contextOne);
}

TEST_F(KeyValueObserving, endsTheLatestRegistrationWhenNoContextIsGiven) {
    node->addObserver(*recorder, "number", both, &contextOne);
    node->addObserver(*recorder, "number", both, &contextTwo);
    node->removeObserver(*recorder, "number");
    node->setNumber(1);
    ASSERT_EQ(recorder->told.size(), 1u);
    EXPECT_EQ(recorder->told[0].context, &contextOne);
    node->removeObserver(*recorder, "number");
}

using KeyValueObservingDeathTest = KeyValueObserving;

TEST_F(KeyValueObservingDeathTest, stopsTheProcessAtASurplusRemoval) {
    EXPECT_DEATH(node->removeObserver(*recorder, "number"),
                 "<Recorder: 0x[0-9a-f]+> does not observe \"number\" of <Observed: 0x[0-9a-f]+>");
    node->addObserver(*recorder, "number", both, &contextOne);
    EXPECT_DEATH(node->removeObserver(*recorder, "number", &contextTwo), "in this context");
    EXPECT_DEATH(node->removeObserver(*recorder, "name", &contextOne), "does not observe \"name\"");
    node->removeObserver(*recorder, "number", &contextOne);
    EXPECT_DEATH(node->removeObserver(*recorder, "number", &contextOne), "does not observe");
}

TEST_F(KeyValueObservingDeathTest, namesClassAndKeyWhenAKeyOfThePathDoesNotExist) {
    EXPECT_DEATH(node->addObserver(*recorder, "nubmer", both), "Observed has no key \"nubmer\"");
    node->setNext(makeObject<Node>());
    EXPECT_DEATH(node->addObserver(*recorder, "next.nubmer", both), "Node has no key \"nubmer\"");
    EXPECT_DEATH(node->addObserver(*recorder, "number.name", both),
                 "key \"number\" of Observed is no object with keys");
}

TEST_F(KeyValueObservingDeathTest, needsAnObserverWhoseClassObserves) {
    const auto deaf = makeObject<Node>();
    node->addObserver(*deaf, "number", both);
    EXPECT_DEATH(node->setNumber(1),
                 "<Node: 0x[0-9a-f]+> was told of a change of \"number\", but its class observes");
    node->removeObserver(*deaf, "number");
}

TEST_F(KeyValueObservingDeathTest, needsElementsThatAreThere) {
    node->observe(*recorder, "items", both);
    node->items = {1};
    const auto nothing = [](auto&) {};
    EXPECT_DEATH(node->edit(Kind::removal, {1}, nothing), "element 1 of 1 under key \"items\"");
    EXPECT_DEATH(node->edit(Kind::insertion, {1}, nothing), "element 1 of 1 under key \"items\"");
    EXPECT_DEATH(node->willChange(Kind::removal, nullptr, "items"), "without indexes");
    node->observe(*recorder, "name", both);
    EXPECT_DEATH(node->willChange(Kind::removal, NSIndexSet::create({0}), "name"),
                 "key \"name\" is no ordered collection");
}

TEST_F(KeyValueObservingDeathTest, needsTheChangeToBeTheOneThatWasAnnounced) {
    node->observe(*recorder, "items", Options::none);
    const auto first = NSIndexSet::create({0});
    node->willChange(Kind::insertion, first, "items");
    const char* message = "key \"items\" of Observed did change in another way than announced";
    EXPECT_DEATH(node->didChangeValue("items"), message);
    EXPECT_DEATH(node->didChange(Kind::insertion, NSIndexSet::create({1}), "items"), message);
    node->didChange(Kind::insertion, NSIndexSet::create({0}), "items");
    EXPECT_EQ(recorder->told.size(), 1u);
}

TEST_F(KeyValueObserving, saysNothingOfAChangeThatWasAnnouncedToNobody) {
    node->didChangeValue("number");
    node->willChangeValue("number");
    node->observe(*recorder, "number", both);
    node->didChangeValue("number");
    EXPECT_THAT(recorder->told, testing::IsEmpty());
}

TEST_F(KeyValueObserving, keepsAChangeWithinAnotherApartWhenItsObserversStoppedInBetween) {
    node->addObserver(*recorder, "items", both);
    node->willChangeValue("items");
    node->removeObserver(*recorder, "items");
    // Nobody observes this change; its end is not the end of the one around it.
    node->edit(Kind::insertion, {0}, [](auto& items) { items = {7}; });
    node->didChangeValue("items");
    EXPECT_THAT(recorder->told, testing::IsEmpty());
    node->observe(*recorder, "items", both);
    node->edit(Kind::removal, {0}, [](auto& items) { items.clear(); });
    EXPECT_EQ(recorder->told.size(), 1u);
}

TEST_F(KeyValueObserving, tellsOfEveryPairOfANestedChangeInnermostFirst) {
    node->observe(*recorder, "number", everything);
    node->observe(*recorder, "name", Options::newValue);
    node->willChangeValue("number");
    node->willChangeValue("number");
    node->willChangeValue("name");
    node->didChangeValue("name");
    node->didChangeValue("number");
    node->didChangeValue("number");
    std::vector<std::string> order;
    for (const auto& each : recorder->told)
        order.push_back(each.change.contains(Key::notificationIsPrior) ? "before " + each.keyPath
                                                                       : "after " + each.keyPath);
    EXPECT_THAT(order, testing::ElementsAre("before number", "before number", "after name",
                                            "after number", "after number"));
}

TEST_F(KeyValueObserving, announcesSeveralKeysInOrderAroundTheBlock) {
    node->observe(*recorder, "number", everything);
    node->observe(*recorder, "name", everything);
    const std::vector<std::string> keys{"name", "number"};
    node->changeValues(keys, [&] {
        EXPECT_EQ(recorder->told.size(), 2u);
        node->name = "a";
    });
    std::vector<std::string> order;
    for (const auto& each : recorder->told)
        order.push_back(each.keyPath);
    EXPECT_THAT(order, testing::ElementsAre("name", "number", "name", "number"));
    EXPECT_EQ(told(2), record({{Key::kind, 1}, {Key::oldValue, ""}, {Key::newValue, "a"}}));
    EXPECT_EQ(told(3), record({{Key::kind, 1}, {Key::oldValue, 0}, {Key::newValue, 0}}));
}

TEST_F(KeyValueObserving, announcesSeveralKeysWithoutABlock) {
    node->observe(*recorder, "number", both);
    node->changeValues({"name", "number"});
    node->changeValues(std::vector<std::string>{"number"});
    EXPECT_EQ(recorder->told.size(), 2u);
}

TEST_F(KeyValueObserving, announcesTheEndOfAChangeThatThrows) {
    node->observe(*recorder, "number", both);
    EXPECT_THROW(node->changeValues({"number"}, [] { throw std::runtime_error("no"); }),
                 std::runtime_error);
    EXPECT_EQ(recorder->told.size(), 1u);
}

}  // namespace
}  // namespace quorin
