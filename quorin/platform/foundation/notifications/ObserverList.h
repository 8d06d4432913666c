#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "quorin/platform/foundation/NSNotificationCenter.h"

namespace quorin {

/// One observation: for what, and what to do then.
class NotificationObserver final : public Object {
public:
    NotificationObserver(std::optional<NSNotificationName> observedName,
                         const std::shared_ptr<Object>& observedSender,
                         NSNotificationCenter::Block toCall);

    std::string description() const override;

    const std::optional<NSNotificationName>& name() const { return _name; }
    /// Its place among all observers of its centre, given when it is added there.
    std::uint64_t order() const { return _order; }
    void setOrder(std::uint64_t order) { _order = order; }

    /// Calls the block, unless the observation has ended or is about another sender.
    void receive(const NSNotification& notification) const;
    void end() { hasEnded.store(true, std::memory_order_release); }

private:
    bool isAbout(const std::shared_ptr<Object>& object) const;

    std::optional<NSNotificationName> _name;
    std::uint64_t _order = 0;
    const Object* sender;  // null for any
    // The address may be given again to another object, its owner may not while this refers to it.
    std::weak_ptr<Object> owner;
    NSNotificationCenter::Block block;
    std::atomic<bool> hasEnded = false;
};

/// The observers of one name in the order in which they began. Copies share their content, for a
/// post to walk while the centre goes on with a content of its own.
///
/// Counted here rather than by `std::shared_ptr`, which cannot tell reliably that it is the only
/// holder: others may still be reading as its count drops to one.
class ObserverList {
public:
    struct Entry {
        std::uint64_t order = 0;
        std::shared_ptr<NotificationObserver> observer;  // null after its end
    };

    ObserverList() = default;
    ObserverList(const ObserverList& other);
    ObserverList(ObserverList&& other) noexcept;
    ObserverList& operator=(ObserverList other) noexcept;
    ~ObserverList();

    std::span<const Entry> entries() const;

    /// Makes this the only holder of its content, before a change. What it held goes to `former`,
    /// to be released when no lock is held: blocks may go with it, and whatever they own.
    void unshare(ObserverList& former);
    /// Both need a list that is the only holder. What is added comes after all others in order.
    void add(std::shared_ptr<NotificationObserver> observer);
    /// Hands the observer out, to be released as above; null when it is not in the list.
    std::shared_ptr<NotificationObserver> remove(const NotificationObserver& observer);

private:
    struct Content {
        std::atomic<std::size_t> holders = 1;
        std::vector<Entry> entries;
        std::size_t endedCount = 0;
    };

    Content* content = nullptr;
};

}  // namespace quorin
