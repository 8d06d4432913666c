#pragma once

#include "quorin/geometry/PointLanes.h"
#include "quorin/path/Anchor.h"
#include "quorin/path/CubicBezier.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// The control points of a curve, to rule out that it comes near a point. Cheap enough to ask of
/// every curve of a path before any search.
///
/// Bounds are loosened by more than rounding can move a point off the curve, which goes by the size
/// of the whole curve, and by more than the handles that evaluation leaves out, so that ruling a
/// curve out never changes an answer.
struct ControlBox {
    PointLanes p1, c1, c2, p2;
    PointLanes slack;

    static ControlBox of(const CubicBezier& curve) {
        return between(curve.p1, curve.h1, curve.h2, curve.p2);
    }
    /// Of the curve from one anchor to the next, read where they are stored.
    static ControlBox between(const PathAnchor& from, const PathAnchor& to) {
        return between(from.point, from.handleOut, to.handleIn, to.point);
    }

    /// The square of a distance that no point computed on the curve is nearer than.
    CGFloat squaredDistance(CGPoint from) const {
        const PointLanes at = lanesOf(from);
        const PointLanes gap = greater(greater(low() - at, at - high()) - slack, PointLanes{0, 0});
        const PointLanes squared = gap * gap;
        return squared[0] + squared[1];
    }

    /// Whether the whole curve is surely farther from a point than `reach`. A coordinate that is
    /// not a number adds no distance, and nothing is beyond a reach that is none.
    bool isBeyond(CGPoint from, CGFloat reach) const {
        return squaredDistance(from) > reach * reach * (1 + 1e-14);
    }

    /// The same by the boxes of the curve's parts, halved as often as `depth` says: the answer
    /// for a curve that bends around the point.
    bool isBeyond(CGPoint from, CGFloat reach, int depth) const {
        if (isBeyond(from, reach))
            return true;
        return depth > 0 && areHalvesBeyond(from, reach, depth);
    }

private:
    // Kept out of line: a loop over curves seldom comes here and should stay small.
    [[gnu::noinline]] bool areHalvesBeyond(CGPoint from, CGFloat reach, int depth) const {
        constexpr PointLanes half = {0.5, 0.5};
        const PointLanes q1 = (p1 + c1) * half, q2 = (c1 + c2) * half, q3 = (c2 + p2) * half;
        const PointLanes r1 = (q1 + q2) * half, r2 = (q2 + q3) * half;
        const PointLanes s = (r1 + r2) * half;
        return ControlBox{p1, q1, r1, s, slack}.isBeyond(from, reach, depth - 1) &&
               ControlBox{s, r2, q3, p2, slack}.isBeyond(from, reach, depth - 1);
    }

    static ControlBox between(const CGPoint& startPoint, const CGPoint& handleOut,
                              const CGPoint& handleIn, const CGPoint& endPoint) {
        constexpr PointLanes relativeSlack = {1e-12, 1e-12};
        constexpr PointLanes absoluteSlack = {4e-12, 4e-12};
        const PointLanes start = lanesOf(startPoint);
        const PointLanes end = lanesOf(endPoint);
        ControlBox box{start, start + lanesOf(handleOut), end + lanesOf(handleIn), end, {}};
        box.slack = relativeSlack * greater(-box.low(), box.high()) + absoluteSlack;
        return box;
    }

    PointLanes low() const { return lesser(lesser(p1, p2), lesser(c1, c2)); }
    PointLanes high() const { return greater(greater(p1, p2), greater(c1, c2)); }
};

}  // namespace quorin
