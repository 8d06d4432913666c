#pragma once

#include "quorin/svg/Drawing.h"

namespace quorin {

class CGContext;

/// Paints the shapes in order, in the drawing's own units with y down: who wants them stretched
/// from `viewBox` to a bitmap sets the context's transform first. The context's state is as before
/// afterwards.
void render(const Drawing& drawing, CGContext& context);

}  // namespace quorin
