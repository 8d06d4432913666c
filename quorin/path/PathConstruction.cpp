#include "quorin/path/Path.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {
namespace {

/// A quarter of the unit circle lies between each of these and the next.
struct CircleAnchor {
    CGPoint point, handleIn, handleOut;
};
constexpr CGFloat k = scalar::kappa;
constexpr CircleAnchor unitCircle[] = {
    {{-1, 0}, {0, k}, {0, -k}},
    {{0, -1}, {-k, 0}, {k, 0}},
    {{1, 0}, {0, -k}, {0, k}},
    {{0, 1}, {k, 0}, {-k, 0}},
};

std::size_t starAnchorCount(std::ptrdiff_t numPoints) {
    constexpr std::ptrdiff_t most = std::numeric_limits<std::int32_t>::max() / 2;
    if (numPoints < 0 || numPoints > most)
        fatalError("star of " + std::to_string(numPoints) + " points");
    return 2 * static_cast<std::size_t>(numPoints);
}

}  // namespace

std::shared_ptr<Path> Path::rectangle(const CGRect& with) {
    auto path = create();
    for (int i = 0; i < 4; ++i)
        path->append();
    path->setBounds(with);
    path->_isClosed = true;
    return path;
}

std::shared_ptr<Path> Path::ellipse(const CGRect& rectangle) {
    // The size is read as the centre is, without its signs: so the left-most point always leads.
    const CGPoint center = {CGRectGetMidX(rectangle), CGRectGetMidY(rectangle)};
    const CGPoint half = {CGRectGetWidth(rectangle) * 0.5, CGRectGetHeight(rectangle) * 0.5};
    auto path = create();
    path->_isClosed = true;
    path->_segments.reserve(std::size(unitCircle));
    for (const auto& [point, handleIn, handleOut] : unitCircle) {
        PathAnchor& anchor = path->append();
        anchor.point = center + half * point;
        anchor.handleIn = half * handleIn;
        anchor.handleOut = half * handleOut;
        anchor.behavior = PointBehavior::mirrored;
    }
    return path;
}

std::shared_ptr<Path> Path::star(CGPoint center, std::ptrdiff_t numPoints, CGFloat radius1,
                                 CGFloat radius2) {
    const std::size_t count = starAnchorCount(numPoints);
    auto path = create();
    path->_isClosed = true;
    path->_segments.reserve(count);
    const CGFloat step = scalar::twoPi / static_cast<CGFloat>(count);
    for (std::size_t i = 0; i < count; ++i) {
        const CGFloat angle = step * static_cast<CGFloat>(i);
        const CGFloat radius = isEven(i) ? radius1 : radius2;
        path->append().point = {center.x + radius * std::sin(angle),
                                center.y - radius * std::cos(angle)};
    }
    return path;
}

std::shared_ptr<Path> Path::line(CGPoint from, CGPoint to) {
    auto path = create();
    path->_segments.reserve(2);
    path->append().point = from;
    path->append().point = to;
    return path;
}

}  // namespace quorin
