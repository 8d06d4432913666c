#pragma once

#include <cstdint>

#include "quorin/platform/ui/OptionSet.h"

namespace quorin {

/// Which modifier keys are down. The lower 16 bits say nothing about them.
enum class NSEventModifierFlags : std::uint64_t {
    space = 1,  ///< never in an event: what latches modifiers marks a latched space bar by it
    capsLock = 1 << 16,
    shift = 1 << 17,
    control = 1 << 18,
    option = 1 << 19,
    command = 1 << 20,
    numericPad = 1 << 21,
    help = 1 << 22,
    function = 1 << 23,
};

template <>
inline constexpr bool isOptionSet<NSEventModifierFlags> = true;

}  // namespace quorin
