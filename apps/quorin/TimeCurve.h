#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "quorin/platform/values/CGGeometry.h"

namespace quorin::app {

/// What moves with time, as values at equal steps.
struct TimeCurve {
    std::string title;
    CGFloat step = 0;       ///< in seconds
    std::size_t first = 0;  ///< the steps before the first value
    std::vector<CGFloat> values;

    CGFloat timeAt(std::size_t index) const { return static_cast<CGFloat>(first + index) * step; }
};

}  // namespace quorin::app
