#include "quorin/platform/ui/RunLoopAnimator.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "quorin/platform/foundation/RunLoop.h"
#include "quorin/platform/values/MediaTime.h"

namespace quorin {

struct RunLoopAnimator::State {
    struct Animation {
        double begin, duration;
        std::function<void(double)> step;
        std::function<void()> completion;
    };

    /// Steps and completions may begin animations, and end the animator.
    void tick() {
        const double now = CACurrentMediaTime();
        const auto snapshot = animations;
        for (const auto& each : snapshot) {
            if (!timer.isActive())
                return;
            const double progress = std::min(1.0, (now - each->begin) / each->duration);
            if (progress == 1)
                std::erase(animations, each);
            each->step(progress);
            if (progress == 1)
                each->completion();
        }
        if (animations.empty())
            timer.cancel();
    }

    std::shared_ptr<RunLoop> loop;
    double frameInterval;
    std::vector<std::shared_ptr<Animation>> animations;
    RunLoopSource timer;
};

RunLoopAnimator::RunLoopAnimator(double frameInterval) : state(std::make_shared<State>()) {
    state->loop = RunLoop::current();
    state->frameInterval = frameInterval;
}

RunLoopAnimator::~RunLoopAnimator() { state->timer.cancel(); }

void RunLoopAnimator::animate(double duration, std::function<void(double)> step,
                              std::function<void()> completion) {
    step(0);
    state->animations.push_back(std::make_shared<State::Animation>(
        State::Animation{CACurrentMediaTime(), duration, std::move(step), std::move(completion)}));
    if (state->timer.isActive())
        return;
    state->timer = state->loop->addTimer(state->frameInterval, true, [weak = std::weak_ptr(state)] {
        if (const auto living = weak.lock())
            living->tick();
    });
}

}  // namespace quorin
