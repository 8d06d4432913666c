#include "quorin/platform/ui/NSWindow.h"

#include "quorin/platform/ui/NSViewController.h"
#include "tests/TestSupport.h"
#include "tests/support/ToldKeys.h"

namespace quorin {
namespace {

std::shared_ptr<NSWindow> windowOf(const char* title = "") {
    auto window = NSWindow::create({300, 200});
    window->setTitle(title);
    return window;
}

TEST(NSWindow, hasAnEmptyViewOfItsSizeAtFirst) {
    const auto window = windowOf();
    const auto view = window->contentView();
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(window->contentView(), view);
    EXPECT_EQ(view->frame(), CGRectMake(0, 0, 300, 200));
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(window->contentViewController(), nullptr);
}

TEST(NSWindow, givesItsContentViewItsSize) {
    const auto window = windowOf();
    const auto outer = makeObject<NSView>();
    const auto view = makeObject<NSView>(CGRectMake(5, 5, 5, 5));
    outer->addSubview(view);
    const auto replaced = window->contentView();
    window->setContentView(view);
    EXPECT_EQ(view->frame(), CGRectMake(0, 0, 300, 200));
    EXPECT_TRUE(outer->subviews().empty());
    EXPECT_EQ(view->window(), window);
    EXPECT_EQ(replaced->window(), nullptr);
}

TEST(NSWindow, takesTheSizeOfItsControllersView) {
    const auto window = windowOf();
    const auto controller = makeObject<NSViewController>();
    window->setContentViewController(controller);
    EXPECT_EQ(window->contentSize(), (CGSize{300, 200}));
    EXPECT_EQ(controller->view()->frame(), CGRectMake(0, 0, 300, 200));
    const auto sized = makeObject<NSViewController>();
    sized->setView(makeObject<NSView>(CGRectMake(7, 7, 50, 60)));
    window->setContentViewController(sized);
    EXPECT_EQ(window->contentViewController(), sized);
    EXPECT_EQ(window->contentView(), sized->view());
    EXPECT_EQ(window->contentSize(), (CGSize{50, 60}));
    EXPECT_EQ(sized->view()->frame(), CGRectMake(0, 0, 50, 60));
    window->setContentViewController(nullptr);
    EXPECT_EQ(window->contentView(), sized->view());
}

TEST(NSWindow, laysItsContentOutWhenItsSizeChanges) {
    const auto window = windowOf();
    const auto child = makeObject<NSView>();
    window->contentView()->addSubview(child);
    window->contentView()->addConstraints(
        NSLayoutConstraint::constraints("H:|-0-[child]-0-|", {{"child", child}}));
    window->contentView()->addConstraints(
        NSLayoutConstraint::constraints("V:|-0-[child]-0-|", {{"child", child}}));
    window->orderFront();
    EXPECT_EQ(child->frame(), CGRectMake(0, 0, 300, 200));
    window->setContentSize({20, 30});
    EXPECT_EQ(child->frame(), CGRectMake(0, 0, 20, 30));
}

TEST(NSWindow, tellsWhoeverShowsIt) {
    const auto window = windowOf();
    const auto sheet = windowOf();
    const auto observer = makeObject<test::Recorder>();
    for (const char* key : {"title", "visible", "contentView", "contentSize", "sheets"})
        window->addObserver(*observer, key, NSKeyValueObservingOptions::newValue);
    window->setTitle("Size");
    window->setContentView(makeObject<NSView>());
    window->setContentSize({5, 5});
    window->orderFront();
    window->beginSheet(sheet);
    window->close();
    EXPECT_THAT(test::toldKeys(*observer),
                testing::ElementsAre("title", "contentView", "contentSize", "visible", "sheets",
                                     "sheets", "visible"));
    EXPECT_EQ(observer->lastNew(), Value(false));
}

TEST(NSWindow, marksThatItsDocumentIsEdited) {
    const auto window = windowOf();
    const auto observer = makeObject<test::Recorder>();
    window->addObserver(*observer, "documentEdited", NSKeyValueObservingOptions::newValue);
    EXPECT_FALSE(window->isDocumentEdited());
    window->setIsDocumentEdited(true);
    EXPECT_TRUE(window->isDocumentEdited());
    window->setValueForKey(false, "documentEdited");
    EXPECT_FALSE(window->isDocumentEdited());
    EXPECT_EQ(observer->told.size(), 2u);
    EXPECT_EQ(observer->lastNew(), Value(false));
}

TEST(NSWindow, showsASheetUntilItEnds) {
    const auto window = windowOf();
    const auto sheet = windowOf();
    std::vector<NSModalResponse> responses;
    window->orderFront();
    window->beginSheet(sheet, [&](NSModalResponse response) {
        EXPECT_FALSE(sheet->isVisible());
        EXPECT_EQ(sheet->sheetParent(), nullptr);
        responses.push_back(response);
    });
    EXPECT_TRUE(sheet->isVisible());
    EXPECT_EQ(sheet->sheetParent(), window);
    EXPECT_EQ(window->attachedSheet(), sheet);
    EXPECT_THAT(window->sheets(), testing::ElementsAre(sheet));
    window->endSheet(sheet, NSModalResponse::ok);
    EXPECT_THAT(responses, testing::ElementsAre(NSModalResponse::ok));
    EXPECT_EQ(window->attachedSheet(), nullptr);
    EXPECT_TRUE(window->isVisible());
    window->beginSheet(sheet);
    window->endSheet(sheet);
    EXPECT_EQ(responses.size(), 1u);
}

TEST(NSWindow, letsASheetWaitForTheOneBefore) {
    const auto window = windowOf();
    const auto one = windowOf();
    const auto two = windowOf();
    window->beginSheet(one, [&](NSModalResponse) { EXPECT_FALSE(two->isVisible()); });
    window->beginSheet(two);
    EXPECT_FALSE(two->isVisible());
    EXPECT_EQ(two->sheetParent(), window);
    window->endSheet(one);
    EXPECT_TRUE(two->isVisible());
    EXPECT_EQ(window->attachedSheet(), two);
}

TEST(NSWindow, endsTheRightSheetThoughAnObserverBeginsOthersBefore) {
    const auto window = windowOf();
    const auto sheet = windowOf();
    window->beginSheet(sheet);
    const auto observer = makeObject<test::Recorder>();
    observer->then = [&] {
        observer->then = nullptr;
        for (int i = 0; i < 8; ++i)
            window->beginSheet(windowOf());
    };
    window->addObserver(*observer, "sheets", NSKeyValueObservingOptions::prior);
    window->endSheet(sheet);
    EXPECT_EQ(window->sheets().size(), 8u);
    EXPECT_EQ(sheet->sheetParent(), nullptr);
    EXPECT_FALSE(sheet->isVisible());
    window->removeObserver(*observer, "sheets");
}

TEST(NSWindow, canBeClosedByTheCompletionOfASheetWhichMayBeginAnotherOne) {
    const auto window = windowOf();
    const auto one = windowOf();
    const auto two = windowOf();
    const auto three = windowOf();
    window->orderFront();
    std::vector<std::string> calls;
    window->beginSheet(one, [&](NSModalResponse) {
        calls.push_back("one");
        window->beginSheet(three, [&](NSModalResponse) { calls.push_back("three"); });
        window->close();
        calls.push_back("closed");
    });
    window->beginSheet(two, [&](NSModalResponse) { calls.push_back("two"); });
    window->endSheet(one);
    EXPECT_THAT(calls, testing::ElementsAre("one", "three", "two", "closed"));
    EXPECT_THAT(window->sheets(), testing::IsEmpty());
    for (const auto& each : {window, one, two, three})
        EXPECT_FALSE(each->isVisible());
}

TEST(NSWindow, holdsItsSheetsWhichDoNotHoldIt) {
    auto window = windowOf();
    std::weak_ptr<NSWindow> sheet;
    {
        const auto begun = windowOf();
        window->beginSheet(begun);
        sheet = begun;
    }
    const auto kept = sheet.lock();
    ASSERT_NE(kept, nullptr);
    window.reset();
    EXPECT_EQ(kept->sheetParent(), nullptr);
}

TEST(NSWindow, endsAsASheetWhenItIsClosed) {
    const auto window = windowOf();
    const auto sheet = windowOf();
    std::vector<NSModalResponse> responses;
    window->beginSheet(sheet, [&](NSModalResponse response) { responses.push_back(response); });
    sheet->close();
    EXPECT_EQ(window->attachedSheet(), nullptr);
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_THAT(responses, testing::ElementsAre(NSModalResponse::stop));
    sheet->close();
}

TEST(NSWindow, endsItsSheetsWhenItIsClosedWithoutShowingTheRest) {
    const auto window = windowOf();
    const auto one = windowOf("one");
    const auto two = windowOf("two");
    const auto observer = makeObject<test::Recorder>();
    two->addObserver(*observer, "visible", NSKeyValueObservingOptions::none);
    std::vector<std::string> ended;
    window->orderFront();
    window->beginSheet(one, [&](NSModalResponse) { ended.push_back("one"); });
    window->beginSheet(two, [&](NSModalResponse) { ended.push_back("two"); });
    window->close();
    EXPECT_THAT(ended, testing::ElementsAre("two", "one"));
    EXPECT_TRUE(observer->told.empty());
    EXPECT_FALSE(window->isVisible());
}

TEST(NSWindowDeathTest, refusesSheetsThatAreNoneOfItsOwn) {
    const auto window = windowOf("Document");
    const auto sheet = windowOf("Size");
    EXPECT_DEATH(window->beginSheet(window), "the window \"Document\" cannot be a sheet of itself");
    EXPECT_DEATH(window->endSheet(sheet),
                 "the window \"Size\" is no sheet of the window \"Document\"");
    window->beginSheet(sheet);
    EXPECT_DEATH(windowOf()->beginSheet(sheet), "the window \"Size\" is a sheet already");
}

TEST(NSWindowDeathTest, hasAContentViewOfItsOwn) {
    const auto window = windowOf("Document");
    EXPECT_DEATH(window->setContentView(nullptr), "the window \"Document\" without a content view");
    EXPECT_DEATH(windowOf()->setContentView(window->contentView()),
                 "is the content of another window");
}

}  // namespace
}  // namespace quorin
