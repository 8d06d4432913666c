#pragma once

#include <span>

#include "quorin/platform/cgpath/CGPath.h"
#include "quorin/platform/cgpath/MonotonePiece.h"

namespace quorin {

/// The winding number around `point` by asking every curve of the outline, open subpaths closed.
/// Coordinates are to be ordinary ones.
Winding windingByWalk(std::span<const CGPathElementType> types, std::span<const CGPoint> points,
                      CGPoint point);

}  // namespace quorin
