#include "quorin/geometry/Extrema.h"

#include <algorithm>
#include <cmath>

namespace quorin {

namespace {

bool isInside(CGFloat t) { return t > 0 && t < 1; }

Roots turningTimes(CGFloat d1, CGFloat d2, CGFloat d3) {
    Roots times;
    const CGFloat discriminant = d2 * d2 - d1 * d3;
    if (!(discriminant > 0))
        return times;

    const CGFloat half = d1 - d2;
    const CGFloat q = half + std::copysign(std::sqrt(discriminant), half);
    const CGFloat first = q / (d1 - 2 * d2 + d3);
    const CGFloat second = d1 / q;
    const auto [early, late] = std::minmax(first, second);
    if (isInside(early))
        times.append(early);
    if (isInside(late) && late != early)
        times.append(late);
    return times;
}

}  // namespace

Roots extremumTimes(CGFloat p1, CGFloat c1, CGFloat c2, CGFloat p2) {
    const CGFloat d1 = c1 - p1;
    const CGFloat d2 = c2 - c1;
    const CGFloat d3 = p2 - c2;
    if ((d1 >= 0 && d2 >= 0 && d3 >= 0) || (d1 <= 0 && d2 <= 0 && d3 <= 0))
        return {};

    // Squares of these neither overflow nor vanish.
    constexpr CGFloat least = 0x1p-500;
    constexpr CGFloat most = 0x1p500;
    const CGFloat size = std::max({std::abs(d1), std::abs(d2), std::abs(d3)});
    if (size >= least && size <= most)
        return turningTimes(d1, d2, d3);
    if (size < least)
        return turningTimes(d1 * most, d2 * most, d3 * most);

    // The differences themselves may have overflowed.
    constexpr CGFloat shrink = 0x1p-600;
    return turningTimes(c1 * shrink - p1 * shrink, c2 * shrink - c1 * shrink,
                        p2 * shrink - c2 * shrink);
}

Roots extremumTimes(CGFloat p1, CGFloat c, CGFloat p2) {
    Roots times;
    const CGFloat d1 = c / 2 - p1 / 2;
    const CGFloat d2 = p2 / 2 - c / 2;
    const bool turns = (d1 > 0 && d2 < 0) || (d1 < 0 && d2 > 0);
    const CGFloat time = d1 / (d1 - d2);
    if (turns && isInside(time))
        times.append(time);
    return times;
}

}  // namespace quorin
