#pragma once

#include <cstdint>

#include "quorin/svg/Drawing.h"

namespace quorin::test {

/// A drawing with a little of everything that a drawing can hold, from a random number: whole
/// numbers and all bits of doubles, contours of one anchor, repeated points, gradients, dashes.
/// Colours are whole 255ths.
Drawing randomDrawing(std::uint64_t seed);

}  // namespace quorin::test
