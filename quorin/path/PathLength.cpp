#include <algorithm>

#include "quorin/path/CurveWalk.h"
#include "quorin/path/Path.h"

namespace quorin {

CGFloat Path::length() const {
    CGFloat sum = 0;
    walkCurves(*this, [&](const CubicBezier& cubic, std::size_t) {
        sum += cubic.length();
        return false;
    });
    return sum;
}

MeasuredLength Path::length(CGFloat accuracy) const {
    const std::size_t count = std::max<std::size_t>(_segments.count(), 1);
    MeasuredLength sum;
    walkCurves(*this, [&](const CubicBezier& cubic, std::size_t) {
        const auto [length, reached] = cubic.length(accuracy / static_cast<CGFloat>(count));
        sum.length += length;
        sum.accuracy += reached;
        return false;
    });
    return sum;
}

}  // namespace quorin
