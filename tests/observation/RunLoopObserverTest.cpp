#include "quorin/observation/RunLoopObserver.h"

#include <algorithm>
#include <functional>
#include <limits>
#include <optional>
#include <set>
#include <thread>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

/// Entry and exit, no wait.
void passTwice() { RunLoop::main()->run(0); }

/// Entry, a wait and exit. On a busy machine a shorter wait may be over before it begins.
void passWithAWait() { RunLoop::main()->run(0.05); }

/// Takes what an earlier test may have left in the loop.
class RunLoopObserverTest : public testing::Test {
protected:
    void SetUp() override {
        RunLoopObserver::shared();
        passTwice();
    }
};

TEST_F(RunLoopObserverTest, countsEntryWaitAndExitWithoutAnyClosure) {
    const std::int64_t before = RunLoopObserver::counter();
    passTwice();
    EXPECT_EQ(RunLoopObserver::counter(), before + 2);
    passWithAWait();
    EXPECT_EQ(RunLoopObserver::counter(), before + 5);
}

TEST_F(RunLoopObserverTest, countsTheSameWithClosures) {
    const std::int64_t before = RunLoopObserver::counter();
    const UUID first = RunLoopObserver::shared()->addObserver([] {});
    const UUID second = RunLoopObserver::shared()->addObserver(nullptr);
    passTwice();
    EXPECT_EQ(RunLoopObserver::counter(), before + 2);
    RunLoopObserver::shared()->removeObserver(first);
    RunLoopObserver::shared()->removeObserver(second);
}

TEST_F(RunLoopObserverTest, hasCountedACallbackBeforeItCallsTheClosures) {
    std::vector<std::int64_t> seen;
    const std::int64_t before = RunLoopObserver::counter();
    const UUID own = RunLoopObserver::shared()->addObserver(
        [&] { seen.push_back(RunLoopObserver::counter() - before); });
    passTwice();
    EXPECT_THAT(seen, testing::ElementsAre(1, 2));
    RunLoopObserver::shared()->removeObserver(own);
}

TEST_F(RunLoopObserverTest, countsNestedRunsToo) {
    const std::int64_t before = RunLoopObserver::counter();
    RunLoop::main()->perform([] { RunLoop::main()->run(0); });
    RunLoop::main()->run(0);
    EXPECT_EQ(RunLoopObserver::counter(), before + 4);
}

TEST_F(RunLoopObserverTest, callsEachClosureInEachPassUntilItIsRemoved) {
    int first = 0, second = 0;
    const UUID one = RunLoopObserver::shared()->addObserver([&] { ++first; });
    const UUID two = RunLoopObserver::shared()->addObserver([&] { ++second; });
    EXPECT_NE(one, two);
    passWithAWait();
    EXPECT_EQ(first, 3);
    RunLoopObserver::shared()->removeObserver(one);
    passTwice();
    EXPECT_EQ(first, 3);
    EXPECT_EQ(second, 5);
    RunLoopObserver::shared()->removeObserver(two);
}

TEST_F(RunLoopObserverTest, ignoresAnUnknownIdentifierAndNone) {
    int calls = 0;
    const UUID own = RunLoopObserver::shared()->addObserver([&] { ++calls; });
    RunLoopObserver::shared()->removeObserver(std::nullopt);
    RunLoopObserver::shared()->removeObserver(UUID::random());
    passTwice();
    EXPECT_EQ(calls, 2);
    RunLoopObserver::shared()->removeObserver(own);
    RunLoopObserver::shared()->removeObserver(own);
}

TEST_F(RunLoopObserverTest, releasesARemovedClosureAtOnce) {
    const auto held = std::make_shared<int>(1);
    const UUID own = RunLoopObserver::shared()->addObserver([held] {});
    passTwice();
    EXPECT_EQ(held.use_count(), 2);
    RunLoopObserver::shared()->removeObserver(own);
    EXPECT_EQ(held.use_count(), 1);
}

