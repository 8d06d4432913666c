#include "quorin/platform/ui/NSEvent.h"

#include "quorin/platform/ui/NSApplication.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

constexpr auto allKeys =
    NSEventTypeMask::keyDown | NSEventTypeMask::keyUp | NSEventTypeMask::flagsChanged;

std::shared_ptr<NSEvent> keyDown(const char* characters) {
    return NSEvent::create(NSEventType::keyDown, {.characters = characters});
}

/// Takes its monitors out again, since those of the application outlast a test.
struct NSEventTest : testing::Test {
    ~NSEventTest() override {
        for (const auto& token : tokens)
            NSEvent::removeMonitor(token);
    }

    std::shared_ptr<Object> monitor(NSEventTypeMask mask, NSEvent::Monitor handler) {
        tokens.push_back(NSEvent::addLocalMonitorForEvents(mask, std::move(handler)));
        return tokens.back();
    }

    /// Writes `name` and the characters of each event down.
    std::shared_ptr<Object> note(const char* name, NSEventTypeMask mask = allKeys) {
        return monitor(mask, [this, name](const auto& event) {
            seen.push_back(std::string(name).append(event->characters()));
            return event;
        });
    }

    void remove(const std::shared_ptr<Object>& token) {
        NSEvent::removeMonitor(token);
        std::erase(tokens, token);
    }

    bool send(const std::shared_ptr<NSEvent>& event) {
        return NSApplication::shared().sendEvent(event, [this](NSEvent& delivered) {
            seen.push_back(std::string("delivered ").append(delivered.characters()));
        });
    }

    std::vector<std::shared_ptr<Object>> tokens;
    std::vector<std::string> seen;
};

TEST_F(NSEventTest, saysWhatTheKeyWas) {
    const auto event =
        NSEvent::create(NSEventType::keyUp, {NSEventModifierFlags::shift, 1.5, " ", 49, true});
    EXPECT_EQ(event->type(), NSEventType::keyUp);
    EXPECT_EQ(event->modifierFlags(), NSEventModifierFlags::shift);
    EXPECT_EQ(event->timestamp(), 1.5);
    EXPECT_EQ(event->characters(), " ");
    EXPECT_EQ(event->keyCode(), 49);
    EXPECT_TRUE(event->isARepeat());
}

TEST_F(NSEventTest, isNumberedAsThePlatformDoes) {
    EXPECT_EQ(static_cast<int>(NSEventType::keyDown), 10);
    EXPECT_EQ(static_cast<int>(NSEventType::keyUp), 11);
    EXPECT_EQ(static_cast<int>(NSEventType::flagsChanged), 12);
}

TEST_F(NSEventTest, isShownToMonitorsInOrderBeforeItIsDelivered) {
    note("first ");
    note("second ");
    EXPECT_TRUE(send(keyDown("a")));
    EXPECT_THAT(seen, testing::ElementsAre("first a", "second a", "delivered a"));
}

TEST_F(NSEventTest, isShownOnlyToMonitorsOfItsType) {
    note("down ", NSEventTypeMask::keyDown);
    note("up or flags ", NSEventTypeMask::keyUp | NSEventTypeMask::flagsChanged);
    send(NSEvent::create(NSEventType::flagsChanged, {.characters = "f"}));
    send(NSEvent::create(NSEventType::keyUp, {.characters = "u"}));
    send(keyDown("d"));
    EXPECT_THAT(seen, testing::ElementsAre("up or flags f", "delivered f", "up or flags u",
                                           "delivered u", "down d", "delivered d"));
}

TEST_F(NSEventTest, canBeReplacedByAMonitor) {
    const auto other = keyDown("b");
    monitor(allKeys, [&](const auto&) { return other; });
    monitor(allKeys, [&](const auto& event) {
        EXPECT_EQ(NSApplication::shared().currentEvent(), other);
        return event;
    });
    EXPECT_TRUE(send(keyDown("a")));
    EXPECT_THAT(seen, testing::ElementsAre("delivered b"));
    EXPECT_EQ(NSApplication::shared().currentEvent(), other);
}

TEST_F(NSEventTest, canBeKeptByAMonitor) {
    note("first ");
    monitor(allKeys, [](const auto&) { return nullptr; });
    note("third ");
    EXPECT_FALSE(send(keyDown("a")));
    EXPECT_THAT(seen, testing::ElementsAre("first a"));
}

TEST_F(NSEventTest, isNotShownToAMonitorThatWasRemovedMeanwhile) {
    std::shared_ptr<Object> later;
    monitor(allKeys, [&](const auto& event) {
        if (later)
            remove(std::exchange(later, nullptr));
        return event;
    });
    later = note("later ");
    note("last ");
    send(keyDown("a"));
    EXPECT_THAT(seen, testing::ElementsAre("last a", "delivered a"));
}

TEST_F(NSEventTest, canRemoveTheMonitorThatItIsShownTo) {
    std::shared_ptr<Object> self;
    const auto kept = std::make_shared<int>(5);
    self = monitor(allKeys, [&self, kept, this](const auto& event) {
        remove(std::exchange(self, nullptr));
        seen.push_back(std::to_string(*kept));
        return event;
    });
    send(keyDown("a"));
    send(keyDown("b"));
    EXPECT_THAT(seen, testing::ElementsAre("5", "delivered a", "delivered b"));
    EXPECT_EQ(kept.use_count(), 1);
}

TEST_F(NSEventTest, isNotShownToAMonitorThatWasAddedMeanwhile) {
    bool isAdded = false;
    monitor(allKeys, [&](const auto& event) {
        if (!std::exchange(isAdded, true))
            note("added ");
        return event;
    });
    send(keyDown("a"));
    send(keyDown("b"));
    EXPECT_THAT(seen, testing::ElementsAre("delivered a", "added b", "delivered b"));
}

TEST_F(NSEventTest, keepsAMonitorWhoseTokenNobodyHolds) {
    int calls = 0;
    std::weak_ptr<Object> token;
    {
        const auto made = NSEvent::addLocalMonitorForEvents(allKeys, [&](const auto& event) {
            ++calls;
            return event;
        });
        token = made;
    }
    send(keyDown("a"));
    EXPECT_EQ(calls, 1);
    NSEvent::removeMonitor(token.lock());
    EXPECT_TRUE(token.expired());
}

using NSEventDeathTest = NSEventTest;

TEST_F(NSEventDeathTest, refusesToRemoveAMonitorTwice) {
    const auto token = NSEvent::addLocalMonitorForEvents(allKeys, [](const auto& e) { return e; });
    NSEvent::removeMonitor(token);
    EXPECT_DEATH(NSEvent::removeMonitor(token), "no monitor of events, or was removed already");
    EXPECT_DEATH(NSEvent::removeMonitor(nullptr), "no monitor of events, or was removed already");
}

}  // namespace
}  // namespace quorin
