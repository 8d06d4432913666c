#include <cmath>

#include "quorin/geometry/Extrema.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/platform/cgpath/CGPath.h"
#include "quorin/platform/cgpath/PathWalk.h"

namespace quorin {

namespace {

constexpr CGFloat reach = scalar::windingEpsilon;

/// Counts, with their direction, the crossings of the ray from a point towards smaller x.
class Crossings {
public:
    explicit Crossings(CGPoint point_) : point(point_) {}

    int winding = 0;
    bool isOnOutline = false;

    void line(CGPoint p1, CGPoint p2) { cubic(p1, p1, p2, p2); }
    void end(CGPoint p1, CGPoint p2) { line(p1, p2); }
    void quadratic(CGPoint p1, CGPoint c, CGPoint p2) {
        cubic(p1, {(p1.x + 2 * c.x) / 3, (p1.y + 2 * c.y) / 3},
              {(p2.x + 2 * c.x) / 3, (p2.y + 2 * c.y) / 3}, p2);
    }
    void cubic(CGPoint p1, CGPoint c1, CGPoint c2, CGPoint p2) {
        CGFloat from = 0;
        for (const CGFloat turn : extremumTimes(p1.y, c1.y, c2.y, p2.y)) {
            monotone(p1, c1, c2, p2, from, turn);
            from = turn;
        }
        monotone(p1, c1, c2, p2, from, 1);
    }

private:
    static CGPoint at(CGPoint p1, CGPoint c1, CGPoint c2, CGPoint p2, CGFloat t) {
        const CGFloat s = 1 - t;
        const CGFloat b0 = s * s * s, b1 = 3 * s * s * t, b2 = 3 * s * t * t, b3 = t * t * t;
        return {b0 * p1.x + b1 * c1.x + b2 * c2.x + b3 * p2.x,
                b0 * p1.y + b1 * c1.y + b2 * c2.y + b3 * p2.y};
    }

    void monotone(CGPoint p1, CGPoint c1, CGPoint c2, CGPoint p2, CGFloat t0, CGFloat t1) {
        const CGPoint first = at(p1, c1, c2, p2, t0);
        const CGPoint last = at(p1, c1, c2, p2, t1);
        for (const CGPoint end : {first, last})
            if (std::hypot(end.x - point.x, end.y - point.y) <= reach)
                isOnOutline = true;
        const bool isFirstAbove = first.y > point.y;
        if (isFirstAbove == (last.y > point.y))
            return;

        CGFloat low = t0, high = t1;
        for (int step = 0; step < 60; ++step) {
            const CGFloat middle = low + (high - low) / 2;
            if ((at(p1, c1, c2, p2, middle).y > point.y) == isFirstAbove)
                low = middle;
            else
                high = middle;
        }
        const CGFloat x = at(p1, c1, c2, p2, low).x;
        if (std::abs(x - point.x) <= reach)
            isOnOutline = true;
        if (x < point.x)
            winding += isFirstAbove ? -1 : 1;
    }

    CGPoint point;
};

}  // namespace

bool CGPath::contains(CGPoint point, CGPathFillRule rule,
                      const CGAffineTransform& transform) const {
    const CGPoint place = CGPointApplyAffineTransform(point, transform);
    if (!std::isfinite(place.x) || !std::isfinite(place.y))
        return false;
    Crossings crossings(place);
    walk(types, points.data(), crossings);
    const bool isOdd = crossings.winding % 2 != 0;
    return crossings.isOnOutline ||
           (rule == CGPathFillRule::winding ? crossings.winding != 0 : isOdd);
}

}  // namespace quorin
