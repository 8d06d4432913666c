#include "quorin/interaction/SlideNavigationView.h"

#include "quorin/platform/drawing/CGContext.h"

namespace quorin {

void SlideNavigationView::declareKeys(NSKeyList<SlideNavigationView>& keys) {
    keys.reportingProperty(
        "backgroundColor",
        [](const SlideNavigationView& view) { return view._backgroundColor.usingGenericRGB(); },
        [](SlideNavigationView& view, const std::optional<CGColor>& color) {
            view.setBackgroundColor(color ? NSColor(*color) : NSColor::white(1, 0));
        });
}

void SlideNavigationView::setBackgroundColor(const NSColor& color) {
    changeValues({"backgroundColor"}, [&] { _backgroundColor = color; });
    setNeedsDisplay(true);
}

void SlideNavigationView::draw(CGContext& context, const CGRect& dirtyRect) {
    const auto color = _backgroundColor.usingGenericRGB();
    if (!color || color->alpha <= 0)
        return;
    context.setFillColor(*color);
    context.fillRect(dirtyRect);
}

}  // namespace quorin
