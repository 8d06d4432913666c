#pragma once

#include <string>

#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// The number with three decimals and a blank in the place of a plus sign, always with a point:
/// " 1.000", "-0.500", " inf", " nan".
std::string fixedText(CGFloat number);

}  // namespace quorin
