#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "quorin/platform/values/CATransform3D.h"
#include "quorin/platform/values/CGColor.h"
#include "quorin/platform/values/CGGeometry.h"
#include "quorin/platform/values/CGRect.h"
#include "quorin/platform/values/NSNumber.h"
#include "quorin/platform/values/NSValue.h"
#include "quorin/platform/values/Object.h"
#include "quorin/platform/values/Shared.h"

namespace quorin {

/// A value of a type known only while running, or nothing: a Boolean, integer, double, text, list,
/// map from text, point, size, rect, 3D transform, colour or object. What it is made from decides
/// its type. It never changes but by assignment; copies share lists, maps and objects, and may be
/// used by several threads at once. What nests is compared and destroyed by recursion, which the
/// stack bears for a few thousand levels.
class Value {
public:
    using List = std::vector<Value>;
    using Map = std::map<std::string, Value, std::less<>>;

    Value() = default;
    // All implicit: whatever a value can hold becomes one by itself.
    Value(std::nullptr_t) {}
    template <PlainNumber Number>
    Value(Number number) : Value(NSValue(NSNumber(number))) {}
    Value(NSNumber number) : Value(NSValue(number)) {}
    Value(NSValue value) : content(std::move(value)) {}
    Value(CGPoint point) : Value(NSValue(point)) {}
    Value(CGSize size) : Value(NSValue(size)) {}
    Value(const CGRect& rect) : Value(NSValue(rect)) {}
    Value(const CATransform3D& transform) : Value(NSValue(transform)) {}
    Value(std::string text) : content(std::move(text)) {}
    Value(std::string_view text) : content(std::string(text)) {}
    /// Nothing for a null pointer.
    Value(const char* text) {
        if (text)
            content = std::string(text);
    }
    Value(List list) : content(Shared(std::move(list))) {}
    Value(Map map) : content(Shared(std::move(map))) {}
    Value(CGColor color) : content(color) {}
    /// Nothing for a null pointer.
    template <typename Kind>
    requires std::is_convertible_v<Kind*, Object*> Value(std::shared_ptr<Kind> object) {
        if (object)
            content = std::shared_ptr<Object>(std::move(object));
    }

    Value(const Value&) = default;
    Value(Value&&) = default;
    ~Value() = default;
    // By value: what is assigned may stand in the very list that the assignment releases.
    Value& operator=(Value other) noexcept {
        content = std::move(other.content);
        return *this;
    }

    bool isNothing() const { return std::holds_alternative<std::monostate>(content); }

    // Each answers for its own type only.
    std::optional<bool> asBool() const;
    std::optional<std::int64_t> asInteger() const;
    std::optional<double> asDouble() const;
    /// An integer or a double; a Boolean is not a number.
    std::optional<double> asNumber() const;
    std::optional<CGPoint> asPoint() const;
    std::optional<CGSize> asSize() const;
    std::optional<CGRect> asRect() const;
    std::optional<CATransform3D> asTransform3D() const;
    std::optional<CGColor> asColor() const;

    // Null for another type; else to be read while this value lives and keeps its content.
    const std::string* asText() const { return std::get_if<std::string>(&content); }
    const List* asList() const;
    const Map* asMap() const;
    /// The box of a number or of geometry.
    const NSValue* asNSValue() const { return std::get_if<NSValue>(&content); }
    /// The box of a number, or of a Boolean.
    const NSNumber* asNSNumber() const { return asNSValue() ? asNSValue()->number() : nullptr; }

    /// Null for everything that is no object.
    std::shared_ptr<Object> asObject() const;

    /// Same type and exactly equal content, except that an integer equals the double of its value.
    /// NaN equals nothing; objects are asked by `isEqual`.
    friend bool operator==(const Value& a, const Value& b);

private:
    std::variant<std::monostate, NSValue, std::string, Shared<List>, Shared<Map>, CGColor,
                 std::shared_ptr<Object>>
        content;
};

}  // namespace quorin