TEST_F(RunLoopObserverTest, startsAClosureAddedInsideAnotherWithTheNextPass) {
    std::vector<std::string> calls;
    std::optional<UUID> added;
    const UUID adder = RunLoopObserver::shared()->addObserver([&] {
        calls.push_back("adder");
        if (!added)
            added = RunLoopObserver::shared()->addObserver([&] { calls.push_back("added"); });
    });
    const UUID look = RunLoopObserver::shared()->addObserver([] {});
    passTwice();
    // The entry has the adder alone; at the exit both are called.
    ASSERT_EQ(calls.size(), 3u);
    EXPECT_EQ(calls[0], "adder");
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "added"), 1);
    for (const auto& identifier : {std::optional(adder), added, std::optional(look)})
        RunLoopObserver::shared()->removeObserver(identifier);
}

TEST_F(RunLoopObserverTest, doesNotCallAClosureThatAnotherRemovedInThisPass) {
    // Whichever comes first removes the other.
    std::optional<UUID> one, two;
    int calls = 0;
    one = RunLoopObserver::shared()->addObserver([&] {
        ++calls;
        RunLoopObserver::shared()->removeObserver(two);
    });
    two = RunLoopObserver::shared()->addObserver([&] {
        ++calls;
        RunLoopObserver::shared()->removeObserver(one);
    });
    passTwice();
    EXPECT_EQ(calls, 2);  // the one that is left, at entry and exit
    RunLoopObserver::shared()->removeObserver(one);
    RunLoopObserver::shared()->removeObserver(two);
}

TEST_F(RunLoopObserverTest, letsAClosureRemoveItselfAndUseWhatItHolds) {
    std::optional<UUID> own;
    int result = 0;
    own = RunLoopObserver::shared()->addObserver([&, held = std::make_shared<int>(5)] {
        RunLoopObserver::shared()->removeObserver(own);
        result += *held;
    });
    passTwice();
    EXPECT_EQ(result, 5);
}

TEST_F(RunLoopObserverTest, isCalledInANestedRunInsideAClosure) {
    int depth = 0, deepest = 0;
    const UUID own = RunLoopObserver::shared()->addObserver([&] {
        deepest = std::max(deepest, ++depth);
        if (depth < 3)
            RunLoop::main()->run(0);
        --depth;
    });
    passTwice();
    EXPECT_EQ(deepest, 3);
    RunLoopObserver::shared()->removeObserver(own);
}

TEST_F(RunLoopObserverTest, doesNotCallAClosureRemovedInANestedRunWhenTheOuterPassGoesOn) {
    const auto& shared = RunLoopObserver::shared();
    std::vector<std::optional<UUID>> all;
    int depth = 0, calls = 0;
    for (int i = 0; i < 5; ++i)
        all.push_back(shared->addObserver([&] {
            ++calls;
            if (++depth == 1)
                passTwice();
            else
                for (const auto& identifier : all)
                    shared->removeObserver(identifier);
            --depth;
        }));
    passTwice();
    EXPECT_EQ(calls, 2) << "whichever comes first, and the one its nested run calls first";
}

/// What a pass has to call: all that were there as it began and are there still.
struct Pass {
    std::set<std::size_t> there, called;
};

