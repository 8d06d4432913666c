#include "quorin/geometry/CubicBounds.h"

#include <algorithm>
#include <cmath>

#include "quorin/geometry/Extrema.h"

namespace quorin::detail {

namespace {

/// The middle of two values, between them however it rounds.
CGFloat between(CGFloat a, CGFloat b, CGFloat t) {
    return std::clamp((1 - t) * a + t * b, std::min(a, b), std::max(a, b));
}

void extend(CGFloat& min, CGFloat& max, CGFloat value) {
    min = value < min ? value : min;
    max = value > max ? value : max;
}

}  // namespace

// De Casteljau's scheme takes only steps between two values, which keeps the result in the hull.
void extendByExtrema(CGFloat& min, CGFloat& max, CGFloat p1, CGFloat c1, CGFloat c2, CGFloat p2) {
    for (const CGFloat infinite : {c1, c2})
        if (std::isinf(infinite))
            extend(min, max, infinite);

    for (const CGFloat t : extremumTimes(p1, c1, c2, p2)) {
        const CGFloat middle = between(c1, c2, t);
        const CGFloat left = between(between(p1, c1, t), middle, t);
        const CGFloat right = between(middle, between(c2, p2, t), t);
        extend(min, max, between(left, right, t));
    }
}

void extendByExtrema(CGFloat& min, CGFloat& max, CGFloat p1, CGFloat c, CGFloat p2) {
    if (std::isinf(c))
        extend(min, max, c);
    for (const CGFloat t : extremumTimes(p1, c, p2))
        extend(min, max, between(between(p1, c, t), between(c, p2, t), t));
}

}  // namespace quorin::detail
