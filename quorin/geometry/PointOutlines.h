#pragma once

#include <span>
#include <vector>

#include "quorin/platform/values/CGGeometry.h"

/// Closed outlines given by their corner points.
namespace quorin {

/// The corners on the pixel grid of `scale`, so that a hairline along them lands on pixel centres:
/// down the grid and `offset` inwards, but up the grid and `offset` back for an x or y that is
/// exactly the greatest of the list.
std::vector<CGPoint> roundCornerPoints(std::span<const CGPoint> points, CGFloat scale,
                                       CGFloat offset);

/// Every corner pushed away from both its neighbours, by `outset` from each. The two pushes are
/// added up and not normalised: a straight stretch stays where it is, and the sharper a corner is,
/// the farther it goes, up to twice the outset. A corner is pushed downwards, to larger y, from a
/// neighbour at the same place.
std::vector<CGPoint> CGPointsOutsetPoints(std::span<const CGPoint> points, CGFloat outset);

}  // namespace quorin
