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

NSClass::NSClass(const std::type_info& type, NSClass* superclass, NSKeyedProperties properties,
                 NSActions actions)
    : _type(type),
      _name(unqualifiedName(type)),
      _superclass(superclass),
      ownProperties(std::move(properties)),
      ownActions(std::move(actions)) {}

template <typename Table>
const typename Table::mapped_type* NSClass::nearest(Table NSClass::*own,
                                                    std::string_view name) const {
    for (const NSClass* each = this; each; each = each->_superclass) {
        const auto found = (each->*own).find(name);
        if (found != (each->*own).end())
            return &found->second;
    }
    return nullptr;
}

const NSKeyedProperty* NSClass::property(std::string_view key) const {
    return nearest(&NSClass::ownProperties, key);
}

const NSKeyedProperty& NSClass::requiredProperty(std::string_view key) const {
    const NSKeyedProperty* found = property(key);
    if (!found)
        fatalError(std::string(_name).append(" has no key \"").append(key).append("\""));
    return *found;
}

const NSAction* NSClass::action(std::string_view name) const {
    return nearest(&NSClass::ownActions, name);
}

const NSAction& NSClass::requiredAction(std::string_view name) const {
    const NSAction* found = action(name);
    if (!found)
        fatalError(std::string(_name).append(" has no action \"").append(name).append("\""));
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
