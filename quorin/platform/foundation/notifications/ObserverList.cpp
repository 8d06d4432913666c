#include "quorin/platform/foundation/notifications/ObserverList.h"

#include <algorithm>
#include <utility>

namespace quorin {

NotificationObserver::NotificationObserver(std::optional<NSNotificationName> observedName,
                                           const std::shared_ptr<Object>& observedSender,
                                           NSNotificationCenter::Block toCall)
    : _name(observedName),
      sender(observedSender.get()),
      owner(observedSender),
      block(std::move(toCall)) {}

std::string NotificationObserver::description() const {
    return "observer of " + (_name ? '"' + _name->text() + '"' : std::string("all notifications"));
}

bool NotificationObserver::isAbout(const std::shared_ptr<Object>& object) const {
    if (!sender)
        return true;
    return sender == object.get() && !owner.owner_before(object) && !object.owner_before(owner);
}

void NotificationObserver::receive(const NSNotification& notification) const {
    if (!hasEnded.load(std::memory_order_acquire) && isAbout(notification.object()))
        block(notification);
}

ObserverList::ObserverList(const ObserverList& other) : content(other.content) {
    if (content)
        content->holders.fetch_add(1, std::memory_order_relaxed);
}

ObserverList::ObserverList(ObserverList&& other) noexcept
    : content(std::exchange(other.content, nullptr)) {}

ObserverList& ObserverList::operator=(ObserverList other) noexcept {
    std::swap(content, other.content);
    return *this;
}

ObserverList::~ObserverList() {
    if (content && content->holders.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete content;
}

std::span<const ObserverList::Entry> ObserverList::entries() const {
    return content ? std::span<const Entry>(content->entries) : std::span<const Entry>();
}

void ObserverList::unshare(ObserverList& former) {
    if (content && content->holders.load(std::memory_order_acquire) == 1)
        return;
    auto own = std::make_unique<Content>();
    own->entries.reserve(entries().size() + 1);
    for (const Entry& entry : entries())
        if (entry.observer)
            own->entries.push_back(entry);
    ObserverList shared;
    shared.content = std::exchange(content, own.release());
    former = std::move(shared);
}

void ObserverList::add(std::shared_ptr<NotificationObserver> observer) {
    const std::uint64_t order = observer->order();
    content->entries.push_back({order, std::move(observer)});
}

std::shared_ptr<NotificationObserver> ObserverList::remove(const NotificationObserver& observer) {
    std::vector<Entry>& all = content->entries;
    const auto comesBefore = [](const Entry& entry, std::uint64_t order) {
        return entry.order < order;
    };
    const auto found = std::lower_bound(all.begin(), all.end(), observer.order(), comesBefore);
    if (found == all.end() || found->observer.get() != &observer)
        return nullptr;

    std::shared_ptr<NotificationObserver> removed = std::move(found->observer);
    // Gaps are closed when half of the list is gaps, so that each removal costs little in the mean.
    ++content->endedCount;
    if (content->endedCount * 2 > all.size()) {
        std::erase_if(all, [](const Entry& entry) { return entry.observer == nullptr; });
        content->endedCount = 0;
    }
    return removed;
}

}  // namespace quorin
