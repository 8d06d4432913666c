#pragma once

#include "quorin/transformers/ValueTransformer.h"

namespace quorin {

/// Radians of the model as degrees, number to number. What is no number becomes nothing, both ways.
class DegreeRadianTransformer : public ValueTransformer {
public:
    using Class = NSClassOf<DegreeRadianTransformer, ValueTransformer>;

    Value transformedValue(const Value& value) const override;
    Value reverseTransformedValue(const Value& value) const override;
    std::string_view transformedValueClass() const override { return "NSNumber"; }
};

}  // namespace quorin
