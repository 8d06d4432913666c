#include "quorin/transformers/PercentValueTransformer.h"

#include "quorin/platform/foundation/NSNumberFormatter.h"
#include "quorin/platform/values/NumberReading.h"
#include "quorin/transformers/DoubleValueTransformer.h"

namespace quorin {

void PercentValueTransformer::declareKeys(NSKeyList<PercentValueTransformer>& keys) {
    keys.property("roundingIncrement", &PercentValueTransformer::roundingIncrement,
                  &PercentValueTransformer::setRoundingIncrement);
}

Value PercentValueTransformer::transformedValue(const Value& value) const {
    const auto ratio = value.asNumber();
    if (!ratio)
        return "0%";
    NSNumberFormatter formatter;
    formatter.setNumberStyle(NSNumberFormatterStyle::decimal);
    formatter.setRoundingIncrement(roundingIncrement());
    formatter.setRoundingMode(NSNumberFormatterRoundingMode::halfUp);
    auto text = formatter.string(*ratio * 100.0);
    return text ? Value(text->append("%")) : Value("0%");
}

Value PercentValueTransformer::reverseTransformedValue(const Value& value) const {
    const std::string* const text = value.asText();
    if (!text)
        return 0.0;
    std::string unmarked = *text;
    std::erase(unmarked, '%');
    const auto percentage = DoubleValueTransformer::calcNumber(unmarked).asNumber();
    return percentage.value_or(doubleValue(*text)) / 100.0;
}

Value PercentValueTransformer::incrementValue(const Value& value, double increments,
                                              double scale) const {
    return NumericalValueTransformer::incrementValue(value, increments / 100.0, scale);
}

}  // namespace quorin
