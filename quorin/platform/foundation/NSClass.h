#pragma once

#include <atomic>
#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>
#include <typeinfo>

#include "quorin/platform/foundation/NSAction.h"
#include "quorin/platform/foundation/NSKeyedProperty.h"

namespace quorin {

class NSObject;

/// Called with an object that is about to be destroyed and still whole. Weak references to it
/// are empty by then.
using NSDeallocationCallback = void (*)(NSObject* object);

/// How a class of objects names itself and its superclass, which the language does not tell
/// while running: `using Class = NSClassOf<Layer, NSObject>;`.
template <typename Type, typename Super>
struct NSClassOf {
    using Self = Type;
    using Superclass = Super;
};

/// A class of objects as it is known while running: one for each C++ type, living as long as the
/// process. Safe to be used by several threads at once.
class NSClass {
public:
    NSClass(const NSClass&) = delete;
    NSClass& operator=(const NSClass&) = delete;

    /// The class of `Type`, which has to declare itself by `NSClassOf`. Its own keys are those that
    /// its `static void declareKeys(NSKeyList<Type>&)` names, if there is one, and its own actions
    /// those that its `static void declareActions(NSActionList<Type>&)` names.
    template <typename Type>
    static NSClass& of();

    /// The name of the type without what it is nested in.
    const std::string& name() const { return _name; }
    const std::type_info& type() const { return _type; }
    /// Null for the class of NSObject itself.
    NSClass* superclass() const { return _superclass; }

    /// The class's own or inherited key; null when there is none.
    const NSKeyedProperty* property(std::string_view key) const;
    /// The same; stops the process, naming class and key, when there is none.
    const NSKeyedProperty& requiredProperty(std::string_view key) const;

    /// The class's own or inherited action; null when there is none.
    const NSAction* action(std::string_view name) const;
    /// The same; stops the process, naming class and action, when there is none.
    const NSAction& requiredAction(std::string_view name) const;

    /// Has `callback` called before an instance of this class or of a subclass is destroyed, ahead
    /// of those that were added earlier.
    void addDeallocationCallback(NSDeallocationCallback callback);
    /// Calls those of the class, then those of its superclasses.
    void willDeallocate(NSObject& object) const;

private:
    struct AddedCallback {
        NSDeallocationCallback callback;
        const AddedCallback* earlier;
    };

    NSClass(const std::type_info& type, NSClass* superclass, NSKeyedProperties properties,
            NSActions actions);

    template <typename Type>
    static NSClass* superclassOf() {
        using Superclass = typename Type::Class::Superclass;
        if constexpr (std::is_void_v<Superclass>) {
            return nullptr;
        } else {
            static_assert(std::derived_from<Type, Superclass>);
            return &of<Superclass>();
        }
    }

    template <typename Type>
    static NSKeyedProperties propertiesOf() {
        NSKeyedProperties properties;
        // An inherited declaration takes the list of another owner, so it is not found here.
        if constexpr (requires(NSKeyList<Type> & keys) { Type::declareKeys(keys); }) {
            NSKeyList<Type> keys(properties);
            Type::declareKeys(keys);
        }
        return properties;
    }

    template <typename Type>
    static NSActions actionsOf() {
        NSActions actions;
        if constexpr (requires(NSActionList<Type> & list) { Type::declareActions(list); }) {
            NSActionList<Type> list(actions);
            Type::declareActions(list);
        }
        return actions;
    }

    /// The entry of the class itself, else that of the closest superclass; null for none.
    template <typename Table>
    const typename Table::mapped_type* nearest(Table NSClass::*own, std::string_view name) const;

    const std::type_info& _type;
    std::string _name;
    NSClass* _superclass;
    NSKeyedProperties ownProperties;
    NSActions ownActions;
    // A list that only grows, so that objects may be destroyed while another thread adds to it.
    std::atomic<const AddedCallback*> deallocationCallbacks{nullptr};
};

template <typename Type>
NSClass& NSClass::of() {
    static_assert(std::same_as<typename Type::Class::Self, Type>,
                  "a class of objects declares `using Class = NSClassOf<itself, superclass>`");
    // Never destroyed: the last objects end after the static variables.
    static NSClass& instance =
        *new NSClass(typeid(Type), superclassOf<Type>(), propertiesOf<Type>(), actionsOf<Type>());
    return instance;
}

}  // namespace quorin
