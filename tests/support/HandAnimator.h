#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "quorin/platform/ui/NSAnimator.h"

namespace quorin::test {

/// Animates when it is told to.
class HandAnimator : public NSAnimator {
public:
    void animate(double duration, std::function<void(double)> step,
                 std::function<void()> completion) override {
        running.push_back({duration, std::move(step), std::move(completion)});
    }

    std::vector<double> durations() const {
        std::vector<double> durations;
        for (const Animation& each : running)
            durations.push_back(each.duration);
        return durations;
    }

    void step(double progress) {
        for (const Animation& each : running)
            each.step(progress);
    }

    /// Brings all to their end, in the order in which they began.
    void finish() {
        for (const Animation& each : std::exchange(running, {})) {
            each.step(1);
            each.completion();
        }
    }

private:
    struct Animation {
        double duration;
        std::function<void(double)> step;
        std::function<void()> completion;
    };

    std::vector<Animation> running;
};

}  // namespace quorin::test
