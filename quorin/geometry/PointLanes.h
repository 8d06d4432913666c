#pragma once

#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// x and y side by side, for which one instruction does the work of two. Compilers leave the
/// comparisons of points in scalar code by themselves.
using PointLanes = CGFloat __attribute__((vector_size(16)));

inline PointLanes lanesOf(CGPoint point) { return PointLanes{point.x, point.y}; }
inline CGPoint pointOf(PointLanes lanes) { return {lanes[0], lanes[1]}; }

// A NaN in `a` yields `b`.
inline PointLanes lesser(PointLanes a, PointLanes b) { return a < b ? a : b; }
inline PointLanes greater(PointLanes a, PointLanes b) { return a > b ? a : b; }

/// False when a NaN takes part.
inline bool areBothAtMost(PointLanes a, PointLanes b) {
    const auto holds = a <= b;
    return (holds[0] & holds[1]) != 0;
}

}  // namespace quorin
