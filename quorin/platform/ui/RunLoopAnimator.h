#pragma once

#include <memory>

#include "quorin/platform/ui/NSAnimator.h"

namespace quorin {

/// Animates at an even pace by a timer of the run loop of the thread on which it is made.
class RunLoopAnimator : public NSAnimator {
public:
    /// `frameInterval` is the time between two steps, in seconds.
    explicit RunLoopAnimator(double frameInterval = 1.0 / 60);
    ~RunLoopAnimator() override;

    void animate(double duration, std::function<void(double progress)> step,
                 std::function<void()> completion) override;

private:
    struct State;
    std::shared_ptr<State> state;
};

}  // namespace quorin
