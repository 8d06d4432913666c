/// What ends while a registry is at work: the registry itself, its objects, their addresses.
#include <algorithm>
#include <array>
#include <cstddef>
#include <random>
#include <thread>

#include "quorin/observation/KVOController.h"
#include "tests/TestSupport.h"
#include "tests/support/ObservedModels.h"

namespace quorin {
namespace {

using test::Node;
using testing::ElementsAre;
using Options = NSKeyValueObservingOptions;

constexpr Options both = Options::newValue | Options::oldValue;

struct KVOControllerLifetime : testing::Test {
    /// A block that writes down under which name it was called.
    KVOController::Block noting(const char* name) {
        return [this, name](const KVONotification&) { calls.emplace_back(name); };
    }

    std::shared_ptr<Node> node = makeObject<Node>();
    KVOController controller;
    std::vector<std::string> calls;
};

TEST_F(KVOControllerLifetime, letsABlockReleaseTheObservedObjectAtTheInitialValue) {
    Node& object = *node;
    controller.observe(object, {"number", "name"}, both | Options::initial,
                       [&](const KVONotification& notification) {
                           node.reset();
                           calls.push_back(notification.keyPath);
                       });
    EXPECT_THAT(calls, ElementsAre("number", "name"));
    controller.unobserve();
}

TEST_F(KVOControllerLifetime, letsABlockReleaseTheRegistryAtTheInitialValue) {
    const auto held = std::make_shared<int>(0);
    auto passing = std::make_unique<KVOController>();
    KVOController& registry = *passing;
    registry.observe(*node, {"number", "name"}, both | Options::initial,
                     [&, held](const KVONotification& notification) {
                         passing.reset();
                         calls.push_back(notification.keyPath);
                     });
    EXPECT_THAT(calls, ElementsAre("number", "name"));
    EXPECT_EQ(held.use_count(),
              1);  // with the registry went what it was asked for
    node->setNumber(1);
    EXPECT_EQ(calls.size(), 2u);
}

TEST_F(KVOControllerLifetime, stopsTheOthersAtOnceWhenABlockReleasesTheRegistryAtTheInitialValue) {
    auto passing = std::make_unique<KVOController>();
    passing->observe(*node, "name", both, noting("other"));
    passing->observe(*node, "number", both | Options::initial, [&](const KVONotification&) {
        passing.reset();
        node->setValueForKey("a", "name");
        calls.emplace_back("initial");
    });
    EXPECT_THAT(calls, ElementsAre("initial"));
}

TEST_F(KVOControllerLifetime, observesAlthoughTheBlockStopsItAtTheInitialValue) {
    // The observation is not listed yet, so there is nothing to stop.
    controller.observe(*node, "number", both | Options::initial, [&](const KVONotification&) {
        calls.emplace_back("called");
        if (calls.size() == 1)
            controller.unobserve(*node);
    });
    node->setNumber(1);
    EXPECT_EQ(calls.size(), 2u);
}

TEST_F(KVOControllerLifetime, putsTheOuterObservationInThePlaceOfOneMadeAtItsInitialValue) {
    controller.observe(*node, "number", both | Options::initial, [&](const KVONotification&) {
        if (calls.empty())
            controller.observe(*node, "number", both, noting("inner"));
        calls.emplace_back("outer");
    });
    node->setNumber(1);
    EXPECT_THAT(calls, ElementsAre("outer", "outer"));
}

TEST_F(KVOControllerLifetime, keepsTheEarlierObservationWhenABlockThrowsAtTheInitialValue) {
    controller.observe(*node, "number", both, noting("earlier"));
    const auto held = std::make_shared<int>(0);
    EXPECT_THROW(
        controller.observe(*node, "number", both | Options::initial,
                           [held](const KVONotification&) { throw std::runtime_error("refused"); }),
        std::runtime_error);
    EXPECT_EQ(held.use_count(), 1);
    node->setNumber(1);
    EXPECT_THAT(calls, ElementsAre("earlier"));
}

TEST_F(KVOControllerLifetime, handsWhatABlockThrowsToWhoeverMakesTheChange) {
    controller.observe(*node, "number", both, [&](const KVONotification& notification) {
        calls.emplace_back("called");
        if (notification.newValue() == Value(1))
            throw std::runtime_error("refused");
    });
    EXPECT_THROW(node->setNumber(1), std::runtime_error);
    EXPECT_EQ(node->number(), 1);
    node->setNumber(2);
    EXPECT_THAT(calls, ElementsAre("called", "called"));
}

TEST_F(KVOControllerLifetime, endsByABlockThatIsReleasedWhileItStopsAll) {
    auto owned = std::make_shared<KVOController>();
    KVOController& registry = *owned;
    registry.observe(*node, "number", both, [owned](const KVONotification&) {});
    registry.observe(*node, "name", both, [owned](const KVONotification&) {});
    const std::weak_ptr<KVOController> reference = std::exchange(owned, nullptr);
    registry.unobserve();
    EXPECT_TRUE(reference.expired());
}

TEST_F(KVOControllerLifetime, endsByABlockThatIsReleasedWhileItIsReplaced) {
    auto owned = std::make_shared<KVOController>();
    KVOController& registry = *owned;
    registry.observe(*node, "number", both, [owned](const KVONotification&) {});
    const std::weak_ptr<KVOController> reference = std::exchange(owned, nullptr);
    registry.observe(*node, "number", both, noting("late"));
    EXPECT_TRUE(reference.expired());
    node->setNumber(1);
    EXPECT_THAT(calls, testing::IsEmpty());
}

TEST_F(KVOControllerLifetime, letsAReleasedBlockEndTheObjectBetweenTwoKeyPaths) {
    const auto held = std::make_shared<int>(0);
    Node& object = *node;
    controller.observe(object, "name", both, [held](const KVONotification&) {});
    controller.observe(object, "number", both, [kept = node](const KVONotification&) {});
    const std::weak_ptr<Node> reference = std::exchange(node, nullptr);
    controller.unobserve(object, {"number", "name"});
    EXPECT_TRUE(reference.expired());
    EXPECT_EQ(held.use_count(), 1);
}

/// Objects of this class all get the same address, one after the other.
struct Tenant : Node {
    using Class = NSClassOf<Tenant, Node>;

