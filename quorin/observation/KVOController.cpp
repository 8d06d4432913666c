#include "quorin/observation/KVOController.h"

#include <map>
#include <unordered_map>
#include <utility>

#include "quorin/observation/KVOObserver.h"

namespace quorin {

namespace {

/// Holds on to the object as well, which may end with a block that is released.
template <typename KeyPaths, typename Operation>
void forEach(const NSObject& object, const KeyPaths& keyPaths, Operation operation) {
    const auto kept = object.weak_from_this().lock();
    for (const std::string_view keyPath : keyPaths)
        operation(keyPath);
}

}  // namespace

struct KVOController::Observations {
    using ObserversByKeyPath = std::map<std::string, std::shared_ptr<KVOObserver>, std::less<>>;

    /// What began to observe while the registry ended, too.
    ~Observations() { stopAll(); }

    void start(NSObject& object, std::string_view keyPath, NSKeyValueObservingOptions options,
               Block block);
    void stop(const NSObject& object);
    void stop(const NSObject& object, std::string_view keyPath);
    void stopAll();

    std::shared_ptr<KVOObserver> observerOf(std::size_t hash, std::string_view keyPath) const;

    std::unordered_map<std::size_t, ObserversByKeyPath> byHashValue;
};

void KVOController::Observations::start(NSObject& object, std::string_view keyPath,
                                        NSKeyValueObservingOptions options, Block block) {
    const auto kept = object.weak_from_this().lock();  // the block may let go of it at once
    auto observer =
        KVOObserver::start(object, keyPath, options,
                           [block = std::move(block)](
                               NSObject&, const NSKeyValueChangeRecord& change,
                               const std::string& path) { block(KVONotification(change, path)); });

    const std::size_t hash = object.hashValue();
    const std::string path = observer->keyPath.value();  // what the caller's refers to may go
    // Again while there is one: the closure that is released by stopping may observe anew.
    for (auto replaced = observerOf(hash, path); replaced && replaced->observing;
         replaced = observerOf(hash, path)) {
        if (!replaced->target.expired())
            replaced->stop();
        replaced->observing = false;
    }
    byHashValue[hash].insert_or_assign(path, std::move(observer));
}

void KVOController::Observations::stop(const NSObject& object) {
    const auto removed = byHashValue.extract(object.hashValue());
    if (removed.empty())
        return;
    for (const auto& [keyPath, observer] : removed.mapped())
        if (!observer->target.expired())
            observer->stop();
}

void KVOController::Observations::stop(const NSObject& object, std::string_view keyPath) {
    const auto entry = byHashValue.find(object.hashValue());
    if (entry == byHashValue.end())
        return;
    const auto found = entry->second.find(keyPath);
    if (found == entry->second.end())
        return;
    const auto removed = entry->second.extract(found);
    removed.mapped()->stop();
}

void KVOController::Observations::stopAll() {
    // A closure that is released may observe anew; that ends here as well.
    while (!byHashValue.empty())
        for (const auto& [hash, observers] : std::exchange(byHashValue, {}))
            for (const auto& [keyPath, observer] : observers)
                if (!observer->target.expired())
                    observer->stop();
}

std::shared_ptr<KVOObserver> KVOController::Observations::observerOf(
    std::size_t hash, std::string_view keyPath) const {
    const auto entry = byHashValue.find(hash);
    if (entry == byHashValue.end())
        return nullptr;
    const auto found = entry->second.find(keyPath);
    return found == entry->second.end() ? nullptr : found->second;
}

KVOController::KVOController() : observations(std::make_shared<Observations>()) {}

KVOController::~KVOController() { unobserve(); }

void KVOController::observe(NSObject& object, std::string_view forKeyPath,
                            NSKeyValueObservingOptions options, Block block) {
    const auto kept = observations;
    kept->start(object, forKeyPath, options, std::move(block));
}

void KVOController::observe(NSObject& object, std::span<const std::string> forKeyPaths,
                            NSKeyValueObservingOptions options, const Block& block) {
    forEach(object, forKeyPaths, [&, kept = observations](std::string_view keyPath) {
        kept->start(object, keyPath, options, block);
    });
}

void KVOController::observe(NSObject& object, std::initializer_list<std::string_view> forKeyPaths,
                            NSKeyValueObservingOptions options, const Block& block) {
    forEach(object, forKeyPaths, [&, kept = observations](std::string_view keyPath) {
        kept->start(object, keyPath, options, block);
    });
}

void KVOController::unobserve(const NSObject& object) {
    const auto kept = observations;
    kept->stop(object);
}

void KVOController::unobserve(const NSObject& object, std::string_view forkeyPath) {
    const auto kept = observations;
    kept->stop(object, forkeyPath);
}

void KVOController::unobserve(const NSObject& object, std::span<const std::string> forKeyPaths) {
    forEach(object, forKeyPaths,
            [&, kept = observations](std::string_view keyPath) { kept->stop(object, keyPath); });
}

void KVOController::unobserve(const NSObject& object,
                              std::initializer_list<std::string_view> forKeyPaths) {
    forEach(object, forKeyPaths,
            [&, kept = observations](std::string_view keyPath) { kept->stop(object, keyPath); });
}

void KVOController::unobserve() {
    const auto kept = observations;
    kept->stopAll();
}

}  // namespace quorin
