#include "quorin/platform/foundation/RunLoop.h"

#include <glib.h>
#include <sys/time.h>

#include <atomic>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <csignal>
#include <functional>
#include <thread>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr unsigned every =
    kCFRunLoopEntry | kCFRunLoopBeforeWaiting | kCFRunLoopAfterWaiting | kCFRunLoopExit;
constexpr unsigned given = kCFRunLoopEntry | kCFRunLoopBeforeWaiting | kCFRunLoopExit;

/// Seconds: on a busy machine a shorter wait may be over before it begins, and then is none.
constexpr double aWhile = 0.05;

/// Writes down the activities of a loop for as long as it lives.
class Record {
public:
    explicit Record(std::shared_ptr<RunLoop> watched = RunLoop::main(), unsigned mask = given)
        : loop(std::move(watched)) {
        loop->addObserver(
            observer = CFRunLoopObserver::create(mask, true, 0, [this](CFRunLoopActivity activity) {
                activities.push_back(activity);
            }));
    }
    ~Record() { loop->removeObserver(observer); }

    std::vector<unsigned> activities;

private:
    std::shared_ptr<RunLoop> loop;
    std::shared_ptr<CFRunLoopObserver> observer;
};

TEST(RunLoop, tellsOfEntryAndExitOnceAndNotOfAWaitThatIsNone) {
    RunLoop::main()->run(0);  // a wake-up from an earlier test
    const Record record;
    EXPECT_EQ(RunLoop::main()->run(0), RunLoopResult::timedOut);
    EXPECT_THAT(record.activities, ElementsAre(1u, 128u));
}

TEST(RunLoop, tellsOfEachWait) {
    RunLoop::main()->run(0);
    const Record record(RunLoop::main(), every);
    EXPECT_EQ(RunLoop::main()->run(aWhile), RunLoopResult::timedOut);
    EXPECT_THAT(record.activities, ElementsAre(1u, 32u, 64u, 128u));
}

TEST(RunLoop, doesNotWaitWhileClosuresAreReady) {
    RunLoop::main()->run(0);
    const Record record;
    RunLoop::main()->perform([] { RunLoop::main()->perform([] { RunLoop::main()->stop(); }); });
    RunLoop::main()->run();
    EXPECT_THAT(record.activities, ElementsAre(1u, 128u));
}

TEST(RunLoop, tellsOfNestedRunsToo) {
    const auto& loop = RunLoop::main();
    loop->run(0);
    const Record record;
    loop->perform([&] {
        loop->run(0);
        loop->stop();
    });
    loop->run();
    EXPECT_THAT(record.activities, ElementsAre(1u, 1u, 128u, 128u));
}

TEST(RunLoop, hearsOfTheWaitsOfAHostOnTheSameContext) {
    RunLoop::main()->run(0);
    const Record record;
    g_main_context_iteration(nullptr, FALSE);
    EXPECT_THAT(record.activities, IsEmpty());
    const RunLoopSource timer = RunLoop::main()->addTimer(aWhile, false, [] {});
    g_main_context_iteration(nullptr, TRUE);
    EXPECT_THAT(record.activities, ElementsAre(32u));
}

TEST(RunLoop, isStoppedByAnObserverBeforeAnyPass) {
    const auto& loop = RunLoop::main();
    bool isPerformed = false;
    loop->perform([&] { isPerformed = true; });
    loop->addObserver(CFRunLoopObserver::create(kCFRunLoopEntry, false, 0,
                                                [&](CFRunLoopActivity) { loop->stop(); }));
    EXPECT_EQ(loop->run(10), RunLoopResult::stopped);
    EXPECT_FALSE(isPerformed);
    loop->run(0);
    EXPECT_TRUE(isPerformed);
}

TEST(RunLoop, endsOnlyTheInnermostRunWhenStopped) {
    const auto& loop = RunLoop::main();
    std::vector<std::string> order;
    loop->perform([&] {
        loop->perform([&] { loop->stop(); });
        EXPECT_EQ(loop->run(10), RunLoopResult::stopped);
        order.push_back("inner");
    });
    EXPECT_EQ(loop->run(0.001), RunLoopResult::timedOut);
    EXPECT_THAT(order, ElementsAre("inner"));
}

TEST(RunLoop, takesAStopWithoutARunForNothing) {
    RunLoop::main()->stop();
    EXPECT_EQ(RunLoop::main()->run(0), RunLoopResult::timedOut);
}

TEST(RunLoop, comesBackAfterAPassThatCalledSomethingWhenAsked) {
    const auto& loop = RunLoop::main();
    loop->run(0);
    loop->perform([] {});
    EXPECT_EQ(loop->run(10, true), RunLoopResult::handledSource);
}

