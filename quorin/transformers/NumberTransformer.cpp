#include "quorin/transformers/NumberTransformer.h"

#include "quorin/platform/foundation/NSNumberFormatter.h"
#include "quorin/transformers/DoubleValueTransformer.h"

namespace quorin {

void NumberTransformer::declareKeys(NSKeyList<NumberTransformer>& keys) {
    using Self = NumberTransformer;
    keys.property("pointScale", &Self::pointScale, &Self::setPointScale)
        .property("allowNil", &Self::allowNil, &Self::setAllowNil)
        .property("roundingIncrement", &Self::roundingIncrement, &Self::setRoundingIncrement);
}

Value NumberTransformer::transformedValue(const Value& value) const {
    const auto number = value.asNumber();
    if (!number)
        return value;
    NSNumberFormatter formatter;
    formatter.setRoundingIncrement(roundingIncrement());
    formatter.setNumberStyle(NSNumberFormatterStyle::decimal);
    auto text = formatter.string(*number * pointScale());
    return text && *text != "-0" ? Value(*std::move(text)) : Value("0");
}

Value NumberTransformer::reverseTransformedValue(const Value& value) const {
    if (!value.asText())
        return allowNil() ? Value() : Value(0.0);
    Value result = DoubleValueTransformer::calcNumber(value);
    const auto number = result.asNumber();
    return number ? Value(*number / pointScale()) : result;
}

Value NumberTransformer::incrementValue(const Value& value, double increments, double scale) const {
    return NumericalValueTransformer::incrementValue(value, increments / pointScale(), scale);
}

Value NumberTransformer::clampValue(const Value& value, const ClosedRange<double>& to) const {
    const CGFloat scale = pointScale();
    return NumericalValueTransformer::clampValue(value, {scale * to.lower, scale * to.upper});
}

}  // namespace quorin
