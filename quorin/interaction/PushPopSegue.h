#pragma once

#include <memory>

#include "quorin/interaction/SlideNavigationContainerViewController.h"
#include "quorin/platform/ui/NSStoryboardSegue.h"
#include "quorin/platform/ui/NSViewController.h"

namespace quorin {

/// Slides from one child of a container to a new one: leftwards when the identifier begins with
/// "push", rightwards when it begins with "pop".
class PushPopSegue : public NSStoryboardSegue {
public:
    using Class = NSClassOf<PushPopSegue, NSStoryboardSegue>;

    using NSStoryboardSegue::NSStoryboardSegue;

    /// Told by the child from which the segue leads. Without one there is no slide.
    const std::shared_ptr<SlideNavigationContainerViewController>& containerViewController() const {
        return _containerViewController;
    }
    void setContainerViewController(
        std::shared_ptr<SlideNavigationContainerViewController> container);

    /// For an identifier that says no direction; none at first.
    NSViewController::TransitionOptions option() const { return _option; }
    void setOption(NSViewController::TransitionOptions option) { _option = option; }

    /// Makes the destination a child of the container, and slides to it in 0.33 seconds. Then the
    /// source is a child no more, and the destination is told. Does nothing unless both are view
    /// controllers, and goes nowhere from a source that slides away already: two clicks on one page
    /// are one step. When the source still slides in, it is brought to its place at once.
    void perform() override;

private:
    void slide(const std::shared_ptr<NSViewController>& from,
               const std::shared_ptr<NSViewController>& to) const;

    std::shared_ptr<SlideNavigationContainerViewController> _containerViewController;
    NSViewController::TransitionOptions _option{};
};

}  // namespace quorin
