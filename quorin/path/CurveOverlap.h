#pragma once

#include <array>
#include <utility>

#include "quorin/path/CurveTime.h"

namespace quorin {

/// The ends of a stretch that two curves share: at each end the time on the one and on the other.
using CurveOverlap = std::array<std::pair<PathCurveTime, PathCurveTime>, 2>;

}  // namespace quorin
