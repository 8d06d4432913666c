#include "quorin/transformers/MillisecondTransformer.h"

#include <cmath>

#include "quorin/platform/values/NumberReading.h"
#include "quorin/transformers/DoubleValueTransformer.h"

namespace quorin {

void MillisecondTransformer::declareKeys(NSKeyList<MillisecondTransformer>& keys) {
    using Self = MillisecondTransformer;
    keys.property("usesMillisecondSuffix", &Self::usesMillisecondSuffix,
                  &Self::setUsesMillisecondSuffix)
        .property("numberFormatter", &Self::numberFormatter, &Self::setNumberFormatter);
}

Value MillisecondTransformer::transformedValue(const Value& value) const {
    const double milliseconds = std::floor(value.asNumber().value_or(0.0) * 1000.0);
    const auto formatter = numberFormatter();
    std::string text = formatter ? formatter->string(milliseconds).value_or("0")
                                 : NSNumber(milliseconds).stringValue();
    return usesMillisecondSuffix() ? text.append("ms") : text;
}

Value MillisecondTransformer::reverseTransformedValue(const Value& value) const {
    const std::string* const text = value.asText();
    if (!text)
        return 0.0;
    const bool isInSeconds = text->ends_with('s') && !text->ends_with("ms");
    const double factor = isInSeconds ? 1000.0 : 1.0;

    std::string unitless = *text;
    std::erase_if(unitless, [](char letter) { return letter == 'm' || letter == 's'; });
    const auto number = DoubleValueTransformer::calcNumber(unitless).asNumber();
    return factor * number.value_or(doubleValue(*text)) / 1000.0;
}

}  // namespace quorin
