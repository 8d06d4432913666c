#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "quorin/platform/ui/NSAnimator.h"
#include "quorin/platform/ui/NSEvent.h"
#include "quorin/platform/values/FunctionRef.h"

namespace quorin {

class NSView;
class NSViewController;

/// What the parts of a desktop program share. A host with windows of its own sends the application
/// the events it gets, before it handles them itself. For the main thread only.
class NSApplication {
public:
    /// Never destroyed.
    static NSApplication& shared();

    NSApplication(const NSApplication&) = delete;
    NSApplication& operator=(const NSApplication&) = delete;

    /// The event that is being handled, otherwise the last one that was; null before the first.
    const std::shared_ptr<NSEvent>& currentEvent() const { return _currentEvent; }

    /// Shows the event to the local monitors, then hands what they leave of it to `deliver`, by
    /// which the host handles it. False when a monitor kept the event.
    ///
    /// The event is the current one meanwhile, and so is what a monitor puts in its place. An event
    /// sent while another is handled is current for its own time only.
    bool sendEvent(const std::shared_ptr<NSEvent>& event, FunctionRef<void(NSEvent&)> deliver);
    bool sendEvent(const std::shared_ptr<NSEvent>& event);

    /// Has `target` perform an action of its class, `sender` being who asks. False without a
    /// target. An action that the class does not declare stops the process.
    bool sendAction(std::string_view action, const std::shared_ptr<NSObject>& to,
                    NSObject* from) const;

    /// What animations go by; without one, as at first, they are over at once.
    const std::shared_ptr<NSAnimator>& animator() const { return _animator; }
    void setAnimator(std::shared_ptr<NSAnimator> animator) { _animator = std::move(animator); }

    /// Makes the view of a controller from the interface file that it names, and sets the outlets
    /// of the controller. There is none at first.
    using NibLoader = std::function<std::shared_ptr<NSView>(NSViewController& owner)>;
    const NibLoader& nibLoader() const { return _nibLoader; }
    void setNibLoader(NibLoader loader) { _nibLoader = std::move(loader); }

private:
    friend class NSEvent;
    class Monitor;

    NSApplication();
    ~NSApplication();

    std::shared_ptr<Object> addMonitor(NSEventTypeMask matching, NSEvent::Monitor handler);
    void removeMonitor(const std::shared_ptr<Object>& monitor);
    std::shared_ptr<NSEvent> monitored(std::shared_ptr<NSEvent> event);

    std::shared_ptr<NSEvent> _currentEvent;
    int eventsBeingHandled = 0;
    std::vector<std::shared_ptr<Monitor>> monitors;
    std::shared_ptr<NSAnimator> _animator;
    NibLoader _nibLoader;
};

}  // namespace quorin
