#include "quorin/platform/values/Value.h"

namespace quorin {

std::optional<bool> Value::asBool() const {
    const NSNumber* number = asNSNumber();
    return number && number->isBoolean() ? std::optional(number->boolValue()) : std::nullopt;
}

std::optional<std::int64_t> Value::asInteger() const {
    const NSNumber* number = asNSNumber();
    return number && number->isInteger() ? std::optional(number->integerValue()) : std::nullopt;
}

std::optional<double> Value::asDouble() const {
    const NSNumber* number = asNSNumber();
    return number && number->isDouble() ? std::optional(number->doubleValue()) : std::nullopt;
}

std::optional<double> Value::asNumber() const {
    const NSNumber* number = asNSNumber();
    return number && !number->isBoolean() ? std::optional(number->doubleValue()) : std::nullopt;
}

std::optional<CGPoint> Value::asPoint() const {
    return asNSValue() ? asNSValue()->pointValue() : std::nullopt;
}

std::optional<CGSize> Value::asSize() const {
    return asNSValue() ? asNSValue()->sizeValue() : std::nullopt;
}

std::optional<CGRect> Value::asRect() const {
    return asNSValue() ? asNSValue()->rectValue() : std::nullopt;
}

std::optional<CATransform3D> Value::asTransform3D() const {
    return asNSValue() ? asNSValue()->CATransform3DValue() : std::nullopt;
}

std::optional<CGColor> Value::asColor() const {
    const CGColor* color = std::get_if<CGColor>(&content);
    return color ? std::optional(*color) : std::nullopt;
}

const Value::List* Value::asList() const {
    const auto* list = std::get_if<Shared<List>>(&content);
    return list ? &**list : nullptr;
}

const Value::Map* Value::asMap() const {
    const auto* map = std::get_if<Shared<Map>>(&content);
    return map ? &**map : nullptr;
}

std::shared_ptr<Object> Value::asObject() const {
    const auto* object = std::get_if<std::shared_ptr<Object>>(&content);
    return object ? *object : nullptr;
}

bool operator==(const Value& a, const Value& b) {
    const auto first = a.asObject();
    const auto second = b.asObject();
    if (first && second)
        return first->isEqual(*second);
    return a.content == b.content;
}

}  // namespace quorin
