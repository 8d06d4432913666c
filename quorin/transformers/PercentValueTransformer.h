#pragma once

#include "quorin/transformers/NumericalValueTransformer.h"
#include "quorin/transformers/ValueTransformer.h"

namespace quorin {

/// Ratios of the model as percentages: 0.5 is "50%". Small negatives show "-0%".
class PercentValueTransformer : public ValueTransformer, public NumericalValueTransformer {
public:
    using Class = NSClassOf<PercentValueTransformer, ValueTransformer>;
    static void declareKeys(NSKeyList<PercentValueTransformer>& keys);

    /// Halves are rounded away from zero. What is no number gives "0%".
    Value transformedValue(const Value& value) const override;
    /// Arithmetic, with or without percent signs anywhere; of a text that is none the number that
    /// it starts with. What is no text gives 0.0.
    Value reverseTransformedValue(const Value& value) const override;
    std::string_view transformedValueClass() const override { return "NSString"; }

    /// The increments are in percent.
    Value incrementValue(const Value& value, double increments, double scale) const override;

    /// In percent.
    double roundingIncrement() const { return _roundingIncrement; }
    void setRoundingIncrement(double increment) { _roundingIncrement = increment; }

private:
    double _roundingIncrement = 0.1;
};

}  // namespace quorin
