#pragma once

#include <string>

#include "quorin/platform/foundation/NSColor.h"

namespace quorin {

/// "rgba(256, 0, 128, 1.0)": red, green and blue times 256, without the fraction, so that full is
/// 256 and not 255; alpha as descriptions print numbers. Components beyond 0 to 1 are not cut, NaN
/// counts as 0. A colour that cannot be converted, a pattern, is transparent black.
std::string webRGB(const NSColor& color);

}  // namespace quorin
