#include "tests/interaction/SlidingPages.h"

namespace quorin {
namespace {

using test::Page;
using testing::ElementsAre;
using testing::IsEmpty;

/// Pages that are slid between while something else happens.
struct InterruptedSlideTest : test::SlidingPages {
    InterruptedSlideTest() {
        for (const char* identifier : {"push on", "pop back"})
            storyboard->registerSegue<PushPopSegue>(identifier, "two", "one");
        show();
    }

    std::shared_ptr<Page> newest() {
        return std::dynamic_pointer_cast<Page>(container->children().back());
    }

    std::vector<std::string> shownTitles() const {
        std::vector<std::string> titles;
        for (const auto& child : container->children())
            if (child->view()->superview())
                titles.push_back(child->title().value_or(""));
        return titles;
    }

    void expectAlone(const Page& page) {
        EXPECT_EQ(container->children().size(), 1U);
        EXPECT_EQ(container->children().at(0).get(), &page);
        EXPECT_EQ(container->view()->subviews().size(), 1U);
        EXPECT_EQ(container->view()->subviews().at(0)->frame(), container->view()->bounds());
    }
};

TEST_F(InterruptedSlideTest, goesOneStepForTwoClicksOnAPage) {
    one->performSegue("push", nullptr);
    const auto two = newest();
    animator->step(0.3);
    const auto second = segue("pop");
    one->prepare(*second, nullptr);
    second->perform();
    EXPECT_EQ(second->option(), NSViewController::TransitionOptions::slideRight);
    EXPECT_THAT(container->children(), ElementsAre(one, two));
    EXPECT_EQ(one->view()->frame().origin.x, -90);

    animator->finish();
    expectAlone(*two);
    EXPECT_EQ(two->finishedTransitions, 1);
    one->performSegue("push", nullptr);  // later still, when the page is out of sight
    expectAlone(*two);
}

TEST_F(InterruptedSlideTest, leadsOnFromAPageThatStillSlidesIn) {
    one->performSegue("push", nullptr);
    const auto two = newest();
    animator->step(0.3);
    two->performSegue("pop back", nullptr);
    EXPECT_EQ(two->finishedTransitions, 1);
    EXPECT_TRUE(two->wasShownAloneAtTheEnd);
    EXPECT_EQ(one->parent(), nullptr);
    EXPECT_THAT(shownTitles(), ElementsAre("two", "one"));
    EXPECT_EQ(two->view()->frame().origin.x, 0);
    const auto three = newest();
    EXPECT_EQ(three->view()->frame().origin.x, -300);

    animator->finish();
    expectAlone(*three);
    EXPECT_EQ(two->finishedTransitions, 1);
    EXPECT_EQ(three->finishedTransitions, 1);
    EXPECT_EQ(window->title(), "one");
}

TEST_F(InterruptedSlideTest, mayComeBackToThePageThatStillSlidesOut) {
    one->performSegue("push", nullptr);
    const auto two = newest();
    animator->step(0.3);
    const auto back = makeObject<PushPopSegue>("pop", two, one);
    two->prepare(*back, nullptr);
    back->perform();
    animator->finish();
    expectAlone(*one);
    EXPECT_EQ(one->finishedTransitions, 1);
}

TEST_F(InterruptedSlideTest, arrivesAtOnceWhenTheAnimatorEnds) {
    one->performSegue("push", nullptr);
    const auto two = newest();
    animator->step(0.3);
    NSApplication::shared().setAnimator(nullptr);
    animator.reset();
    expectAlone(*two);
    EXPECT_EQ(two->finishedTransitions, 1);
    EXPECT_EQ(window->title(), "two");
}

TEST_F(InterruptedSlideTest, fillsAContainerThatIsResizedOnTheWay) {
    for (const double progress : {0.3, 1.0}) {
        one->performSegue(one->title() == "one" ? "push" : "pop back", nullptr);
        const auto next = newest();
        animator->step(progress);
        window->setContentSize({500 + progress, 400});
        animator->finish();
        expectAlone(*next);
        EXPECT_EQ(next->view()->frame(), CGRectMake(0, 0, 500 + progress, 400));
        one = next;
    }
}

TEST_F(InterruptedSlideTest, fillsAContainerThatThePageBeforeDidNotFill) {
    container->view()->removeConstraints(std::vector(container->view()->constraints()));
    one->view()->setFrame(CGRectMake(10, 20, 30, 40));
    one->performSegue("push", nullptr);
    EXPECT_EQ(newest()->view()->frame(), CGRectMake(40, 20, 30, 40));
    animator->finish();
    expectAlone(*newest());
}

TEST_F(InterruptedSlideTest, finishesWithoutItsContainerAndItsWindow) {
    one->performSegue("push", nullptr);
    const auto two = newest();
    const std::weak_ptr<NSViewController> observed = container;
    container.reset();
    window.reset();
    EXPECT_TRUE(observed.expired());
    animator->step(0.5);
    animator->finish();
    EXPECT_EQ(two->finishedTransitions, 1);
    EXPECT_EQ(two->parent(), nullptr);
    EXPECT_EQ(one->view()->superview(), nullptr);
}

TEST_F(InterruptedSlideTest, goesOnUnseenWhenThePageIsDismissed) {
    one->performSegue("push", nullptr);
    const auto two = newest();
    two->dismiss(nullptr);
    EXPECT_FALSE(window->isVisible());
    animator->finish();
    expectAlone(*two);
    EXPECT_EQ(window->title(), "one");  // the second page never appeared
}

TEST_F(InterruptedSlideTest, holdsNoPageAfterItsEnd) {
    one->performSegue("push", nullptr);
    animator->finish();
    const std::weak_ptr<NSViewController> first = one, second = newest(), holder = container;
    one.reset();
    EXPECT_TRUE(first.expired());
    container.reset();
    window.reset();
    EXPECT_TRUE(second.expired());
    EXPECT_TRUE(holder.expired());
    EXPECT_THAT(animator->durations(), IsEmpty());
}

}  // namespace
}  // namespace quorin
