#pragma once

#include <functional>

namespace quorin {

/// Makes changes take their time. A host gives the application one that goes by its own clock.
class NSAnimator {
public:
    virtual ~NSAnimator() = default;

    /// Calls `step` with the progress, from 0 at the beginning towards 1, then with 1 exactly, and
    /// then `completion`, once each. `duration` is in seconds and positive. An animator that ends
    /// calls neither any more and lets go of both, by which `NSAnimationContext` knows.
    virtual void animate(double duration, std::function<void(double progress)> step,
                         std::function<void()> completion) = 0;
};

}  // namespace quorin
