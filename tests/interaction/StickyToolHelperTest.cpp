#include "quorin/interaction/StickyToolHelper.h"

#include <functional>
#include <optional>
#include <vector>

#include "tests/TestSupport.h"
#include "tests/interaction/SentKeys.h"

namespace quorin {
namespace {

using enum NSEventModifierFlags;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr NSEventModifierFlags nothing{};

struct ToldDelegate : StickyToolHelperDelegate {
    void stickyToolHelperDidChange(StickyToolHelper& helper, NSEventModifierFlags flags) override {
        told.push_back(flags);
        if (whenTold)
            whenTold(helper);
    }

    std::vector<NSEventModifierFlags> told;
    std::function<void(StickyToolHelper&)> whenTold;
};

struct StickyToolHelperTest : testing::Test, SentKeys {
    StickyToolHelperTest() {
        flags(-100, nothing);  // nothing is held, long before
        helper = StickyToolHelper::create("pen");
        helper->setDelegate(delegate);
    }

    void tap(NSEventModifierFlags modifier, double at, double duration) {
        flags(at, modifier);
        flags(at + duration, nothing);
    }
    void tapSpace(double at, double duration) {
        down(at, spaceKey);
        up(at + duration, spaceKey);
    }

    std::shared_ptr<ToldDelegate> delegate = std::make_shared<ToldDelegate>();
    std::shared_ptr<StickyToolHelper> helper;
};

TEST_F(StickyToolHelperTest, startsWithItsNameAndNothingLatched) {
    EXPECT_EQ(helper->name(), "pen");
    EXPECT_EQ(helper->stickyModifierFlags(), nothing);
    EXPECT_EQ(helper->previousEvent(), nullptr);
    EXPECT_NE(helper->monitor(), nullptr);
}

TEST_F(StickyToolHelperTest, latchesAModifierThatIsTappedAndUnlatchesItAtTheNextTap) {
    tap(shift, 10, 0.2);
    EXPECT_EQ(helper->stickyModifierFlags(), shift);
    tap(shift, 20, 0.2);
    EXPECT_EQ(helper->stickyModifierFlags(), nothing);
}

TEST_F(StickyToolHelperTest, doesNothingForAModifierThatIsHeldForHalfASecond) {
    tap(shift, 10, 0.5);
    EXPECT_EQ(helper->stickyModifierFlags(), nothing);
}

TEST_F(StickyToolHelperTest, takesLessThanThreeTenthsOfASecondForATap) {
    flags(0, shift);
    flags(0.3, nothing);
    EXPECT_EQ(helper->stickyModifierFlags(), nothing);
    flags(10, shift);
    flags(10.299, nothing);
    EXPECT_EQ(helper->stickyModifierFlags(), shift);
}

TEST_F(StickyToolHelperTest, tellsOfEachChangeOfModifiersWhetherOrNotALatchChanged) {
    flags(1, shift);
    flags(1.1, nothing);
    flags(5, option);
    flags(6, nothing);
    EXPECT_THAT(delegate->told, ElementsAre(nothing, shift, shift, shift));
}

TEST_F(StickyToolHelperTest, latchesEachModifierOnItsOwn) {
    tap(shift, 1, 0.1);
    tap(command, 2, 0.1);
    tap(option, 3, 0.1);
    EXPECT_EQ(helper->stickyModifierFlags(), shift | command | option);
    tap(command, 4, 0.1);
    EXPECT_EQ(helper->stickyModifierFlags(), shift | option);
}

TEST_F(StickyToolHelperTest, latchesOnlyWhatIsLetGoOfTwoThatAreHeld) {
    flags(1, shift | option);
    flags(1.1, option);
    EXPECT_EQ(helper->stickyModifierFlags(), shift);
    flags(5, nothing);
    EXPECT_EQ(helper->stickyModifierFlags(), shift);
}

TEST_F(StickyToolHelperTest, measuresATapFromWhateverKeyWasSeenLast) {
    flags(1, shift);
    send(NSEventType::keyDown,
         {.modifierFlags = shift, .timestamp = 5, .characters = "A", .keyCode = 0});
    flags(5.1, nothing);  // the modifier was held for four seconds, but a key came in between
    EXPECT_EQ(helper->stickyModifierFlags(), shift);
}

TEST_F(StickyToolHelperTest, countsALatchedModifierThatIsHeldAsReleased) {
    tap(shift, 1, 0.1);
    EXPECT_TRUE(helper->isShiftModifierEnabled());
    flags(5, shift);
    EXPECT_FALSE(helper->isShiftModifierEnabled());
    flags(6, nothing);
    EXPECT_TRUE(helper->isShiftModifierEnabled());
}

TEST_F(StickyToolHelperTest, enablesAModifierThatIsHeldButNotLatched) {
    flags(1, shift | option | command);
    EXPECT_TRUE(helper->isShiftModifierEnabled());
    EXPECT_TRUE(helper->isOptionModifierEnabled());
    EXPECT_TRUE(helper->isCommandModifierEnabled());
    flags(2, nothing);
    EXPECT_FALSE(helper->isShiftModifierEnabled());
    EXPECT_FALSE(helper->isOptionModifierEnabled());
    EXPECT_FALSE(helper->isCommandModifierEnabled());
}

TEST_F(StickyToolHelperTest, latchesTheSpaceBarWhenItIsTapped) {
    tapSpace(1, 0.1);
    EXPECT_TRUE(helper->isSpaceModifierEnabled());
    EXPECT_EQ(helper->stickyModifierFlags(), space);
    EXPECT_THAT(delegate->told, ElementsAre(space));
    tapSpace(2, 0.1);
    EXPECT_FALSE(helper->isSpaceModifierEnabled());
    EXPECT_THAT(delegate->told, ElementsAre(space, nothing));
}

TEST_F(StickyToolHelperTest, doesNotLatchASpaceBarThatIsHeldWhileItRepeats) {
    for (int repeat = 0; repeat < 10; ++repeat)
        down(1 + 0.1 * repeat, spaceKey);
    EXPECT_EQ(helper->previousEvent()->timestamp(), 1);
    up(2, spaceKey);
    EXPECT_FALSE(helper->isSpaceModifierEnabled());
    EXPECT_THAT(delegate->told, IsEmpty());
}

TEST_F(StickyToolHelperTest, latchesNothingForATapOfAnotherKey) {
    down(1, returnKey);
    up(1.1, returnKey);
    EXPECT_EQ(helper->stickyModifierFlags(), nothing);
    down(2, returnKey);
    up(2.1, spaceKey);
    EXPECT_EQ(helper->stickyModifierFlags(), nothing);
    down(3, spaceKey);
    up(3.1, returnKey);
    EXPECT_EQ(helper->stickyModifierFlags(), nothing);
    EXPECT_THAT(delegate->told, IsEmpty());
}

TEST_F(StickyToolHelperTest, doesNotCountASpaceBarThatIsPressedWhileAnotherKeyIsDown) {
    down(1, returnKey);
    down(1.1, spaceKey);
    up(1.2, spaceKey);
    EXPECT_FALSE(helper->isSpaceModifierEnabled());
}

TEST_F(StickyToolHelperTest, resetsWithoutTellingItsDelegate) {
    tap(shift, 1, 0.1);
    tapSpace(2, 0.1);
    delegate->told.clear();

    flags(3, option);
    delegate->told.clear();
    helper->reset();
    EXPECT_EQ(helper->stickyModifierFlags(), nothing);
    EXPECT_EQ(helper->previousEvent(), nullptr);
    EXPECT_THAT(delegate->told, IsEmpty());

    flags(3.1, nothing);  // the press is forgotten, so this ends no tap
    EXPECT_EQ(helper->stickyModifierFlags(), nothing);
}

TEST_F(StickyToolHelperTest, keepsTheEventAsPreviousWhenTheDelegateResets) {
    delegate->whenTold = [](StickyToolHelper& told) { told.reset(); };
    const auto event = flags(1, shift);
    EXPECT_EQ(helper->previousEvent(), event);
}

TEST_F(StickyToolHelperTest, tellsItsDelegateBeforeTheEventBecomesThePreviousOne) {
    std::vector<std::shared_ptr<NSEvent>> previous;
    delegate->whenTold = [&](StickyToolHelper& told) { previous.push_back(told.previousEvent()); };
    const auto pressed = flags(1, shift);
    const auto released = flags(1.1, nothing);
    const auto spaceDown = down(2, spaceKey);
    const auto spaceUp = up(2.1, spaceKey);
    EXPECT_THAT(previous, ElementsAre(nullptr, pressed, spaceDown));
    EXPECT_EQ(helper->previousEvent(), spaceUp);
}

TEST_F(StickyToolHelperTest, takesTheOuterEventForThePreviousOneWhenItsDelegateSendsAnother) {
    delegate->whenTold = [&](StickyToolHelper&) {
        delegate->whenTold = nullptr;
        flags(1.1, nothing);  // nothing is seen before this, so it ends no tap
    };
    const auto outer = flags(1, shift);
    EXPECT_EQ(helper->previousEvent(), outer);
    EXPECT_THAT(delegate->told, ElementsAre(nothing, nothing));
    flags(1.2, nothing);
    EXPECT_EQ(helper->stickyModifierFlags(), shift);
}

TEST_F(StickyToolHelperTest, takesASpaceTapOfLessThanThreeTenthsOfASecond) {
    down(0, spaceKey);
    up(0.3, spaceKey);
    EXPECT_FALSE(helper->isSpaceModifierEnabled());
    tapSpace(10, 0.299);
    EXPECT_TRUE(helper->isSpaceModifierEnabled());
}

TEST_F(StickyToolHelperTest, doesNotHearOfWhatAnEarlierMonitorKept) {
    helper = nullptr;
    const auto token = NSEvent::addLocalMonitorForEvents(NSEventTypeMask::flagsChanged,
                                                         [](const auto&) { return nullptr; });
    helper = StickyToolHelper::create("pen");
    tap(shift, 1, 0.1);
    EXPECT_EQ(helper->previousEvent(), nullptr);
    NSEvent::removeMonitor(token);
    tap(shift, 2, 0.1);
    EXPECT_EQ(helper->stickyModifierFlags(), shift);
}

TEST_F(StickyToolHelperTest, handsEveryEventOnAsItIs) {
    const auto event =
        NSEvent::create(NSEventType::keyDown,
                        {.modifierFlags = {}, .timestamp = 1, .characters = " ", .keyCode = 49});
    const NSEvent* delivered = nullptr;
    NSApplication::shared().sendEvent(event, [&](NSEvent& given) { delivered = &given; });
    EXPECT_EQ(delivered, event.get());
}

TEST_F(StickyToolHelperTest, isNotKeptAliveByItsMonitorAndHearsNothingAfterItsEnd) {
    const std::weak_ptr<StickyToolHelper> observed = helper;
    const std::weak_ptr<Object> monitor = helper->monitor();
    helper = nullptr;
    EXPECT_TRUE(observed.expired());
    EXPECT_TRUE(monitor.expired());
    tap(shift, 1, 0.1);
    EXPECT_THAT(delegate->told, IsEmpty());
}

TEST_F(StickyToolHelperTest, mayBeLetGoOfByItsDelegate) {
    delegate->whenTold = [this](StickyToolHelper&) { helper = nullptr; };
    flags(1, shift);
    EXPECT_EQ(helper, nullptr);
    flags(2, nothing);
    EXPECT_THAT(delegate->told, ElementsAre(nothing));
}

TEST_F(StickyToolHelperTest, doesNotKeepItsDelegateAlive) {
    const std::weak_ptr<ToldDelegate> observed = delegate;
    delegate = nullptr;
    EXPECT_TRUE(observed.expired());
    EXPECT_EQ(helper->delegate(), nullptr);
    tap(shift, 1, 0.1);
    EXPECT_EQ(helper->stickyModifierFlags(), shift);
}

TEST_F(StickyToolHelperTest, livesBesideOthersThatSeeTheSameKeys) {
    tap(shift, 1, 0.1);
    const auto later = StickyToolHelper::create("hand");
    tapSpace(2, 0.1);
    EXPECT_EQ(helper->stickyModifierFlags(), shift | space);
    EXPECT_EQ(later->stickyModifierFlags(), space);
}

/// What a person would keep on paper: who was pressed last, and what is latched.
class PaperModel {
public:
    void flagsChanged(double at, std::uint64_t held) {
        if (last && at - last->at < 0.3)
            latched ^= last->held & ~held;
        last = Press{at, held, false, 0};
    }
    void key(double at, bool isDown, unsigned code) {
        if (last && at - last->at < 0.3 && last->isDown && last->code == 49 && !isDown &&
            code == 49)
            latched ^= 1;
        if (!(last && last->isDown && isDown))
            last = Press{at, 0, isDown, code};
    }

    std::uint64_t latched = 0;

private:
    struct Press {
        double at;
        std::uint64_t held;
        bool isDown;
        unsigned code;
    };
    std::optional<Press> last;
};

RC_GTEST_FIXTURE_PROP(StickyToolHelperTest, latchesAsIfOnPaperForAnyKeys, ()) {
    PaperModel paper;
    double now = 0;
    const int count = *rc::gen::inRange(0, 60);
    for (int step = 0; step < count; ++step) {
        now += *rc::gen::element(0.05, 0.25, 0.35, 1.0);
        const int kind = *rc::gen::inRange(0, 3);
        if (kind == 0) {
            const auto held = *rc::gen::inRange<std::uint64_t>(0, 16) << 17;
            flags(now, static_cast<NSEventModifierFlags>(held));
            paper.flagsChanged(now, held);
        } else {
            const auto code = *rc::gen::element(spaceKey, returnKey);
            kind == 1 ? down(now, code) : up(now, code);
            paper.key(now, kind == 1, code);
        }
        RC_ASSERT(rawValue(helper->stickyModifierFlags()) == paper.latched);
    }
}

}  // namespace
}  // namespace quorin
