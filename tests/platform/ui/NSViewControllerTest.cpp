#include "quorin/platform/ui/NSViewController.h"

#include "quorin/platform/foundation/JSONDecoder.h"
#include "quorin/platform/ui/NSApplication.h"
#include "quorin/platform/ui/NSWindow.h"
#include "tests/TestSupport.h"
#include "tests/support/ToldKeys.h"
#include "tests/support/ViewControllers.h"

namespace quorin {
namespace {

using test::NotingController;

std::shared_ptr<NSViewController> controllerOf() { return makeObject<NSViewController>(); }

TEST(NSViewController, keepsWhereItsViewComesFrom) {
    EXPECT_EQ(controllerOf()->nibName(), std::nullopt);
    const auto named = makeObject<NSViewController>("DocumentSize", Bundle("/resources"));
    EXPECT_EQ(named->nibName(), "DocumentSize");
    EXPECT_EQ(named->nibBundle()->folder(), "/resources");
}

TEST(NSViewController, isReadFromARecord) {
    const auto decoded = [](std::string_view text) {
        std::shared_ptr<NSViewController> controller;
        JSONDecoder().decode(
            text, [&](Decoder& coder) { controller = makeObject<NSViewController>(coder); });
        return controller;
    };
    const auto named = decoded(R"({"nibName": "DocumentSize", "title": "Size"})");
    EXPECT_EQ(named->nibName(), "DocumentSize");
    EXPECT_EQ(named->title(), "Size");
    const auto plain = decoded("{}");
    EXPECT_EQ(plain->nibName(), std::nullopt);
    EXPECT_EQ(plain->title(), std::nullopt);
    EXPECT_THROW(decoded(R"({"title": 5})"), DecodingError);
}

TEST(NSViewController, loadsItsViewOnceWhenItIsAskedForIt) {
    std::vector<std::string> calls;
    const auto controller = makeObject<NotingController>("", calls);
    EXPECT_FALSE(controller->isViewLoaded());
    EXPECT_TRUE(calls.empty());
    const auto view = controller->view();
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(controller->view(), view);
    EXPECT_TRUE(controller->isViewLoaded());
    EXPECT_THAT(calls, testing::ElementsAre("loadView", "viewDidLoad"));
}

TEST(NSViewController, takesAViewThatWasSetForTheLoadedOne) {
    std::vector<std::string> calls;
    const auto controller = makeObject<NotingController>("", calls);
    const auto view = makeObject<NSView>();
    controller->setView(view);
    EXPECT_TRUE(controller->isViewLoaded());
    EXPECT_EQ(controller->view(), view);
    EXPECT_EQ(controller->view(), view);
    EXPECT_THAT(calls, testing::ElementsAre("viewDidLoad"));
}

TEST(NSViewController, loadsItsViewAgainAfterThatWasTakenAway) {
    std::vector<std::string> calls;
    const auto controller = makeObject<NotingController>("", calls);
    const std::weak_ptr<NSView> first = controller->view();
    controller->setView(nullptr);
    EXPECT_FALSE(controller->isViewLoaded());
    EXPECT_TRUE(first.expired());
    calls.clear();
    EXPECT_NE(controller->view(), nullptr);
    EXPECT_THAT(calls, testing::ElementsAre("loadView", "viewDidLoad"));
}

class Asking : public NSViewController {
public:
    using Class = NSClassOf<Asking, NSViewController>;
    void viewDidLoad() override { seen = view(); }
    std::shared_ptr<NSView> seen;
};

TEST(NSViewController, canAskForItsViewWhileThatIsLoaded) {
    const auto controller = makeObject<Asking>();
    EXPECT_EQ(controller->view(), controller->seen);
}

TEST(NSViewController, hasItsNamedViewLoadedByTheHost) {
    std::vector<std::string> calls;
    const auto view = makeObject<NSView>();
    NSApplication::shared().setNibLoader([&](NSViewController& owner) {
        calls.push_back(std::string("load ").append(*owner.nibName()));
        return view;
    });
    const auto named = makeObject<NotingController>("DocumentSize", calls);
    EXPECT_EQ(named->view(), view);
    EXPECT_THAT(calls,
                testing::ElementsAre("DocumentSize loadView", "load DocumentSize",
                                     "DocumentSize awakeFromNib", "DocumentSize viewDidLoad"));
    EXPECT_NE(controllerOf()->view(), view);
    NSApplication::shared().setNibLoader({});
}

TEST(NSViewController, tellsOfItsTitleAndItsRepresentedObject) {
    const auto controller = controllerOf();
    const auto observer = makeObject<test::Recorder>();
    for (const char* key : {"title", "representedObject", "children"})
        controller->addObserver(*observer, key, NSKeyValueObservingOptions::newValue);
    controller->setTitle("Size");
    controller->setValueForKey(5, "representedObject");
    controller->addChild(controllerOf());
    EXPECT_EQ(controller->title(), "Size");
    EXPECT_EQ(controller->representedObject(), Value(5));
    EXPECT_THAT(test::toldKeys(*observer),
                testing::ElementsAre("title", "representedObject", "children"));
}

TEST(NSViewController, holdsItsChildrenInOrder) {
    const auto parent = controllerOf();
    const auto one = controllerOf();
    const auto two = controllerOf();
    const auto three = controllerOf();
    parent->addChild(one);
    parent->addChild(three);
    parent->insertChild(two, 1);
    EXPECT_THAT(parent->children(), testing::ElementsAre(one, two, three));
    EXPECT_EQ(two->parent(), parent);
    parent->addChild(one);
    EXPECT_THAT(parent->children(), testing::ElementsAre(two, three, one));
    three->removeFromParent();
    EXPECT_EQ(three->parent(), nullptr);
    parent->removeChildAt(1);
    EXPECT_THAT(parent->children(), testing::ElementsAre(two));
    one->removeFromParent();
    EXPECT_EQ(one->parent(), nullptr);
}

TEST(NSViewController, takesAChildFromItsOtherParent) {
    const auto one = controllerOf();
    const auto two = controllerOf();
    const auto child = controllerOf();
    one->addChild(child);
    two->addChild(child);
    EXPECT_TRUE(one->children().empty());
    EXPECT_EQ(child->parent(), two);
}

TEST(NSViewController, holdsItsChildrenWhichDoNotHoldIt) {
    auto parent = controllerOf();
    const auto child = controllerOf();
    parent->addChild(child);
    EXPECT_EQ(child.use_count(), 2);
    parent.reset();
    EXPECT_EQ(child->parent(), nullptr);
    EXPECT_EQ(child.use_count(), 1);
}

TEST(NSViewController, isNotHeldByItsView) {
    auto controller = controllerOf();
    const auto view = controller->view();
    const std::weak_ptr<NSViewController> weak = controller;
    controller.reset();
    EXPECT_TRUE(weak.expired());
    const auto other = controllerOf();
    other->setView(view);
    EXPECT_EQ(other->view(), view);
}

TEST(NSViewController, isPresentedInASheetUntilItIsDismissed) {
    const auto window = NSWindow::create({300, 200});
    const auto presenting = controllerOf();
    window->setContentViewController(presenting);
    const auto presented = controllerOf();
    presented->setView(makeObject<NSView>(CGRectMake(0, 0, 100, 50)));
    presenting->presentAsSheet(presented);
    EXPECT_EQ(presented->presentingViewController(), presenting);
    ASSERT_NE(window->attachedSheet(), nullptr);
    EXPECT_TRUE(window->attachedSheet()->isVisible());
    EXPECT_EQ(window->attachedSheet()->contentSize(), (CGSize{100, 50}));
    EXPECT_EQ(presented->view()->window(), window->attachedSheet());

    NSApplication::shared().sendAction("dismissController:", presented, nullptr);
    EXPECT_EQ(window->attachedSheet(), nullptr);
    EXPECT_EQ(presented->presentingViewController(), nullptr);
    presented->dismissController(nullptr);
}

TEST(NSViewController, canBeDismissedAfterItsSheetHasGoneWithTheWindow) {
    auto window = NSWindow::create();
    const auto presenting = controllerOf();
    window->setContentViewController(presenting);
    const auto presented = controllerOf();
    presenting->presentAsSheet(presented);
    window.reset();
    presented->dismissController(nullptr);
    EXPECT_EQ(presented->presentingViewController(), nullptr);
}

TEST(NSViewControllerDeathTest, cannotBeItsOwnChild) {
    const auto parent = controllerOf();
    const auto child = controllerOf();
    parent->addChild(child);
    EXPECT_DEATH(parent->addChild(parent), "cannot be a child of itself");
    EXPECT_DEATH(child->addChild(parent), "cannot be a child of itself");
    EXPECT_DEATH(parent->insertChild(controllerOf(), 2), "child controller 2 of 1");
    EXPECT_DEATH(parent->removeChildAt(1), "child controller 1 of 1");
}

class Empty : public NSViewController {
public:
    using Class = NSClassOf<Empty, NSViewController>;
    void loadView() override {}
};

TEST(NSViewControllerDeathTest, hasToLoadAViewOfItsOwn) {
    EXPECT_DEATH(makeObject<Empty>()->view(), "<Empty: 0x[0-9a-f]+> loaded no view");
    const auto one = controllerOf();
    EXPECT_DEATH(controllerOf()->setView(one->view()), "is the view of another controller");
}

TEST(NSViewControllerDeathTest, presentsFromAWindowAndDismissesWhatItPresents) {
    const auto one = controllerOf();
    EXPECT_DEATH(one->presentAsSheet(controllerOf()), "presents a sheet without a window");
    EXPECT_DEATH(one->dismissViewController(*controllerOf()), "is not presented by");
}

}  // namespace
}  // namespace quorin
