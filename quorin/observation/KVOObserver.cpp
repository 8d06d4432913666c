#include "quorin/observation/KVOObserver.h"

#include <unordered_map>
#include <utility>
#include <vector>

#include "quorin/observation/SwizzleObjectClass.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {

namespace {

const char observationContext = 0;  // only the address counts
const char attachedObserversKey = 0;

/// The observers that are attached to one object; found by address, since one that is being
/// destroyed has no other name.
struct AttachedObservers : Object {
    std::string description() const override {
        return std::to_string(members.size()).append(" observers");
    }

    std::unordered_map<const KVOObserver*, std::shared_ptr<KVOObserver>> members;
};

std::shared_ptr<AttachedObservers> attachedObservers(const NSObject& object) {
    return std::static_pointer_cast<AttachedObservers>(
        object.associatedObject(&attachedObserversKey));
}

}  // namespace

const void* KVOObserver::privateContext() { return &observationContext; }

KVOObserver::~KVOObserver() {
    if (observing && !target.expired())
        stop();
    observing = false;
}

std::shared_ptr<KVOObserver> KVOObserver::start(NSObject& object, std::string_view keyPath,
                                                NSKeyValueObservingOptions options, Block block) {
    const auto observer = makeObject<KVOObserver>();
    observer->target = object.weak_from_this();
    observer->keyPath = std::string(keyPath);
    observer->options = options;
    observer->block = std::make_shared<const Block>(std::move(block));
    const auto target = observer->target.lock();  // the block may let go of it at once
    if (target) {
        observer->attach(*target);
        swizzleObjectClassIfNeeded(target.get(), &targetWillDeallocate);
    }
    try {
        object.addObserver(*observer, keyPath, options, privateContext());
    } catch (...) {  // thrown by the block when it got the initial value
        observer->detach(object);
        throw;
    }
    observer->observing = true;
    return observer;
}

void KVOObserver::attach(NSObject& object) {
    auto attached = attachedObservers(object);
    if (!attached) {
        attached = std::make_shared<AttachedObservers>();
        object.setAssociatedObject(&attachedObserversKey, attached);
    }
    attached->members.emplace(this, std::static_pointer_cast<KVOObserver>(shared_from_this()));
}

void KVOObserver::detach(NSObject& object) {
    if (const auto attached = attachedObservers(object))
        attached->members.erase(this);
}

void KVOObserver::stop() {
    std::shared_ptr<const Block> cleared;  // what it holds is released when all is done
    const auto self = weak_from_this().lock();
    if (observing) {
        if (!keyPath)
            fatalError(description().append(" is stopped without a key path"));
        if (const auto object = target.lock()) {
            object->removeObserver(*this, *keyPath, privateContext());
            detach(*object);
        }
        cleared = std::exchange(block, nullptr);
    }
    observing = false;
}

void KVOObserver::targetWillDeallocate(NSObject* target) {
    const auto attached = attachedObservers(*target);
    if (!attached)
        return;
    // The closures are released after the last registration has ended: what they hold may reach
    // for the other observers of this object.
    std::vector<std::shared_ptr<const Block>> cleared;
    for (const auto& [address, observer] : std::exchange(attached->members, {})) {
        if (observer->observing) {
            target->removeObserver(*observer, observer->keyPath.value(), privateContext());
            cleared.push_back(std::exchange(observer->block, nullptr));
        }
        observer->observing = false;
    }
}

void KVOObserver::observeValue(const std::string* path, NSObject*,
                               const NSKeyValueChangeRecord* change, const void* context) {
    const auto object = target.lock();
    if (!path || !object || !change || context != privateContext())
        return;
    if (const auto running = block)
        (*running)(*object, *change, *path);
}

std::string KVOObserver::description() const {
    std::string text = NSObject::description();
    text.append(": keyPath: ").append(keyPath ? "Optional(\"" + *keyPath + "\")" : "nil");
    const auto object = target.lock();
    text.append(" target: ").append(object ? "Optional(" + object->description() + ")" : "nil");
    return text.append(" observing ").append(observing ? "true" : "false");
}

}  // namespace quorin
