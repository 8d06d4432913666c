#include "quorin/platform/ui/appearance/ViewAppearance.h"

namespace quorin {

void ViewAppearance::willAppear() const {
    advance(Stage::gone, Stage::coming, &NSViewController::viewWillAppear);
}

void ViewAppearance::didAppear() const {
    advance(Stage::coming, Stage::shown, &NSViewController::viewDidAppear);
}

void ViewAppearance::willDisappear() const {
    advance(Stage::shown, Stage::going, &NSViewController::viewWillDisappear);
    advance(Stage::coming, Stage::going, &NSViewController::viewWillDisappear);
}

void ViewAppearance::didDisappear() const {
    advance(Stage::going, Stage::gone, &NSViewController::viewDidDisappear);
}

void ViewAppearance::collect(NSView& view) {
    if (auto controller = view.viewController.lock())
        controllers.push_back(std::move(controller));
    for (const auto& subview : view.subviews())
        collect(*subview);
}

void ViewAppearance::advance(Stage from, Stage to, void (NSViewController::*call)()) const {
    for (const auto& controller : controllers) {
        if (controller->appearanceStage != from)
            continue;
        controller->appearanceStage = to;
        (*controller.*call)();
    }
}

}  // namespace quorin
