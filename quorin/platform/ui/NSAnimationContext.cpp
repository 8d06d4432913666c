#include "quorin/platform/ui/NSAnimationContext.h"

#include <utility>

#include "quorin/platform/ui/NSApplication.h"
#include "quorin/platform/ui/internal/Finally.h"

namespace quorin {
namespace {

/// What an animator makes take its time. It ends once: when the animator says so, or when nobody
/// holds it any more.
class RunningAnimation {
public:
    RunningAnimation(std::function<void(double)> givenStep, std::function<void()> givenCompletion)
        : _step(std::move(givenStep)), completion(std::move(givenCompletion)) {}
    RunningAnimation(const RunningAnimation&) = delete;
    RunningAnimation& operator=(const RunningAnimation&) = delete;

    ~RunningAnimation() {
        step(1);
        end();
    }

    void step(double progress) const {
        if (_step)
            _step(progress);
    }

    void end() {
        _step = nullptr;
        if (const auto complete = std::exchange(completion, nullptr))
            complete();
    }

private:
    std::function<void(double)> _step;
    std::function<void()> completion;
};

}  // namespace

void NSAnimationContext::Group::end() {
    if (--running > 0)
        return;
    if (completionHandler)
        completionHandler();
    if (outer)
        outer->end();
}

NSAnimationContext*& NSAnimationContext::innermost() {
    static NSAnimationContext outside;
    static NSAnimationContext* context = &outside;
    return context;
}

const NSAnimationContext& NSAnimationContext::current() { return *innermost(); }

void NSAnimationContext::runAnimationGroup(FunctionRef<void(NSAnimationContext&)> changes,
                                           std::function<void()> completionHandler) {
    NSAnimationContext* const around = innermost();
    NSAnimationContext context;
    context._duration = around->_duration;
    context.group = std::make_shared<Group>(Group{1, std::move(completionHandler), around->group});
    if (around->group)
        ++around->group->running;

    {
        const Finally leave([&] { innermost() = around; });
        innermost() = &context;
        try {
            changes(context);
        } catch (...) {
            // Nobody waits for this grouping, but the one around waits for all that began in it.
            context.group->completionHandler = nullptr;
            context.group->end();
            throw;
        }
    }
    context.group->end();
}

void NSAnimationContext::animate(std::function<void(double)> step,
                                 std::function<void()> completion) {
    const auto group = current().group;
    if (group)
        ++group->running;
    auto end = [group, completion = std::move(completion)] {
        if (completion)
            completion();
        if (group)
            group->end();
    };
    const auto running = std::make_shared<RunningAnimation>(std::move(step), std::move(end));
    const auto animator = NSApplication::shared().animator();
    if (animator && current().duration() > 0) {
        animator->animate(
            current().duration(), [running](double progress) { running->step(progress); },
            [running] { running->end(); });
    } else {
        running->step(1);
        running->end();
    }
}

}  // namespace quorin
