#pragma once

#include <functional>
#include <memory>

#include "quorin/platform/values/FunctionRef.h"

namespace quorin {

/// How long the changes take that are made in a grouping. Groupings stand inside each other. For
/// the main thread only.
class NSAnimationContext {
public:
    NSAnimationContext(const NSAnimationContext&) = delete;
    NSAnimationContext& operator=(const NSAnimationContext&) = delete;

    /// That of the innermost grouping, or one of a quarter of a second outside of all.
    static const NSAnimationContext& current();

    /// In seconds; at first that of the grouping around. Not positive means at once.
    double duration() const { return _duration; }
    void setDuration(double duration) { _duration = duration; }

    /// Calls `changes`, and `completionHandler` when all that was begun there has come to its end,
    /// groupings inside included: before this returns if nothing takes time. When `changes` throws,
    /// the handler is not called.
    static void runAnimationGroup(FunctionRef<void(NSAnimationContext&)> changes,
                                  std::function<void()> completionHandler = {});

    /// Has the application's animator call `step` with a progress from 0 to 1 for the duration of
    /// the current grouping, and `completion` in the end. Without an animator, or for a duration
    /// that is not positive, the end comes at once. So it does when the animator ends, or lets go
    /// of what it was given: nothing stays halfway, and neither function may throw then.
    static void animate(std::function<void(double progress)> step,
                        std::function<void()> completion);

private:
    /// Counts what has begun in a grouping and not ended.
    struct Group {
        int running = 0;
        std::function<void()> completionHandler;
        std::shared_ptr<Group> outer;

        void end();
    };

    NSAnimationContext() = default;

    static NSAnimationContext*& innermost();

    double _duration = 0.25;
    std::shared_ptr<Group> group;  // null outside of all groupings
};

}  // namespace quorin
