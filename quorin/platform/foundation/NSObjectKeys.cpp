/// How objects are read, set and changed by the names of their keys.
#include <exception>

#include "quorin/platform/foundation/NSObject.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {

namespace {

template <typename Keys>
void changeAll(NSObject& object, const Keys& keys, FunctionRef<void()> block) {
    const auto self = object.weak_from_this().lock();  // an observer may let go of the object
    std::exception_ptr failure;
    const auto attempt = [&](const auto& step) {
        try {
            step();
        } catch (...) {
            if (!failure)
                failure = std::current_exception();
        }
    };
    auto announced = keys.begin();
    attempt([&] {
        for (; announced != keys.end(); ++announced)
            object.willChangeValue(*announced);
        block();
    });
    // Every announcement has its end, whoever throws: what was changed so far has changed.
    for (auto key = keys.begin(); key != announced; ++key)
        attempt([&] { object.didChangeValue(*key); });
    if (failure)
        std::rethrow_exception(failure);
}

[[noreturn]] void refuse(const NSObject& object, std::string_view key, const char* why) {
    fatalError(std::string("key \"")
                   .append(key)
                   .append("\" of ")
                   .append(object.objectClass().name())
                   .append(why));
}

struct SplitPath {
    std::string_view first, rest;
    bool isKey;  // there is no rest
};

SplitPath split(std::string_view keyPath) {
    const std::size_t dot = keyPath.find('.');
    if (dot == std::string_view::npos)
        return {keyPath, {}, true};
    return {keyPath.substr(0, dot), keyPath.substr(dot + 1), false};
}

/// The object under `key` on the way along a key path; null when there is none.
std::shared_ptr<NSObject> objectOnTheWay(const NSObject& object, std::string_view key) {
    const Value value = object.valueForKey(key);
    auto next = std::dynamic_pointer_cast<NSObject>(value.asObject());
    if (!next && !value.isNothing())
        refuse(object, key, " is no object with keys");
    return next;
}

}  // namespace

Value NSObject::valueForKey(std::string_view key) const {
    return objectClass().requiredProperty(key).get(*this);
}

Value NSObject::valueForKeyPath(std::string_view keyPath) const {
    std::shared_ptr<NSObject> holder;  // what was reached by a key may have no other owner
    const NSObject* object = this;
    SplitPath path = split(keyPath);
    for (; !path.isKey; path = split(path.rest)) {
        holder = objectOnTheWay(*object, path.first);
        if (!holder)
            return {};
        object = holder.get();
    }
    return object->valueForKey(path.first);
}

void NSObject::setValueForKey(const Value& value, std::string_view key) {
    const NSKeyedProperty& property = objectClass().requiredProperty(key);
    if (!property.set)
        refuse(*this, key, " can only be read");
    const auto set = [&] {
        if (!property.set(*this, value))
            refuse(*this, key, " cannot hold a value of this type");
    };
    if (property.isReportedBySetter)
        set();
    else
        changeValues({key}, set);
}

void NSObject::setValueForKeyPath(const Value& value, std::string_view keyPath) {
    std::shared_ptr<NSObject> holder;
    NSObject* object = this;
    SplitPath path = split(keyPath);
    for (; !path.isKey; path = split(path.rest)) {
        holder = objectOnTheWay(*object, path.first);
        if (!holder)
            return;
        object = holder.get();
    }
    object->setValueForKey(value, path.first);
}

void NSObject::changeValues(std::span<const std::string> forKeys, FunctionRef<void()> block) {
    changeAll(*this, forKeys, block);
}

void NSObject::changeValues(std::initializer_list<std::string_view> forKeys,
                            FunctionRef<void()> block) {
    changeAll(*this, forKeys, block);
}

void NSObject::changeValues(std::span<const std::string> forKeys) {
    changeAll(*this, forKeys, [] {});
}

void NSObject::changeValues(std::initializer_list<std::string_view> forKeys) {
    changeAll(*this, forKeys, [] {});
}

}  // namespace quorin
