#include "quorin/transformers/IntValueTransformer.h"

#include "quorin/platform/foundation/NSNumberFormatter.h"

namespace quorin {
namespace {

Value wholeNumber(const NSNumber& number) {
    if (number.isInteger())
        return number;
    // Also false for NaN. 2^63 itself no longer fits.
    const double value = number.doubleValue();
    const bool fits = value >= -0x1p63 && value < 0x1p63;
    return fits ? Value(number.integerValue()) : Value(0.0);
}

}  // namespace

Value IntValueTransformer::transformedValue(const Value& value) const {
    return value.asNumber() ? wholeNumber(*value.asNSNumber()) : Value(0.0);
}

Value IntValueTransformer::reverseTransformedValue(const Value& value) const {
    const std::string* const text = value.asText();
    const auto number = text ? NSNumberFormatter().number(*text) : std::nullopt;
    return number ? wholeNumber(*number) : Value(0.0);
}

}  // namespace quorin
