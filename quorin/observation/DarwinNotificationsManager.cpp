#include "quorin/observation/DarwinNotificationsManager.h"

#include <utility>

#include "quorin/platform/values/FatalError.h"

namespace quorin {

void defaultNotificationCallback(CFNotificationCenter&, const void*, const NSNotificationName& name,
                                 const std::shared_ptr<Object>&, const NSNotification::UserInfo&) {
    DarwinNotificationsManager::sharedInstance()->notificationCallbackReceivedWithName(name);
}

const std::shared_ptr<DarwinNotificationsManager>& DarwinNotificationsManager::sharedInstance() {
    // Never destroyed: the local centre goes on calling it until the very end.
    static const auto& instance =
        *new std::shared_ptr<DarwinNotificationsManager>(makeObject<DarwinNotificationsManager>());
    return instance;
}

DarwinNotificationsManager::~DarwinNotificationsManager() {
    CFNotificationCenter::darwinNotifyCenter().removeEveryObserver(this);
}

void DarwinNotificationsManager::registerForNotificationName(const NSNotificationName& name,
                                                             Callback callback) {
    Callback former;  // released without the lock, which what it owns may want
    const std::lock_guard lock(mutex);
    const auto [place, isNew] = callbacks.try_emplace(name);
    former = std::exchange(place->second, std::move(callback));
    // The centre would call twice what was added twice.
    if (isNew)
        CFNotificationCenter::localCenter().addObserver(this, defaultNotificationCallback, name);
}

void DarwinNotificationsManager::postNotificationWithName(const NSNotificationName& name) {
    CFNotificationCenter::localCenter().postNotification(NSNotification(name));
}

void DarwinNotificationsManager::notificationCallbackReceivedWithName(
    const NSNotificationName& name) {
    Callback callback;  // a copy, since it may register anew while it runs
    {
        const std::lock_guard lock(mutex);
        const auto place = callbacks.find(name);
        if (place != callbacks.end())
            callback = place->second;
    }
    if (!callback)
        fatalError("no callback for the notification \"" + name.text() + '"');
    callback();
}

}  // namespace quorin
