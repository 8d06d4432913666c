#pragma once

#include <cstdint>

#include "quorin/platform/ui/OptionSet.h"

namespace quorin {

enum class NSEventType : std::uint8_t { keyDown = 10, keyUp = 11, flagsChanged = 12 };

/// Several types of events, a bit for each: 1 << type.
enum class NSEventTypeMask : std::uint64_t {
    keyDown = 1 << 10,
    keyUp = 1 << 11,
    flagsChanged = 1 << 12,
};

template <>
inline constexpr bool isOptionSet<NSEventTypeMask> = true;

constexpr NSEventTypeMask maskOf(NSEventType type) {
    return static_cast<NSEventTypeMask>(std::uint64_t{1} << static_cast<unsigned>(type));
}

}  // namespace quorin
