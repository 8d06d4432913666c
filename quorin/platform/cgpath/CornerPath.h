#pragma once

#include <memory>
#include <span>

#include "quorin/platform/cgpath/CGPath.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// The closed outline with straight sides from corner to corner; empty without points.
std::shared_ptr<const CGPath> pathWithCorners(std::span<const CGPoint> points);

}  // namespace quorin
