#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "quorin/platform/values/Value.h"

namespace quorin {

/// The same list or map of copies, at every depth: objects are copied too, each by its `NSCopying`.
/// An object that has none stops the process, with its description; nothing else can change, and
/// is as good as copied.
Value::List deepCopy(const Value::List& list);
Value::Map deepCopy(const Value::Map& map);

/// The number under a key, without its fraction; beyond 64 bits the nearest end, and 0 for NaN.
/// Nothing when there is no number: a Boolean is none, and neither is a text of digits.
std::optional<std::int64_t> integer(const Value::Map& dictionary, std::string_view forKey);
std::optional<CGFloat> cgFloat(const Value::Map& dictionary, std::string_view forKey);

}  // namespace quorin
