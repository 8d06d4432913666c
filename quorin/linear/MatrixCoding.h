#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "quorin/platform/values/KeyedCoding.h"

/// Matrices as keyed records: one number for each element, in the order of storage.
namespace quorin {

template <std::size_t count>
void encodeElements(Encoder& encoder, const std::array<std::string_view, count>& keys,
                    const std::array<CGFloat, count>& elements) {
    for (std::size_t i = 0; i < count; ++i)
        encoder.encodeNumber(keys[i], elements[i]);
}

template <std::size_t count>
std::array<CGFloat, count> decodeElements(Decoder& decoder,
                                          const std::array<std::string_view, count>& keys) {
    std::array<CGFloat, count> elements{};
    for (std::size_t i = 0; i < count; ++i)
        elements[i] = decoder.decodeNumber(keys[i]);
    return elements;
}

}  // namespace quorin
