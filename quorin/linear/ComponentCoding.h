#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "quorin/platform/values/KeyedCoding.h"

/// Vectors, matrices and quaternions as keyed records: one number for each component, in the order
/// of storage.
namespace quorin {

template <std::size_t count>
void encodeComponents(Encoder& encoder, const std::array<std::string_view, count>& keys,
                      const std::array<CGFloat, count>& components) {
    for (std::size_t i = 0; i < count; ++i)
        encoder.encodeNumber(keys[i], components[i]);
}

template <std::size_t count>
std::array<CGFloat, count> decodeComponents(Decoder& decoder,
                                            const std::array<std::string_view, count>& keys) {
    std::array<CGFloat, count> components{};
    for (std::size_t i = 0; i < count; ++i)
        components[i] = decoder.decodeNumber(keys[i]);
    return components;
}

}  // namespace quorin
