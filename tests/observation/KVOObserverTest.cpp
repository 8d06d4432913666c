#include "quorin/observation/KVOObserver.h"

#include "tests/TestSupport.h"
#include "tests/support/ObservedModels.h"

namespace quorin {
namespace {

using test::Node;
using Options = NSKeyValueObservingOptions;

struct KVOObserverTest : testing::Test {
    KVOObserver::Block counting() {
        return [this](NSObject& object, const NSKeyValueChangeRecord&, const std::string& keyPath) {
            ++calls;
            lastObject = &object;
            lastKeyPath = keyPath;
        };
    }

    std::shared_ptr<Node> node = makeObject<Node>();
    int calls = 0;
    NSObject* lastObject = nullptr;
    std::string lastKeyPath;
};

TEST_F(KVOObserverTest, isCreatedObservingAndHandsOnTheTargetAndTheKeyPath) {
    const auto observer = KVOObserver::start(*node, "number", Options::newValue, counting());
    EXPECT_TRUE(observer->observing);
    EXPECT_EQ(observer->target.lock(), node);
    EXPECT_EQ(observer->keyPath, "number");
    EXPECT_EQ(observer->options, Options::newValue);
    node->setNumber(1);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(lastObject, node.get());
    EXPECT_EQ(lastKeyPath, "number");
}

TEST_F(KVOObserverTest, ignoresAForeignContext) {
    static const char foreign = 0;
    const auto observer = KVOObserver::start(*node, "number", Options::newValue, counting());
    node->addObserver(*observer, "number", Options::newValue, &foreign);
    node->setNumber(1);
    EXPECT_EQ(calls, 1);  // by its own registration only
    const std::string keyPath = "number";
    const NSKeyValueChangeRecord change;
    observer->observeValue(&keyPath, node.get(), &change, nullptr);
    EXPECT_EQ(calls, 1);
    observer->observeValue(&keyPath, node.get(), &change, KVOObserver::privateContext());
    EXPECT_EQ(calls, 2);
    node->removeObserver(*observer, "number", &foreign);
}

TEST_F(KVOObserverTest, ignoresADeliveryWithoutKeyPathOrChangeOrTarget) {
    const auto observer = KVOObserver::start(*node, "number", Options::newValue, counting());
    const std::string keyPath = "number";
    const NSKeyValueChangeRecord change;
    const void* const context = KVOObserver::privateContext();
    observer->observeValue(nullptr, node.get(), &change, context);
    observer->observeValue(&keyPath, node.get(), nullptr, context);
    EXPECT_EQ(calls, 0);
    observer->observeValue(&keyPath, nullptr, &change, context);  // the target is what counts
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(lastObject, node.get());
    node.reset();
    observer->observeValue(&keyPath, nullptr, &change, context);
    EXPECT_EQ(calls, 1);
}

TEST_F(KVOObserverTest, isKeptByItsTargetUntilItIsStopped) {
    std::weak_ptr<KVOObserver> reference =
        KVOObserver::start(*node, "number", Options::newValue, counting());
    ASSERT_FALSE(reference.expired());
    node->setNumber(1);
    EXPECT_EQ(calls, 1);
    reference.lock()->stop();
    EXPECT_TRUE(reference.expired());
    node->setNumber(2);
    EXPECT_EQ(calls, 1);
}

TEST_F(KVOObserverTest, clearsItsBlockWhenItStopsAndNeverStartsAgain) {
    const auto held = std::make_shared<int>(1);
    const auto observer =
        KVOObserver::start(*node, "number", Options::newValue,
                           [held](NSObject&, const NSKeyValueChangeRecord&, const std::string&) {});
    EXPECT_EQ(held.use_count(), 2);
    observer->stop();
    EXPECT_FALSE(observer->observing);
    EXPECT_EQ(observer->block, nullptr);
    EXPECT_EQ(held.use_count(), 1);
    observer->stop();  // once more does nothing
    EXPECT_FALSE(observer->observing);
}

TEST_F(KVOObserverTest, isStoppedWhenItsTargetEnds) {
    const auto observer = KVOObserver::start(*node, "number", Options::newValue, counting());
    node.reset();
    EXPECT_FALSE(observer->observing);
    EXPECT_EQ(observer->block, nullptr);
    EXPECT_TRUE(observer->target.expired());
    observer->stop();
    EXPECT_FALSE(observer->observing);
}

TEST_F(KVOObserverTest, stopsWithoutAPlatformCallWhenItsTargetIsGone) {
    const auto observer = makeObject<KVOObserver>();
    observer->target = makeObject<Node>();
    observer->keyPath = "number";
    observer->observing = true;
    observer->stop();
    EXPECT_FALSE(observer->observing);
}

TEST_F(KVOObserverTest, endsItsOwnObservationWhenItIsDestroyedFirst) {
    auto observer = makeObject<KVOObserver>();
    observer->target = node;
    observer->keyPath = "number";
    node->addObserver(*observer, "number", Options::none, KVOObserver::privateContext());
    observer->observing = true;
    observer.reset();
    node->setNumber(1);
    node.reset();
}

TEST_F(KVOObserverTest, describesItsTargetAndWhetherItObserves) {
    const auto observer = KVOObserver::start(*node, "next.number", Options::newValue, counting());
    const std::string address = "<KVOObserver: 0x[0-9a-f]+>";
    const std::string target = " target: Optional\\(" + node->description() + "\\)";
    const std::string start = address + ": keyPath: Optional\\(\"next.number\"\\)";
    EXPECT_THAT(observer->description(), testing::MatchesRegex(start + target + " observing true"));
    observer->stop();
    EXPECT_THAT(observer->description(),
                testing::MatchesRegex(start + target + " observing false"));
    node.reset();
    EXPECT_THAT(observer->description(),
                testing::MatchesRegex(start + " target: nil observing false"));
    EXPECT_THAT(makeObject<KVOObserver>()->description(),
                testing::MatchesRegex(address + ": keyPath: nil target: nil observing false"));
}

TEST_F(KVOObserverTest, isNotMadeWhenTheInitialDeliveryThrows) {
    EXPECT_THROW(
        KVOObserver::start(*node, "number", Options::initial,
                           [](NSObject&, const NSKeyValueChangeRecord&, const std::string&) {
                               throw std::runtime_error("refused");
                           }),
        std::runtime_error);
    node->setNumber(1);
    node.reset();
}

using KVOObserverDeathTest = KVOObserverTest;

TEST_F(KVOObserverDeathTest, stopsTheProcessWhenItIsStoppedWithoutAKeyPath) {
    const auto observer = KVOObserver::start(*node, "number", Options::newValue, counting());
    observer->keyPath.reset();
    EXPECT_DEATH(observer->stop(), "observing true is stopped without a key path");
    observer->keyPath = "number";
}

}  // namespace
}  // namespace quorin
