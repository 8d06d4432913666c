#pragma once

#include <vector>

#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// The progress at 0, delta, 2·delta and so on below `duration`, of the spring that
/// `generateSpringParameters` finds; for a duration of 0 the single progress after `delta` of the
/// spring for 0.001 s. Times are in seconds, velocities in progress per second. What is not finite
/// is repaired by `finite`, so -∞ becomes a tiny positive number.
///
/// Above a ratio of 1 the motion has no frequency left and all values are repaired to 0; see
/// `dampedSpringAnimation` for springs that creep to rest. The samples do not end unless the
/// duration is 0, or finite and `delta` of its sign.
std::vector<CGFloat> UIKitSpringAnimation(CGFloat dampingRatio, CGFloat velocity, CGFloat duration,
                                          CGFloat delta);

}  // namespace quorin
