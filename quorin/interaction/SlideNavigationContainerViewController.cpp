#include "quorin/interaction/SlideNavigationContainerViewController.h"

#include <utility>

#include "quorin/platform/ui/NSStoryboardSegue.h"

namespace quorin {

void SlideNavigationContainerViewController::declareKeys(
    NSKeyList<SlideNavigationContainerViewController>& keys) {
    keys.reportingProperty("embedSegueIdentifier",
                           &SlideNavigationContainerViewController::embedSegueIdentifier,
                           &SlideNavigationContainerViewController::setEmbedSegueIdentifier);
}

void SlideNavigationContainerViewController::setEmbedSegueIdentifier(std::string identifier) {
    changeValues({"embedSegueIdentifier"}, [&] { _embedSegueIdentifier = std::move(identifier); });
}

void SlideNavigationContainerViewController::viewDidLoad() {
    NSViewController::viewDidLoad();
    if (!_embedSegueIdentifier.empty())
        performSegue(_embedSegueIdentifier, this);
}

void SlideNavigationContainerViewController::prepare(NSStoryboardSegue& forSegue,
                                                     NSObject* sender) {
    NSViewController::prepare(forSegue, sender);
    if (auto* next = dynamic_cast<NSViewController*>(forSegue.destinationController().get()))
        next->setRepresentedObject(representedObject());
}

}  // namespace quorin