RC_GTEST_PROP(RunLoopObserver, callsWhatIsThereOncePerPassWhateverClosuresDo,
              (const std::vector<std::uint8_t>& script)) {
    const auto& loop = RunLoop::main();
    const auto observer = RunLoopObserver::create(loop);
    std::vector<UUID> identifiers;
    std::set<std::size_t> there;
    std::vector<Pass> passes;
    std::size_t next = 0;
    std::function<void()> add;
    const auto takeStep = [&] {
        const unsigned step = next < script.size() ? script[next++] : 3;
        if (step % 4 == 0) {
            add();
        } else if (step % 4 == 1 && !identifiers.empty()) {
            const std::size_t which = step / 4 % identifiers.size();
            observer->removeObserver(identifiers[which]);
            there.erase(which);
        } else if (step % 4 == 2 && passes.size() < 4) {
            loop->run(0);
        }
    };
    add = [&] {
        const std::size_t number = identifiers.size();
        identifiers.push_back(observer->addObserver([&, number] {
            RC_ASSERT(there.count(number) == 1u);
            RC_ASSERT(passes.back().there.count(number) == 1u);
            RC_ASSERT(passes.back().called.insert(number).second);
            takeStep();
        }));
        there.insert(number);
    };
    const auto begin = CFRunLoopObserver::create(161, true, -1, [&](CFRunLoopActivity) {
        passes.push_back({there, {}});
    });
    const auto end = CFRunLoopObserver::create(161, true, 1, [&](CFRunLoopActivity) {
        for (const std::size_t number : passes.back().there)
            RC_ASSERT(there.count(number) == passes.back().called.count(number) ||
                      there.count(number) == 0u);
        passes.pop_back();
    });
    loop->addObserver(begin);
    loop->addObserver(end);
    while (next < script.size()) {
        takeStep();
        loop->run(0);
    }
    loop->removeObserver(begin);
    loop->removeObserver(end);
}

TEST_F(RunLoopObserverTest, serves10000Closures) {
    std::vector<UUID> identifiers;
    int calls = 0;
    for (int i = 0; i < 10'000; ++i)
        identifiers.push_back(RunLoopObserver::shared()->addObserver([&] { ++calls; }));
    passTwice();
    EXPECT_EQ(calls, 20'000);
    for (const UUID& identifier : identifiers)
        RunLoopObserver::shared()->removeObserver(identifier);
    passTwice();
    EXPECT_EQ(calls, 20'000);
}

TEST_F(RunLoopObserverTest, observesTheMainLoopWithTheGivenActivities) {
    const auto& observer = RunLoopObserver::shared()->runLoopObserser();
    EXPECT_EQ(observer->activities(), 161u);
    EXPECT_EQ(observer->order(), 0);
    EXPECT_TRUE(observer->doesRepeat());
    EXPECT_TRUE(RunLoop::main()->containsObserver(observer));
}

TEST(RunLoopObserver, isMadeOnceByWhicheverThreadComesFirst) {
    std::vector<std::thread> threads;
    std::vector<const RunLoopObserver*> seen(4);
    for (std::size_t i = 0; i < seen.size(); ++i)
        threads.emplace_back([&seen, i] { seen[i] = RunLoopObserver::shared().get(); });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_THAT(seen, testing::Each(RunLoopObserver::shared().get()));
}

TEST(RunLoopObserver, leavesTheLoopWhenItEnds) {
    auto observer = RunLoopObserver::create(RunLoop::main());
    const auto held = std::make_shared<int>(1);
    observer->addObserver([held] {});
    const auto platformObserver = observer->runLoopObserser();
    EXPECT_TRUE(platformObserver->isScheduled());
    observer.reset();
    EXPECT_FALSE(platformObserver->isScheduled());
    EXPECT_EQ(held.use_count(), 1);
    passTwice();
}

TEST(RunLoopObserver, canEndInsideAClosure) {
    auto observer = RunLoopObserver::create(RunLoop::main());
    int calls = 0;
    observer->addObserver([&] {
        ++calls;
        observer.reset();
    });
    passTwice();
    EXPECT_EQ(calls, 1);
}

TEST(RunLoopObserverDeath, isFatalWhenTheCountOverflows) {
    EXPECT_DEATH(
        {
            const auto observer = RunLoopObserver::create(
                RunLoop::main(), std::numeric_limits<std::int64_t>::max() - 1);
            passTwice();
        },
        "no number for a callback after 9223372036854775807");
}

}  // namespace
}  // namespace quorin
