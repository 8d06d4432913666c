#pragma once

#include "quorin/transformers/NumericalValueTransformer.h"
#include "quorin/transformers/ValueTransformer.h"

namespace quorin {

/// Whole numbers: fractions are cut off. What is no number, or is beyond 64 bits, is 0.0.
class IntValueTransformer : public ValueTransformer, public NumericalValueTransformer {
public:
    using Class = NSClassOf<IntValueTransformer, ValueTransformer>;

    Value transformedValue(const Value& value) const override;
    /// The text has to be one number as a whole, with grouping and surrounding blanks if need be;
    /// there is no arithmetic here.
    Value reverseTransformedValue(const Value& value) const override;
    std::string_view transformedValueClass() const override { return "NSNumber"; }
};

}  // namespace quorin
