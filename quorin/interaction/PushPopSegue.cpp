#include "quorin/interaction/PushPopSegue.h"

#include <utility>

#include "quorin/interaction/SlideNavigationViewController.h"
#include "quorin/platform/ui/NSAnimationContext.h"

namespace quorin {
namespace {

constexpr double slideDuration = 0.33;  // seconds

void finishSlide(NSViewController& from, const std::shared_ptr<NSViewController>& to) {
    from.removeFromParent();
    if (const auto outside = to->view()->superview()) {
        outside->pinToEdges(to->view());
        outside->layoutSubtreeIfNeeded();
    }
    if (auto* child = dynamic_cast<SlideNavigationViewController*>(to.get()))
        child->transitionDidFinish();
}

}  // namespace

void PushPopSegue::setContainerViewController(
    std::shared_ptr<SlideNavigationContainerViewController> container) {
    _containerViewController = std::move(container);
}

void PushPopSegue::perform() {
    const auto from = std::dynamic_pointer_cast<NSViewController>(sourceController());
    const auto to = std::dynamic_pointer_cast<NSViewController>(destinationController());
    if (!from || !to)
        return;
    // A second click on a page that slides away already is no second step, and one on a page that
    // still comes in leads on from where that will stand.
    if (!from->isBeingReplaced())
        from->endTransition();
    const bool goes = _containerViewController && !from->isBeingReplaced();
    if (goes)
        _containerViewController->addChild(to);
    if (identifier().starts_with("push"))
        _option = NSViewController::TransitionOptions::slideLeft;
    else if (identifier().starts_with("pop"))
        _option = NSViewController::TransitionOptions::slideRight;
    if (goes)
        slide(from, to);
}

void PushPopSegue::slide(const std::shared_ptr<NSViewController>& from,
                         const std::shared_ptr<NSViewController>& to) const {
    NSAnimationContext::runAnimationGroup([&](NSAnimationContext& context) {
        context.setDuration(slideDuration);
        _containerViewController->transition(from, to, _option,
                                             [from, to] { finishSlide(*from, to); });
    });
}

}  // namespace quorin
