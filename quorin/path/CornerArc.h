#pragma once

#include "quorin/path/CubicBezier.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// The vector turned counter-clockwise in a y-up plane, in the directions of +x to +y. The sine
/// and cosine are those of the rounded π/2, so an upright vector comes out an ulp off the axis.
CGPoint quarterTurned(CGPoint vector);

/// The cubic along the circle from one of its points to another, the shorter way round. It leaves
/// the circle by at most 2.8e-4 of the radius at a quarter turn.
CubicBezier circularArc(CGPoint from, CGPoint to, CGPoint centre);

}  // namespace quorin
