#include "quorin/platform/ui/NSApplication.h"

#include <algorithm>
#include <utility>

#include "quorin/platform/ui/internal/Finally.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {

class NSApplication::Monitor : public Object {
public:
    Monitor(NSEventTypeMask matching, NSEvent::Monitor given)
        : mask(matching), handler(std::move(given)) {}

    std::string description() const override { return "a monitor of local events"; }

    NSEventTypeMask mask;
    NSEvent::Monitor handler;
    bool isRemoved = false;
};

NSApplication& NSApplication::shared() {
    static NSApplication& instance = *new NSApplication;
    return instance;
}

NSApplication::NSApplication() = default;
NSApplication::~NSApplication() = default;

bool NSApplication::sendEvent(const std::shared_ptr<NSEvent>& event,
                              FunctionRef<void(NSEvent&)> deliver) {
    if (!event)
        fatalError("the application is sent no event");
    const auto outer = std::exchange(_currentEvent, event);
    ++eventsBeingHandled;
    const Finally endHandling([&] {
        if (--eventsBeingHandled > 0)
            _currentEvent = outer;
    });
    const auto remaining = monitored(event);
    if (remaining)
        deliver(*remaining);
    return remaining != nullptr;
}

bool NSApplication::sendEvent(const std::shared_ptr<NSEvent>& event) {
    return sendEvent(event, [](NSEvent&) {});
}

std::shared_ptr<NSEvent> NSApplication::monitored(std::shared_ptr<NSEvent> event) {
    const auto snapshot = monitors;
    for (const auto& monitor : snapshot) {
        if (monitor->isRemoved || !contains(monitor->mask, maskOf(event->type())))
            continue;
        event = monitor->handler(event);
        if (!event)
            return nullptr;
        _currentEvent = event;
    }
    return event;
}

std::shared_ptr<Object> NSApplication::addMonitor(NSEventTypeMask matching,
                                                  NSEvent::Monitor handler) {
    monitors.push_back(std::make_shared<Monitor>(matching, std::move(handler)));
    return monitors.back();
}

void NSApplication::removeMonitor(const std::shared_ptr<Object>& monitor) {
    const auto found = std::find(monitors.begin(), monitors.end(), monitor);
    if (found == monitors.end())
        fatalError("this is no monitor of events, or was removed already");
    const auto removed = *found;  // what its handler holds ends after the list is whole again
    removed->isRemoved = true;
    monitors.erase(found);
}

bool NSApplication::sendAction(std::string_view action, const std::shared_ptr<NSObject>& to,
                               NSObject* from) const {
    if (!to)
        return false;
    const auto performer = to;  // outlives what the action lets go of
    performer->objectClass().requiredAction(action)(*performer, from);
    return true;
}

}  // namespace quorin
