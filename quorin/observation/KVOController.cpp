#include "quorin/observation/KVOController.h"

#include <utility>

#include "quorin/observation/KVOObserver.h"

namespace quorin {

KVOController::~KVOController() { unobserve(); }

void KVOController::observe(NSObject& object, std::string_view forKeyPath,
                            NSKeyValueObservingOptions options, Block block) {
    const std::size_t hash = object.hashValue();
    auto observer = KVOObserver::start(
        object, forKeyPath, options,
        [block = std::move(block)](NSObject&, const NSKeyValueChangeRecord& change,
                                   const std::string& keyPath) {
            block(KVONotification(change, keyPath));
        });

    // Again while there is one: the closure that is released by stopping may observe anew.
    for (auto replaced = observerOf(hash, forKeyPath); replaced && replaced->observing;
         replaced = observerOf(hash, forKeyPath)) {
        if (!replaced->target.expired())
            replaced->stop();
        replaced->observing = false;
    }
    observations[hash].insert_or_assign(std::string(forKeyPath), std::move(observer));
}

std::shared_ptr<KVOObserver> KVOController::observerOf(std::size_t hash,
                                                       std::string_view keyPath) const {
    const auto entry = observations.find(hash);
    if (entry == observations.end())
        return nullptr;
    const auto found = entry->second.find(keyPath);
    return found == entry->second.end() ? nullptr : found->second;
}

void KVOController::observe(NSObject& object, std::span<const std::string> forKeyPaths,
                            NSKeyValueObservingOptions options, const Block& block) {
    for (const std::string& keyPath : forKeyPaths)
        observe(object, keyPath, options, block);
}

void KVOController::observe(NSObject& object, std::initializer_list<std::string_view> forKeyPaths,
                            NSKeyValueObservingOptions options, const Block& block) {
    for (const std::string_view keyPath : forKeyPaths)
        observe(object, keyPath, options, block);
}

void KVOController::unobserve(const NSObject& object) {
    const auto removed = observations.extract(object.hashValue());
    if (removed.empty())
        return;
    for (const auto& [keyPath, observer] : removed.mapped())
        if (!observer->target.expired())
            observer->stop();
}

void KVOController::unobserve(const NSObject& object, std::string_view forkeyPath) {
    const auto entry = observations.find(object.hashValue());
    if (entry == observations.end())
        return;
    const auto found = entry->second.find(forkeyPath);
    if (found == entry->second.end())
        return;
    const auto removed = entry->second.extract(found);
    removed.mapped()->stop();
}

void KVOController::unobserve(const NSObject& object, std::span<const std::string> forKeyPaths) {
    for (const std::string& keyPath : forKeyPaths)
        unobserve(object, keyPath);
}

void KVOController::unobserve(const NSObject& object,
                              std::initializer_list<std::string_view> forKeyPaths) {
    for (const std::string_view keyPath : forKeyPaths)
        unobserve(object, keyPath);
}

void KVOController::unobserve() {
    // A closure that is released may observe anew; that ends here as well.
    while (!observations.empty())
        for (const auto& [hash, observers] : std::exchange(observations, {}))
            for (const auto& [keyPath, observer] : observers)
                if (!observer->target.expired())
                    observer->stop();
}

}  // namespace quorin
