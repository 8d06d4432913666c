#include "quorin/platform/foundation/NSClass.h"

#include <cxxabi.h>

#include <cstdlib>
#include <memory>
#include <utility>

#include "quorin/platform/values/FatalError.h"

namespace quorin {

namespace {

std::string unqualifiedName(const std::type_info& type) {
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> readable(
        abi::__cxa_demangle(type.name(), nullptr, nullptr, &status), &std::free);
    const std::string full = status == 0 ? readable.get() : type.name();
    // What stands in template arguments is part of the name.
    const std::size_t colon = full.rfind("::", full.find('<'));
    return colon == std::string::npos ? full : full.substr(colon + 2);
}

}  // namespace

NSClass::NSClass(const std::type_info& type, NSClass* superclass, NSKeyedProperties properties)
    : _type(type),
      _name(unqualifiedName(type)),
      _superclass(superclass),
      ownProperties(std::move(properties)) {}

const NSKeyedProperty* NSClass::property(std::string_view key) const {
    for (const NSClass* each = this; each; each = each->_superclass) {
        const auto found = each->ownProperties.find(key);
        if (found != each->ownProperties.end())
            return &found->second;
    }
    return nullptr;
}

const NSKeyedProperty& NSClass::requiredProperty(std::string_view key) const {
    const NSKeyedProperty* found = property(key);
    if (!found)
        fatalError(std::string(_name).append(" has no key \"").append(key).append("\""));
    return *found;
}

void NSClass::addDeallocationCallback(NSDeallocationCallback callback) {
    auto* const added = new AddedCallback{callback, deallocationCallbacks};
    while (!deallocationCallbacks.compare_exchange_weak(added->earlier, added)) {
    }
}

void NSClass::willDeallocate(NSObject& object) const {
    for (const NSClass* owner = this; owner; owner = owner->_superclass)
        for (const AddedCallback* each = owner->deallocationCallbacks; each; each = each->earlier)
            each->callback(&object);
}

}  // namespace quorin
