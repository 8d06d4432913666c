#pragma once

#include <string_view>

#include "quorin/platform/values/KeyedCoding.h"

namespace quorin {

/// Throws `DecodingError` when the key is missing or holds no number.
inline CGFloat decodeCGFloat(Decoder& decoder, std::string_view forKey) {
    return decoder.decodeNumber(forKey);
}

/// Throws `EncodingError` for a number that the encoder cannot write.
inline void encode(Encoder& encoder, CGFloat value, std::string_view forKey) {
    encoder.encodeNumber(forKey, value);
}

}  // namespace quorin
