#include "quorin/platform/foundation/NSNotificationCenter.h"

#include <mutex>
#include <unordered_map>
#include <utility>

#include "quorin/platform/foundation/notifications/ObserverList.h"

namespace quorin {
namespace {

using Entries = std::span<const ObserverList::Entry>;

/// Takes the first of both lists in order.
const ObserverList::Entry& takeEarliest(Entries& first, Entries& second) {
    const bool isFirst =
        second.empty() || (!first.empty() && first.front().order < second.front().order);
    Entries& list = isFirst ? first : second;
    const ObserverList::Entry& entry = list.front();
    list = list.subspan(1);
    return entry;
}

}  // namespace

struct NSNotificationCenter::Observations {
    ObserverList& listFor(const std::optional<NSNotificationName>& name) {
        return name ? named[*name] : ofAllNames;
    }

    std::mutex mutex;
    std::uint64_t lastOrder = 0;
    std::unordered_map<NSNotificationName, ObserverList> named;
    ObserverList ofAllNames;
};

NSNotificationCenter& NSNotificationCenter::defaultCenter() {
    // Never destroyed, since tokens may be released until the very end.
    static NSNotificationCenter& center = *new NSNotificationCenter;
    return center;
}

NSNotificationCenter::NSNotificationCenter() : observations(std::make_unique<Observations>()) {}
NSNotificationCenter::~NSNotificationCenter() = default;

std::shared_ptr<Object> NSNotificationCenter::addObserver(std::optional<NSNotificationName> name,
                                                          const std::shared_ptr<Object>& object,
                                                          Block block) {
    auto observer = std::make_shared<NotificationObserver>(name, object, std::move(block));
    ObserverList former;
    const std::lock_guard lock(observations->mutex);
    observer->setOrder(++observations->lastOrder);
    ObserverList& list = observations->listFor(name);
    list.unshare(former);
    list.add(observer);
    return observer;
}

void NSNotificationCenter::removeObserver(const std::shared_ptr<Object>& observer) {
    const auto observation = std::dynamic_pointer_cast<NotificationObserver>(observer);
    if (!observation)
        return;
    ObserverList former;
    std::shared_ptr<NotificationObserver> removed;
    const std::lock_guard lock(observations->mutex);
    ObserverList& list = observations->listFor(observation->name());
    list.unshare(former);
    removed = list.remove(*observation);
    if (removed)
        removed->end();
}

void NSNotificationCenter::postNotification(const NSNotification& notification) const {
    ObserverList ofThisName, ofAllNames;
    {
        const std::lock_guard lock(observations->mutex);
        const auto list = observations->named.find(notification.name());
        if (list != observations->named.end())
            ofThisName = list->second;
        ofAllNames = observations->ofAllNames;
    }
    // From here on without the centre, which a block may destroy.
    Entries named = ofThisName.entries(), unnamed = ofAllNames.entries();
    while (!named.empty() || !unnamed.empty())
        if (const auto& observer = takeEarliest(named, unnamed).observer)
            observer->receive(notification);
}

}  // namespace quorin
