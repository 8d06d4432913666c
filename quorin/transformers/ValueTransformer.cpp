#include "quorin/transformers/ValueTransformer.h"

#include "quorin/platform/values/FatalError.h"

namespace quorin {

Value ValueTransformer::reverseTransformedValue(const Value& value) const {
    if (!allowsReverseTransformation())
        fatalError(description().append(" does not transform back"));
    return transformedValue(value);
}

}  // namespace quorin
