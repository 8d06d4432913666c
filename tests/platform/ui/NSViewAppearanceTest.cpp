#include "quorin/platform/ui/NSWindow.h"
#include "tests/TestSupport.h"
#include "tests/support/ViewControllers.h"

namespace quorin {
namespace {

using test::NotingController;

/// Controllers whose calls are written down, loaded before the test begins.
struct NSViewAppearanceTest : testing::Test {
    std::shared_ptr<NotingController> noting(const char* name) {
        auto controller = makeObject<NotingController>(name, calls);
        controller->view();
        calls.clear();
        return controller;
    }

    /// What was called since the last question.
    std::vector<std::string> taken() { return std::exchange(calls, {}); }

    std::vector<std::string> calls;
    std::shared_ptr<NSWindow> window = NSWindow::create();
};

TEST_F(NSViewAppearanceTest, followsTheWindowComingAndGoing) {
    const auto outer = noting("outer");
    const auto inner = noting("inner");
    outer->view()->addSubview(inner->view());
    window->setContentViewController(outer);
    EXPECT_THAT(taken(), testing::IsEmpty());
    window->orderFront();
    EXPECT_THAT(taken(), testing::ElementsAre("outer viewWillAppear", "inner viewWillAppear",
                                              "outer viewDidAppear", "inner viewDidAppear"));
    window->orderFront();
    EXPECT_THAT(taken(), testing::IsEmpty());
    window->orderOut();
    EXPECT_THAT(taken(), testing::ElementsAre("outer viewWillDisappear", "inner viewWillDisappear",
                                              "outer viewDidDisappear", "inner viewDidDisappear"));
    window->close();
    EXPECT_THAT(taken(), testing::IsEmpty());
}

TEST_F(NSViewAppearanceTest, followsTheViewIntoAVisibleWindowAndOut) {
    const auto controller = noting("child");
    window->contentView()->addSubview(controller->view());
    controller->view()->removeFromSuperview();
    EXPECT_THAT(taken(), testing::IsEmpty());
    window->orderFront();
    window->contentView()->addSubview(controller->view());
    EXPECT_THAT(taken(), testing::ElementsAre("child viewWillAppear", "child viewDidAppear"));
    controller->view()->removeFromSuperview();
    EXPECT_THAT(taken(), testing::ElementsAre("child viewWillDisappear", "child viewDidDisappear"));
}

class Looking : public NSViewController {
public:
    using Class = NSClassOf<Looking, NSViewController>;
    void viewWillAppear() override { note(); }
    void viewDidAppear() override { note(); }
    void viewWillDisappear() override { note(); }
    void viewDidDisappear() override { note(); }
    void note() { wasInWindow.push_back(view()->window() != nullptr); }
    std::vector<bool> wasInWindow;
};

TEST_F(NSViewAppearanceTest, isAnnouncedBeforeTheViewIsThere) {
    const auto controller = makeObject<Looking>();
    window->orderFront();
    window->contentView()->addSubview(controller->view());
    controller->view()->removeFromSuperview();
    EXPECT_THAT(controller->wasInWindow, testing::ElementsAre(false, true, true, false));
}

TEST_F(NSViewAppearanceTest, followsTheContentOfAWindow) {
    const auto one = noting("one");
    const auto two = noting("two");
    window->orderFront();
    window->setContentViewController(one);
    EXPECT_THAT(taken(), testing::ElementsAre("one viewWillAppear", "one viewDidAppear"));
    window->setContentViewController(two);
    EXPECT_THAT(taken(), testing::ElementsAre("one viewWillDisappear", "two viewWillAppear",
                                              "one viewDidDisappear", "two viewDidAppear"));
}

TEST_F(NSViewAppearanceTest, reachesAControllerThatOnlyTheWindowHeld) {
    window->setContentViewController(noting("one"));
    window->orderFront();
    taken();
    window->setContentViewController(noting("two"));
    EXPECT_THAT(taken(), testing::ElementsAre("one viewWillDisappear", "two viewWillAppear",
                                              "one viewDidDisappear", "two viewDidAppear"));
}

TEST_F(NSViewAppearanceTest, endsWithTheWindow) {
    const auto controller = noting("child");
    window->contentView()->addSubview(controller->view());
    window->orderFront();
    taken();
    window.reset();
    EXPECT_THAT(taken(), testing::ElementsAre("child viewWillDisappear", "child viewDidDisappear"));
}

class Fleeting : public NotingController {
public:
    using Class = NSClassOf<Fleeting, NotingController>;
    using NotingController::NotingController;
    void viewDidAppear() override {
        NotingController::viewDidAppear();
        view()->removeFromSuperview();
    }
};

TEST_F(NSViewAppearanceTest, bearsAViewThatLeavesAsItAppears) {
    const auto controller = makeObject<Fleeting>("child", calls);
    window->orderFront();
    window->contentView()->addSubview(controller->view());
    EXPECT_THAT(taken(), testing::ElementsAre("child loadView", "child viewDidLoad",
                                              "child viewWillAppear", "child viewDidAppear",
                                              "child viewWillDisappear", "child viewDidDisappear"));
    EXPECT_TRUE(window->contentView()->subviews().empty());
}

}  // namespace
}  // namespace quorin
