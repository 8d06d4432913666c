#include "quorin/path/CubicBezier.h"

namespace quorin {

std::pair<CubicBezier, CubicBezier> CubicBezier::subdivide(CGFloat t) const {
    const CGFloat u = 1 - t;
    const CGPoint q1 = u * p1 + t * c1();
    const CGPoint q2 = u * c1() + t * c2();
    const CGPoint q3 = u * c2() + t * p2;
    const CGPoint r1 = u * q1 + t * q2;
    const CGPoint r2 = u * q2 + t * q3;
    const CGPoint s = u * r1 + t * r2;
    return {{p1, q1 - p1, r1 - s, s}, {s, r2 - s, q3 - p2, p2}};
}

CubicBezier CubicBezier::partialCurve(CGFloat from, CGFloat to) const {
    if (from > to)
        return partialCurve(to, from).reversed();
    CubicBezier stretch = *this;
    if (from > 0)
        stretch = stretch.subdivide(from).second;
    if (to < 1)
        stretch = stretch.subdivide((to - from) / (1 - from)).first;
    return stretch;
}

}  // namespace quorin
