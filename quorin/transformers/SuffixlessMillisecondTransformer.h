#pragma once

#include "quorin/transformers/MillisecondTransformer.h"

namespace quorin {

/// Durations of the model, in seconds, as milliseconds without a suffix, in the style of the locale
/// that was current when the transformer was made: 1234.5 is "1,234,500".
class SuffixlessMillisecondTransformer : public MillisecondTransformer {
public:
    using Class = NSClassOf<SuffixlessMillisecondTransformer, MillisecondTransformer>;

    SuffixlessMillisecondTransformer();

    bool usesMillisecondSuffix() const override { return false; }
    /// Changes nothing.
    void setUsesMillisecondSuffix(bool) override {}

    std::shared_ptr<NSNumberFormatter> numberFormatter() const override { return _numberFormatter; }
    /// Changes nothing.
    void setNumberFormatter(std::shared_ptr<NSNumberFormatter>) override {}

private:
    std::shared_ptr<NSNumberFormatter> _numberFormatter;
};

}  // namespace quorin
