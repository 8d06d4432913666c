#include "quorin/platform/cgpath/OutlineWalk.h"

#include <algorithm>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/platform/cgpath/MonotoneSplit.h"
#include "quorin/platform/cgpath/PathWalk.h"

namespace quorin {

namespace {

/// Four points seen from another one. The sides of a triangle around the viewer all run the same
/// way, and the triangles of four points cover their convex hull.
struct View {
    CGPoint v1, v2, v3, v4;

    /// Whether the viewer is outside the convex hull of the points by a clear margin: `slack` is
    /// that margin times the longest distance between two of them, or more.
    bool isSurelyFromOutside(CGFloat slack) const {
        const CGFloat a12 = cross(v1, v2), a13 = cross(v1, v3), a14 = cross(v1, v4);
        const CGFloat a23 = cross(v2, v3), a24 = cross(v2, v4), a34 = cross(v3, v4);
        const auto isOutside = [slack](CGFloat a, CGFloat b, CGFloat c) {
            return static_cast<int>(std::max(std::max(a, b), c) > slack) &
                   static_cast<int>(std::min(std::min(a, b), c) < -slack);
        };
        return (isOutside(a12, a23, -a13) & isOutside(a12, a24, -a14) & isOutside(a13, a34, -a14) &
                isOutside(a23, a34, -a24)) != 0;
    }
};

class WindingSum {
public:
    explicit WindingSum(CGPoint point_) : point(point_) {}

    Winding sum;

    void begin(CGPoint) {}

    void lines(CGPoint p1, std::span<const CGPoint> points) {
        for (const CGPoint p2 : points) {
            addLine(p1, p2);
            p1 = p2;
        }
    }

    void quadratics(CGPoint p1, std::span<const CGPoint> points) {
        for (std::size_t index = 0; index < points.size(); index += 2) {
            const CGPoint c = points[index], p2 = points[index + 1];
            const ControlExtent extent = ControlExtent::of(p1, c, p2);
            if (isInReach(extent, p1, p2))
                add(OutlineCurve::quadratic(p1, c, p2), turnTimes(p1, c, p2), extent, p2);
            p1 = p2;
        }
    }

    void cubics(CGPoint p1, std::span<const CGPoint> points) {
        for (std::size_t index = 0; index < points.size(); index += 3) {
            const CGPoint c1 = points[index], c2 = points[index + 1], p2 = points[index + 2];
            const ControlExtent extent = ControlExtent::of(p1, c1, c2, p2);
            if (isInReach(extent, p1, p2) && !addAsChord(extent, p1, c1, c2, p2))
                add(OutlineCurve::cubic(p1, c1, c2, p2), turnTimes(p1, c1, c2, p2), extent, p2);
            p1 = p2;
        }
    }

    void close(CGPoint p1, CGPoint p2) { addLine(p1, p2); }
    void leaveOpen(CGPoint p1, CGPoint p2) { addLine(p1, p2); }

private:
    /// Most curves are far from the point, and their ends say all: one wholly to the left of it is
    /// crossed, on balance, as often as its ends lie on different sides of the point's height.
    bool isInReach(const ControlExtent& extent, CGPoint p1, CGPoint p2) {
        constexpr PointLanes reach{scalar::windingEpsilon, scalar::windingEpsilon};
        const PointLanes low = extent.min - reach, high = extent.max + reach;
        if (point.y < low[1] || point.y > high[1] || point.x < low[0])
            return false;
        if (point.x <= high[0])
            return true;
        sum.number += MonotonePiece{0, 1, p1, p2}.stepAt(point.y);
        return false;
    }

    void addLine(CGPoint p1, CGPoint p2) {
        if (isInReach(ControlExtent::of(p1, p2), p1, p2))
            add({0, 1, p1, p2}, OutlineCurve::line(p1, p2));
    }

    /// Seen from outside the convex hull of its controls, a curve looks like its chord: between
    /// the two there is only the hull.
    bool addAsChord(const ControlExtent& extent, CGPoint p1, CGPoint c1, CGPoint c2, CGPoint p2) {
        const PointLanes size = extent.max - extent.min;
        const PointLanes largest = greater(extent.max, -extent.min);
        const CGFloat slack = (size[0] + size[1]) *
                              (2 * scalar::windingEpsilon + (largest[0] + largest[1]) * 0x1p-44);
        const View view{p1 - point, c1 - point, c2 - point, p2 - point};
        if (!view.isSurelyFromOutside(slack))
            return false;
        const int step = MonotonePiece{0, 1, p1, p2}.stepAt(point.y);
        const bool isLeftOfPoint = (cross(view.v1, view.v4) < 0) == (step > 0);
        sum.number += isLeftOfPoint ? step : 0;
        return true;
    }

    void add(const OutlineCurve& curve, const TurnTimes& turns, const ControlExtent& extent,
             CGPoint end) {
        forEachMonotonePiece(curve, turns, extent, end,
                             [&](const MonotonePiece& piece) { add(piece, curve); });
    }

    void add(const MonotonePiece& piece, const OutlineCurve& curve) {
        if (sum.isOnOutline)
            return;
        const Winding around = piece.windingAround(point, curve);
        sum.number += around.number;
        sum.isOnOutline = around.isOnOutline;
    }

    CGPoint point;
};

}  // namespace

Winding windingByWalk(std::span<const CGPathElementType> types, std::span<const CGPoint> points,
                      CGPoint point) {
    WindingSum outline(point);
    walk(types, points.data(), outline);
    if (outline.sum.isOnOutline)
        return {0, true};
    return outline.sum;
}

}  // namespace quorin
