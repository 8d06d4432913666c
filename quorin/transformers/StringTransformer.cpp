#include "quorin/transformers/StringTransformer.h"

namespace quorin {

Value StringTransformer::transformedValue(const Value& value) const {
    return value.asText() ? value : Value("");
}

Value StringTransformer::reverseTransformedValue(const Value& value) const {
    return value.asText() ? value : Value("");
}

}  // namespace quorin
