#pragma once

#include "quorin/transformers/NumberTransformer.h"

namespace quorin {

/// Angles of the model, in radians, as text in degrees.
class DegreeStringTransformer : public NumberTransformer {
public:
    using Class = NSClassOf<DegreeStringTransformer, NumberTransformer>;

    /// What is no number gives nothing.
    Value transformedValue(const Value& value) const override;
    /// Whatever makes no number of degrees gives the integer 0, also where `allowNil` is on.
    Value reverseTransformedValue(const Value& value) const override;

    /// The increments are in degrees, whatever the point scale.
    Value incrementValue(const Value& value, double increments, double scale) const override;
};

}  // namespace quorin
