#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <unordered_map>

#include "quorin/platform/foundation/CFNotificationCenter.h"
#include "quorin/platform/foundation/NSObject.h"

namespace quorin {

/// Calls plain callbacks by the names of notifications.
///
/// It registers and posts on the local centre, while its end takes it off the Darwin centre alone:
/// what an instance registered goes on being received, always by the shared one. May be used by
/// several threads; a callback runs on the thread that posts.
class DarwinNotificationsManager : public NSObject {
public:
    using Class = NSClassOf<DarwinNotificationsManager, NSObject>;
    using Callback = std::function<void()>;

    static const std::shared_ptr<DarwinNotificationsManager>& sharedInstance();

    DarwinNotificationsManager() = default;
    ~DarwinNotificationsManager() override;

    /// Calls back whenever the name is posted on the local centre, in place of any callback that
    /// the name had.
    void registerForNotificationName(const NSNotificationName& name, Callback callback);
    /// On the local centre, without object and user info.
    void postNotificationWithName(const NSNotificationName& name);
    /// Calls what is registered under the name; nothing there stops the process.
    void notificationCallbackReceivedWithName(const NSNotificationName& name);

private:
    std::mutex mutex;
    std::unordered_map<NSNotificationName, Callback> callbacks;
};

/// What the manager registers on the local centre: hands the name to the shared instance, whichever
/// instance registered.
void defaultNotificationCallback(CFNotificationCenter& center, const void* observer,
                                 const NSNotificationName& name,
                                 const std::shared_ptr<Object>& object,
                                 const NSNotification::UserInfo& userInfo);

}  // namespace quorin
