#pragma once

#include "quorin/transformers/ValueTransformer.h"

namespace quorin {

/// Text as it is, and the empty text for everything else, both ways.
class StringTransformer : public ValueTransformer {
public:
    using Class = NSClassOf<StringTransformer, ValueTransformer>;

    Value transformedValue(const Value& value) const override;
    Value reverseTransformedValue(const Value& value) const override;
    std::string_view transformedValueClass() const override { return "NSString"; }
};

}  // namespace quorin
