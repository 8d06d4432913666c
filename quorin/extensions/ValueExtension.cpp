#include "quorin/extensions/ValueExtension.h"

#include <memory>
#include <string>

#include "quorin/platform/foundation/NSCopying.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {
namespace {

Value deepCopyOf(const Value& value) {
    if (const Value::List* list = value.asList())
        return deepCopy(*list);
    if (const Value::Map* map = value.asMap())
        return deepCopy(*map);
    const std::shared_ptr<Object> object = value.asObject();
    if (!object)
        return value;
    if (const auto* copyable = dynamic_cast<const NSCopying*>(object.get()))
        return copyable->copy();
    fatalError(std::string("an object that cannot be copied: ").append(object->description()));
}

const NSNumber* numberOf(const Value::Map& dictionary, std::string_view key) {
    const auto found = dictionary.find(key);
    if (found == dictionary.end())
        return nullptr;
    const NSNumber* number = found->second.asNSNumber();
    return number && !number->isBoolean() ? number : nullptr;
}

}  // namespace

Value::List deepCopy(const Value::List& list) {
    Value::List copies;
    copies.reserve(list.size());
    for (const Value& element : list)
        copies.push_back(deepCopyOf(element));
    return copies;
}

Value::Map deepCopy(const Value::Map& map) {
    Value::Map copies;
    for (const auto& [key, value] : map)
        copies.emplace_hint(copies.end(), key, deepCopyOf(value));
    return copies;
}

std::optional<std::int64_t> integer(const Value::Map& dictionary, std::string_view forKey) {
    if (const NSNumber* number = numberOf(dictionary, forKey))
        return number->integerValue();
    return std::nullopt;
}

std::optional<CGFloat> cgFloat(const Value::Map& dictionary, std::string_view forKey) {
    if (const NSNumber* number = numberOf(dictionary, forKey))
        return number->doubleValue();
    return std::nullopt;
}

}  // namespace quorin
