#include "quorin/platform/foundation/CFRunLoopObserver.h"

#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "quorin/platform/foundation/RunLoop.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::ElementsAre;

TEST(CFRunLoopObserver, callsObserversByOrderThenByAge) {
    const auto& loop = RunLoop::main();
    std::vector<std::string> calls;
    std::vector<std::shared_ptr<CFRunLoopObserver>> observers;
    const auto add = [&](int order, const char* name) {
        observers.push_back(CFRunLoopObserver::create(
            kCFRunLoopEntry, true, order, [&, name](CFRunLoopActivity) { calls.push_back(name); }));
        loop->addObserver(observers.back());
    };
    add(1, "late");
    add(0, "first");
    add(0, "second");
    add(-1, "early");
    loop->run(0);
    EXPECT_THAT(calls, ElementsAre("early", "first", "second", "late"));
    for (const auto& observer : observers)
        loop->removeObserver(observer);
}

TEST(CFRunLoopObserver, doesNotCallAnObserverThatAnotherRemoved) {
    const auto& loop = RunLoop::main();
    int calls = 0;
    const auto victim =
        CFRunLoopObserver::create(kCFRunLoopEntry, true, 1, [&](CFRunLoopActivity) { ++calls; });
    const auto remover = CFRunLoopObserver::create(
        kCFRunLoopEntry, false, 0, [&](CFRunLoopActivity) { loop->removeObserver(victim); });
    loop->addObserver(remover);
    loop->addObserver(victim);
    loop->run(0);
    EXPECT_EQ(calls, 0);
    EXPECT_FALSE(loop->containsObserver(victim));
    EXPECT_FALSE(loop->containsObserver(remover));
}

TEST(CFRunLoopObserver, callsAnObserverAddedInsideAnotherFromTheNextActivityOn) {
    const auto& loop = RunLoop::main();
    std::vector<unsigned> heard;
    const auto added =
        CFRunLoopObserver::create(kCFRunLoopEntry | kCFRunLoopExit, true, 1,
                                  [&](CFRunLoopActivity activity) { heard.push_back(activity); });
    loop->addObserver(CFRunLoopObserver::create(
        kCFRunLoopEntry, false, 0, [&](CFRunLoopActivity) { loop->addObserver(added); }));
    loop->run(0);
    EXPECT_THAT(heard, ElementsAre(128u));
    loop->removeObserver(added);
}

TEST(CFRunLoopObserver, letsGoOfItsObserversWhenItsThreadEnds) {
    const auto observer = CFRunLoopObserver::create(kCFRunLoopEntry | kCFRunLoopExit, true, 0,
                                                    [](CFRunLoopActivity) {});
    std::thread([&] {
        RunLoop::current()->addObserver(observer);
        EXPECT_TRUE(observer->isScheduled());
    }).join();
    EXPECT_FALSE(observer->isScheduled());
    RunLoop::main()->addObserver(observer);
    EXPECT_TRUE(RunLoop::main()->containsObserver(observer));
    RunLoop::main()->removeObserver(observer);
}

TEST(CFRunLoopObserver, keepsAnObserverToOneLoop) {
    const auto observer = CFRunLoopObserver::create(kCFRunLoopEntry | kCFRunLoopExit, true, 0,
                                                    [](CFRunLoopActivity) {});
    RunLoop::main()->addObserver(observer);
    std::thread([&] {
        RunLoop::current()->addObserver(observer);
        EXPECT_FALSE(RunLoop::current()->containsObserver(observer));
    }).join();
    RunLoop::main()->removeObserver(observer);
    EXPECT_FALSE(observer->isScheduled());
}

}  // namespace
}  // namespace quorin
