#pragma once

#include <concepts>
#include <cstddef>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "quorin/platform/foundation/NSClass.h"
#include "quorin/platform/foundation/NSIndexSet.h"
#include "quorin/platform/foundation/NSKeyValueChange.h"
#include "quorin/platform/values/FunctionRef.h"
#include "quorin/platform/values/Object.h"
#include "quorin/platform/values/Value.h"

namespace quorin {

class KeyValueObservations;

/// An object with identity that knows its class, can be read and set by keys, and be observed.
/// Made by `makeObject` and held by `std::shared_ptr`. Its class declares itself and its keys:
///
///     class Layer : public NSObject {
///     public:
///         using Class = NSClassOf<Layer, NSObject>;
///         static void declareKeys(NSKeyList<Layer>& keys) {
///             keys.property("name", &Layer::name, &Layer::setName);
///         }
///
/// A key path is keys joined by dots: `parent.frame`. A key that a class does not have stops the
/// process with a message that names class and key, as does a value that a key cannot hold.
///
/// Objects are not locked: changing, observing and releasing one is for one thread at a time, and
/// changes are delivered on the thread that makes them.
class NSObject : public Object, public std::enable_shared_from_this<NSObject> {
public:
    using Class = NSClassOf<NSObject, void>;

    ~NSObject() override;

    const NSClass& objectClass() const { return ownClass(); }
    NSClass& objectClass() { return ownClass(); }

    /// Stands for the object in tables; tells objects apart unless a class says otherwise.
    virtual std::size_t hashValue() const;
    /// The class and where the object is: `<Layer: 0x55d0c8>`.
    std::string description() const override;

    /// Keeps `value` with this object under a private key, the address of some variable, in place
    /// of what was there. It is released after the destructors of the object's classes have run,
    /// or by a null pointer.
    void setAssociatedObject(const void* key, std::shared_ptr<Object> value);
    /// Null when there is none.
    std::shared_ptr<Object> associatedObject(const void* key) const;

    Value valueForKey(std::string_view key) const;
    /// Nothing when an object on the way is missing.
    Value valueForKeyPath(std::string_view keyPath) const;
    /// Announces the change, unless the setter does.
    void setValueForKey(const Value& value, std::string_view key);
    /// Does nothing when an object on the way is missing.
    void setValueForKeyPath(const Value& value, std::string_view keyPath);

    /// Has `observer` told of every change of the value at `keyPath`, whether a class on the way
    /// announces it for the last key or for an earlier one. Registering twice tells twice; the
    /// context tells registrations apart. The observer is not kept alive: one that is gone is not
    /// told. An object that is destroyed while a living observer is registered stops the process.
    void addObserver(NSObject& observer, std::string_view keyPath,
                     NSKeyValueObservingOptions options, const void* context = nullptr);
    /// Ends the latest such registration; none stops the process.
    void removeObserver(NSObject& observer, std::string_view keyPath, const void* context);
    /// The same with whatever context.
    void removeObserver(NSObject& observer, std::string_view keyPath);

    /// What an observer is told: the path and the object of its registration, and the change.
    /// A class that observes overrides this; being told without that stops the process.
    virtual void observeValue(const std::string* keyPath, NSObject* object,
                              const NSKeyValueChangeRecord* change, const void* context);

    /// Announce a change of the value under a key, in pairs around it. The pairs of one key are
    /// nested. Observers are told in the order of their registration, those that stop observing
    /// meanwhile no more; a change made by one that is being told is delivered at once. What one
    /// throws ends the delivery and reaches the caller; an announcement that ends so was not made.
    void willChangeValue(std::string_view key);
    void didChangeValue(std::string_view key);

    /// Announce that elements of an ordered collection, whose key reads as a list, come at these
    /// places (where they are afterwards), go from them, or are replaced there.
    void willChange(NSKeyValueChange kind, std::shared_ptr<NSIndexSet> indexes,
                    std::string_view key);
    void didChange(NSKeyValueChange kind, const std::shared_ptr<NSIndexSet>& indexes,
                   std::string_view key);

    /// Announces will-change for the keys in order, runs `block`, announces did-change in the same
    /// order. When the block or an observer throws, each announcement is ended nonetheless, and the
    /// first exception reaches the caller.
    void changeValues(std::span<const std::string> forKeys, FunctionRef<void()> block);
    void changeValues(std::initializer_list<std::string_view> forKeys, FunctionRef<void()> block);
    /// For values that change by themselves: announces without running anything.
    void changeValues(std::span<const std::string> forKeys);
    void changeValues(std::initializer_list<std::string_view> forKeys);

protected:
    NSObject();

private:
    template <typename Type, typename... Arguments>
    requires std::derived_from<Type, NSObject>
    friend std::shared_ptr<Type> makeObject(Arguments&&... arguments);
    friend class KeyValueObservations;

    static void deallocate(NSObject* object) noexcept;

    NSClass& ownClass() const;
    KeyValueObservations& madeObservations();

    NSClass* isa = nullptr;
    std::unique_ptr<KeyValueObservations> observations;  // null until somebody observes
    std::vector<std::pair<const void*, std::shared_ptr<Object>>> associatedObjects;
};

/// Makes an object whose end is announced to its class before its destructor runs.
template <typename Type, typename... Arguments>
requires std::derived_from<Type, NSObject> std::shared_ptr<Type> makeObject(
    Arguments&&... arguments) {
    NSClass& isa = NSClass::of<Type>();
    auto* object = new Type(std::forward<Arguments>(arguments)...);
    object->isa = &isa;
    return std::shared_ptr<Type>(object, &NSObject::deallocate);
}

}  // namespace quorin
