#pragma once

#include <memory>

#include "quorin/interaction/SlideNavigationContainerViewController.h"
#include "quorin/platform/ui/NSViewController.h"

namespace quorin {

/// One of the views between which a sheet pages.
class SlideNavigationViewController : public NSViewController {
public:
    using Class = NSClassOf<SlideNavigationViewController, NSViewController>;
    static void declareKeys(NSKeyList<SlideNavigationViewController>& keys);
    /// Names "dismiss:".
    static void declareActions(NSActionList<SlideNavigationViewController>& actions);

    using NSViewController::NSViewController;

    /// What the next child gets as its represented object; nothing for this child's own.
    const Value& nextRepresentedObject() const { return _nextRepresentedObject; }
    void setNextRepresentedObject(Value object);

    /// The parent, if it is one; else null.
    std::shared_ptr<SlideNavigationContainerViewController> containerViewController() const;

    /// Tells a `PushPopSegue` its container, and the destination what it represents.
    void prepare(NSStoryboardSegue& forSegue, NSObject* sender) override;

    /// Gives the window the title of this child, if it has one.
    void viewDidAppear() override;

    /// Called when a slide into this child has finished.
    virtual void transitionDidFinish() {}

    /// Ends the whole sheet and closes its window.
    virtual void dismiss(NSObject* sender);

private:
    Value _nextRepresentedObject;
};

}  // namespace quorin
