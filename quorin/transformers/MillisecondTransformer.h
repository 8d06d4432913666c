#pragma once

#include <memory>

#include "quorin/platform/foundation/NSNumberFormatter.h"
#include "quorin/transformers/NumericalValueTransformer.h"
#include "quorin/transformers/ValueTransformer.h"

namespace quorin {

/// Durations of the model, in seconds, as text in whole milliseconds: 0.25 is "250ms".
class MillisecondTransformer : public ValueTransformer, public NumericalValueTransformer {
public:
    using Class = NSClassOf<MillisecondTransformer, ValueTransformer>;
    static void declareKeys(NSKeyList<MillisecondTransformer>& keys);

    /// Rounded down. What is no number counts as 0.
    Value transformedValue(const Value& value) const override;
    /// Arithmetic, in milliseconds; in seconds when the text ends in "s" but not in "ms". Of a text
    /// that is none the number that it starts with. What is no text gives 0.0.
    Value reverseTransformedValue(const Value& value) const override;
    std::string_view transformedValueClass() const override { return "NSString"; }

    /// Whether "ms" follows the number.
    virtual bool usesMillisecondSuffix() const { return _usesMillisecondSuffix; }
    virtual void setUsesMillisecondSuffix(bool uses) { _usesMillisecondSuffix = uses; }

    /// Null, from which it starts, for the plain digits of every locale.
    virtual std::shared_ptr<NSNumberFormatter> numberFormatter() const { return _numberFormatter; }
    virtual void setNumberFormatter(std::shared_ptr<NSNumberFormatter> formatter) {
        _numberFormatter = std::move(formatter);
    }

private:
    bool _usesMillisecondSuffix = true;
    std::shared_ptr<NSNumberFormatter> _numberFormatter;
};

}  // namespace quorin
