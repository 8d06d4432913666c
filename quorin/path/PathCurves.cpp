#include "quorin/path/Path.h"

#include <cmath>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/path/CurveWalk.h"

namespace quorin {
namespace {

bool isNothing(CGPoint vector) {
    return std::abs(vector.x) < scalar::geometricEpsilon &&
           std::abs(vector.y) < scalar::geometricEpsilon;
}

PointBehavior fittingBehavior(CGPoint handleIn, CGPoint handleOut) {
    if (isNothing(handleIn) && isNothing(handleOut))
        return PointBehavior::straight;
    if (isNothing(handleIn + handleOut))
        return PointBehavior::mirrored;
    if (std::abs(cross(handleIn, handleOut)) < scalar::geometricEpsilon)
        return PointBehavior::asymmetric;
    return PointBehavior::disconnected;
}

void fill(PathAnchor& anchor, CGPoint point, CGPoint handleIn, CGPoint handleOut) {
    anchor.point = point;
    anchor.behavior = fittingBehavior(handleIn, handleOut);
    if (anchor.behavior == PointBehavior::straight)
        return;
    anchor.handleIn = handleIn;
    anchor.handleOut = handleOut;
}

}  // namespace

std::vector<PathCurve> Path::curves() const {
    std::vector<Curve> curves;
    if (_segments.count() < 2)
        return curves;
    curves.reserve(_segments.count() - (_isClosed ? 0 : 1));
    const std::weak_ptr<const Path> self = weak_from_this();
    forEachCurve(*this, [&](const CubicBezier& curve) {
        curves.emplace_back(curve, self, std::ssize(curves));
    });
    return curves;
}

void Path::setCurves(std::span<const Curve> curves) {
    _segments.removeAll();
    invalidatePathCache();
    if (curves.empty())
        return;

    const Curve& first = curves.front();
    const Curve& last = curves.back();
    _segments.reserve(curves.size() + 1);
    if (_isClosed)  // the last curve closes the contour
        fill(append(), last.p2(), last.h2(), first.h1());
    else  // no curve leads to the first anchor: its in-control point is the origin
        fill(append(), first.p1(), CGPoint::zero - first.p1(), first.h1());
    for (std::size_t i = 1; i < curves.size(); ++i)
        fill(append(), curves[i].p1(), curves[i - 1].h2(), curves[i].h1());
    if (!_isClosed)
        fill(append(), last.p2(), last.h2(), last.h2());
}

}  // namespace quorin
