#pragma once

#include "quorin/path/CubicBezier.h"

namespace quorin {

/// x and y side by side, for which one instruction does the work of two.
using PointLanes = CGFloat __attribute__((vector_size(16)));

/// The control points of a curve, to rule out that it comes near a point. Cheap enough to ask of
/// every curve of a path before any search.
///
/// Bounds are loosened by more than rounding can move a point off the curve, and by more than the
/// handles that evaluation leaves out, so that ruling a curve out never changes an answer.
struct ControlBox {
    PointLanes p1, c1, c2, p2;

    static ControlBox of(const CubicBezier& curve) {
        const PointLanes start = lanes(curve.p1);
        const PointLanes end = lanes(curve.p2);
        return {start, start + lanes(curve.h1), end + lanes(curve.h2), end};
    }

    /// The square of a distance that no point computed on the curve is nearer than.
    CGFloat squaredDistance(CGPoint from) const {
        constexpr PointLanes relativeSlack = {1e-12, 1e-12};
        constexpr PointLanes absoluteSlack = {4e-12, 4e-12};
        const PointLanes at = lanes(from);
        const PointLanes low = lesser(lesser(p1, p2), lesser(c1, c2));
        const PointLanes high = greater(greater(p1, p2), greater(c1, c2));
        const PointLanes slack = relativeSlack * greater(-low, high) + absoluteSlack;
        const PointLanes gap = greater(greater(low - at, at - high) - slack, PointLanes{0, 0});
        const PointLanes squared = gap * gap;
        return squared[0] + squared[1];
    }

    /// Whether the whole curve is surely farther from a point than `reach`. Says no when a number
    /// is not one.
    bool isBeyond(CGPoint from, CGFloat reach) const {
        return squaredDistance(from) > reach * reach * (1 + 1e-14);
    }

    /// The same by the boxes of the curve's parts, halved as often as `depth` says: the answer
    /// for a curve that bends around the point.
    bool isBeyond(CGPoint from, CGFloat reach, int depth) const {
        if (isBeyond(from, reach))
            return true;
        if (depth == 0)
            return false;
        constexpr PointLanes half = {0.5, 0.5};
        const PointLanes q1 = (p1 + c1) * half, q2 = (c1 + c2) * half, q3 = (c2 + p2) * half;
        const PointLanes r1 = (q1 + q2) * half, r2 = (q2 + q3) * half;
        const PointLanes s = (r1 + r2) * half;
        return ControlBox{p1, q1, r1, s}.isBeyond(from, reach, depth - 1) &&
               ControlBox{s, r2, q3, p2}.isBeyond(from, reach, depth - 1);
    }

private:
    static PointLanes lanes(CGPoint point) { return PointLanes{point.x, point.y}; }
    static PointLanes lesser(PointLanes a, PointLanes b) { return a < b ? a : b; }
    static PointLanes greater(PointLanes a, PointLanes b) { return a > b ? a : b; }
};

}  // namespace quorin
