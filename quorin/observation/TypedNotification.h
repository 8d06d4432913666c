#pragma once

#include <concepts>
#include <memory>
#include <utility>

#include "quorin/observation/NotificationToken.h"
#include "quorin/observation/TypeName.h"
#include "quorin/platform/foundation/NSNotificationCenter.h"

namespace quorin {

/// A type that states the name under which its values travel, rather than going by its own.
template <typename Type>
concept StatesNotificationName = requires {
    { Type::name() } -> std::convertible_to<NSNotificationName>;
};

/// A value that can travel as a notification: it is made from one that was received, may state
/// the name to travel under in place of its type's own, and tells its sender (null for none) and
/// what goes with it (nothing for nothing).
///
///     struct SelectionDidChange {
///         explicit SelectionDidChange(const NSNotification& note);
///         static NSNotificationName name();  // may be left out
///         std::shared_ptr<Object> object() const;
///         NSNotification::UserInfo userInfo() const;
///     };
template <typename Type>
concept TypedNotification = std::constructible_from<Type, const NSNotification&> &&
    requires(const Type& value) {
    { value.object() } -> std::convertible_to<std::shared_ptr<Object>>;
    { value.userInfo() } -> std::convertible_to<NSNotification::UserInfo>;
};

/// The name that the type states; by default its own name as text.
template <TypedNotification Type>
NSNotificationName notificationName() {
    if constexpr (StatesNotificationName<Type>) {
        return Type::name();
    } else {
        static const NSNotificationName name(typeName<Type>());
        return name;
    }
}

/// Posts the value on the default centre.
template <TypedNotification Type>
void post(const Type& value) {
    NSNotificationCenter::defaultCenter().post(value);
}

template <typename Type>
void NSNotificationCenter::post(const Type& value) const {
    static_assert(TypedNotification<Type>);
    postNotification(NSNotification(notificationName<Type>(), value.object(), value.userInfo()));
}

/// Calls back with a value for every notification of the type on the default centre, on the thread
/// that posts, until the token is released. With a sender only for those that it sends. The value
/// is made anew for each call, from what was received.
template <TypedNotification Type, std::invocable<Type> Callback>
[[nodiscard]] std::shared_ptr<NotificationToken> startObserving(
    const std::shared_ptr<Object>& withObject, Callback callback) {
    return std::make_shared<NotificationToken>(NSNotificationCenter::defaultCenter().addObserver(
        notificationName<Type>(), withObject,
        [callback = std::move(callback)](const NSNotification& note) mutable {
            callback(Type(note));
        }));
}

}  // namespace quorin
