#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "quorin/platform/foundation/NSObject.h"

namespace quorin {

/// One observation of a `KVOController`: stands between one observed object and the closure that
/// wants to know. It starts observing once and never again after it was stopped. Both the
/// controller and the observed object keep it; it keeps neither.
class KVOObserver : public NSObject {
public:
    using Class = NSClassOf<KVOObserver, NSObject>;
    using Block = std::function<void(NSObject& object, const NSKeyValueChangeRecord& change,
                                     const std::string& keyPath)>;

    /// The context of every registration made here.
    static const void* privateContext();

    /// Stops, when the target still lives.
    ~KVOObserver() override;

    /// Attaches a new observer to `object`, from when on `block` is called.
    static std::shared_ptr<KVOObserver> start(NSObject& object, std::string_view keyPath,
                                              NSKeyValueObservingOptions options, Block block);
    /// Ends the registration, unless the target is gone or nothing is observed. A missing key path
    /// stops the process.
    void stop();

    void observeValue(const std::string* keyPath, NSObject* object,
                      const NSKeyValueChangeRecord* change, const void* context) override;
    std::string description() const override;

    std::weak_ptr<NSObject> target;
    std::optional<std::string> keyPath;
    std::optional<NSKeyValueObservingOptions> options;
    /// Shared, since stopping clears it and may happen while it runs.
    std::shared_ptr<const Block> block;
    bool observing = false;

private:
    static void targetWillDeallocate(NSObject* target);

    void attach(NSObject& object);
    void detach(NSObject& object);
};

}  // namespace quorin
