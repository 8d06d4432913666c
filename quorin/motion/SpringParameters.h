#pragma once

#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// What moves a spring of mass 1: the force is -stiffness · displacement - damping · velocity.
struct SpringParameters {
    CGFloat damping, stiffness;
};

/// The spring of mass 1 that starts with `velocity` (progress per second) and whose envelope has
/// fallen to 0.001 after `duration` seconds. Ratios above 1 are damped critically, like 1.
///
/// Always twelve Newton steps for the natural frequency from 5 / duration on, whether that is
/// enough or not; where they go astray, or for a duration of 0, the numbers are not finite.
SpringParameters generateSpringParameters(CGFloat dampingRatio, CGFloat velocity, CGFloat duration);

}  // namespace quorin
