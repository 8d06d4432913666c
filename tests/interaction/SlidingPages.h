#pragma once

#include <memory>
#include <string>
#include <vector>

#include "quorin/interaction/PushPopSegue.h"
#include "quorin/interaction/SlideNavigationContainerViewController.h"
#include "quorin/interaction/SlideNavigationViewController.h"
#include "quorin/platform/ui/NSApplication.h"
#include "quorin/platform/ui/NSEmbedSegue.h"
#include "quorin/platform/ui/NSStoryboard.h"
#include "quorin/platform/ui/NSWindow.h"
#include "tests/TestSupport.h"
#include "tests/support/HandAnimator.h"

namespace quorin::test {

class Page : public SlideNavigationViewController {
public:
    using Class = NSClassOf<Page, SlideNavigationViewController>;

    explicit Page(const std::string& name) { setTitle(name); }

    void transitionDidFinish() override {
        ++finishedTransitions;
        wasShownAloneAtTheEnd = parent() && parent()->children().size() == 1;
    }

    int finishedTransitions = 0;
    bool wasShownAloneAtTheEnd = false;
};

/// A window whose content is a container with a first page, and other pages to go to.
struct SlidingPages : testing::Test {
    SlidingPages() {
        storyboard->registerScene(
            "container", [] { return makeObject<SlideNavigationContainerViewController>(); });
        for (const char* name : {"one", "two"})
            storyboard->registerScene(name, [name] { return makeObject<Page>(name); });
        storyboard->registerScene("plain", [] { return makeObject<NSViewController>(); });
        storyboard->registerSegue<NSEmbedSegue>("embed", "container", "one");
        for (const char* identifier :
             {"push", "push two", "pushing", "pop", "pop to it", "", "Push"})
            storyboard->registerSegue<PushPopSegue>(identifier, "one", "two");
        storyboard->registerSegue<PushPopSegue>("push plain", "one", "plain");
        storyboard->registerSegue<NSStoryboardSegue>("show", "one", "two");

        container = std::dynamic_pointer_cast<SlideNavigationContainerViewController>(
            storyboard->instantiateController("container"));
        container->setEmbedSegueIdentifier("embed");
        container->setRepresentedObject("document");
        NSApplication::shared().setAnimator(animator);
    }

    ~SlidingPages() override { NSApplication::shared().setAnimator(nullptr); }

    void show() {
        container->view()->setFrame(CGRectMake(0, 0, 300, 200));
        window->setContentViewController(container);
        window->orderFront();
        one = std::dynamic_pointer_cast<Page>(container->children().at(0));
    }

    std::shared_ptr<PushPopSegue> segue(const std::string& identifier) {
        return std::dynamic_pointer_cast<PushPopSegue>(
            storyboard->instantiateSegue(identifier, one));
    }

    /// Where the newest page is when the slide begins.
    CGFloat startOf(const std::string& identifier) {
        one->performSegue(identifier, nullptr);
        return container->children().back()->view()->frame().origin.x;
    }

    std::shared_ptr<NSStoryboard> storyboard = NSStoryboard::create();
    std::shared_ptr<HandAnimator> animator = std::make_shared<HandAnimator>();
    std::shared_ptr<NSWindow> window = NSWindow::create();
    std::shared_ptr<SlideNavigationContainerViewController> container;
    std::shared_ptr<Page> one;
};

}  // namespace quorin::test
