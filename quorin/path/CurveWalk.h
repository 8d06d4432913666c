#pragma once

#include <cstddef>

#include "quorin/path/CubicBezier.h"
#include "quorin/path/Path.h"

namespace quorin {

/// The curve from the one anchor to the next.
inline CubicBezier cubicBetween(const PathAnchor& from, const PathAnchor& to) {
    return {from.point, from.handleOut, to.handleIn, to.point};
}

/// Calls `body` with the geometry and the position of each curve that `path.curves()` lists, in
/// that order, until it answers true; then answers true. Reads the stored segments and allocates
/// nothing.
template <typename Body>
bool walkCurves(const Path& path, Body&& body) {
    const auto anchors = path.segments().anchors();
    if (anchors.size() < 2)
        return false;
    const std::size_t last = anchors.size() - 1;
    for (std::size_t i = 0; i < last; ++i)
        if (body(cubicBetween(anchors[i], anchors[i + 1]), i))
            return true;
    return path.isClosed() && body(cubicBetween(anchors[last], anchors[0]), last);
}

/// Calls `body` with the geometry of each curve that `path.curves()` lists, in that order.
template <typename Body>
void forEachCurve(const Path& path, Body&& body) {
    walkCurves(path, [&body](const CubicBezier& cubic, std::size_t) {
        body(cubic);
        return false;
    });
}

}  // namespace quorin