TEST(RunLoop, takesATimeLimitThatIsNoNumberForNone) {
    EXPECT_EQ(RunLoop::main()->run(-1), RunLoopResult::timedOut);
    EXPECT_EQ(RunLoop::main()->run(std::nan("")), RunLoopResult::timedOut);
}

TEST(RunLoop, performsClosuresInOrderAndThoseAddedMeanwhileInTheNextPass) {
    const auto& loop = RunLoop::main();
    loop->run(0);
    std::vector<int> order;
    loop->perform([&] {
        order.push_back(1);
        loop->perform([&] { order.push_back(3); });
    });
    loop->perform([&] { order.push_back(2); });
    loop->run(0);
    EXPECT_THAT(order, ElementsAre(1, 2));
    loop->run(0);
    EXPECT_THAT(order, ElementsAre(1, 2, 3));
}

TEST(RunLoop, performsWhatStandsBehindAClosureThatRunsTheLoop) {
    const auto& loop = RunLoop::main();
    std::vector<std::string> order;
    loop->perform([&] {
        loop->run(0);
        order.push_back("first");
    });
    loop->perform([&] { order.push_back("second"); });
    loop->run(0);
    EXPECT_THAT(order, ElementsAre("second", "first"));
}

TEST(RunLoop, isWokenFromSeveralThreads) {
    const auto& loop = RunLoop::main();
    constexpr int threadCount = 4, closureCount = 500;
    int performed = 0;  // by the loop's thread alone
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i)
        threads.emplace_back([&] {
            for (int n = 0; n < closureCount; ++n)
                loop->perform([&] {
                    if (++performed == threadCount * closureCount)
                        loop->stop();
                });
        });
    EXPECT_EQ(loop->run(60), RunLoopResult::stopped);
    EXPECT_EQ(performed, threadCount * closureCount);
    for (std::thread& thread : threads)
        thread.join();
}

TEST(RunLoop, takesObserversAndStopsFromOtherThreads) {
    const auto& loop = RunLoop::main();
    std::atomic<int> calls = 0;
    std::thread other([&] {
        for (int i = 0; i < 200; ++i) {
            const auto observer =
                CFRunLoopObserver::create(given, true, 0, [&](CFRunLoopActivity) { ++calls; });
            loop->addObserver(observer);
            loop->perform([] {});
            loop->removeObserver(observer);
        }
        const auto last =
            CFRunLoopObserver::create(given, false, 0, [&](CFRunLoopActivity) { ++calls; });
        loop->addObserver(last);
        loop->perform([] {});  // an observer alone does not wake the loop
        while (calls == 0 || last->isScheduled())
            std::this_thread::yield();
        loop->stop();
    });
    EXPECT_EQ(loop->run(60), RunLoopResult::stopped);
    EXPECT_GT(calls, 0);
    other.join();
}

TEST(RunLoop, givesEachThreadALoopOfItsOwn) {
    const auto& first = RunLoop::main();
    EXPECT_EQ(RunLoop::current(), first);
    std::thread([&] {
        const auto& own = RunLoop::current();
        EXPECT_NE(own, first);
        EXPECT_EQ(RunLoop::current(), own);
        const Record record(own);
        own->perform([&] { own->stop(); });
        own->run();
        EXPECT_THAT(record.activities, ElementsAre(1u, 128u));
        own->run(aWhile);
        EXPECT_THAT(record.activities, ElementsAre(1u, 128u, 1u, 32u, 128u));
    }).join();
}

TEST(RunLoop, usesTheDefaultContextOfItsThread) {
    std::thread([] {
        GMainContext* const context = g_main_context_new();
        g_main_context_push_thread_default(context);
        bool isPerformed = false;
        RunLoop::current()->perform([&] { isPerformed = true; });
        g_main_context_iteration(context, FALSE);
        EXPECT_TRUE(isPerformed);
        g_main_context_pop_thread_default(context);
        g_main_context_unref(context);
    }).join();
}

TEST(RunLoopDeath, isNotRunOnAThreadThatIsNotItsOwn) {
    EXPECT_DEATH(std::thread([] { RunLoop::main()->run(0); }).join(),
                 "a run loop was run on a thread that is not its own");
}

/// Runs the main loop, having `closure` called before its first wait, until something stops it.
void expectStopSoon(const std::function<void()>& closure) {
    const auto& loop = RunLoop::main();
    loop->run(0);  // a wake-up from an earlier test would be taken for the one that is expected
    loop->addObserver(CFRunLoopObserver::create(kCFRunLoopBeforeWaiting, false, 0,
                                                [&](CFRunLoopActivity) { closure(); }));
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(loop->run(20), RunLoopResult::stopped);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10)) << "a whole wait";
}

