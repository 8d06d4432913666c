#pragma once

#include <memory>
#include <string>
#include <utility>

#include "quorin/platform/ui/NSEvent.h"

namespace quorin {

class StickyToolHelper;

class StickyToolHelperDelegate {
public:
    virtual ~StickyToolHelperDelegate() = default;

    /// `modifierFlags` are those that are latched now. They may be the same as last time.
    virtual void stickyToolHelperDidChange(StickyToolHelper& helper,
                                           NSEventModifierFlags modifierFlags) = 0;
};

/// Lets the user latch a modifier of a drawing tool instead of holding it: a tap of a modifier key
/// or of the space bar, down and up within 0.3 seconds, latches it until the next tap.
///
/// Sees the keyboard events that the application is sent, as long as it lives, and leaves them as
/// they are. For the main thread only.
class StickyToolHelper {
public:
    /// `name` is the tool's.
    static std::shared_ptr<StickyToolHelper> create(std::string name);

    StickyToolHelper(const StickyToolHelper&) = delete;
    StickyToolHelper& operator=(const StickyToolHelper&) = delete;
    ~StickyToolHelper();

    const std::string& name() const { return _name; }

    /// Told after every change of the modifier keys and after every tap of the space bar. Null when
    /// there is none, or it is gone.
    std::shared_ptr<StickyToolHelperDelegate> delegate() const { return _delegate.lock(); }
    void setDelegate(const std::shared_ptr<StickyToolHelperDelegate>& delegate);

    NSEventModifierFlags stickyModifierFlags() const { return _stickyModifierFlags; }

    /// Latched or held, but not both: holding a latched key releases it.
    bool isShiftModifierEnabled() const { return isEnabled(NSEventModifierFlags::shift); }
    bool isOptionModifierEnabled() const { return isEnabled(NSEventModifierFlags::option); }
    bool isCommandModifierEnabled() const { return isEnabled(NSEventModifierFlags::command); }
    /// Latched; who holds the space bar sees it from the events.
    bool isSpaceModifierEnabled() const;

    /// Unlatches everything and forgets what was pressed last, without telling the delegate.
    void reset();

    /// The last event that mattered: while a key repeats, the one that pressed it.
    const std::shared_ptr<NSEvent>& previousEvent() const { return _previousEvent; }
    /// What the application calls with events.
    const std::shared_ptr<Object>& monitor() const { return _monitor; }

private:
    explicit StickyToolHelper(std::string name) : _name(std::move(name)) {}

    bool isEnabled(NSEventModifierFlags flag) const;
    void see(const std::shared_ptr<NSEvent>& event);
    void modifiersChanged(const std::shared_ptr<NSEvent>& event);
    void keyWentDownOrUp(const std::shared_ptr<NSEvent>& event);
    bool isSoonAfterPrevious(const NSEvent& event) const;
    void tellDelegate();

    std::string _name;
    std::weak_ptr<StickyToolHelperDelegate> _delegate;
    std::shared_ptr<NSEvent> _previousEvent;
    NSEventModifierFlags _stickyModifierFlags{};
    std::shared_ptr<Object> _monitor;
};

}  // namespace quorin
