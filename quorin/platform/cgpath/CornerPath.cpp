#include "quorin/platform/cgpath/CornerPath.h"

#include "quorin/platform/cgpath/CGMutablePath.h"

namespace quorin {

std::shared_ptr<const CGPath> pathWithCorners(std::span<const CGPoint> points) {
    CGMutablePath path;
    if (!points.empty()) {
        path.reserve(points.size() + 1, points.size());
        path.moveTo(points.front());
        for (const CGPoint& point : points.subspan(1))
            path.addLineTo(point);
        path.closeSubpath();
    }
    return path.take();
}

}  // namespace quorin
