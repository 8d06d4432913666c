#pragma once

#include <memory>
#include <vector>

#include "quorin/platform/foundation/NSObject.h"
#include "quorin/platform/values/CGRect.h"

namespace quorin {

class CGContext;
class NSViewController;

/// A rectangle of a window that draws itself and holds others. The origin is at the top left, x
/// runs to the right and y down, as in `CGContext`; lengths are in points. A view holds its
/// subviews and refers to its superview weakly. Whoever shows views observes their keys.
class NSView : public NSObject {
public:
    using Class = NSClassOf<NSView, NSObject>;
    static void declareKeys(NSKeyList<NSView>& keys);

    explicit NSView(const CGRect& frame = CGRect::zero);

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
    void removeFromSuperview();
    /// Whether this is `view` or somewhere inside of it.
    bool isDescendantOf(const NSView& view) const;

    /// Draws the view's own content. `dirtyRect` is in the view's coordinates, as is the context.
    virtual void draw(CGContext& context, const CGRect& dirtyRect);

private:
    friend class NSViewController;

    CGRect _frame;
    std::weak_ptr<NSView> _superview;
    std::vector<std::shared_ptr<NSView>> _subviews;
    std::weak_ptr<NSViewController> viewController;  // whose view this is
};

}  // namespace quorin
