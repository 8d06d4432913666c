#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "quorin/platform/foundation/NSNotificationCenter.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

// Run by the thread sanitizer these show races; without it they show lost and late calls.
constexpr int rounds = 300;

template <typename Body>
void onThreads(int count, const Body& body) {
    std::vector<std::thread> threads;
    for (int i = 0; i < count; ++i)
        threads.emplace_back([&body, i] { body(i); });
    for (std::thread& thread : threads)
        thread.join();
}

TEST(NSNotificationCenterThreads, everyPostReachesWhoIsThereThroughout) {
    NSNotificationCenter center;
    std::atomic<int> calls = 0;
    center.addObserver("a", nullptr, [&](const NSNotification&) { ++calls; });
    onThreads(4, [&](int) {
        for (int i = 0; i < rounds; ++i) {
            const auto passing = center.addObserver("a", nullptr, [](const NSNotification&) {});
            center.postNotification(NSNotification("a"));
            center.removeObserver(passing);
        }
    });
    EXPECT_EQ(calls, 4 * rounds);
}

TEST(NSNotificationCenterThreads, eachThreadsRemovalEndsDeliveryToItsOwnPosts) {
    NSNotificationCenter center;
    onThreads(4, [&](int thread) {
        const NSNotificationName name("thread " + std::to_string(thread));
        for (int i = 0; i < rounds; ++i) {
            int calls = 0;
            const auto observer =
                center.addObserver(name, nullptr, [&](const NSNotification&) { ++calls; });
            center.postNotification(NSNotification(name));
            center.removeObserver(observer);
            center.postNotification(NSNotification(name));
            EXPECT_EQ(calls, 1);
        }
    });
}

TEST(NSNotificationCenterThreads, whatOneRemovesWhileAnotherCallsItIsReleased) {
    NSNotificationCenter center;
    std::atomic<bool> isDone = false;
    std::thread poster([&] {
        while (!isDone)
            center.postNotification(NSNotification("a"));
    });
    std::vector<std::shared_ptr<std::atomic<int>>> everHeld;
    for (int i = 0; i < rounds; ++i) {
        const auto held = std::make_shared<std::atomic<int>>(0);
        everHeld.push_back(held);
        const auto observer =
            center.addObserver("a", nullptr, [held](const NSNotification&) { ++*held; });
        center.removeObserver(observer);
    }
    isDone = true;
    poster.join();
    for (const auto& held : everHeld)
        EXPECT_EQ(held.use_count(), 1) << "the block is released";
}

TEST(NSNotificationCenterThreads, namesAreTheSameOnAllThreads) {
    std::vector<const std::string*> places(4);
    onThreads(4, [&](int thread) {
        for (int i = 0; i < rounds; ++i)
            places[static_cast<std::size_t>(thread)] =
                &NSNotificationName("made on all threads " + std::to_string(i)).text();
    });
    for (const std::string* place : places)
        EXPECT_EQ(place, places.front());
}

TEST(NSNotificationCenterThreads, callsOnTheThreadThatPosts) {
    NSNotificationCenter center;
    std::thread::id called;
    center.addObserver("a", nullptr,
                       [&](const NSNotification&) { called = std::this_thread::get_id(); });
    std::thread poster([&] { center.postNotification(NSNotification("a")); });
    const std::thread::id posting = poster.get_id();
    poster.join();
    EXPECT_EQ(called, posting);
}

}  // namespace
}  // namespace quorin
