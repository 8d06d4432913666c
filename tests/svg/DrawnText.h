#pragma once

#include <string>

#include "quorin/path/CompoundPath.h"
#include "quorin/platform/cgpath/CGPath.h"

namespace quorin::test {

/// The elements as one reads them: "M 0,0 L 10,0 C 1,1 2,2 3,0.5 Z". Equal texts mean equal points,
/// bit for bit but for the sign of zero.
std::string drawnText(const CGPath& path);
/// What the anchors of each contour draw.
std::string drawnText(const Path& path);
std::string drawnText(const CompoundPath& outline);

}  // namespace quorin::test
