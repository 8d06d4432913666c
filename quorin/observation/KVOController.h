#pragma once

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "quorin/observation/KVONotification.h"
#include "quorin/platform/foundation/NSObject.h"

namespace quorin {

/// A registry of closures that watch key paths of objects. No observation outlives either side: a
/// registry that ends stops all of its own, and those of an object end before it is destroyed.
///
/// There is one observation for an object and key path; a second takes the place of the first.
/// Objects are told apart by `hashValue`. A block that holds its registry or the observed object
/// keeps it alive; it may observe and unobserve while it runs, and release the registry or the
/// object. What it throws reaches whoever makes the change; at the initial value it reaches the
/// caller of `observe`, who then observes what was observed before. Not locked: for one thread at a
/// time.
class KVOController {
public:
    using Block = std::function<void(const KVONotification&)>;

    KVOController();
    KVOController(const KVOController&) = delete;
    KVOController& operator=(const KVOController&) = delete;
    ~KVOController();

    /// Calls `block` for every change from now on, and once at once when `options` asks for the
    /// initial value.
    void observe(NSObject& object, std::string_view forKeyPath, NSKeyValueObservingOptions options,
                 Block block);
    /// The same for each key path in order.
    void observe(NSObject& object, std::span<const std::string> forKeyPaths,
                 NSKeyValueObservingOptions options, const Block& block);
    void observe(NSObject& object, std::initializer_list<std::string_view> forKeyPaths,
                 NSKeyValueObservingOptions options, const Block& block);

    // What is not observed is no error in any of these.
    /// Stops every observation of the object.
    void unobserve(const NSObject& object);
    void unobserve(const NSObject& object, std::string_view forkeyPath);
    void unobserve(const NSObject& object, std::span<const std::string> forKeyPaths);
    void unobserve(const NSObject& object, std::initializer_list<std::string_view> forKeyPaths);
    /// Stops every observation of the registry.
    void unobserve();

private:
    struct Observations;

    // Shared with the operations that run: a block that they call or release may be the end of the
    // registry.
    std::shared_ptr<Observations> observations;
};

}  // namespace quorin
