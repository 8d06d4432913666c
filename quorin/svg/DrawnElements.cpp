#include "quorin/svg/DrawnElements.h"

#include <array>
#include <cstddef>

namespace quorin {
namespace {

void drawPiece(const PathSegment& from, const PathSegment& to,
               FunctionRef<void(const CGPathElement&)> body) {
    const std::array<CGPoint, 3> points = {from.controlPointOut(), to.controlPointIn(), to.point()};
    if (points[0] == from.point() && points[1] == to.point())
        body({CGPathElementType::addLineToPoint, std::span(&points[2], 1)});
    else
        body({CGPathElementType::addCurveToPoint, points});
}

}  // namespace

void forEachDrawnElement(const Path& path, FunctionRef<void(const CGPathElement&)> body) {
    const PathSegmentCollection& segments = path.segments();
    const std::size_t count = segments.count();
    if (count == 0 || (count == 1 && !path.isClosed()))
        return;
    const CGPoint start = segments[0].point();
    body({CGPathElementType::moveToPoint, std::span(&start, 1)});
    for (std::size_t i = 1; i < count; ++i)
        drawPiece(segments[i - 1], segments[i], body);
    if (!path.isClosed())
        return;
    if (count > 1)
        drawPiece(segments[count - 1], segments[0], body);
    body({CGPathElementType::closeSubpath, {}});
}

}  // namespace quorin
