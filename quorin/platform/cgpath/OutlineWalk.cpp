#include "quorin/platform/cgpath/OutlineWalk.h"

#include "quorin/platform/cgpath/MonotoneSplit.h"
#include "quorin/platform/cgpath/PathWalk.h"

namespace quorin {

namespace {

class WindingSum {
public:
    explicit WindingSum(CGPoint point_) : point(point_) {}

    Winding sum;

    void begin(CGPoint) {}

    void lines(CGPoint p1, std::span<const CGPoint> points) {
        for (const CGPoint p2 : points) {
            if (isInReach(ControlHull::of(p1, p2), p1, p2))
                add({0, 1, p1, p2}, OutlineCurve::line(p1, p2));
            p1 = p2;
        }
    }

    void quadratics(CGPoint p1, std::span<const CGPoint> points) {
        for (std::size_t index = 0; index < points.size(); index += 2) {
            const CGPoint c = points[index], p2 = points[index + 1];
            const ControlHull hull = ControlHull::of(p1, c, p2);
            if (isInReach(hull, p1, p2))
                add(OutlineCurve::quadratic(p1, c, p2), turnTimes(p1, c, p2), hull, p2);
            p1 = p2;
        }
    }

    void cubics(CGPoint p1, std::span<const CGPoint> points) {
        for (std::size_t index = 0; index < points.size(); index += 3) {
            const CGPoint c1 = points[index], c2 = points[index + 1], p2 = points[index + 2];
            const ControlHull hull = ControlHull::of(p1, c1, c2, p2);
            if (isInReach(hull, p1, p2))
                add(OutlineCurve::cubic(p1, c1, c2, p2), turnTimes(p1, c1, c2, p2), hull, p2);
            p1 = p2;
        }
    }

    void leaveOpen(CGPoint p1, CGPoint p2) { lines(p1, {&p2, 1}); }

private:
    /// Most curves are far from the point, and their ends say all: a curve wholly to the left is
    /// crossed as often, on balance, as the step from its start to its end.
    bool isInReach(const ControlHull& hull, CGPoint p1, CGPoint p2) {
        constexpr PointLanes reach{scalar::windingEpsilon, scalar::windingEpsilon};
        const auto isBelow = lanesOf(point) < hull.min - reach;
        const auto isAbove = lanesOf(point) > hull.max + reach;
        if ((isBelow[0] | isBelow[1] | isAbove[1]) != 0)
            return false;
        if (isAbove[0] == 0)
            return true;
        sum.number += MonotonePiece{0, 1, p1, p2}.stepAt(point.y);
        return false;
    }

    void add(const OutlineCurve& curve, const TurnTimes& turns, const ControlHull& hull,
             CGPoint end) {
        forEachMonotonePiece(curve, turns, hull, end,
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
