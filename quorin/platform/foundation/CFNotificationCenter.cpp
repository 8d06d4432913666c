#include "quorin/platform/foundation/CFNotificationCenter.h"

namespace quorin {

// Neither is ever destroyed, since statics may post until the very end.
CFNotificationCenter& CFNotificationCenter::localCenter() {
    static CFNotificationCenter& center =
        *new CFNotificationCenter(NSNotificationCenter::defaultCenter(), Carries::everything);
    return center;
}

CFNotificationCenter& CFNotificationCenter::darwinNotifyCenter() {
    static CFNotificationCenter& center =
        *new CFNotificationCenter(*new NSNotificationCenter, Carries::namesAlone);
    return center;
}

void CFNotificationCenter::addObserver(const void* observer, Callback callback,
                                       std::optional<NSNotificationName> name,
                                       const std::shared_ptr<Object>& object) {
    const auto deliver = [this, observer, callback](const NSNotification& notification) {
        callback(*this, observer, notification.name(), notification.object(),
                 notification.userInfo());
    };
    const bool isForAnySender = carries == Carries::namesAlone;
    const std::lock_guard lock(mutex);
    registrations.push_back(
        {observer, carrier.addObserver(name, isForAnySender ? nullptr : object, deliver)});
}

void CFNotificationCenter::removeEveryObserver(const void* observer) {
    const std::lock_guard lock(mutex);
    std::erase_if(registrations, [&](const Registration& registration) {
        if (registration.observer != observer)
            return false;
        carrier.removeObserver(registration.token);
        return true;
    });
}

void CFNotificationCenter::postNotification(const NSNotification& notification) {
    if (carries == Carries::namesAlone)
        carrier.postNotification(NSNotification(notification.name()));
    else
        carrier.postNotification(notification);
}

}  // namespace quorin
