#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <utility>

namespace quorin {

/// What a run loop tells its observers of; a mask of them is their sum.
enum CFRunLoopActivity : unsigned {
    kCFRunLoopEntry = 1,           ///< once for each call that runs the loop, nested ones too
    kCFRunLoopBeforeWaiting = 32,  ///< a pass is going to wait; not when it only looks
    kCFRunLoopAfterWaiting = 64,   ///< such a pass has waited
    kCFRunLoopExit = 128,          ///< once for each of those calls, however it ends
};

/// A closure that a run loop calls at some of its activities, on the thread that runs it. The
/// closure must not throw.
class CFRunLoopObserver {
public:
    using Handler = std::function<void(CFRunLoopActivity)>;

    /// Of the observers of a loop those of smaller `order` are called first, and of equal ones
    /// those that were added first. One that does not repeat is taken out before its only call.
    static std::shared_ptr<CFRunLoopObserver> create(unsigned activities, bool repeats, int order,
                                                     Handler handler) {
        return std::shared_ptr<CFRunLoopObserver>(
            new CFRunLoopObserver(activities, repeats, order, std::move(handler)));
    }

    unsigned activities() const { return _activities; }
    bool doesRepeat() const { return _doesRepeat; }
    int order() const { return _order; }
    /// Whether a loop calls it. An observer belongs to one loop at a time.
    bool isScheduled() const { return _isScheduled; }

private:
    friend class RunLoop;

    CFRunLoopObserver(unsigned mask, bool isRepeated, int place, Handler closure)
        : _activities(mask), _doesRepeat(isRepeated), _order(place), handler(std::move(closure)) {}

    const unsigned _activities;
    const bool _doesRepeat;
    const int _order;
    std::atomic<bool> _isScheduled = false;
    const Handler handler;
};

}  // namespace quorin
