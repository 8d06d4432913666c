#include <utility>

#include "quorin/platform/ui/NSAnimationContext.h"
#include "quorin/platform/ui/NSViewController.h"
#include "quorin/platform/ui/appearance/ViewAppearance.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {

namespace {

using Options = NSViewControllerTransitionOptions;

constexpr Options slides =
    Options::slideUp | Options::slideDown | Options::slideLeft | Options::slideRight;

/// One view taking the place of another one.
class ViewExchange {
public:
    ViewExchange(std::shared_ptr<NSView> leaving, std::shared_ptr<NSView> coming, Options given)
        : oldView(std::move(leaving)),
          newView(std::move(coming)),
          options(given),
          place(oldView->frame()),
          oldAlpha(oldView->alphaValue()),
          newAlpha(newView->alphaValue()) {
        const auto sign = [&](Options forwards, Options backwards) {
            return static_cast<CGFloat>(contains(options, forwards)) -
                   static_cast<CGFloat>(contains(options, backwards));
        };
        way.dx = sign(Options::slideRight, Options::slideLeft) * place.size.width;
        way.dy = sign(Options::slideDown, Options::slideUp) * place.size.height;
    }

    bool takesTime() const { return !isEmpty(options & (slides | Options::crossfade)); }

    void show(double progress) const {
        oldView->setFrame(CGRectOffset(place, way.dx * progress, way.dy * progress));
        newView->setFrame(CGRectOffset(place, way.dx * (progress - 1), way.dy * (progress - 1)));
        if (contains(options, Options::crossfade)) {
            oldView->setAlphaValue(oldAlpha * (1 - progress));
            newView->setAlphaValue(newAlpha * progress);
        }
    }

    /// The old view, being out of sight, is as it was before.
    void finish() const {
        oldView->setFrame(place);
        oldView->setAlphaValue(oldAlpha);
    }

private:
    std::shared_ptr<NSView> oldView, newView;
    Options options;
    CGRect place;
    CGFloat oldAlpha, newAlpha;
    CGVector way;  // how far both views move
};

}  // namespace

void NSViewController::transition(const std::shared_ptr<NSViewController>& from,
                                  const std::shared_ptr<NSViewController>& to,
                                  TransitionOptions options,
                                  std::function<void()> completionHandler) {
    for (const auto& controller : {from, to})
        if (controller->parent().get() != this)
            fatalError(controller->description().append(" is no child of ").append(description()));
    if (from == to)
        fatalError(from->description().append(" cannot take its own place"));

    const auto oldView = from->view();
    const auto newView = to->view();
    const auto container = oldView->superview();
    if (!container) {
        if (completionHandler)
            completionHandler();
        return;
    }

    newView->removeFromSuperview();
    const ViewExchange exchange(oldView, newView, options);
    const ViewAppearance arriving(*newView);
    const ViewAppearance leaving(*oldView);
    const bool isSeen = container->isOnScreen();
    if (isSeen) {
        leaving.willDisappear();
        arriving.willAppear();
    }
    exchange.show(exchange.takesTime() ? 0 : 1);
    container->attachSubview(newView, container->placeInFrontOf(*oldView));

    const auto finish = [=, completion = std::move(completionHandler)] {
        oldView->detachFromSuperview();
        exchange.finish();
        if (isSeen) {
            leaving.didDisappear();
            arriving.didAppear();
        }
        if (completion)
            completion();
    };
    if (exchange.takesTime())
        NSAnimationContext::animate([=](double progress) { exchange.show(progress); }, finish);
    else
        finish();
}

}  // namespace quorin
