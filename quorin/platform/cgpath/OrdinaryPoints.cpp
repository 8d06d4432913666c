#include "quorin/platform/cgpath/OrdinaryPoints.h"

#include <algorithm>

namespace quorin {

std::vector<CGPoint> madeOrdinary(std::span<const CGPoint> points) {
    const auto ordinary = [](CGFloat value, CGFloat before) {
        return std::isnan(value) ? before : std::clamp(value, -ordinaryLimit, ordinaryLimit);
    };
    std::vector<CGPoint> result;
    result.reserve(points.size());
    CGPoint before;
    for (const CGPoint point : points) {
        before = {ordinary(point.x, before.x), ordinary(point.y, before.y)};
        result.push_back(before);
    }
    return result;
}

}  // namespace quorin
