#pragma once

#include "quorin/platform/foundation/NSColor.h"
#include "quorin/platform/ui/NSView.h"

namespace quorin {

/// The ground on which the children of a slide navigation stand.
class SlideNavigationView : public NSView {
public:
    using Class = NSClassOf<SlideNavigationView, NSView>;
    /// Names "backgroundColor", as which interface files set a colour.
    static void declareKeys(NSKeyList<SlideNavigationView>& keys);

    using NSView::NSView;

    /// Fills the view behind all it holds; clear at first.
    const NSColor& backgroundColor() const { return _backgroundColor; }
    void setBackgroundColor(const NSColor& color);

    void draw(CGContext& context, const CGRect& dirtyRect) override;

private:
    NSColor _backgroundColor = NSColor::white(1, 0);
};

}  // namespace quorin
