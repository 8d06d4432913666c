#include "quorin/observation/DarwinNotificationsManager.h"

#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

DarwinNotificationsManager& shared() { return *DarwinNotificationsManager::sharedInstance(); }

TEST(DarwinNotificationsManager, isOneForAllThreads) {
    std::vector<DarwinNotificationsManager*> seen(4);
    std::vector<std::thread> threads;
    for (auto& place : seen)
        threads.emplace_back([&place] { place = &shared(); });
    for (std::thread& thread : threads)
        thread.join();
    for (const auto* manager : seen)
        EXPECT_EQ(manager, &shared());
}

TEST(DarwinNotificationsManager, callsBackByName) {
    int first = 0, second = 0;
    shared().registerForNotificationName("callsBackByName 1", [&] { ++first; });
    shared().registerForNotificationName("callsBackByName 2", [&] { ++second; });
    shared().postNotificationWithName("callsBackByName 1");
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 0);
    shared().postNotificationWithName("nobody registered this");
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 0);
}

TEST(DarwinNotificationsManager, registeringANameTwiceLeavesOneDeliveryToTheSecond) {
    int first = 0, second = 0;
    shared().registerForNotificationName("registered twice", [&] { ++first; });
    shared().registerForNotificationName("registered twice", [&] { ++second; });
    shared().postNotificationWithName("registered twice");
    EXPECT_EQ(first, 0);
    EXPECT_EQ(second, 1);
}

TEST(DarwinNotificationsManager, releasesACallbackThatIsReplaced) {
    const auto held = std::make_shared<int>(1);
    shared().registerForNotificationName("replaced", [held] {});
    EXPECT_EQ(held.use_count(), 2);
    shared().registerForNotificationName("replaced", [] {});
    EXPECT_EQ(held.use_count(), 1);
}

TEST(DarwinNotificationsManager, aCallbackMayReplaceItself) {
    std::vector<int> calls;
    shared().registerForNotificationName("replaces itself", [&, own = std::vector<int>{1, 2}] {
        shared().registerForNotificationName("replaces itself", [&] { calls.push_back(3); });
        calls.insert(calls.end(), own.begin(), own.end());
    });
    shared().postNotificationWithName("replaces itself");
    shared().postNotificationWithName("replaces itself");
    EXPECT_THAT(calls, ::testing::ElementsAre(1, 2, 3));
}

TEST(DarwinNotificationsManager, postsOnTheLocalCentreWithoutObjectAndUserInfo) {
    std::vector<NSNotification> received;
    NSNotificationCenter& center = NSNotificationCenter::defaultCenter();
    const auto observer = center.addObserver(
        "posted by name", nullptr, [&](const NSNotification& note) { received.push_back(note); });
    shared().postNotificationWithName("posted by name");
    center.removeObserver(observer);
    ASSERT_EQ(received.size(), 1u);
    EXPECT_EQ(received[0].object(), nullptr);
    EXPECT_EQ(received[0].userInfo(), std::nullopt);
}

TEST(DarwinNotificationsManager, doesNotHearTheDarwinCentre) {
    int calls = 0;
    shared().registerForNotificationName("on the Darwin centre", [&] { ++calls; });
    CFNotificationCenter::darwinNotifyCenter().postNotification(
        NSNotification("on the Darwin centre"));
    EXPECT_EQ(calls, 0);
}

TEST(DarwinNotificationsManager, itsEndTakesItOffTheDarwinCentreButNotOffTheLocalOne) {
    static int onDarwin = 0;
    int calls = 0;
    shared().registerForNotificationName("outlives its manager", [&] { ++calls; });
    {
        const auto passing = makeObject<DarwinNotificationsManager>();
        CFNotificationCenter::darwinNotifyCenter().addObserver(
            passing.get(),
            [](CFNotificationCenter&, const void*, const NSNotificationName&,
               const std::shared_ptr<Object>&, const NSNotification::UserInfo&) { ++onDarwin; },
            "outlives its manager");
        passing->registerForNotificationName("outlives its manager", [] {});
        CFNotificationCenter::darwinNotifyCenter().postNotification(
            NSNotification("outlives its manager"));
        EXPECT_EQ(onDarwin, 1);
    }
    CFNotificationCenter::darwinNotifyCenter().postNotification(
        NSNotification("outlives its manager"));
    EXPECT_EQ(onDarwin, 1);
    shared().postNotificationWithName("outlives its manager");
    EXPECT_EQ(calls, 2) << "its own registration and the one that was left behind";
}

TEST(DarwinNotificationsManager, whatAnotherInstanceRegistersIsReceivedByTheSharedOne) {
    const auto another = makeObject<DarwinNotificationsManager>();
    int ofShared = 0, ofAnother = 0;
    shared().registerForNotificationName("registered by both", [&] { ++ofShared; });
    another->registerForNotificationName("registered by both", [&] { ++ofAnother; });
    another->notificationCallbackReceivedWithName("registered by both");
    EXPECT_EQ(ofAnother, 1);
    shared().postNotificationWithName("registered by both");
    EXPECT_EQ(ofShared, 2);
    EXPECT_EQ(ofAnother, 1);
}

TEST(DarwinNotificationsManager, isCalledBackByNameWhateverTheCentreAndTheObserver) {
    int calls = 0;
    shared().registerForNotificationName("called back", [&] { ++calls; });
    for (CFNotificationCenter* const center :
         {&CFNotificationCenter::localCenter(), &CFNotificationCenter::darwinNotifyCenter()})
        defaultNotificationCallback(*center, nullptr, "called back", nullptr, Value::Map());
    EXPECT_EQ(calls, 2);
}

TEST(DarwinNotificationsManager, hearsItsNameFromWhoeverPostsIt) {
    int calls = 0;
    shared().registerForNotificationName("posted by others", [&] { ++calls; });
    NSNotificationCenter::defaultCenter().postNotification(
        NSNotification("posted by others", DarwinNotificationsManager::sharedInstance()));
    EXPECT_EQ(calls, 1) << "with any object";
}

TEST(DarwinNotificationsManager, mayBeUsedBySeveralThreads) {
    std::atomic<int> calls = 0;
    const auto use = [&calls](const std::string& own) {
        for (int i = 0; i < 200; ++i) {
            shared().registerForNotificationName("of all threads", [&calls] { ++calls; });
            shared().registerForNotificationName(own, [&calls] { ++calls; });
            shared().postNotificationWithName("of all threads");
            shared().postNotificationWithName(own);
        }
    };
    std::thread one(use, "of one thread"), other(use, "of another");
    one.join();
    other.join();
    EXPECT_EQ(calls, 800);
    shared().registerForNotificationName("of all threads", [] {});
}

TEST(DarwinNotificationsManagerDeath, aNameWithoutACallbackStopsTheProcess) {
    EXPECT_DEATH(shared().notificationCallbackReceivedWithName("unknown"),
                 "no callback for the notification \"unknown\"");
    EXPECT_DEATH(
        {
            makeObject<DarwinNotificationsManager>()->registerForNotificationName("orphan", [] {});
            shared().postNotificationWithName("orphan");
        },
        "no callback for the notification \"orphan\"");
}

}  // namespace
}  // namespace quorin
