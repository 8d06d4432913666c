#include "quorin/geometry/RectLists.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/SizeArithmetic.h"

namespace quorin {

namespace {

struct Extent {
    CGFloat start, end;
};

Extent horizontal(const CGRect& rect) { return {rect.origin.x, rect.origin.x + rect.size.width}; }
Extent vertical(const CGRect& rect) { return {rect.origin.y, rect.origin.y + rect.size.height}; }

std::optional<CGRect> containingRect(std::span<const CGRect> rects,
                                     Extent (*extentOf)(const CGRect&)) {
    // What contains the outermost start and end contains every other one.
    constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
    Extent outermost{infinity, -infinity};
    for (const CGRect& rect : rects) {
        const Extent extent = extentOf(rect);
        if (std::isnan(extent.start) || std::isnan(extent.end))
            return std::nullopt;  // nothing compares with it
        outermost.start = std::min(outermost.start, extent.start);
        outermost.end = std::max(outermost.end, extent.end);
    }
    const auto containsAll = [&](const CGRect& rect) {
        const Extent extent = extentOf(rect);
        return extent.start <= outermost.start && outermost.end <= extent.end;
    };
    const auto found = std::find_if(rects.begin(), rects.end(), containsAll);
    return found == rects.end() ? std::nullopt : std::optional(*found);
}

}  // namespace

CGRect unionOf(std::span<const CGRect> rects) {
    if (rects.empty())
        return CGRect::zero;
    CGRect all = rects.front();
    for (const CGRect& rect : rects.subspan(1))
        all = CGRectUnion(all, rect);
    return all;
}

std::vector<CGRect> resizeBoundingRect(const CGRect& rect, const CGRect& newRect,
                                       std::span<const CGRect> forRects) {
    const CGSize shrinking = rect.size / newRect.size;
    std::vector<CGRect> resized;
    resized.reserve(forRects.size());
    for (const CGRect& each : forRects)
        resized.push_back(
            {(each.origin - rect.origin) / shrinking + newRect.origin, each.size / shrinking});
    return resized;
}

std::optional<CGRect> GetHorizontallyContainingRectWithRects(std::span<const CGRect> rects) {
    return containingRect(rects, horizontal);
}

std::optional<CGRect> GetVerticallyContainingRectWithRects(std::span<const CGRect> rects) {
    return containingRect(rects, vertical);
}

}  // namespace quorin
