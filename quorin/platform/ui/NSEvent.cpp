#include "quorin/platform/ui/NSEvent.h"

#include <utility>

#include "quorin/platform/ui/NSApplication.h"

namespace quorin {

std::shared_ptr<NSEvent> NSEvent::create(EventType type, Key key) {
    return makeObject<NSEvent>(type, std::move(key));
}

NSEvent::NSEvent(EventType type, Key given) : _type(type), key(std::move(given)) {}

std::shared_ptr<Object> NSEvent::addLocalMonitorForEvents(EventTypeMask matching, Monitor handler) {
    return NSApplication::shared().addMonitor(matching, std::move(handler));
}

void NSEvent::removeMonitor(const std::shared_ptr<Object>& monitor) {
    NSApplication::shared().removeMonitor(monitor);
}

}  // namespace quorin
