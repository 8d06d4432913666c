#pragma once

#include <memory>

#include "quorin/path/Path.h"
#include "quorin/platform/values/FunctionRef.h"
#include "quorin/svg/Drawing.h"

namespace quorin::app {

/// Puts what `work` makes of it in the place of each contour of each shape. Contours that come out
/// empty are left out, and so are shapes of which none is left. Clips stay as they are.
void replaceContours(Drawing& drawing,
                     FunctionRef<std::shared_ptr<Path>(const std::shared_ptr<Path>&)> work);

}  // namespace quorin::app
