#include "quorin/platform/foundation/NSObject.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <sstream>

#include "quorin/platform/foundation/KeyValueObservations.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {

NSObject::NSObject() = default;
NSObject::~NSObject() = default;

void NSObject::deallocate(NSObject* object) noexcept {
    object->isa->willDeallocate(*object);
    if (object->observations)
        object->observations->end(*object);
    object->observations.reset();
    delete object;
}

NSClass& NSObject::ownClass() const {
    if (!isa)
        fatalError("an object that was not made by makeObject has no class");
    return *isa;
}

KeyValueObservations& NSObject::madeObservations() {
    if (!observations)
        observations = std::make_unique<KeyValueObservations>();
    return *observations;
}

std::size_t NSObject::hashValue() const { return std::hash<const NSObject*>()(this); }

std::string NSObject::description() const {
    std::ostringstream text;
    text << '<' << (isa ? isa->name() : "NSObject") << ": 0x" << std::hex
         << reinterpret_cast<std::uintptr_t>(this) << '>';
    return text.str();
}

void NSObject::setAssociatedObject(const void* key, std::shared_ptr<Object> value) {
    const auto found = std::find_if(associatedObjects.begin(), associatedObjects.end(),
                                    [&](const auto& each) { return each.first == key; });
    if (found == associatedObjects.end()) {
        if (value)
            associatedObjects.emplace_back(key, std::move(value));
        return;
    }
    // What goes is released last of all: its end may come back here.
    const auto replaced = std::exchange(found->second, std::move(value));
    if (!found->second)
        associatedObjects.erase(found);
}

std::shared_ptr<Object> NSObject::associatedObject(const void* key) const {
    for (const auto& [each, value] : associatedObjects)
        if (each == key)
            return value;
    return nullptr;
}

void NSObject::addObserver(NSObject& observer, std::string_view keyPath,
                           NSKeyValueObservingOptions options, const void* context) {
    const auto self = weak_from_this().lock();
    if (!self)
        fatalError(description().append(" cannot be observed while it is destroyed"));
    madeObservations().add(self, observer, keyPath, options, context);
}

void NSObject::removeObserver(NSObject& observer, std::string_view keyPath, const void* context) {
    if (!observations || !observations->remove(*this, observer, keyPath, &context))
        fatalError(observer.description()
                       .append(" does not observe \"")
                       .append(keyPath)
                       .append("\" of ")
                       .append(description())
                       .append(" in this context"));
}

void NSObject::removeObserver(NSObject& observer, std::string_view keyPath) {
    if (!observations || !observations->remove(*this, observer, keyPath, nullptr))
        fatalError(observer.description()
                       .append(" does not observe \"")
                       .append(keyPath)
                       .append("\" of ")
                       .append(description()));
}

void NSObject::observeValue(const std::string* keyPath, NSObject*, const NSKeyValueChangeRecord*,
                            const void*) {
    fatalError(description()
                   .append(" was told of a change of \"")
                   .append(keyPath ? *keyPath : "")
                   .append("\", but its class observes nothing"));
}

void NSObject::willChangeValue(std::string_view key) {
    willChange(NSKeyValueChange::setting, nullptr, key);
}

void NSObject::didChangeValue(std::string_view key) {
    didChange(NSKeyValueChange::setting, nullptr, key);
}

void NSObject::willChange(NSKeyValueChange kind, std::shared_ptr<NSIndexSet> indexes,
                          std::string_view key) {
    if (observations)
        observations->willChange(*this, kind, std::move(indexes), key);
}

void NSObject::didChange(NSKeyValueChange kind, const std::shared_ptr<NSIndexSet>& indexes,
                         std::string_view key) {
    if (observations)
        observations->didChange(*this, kind, indexes, key);
}

}  // namespace quorin
