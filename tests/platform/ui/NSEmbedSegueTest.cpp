#include "quorin/platform/ui/NSEmbedSegue.h"

#include "quorin/platform/ui/NSStoryboard.h"
#include "quorin/platform/ui/NSWindow.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

TEST(NSEmbedSegue, fillsTheSourceWithItsNewChild) {
    const auto storyboard = NSStoryboard::create();
    const auto scene = [] { return makeObject<NSViewController>(); };
    storyboard->registerScene("outside", scene);
    storyboard->registerScene("inside", scene);
    storyboard->registerSegue<NSEmbedSegue>("embed", "outside", "inside");
    const auto source = storyboard->instantiateInitialController();
    const auto window = NSWindow::create({300, 200});
    window->setContentViewController(source);
    source->performSegue("embed", nullptr);

    ASSERT_EQ(source->children().size(), 1u);
    const auto child = source->children()[0];
    EXPECT_EQ(child->view()->superview(), source->view());
    EXPECT_EQ(child->view()->frame(), CGRectMake(0, 0, 300, 200));
    window->setContentSize({400, 500});
    EXPECT_EQ(child->view()->frame(), CGRectMake(0, 0, 400, 500));
}

TEST(NSEmbedSegueDeathTest, embedsViewControllersOnly) {
    const auto controller = makeObject<NSViewController>();
    EXPECT_DEATH(makeObject<NSEmbedSegue>("embed", controller, makeObject<NSView>())->perform(),
                 "the segue \"embed\" embeds what is no view controller");
}

}  // namespace
}  // namespace quorin
