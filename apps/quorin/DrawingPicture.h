#pragma once

#include "quorin/platform/drawing/CGContext.h"
#include "quorin/platform/values/CGRect.h"
#include "quorin/svg/Drawing.h"

namespace quorin::app {

/// Paints what the drawing shows of its plane, as large as it fits into the middle of a rect of
/// the bitmap.
void paint(const Drawing& drawing, CGContext& context, const CGRect& into);

/// The outlines, anchors and handles of all shapes, over a drawing that was painted into the same
/// rect. Lines are `lineWidth` pixels wide.
void paintAnchors(const Drawing& drawing, CGContext& context, const CGRect& into,
                  CGFloat lineWidth);

CGColor platformColor(const DrawingColor& color);

}  // namespace quorin::app
