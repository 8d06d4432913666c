#include "quorin/platform/ui/NSAnimationContext.h"
#include "tests/interaction/SlidingPages.h"
#include "tests/support/ToldKeys.h"

namespace quorin {
namespace {

using SlideNavigationTest = test::SlidingPages;
using test::Page;

using Options = NSViewController::TransitionOptions;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(SlideNavigationTest, embedsTheFirstPageWhenTheViewHasLoaded) {
    show();
    ASSERT_EQ(container->children().size(), 1U);
    EXPECT_EQ(one->title(), "one");
    EXPECT_EQ(one->containerViewController(), container);
    EXPECT_EQ(one->view()->superview(), container->view());
    EXPECT_EQ(one->view()->frame(), CGRectMake(0, 0, 300, 200));
}

TEST_F(SlideNavigationTest, embedsNothingWithoutTheNameOfASegue) {
    container->setEmbedSegueIdentifier("");
    container->view();
    EXPECT_THAT(container->children(), IsEmpty());
}

TEST_F(SlideNavigationTest, letsInterfaceFilesNameTheEmbeddingSegue) {
    container->setValueForKey("other", "embedSegueIdentifier");
    EXPECT_EQ(container->embedSegueIdentifier(), "other");
    EXPECT_EQ(container->valueForKey("embedSegueIdentifier"), Value("other"));
}

TEST_F(SlideNavigationTest, handsTheRepresentedObjectOfTheContainerToItsChild) {
    show();
    EXPECT_EQ(one->representedObject(), Value("document"));
}

TEST_F(SlideNavigationTest, takesTheRepresentedObjectFromTheChildWhenTheContainerHasNone) {
    container->setRepresentedObject(nullptr);
    const auto child = makeObject<Page>("child");
    child->setRepresentedObject("old");
    NSStoryboardSegue segue("embed", container, child);
    container->prepare(segue, nullptr);
    EXPECT_TRUE(child->representedObject().isNothing());
}

TEST_F(SlideNavigationTest, preparesNoDestinationThatIsNoViewController) {
    NSStoryboardSegue segue("open", container, window);
    container->prepare(segue, nullptr);
    const auto page = makeObject<Page>("page");
    PushPopSegue push("push", page, window);
    page->prepare(push, nullptr);
}

TEST_F(SlideNavigationTest, slidesLeftForPushAndRightForPopWhateverTextFollows) {
    for (const char* identifier : {"push", "push two", "pushing"}) {
        show();
        const auto made = segue(identifier);
        one->prepare(*made, nullptr);
        made->perform();
        EXPECT_EQ(made->option(), Options::slideLeft) << identifier;
        EXPECT_EQ(rawValue(made->option()), 64U);
    }
    for (const char* identifier : {"pop", "pop to it"}) {
        show();
        const auto made = segue(identifier);
        one->prepare(*made, nullptr);
        made->perform();
        EXPECT_EQ(made->option(), Options::slideRight) << identifier;
        EXPECT_EQ(rawValue(made->option()), 128U);
    }
}

TEST_F(SlideNavigationTest, letsAPushedPageInFromTheRight) {
    show();
    EXPECT_EQ(startOf("push two"), 300);
    animator->step(0.5);
    EXPECT_EQ(one->view()->frame().origin.x, -150);
}

TEST_F(SlideNavigationTest, letsAPoppedPageInFromTheLeft) {
    show();
    EXPECT_EQ(startOf("pop to it"), -300);
    animator->step(0.5);
    EXPECT_EQ(one->view()->frame().origin.x, 150);
}

TEST_F(SlideNavigationTest, usesTheOptionThatWasSetForAnyOtherIdentifier) {
    show();
    for (const char* identifier : {"", "Push"}) {
        const auto made = segue(identifier);
        EXPECT_EQ(made->option(), Options::none);
        made->perform();
        EXPECT_EQ(made->option(), Options::none) << identifier;
    }
    const auto made = segue("");
    one->prepare(*made, nullptr);
    made->setOption(Options::slideUp);
    made->perform();
    EXPECT_EQ(made->option(), Options::slideUp);
    EXPECT_EQ(container->children().back()->view()->frame().origin.y, 200);
}

TEST_F(SlideNavigationTest, doesNotSlideByItselfForAnotherIdentifier) {
    show();
    one->performSegue("", nullptr);
    EXPECT_THAT(animator->durations(), IsEmpty());
    ASSERT_EQ(container->children().size(), 1U);
    EXPECT_EQ(container->children()[0]->title(), "two");
    EXPECT_EQ(container->children()[0]->view()->frame(), CGRectMake(0, 0, 300, 200));
}

TEST_F(SlideNavigationTest, slidesForAThirdOfASecondWhateverTheGroupingAround) {
    show();
    NSAnimationContext::runAnimationGroup([&](NSAnimationContext& context) {
        context.setDuration(5);
        one->performSegue("push", nullptr);
    });
    EXPECT_THAT(animator->durations(), ElementsAre(0.33));
}

TEST_F(SlideNavigationTest, keepsBothPagesUntilTheSlideHasFinished) {
    show();
    one->performSegue("push", nullptr);
    ASSERT_EQ(container->children().size(), 2U);
    const auto two = std::dynamic_pointer_cast<Page>(container->children()[1]);
    EXPECT_EQ(two->finishedTransitions, 0);

    animator->finish();
    EXPECT_THAT(container->children(), ElementsAre(two));
    EXPECT_EQ(one->parent(), nullptr);
    EXPECT_EQ(one->view()->superview(), nullptr);
    EXPECT_EQ(two->finishedTransitions, 1);
    EXPECT_TRUE(two->wasShownAloneAtTheEnd);
    EXPECT_EQ(one->finishedTransitions, 0);
}

TEST_F(SlideNavigationTest, keepsTheNewPageAsLargeAsTheContainer) {
    show();
    one->performSegue("push", nullptr);
    animator->finish();
    window->setContentSize({500, 400});
    EXPECT_EQ(container->children().at(0)->view()->frame(), CGRectMake(0, 0, 500, 400));
}

TEST_F(SlideNavigationTest, slidesToViewControllersOfOtherClasses) {
    show();
    one->performSegue("push plain", nullptr);
    animator->finish();
    ASSERT_EQ(container->children().size(), 1U);
    EXPECT_EQ(container->children()[0]->representedObject(), Value("document"));
}

TEST_F(SlideNavigationTest, goesNowhereUnlessBothEndsAreViewControllers) {
    show();
    for (const auto& [from, to] :
         std::vector<std::pair<std::shared_ptr<NSObject>, std::shared_ptr<NSObject>>>{
             {one, window}, {window, one}, {one, nullptr}}) {
        PushPopSegue segue("push", from, to);
        segue.setContainerViewController(container);
        segue.perform();
        EXPECT_EQ(segue.option(), Options::none);
        EXPECT_THAT(container->children(), ElementsAre(one));
    }
}

TEST_F(SlideNavigationTest, goesNowhereWithoutAContainer) {
    const auto from = makeObject<Page>("from"), to = makeObject<Page>("to");
    const auto segue = makeObject<PushPopSegue>("push", from, to);
    from->prepare(*segue, nullptr);
    EXPECT_EQ(segue->containerViewController(), nullptr);
    segue->perform();
    EXPECT_EQ(to->parent(), nullptr);
    EXPECT_EQ(to->finishedTransitions, 0);
}

TEST_F(SlideNavigationTest, passesOnItsOwnRepresentedObjectWithoutANextOne) {
    show();
    one->performSegue("push", nullptr);
    EXPECT_EQ(container->children().at(1)->representedObject(), Value("document"));
}

TEST_F(SlideNavigationTest, passesOnTheNextRepresentedObject) {
    show();
    one->setNextRepresentedObject("page");
    one->performSegue("push", nullptr);
    EXPECT_EQ(container->children().at(1)->representedObject(), Value("page"));
}

TEST_F(SlideNavigationTest, preparesOnlyForSeguesThatPushOrPop) {
    show();
    one->setNextRepresentedObject("page");
    const auto other = storyboard->instantiateSegue("show", one);
    one->prepare(*other, nullptr);
    const auto destination =
        std::dynamic_pointer_cast<NSViewController>(other->destinationController());
    EXPECT_TRUE(destination->representedObject().isNothing());
}

TEST_F(SlideNavigationTest, hasNoContainerInAParentOfAnotherClass) {
    const auto parent = makeObject<NSViewController>();
    const auto page = makeObject<Page>("page");
    EXPECT_EQ(page->containerViewController(), nullptr);
    parent->addChild(page);
    EXPECT_EQ(page->containerViewController(), nullptr);
}

TEST_F(SlideNavigationTest, givesTheWindowTheTitleOfThePageThatAppears) {
    window->setTitle("before");
    show();
    EXPECT_EQ(window->title(), "one");
    one->performSegue("push", nullptr);
    EXPECT_EQ(window->title(), "one");
    animator->finish();
    EXPECT_EQ(window->title(), "two");
}

TEST_F(SlideNavigationTest, tellsOnceOfEachChangeOfItsKeys) {
    show();
    const auto observer = makeObject<test::Recorder>();
    container->addObserver(*observer, "embedSegueIdentifier", {});
    one->addObserver(*observer, "nextRepresentedObject", {});
    container->setEmbedSegueIdentifier("other");
    container->setValueForKey("another", "embedSegueIdentifier");
    one->setNextRepresentedObject("page");
    one->setValueForKey("other page", "nextRepresentedObject");
    EXPECT_THAT(test::toldKeys(*observer),
                ElementsAre("embedSegueIdentifier", "embedSegueIdentifier", "nextRepresentedObject",
                            "nextRepresentedObject"));
    EXPECT_EQ(one->nextRepresentedObject(), Value("other page"));
}

TEST_F(SlideNavigationTest, becomesAChildBeforeTheDirectionIsChosen) {
    show();
    const auto made = segue("push");
    one->prepare(*made, nullptr);
    std::vector<Options> chosen;
    const auto observer = makeObject<test::Recorder>();
    observer->then = [&] { chosen.push_back(made->option()); };
    container->addObserver(*observer, "children", {});
    made->perform();
    EXPECT_THAT(chosen, ElementsAre(Options::none));
    EXPECT_EQ(made->option(), Options::slideLeft);
}

TEST_F(SlideNavigationTest, leavesTheTitleToPagesThatHaveOne) {
    storyboard->registerScene("one", [] {
        auto page = makeObject<Page>("");
        page->setTitle(std::nullopt);
        return page;
    });
    window->setTitle("before");
    show();
    EXPECT_EQ(window->title(), "before");
}

TEST_F(SlideNavigationTest, endsTheSheetAndClosesItsWindowWhenAPageIsDismissed) {
    show();
    const auto parent = NSWindow::create({800, 600});
    parent->orderFront();
    window->orderOut();
    int ended = 0;
    parent->beginSheet(window, [&](NSModalResponse) { ++ended; });
    ASSERT_EQ(window->sheetParent(), parent);

    one->dismiss(nullptr);
    EXPECT_EQ(window->sheetParent(), nullptr);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(ended, 1);
    EXPECT_TRUE(parent->isVisible());
}

TEST_F(SlideNavigationTest, endsASheetThatNobodyElseHolds) {
    const auto host = makeObject<NSViewController>();
    const auto parent = NSWindow::create({800, 600});
    parent->setContentViewController(host);
    parent->orderFront();
    host->presentAsSheet(container);
    const std::weak_ptr<NSViewController> page = container->children().at(0);
    const std::weak_ptr<NSWindow> sheet = parent->attachedSheet();
    container = nullptr;

    NSApplication::shared().sendAction("dismiss:", page.lock(), nullptr);
    EXPECT_EQ(parent->attachedSheet(), nullptr);
    EXPECT_TRUE(sheet.expired());
    EXPECT_TRUE(page.expired());
}

TEST_F(SlideNavigationTest, dismissesAPageThatIsPresentedItself) {
    const auto host = makeObject<NSViewController>();
    const auto parent = NSWindow::create({800, 600});
    parent->setContentViewController(host);
    parent->orderFront();
    const auto page = makeObject<Page>("page");
    host->presentAsSheet(page);
    page->dismiss(nullptr);
    EXPECT_EQ(parent->attachedSheet(), nullptr);
    EXPECT_EQ(page->presentingViewController(), nullptr);
}

class Dismissed : public SlideNavigationViewController {
public:
    using Class = NSClassOf<Dismissed, SlideNavigationViewController>;

