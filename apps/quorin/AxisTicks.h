#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "quorin/platform/values/CGGeometry.h"

namespace quorin::app {

/// Round numbers along an axis, 1, 2 or 5 times a power of ten apart.
class AxisTicks {
public:
    /// At most about as many as asked for between two numbers, the second of which is larger.
    AxisTicks(CGFloat from, CGFloat to, std::size_t most);

    const std::vector<CGFloat>& places() const { return _places; }
    /// The number with the digits that tell it from its neighbours.
    std::string text(CGFloat place) const;

private:
    CGFloat step;
    std::vector<CGFloat> _places;
};

}  // namespace quorin::app
