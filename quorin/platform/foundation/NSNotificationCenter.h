#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "quorin/platform/foundation/NSNotification.h"
#include "quorin/platform/foundation/NSNotificationName.h"
#include "quorin/platform/values/Object.h"

namespace quorin {

/// Brings notifications to those who observe them, at once and on the thread that posts.
///
/// All of it may be used by several threads. A post goes to those who observe when it starts, in
/// the order in which they began: one added meanwhile waits for the next post, one removed
/// meanwhile is left out. Only a call that another thread is in, or about to enter, as the observer
/// is removed still runs to its end. What a block throws ends the post and reaches the poster.
class NSNotificationCenter {
public:
    using Block = std::function<void(const NSNotification&)>;

    /// The one of the process. It outlives all statics.
    static NSNotificationCenter& defaultCenter();

    NSNotificationCenter();
    NSNotificationCenter(const NSNotificationCenter&) = delete;
    NSNotificationCenter& operator=(const NSNotificationCenter&) = delete;
    /// A block may destroy the centre that calls it; the post then goes on to its end.
    ~NSNotificationCenter();

    /// Calls `block` for each post from now on until the observer handed out is removed; the centre
    /// keeps that one alive. Without a name every name is meant, without an object every sender.
    /// Senders are told apart by identity and are not kept alive: a new one that lies where an old
    /// one was is another one.
    std::shared_ptr<Object> addObserver(std::optional<NSNotificationName> name,
                                        const std::shared_ptr<Object>& object, Block block);
    /// Ends an observation; its block goes with the last holder of the observer. One that has ended
    /// already, null or an object of another centre changes nothing.
    void removeObserver(const std::shared_ptr<Object>& observer);

    void postNotification(const NSNotification& notification) const;

    /// Posts a value under the name of its type. Defined in `quorin/observation`, as are the
    /// values.
    template <typename Notification>
    void post(const Notification& value) const;

private:
    struct Observations;

    std::unique_ptr<Observations> observations;
};

}  // namespace quorin