    void dismissController(NSObject* sender) override {
        NSViewController::dismissController(sender);
        dismissedBy = sender;
        wasSheet = view()->window()->sheetParent() != nullptr;
    }

    NSObject* dismissedBy = nullptr;
    bool wasSheet = false;
};

TEST_F(SlideNavigationTest, isDismissedItselfBeforeTheSheetEnds) {
    const auto parent = NSWindow::create({800, 600});
    const auto page = makeObject<Dismissed>();
    container->setEmbedSegueIdentifier("");
    container->view()->addSubview(page->view());
    window->setContentViewController(container);
    parent->beginSheet(window);
    page->dismiss(parent.get());
    EXPECT_EQ(page->dismissedBy, parent.get());
    EXPECT_TRUE(page->wasSheet);
    EXPECT_EQ(parent->attachedSheet(), nullptr);
}

TEST_F(SlideNavigationTest, mayBeHeldByItsSheetAloneWhenItIsDismissed) {
    const auto host = makeObject<NSViewController>();
    const auto parent = NSWindow::create({800, 600});
    parent->setContentViewController(host);
    auto presented = makeObject<Page>("page");
    Page& page = *presented;
    const std::weak_ptr<Page> observed = presented;
    host->presentAsSheet(std::exchange(presented, nullptr));
    page.dismiss(nullptr);
    EXPECT_TRUE(observed.expired());
    EXPECT_EQ(parent->attachedSheet(), nullptr);
}

TEST_F(SlideNavigationTest, closesAWindowThatIsNoSheet) {
    show();
    one->dismiss(nullptr);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(SlideNavigationTest, dismissesAPageWithoutAWindow) {
    const auto page = makeObject<Page>("page");
    page->dismiss(nullptr);
    EXPECT_EQ(page->view()->window(), nullptr);
}

}  // namespace
}  // namespace quorin
