#include "quorin/platform/ui/NSAnimationContext.h"
#include "quorin/platform/ui/NSApplication.h"
#include "quorin/platform/ui/NSViewController.h"
#include "quorin/platform/ui/NSWindow.h"
#include "tests/TestSupport.h"
#include "tests/support/HandAnimator.h"
#include "tests/support/ViewControllers.h"

namespace quorin {
namespace {

using Options = NSViewController::TransitionOptions;
using test::HandAnimator;
using test::NotingController;

constexpr CGRect place = CGRectMake(10, 20, 100, 50);

/// A container in a visible window that shows the view of its first child.
struct NSViewControllerTransitionTest : testing::Test {
    NSViewControllerTransitionTest() {
        container->view()->setFrame(CGRectMake(0, 0, 300, 200));
        window->setContentViewController(container);
        window->orderFront();
        container->addChild(one);
        container->addChild(two);
        one->view()->setFrame(place);
        container->view()->addSubview(makeObject<NSView>());
        container->view()->addSubview(one->view());
        container->view()->addSubview(makeObject<NSView>());
        two->view()->setFrame(CGRectMake(1, 1, 1, 1));
        calls.clear();
    }

    ~NSViewControllerTransitionTest() override { NSApplication::shared().setAnimator(nullptr); }

    std::shared_ptr<HandAnimator> byHand() {
        auto animator = std::make_shared<HandAnimator>();
        NSApplication::shared().setAnimator(animator);
        return animator;
    }

    void transition(Options options) {
        container->transition(one, two, options, [this] { calls.push_back("completed"); });
    }

    void expectExchanged() {
        ASSERT_EQ(container->view()->subviews().size(), 3u);
        EXPECT_EQ(container->view()->subviews()[1], two->view());
        EXPECT_EQ(one->view()->superview(), nullptr);
        for (const auto& controller : {one, two}) {
            EXPECT_EQ(controller->view()->frame(), place);
            EXPECT_EQ(controller->view()->alphaValue(), 1);
            EXPECT_EQ(controller->parent(), container);
        }
    }

