#pragma once

#include "quorin/transformers/NumericalValueTransformer.h"
#include "quorin/transformers/PointScaleConvertiableTransformer.h"
#include "quorin/transformers/ValueTransformer.h"

namespace quorin {

/// Numbers of the model, in points, as text in displayed units, and typed arithmetic back. The text
/// is in the current locale's decimal style: at most three digits after the point.
///
/// Its properties are keys too. A class that overrides a getter changes what all operations use.
class NumberTransformer : public ValueTransformer,
                          public PointScaleConvertiableTransformer,
                          public NumericalValueTransformer {
public:
    using Class = NSClassOf<NumberTransformer, ValueTransformer>;
    static void declareKeys(NSKeyList<NumberTransformer>& keys);

    /// What is no number comes back unchanged. The text is never "-0"; a minus that a locale
    /// writes by another character stays.
    Value transformedValue(const Value& value) const override;
    /// A text that is no arithmetic comes back unchanged. What is no text becomes 0.0, or nothing
    /// when `allowNil` is on.
    Value reverseTransformedValue(const Value& value) const override;
    std::string_view transformedValueClass() const override { return "NSString"; }

    /// The increments are in displayed units.
    Value incrementValue(const Value& value, double increments, double scale) const override;
    /// The bounds are multiplied by the point scale, not divided, before the value meets them.
    Value clampValue(const Value& value, const ClosedRange<double>& to) const override;

    CGFloat pointScale() const override { return _pointScale; }
    void setPointScale(CGFloat pointScale) override { _pointScale = pointScale; }
    bool allowNil() const override { return _allowNil; }
    void setAllowNil(bool allowNil) override { _allowNil = allowNil; }
    double roundingIncrement() const override { return _roundingIncrement; }
    void setRoundingIncrement(double increment) override { _roundingIncrement = increment; }

private:
    CGFloat _pointScale = 1;
    bool _allowNil = false;
    double _roundingIncrement = 0.1;
};

}  // namespace quorin
