#pragma once

#include <memory>

#include "quorin/path/CompoundPath.h"
#include "quorin/platform/cgpath/CGPath.h"
#include "quorin/platform/values/CGAffineTransform.h"

namespace quorin {

/// The contours of `path` after `transform`, a child for each, as an editor wants them: anchors
/// without handles are straight, those with opposite handles mirrored, others disconnected. Every
/// contour of `path` begins with a move. Nothing when there is no contour or a point or handle is
/// not finite.
std::shared_ptr<CompoundPath> editableOutline(const CGPath& path,
                                              const CGAffineTransform& transform);

}  // namespace quorin
