#pragma once

#include <cmath>
#include <concepts>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "quorin/platform/values/Value.h"

namespace quorin {

class NSObject;

/// What a class says about one of its keys.
struct NSKeyedProperty {
    std::function<Value(const NSObject&)> get;
    /// Empty for a key that can only be read. False for a value of another type, which changes
    /// nothing.
    std::function<bool(NSObject&, const Value&)> set;
    /// Whether `set` announces its change; otherwise whoever sets by name does.
    bool isReportedBySetter = false;
};

using NSKeyedProperties = std::map<std::string, NSKeyedProperty, std::less<>>;

/// How values of one type are taken out of a `Value`: nothing when it holds another type. A number
/// is no Boolean and a Boolean is no number; a whole double is an integer, if it fits.
template <typename Type>
struct NSKeyedType {
    static std::optional<Type> from(const Value& value) {
        if constexpr (std::same_as<Type, Value>) {
            return value;
        } else if constexpr (std::same_as<Type, bool>) {
            return value.asBool();
        } else if constexpr (std::is_enum_v<Type>) {
            const auto number = NSKeyedType<std::underlying_type_t<Type>>::from(value);
            return number ? std::optional(static_cast<Type>(*number)) : std::nullopt;
        } else if constexpr (std::floating_point<Type>) {
            const auto number = value.asNumber();
            return number ? std::optional(static_cast<Type>(*number)) : std::nullopt;
        } else if constexpr (std::integral<Type>) {
            const auto number = wholeNumber(value);
            return number && std::in_range<Type>(*number)
                       ? std::optional(static_cast<Type>(*number))
                       : std::nullopt;
        } else if constexpr (std::same_as<Type, std::string>) {
            return copied(value.asText());
        } else if constexpr (std::same_as<Type, Value::Map>) {
            return copied(value.asMap());
        } else if constexpr (std::same_as<Type, CGPoint>) {
            return value.asPoint();
        } else if constexpr (std::same_as<Type, CGSize>) {
            return value.asSize();
        } else if constexpr (std::same_as<Type, CGRect>) {
            return value.asRect();
        } else if constexpr (std::same_as<Type, CATransform3D>) {
            return value.asTransform3D();
        } else {
            static_assert(std::same_as<Type, CGColor>, "no keyed property can have this type");
            return value.asColor();
        }
    }

    static Value to(const Type& value) {
        if constexpr (std::is_enum_v<Type>)
            return static_cast<std::underlying_type_t<Type>>(value);
        else
            return value;
    }

private:
    static std::optional<Type> copied(const Type* value) {
        return value ? std::optional(*value) : std::nullopt;
    }

    static std::optional<std::int64_t> wholeNumber(const Value& value) {
        const auto number = value.asDouble();
        if (!number)
            return value.asInteger();
        // 2^63 itself no longer fits.
        const bool fits = *number >= -0x1p63 && *number < 0x1p63 && std::trunc(*number) == *number;
        return fits ? std::optional(static_cast<std::int64_t>(*number)) : std::nullopt;
    }
};

/// Nothing is a null pointer.
template <typename Kind>
struct NSKeyedType<std::shared_ptr<Kind>> {
    static std::optional<std::shared_ptr<Kind>> from(const Value& value) {
        if (value.isNothing())
            return std::shared_ptr<Kind>();
        auto object = std::dynamic_pointer_cast<Kind>(value.asObject());
        return object ? std::optional(std::move(object)) : std::nullopt;
    }

    static Value to(const std::shared_ptr<Kind>& object) { return object; }
};

/// For properties that hold their object weakly: one that is gone reads as nothing.
template <typename Kind>
struct NSKeyedType<std::weak_ptr<Kind>> {
    static std::optional<std::weak_ptr<Kind>> from(const Value& value) {
        return NSKeyedType<std::shared_ptr<Kind>>::from(value);
    }

    static Value to(const std::weak_ptr<Kind>& object) { return object.lock(); }
};

template <typename Wrapped>
struct NSKeyedType<std::optional<Wrapped>> {
    static std::optional<std::optional<Wrapped>> from(const Value& value) {
        if (value.isNothing())
            return std::optional<Wrapped>();
        auto wrapped = NSKeyedType<Wrapped>::from(value);
        if (!wrapped)
            return std::nullopt;  // of the outer kind: no value that the key can hold
        return std::optional<std::optional<Wrapped>>(std::move(wrapped));
    }

    static Value to(const std::optional<Wrapped>& value) {
        return value ? NSKeyedType<Wrapped>::to(*value) : Value();
    }
};

/// Every element has to be of the type.
template <typename Element>
struct NSKeyedType<std::vector<Element>> {
    static std::optional<std::vector<Element>> from(const Value& value) {
        if (!value.asList())
            return std::nullopt;
        std::vector<Element> elements;
        for (const Value& each : *value.asList()) {
            auto element = NSKeyedType<Element>::from(each);
            if (!element)
                return std::nullopt;
            elements.push_back(*std::move(element));
        }
        return elements;
    }

    static Value to(const std::vector<Element>& elements) {
        Value::List list;
        for (const auto& element : elements)
            list.push_back(NSKeyedType<Element>::to(element));
        return list;
    }
};

/// Where a class names its keys. A getter is a member, a member function or any other callable
/// that takes the owner; its type is the type of the key. A setter takes the owner and a value.
template <typename Owner>
class NSKeyList {
public:
    explicit NSKeyList(NSKeyedProperties& named) : properties(named) {}

    /// A key that can only be read.
    template <typename Getter>
    NSKeyList& property(std::string_view key, Getter getter) {
        add(key, {reading(getter), {}, false});
        return *this;
    }

    /// A key whose setter announces nothing: setting it by name announces the change around it.
    template <typename Getter, typename Setter>
    NSKeyList& property(std::string_view key, Getter getter, Setter setter) {
        add(key, {reading(getter), writing<Getter>(setter), false});
        return *this;
    }

    /// A key whose setter announces the change, whoever calls it.
    template <typename Getter, typename Setter>
    NSKeyList& reportingProperty(std::string_view key, Getter getter, Setter setter) {
        add(key, {reading(getter), writing<Getter>(setter), true});
        return *this;
    }

private:
    template <typename Getter>
    using KeyType = std::remove_cvref_t<std::invoke_result_t<Getter, const Owner&>>;

    template <typename Getter>
    static std::function<Value(const NSObject&)> reading(Getter getter) {
        return [getter](const NSObject& object) {
            return NSKeyedType<KeyType<Getter>>::to(
                std::invoke(getter, static_cast<const Owner&>(object)));
        };
    }

    template <typename Getter, typename Setter>
    static std::function<bool(NSObject&, const Value&)> writing(Setter setter) {
        return [setter](NSObject& object, const Value& value) {
            auto converted = NSKeyedType<KeyType<Getter>>::from(value);
            if (converted)
                std::invoke(setter, static_cast<Owner&>(object), *std::move(converted));
            return converted.has_value();
        };
    }

    void add(std::string_view key, NSKeyedProperty property) {
        properties.insert_or_assign(std::string(key), std::move(property));
    }

    NSKeyedProperties& properties;
};

}  // namespace quorin
