#pragma once

#include "quorin/transformers/ValueTransformer.h"

namespace quorin {

/// Values as they are, and typed arithmetic back to numbers.
class DoubleValueTransformer : public ValueTransformer {
public:
    using Class = NSClassOf<DoubleValueTransformer, ValueTransformer>;

    /// The value itself.
    Value transformedValue(const Value& value) const override;
    /// `calcNumber` of the value.
    Value reverseTransformedValue(const Value& value) const override;
    std::string_view transformedValueClass() const override { return "NSNumber"; }

    /// The double that a text of arithmetic, typed in the current locale, makes: 3.5 for "7/2",
    /// and in German 1234.5 for "1.234,5". Grouping separators may stand anywhere. A text that is
    /// no arithmetic, or a value that is no text, comes back unchanged. Nothing makes 0.0.
    static Value calcNumber(const Value& text);
};

}  // namespace quorin