    static void* operator new(std::size_t) {
        alignas(std::max_align_t) static std::byte room[1024];
        static_assert(sizeof room >= sizeof(Node));
        return room;
    }
    static void operator delete(void*) {}
};

TEST_F(KVOControllerLifetime, tellsAnObjectFromADeadOneThatLeftItItsAddress) {
    auto tenant = makeObject<Tenant>();
    const auto* const address = tenant.get();
    controller.observe(*tenant, {"number", "name"}, both, noting("dead"));
    tenant.reset();
    tenant = makeObject<Tenant>();
    ASSERT_EQ(tenant.get(), address);
    tenant->setNumber(1);
    EXPECT_THAT(calls, testing::IsEmpty());
    controller.observe(*tenant, "number", both, noting("living"));
    tenant->setNumber(2);
    EXPECT_THAT(calls, ElementsAre("living"));
    controller.unobserve(*tenant, "name");
    controller.unobserve(*tenant);
    tenant->setNumber(3);
    EXPECT_EQ(calls.size(), 1u);
}

TEST_F(KVOControllerLifetime, stopsTenThousandObservationsOfOneObjectInAnyOrder) {
    constexpr std::size_t count = 10'000;
    std::size_t told = 0;
    for (const char* order : {"first in first out", "last in first out", "shuffled"}) {
        SCOPED_TRACE(order);
        std::vector<std::unique_ptr<KVOController>> controllers(count);
        for (auto& each : controllers) {
            each = std::make_unique<KVOController>();
            each->observe(*node, "number", both, [&](const auto&) { ++told; });
        }
        if (order[0] == 'l')
            std::reverse(controllers.begin(), controllers.end());
        if (order[0] == 's')
            std::shuffle(controllers.begin(), controllers.end(), std::mt19937(1));
        for (auto& each : controllers)
            each.reset();
    }
    node->setNumber(1);
    EXPECT_EQ(told, 0u);
}

TEST_F(KVOControllerLifetime, observesTenThousandObjectsInOneRegistry) {
    constexpr std::size_t count = 10'000;
    std::vector<std::shared_ptr<Node>> nodes(count);
    std::size_t told = 0;
    for (auto& each : nodes) {
        each = makeObject<Node>();
        controller.observe(*each, {"number", "next.number"}, both, [&](const auto&) { ++told; });
    }
    for (std::size_t i = 0; i < count / 2; ++i)
        controller.unobserve(*nodes[i]);
    for (const auto& each : nodes)
        each->setNumber(1);
    EXPECT_EQ(told, count / 2);
    nodes.resize(count / 4);
    controller.unobserve();
}

/// A class that no thread has had patched before.
struct Shared : Node {
    using Class = NSClassOf<Shared, Node>;
};

TEST_F(KVOControllerLifetime, servesSeveralThreadsThatShareNoObject) {
    constexpr int rounds = 200;
    std::array<int, 4> told{};
    std::vector<std::thread> threads;
    for (int& mine : told)
        threads.emplace_back([&mine] {
            KVOController registry;
            for (int i = 0; i < rounds; ++i) {
                const auto object = makeObject<Shared>();
                object->setNext(makeObject<Shared>());
                registry.observe(*object, {"number", "next.number", "next"}, both,
                                 [&mine](const KVONotification&) { ++mine; });
                object->next()->setNumber(i + 1);
                object->setNext(nullptr);
                if (i % 2 == 0)
                    registry.unobserve(*object);
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_THAT(told, testing::Each(3 * rounds));
}

}  // namespace
}  // namespace quorin