    std::vector<std::string> calls;
    std::shared_ptr<NSWindow> window = NSWindow::create();
    std::shared_ptr<NSViewController> container = makeObject<NSViewController>();
    std::shared_ptr<NSViewController> one = makeObject<NotingController>("one", calls);
    std::shared_ptr<NSViewController> two = makeObject<NotingController>("two", calls);
};

TEST_F(NSViewControllerTransitionTest, isOverAtOnceWithoutAnAnimator) {
    for (const Options options : {Options::none, Options::slideLeft, Options::crossfade}) {
        transition(options);
        EXPECT_THAT(calls,
                    testing::ElementsAre("one viewWillDisappear", "two viewWillAppear",
                                         "one viewDidDisappear", "two viewDidAppear", "completed"));
        expectExchanged();
        container->transition(two, one, Options::none);
        calls.clear();
    }
}

TEST_F(NSViewControllerTransitionTest, isOverAtOnceWithoutAWayToGo) {
    byHand();
    for (const Options options : {Options::none, Options::allowUserInteraction}) {
        transition(options);
        EXPECT_EQ(calls.back(), "completed");
        expectExchanged();
        container->transition(two, one, Options::none);
    }
}

TEST_F(NSViewControllerTransitionTest, movesBothViewsInTheNamedDirection) {
    struct Row {
        Options options;
        CGPoint oldAtQuarter, newAtStart, newAtQuarter;
    };
    const Row table[] = {
        {Options::slideLeft, {-15, 20}, {110, 20}, {85, 20}},
        {Options::slideForward, {-15, 20}, {110, 20}, {85, 20}},
        {Options::slideRight, {35, 20}, {-90, 20}, {-65, 20}},
        {Options::slideBackward, {35, 20}, {-90, 20}, {-65, 20}},
        {Options::slideUp, {10, 7.5}, {10, 70}, {10, 57.5}},
        {Options::slideDown, {10, 32.5}, {10, -30}, {10, -17.5}},
    };
    const auto animator = byHand();
    for (const auto& [options, oldAtQuarter, newAtStart, newAtQuarter] : table) {
        SCOPED_TRACE(rawValue(options));
        transition(options);
        EXPECT_EQ(one->view()->frame(), place);
        EXPECT_EQ(two->view()->frame(), (CGRect{newAtStart, place.size}));
        animator->step(0.25);
        EXPECT_EQ(one->view()->frame(), (CGRect{oldAtQuarter, place.size}));
        EXPECT_EQ(two->view()->frame(), (CGRect{newAtQuarter, place.size}));
        EXPECT_EQ(two->view()->alphaValue(), 1);
        animator->finish();
        expectExchanged();
        container->transition(two, one, Options::none);
    }
}

TEST_F(NSViewControllerTransitionTest, fadesOneViewOutAndTheOtherOneIn) {
    const auto animator = byHand();
    transition(Options::crossfade);
    EXPECT_EQ(two->view()->frame(), place);
    EXPECT_EQ(one->view()->alphaValue(), 1);
    EXPECT_EQ(two->view()->alphaValue(), 0);
    animator->step(0.25);
    EXPECT_EQ(one->view()->alphaValue(), 0.75);
    EXPECT_EQ(two->view()->alphaValue(), 0.25);
    animator->finish();
    expectExchanged();
}

TEST_F(NSViewControllerTransitionTest, showsBothViewsWhileItTakesItsTime) {
    const auto animator = byHand();
    transition(Options::slideLeft);
    EXPECT_THAT(calls, testing::ElementsAre("one viewWillDisappear", "two viewWillAppear"));
    const auto subviews = container->view()->subviews();
    ASSERT_EQ(subviews.size(), 4u);
    EXPECT_EQ(subviews[1], one->view());
    EXPECT_EQ(subviews[2], two->view());
    calls.clear();
    animator->finish();
    EXPECT_THAT(calls,
                testing::ElementsAre("one viewDidDisappear", "two viewDidAppear", "completed"));
}

TEST_F(NSViewControllerTransitionTest, takesAsLongAsTheGroupingSays) {
    const auto animator = byHand();
    bool isGroupOver = false;
    NSAnimationContext::runAnimationGroup(
        [&](NSAnimationContext& context) {
            context.setDuration(0.33);
            transition(Options::slideLeft);
        },
        [&] { isGroupOver = true; });
    EXPECT_EQ(animator->durations(), std::vector{0.33});
    EXPECT_FALSE(isGroupOver);
    animator->finish();
    EXPECT_TRUE(isGroupOver);
}

TEST_F(NSViewControllerTransitionTest, isUnseenInAWindowThatIsNotVisible) {
    window->orderOut();
    calls.clear();
    transition(Options::none);
    EXPECT_THAT(calls, testing::ElementsAre("completed"));
    expectExchanged();
}

TEST_F(NSViewControllerTransitionTest, appearsNoMoreWhenTheWindowHasGoneMeanwhile) {
    const auto animator = byHand();
    transition(Options::slideLeft);
    window->orderOut();
    calls.clear();
    animator->finish();
    EXPECT_THAT(calls, testing::ElementsAre("completed"));
}

TEST_F(NSViewControllerTransitionTest, completesWithoutAPlaceToPutTheNewView) {
    one->view()->removeFromSuperview();
    calls.clear();
    transition(Options::slideLeft);
    EXPECT_THAT(calls, testing::ElementsAre("completed"));
    EXPECT_EQ(two->view()->superview(), nullptr);
}

TEST_F(NSViewControllerTransitionTest, bearsItsOldViewBeingTakenOutMeanwhile) {
    const auto animator = byHand();
    transition(Options::slideLeft);
    one->view()->removeFromSuperview();
    animator->finish();
    expectExchanged();
    EXPECT_EQ(calls.back(), "completed");
}

TEST_F(NSViewControllerTransitionTest, followsTheOldViewToWhereTheLayoutPutsIt) {
    const auto animator = byHand();
    container->view()->pinToEdges(one->view());
    container->view()->layoutSubtreeIfNeeded();
    transition(Options::slideLeft);
    animator->step(0.5);
    window->setContentSize({400, 100});
    animator->step(0.75);
    EXPECT_EQ(one->view()->frame(), CGRectMake(-300, 0, 400, 100));
    EXPECT_EQ(two->view()->frame(), CGRectMake(100, 0, 400, 100));
    animator->finish();
    EXPECT_EQ(one->view()->frame(), CGRectMake(0, 0, 400, 100));
    EXPECT_EQ(two->view()->frame(), CGRectMake(0, 0, 400, 100));
}

TEST_F(NSViewControllerTransitionTest, letsTheOldViewDisappearWhenTheWindowHasComeMeanwhile) {
    const auto animator = byHand();
    window->orderOut();
    transition(Options::slideLeft);
    calls.clear();
    window->orderFront();
    EXPECT_THAT(calls, testing::ElementsAre("one viewWillAppear", "two viewWillAppear",
                                            "one viewDidAppear", "two viewDidAppear"));
    calls.clear();
    animator->finish();
    EXPECT_THAT(calls,
                testing::ElementsAre("one viewWillDisappear", "one viewDidDisappear", "completed"));
}

TEST_F(NSViewControllerTransitionTest, isOverAtOnceWhenItIsEndedOrItsAnimatorEnds) {
    for (const bool isEnded : {true, false}) {
        auto animator = byHand();
        transition(Options::slideLeft);
        animator->step(0.25);
        EXPECT_TRUE(one->isBeingReplaced());
        EXPECT_FALSE(two->isBeingReplaced());
        calls.clear();
        if (isEnded) {
            two->endTransition();
        } else {
            NSApplication::shared().setAnimator(nullptr);
            animator = std::make_shared<HandAnimator>();
        }
        expectExchanged();
        EXPECT_THAT(calls,
                    testing::ElementsAre("one viewDidDisappear", "two viewDidAppear", "completed"));
        EXPECT_FALSE(one->isBeingReplaced());
        container->transition(two, one, Options::none);
        calls.clear();
        animator->finish();  // has nothing left to do
        EXPECT_THAT(calls, testing::IsEmpty());
        EXPECT_EQ(one->view()->frame(), place);
        EXPECT_EQ(two->view()->superview(), nullptr);
    }
}

TEST_F(NSViewControllerTransitionTest, bringsTheOneBeforeToItsEnd) {
    const auto animator = byHand();
    const auto three = makeObject<NotingController>("three", calls);
    container->addChild(three);
    transition(Options::slideLeft);
    animator->step(0.5);
    calls.clear();
    container->transition(two, three, Options::slideRight);
    EXPECT_EQ(calls[0], "one viewDidDisappear");
    EXPECT_EQ(calls[1], "two viewDidAppear");
    EXPECT_EQ(calls[2], "completed");
    EXPECT_EQ(one->view()->superview(), nullptr);
    EXPECT_EQ(two->view()->frame(), place);
    EXPECT_EQ(three->view()->frame(), CGRectMake(-90, 20, 100, 50));
    animator->finish();
    EXPECT_EQ(two->view()->superview(), nullptr);
    EXPECT_EQ(three->view()->frame(), place);
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "completed"), 1);
}

