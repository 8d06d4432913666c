/// In which order observers are told, and what they may do meanwhile.
#include "quorin/platform/foundation/NSNull.h"
#include "quorin/platform/foundation/NSObject.h"
#include "tests/TestSupport.h"
#include "tests/support/ObservedModels.h"

namespace quorin {
namespace {

using test::Node;
using test::Recorder;
using testing::ElementsAre;
using Options = NSKeyValueObservingOptions;

constexpr Options both = Options::newValue | Options::oldValue;

class KeyValueDelivery : public testing::Test {
protected:
    std::shared_ptr<Recorder> recorder(const char* name) {
        auto made = makeObject<Recorder>();
        made->then = [this, name] { order.emplace_back(name); };
        return made;
    }

    /// What `recorder` was told, as old and new numbers.
    static std::vector<std::pair<Value, Value>> steps(const Recorder& recorder) {
        std::vector<std::pair<Value, Value>> found;
        for (const auto& told : recorder.told)
            found.emplace_back(told.change[NSKeyValueChangeKey::oldValue],
                               told.change[NSKeyValueChangeKey::newValue]);
        return found;
    }

    std::vector<std::string> order;
    std::shared_ptr<Node> node = makeObject<Node>();
    std::shared_ptr<Recorder> a = recorder("a"), b = recorder("b"), c = recorder("c");
};

TEST_F(KeyValueDelivery, isInTheOrderOfRegistration) {
    for (const auto& each : {c, a, b})
        node->addObserver(*each, "number", both);
    node->setNumber(1);
    EXPECT_THAT(order, ElementsAre("c", "a", "b"));
    for (const auto& each : {a, b, c})
        node->removeObserver(*each, "number");
}

TEST_F(KeyValueDelivery, keepsTheOrderOfRegistrationWhenAPathMovesToAnotherObject) {
    node->addObserver(*a, "next.number", both);
    const auto next = makeObject<Node>();
    next->addObserver(*b, "number", both);
    node->setNext(next);  // here a begins to watch the number, after b did
    order.clear();
    next->setNumber(1);
    EXPECT_THAT(order, ElementsAre("a", "b"));
    node->removeObserver(*a, "next.number");
    next->removeObserver(*b, "number");
}

TEST_F(KeyValueDelivery, skipsAnObserverThatWasRemovedByAnEarlierOne) {
    for (const auto& each : {a, b, c})
        node->addObserver(*each, "number", both);
    a->then = [&] { node->removeObserver(*b, "number"), a->then = nullptr; };
    node->setNumber(1);
    node->setNumber(2);
    EXPECT_EQ(a->told.size(), 2u);
    EXPECT_EQ(b->told.size(), 0u);
    EXPECT_EQ(c->told.size(), 2u);
    node->removeObserver(*a, "number");
    node->removeObserver(*c, "number");
}

TEST_F(KeyValueDelivery, letsAnObserverRemoveItself) {
    node->addObserver(*a, "number", both);
    node->addObserver(*b, "number", both);
    a->then = [&] { node->removeObserver(*a, "number"); };
    node->setNumber(1);
    node->setNumber(2);
    EXPECT_EQ(a->told.size(), 1u);
    EXPECT_EQ(b->told.size(), 2u);
    node->removeObserver(*b, "number");
}

TEST_F(KeyValueDelivery, letsAnObserverRemoveItselfBeforeTheChangeAndAtTheInitialValue) {
    a->then = [&] { node->removeObserver(*a, "number"); };
    node->addObserver(*a, "number", both | Options::prior);
    node->setNumber(1);
    EXPECT_EQ(a->told.size(), 1u);
    node->addObserver(*a, "number", both | Options::initial);
    node->setNumber(2);
    EXPECT_EQ(a->told.size(), 2u);
}

TEST_F(KeyValueDelivery, leavesOutAnObserverThatIsAddedMeanwhile) {
    node->addObserver(*a, "number", both);
    a->then = [&] { node->addObserver(*b, "number", both), a->then = nullptr; };
    node->setNumber(1);
    EXPECT_EQ(b->told.size(), 0u);
    node->setNumber(2);
    EXPECT_EQ(b->told.size(), 1u);
    node->removeObserver(*a, "number");
    node->removeObserver(*b, "number");
}

TEST_F(KeyValueDelivery, leavesOutAnObserverThatIsRemovedAndAddedAgain) {
    node->addObserver(*a, "number", both);
    node->addObserver(*b, "number", both);
    a->then = [&] {
        node->removeObserver(*b, "number");
        node->addObserver(*b, "number", both);
    };
    node->setNumber(1);
    EXPECT_EQ(b->told.size(), 0u);
    node->removeObserver(*a, "number");
    node->removeObserver(*b, "number");
}

TEST_F(KeyValueDelivery, skipsAnObserverThatIsGone) {
    node->addObserver(*a, "number", both);
    node->addObserver(*b, "number", both);
    a->then = [&] { b.reset(); };
    node->setNumber(1);
    EXPECT_EQ(a->told.size(), 1u);
    node->removeObserver(*a, "number");
}

TEST_F(KeyValueDelivery, tellsOfAChangeMadeMeanwhileAtOnceAndToTheBottom) {
    node->addObserver(*a, "number", both);
    node->addObserver(*b, "number", both);
    a->then = [&] {
        if (node->number() < 3)
            node->setNumber(node->number() + 1);
    };
    node->setNumber(1);
    const std::pair<Value, Value> first(0, 1), second(1, 2), third(2, 3);
    EXPECT_THAT(steps(*a), ElementsAre(first, second, third));
    // The innermost change first; each with the values it had when it was made.
    EXPECT_THAT(steps(*b), ElementsAre(third, second, first));
    node->removeObserver(*a, "number");
    node->removeObserver(*b, "number");
}

TEST_F(KeyValueDelivery, tellsOfAnotherKeyThatIsChangedMeanwhile) {
    node->addObserver(*a, "number", both);
    node->addObserver(*b, "name", both);
    a->then = [&] { node->setValueForKey("changed", "name"); };
    node->setNumber(1);
    EXPECT_EQ(b->told.size(), 1u);
    EXPECT_EQ(b->lastNew(), Value("changed"));
    node->removeObserver(*a, "number");
    node->removeObserver(*b, "name");
}

struct Owner : Recorder {
    using Class = NSClassOf<Owner, Recorder>;

