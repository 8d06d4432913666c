#include "quorin/geometry/PointOutlines.h"

#include <cmath>
#include <cstddef>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/PointGeometry.h"

namespace quorin {

std::vector<CGPoint> roundCornerPoints(std::span<const CGPoint> points, CGFloat scale,
                                       CGFloat offset) {
    const CGPoint max = getMinAndMaxPoint(points).second;
    const auto snapped = [=](CGFloat c, CGFloat greatest) {
        return c == greatest ? std::ceil(c / scale) * scale - offset
                             : std::floor(c / scale) * scale + offset;
    };
    std::vector<CGPoint> rounded;
    rounded.reserve(points.size());
    for (const CGPoint& p : points)
        rounded.push_back({snapped(p.x, max.x), snapped(p.y, max.y)});
    return rounded;
}

std::vector<CGPoint> CGPointsOutsetPoints(std::span<const CGPoint> points, CGFloat outset) {
    std::vector<CGPoint> moved;
    moved.reserve(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        const CGPoint& previous = i == 0 ? points.back() : points[i - 1];
        const CGPoint& next = i + 1 == points.size() ? points.front() : points[i + 1];
        const CGFloat a1 = atan2(points[i], previous);
        const CGFloat a2 = atan2(points[i], next);
        moved.push_back(points[i] + CGPoint{outset * std::sin(a1) + outset * std::sin(a2),
                                            outset * std::cos(a1) + outset * std::cos(a2)});
    }
    return moved;
}

}  // namespace quorin
