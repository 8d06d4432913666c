#include "quorin/platform/cgpath/MonotonePiece.h"

#include <cmath>

#include "quorin/geometry/PointArithmetic.h"

namespace quorin {

namespace {

constexpr CGFloat reach = scalar::windingEpsilon;

/// The piece seen from the point, mirrored so that both coordinates grow along the way. `at` is
/// where the curve stands relative to the point.
class Approach {
public:
    Approach(const MonotonePiece& piece, CGPoint point, const OutlineCurve& curve_)
        : curve(curve_),
          target(point - curve_.start),
          direction{piece.end.x < piece.start.x ? -1.0 : 1.0,
                    piece.end.y < piece.start.y ? -1.0 : 1.0} {}

    CGPoint at(CGFloat t) const { return (curve.wayTo(t) - target) * direction; }
    CGPoint mirrored(CGPoint way) const { return way * direction; }
    /// Whether the curve, once it has the point's height, stands at smaller x.
    bool isLeftOfPoint(CGFloat x) const { return (x < 0) == (direction.x > 0); }

private:
    const OutlineCurve& curve;
    CGPoint target;
    CGPoint direction;
};

/// Not yet within reach of the point, in one of the coordinates.
bool isBefore(CGPoint way) { return way.x < -reach || way.y < -reach; }
/// No longer within reach of the point, in one of the coordinates.
bool isPast(CGPoint way) { return way.x > reach || way.y > reach; }

/// The last time that is early, by halving down to neighbouring doubles. Cannot fail.
template <typename Predicate>
CGFloat boundary(CGFloat low, CGFloat high, Predicate isEarly) {
    for (;;) {
        const CGFloat middle = low + (high - low) / 2;
        if (!(middle > low && middle < high))
            return low;
        (isEarly(middle) ? low : high) = middle;
    }
}

CGFloat distanceToOrigin(CGPoint from, CGPoint to) {
    const CGPoint along = to - from;
    const CGFloat squared = dot(along, along);
    const CGFloat t = squared > 0 ? std::clamp(-dot(from, along) / squared, 0.0, 1.0) : 0;
    const CGPoint nearest = from + along * t;
    return std::hypot(nearest.x, nearest.y);
}

/// Whether the distance, not just each coordinate, is within reach. What has to be looked at is so
/// short that a few chords stand for it.
bool isWithinReach(const MonotonePiece& piece, const Approach& approach) {
    const CGFloat in = boundary(piece.startTime, piece.endTime,
                                [&](CGFloat t) { return isBefore(approach.at(t)); });
    const CGFloat out = boundary(piece.startTime, piece.endTime,
                                 [&](CGFloat t) { return !isPast(approach.at(t)); });
    constexpr int chords = 8;
    CGPoint from = approach.at(in);
    for (int chord = 1; chord <= chords; ++chord) {
        const CGPoint to = approach.at(in + (out - in) * chord / chords);
        if (distanceToOrigin(from, to) <= reach)
            return true;
        from = to;
    }
    return false;
}

}  // namespace

// A place on the piece that the curve reaches in one coordinate before the point and in the other
// past it settles the side: what follows and what went before is farther off still. So the search
// looks for such a place, and near the outline it closes in on the point instead.
Winding MonotonePiece::windingInsideBox(CGPoint point, const OutlineCurve& curve) const {
    const Approach approach(*this, point, curve);
    CGFloat low = startTime, high = endTime;
    // Midway between where a straight way has the point's x and where it has its y.
    const auto midway = [](CGPoint way, CGPoint velocity) {
        return -(way.x * velocity.y + way.y * velocity.x) / (2 * velocity.x * velocity.y);
    };
    CGFloat t = low + (high - low) *
                          midway(approach.mirrored(start - point), approach.mirrored(end - start));
    for (int step = 1;; ++step) {
        // Every third step halves, so that the search ends however the tangents mislead it.
        if (step % 3 == 0 || !(t > low && t < high))
            t = low + (high - low) / 2;
        if (!(t > low && t < high))
            break;

        const CGPoint way = approach.at(t);
        const bool before = isBefore(way);
        const bool past = isPast(way);
        if (before && past)
            return {approach.isLeftOfPoint(way.x) ? stepAt(point.y) : 0, false};
        if (!before && !past)
            break;
        (before ? low : high) = t;
        t += midway(way, approach.mirrored(curve.velocityAt(t)));
    }

    if (isWithinReach(*this, approach))
        return {0, true};
    const CGFloat crossing =
        boundary(startTime, endTime, [&](CGFloat time) { return approach.at(time).y < 0; });
    return {approach.isLeftOfPoint(approach.at(crossing).x) ? stepAt(point.y) : 0, false};
}

}  // namespace quorin
