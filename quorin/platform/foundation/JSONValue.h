#pragma once

#include <string>
#include <string_view>

#include "quorin/platform/foundation/JSONDecoder.h"
#include "quorin/platform/foundation/JSONEncoder.h"
#include "quorin/platform/values/Value.h"

namespace quorin {

/// Writes a value whose shape is known only while running as JSON text in UTF-8: nothing as null,
/// Booleans, integers, doubles always with a fraction or an exponent, texts, lists, and maps in
/// the order of their keys.
///
/// Throws `EncodingError`, the coding path in its message, for geometry, colours, objects and other
/// bytes, for a number that is not finite, for text that is not UTF-8, and for more levels than
/// `decodeJSONValue` reads.
std::string encodeJSONValue(const Value& value, const JSONEncoder::Options& options = {});

/// Reads what `encodeJSONValue` wrote, and any other JSON text: an equal value comes back, and an
/// integer as an integer, a double as a double. An integer beyond 64 bits becomes a double; of a
/// key that stands twice in a map the last value counts. More levels than 1,024 are refused even
/// when the options allow them, since values nest by recursion.
///
/// Throws `DecodingError` as `JSONDecoder` does.
Value decodeJSONValue(std::string_view text, const JSONDecoder::Options& options = {});

}  // namespace quorin
