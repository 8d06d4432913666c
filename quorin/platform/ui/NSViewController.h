#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "quorin/platform/foundation/Bundle.h"
#include "quorin/platform/foundation/NSObject.h"
#include "quorin/platform/ui/NSView.h"
#include "quorin/platform/ui/NSViewControllerTransitionOptions.h"

namespace quorin {

class Decoder;
class NSStoryboard;
class NSStoryboardSegue;
class NSWindow;

/// Keeps a view and knows what it shows. It holds its children, which refer to it weakly.
///
/// A class overrides the calls that say what happens to its view, and calls those of its
/// superclass first.
class NSViewController : public NSObject {
public:
    using Class = NSClassOf<NSViewController, NSObject>;
    static void declareKeys(NSKeyList<NSViewController>& keys);
    static void declareActions(NSActionList<NSViewController>& actions);

    using TransitionOptions = NSViewControllerTransitionOptions;

    /// `nibName` names the interface file of the view, in the bundle.
    explicit NSViewController(std::optional<std::string> nibName = {},
                              std::optional<Bundle> bundle = {});
    /// Reads "nibName" and "title", which both may be missing.
    explicit NSViewController(Decoder& coder);
    ~NSViewController() override;

    const std::optional<std::string>& nibName() const { return _nibName; }
    const std::optional<Bundle>& nibBundle() const { return _nibBundle; }

    /// Called once the controller was made from an interface file, or its view was.
    virtual void awakeFromNib() {}

    /// Loaded when it is asked for the first time, which is when `viewDidLoad` is called.
    const std::shared_ptr<NSView>& view();
    /// A view that is another controller's stops the process. After null, the view is loaded again
    /// when it is asked for.
    void setView(const std::shared_ptr<NSView>& view);
    bool isViewLoaded() const { return _view != nullptr; }
    /// Sets the view: what the application's nib loader makes of the interface file, or an empty
    /// one without a file or a loader. A class that overrides this has to set one.
    virtual void loadView();
    virtual void viewDidLoad() {}

    /// Around the moment when the view comes into a visible window, or goes from it.
    virtual void viewWillAppear() {}
    virtual void viewDidAppear() {}
    virtual void viewWillDisappear() {}
    virtual void viewDidDisappear() {}

    const std::optional<std::string>& title() const { return _title; }
    void setTitle(std::optional<std::string> title);
    const Value& representedObject() const { return _representedObject; }
    void setRepresentedObject(Value object);

    std::shared_ptr<NSViewController> parent() const { return _parent.lock(); }
    const std::vector<std::shared_ptr<NSViewController>>& children() const { return _children; }
    void addChild(const std::shared_ptr<NSViewController>& child);
    /// Takes the child out of the parent that it has. Their views are not moved. `at` is at most
    /// the number of children; a controller cannot be a child of itself or of its children.
    void insertChild(const std::shared_ptr<NSViewController>& child, std::size_t at);
    /// Stops the process when there is none.
    void removeChildAt(std::size_t index);
    /// Does nothing without a parent.
    void removeFromParent();

    /// Puts the view of one child in the place of another one's, whose view is taken out. Where the
    /// options ask for it, this takes as long as the current grouping of animations says; then the
    /// appearance of both is over, and the handler is called. Stops the process unless both are
    /// children of this controller, and different ones.
    ///
    /// The place of a slide follows the old view when the layout moves that. A transition that one
    /// of them still takes part in is brought to its end before this one begins. Without a
    /// superview of the old view there is nothing to put anything into.
    void transition(const std::shared_ptr<NSViewController>& from,
                    const std::shared_ptr<NSViewController>& to, TransitionOptions options,
                    std::function<void()> completionHandler = {});
    /// Whether a transition is taking the view out: what the user still does with it comes too
    /// late.
    bool isBeingReplaced() const;
    /// Brings a transition of the view to its end at once, whichever way it goes. Nothing without
    /// one.
    void endTransition();

    /// The storyboard that the controller is a scene of; null for none.
    const std::shared_ptr<NSStoryboard>& storyboard() const { return _storyboard; }
    /// Makes the segue that the storyboard has for the scene under this name, and its destination;
    /// then prepares for it and performs it. Without such a segue the process stops.
    void performSegue(const std::string& withIdentifier, NSObject* sender);
    /// What has to be told to the destination before it is shown.
    virtual void prepare(NSStoryboardSegue& forSegue, NSObject* sender);

    /// Shows the controller in a sheet of this one's window, which there has to be. The sheet is
    /// held by the window, until it ends.
    void presentAsSheet(const std::shared_ptr<NSViewController>& controller);
    /// Ends the sheet in which this one shows the controller. Stops the process if it does not.
    void dismissViewController(NSViewController& controller);
    /// Has whoever presents this controller dismiss it; nothing if nobody does. An action, by the
    /// name "dismissController:".
    virtual void dismissController(NSObject* sender);
    std::shared_ptr<NSViewController> presentingViewController() const {
        return _presentingViewController.lock();
    }

private:
    friend class NSStoryboard;
    friend class ViewAppearance;
    class Transition;

    enum class AppearanceStage : std::uint8_t { gone, coming, shown, going };

    std::shared_ptr<NSViewController> self();
    void awake();

    std::optional<std::string> _nibName;
    std::optional<Bundle> _nibBundle;
    std::shared_ptr<NSView> _view;
    bool isAwake = false, isViewLoading = false, didViewLoad = false;
    AppearanceStage appearanceStage = AppearanceStage::gone;
    std::weak_ptr<Transition> arrival, departure;  // while they take time
    std::optional<std::string> _title;
    Value _representedObject;
    std::weak_ptr<NSViewController> _parent;
    std::vector<std::shared_ptr<NSViewController>> _children;
    std::shared_ptr<NSStoryboard> _storyboard;
    std::string scene;
    std::weak_ptr<NSViewController> _presentingViewController;
};

}  // namespace quorin
