#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "quorin/platform/foundation/NSObject.h"
#include "quorin/platform/ui/NSLayoutConstraint.h"
#include "quorin/platform/values/CGRect.h"

namespace quorin {

class CGContext;
class NSViewController;
class NSWindow;

/// A rectangle of a window that draws itself and holds others. The origin is at the top left, x
/// runs to the right and y down, as in `CGContext`; lengths are in points. A view holds its
/// subviews and refers to its superview and its window weakly.
///
/// Whoever shows views observes their keys: "frame", "subviews" with the places of those that come
/// and go, "alphaValue", "needsDisplay" and "needsLayout".
class NSView : public NSObject {
public:
    using Class = NSClassOf<NSView, NSObject>;
    static void declareKeys(NSKeyList<NSView>& keys);

    explicit NSView(const CGRect& frame = CGRect::zero);
    ~NSView() override;

    /// Where the view is in its superview.
    const CGRect& frame() const { return _frame; }
    void setFrame(const CGRect& frame);
    /// The same in the view's own coordinates, whose origin is its top left corner.
    CGRect bounds() const { return {CGPoint::zero, _frame.size}; }

    std::shared_ptr<NSView> superview() const { return _superview.lock(); }
    /// From the back to the front.
    const std::vector<std::shared_ptr<NSView>>& subviews() const { return _subviews; }
    /// Puts the view in front of the others, taking it out of where it was. A view cannot be put
    /// into itself or into what it holds: that stops the process.
    void addSubview(const std::shared_ptr<NSView>& view);
    /// The same, at a place among the other subviews, at most their number.
    void insertSubview(const std::shared_ptr<NSView>& view, std::size_t at);
    /// Takes the view out of its superview with all constraints there that are about it. Does
    /// nothing without a superview.
    void removeFromSuperview();
    /// Whether this is `view` or somewhere inside of it.
    bool isDescendantOf(const NSView& view) const;

    /// The window whose content this is a part of; null for none.
    std::shared_ptr<NSWindow> window() const;

    /// How opaque the view is with all it holds, from 0 to 1; 1 at first.
    CGFloat alphaValue() const { return _alphaValue; }
    void setAlphaValue(CGFloat alpha);
    /// Whether the view is kept as a picture of its own, which is up to whoever shows it.
    bool wantsLayer() const { return _wantsLayer; }
    void setWantsLayer(bool wantsLayer);

    /// Whether what is seen of the view is out of date; so it is at first.
    bool needsDisplay() const { return _needsDisplay; }
    void setNeedsDisplay(bool needsDisplay);
    /// Draws the view's own content. `dirtyRect` is in the view's coordinates, as is the context.
    virtual void draw(CGContext& context, const CGRect& dirtyRect);
    /// Draws the view with all it holds into a context of the view's coordinates. What lies outside
    /// of a view is not seen. Afterwards nothing of it needs display.
    void display(CGContext& context);

    const std::vector<std::shared_ptr<NSLayoutConstraint>>& constraints() const {
        return _constraints;
    }
    /// A constraint is about edges of this view and of its subviews; others stop the process.
    void addConstraints(std::span<const std::shared_ptr<NSLayoutConstraint>> constraints);
    void removeConstraints(std::span<const std::shared_ptr<NSLayoutConstraint>> constraints);
    /// Has a subview fill this view from the next layout on, by constraints.
    void pinToEdges(const std::shared_ptr<NSView>& subview);

    /// Whether subviews have to be brought to their places again: after a change of the size, of
    /// the subviews or of the constraints.
    bool needsLayout() const { return _needsLayout; }
    void setNeedsLayout(bool needsLayout);
    /// Brings the subviews to the places that the constraints say. What they leave open stays as it
    /// is; of those that contradict each other, the earlier ones hold.
    virtual void layout();
    /// Calls `layout` for whatever in this view needs it, from the outside in.
    void layoutSubtreeIfNeeded();

private:
    friend class NSViewController;
    friend class NSWindow;
    friend class ViewAppearance;

    /// These tell no view controller.
    void attachSubview(const std::shared_ptr<NSView>& view, std::size_t at);
    void detachFromSuperview();
    std::size_t placeInFrontOf(const NSView& subview) const;
    bool isOnScreen() const;
    void dropConstraintsOn(const NSView& view);

    CGRect _frame;
    CGFloat _alphaValue = 1;
    bool _wantsLayer = false, _needsDisplay = true, _needsLayout = true;
    std::weak_ptr<NSView> _superview;
    std::weak_ptr<NSWindow> contentOf;  // only for the content view itself
    std::vector<std::shared_ptr<NSView>> _subviews;
    std::vector<std::shared_ptr<NSLayoutConstraint>> _constraints;
    std::weak_ptr<NSViewController> viewController;  // whose view this is
};

}  // namespace quorin