    std::shared_ptr<Node> owned = makeObject<Node>();
};

TEST_F(KeyValueDelivery, endsQuietlyWhenTheObjectIsReleasedByAnObserver) {
    const auto owner = makeObject<Owner>();
    Node* const owned = owner->owned.get();
    const std::weak_ptr<Node> reference = owner->owned;
    owned->addObserver(*owner, "number", both);
    owned->addObserver(*b, "number", both);
    owner->then = [&] {
        owned->removeObserver(*owner, "number");
        owned->removeObserver(*b, "number");
        owner->owned.reset();
    };
    owned->setNumber(1);
    EXPECT_TRUE(reference.expired());
    EXPECT_EQ(b->told.size(), 0u);
}

TEST_F(KeyValueDelivery, endsQuietlyWhenTheObjectIsReleasedBetweenTwoKeys) {
    const std::weak_ptr<Node> reference = node;
    Node& changed = *node;
    changed.addObserver(*a, "number", both);
    changed.addObserver(*b, "name", both);
    a->then = [&] { node.reset(); };
    b->then = [&] {
        changed.removeObserver(*a, "number");
        changed.removeObserver(*b, "name");
    };
    changed.changeValues({"number", "name"});
    EXPECT_EQ(b->told.size(), 1u);
    EXPECT_TRUE(reference.expired());
}

TEST_F(KeyValueDelivery, endsQuietlyWhenTheObjectIsReleasedBeforeItChanged) {
    const std::weak_ptr<Node> reference = node;
    Node& changed = *node;
    changed.addObserver(*a, "number", both | Options::prior);
    a->then = [&] {
        changed.removeObserver(*a, "number");
        node.reset();
    };
    changed.willChangeValue("number");
    EXPECT_TRUE(reference.expired());
    EXPECT_EQ(a->told.size(), 1u);
}

TEST_F(KeyValueDelivery, endsWithWhatAnObserverThrows) {
    for (const auto& each : {a, b})
        node->addObserver(*each, "number", both);
    a->then = [] { throw std::runtime_error("refused"); };
    EXPECT_THROW(node->setNumber(1), std::runtime_error);
    EXPECT_EQ(b->told.size(), 0u);
    a->then = nullptr;
    node->setNumber(2);
    const std::pair<Value, Value> first(0, 1), second(1, 2);
    EXPECT_THAT(steps(*a), ElementsAre(first, second));
    EXPECT_THAT(steps(*b), ElementsAre(second));
    for (const auto& each : {a, b})
        node->removeObserver(*each, "number");
}

TEST_F(KeyValueDelivery, endsTheChangesOfAllKeysWhenAnObserverThrows) {
    node->addObserver(*a, "number", both);
    node->addObserver(*b, "name", both);
    a->then = [] { throw std::runtime_error("the first"); };
    b->then = [] { throw std::runtime_error("the second"); };
    const auto change = [&] { node->changeValues({"number", "name"}); };
    EXPECT_THAT(change, testing::ThrowsMessage<std::runtime_error>("the first"));
    EXPECT_EQ(b->told.size(), 1u);
    node->didChangeValue("name");  // nothing is left that this could be the end of
    EXPECT_EQ(b->told.size(), 1u);
    node->removeObserver(*a, "number");
    node->removeObserver(*b, "name");
}

TEST_F(KeyValueDelivery, endsTheChangesThatWereAnnouncedWhenAnObserverThrowsBeforeTheLast) {
    node->addObserver(*a, "number", both);
    node->addObserver(*b, "name", both | Options::prior);
    b->then = [] { throw std::runtime_error("refused"); };
    bool changed = false;
    EXPECT_THROW(node->changeValues({"number", "name", "items"}, [&] { changed = true; }),
                 std::runtime_error);
    EXPECT_FALSE(changed);
    EXPECT_EQ(a->told.size(), 1u);
    EXPECT_EQ(b->told.size(), 1u);
    for (const char* key : {"number", "name", "items"})
        node->didChangeValue(key);
    EXPECT_EQ(a->told.size(), 1u);
    EXPECT_EQ(b->told.size(), 1u);
    node->removeObserver(*a, "number");
    node->removeObserver(*b, "name");
}

TEST_F(KeyValueDelivery, takesBackOnlyTheRegistrationWhoseInitialDeliveryThrows) {
    static const char context = 0;
    a->then = [&] {
        a->then = nullptr;
        node->addObserver(*a, "number", Options::none, &context);
        throw std::runtime_error("refused");
    };
    EXPECT_THROW(node->addObserver(*a, "number", both | Options::initial, &context),
                 std::runtime_error);
    node->setNumber(1);
    EXPECT_EQ(a->told.size(), 2u);
    EXPECT_TRUE(a->lastNew().isNothing());  // by the inner registration, which asks for no values
    node->removeObserver(*a, "number", &context);
}

TEST_F(KeyValueDelivery, keepsAskingForNothingWhenTheInitialDeliveryThrows) {
    a->then = [] { throw std::runtime_error("refused"); };
    EXPECT_THROW(node->addObserver(*a, "number", both | Options::initial), std::runtime_error);
    node->setNumber(1);
    EXPECT_EQ(a->told.size(), 1u);
}

TEST_F(KeyValueDelivery, reachesTenThousandObserversInOrder) {
    constexpr std::size_t count = 10'000;
    std::vector<std::shared_ptr<Recorder>> observers;
    std::vector<std::size_t> told;
    for (std::size_t i = 0; i < count; ++i) {
        observers.push_back(makeObject<Recorder>());
        observers.back()->then = [&told, i] { told.push_back(i); };
        node->addObserver(*observers.back(), "number", Options::none);
    }
    node->setNumber(1);
    EXPECT_EQ(told.size(), count);
    EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
    for (const auto& each : observers)
        node->removeObserver(*each, "number");
    node->setNumber(2);
    EXPECT_EQ(told.size(), count);
}

TEST_F(KeyValueDelivery, takesTenThousandRegistrationsOfOneObserver) {
    constexpr std::size_t count = 10'000;
    const std::vector<char> contexts(count);
    a->then = nullptr;
    for (const char& context : contexts)
        node->addObserver(*a, "number", Options::none, &context);
    node->setNumber(1);
    ASSERT_EQ(a->told.size(), count);
    for (std::size_t i = 0; i < count; ++i)
        EXPECT_EQ(a->told[i].context, &contexts[i]);
    for (std::size_t i = count / 2; i < count; ++i)
        node->removeObserver(*a, "number");  // the latest each time
    node->setNumber(2);
    ASSERT_EQ(a->told.size(), count + count / 2);
    EXPECT_EQ(a->told.back().context, &contexts[count / 2 - 1]);
    for (std::size_t i = count / 2; i-- > 0;)
        node->removeObserver(*a, "number", &contexts[i]);
}

}  // namespace
}  // namespace quorin
