#pragma once

#include "quorin/path/Path.h"
#include "quorin/platform/cgpath/CGPath.h"
#include "quorin/platform/values/FunctionRef.h"

namespace quorin {

/// Calls `body` with what a contour draws: a move, lines and cubics, the closing one included, and
/// a close. A cubic whose controls coincide with its ends is a line. Nothing for a contour that
/// draws nothing: an empty one, or an open one of one anchor.
///
/// Follows the anchors themselves, so a platform path that `path` was made from and still keeps
/// does not matter.
void forEachDrawnElement(const Path& path, FunctionRef<void(const CGPathElement&)> body);

}  // namespace quorin
