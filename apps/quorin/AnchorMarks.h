#pragma once

#include <vector>

#include "quorin/path/Path.h"
#include "quorin/platform/cgpath/CGMutablePath.h"
#include "quorin/platform/drawing/CGContext.h"
#include "quorin/platform/values/CGAffineTransform.h"

namespace quorin::app {

/// What an editor shows of the paths it works on: outlines, anchors as squares, handles as lines
/// with round ends.
class AnchorMarks {
public:
    /// `toPixels` leads from the paths' plane to the bitmap, on which lines are `lineWidth` wide
    /// and everything else is in proportion.
    AnchorMarks(const CGAffineTransform& toPixels, CGFloat lineWidth)
        : transform(toPixels), unit(lineWidth) {}

    void add(const Path& path);
    /// All marks of one kind lie over all of the kind below. A bright edge keeps them apart from
    /// any ground.
    void paint(CGContext& context) const;

private:
    void addHandle(CGPoint anchor, CGPoint controlPoint);
    void paintAnchor(CGContext& context, CGPoint anchor) const;
    void strokeWithEdge(CGContext& context, const CGMutablePath& lines) const;

    CGAffineTransform transform;
    CGFloat unit;
    CGMutablePath outlines, handles, handleEnds;
    std::vector<CGPoint> anchors;
};

}  // namespace quorin::app
