#include "quorin/platform/ui/NSApplication.h"

#include "tests/TestSupport.h"
#include "tests/support/ActionTargets.h"

namespace quorin {
namespace {

NSApplication& application() { return NSApplication::shared(); }

std::shared_ptr<NSEvent> keyUp() { return NSEvent::create(NSEventType::keyUp, {}); }

TEST(NSApplication, isOne) { EXPECT_EQ(&application(), &NSApplication::shared()); }

TEST(NSApplication, knowsTheEventThatIsHandledAndTheLastOneAfterwards) {
    const auto event = keyUp();
    std::shared_ptr<NSEvent> current;
    EXPECT_TRUE(
        application().sendEvent(event, [&](NSEvent&) { current = application().currentEvent(); }));
    EXPECT_EQ(current, event);
    EXPECT_EQ(application().currentEvent(), event);
}

TEST(NSApplication, comesBackToTheOuterEventAfterAnInnerOne) {
    const auto outer = keyUp();
    const auto inner = keyUp();
    std::vector<std::shared_ptr<NSEvent>> current;
    const auto note = [&] { current.push_back(application().currentEvent()); };
    application().sendEvent(outer, [&](NSEvent&) {
        application().sendEvent(inner, [&](NSEvent&) { note(); });
        note();
    });
    note();
    EXPECT_THAT(current, testing::ElementsAre(inner, outer, outer));
}

TEST(NSApplication, takesAnEventThatAMonitorKeptForTheLastOneToo) {
    const auto token = NSEvent::addLocalMonitorForEvents(NSEventTypeMask::keyUp,
                                                         [](const auto&) { return nullptr; });
    const auto event = keyUp();
    EXPECT_FALSE(application().sendEvent(event));
    EXPECT_EQ(application().currentEvent(), event);
    NSEvent::removeMonitor(token);
    EXPECT_TRUE(application().sendEvent(keyUp()));
}

TEST(NSApplication, keepsItsCountWhenAHandlerThrows) {
    const auto last = keyUp();
    EXPECT_THROW(application().sendEvent(keyUp(), [](NSEvent&) { throw 5; }), int);
    application().sendEvent(last);
    EXPECT_EQ(application().currentEvent(), last);
}

TEST(NSApplication, keepsItsCountWhenAMonitorThrowsAndComesBackToTheOuterEvent) {
    const auto outer = keyUp();
    const auto inner = NSEvent::create(NSEventType::keyDown, {});
    const auto token = NSEvent::addLocalMonitorForEvents(
        NSEventTypeMask::keyDown, [](const auto&) -> std::shared_ptr<NSEvent> { throw 5; });
    application().sendEvent(outer, [&](NSEvent&) {
        EXPECT_THROW(application().sendEvent(inner), int);
        EXPECT_EQ(application().currentEvent(), outer);
    });
    NSEvent::removeMonitor(token);
    application().sendEvent(inner);
    EXPECT_EQ(application().currentEvent(), inner);
}

TEST(NSApplication, comesBackToTheEventThatAMonitorPutInThePlaceOfAnother) {
    const auto replacing = keyUp();
    const auto token = NSEvent::addLocalMonitorForEvents(NSEventTypeMask::keyDown,
                                                         [&](const auto&) { return replacing; });
    application().sendEvent(NSEvent::create(NSEventType::keyDown, {}), [&](NSEvent& delivered) {
        EXPECT_EQ(&delivered, replacing.get());
        application().sendEvent(keyUp());
        EXPECT_EQ(application().currentEvent(), replacing);
    });
    NSEvent::removeMonitor(token);
}

TEST(NSApplicationDeathTest, handlesNothingButEvents) {
    EXPECT_DEATH(application().sendEvent(nullptr), "the application is sent no event");
}

TEST(NSApplication, sendsActionsToTheirTarget) {
    const auto target = makeObject<test::ActionTarget>();
    const auto sender = makeObject<NSMenuItem>();
    EXPECT_TRUE(application().sendAction("note:", target, sender.get()));
    EXPECT_TRUE(application().sendAction("note:", target, nullptr));
    EXPECT_THAT(target->senders, testing::ElementsAre(sender.get(), nullptr));
    EXPECT_FALSE(application().sendAction("note:", nullptr, sender.get()));
}

class SpecialTarget : public test::ActionTarget {
public:
    using Class = NSClassOf<SpecialTarget, ActionTarget>;

    static void declareActions(NSActionList<SpecialTarget>& actions) {
        actions.action("noteTwice:", [](SpecialTarget& target, NSObject* sender) {
            target.note(sender);
            target.note(sender);
        });
    }
};

TEST(NSApplication, sendsActionsThatTheTargetsClassInherits) {
    const auto target = makeObject<SpecialTarget>();
    EXPECT_TRUE(application().sendAction("noteTwice:", target, nullptr));
    EXPECT_TRUE(application().sendAction("note:", target, nullptr));
    EXPECT_EQ(target->senders.size(), 3u);
    EXPECT_EQ(NSClass::of<test::ActionTarget>().action("noteTwice:"), nullptr);
}

TEST(NSApplicationDeathTest, stopsAtAnActionThatTheTargetsClassDoesNotDeclare) {
    EXPECT_DEATH(application().sendAction("swap:", makeObject<SpecialTarget>(), nullptr),
                 "SpecialTarget has no action \"swap:\"");
}

}  // namespace
}  // namespace quorin
