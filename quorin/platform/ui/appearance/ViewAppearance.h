#pragma once

#include <memory>
#include <vector>

#include "quorin/platform/ui/NSView.h"
#include "quorin/platform/ui/NSViewController.h"

namespace quorin {

/// Tells the view controllers of a view and of all it holds, the outer ones first, that their views
/// come into a visible window or go from it. Each is told of a change once, whoever tells it.
class ViewAppearance {
public:
    explicit ViewAppearance(NSView& view) { collect(view); }

    void willAppear() const;
    void didAppear() const;
    void willDisappear() const;
    void didDisappear() const;

private:
    using Stage = NSViewController::AppearanceStage;

    void collect(NSView& view);
    void advance(Stage from, Stage to, void (NSViewController::*call)()) const;

    std::vector<std::shared_ptr<NSViewController>> controllers;
};

}  // namespace quorin
