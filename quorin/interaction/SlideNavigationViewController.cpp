#include "quorin/interaction/SlideNavigationViewController.h"

#include <utility>

#include "quorin/interaction/PushPopSegue.h"
#include "quorin/platform/ui/NSWindow.h"

namespace quorin {

void SlideNavigationViewController::declareKeys(NSKeyList<SlideNavigationViewController>& keys) {
    keys.reportingProperty("nextRepresentedObject",
                           &SlideNavigationViewController::nextRepresentedObject,
                           &SlideNavigationViewController::setNextRepresentedObject);
}

void SlideNavigationViewController::declareActions(
    NSActionList<SlideNavigationViewController>& actions) {
    actions.action("dismiss:", &SlideNavigationViewController::dismiss);
}

void SlideNavigationViewController::setNextRepresentedObject(Value object) {
    changeValues({"nextRepresentedObject"}, [&] { _nextRepresentedObject = std::move(object); });
}

std::shared_ptr<SlideNavigationContainerViewController>
SlideNavigationViewController::containerViewController() const {
    return std::dynamic_pointer_cast<SlideNavigationContainerViewController>(parent());
}

void SlideNavigationViewController::prepare(NSStoryboardSegue& forSegue, NSObject* sender) {
    NSViewController::prepare(forSegue, sender);
    auto* segue = dynamic_cast<PushPopSegue*>(&forSegue);
    if (!segue)
        return;
    segue->setContainerViewController(containerViewController());
    if (auto* next = dynamic_cast<NSViewController*>(segue->destinationController().get()))
        next->setRepresentedObject(_nextRepresentedObject.isNothing() ? representedObject()
                                                                      : _nextRepresentedObject);
}

void SlideNavigationViewController::viewDidAppear() {
    NSViewController::viewDidAppear();
    const auto window = view()->window();
    if (window && title())
        window->setTitle(*title());
}

void SlideNavigationViewController::dismiss(NSObject* sender) {
    const auto kept = shared_from_this();  // the sheet may be all that holds its controllers
    dismissController(sender);
    const auto window = view()->window();
    if (!window)
        return;
    if (const auto sheetParent = window->sheetParent())
        sheetParent->endSheet(window);
    window->close();
}

}  // namespace quorin
