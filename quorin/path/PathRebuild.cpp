#include "quorin/path/PathRebuild.h"

#include <cmath>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/Scalar.h"

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

}  // namespace

PathRebuild::PathRebuild(Path& rebuilt, std::size_t curveCount) : path(rebuilt) {
    path._segments.removeAll();
    path.invalidatePathCache();
    if (curveCount > 0)
        path._segments.reserve(path._isClosed ? curveCount : curveCount + 1);
}

void PathRebuild::fill(PathAnchor& anchor, CGPoint point, CGPoint handleIn, CGPoint handleOut) {
    anchor.point = point;
    anchor.behavior = fittingBehavior(handleIn, handleOut);
    if (anchor.behavior == PointBehavior::straight)
        return;
    anchor.handleIn = handleIn;
    anchor.handleOut = handleOut;
}

void PathRebuild::addFirst(const CubicBezier& curve) {
    isEmpty = false;
    firstHandleOut = curve.h1;
    PathAnchor& anchor = path.append();
    if (!path._isClosed)  // no curve leads to the first anchor: its in-control point is the origin
        fill(anchor, curve.p1, CGPoint::zero - curve.p1, curve.h1);
}

void PathRebuild::finish() {
    if (isEmpty)
        return;
    if (path._isClosed)  // the last curve closes the contour
        fill(path._segments._anchors[0], last.p2, last.h2, firstHandleOut);
    else
        fill(path.append(), last.p2, last.h2, last.h2);
}

}  // namespace quorin
