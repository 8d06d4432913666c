#include "quorin/path/Path.h"

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/path/CurveWalk.h"

namespace quorin {
namespace {

bool isNearlyZero(CGPoint vector) { return isNearlyEqual(vector, CGPoint::zero); }

bool hasHandles(const PathCurve& curve) {
    return !isNearlyZero(curve.h1()) || !isNearlyZero(curve.h2());
}

PathCurve withoutHandles(const PathCurve& curve) {
    return PathCurve(curve.p1(), CGPoint::zero, CGPoint::zero, curve.p2());
}

/// Changes one handle of an anchor and leaves the other one as it is.
void shorten(PathAnchor& anchor, CGPoint& handle, CGPoint shortened) {
    if (handle == shortened)
        return;
    handle = shortened;
    if (anchor.behavior == PointBehavior::mirrored)
        anchor.behavior = PointBehavior::asymmetric;
}

/// The anchor where a curve is cut. Its handles are fractions of one and the same vector, so that
/// they are in line, and those at the middle opposites, without any rounding.
PathAnchor anchorAt(const CubicBezier& curve, CGFloat time) {
    const auto [first, second] = curve.subdivide(time);
    const CGPoint along = second.h1 - first.h2;
    PathAnchor anchor;
    anchor.point = second.p1;
    const bool isTipOfCusp = isNearlyZero(along);
    if (isTipOfCusp || curve.isStraight())
        return anchor;
    anchor.handleIn = -time * along;
    anchor.handleOut = (1 - time) * along;
    anchor.behavior =
        anchor.handleIn == -anchor.handleOut ? PointBehavior::mirrored : PointBehavior::asymmetric;
    return anchor;
}

}  // namespace

std::ptrdiff_t Path::insertSegmentAt(const CurveLocation& location) {
    std::vector<Curve> list = curves();
    std::ptrdiff_t inserted = 0;
    const auto index = location.curve().index();
    if (index && *index >= 0 && *index < std::ssize(list)) {
        Curve& curve = list[static_cast<std::size_t>(*index)];
        auto [first, second] = Curve::subdivide(curve, location.time());
        // Rounding may point a handle of a part backwards, and the part would not be straight.
        const bool isBare = !hasHandles(curve);
        curve = isBare || first.isStraight() ? withoutHandles(first) : first;
        inserted = *index + 1;
        list.insert(list.begin() + inserted,
                    isBare || second.isStraight() ? withoutHandles(second) : second);
    }
    setCurves(list);
    return inserted;
}

std::optional<std::ptrdiff_t> Path::insertAnchorAt(const CurveLocation& location) {
    const auto count = static_cast<std::ptrdiff_t>(_segments.count());
    const std::ptrdiff_t curveCount = count < 2 ? 0 : _isClosed ? count : count - 1;
    const std::ptrdiff_t index = location.curve().index().value_or(-1);
    const CGFloat time = location.time().rawValue;
    if (index < 0 || index >= curveCount || !(time >= 0 && time <= 1))
        return std::nullopt;

    const std::ptrdiff_t next = (index + 1) % count;
    if (time < scalar::curvetimeEpsilon)
        return index;
    if (time > 1 - scalar::curvetimeEpsilon)
        return next;

    PathAnchor& from = _segments._anchors[static_cast<std::size_t>(index)];
    PathAnchor& to = _segments._anchors[static_cast<std::size_t>(next)];
    const CubicBezier curve = cubicBetween(from, to);
    const PathAnchor inserted = anchorAt(curve, time);
    // The parts of a line that has handles would not all run forwards; those of a bare one do.
    const bool isStraight = curve.isStraight();
    shorten(from, from.handleOut, isStraight ? CGPoint::zero : time * curve.h1);
    shorten(to, to.handleIn, isStraight ? CGPoint::zero : (1 - time) * curve.h2);
    _segments._anchors.insertAt(static_cast<std::size_t>(index) + 1, inserted);
    _segments.reindex();
    invalidatePathCache();
    return index + 1;
}

}  // namespace quorin
