#pragma once

#include <vector>

#include "quorin/platform/values/CGGeometry.h"

/// A spring of mass 1 with tension and friction, integrated by the classical Runge-Kutta method of
/// fourth order. Progress runs from 0 to rest at 1; times are in seconds, velocities in progress
/// per second. What is not finite becomes 0 (NaN) or the greatest finite number with its sign.
namespace quorin {

/// Moves `value` and `velocity` on by one step of `delta`. Answers whether the spring has come to
/// rest, both its way to 1 and its velocity, as repaired, being below 0.002. A `delta` of 0 changes
/// nothing and is never rest.
bool lerpRK4Spring(CGFloat& value, CGFloat tension, CGFloat friction, CGFloat& velocity,
                   CGFloat delta);

/// The progress after each step of `delta`, up to the first one at rest; the start, 0, is not in
/// it. The initial velocity counts as at most 100 either way.
///
/// Does not end for a spring that never comes to rest: `delta` must not be 0, nor so large that
/// the steps go astray, and both tension and friction are to be positive.
std::vector<CGFloat> RK4SpringAnimation(CGFloat tension, CGFloat friction, CGFloat initialVelocity,
                                        CGFloat delta);

}  // namespace quorin
