#include "quorin/platform/ui/NSView.h"

#include <algorithm>

#include "quorin/platform/drawing/CGContext.h"
#include "quorin/platform/foundation/NSIndexSet.h"
#include "quorin/platform/ui/NSWindow.h"
#include "quorin/platform/ui/appearance/ViewAppearance.h"
#include "quorin/platform/ui/layout/ConstraintSolver.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {

void NSView::declareKeys(NSKeyList<NSView>& keys) {
    keys.reportingProperty("frame", &NSView::frame, &NSView::setFrame)
        .property("subviews", &NSView::subviews)
        .reportingProperty("alphaValue", &NSView::alphaValue, &NSView::setAlphaValue)
        .reportingProperty("wantsLayer", &NSView::wantsLayer, &NSView::setWantsLayer)
        .reportingProperty("needsDisplay", &NSView::needsDisplay, &NSView::setNeedsDisplay)
        .reportingProperty("needsLayout", &NSView::needsLayout, &NSView::setNeedsLayout);
}

NSView::NSView(const CGRect& frame) : _frame(frame) {}

NSView::~NSView() = default;

void NSView::setFrame(const CGRect& frame) {
    if (_frame == frame)
        return;
    const bool isResized = _frame.size != frame.size;
    changeValues({"frame"}, [&] { _frame = frame; });
    if (isResized) {
        setNeedsLayout(true);
        setNeedsDisplay(true);
    }
}

void NSView::addSubview(const std::shared_ptr<NSView>& view) {
    const bool isMoved = view->superview().get() == this;
    insertSubview(view, isMoved ? _subviews.size() - 1 : _subviews.size());
}

void NSView::insertSubview(const std::shared_ptr<NSView>& view, std::size_t at) {
    if (isDescendantOf(*view))
        fatalError(view->description().append(" cannot be put into itself"));
    if (!view->contentOf.expired())
        fatalError(view->description().append(" is the content of a window"));
    view->removeFromSuperview();
    ViewAppearance appearance(*view);
    const bool appears = isOnScreen();
    if (appears)
        appearance.willAppear();
    attachSubview(view, at);
    if (appears)
        appearance.didAppear();
}

void NSView::removeFromSuperview() {
    if (_superview.expired())
        return;
    const auto self = shared_from_this();
    ViewAppearance appearance(*this);
    const bool disappears = isOnScreen();
    if (disappears)
        appearance.willDisappear();
    detachFromSuperview();
    if (disappears)
        appearance.didDisappear();
}

void NSView::attachSubview(const std::shared_ptr<NSView>& view, std::size_t at) {
    if (at > _subviews.size())
        fatalError(std::string("subview ")
                       .append(std::to_string(at))
                       .append(" of ")
                       .append(std::to_string(_subviews.size())));
    const auto place = NSIndexSet::create({at});
    willChange(NSKeyValueChange::insertion, place, "subviews");
    _subviews.insert(_subviews.begin() + static_cast<std::ptrdiff_t>(at), view);
    view->_superview = std::static_pointer_cast<NSView>(shared_from_this());
    didChange(NSKeyValueChange::insertion, place, "subviews");
    setNeedsLayout(true);
}

void NSView::detachFromSuperview() {
    const auto above = superview();
    if (!above)
        return;
    const auto self = shared_from_this();
    const std::size_t at = above->placeInFrontOf(*this) - 1;
    const auto place = NSIndexSet::create({at});
    above->willChange(NSKeyValueChange::removal, place, "subviews");
    above->_subviews.erase(above->_subviews.begin() + static_cast<std::ptrdiff_t>(at));
    _superview.reset();
    above->didChange(NSKeyValueChange::removal, place, "subviews");
    above->dropConstraintsOn(*this);
    above->setNeedsLayout(true);
}

std::size_t NSView::placeInFrontOf(const NSView& subview) const {
    const auto found = std::find_if(_subviews.begin(), _subviews.end(),
                                    [&](const auto& each) { return each.get() == &subview; });
    return static_cast<std::size_t>(found - _subviews.begin()) + 1;
}

bool NSView::isDescendantOf(const NSView& view) const {
    if (this == &view)
        return true;
    const auto above = superview();
    return above && above->isDescendantOf(view);
}

std::shared_ptr<NSWindow> NSView::window() const {
    const auto above = superview();
    return above ? above->window() : contentOf.lock();
}

bool NSView::isOnScreen() const {
    const auto shown = window();
    return shown && shown->isVisible();
}

void NSView::setAlphaValue(CGFloat alpha) {
    changeValues({"alphaValue"}, [&] { _alphaValue = std::clamp(alpha, 0.0, 1.0); });
}

void NSView::setWantsLayer(bool wantsLayer) {
    changeValues({"wantsLayer"}, [&] { _wantsLayer = wantsLayer; });
}

void NSView::setNeedsDisplay(bool needsDisplay) {
    changeValues({"needsDisplay"}, [&] { _needsDisplay = needsDisplay; });
}

void NSView::draw(CGContext&, const CGRect&) {}

void NSView::display(CGContext& context) {
    const bool isTranslucent = _alphaValue < 1;
    context.saveGState();
    context.clipToRect(bounds());
    if (isTranslucent)
        context.beginTransparencyLayer(_alphaValue);

    context.saveGState();
    draw(context, bounds());
    context.restoreGState();
    for (const auto& subview : _subviews) {
        context.saveGState();
        context.translateBy(subview->_frame.origin.x, subview->_frame.origin.y);
        subview->display(context);
        context.restoreGState();
    }

    if (isTranslucent)
        context.endTransparencyLayer();
    context.restoreGState();
    setNeedsDisplay(false);
}

void NSView::addConstraints(std::span<const std::shared_ptr<NSLayoutConstraint>> constraints) {
    for (const auto& constraint : constraints) {
        for (const auto& item : {constraint->firstItem(), constraint->secondItem()})
            if (item && item.get() != this && item->superview().get() != this)
                fatalError(std::string("a constraint on ")
                               .append(item->description())
                               .append(", which is not in ")
                               .append(description()));
        _constraints.push_back(constraint);
    }
    setNeedsLayout(true);
}

void NSView::removeConstraints(std::span<const std::shared_ptr<NSLayoutConstraint>> constraints) {
    std::erase_if(_constraints, [&](const auto& each) {
        return std::find(constraints.begin(), constraints.end(), each) != constraints.end();
    });
    setNeedsLayout(true);
}

void NSView::pinToEdges(const std::shared_ptr<NSView>& subview) {
    for (const char* format : {"H:|-0-[child]-0-|", "V:|-0-[child]-0-|"})
        addConstraints(NSLayoutConstraint::constraints(format, {{"child", subview}}));
}

void NSView::dropConstraintsOn(const NSView& view) {
    std::erase_if(_constraints, [&](const auto& each) {
        return each->firstItem().get() == &view || each->secondItem().get() == &view;
    });
}

void NSView::setNeedsLayout(bool needsLayout) {
    if (_needsLayout != needsLayout)
        changeValues({"needsLayout"}, [&] { _needsLayout = needsLayout; });
}

void NSView::layout() {
    if (!_constraints.empty())
        ConstraintSolver(*this).placeSubviews();
}

void NSView::layoutSubtreeIfNeeded() {
    if (_needsLayout) {
        setNeedsLayout(false);
        layout();
    }
    const auto snapshot = _subviews;
    for (const auto& subview : snapshot)
        subview->layoutSubtreeIfNeeded();
}

}  // namespace quorin
