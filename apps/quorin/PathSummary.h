#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "quorin/path/Path.h"
#include "quorin/platform/values/KeyedCoding.h"
#include "quorin/svg/Drawing.h"

namespace quorin::app {

/// What can be said of one path of a drawing in a line. Lengths are in the drawing's units.
struct PathSummary {
    std::string id;         ///< of its shape; empty when that has none
    std::size_t shape = 0;  ///< index of the shape in the drawing
    std::size_t anchors = 0;
    bool isClosed = false;
    CGFloat length = 0;
    CGRect box;  ///< null for a path without anchors
    bool isStraight = false;
    bool isRectangle = false;

    void encode(Encoder& encoder) const;
};

/// A summary for each path of each shape, in order.
std::vector<PathSummary> summarize(const Drawing& drawing);

/// Summaries of paths added up, of one drawing or of many.
struct DrawingTotals {
    std::size_t shapes = 0, paths = 0, anchors = 0, closed = 0, straight = 0, rectangles = 0;
    CGFloat length = 0;

    void add(const PathSummary& path);
    void add(const DrawingTotals& other);
};

DrawingTotals totalsOf(const Drawing& drawing, const std::vector<PathSummary>& paths);
/// The box around all of them; null when there is none.
CGRect boxAround(const std::vector<PathSummary>& paths);

/// Leaves the key out for a null rect, which JSON has no numbers for.
void encodeBox(const CGRect& box, Encoder& encoder);

}  // namespace quorin::app
