#include "quorin/transformers/DoubleValueTransformer.h"

#include <array>
#include <cstddef>
#include <memory_resource>

#include "quorin/extensions/NSExceptionExtension.h"
#include "quorin/platform/foundation/NSExpression.h"
#include "quorin/platform/foundation/NSLocale.h"

namespace quorin {
namespace {

using Memory = std::pmr::memory_resource;

/// `start` and then the text, with `replacement` for every occurrence of `part`.
std::pmr::string replacing(std::string_view part, std::string_view replacement,
                           std::string_view text, Memory& memory, std::string_view start = "") {
    std::pmr::string result(start, &memory);
    result.reserve(start.size() + text.size());
    while (!part.empty()) {
        const std::size_t at = text.find(part);
        if (at == std::string_view::npos)
            break;
        result.append(text.substr(0, at)).append(replacement);
        text.remove_prefix(at + part.size());
    }
    result.append(text);
    return result;
}

/// The value of what was typed in the current locale. Throws `PlatformException`.
double typedNumber(std::string_view text) {
    // Room for all steps of what people type, so that nothing is allocated for it.
    std::array<std::byte, 1024> room;
    std::pmr::monotonic_buffer_resource memory(room.data(), room.size());

    const NSLocale& locale = NSLocale::current();
    const auto ungrouped = replacing(locale.groupingSeparator(), "", text, memory);
    const auto pointed = replacing(locale.decimalSeparator(), ".", ungrouped, memory);
    return NSExpression::value(replacing("(", "(1.0*", pointed, memory, "1.0*"));
}

}  // namespace

Value DoubleValueTransformer::transformedValue(const Value& value) const { return value; }

Value DoubleValueTransformer::reverseTransformedValue(const Value& value) const {
    return calcNumber(value);
}

Value DoubleValueTransformer::calcNumber(const Value& text) {
    if (text.isNothing())
        return 0.0;
    const std::string* const typed = text.asText();
    double number = 0;
    const bool isRead =
        typed && tryWithBlock([&] { number = typedNumber(*typed); }, /*error=*/nullptr);
    return isRead ? Value(number) : text;
}

}  // namespace quorin
