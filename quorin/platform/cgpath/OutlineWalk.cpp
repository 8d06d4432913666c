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
            if (isInReach(ControlHull::of(p1, c, p2), p1, p2))
                addPieces(OutlineCurve::quadratic(p1, c, p2), p1, c, p2);
            p1 = p2;
        }
    }

    void cubics(CGPoint p1, std::span<const CGPoint> points) {
        for (std::size_t index = 0; index < points.size(); index += 3) {
            const CGPoint c1 = points[index], c2 = points[index + 1], p2 = points[index + 2];
            if (isInReach(ControlHull::of(p1, c1, c2, p2), p1, p2))
                addPieces(OutlineCurve::cubic(p1, c1, c2, p2), p1, c1, c2, p2);
            p1 = p2;
        }
    }

    void leaveOpen(CGPoint p1, CGPoint p2) { lines(p1, {&p2, 1}); }

private:
    /// Most curves are far from the point, and their ends say all: a curve wholly to the left is
    /// crossed as often, on balance, as the step from its start to its end.
    bool isInReach(const ControlHull& hull, CGPoint p1, CGPoint p2) {
        constexpr CGFloat reach = scalar::windingEpsilon;
        if (point.y < hull.min.y - reach || point.y > hull.max.y + reach ||
            point.x < hull.min.x - reach)
            return false;
        if (point.x <= hull.max.x + reach)
            return true;
        sum.number += MonotonePiece{0, 1, p1, p2}.stepAt(point.y);
        return false;
    }

    template <typename... Points>
    void addPieces(const OutlineCurve& curve, Points... points) {
        forEachMonotonePiece(curve, points...,
                             [&](const MonotonePiece& piece) { add(piece, curve); });
    }

    void add(const MonotonePiece& piece, const OutlineCurve& curve) {
        const Winding around = piece.windingAround(point, curve);
        sum.number += around.number;
        sum.isOnOutline |= around.isOnOutline;
    }

    CGPoint point;
};

}  // namespace

Winding windingByWalk(std::span<const CGPathElementType> types, std::span<const CGPoint> points,
                      CGPoint point) {
    WindingSum outline(point);
    walk(types, points.data(), outline);
    return outline.sum;
}

}  // namespace quorin
