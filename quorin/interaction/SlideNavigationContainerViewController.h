#pragma once

#include <memory>
#include <string>

#include "quorin/platform/ui/NSViewController.h"

namespace quorin {

/// Shows one child at a time, which fills its view. `PushPopSegue` slides from one to the next.
class SlideNavigationContainerViewController : public NSViewController {
public:
    using Class = NSClassOf<SlideNavigationContainerViewController, NSViewController>;
    static void declareKeys(NSKeyList<SlideNavigationContainerViewController>& keys);

    using NSViewController::NSViewController;

    /// The segue to the first child, which is performed when the view has loaded. Empty for none:
    /// then whoever uses the container puts the child into it.
    const std::string& embedSegueIdentifier() const { return _embedSegueIdentifier; }
    void setEmbedSegueIdentifier(std::string identifier);

    void viewDidLoad() override;

    /// Hands the represented object on to the destination.
    void prepare(NSStoryboardSegue& forSegue, NSObject* sender) override;

private:
    std::string _embedSegueIdentifier;
};

}  // namespace quorin
