#include "quorin/platform/foundation/SCNetworkReachability.h"

#include <atomic>
#include <chrono>
#include <thread>

#include "tests/TestSupport.h"
#include "tests/support/HeldResolver.h"
#include "tests/support/WrittenRoutingTable.h"

namespace quorin {
namespace {

using test::HeldResolver;
using test::localRoute;
using test::networkAddress;
using test::unicastRoute;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t transient = 1, reachable = 2, local = 65536, direct = 131072;

/// Waits at most so long for what other threads bring about.
template <typename Condition>
bool becomesTrue(const Condition& condition) {
    for (int i = 0; i < 20'000 && !condition(); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return condition();
}

/// A host and what it calls back with. By its name it is resolved when the test says so.
class SCNetworkReachabilityTest : public testing::Test {
protected:
    std::shared_ptr<SCNetworkReachability> of(const char* name) {
        auto made =
            SCNetworkReachability::createWithName(name, {table, HeldResolver::asking(resolver)});
        made->setCallback([this](std::uint32_t flags) {
            calls.push_back(flags);
            RunLoop::current()->stop();
        });
        return made;
    }
    /// Of a name, once it is known.
    std::optional<std::uint32_t> knownFlags(SCNetworkReachability& host) {
        becomesTrue([&] { return host.flags().has_value(); });
        return host.flags();
    }

    std::shared_ptr<test::WrittenRoutingTable> table =
        std::make_shared<test::WrittenRoutingTable>();
    std::shared_ptr<HeldResolver> resolver = std::make_shared<HeldResolver>();
    std::vector<std::uint32_t> calls;
};

TEST_F(SCNetworkReachabilityTest, takesAWrittenAddressWithoutResolvingIt) {
    table->routes["192.0.2.1"] = unicastRoute(true);
    table->routes["2001:db8::1"] = unicastRoute(false);
    EXPECT_EQ(of("192.0.2.1")->flags(), reachable);
    EXPECT_EQ(of("::ffff:192.0.2.1")->flags(), reachable);
    EXPECT_EQ(of("2001:db8::1")->flags(), reachable | direct);
    EXPECT_EQ(of("192.0.2.2")->flags(), 0u);
    EXPECT_EQ(resolver->timesAsked(), 0);
}

TEST_F(SCNetworkReachabilityTest, asksTheDefaultRoutesForTheAddressOfAnyOfBothFamilies) {
    table->defaults = {unicastRoute(false)};
    table->routes["0.0.0.0"] = table->routes["::"] = localRoute();
    for (const char* any : {"0.0.0.0", "::"})
        EXPECT_EQ(of(any)->flags(), reachable) << any;
}

TEST_F(SCNetworkReachabilityTest, hasNoFlagsWhenTheSystemDoesNotAnswer) {
    table->isAnswering = false;
    EXPECT_EQ(of("192.0.2.1")->flags(), std::nullopt);
    EXPECT_EQ(of("0.0.0.0")->flags(), std::nullopt);
    const auto host = of("host.test");
    resolver->release({networkAddress("192.0.2.1")});
    resolver->waitUntilAsked(1);
    EXPECT_EQ(host->flags(), std::nullopt);
}

TEST_F(SCNetworkReachabilityTest, unitesTheFlagsOfAllAddressesOfAName) {
    table->routes["192.0.2.1"] = unicastRoute(false);
    table->routes["192.0.2.2"] = unicastRoute(true, {.hasCarrier = true, .isTransient = true});
    table->routes["2001:db8::1"] = localRoute();
    resolver->release({networkAddress("192.0.2.1"), networkAddress("192.0.2.2"),
                       networkAddress("192.0.2.3"), networkAddress("2001:db8::1")});
    EXPECT_EQ(knownFlags(*of("host.test")), reachable | direct | transient | local);
}

TEST_F(SCNetworkReachabilityTest, hasTheFlagsOfNothingForANameThatResolvesToNothing) {
    resolver->release({});
    EXPECT_EQ(knownFlags(*of("nobody.test")), 0u);
}

TEST_F(SCNetworkReachabilityTest, callsBackOnItsLoopOnceTheFlagsOfANameAreKnown) {
    table->routes["192.0.2.1"] = unicastRoute(true);
    const auto host = of("host.test");
    EXPECT_TRUE(host->schedule(RunLoop::main()));
    RunLoop::main()->run(0.005);  // comes back although the name is still being asked for
    EXPECT_EQ(host->flags(), std::nullopt);
    EXPECT_THAT(calls, IsEmpty());
    resolver->release({networkAddress("192.0.2.1")});
    EXPECT_EQ(RunLoop::main()->run(60), RunLoopResult::stopped);
    EXPECT_THAT(calls, ElementsAre(reachable));
    EXPECT_NE(resolver->thread(), std::this_thread::get_id());
}

TEST_F(SCNetworkReachabilityTest, resolvesANameAnewWhenTheNetworkChanges) {
    table->routes["192.0.2.1"] = unicastRoute(true);
    resolver->release({networkAddress("192.0.2.1")});
    const auto host = of("host.test");
    EXPECT_EQ(knownFlags(*host), reachable);
    EXPECT_TRUE(host->schedule(RunLoop::main()));

    table->routes["192.0.2.2"] = unicastRoute(false);
    resolver->hold();
    const int before = resolver->timesAsked();
    table->change();
    EXPECT_THAT(calls, IsEmpty()) << "the old address counts until there is another";
    resolver->release({networkAddress("192.0.2.2")});
    EXPECT_EQ(RunLoop::main()->run(60), RunLoopResult::stopped);
    EXPECT_THAT(calls, ElementsAre(reachable | direct));
    EXPECT_EQ(resolver->timesAsked(), before + 1);
}

TEST_F(SCNetworkReachabilityTest, resolvesOnceMoreAfterChangesWhileANameIsBeingResolved) {
    const auto host = of("host.test");
    EXPECT_TRUE(host->schedule(RunLoop::main()));
    resolver->waitUntilAsked(1);
    for (int i = 0; i < 5; ++i)
        table->change();
    EXPECT_EQ(resolver->timesAsked(), 1);
    resolver->release({});
    EXPECT_EQ(RunLoop::main()->run(60), RunLoopResult::stopped);
    EXPECT_EQ(resolver->timesAsked(), 2);
    EXPECT_THAT(calls, ElementsAre(0u));
}

TEST_F(SCNetworkReachabilityTest, resolvesANameAnewForAReaderWhoComesLate) {
    const auto services = [&](double freshness) {
        return NetworkServices{table, HeldResolver::asking(resolver), freshness};
    };
    table->routes["192.0.2.2"] = unicastRoute(true);
    resolver->release({networkAddress("192.0.2.1")});
    auto host = SCNetworkReachability::createWithName("host.test", services(0));
    EXPECT_EQ(knownFlags(*host), 0u);
    resolver->release({networkAddress("192.0.2.2")});
    EXPECT_TRUE(becomesTrue([&] { return host->flags() == reachable; }));
    host.reset();
    EXPECT_TRUE(becomesTrue([&] { return resolver.use_count() == 1; }));

    const int before = resolver->timesAsked();
    host = SCNetworkReachability::createWithName("host.test", services(1'000));
    EXPECT_EQ(knownFlags(*host), reachable);
    for (int i = 0; i < 20; ++i)
        EXPECT_EQ(host->flags(), reachable);
    host.reset();
    EXPECT_TRUE(becomesTrue([&] { return resolver.use_count() == 1; }));
    EXPECT_EQ(resolver->timesAsked(), before + 1);
}

TEST_F(SCNetworkReachabilityTest, doesNotResolveANameOnceMoreForThoseWhoReadMeanwhile) {
    std::atomic<int> asked = 0;
    std::atomic<bool> isOpen = false;
    auto held = std::make_shared<int>(1);
    const std::weak_ptr<int> inUse = held;
    auto host = SCNetworkReachability::createWithName(
        "host.test", {table,
                      [&, held = std::move(held)](const std::string&) {
                          if (++asked == 2)
                              becomesTrue([&] { return isOpen.load(); });
                          return std::vector<NetworkAddress>();
                      },
                      0});
    EXPECT_TRUE(becomesTrue([&] { return host->flags() && asked == 2; }));
    for (int i = 0; i < 20; ++i)
        EXPECT_EQ(host->flags(), 0u) << "what is known counts until more is";
    host.reset();
    isOpen = true;
    EXPECT_TRUE(becomesTrue([&] { return inUse.expired(); }));
    EXPECT_EQ(asked, 2);
}

TEST_F(SCNetworkReachabilityTest, isSilentOnceUnscheduledThoughANameWasFoundBefore) {
    const auto host = of("host.test");
    EXPECT_TRUE(host->schedule(RunLoop::main()));
    resolver->release({});
    // Besides the test only the host holds it: the thread that asked has told the loop and is gone.
    EXPECT_TRUE(becomesTrue([&] { return resolver.use_count() == 2; }));
    EXPECT_TRUE(host->unschedule(RunLoop::main()));
    RunLoop::main()->run(0);
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(SCNetworkReachabilityTest, isScheduledOnceOnALoopAndOnNoSecondOne) {
    const auto host = of("192.0.2.1");
    EXPECT_FALSE(host->unschedule(RunLoop::main()));
    EXPECT_TRUE(host->schedule(RunLoop::main()));
    EXPECT_TRUE(host->schedule(RunLoop::main()));
    EXPECT_EQ(table->subscribers.size(), 1u);
    std::thread([&] {
        EXPECT_FALSE(host->schedule(RunLoop::current()));
        EXPECT_FALSE(host->unschedule(RunLoop::current()));
    }).join();
    EXPECT_EQ(table->subscribers.size(), 1u);
    EXPECT_TRUE(host->unschedule(RunLoop::main()));
    EXPECT_THAT(table->subscribers, IsEmpty());
    EXPECT_FALSE(host->unschedule(RunLoop::main()));
    EXPECT_TRUE(host->schedule(RunLoop::main())) << "it may start again";
}

TEST_F(SCNetworkReachabilityTest, mayBeUnscheduledAndGivenAnotherCallbackInsideItsCallback) {
    const auto host = of("192.0.2.1");
    host->setCallback([&, held = std::make_shared<int>(7)](std::uint32_t) {
        host->setCallback(nullptr);
        EXPECT_TRUE(host->unschedule(RunLoop::main()));
        calls.push_back(static_cast<std::uint32_t>(*held));
    });
    EXPECT_TRUE(host->schedule(RunLoop::main()));
    table->routes["192.0.2.1"] = unicastRoute(true);
    table->change();
    EXPECT_THAT(calls, ElementsAre(7u));
    EXPECT_THAT(table->subscribers, IsEmpty());
}

TEST_F(SCNetworkReachabilityTest, endsWhatWaitsInALoopOnTheThreadOfThatLoop) {
    auto host = of("192.0.2.1");
    EXPECT_TRUE(host->schedule(RunLoop::main()));
    std::thread([&] { host.reset(); }).join();
    EXPECT_EQ(table->subscribers.size(), 1u);
    RunLoop::main()->run(0);
    EXPECT_THAT(table->subscribers, IsEmpty());
    EXPECT_EQ(table->lastEnded, std::this_thread::get_id());
}

TEST_F(SCNetworkReachabilityTest, doesNotWakeTheLoopForANameNobodyWantsAnyMore) {
    auto host = of("host.test");
    EXPECT_TRUE(host->schedule(RunLoop::main()));
    host.reset();
    RunLoop::main()->run(0);
    resolver->release({});
    EXPECT_TRUE(becomesTrue([&] { return resolver.use_count() == 1; }));
    EXPECT_EQ(RunLoop::main()->run(0, true), RunLoopResult::timedOut);
}

TEST_F(SCNetworkReachabilityTest, doesNotKeepTheLoopOfAThreadThatHasEnded) {
    std::weak_ptr<RunLoop> loop;
    std::thread([&] {
        loop = RunLoop::current();
        const auto host = of("host.test");
        EXPECT_TRUE(host->schedule(RunLoop::current()));
        resolver->waitUntilAsked(1);
    }).join();
    resolver->release({networkAddress("192.0.2.1")});
    EXPECT_TRUE(becomesTrue([&] { return loop.expired(); }));
}

TEST_F(SCNetworkReachabilityTest, mayBeReadOnAnyThreadWhileItsLoopFollowsTheNetwork) {
    table->routes["192.0.2.1"] = unicastRoute(true);
    resolver->release({networkAddress("192.0.2.1"), networkAddress("192.0.2.2")});
    const auto host = of("host.test");
    EXPECT_EQ(knownFlags(*host), reachable);
    EXPECT_TRUE(host->schedule(RunLoop::main()));
    std::atomic<bool> isDone = false;
    std::thread reader([&] {
        while (!isDone)
            EXPECT_EQ(host->flags(), reachable);
    });
    for (int i = 0; i < 300; ++i) {
        table->change();
        RunLoop::main()->run(0);
    }
    isDone = true;
    reader.join();
    EXPECT_THAT(calls, IsEmpty());
}

}  // namespace
}  // namespace quorin
