#include "quorin/platform/ui/NSAnimationContext.h"

#include <utility>

#include "quorin/platform/ui/NSApplication.h"
#include "quorin/platform/ui/internal/Finally.h"

namespace quorin {

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
        changes(context);
    }
    context.group->end();
}

void NSAnimationContext::animate(std::function<void(double)> step,
                                 std::function<void()> completion) {
    const auto group = current().group;
    if (group)
        ++group->running;
    auto end = [group, completion = std::move(completion)] {
        completion();
        if (group)
            group->end();
    };
    const auto animator = NSApplication::shared().animator();
    if (animator && current().duration() > 0) {
        animator->animate(current().duration(), std::move(step), std::move(end));
    } else {
        step(1);
        end();
    }
}

}  // namespace quorin
