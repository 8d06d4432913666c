#pragma once

#include <cstdint>

#include "quorin/platform/ui/OptionSet.h"

namespace quorin {

/// How a new view takes the place of an old one. Both slide in the named direction, so that the new
/// one comes in from the opposite side. Forward is to the left, backward to the right, as where
/// text runs from left to right.
enum class NSViewControllerTransitionOptions : std::uint64_t {
    none = 0,
    crossfade = 1,
    slideUp = 16,
    slideDown = 32,
    slideLeft = 64,
    slideRight = 128,
    slideForward = 320,
    slideBackward = 384,
    allowUserInteraction = 4096,
};

template <>
inline constexpr bool isOptionSet<NSViewControllerTransitionOptions> = true;

}  // namespace quorin