TEST_F(NSViewControllerTransitionTest, comesBackOnItsWay) {
    const auto animator = byHand();
    transition(Options::slideLeft);
    animator->step(0.5);
    container->transition(two, one, Options::slideRight);
    EXPECT_EQ(two->view()->frame(), place);
    EXPECT_EQ(one->view()->frame(), CGRectMake(-90, 20, 100, 50));
    animator->finish();
    EXPECT_EQ(one->view()->frame(), place);
    EXPECT_EQ(one->view()->superview(), container->view());
    EXPECT_EQ(two->view()->superview(), nullptr);
}

TEST_F(NSViewControllerTransitionTest, takesTheNewViewFromAnotherTransition) {
    const auto animator = byHand();
    const auto three = makeObject<NotingController>("three", calls);
    container->addChild(three);
    three->view()->setFrame(CGRectMake(200, 100, 10, 10));
    container->view()->addSubview(three->view());
    transition(Options::slideLeft);
    container->transition(three, two, Options::slideLeft);
    EXPECT_EQ(calls.back(), "two viewWillAppear");
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "completed"), 1);
    EXPECT_EQ(one->view()->superview(), nullptr);
    animator->finish();
    EXPECT_EQ(two->view()->frame(), CGRectMake(200, 100, 10, 10));
    EXPECT_EQ(three->view()->superview(), nullptr);
}

TEST_F(NSViewControllerTransitionTest, leavesItsOldViewWhereThatWasPutMeanwhile) {
    const auto animator = byHand();
    const auto elsewhere = makeObject<NSView>();
    transition(Options::slideLeft);
    elsewhere->addSubview(one->view());
    animator->finish();
    EXPECT_EQ(one->view()->superview(), elsewhere);
}

TEST_F(NSViewControllerTransitionTest, outlivesItsContainerAndHoldsNothingAfterwards) {
    const auto animator = byHand();
    transition(Options::slideLeft);
    const std::weak_ptr<NSViewController> from = one, to = two;
    one.reset();
    two.reset();
    container.reset();
    window.reset();
    animator->step(0.5);
    EXPECT_FALSE(from.expired());
    animator->finish();
    EXPECT_EQ(calls.back(), "completed");
    EXPECT_TRUE(from.expired());
    EXPECT_TRUE(to.expired());
}

using NSViewControllerTransitionDeathTest = NSViewControllerTransitionTest;

TEST_F(NSViewControllerTransitionDeathTest, isBetweenTwoChildren) {
    const auto stranger = makeObject<NSViewController>();
    EXPECT_DEATH(container->transition(one, stranger, Options::none),
                 "<NSViewController: 0x[0-9a-f]+> is no child of <NSViewController");
    EXPECT_DEATH(container->transition(stranger, two, Options::none), "is no child of");
    EXPECT_DEATH(container->transition(one, one, Options::none), "cannot take its own place");
}

}  // namespace
}  // namespace quorin
