#pragma once

#include <vector>

#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// How a damped spring really moves: a function from time in seconds to progress, 0 at the start
/// and 1 at rest. Below a damping ratio of 1 it swings, above it creeps to rest, and the motion
/// changes steadily with the ratio.
///
/// The ratio is not negative, the frequency positive. Times are in seconds, velocities in progress
/// per second; the first is the one at time 0.
class DampedSpring {
public:
    /// `frequency` is that of the undamped spring in radians per second, √(stiffness / mass).
    DampedSpring(CGFloat dampingRatio, CGFloat frequency, CGFloat velocity);

    /// The slowest spring of this kind known to be within 0.001 of rest from `duration` on. A ratio
    /// or duration that is not positive is a programming error.
    static DampedSpring settlingIn(CGFloat dampingRatio, CGFloat velocity, CGFloat duration);

    CGFloat operator()(CGFloat time) const;

    CGFloat frequency() const { return _frequency; }

private:
    /// What is left of a displacement of 1 after some time, and what way a velocity beyond the
    /// decay has made.
    struct Response {
        CGFloat held, pushed;
    };

    Response responseAt(CGFloat time) const;
    CGFloat greatestDistanceFrom(CGFloat time) const;

    CGFloat _frequency;
    CGFloat excess;  // of the velocity over that of the decay
    CGFloat decay;   // the slow one, when there are two
    CGFloat split;   // the angular frequency, or half of what the two decays differ by
    bool isSwinging;
};

/// The progress at 0, delta, 2·delta and so on below `duration`, of the spring that settles in it.
/// There is one value at least. A ratio, duration or delta that is not positive is a programming
/// error.
std::vector<CGFloat> dampedSpringAnimation(CGFloat dampingRatio, CGFloat velocity, CGFloat duration,
                                           CGFloat delta);

}  // namespace quorin
