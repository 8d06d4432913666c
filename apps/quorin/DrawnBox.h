#pragma once

#include "quorin/platform/values/CGRect.h"
#include "quorin/svg/Drawing.h"

namespace quorin::app {

/// The box of what is painted, null when that is nothing: outlines tightly, and around them the
/// halves of their lines with the points of their corners. What clips leave is taken from the
/// boxes of the clips.
CGRect drawnBox(const DrawingShape& shape);
CGRect drawnBox(const Drawing& drawing);

}  // namespace quorin::app
