#include <algorithm>
#include <array>
#include <cmath>

#include "quorin/geometry/Quadrature.h"
#include "quorin/geometry/RootFinding.h"
#include "quorin/path/CubicBezier.h"
#include "quorin/path/CurveSpeed.h"

namespace quorin {

namespace {

CGFloat straightLengthBetween(const CubicBezier& curve, CGFloat from, CGFloat to) {
    CubicBezier stretch = curve;
    if (to < 1)
        stretch = stretch.subdivide(to).first;
    if (from > 0)
        stretch = stretch.subdivide(from / to).second;
    return distance(stretch.p1, stretch.p2);
}

}  // namespace

CGFloat CubicBezier::lengthBetween(CGFloat from, CGFloat to) const {
    if (isStraight())
        return straightLengthBetween(*this, from, to);
    return CurveSpeed(*this).integrated(from, to);
}

std::optional<CGFloat> CubicBezier::timeAt(CGFloat offset, std::optional<CGFloat> start) const {
    const CGFloat begin = start.value_or(offset < 0 ? 1 : 0);
    if (offset == 0)
        return begin;

    const bool isForward = offset > 0;
    const CGFloat low = isForward ? begin : 0;
    const CGFloat high = isForward ? 1 : begin;
    const CGFloat length = lengthBetween(low, high);
    const CGFloat beyond = std::abs(offset) - length;
    if (std::abs(beyond) < scalar::epsilon)
        return isForward ? 1 : 0;
    if (beyond > scalar::epsilon)
        return std::nullopt;

    const CurveSpeed speed(*this);
    CGFloat walkedTime = begin;
    CGFloat walked = 0;
    const auto missing = [&](CGFloat t) {
        // Newton's steps grow short, and so does the stretch that is integrated anew.
        walked += speed.integrated(walkedTime, t);
        walkedTime = t;
        return walked - offset;
    };
    const auto slope = [&](CGFloat t) { return speed.at(t); };
    return scalar::findRoot(missing, slope, begin + offset / length, low, high, 32,
                            scalar::epsilon);
}

}  // namespace quorin
