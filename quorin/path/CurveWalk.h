#pragma once

#include <cstddef>

#include "quorin/path/CubicBezier.h"
#include "quorin/path/Path.h"

namespace quorin {

/// The curve from the one anchor to the next.
inline CubicBezier cubicBetween(const PathSegment& from, const PathSegment& to) {
    return {from.point(), from.handleOut(), to.handleIn(), to.point()};
}

/// Calls `body` with the geometry and the position of each curve that `path.curves()` lists, in
/// that order, until it answers true; then answers true. Reads the stored segments and allocates
/// nothing.
template <typename Body>
bool walkCurves(const Path& path, Body&& body) {
    const auto& segments = path.segments();
    const std::size_t count = segments.count();
    if (count < 2)
        return false;
    std::size_t index = 0;
    for (auto to = segments.begin() + 1; to != segments.end(); ++to, ++index)
        if (body(cubicBetween(*(to - 1), *to), index))
            return true;
    return path.isClosed() && body(cubicBetween(segments[count - 1], segments[0]), index);
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
