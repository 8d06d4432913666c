#pragma once

#include "quorin/platform/values/CGAffineTransform.h"
#include "quorin/platform/values/CGRect.h"
#include "quorin/svg/Drawing.h"

namespace quorin::app {

/// By how much a transform enlarges on average: the square root of what it does to areas.
CGFloat growthOf(const CGAffineTransform& transform);

/// Sends outlines, clips and gradients through the transform. What has no direction of its own,
/// widths of lines, dashes and corner radii, grows by `growthOf`. The page stays as it is.
void transformShapes(Drawing& drawing, const CGAffineTransform& by);

/// Makes the page the box that an upright transform sends it to, and as many times larger in
/// pixels.
void transformPage(Drawing& drawing, const CGAffineTransform& by);

/// Makes the page this box of the plane, at as many pixels a unit as it had.
void fitPage(Drawing& drawing, const CGRect& box);

}  // namespace quorin::app
