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

}  // namespace

/// The view of one controller taking the place of another one's.
class NSViewController::Transition {
public:
    Transition(std::shared_ptr<NSViewController> leaving, std::shared_ptr<NSViewController> coming,
               TransitionOptions given, std::function<void()> handler)
        : from(std::move(leaving)),
          to(std::move(coming)),
          oldView(from->view()),
          newView(to->view()),
          container(oldView->superview()),
          options(given),
          completion(std::move(handler)),
          place(oldView->frame()),
          oldFrame(place),
          oldAlpha(oldView->alphaValue()),
          newAlpha(newView->alphaValue()) {}

    bool takesTime() const { return !isEmpty(options & (slides | Options::crossfade)); }

    /// From here on both views are in the container.
    void begin() {
        const auto outside = container.lock();
        if (outside->isOnScreen()) {
            ViewAppearance(*oldView).willDisappear();
            ViewAppearance(*newView).willAppear();
        }
        show(takesTime() ? 0 : 1);
        outside->attachSubview(newView, outside->placeInFrontOf(*oldView));
    }

    void show(double progress) {
        if (isOver)
            return;
        // Whoever moved the old view meanwhile, as the layout of a container that was resized
        // does, said where its place is now.
        if (oldView->frame() != oldFrame)
            place = oldView->frame();
        const CGVector way = wayOfBoth();
        oldFrame = CGRectOffset(place, way.dx * progress, way.dy * progress);
        oldView->setFrame(oldFrame);
        newView->setFrame(CGRectOffset(place, way.dx * (progress - 1), way.dy * (progress - 1)));
        if (contains(options, Options::crossfade)) {
            oldView->setAlphaValue(oldAlpha * (1 - progress));
            newView->setAlphaValue(newAlpha * progress);
        }
    }

    /// At once if it comes early. The old view, being out of sight, is as it was before.
    void end() {
        show(1);
        if (std::exchange(isOver, true))
            return;
        from->departure.reset();
        to->arrival.reset();

        // The window may have come or gone since the beginning.
        const ViewAppearance leaving(*oldView);
        const ViewAppearance arriving(*newView);
        if (oldView->superview() == container.lock()) {
            leaving.willDisappear();
            oldView->detachFromSuperview();
            leaving.didDisappear();
        }
        oldView->setFrame(place);
        oldView->setAlphaValue(oldAlpha);
        if (newView->isOnScreen()) {
            arriving.willAppear();
            arriving.didAppear();
        }
        if (completion)
            completion();
    }

private:
    CGVector wayOfBoth() const {
        const auto sign = [&](Options forwards, Options backwards) {
            return static_cast<CGFloat>(contains(options, forwards)) -
                   static_cast<CGFloat>(contains(options, backwards));
        };
        return {sign(Options::slideRight, Options::slideLeft) * place.size.width,
                sign(Options::slideDown, Options::slideUp) * place.size.height};
    }

    std::shared_ptr<NSViewController> from, to;
    std::shared_ptr<NSView> oldView, newView;
    std::weak_ptr<NSView> container;
    TransitionOptions options;
    std::function<void()> completion;
    CGRect place;     // where the old view was, and the new one will be
    CGRect oldFrame;  // where the old view was put last
    CGFloat oldAlpha, newAlpha;
    bool isOver = false;
};

void NSViewController::transition(const std::shared_ptr<NSViewController>& from,
                                  const std::shared_ptr<NSViewController>& to,
                                  TransitionOptions options,
                                  std::function<void()> completionHandler) {
    from->endTransition();
    to->endTransition();
    for (const auto& controller : {from, to})
        if (controller->parent().get() != this)
            fatalError(controller->description().append(" is no child of ").append(description()));
    if (from == to)
        fatalError(from->description().append(" cannot take its own place"));

    to->view()->removeFromSuperview();
    if (!from->view()->superview()) {
        if (completionHandler)
            completionHandler();
        return;
    }
    const auto made = std::make_shared<Transition>(from, to, options, std::move(completionHandler));
    made->begin();
    if (!made->takesTime()) {
        made->end();
        return;
    }
    from->departure = made;
    to->arrival = made;
    NSAnimationContext::animate([made](double progress) { made->show(progress); },
                                [made] { made->end(); });
}

bool NSViewController::isBeingReplaced() const { return !departure.expired(); }

void NSViewController::endTransition() {
    for (const auto& transition : {arrival.lock(), departure.lock()})
        if (transition)
            transition->end();
}

}  // namespace quorin
