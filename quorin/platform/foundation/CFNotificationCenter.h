#pragma once

#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "quorin/platform/foundation/NSNotificationCenter.h"

namespace quorin {

/// A notification centre as seen by callbacks that are plain functions. It knows observers by an
/// address that it never looks at, delivers at once on the posting thread, and may be used by
/// several threads.
class CFNotificationCenter {
public:
    using Callback = void (*)(CFNotificationCenter& center, const void* observer,
                              const NSNotificationName& name, const std::shared_ptr<Object>& object,
                              const NSNotification::UserInfo& userInfo);

    /// What the default notification centre carries, seen this way.
    static CFNotificationCenter& localCenter();
    /// Carries names alone, without objects or user info. It is apart from the local one and
    /// reaches no other process.
    static CFNotificationCenter& darwinNotifyCenter();

    CFNotificationCenter(const CFNotificationCenter&) = delete;
    CFNotificationCenter& operator=(const CFNotificationCenter&) = delete;

    /// Without a name for every name, without an object for every sender. Added twice, an observer
    /// is called twice.
    void addObserver(const void* observer, Callback callback,
                     std::optional<NSNotificationName> name,
                     const std::shared_ptr<Object>& object = nullptr);
    /// Ends all that was added under this address here.
    void removeEveryObserver(const void* observer);

    void postNotification(const NSNotification& notification);

private:
    enum class Carries { everything, namesAlone };
    struct Registration {
        const void* observer;
        std::shared_ptr<Object> token;  // of the carrier
    };

    CFNotificationCenter(NSNotificationCenter& under, Carries what)
        : carrier(under), carries(what) {}

    NSNotificationCenter& carrier;
    const Carries carries;
    std::mutex mutex;
    std::vector<Registration> registrations;
};

}  // namespace quorin
