#include "quorin/platform/ui/NSView.h"

#include <algorithm>

#include "quorin/platform/foundation/NSIndexSet.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {

void NSView::declareKeys(NSKeyList<NSView>& keys) {
    keys.reportingProperty("frame", &NSView::frame, &NSView::setFrame)
        .property("subviews", &NSView::subviews);
}

NSView::NSView(const CGRect& frame) : _frame(frame) {}

void NSView::setFrame(const CGRect& frame) {
    if (_frame != frame)
        changeValues({"frame"}, [&] { _frame = frame; });
}

void NSView::addSubview(const std::shared_ptr<NSView>& view) {
    if (isDescendantOf(*view))
        fatalError(view->description().append(" cannot be put into itself"));
    view->removeFromSuperview();
    const auto place = NSIndexSet::create({_subviews.size()});
    willChange(NSKeyValueChange::insertion, place, "subviews");
    _subviews.push_back(view);
    view->_superview = std::static_pointer_cast<NSView>(shared_from_this());
    didChange(NSKeyValueChange::insertion, place, "subviews");
}

void NSView::removeFromSuperview() {
    const auto above = superview();
    if (!above)
        return;
    auto& siblings = above->_subviews;
    const auto found = std::find_if(siblings.begin(), siblings.end(),
                                    [&](const auto& each) { return each.get() == this; });
    const auto self = *found;
    const auto place = NSIndexSet::create({static_cast<std::size_t>(found - siblings.begin())});
    above->willChange(NSKeyValueChange::removal, place, "subviews");
    siblings.erase(found);
    _superview.reset();
    above->didChange(NSKeyValueChange::removal, place, "subviews");
}

bool NSView::isDescendantOf(const NSView& view) const {
    if (this == &view)
        return true;
    const auto above = superview();
    return above && above->isDescendantOf(view);
}

void NSView::draw(CGContext&, const CGRect&) {}

}  // namespace quorin