TEST(RunLoop, wakesForWhatAnObserverAsksForBeforeTheWait) {
    const auto& loop = RunLoop::main();
    const auto stop = [&] { loop->stop(); };
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    ASSERT_EQ(write(ends[1], "a", 1), 1);
    RunLoopSource source;
    struct Row {
        const char* says;
        std::function<void()> ask;
    };
    const Row table[] = {
        {"a stop", stop},
        {"a closure", [&] { loop->perform(stop); }},
        {"a timer", [&] { source = loop->addTimer(0.001, false, stop); }},
        {"a descriptor",
         [&] { source = loop->addDescriptor(ends[0], DescriptorEvent::readable, stop); }},
    };
    for (const auto& [says, ask] : table) {
        SCOPED_TRACE(says);
        expectStopSoon(ask);
        source.cancel();
    }
    close(ends[0]);
    close(ends[1]);
}

TEST(RunLoop, wakesForWhatANestedRunBeforeTheWaitLeaves) {
    const auto& loop = RunLoop::main();
    RunLoopSource timer;
    expectStopSoon([&] {
        timer = loop->addTimer(0.002, false, [&] { loop->stop(); });
        loop->run(0);
    });
}

TEST(RunLoop, isNotWokenForNothingInARunBeforeTheWait) {
    const auto& loop = RunLoop::main();
    std::vector<unsigned> activities;
    RunLoopSource timer;
    loop->addObserver(
        CFRunLoopObserver::create(kCFRunLoopBeforeWaiting, false, 0, [&](CFRunLoopActivity) {
            loop->perform([&] { timer = loop->addTimer(60, false, [] {}); });
            const Record record;
            loop->run(aWhile);
            activities = record.activities;
        }));
    EXPECT_EQ(loop->run(2 * aWhile), RunLoopResult::timedOut);
    EXPECT_THAT(activities, ElementsAre(1u, 32u, 128u)) << "one wait, up to its time limit";
}

TEST(RunLoop, isNotWokenForWhatIsAddedBetweenWaits) {
    const auto& loop = RunLoop::main();
    loop->run(0);
    const Record record;
    RunLoopSource later;
    const RunLoopSource timer =
        loop->addTimer(aWhile, false, [&] { later = loop->addTimer(60, false, [] {}); });
    EXPECT_EQ(loop->run(2 * aWhile), RunLoopResult::timedOut);
    EXPECT_THAT(record.activities, ElementsAre(1u, 32u, 32u, 128u))
        << "one wait for the timer and one up to the time limit";
}

TEST(RunLoop, mayBeRunBeforeAWaitOfTheHost) {
    const auto& loop = RunLoop::main();
    loop->run(0);
    const Record record;
    bool isPerformed = false;
    loop->addObserver(
        CFRunLoopObserver::create(kCFRunLoopBeforeWaiting, false, 0, [&](CFRunLoopActivity) {
            // More descriptors than the host's array has room for.
            std::vector<int> descriptors(40);
            std::vector<RunLoopSource> sources;
            for (int& descriptor : descriptors) {
                descriptor = dup(STDERR_FILENO);
                sources.push_back(
                    loop->addDescriptor(descriptor, DescriptorEvent::readable, [] {}));
            }
            loop->perform([&] { isPerformed = true; });
            loop->run(0.002);
            sources.clear();
            for (const int descriptor : descriptors)
                close(descriptor);
        }));
    const RunLoopSource timer = loop->addTimer(aWhile, false, [] {});
    g_main_context_iteration(nullptr, TRUE);
    EXPECT_TRUE(isPerformed);
    EXPECT_THAT(record.activities, testing::Contains(1u));
}

TEST(RunLoop, leavesTheErrorOfAWaitToTheHostWhateverObserversDo) {
    const auto observer = CFRunLoopObserver::create(kCFRunLoopAfterWaiting, true, 0,
                                                    [](CFRunLoopActivity) { errno = EBADF; });
    RunLoop::main()->run(0);
    RunLoop::main()->addObserver(observer);
    const auto before = std::signal(SIGALRM, [](int) {});
    const itimerval often{{0, 5'000}, {0, 5'000}}, never{};
    setitimer(ITIMER_REAL, &often, nullptr);
    testing::internal::CaptureStderr();
    g_main_context_iteration(nullptr, TRUE);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "GLib complains of all but EINTR";
    setitimer(ITIMER_REAL, &never, nullptr);
    std::signal(SIGALRM, before);
    RunLoop::main()->removeObserver(observer);
}

}  // namespace
}  // namespace quorin
