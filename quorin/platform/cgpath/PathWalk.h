#pragma once

#include <algorithm>
#include <cstddef>
#include <span>

#include "quorin/platform/cgpath/CGPath.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// How many points an element of this type carries.
constexpr std::size_t pointCount(CGPathElementType type) {
    constexpr std::size_t counts[] = {1, 1, 2, 3, 0};
    return counts[static_cast<std::size_t>(type)];
}

/// Tells `sink` what the elements draw, in order; moves that draw nothing are passed over.
///
/// `begin(p1)` announces each subpath that draws something. `lines(p1, points)`, `quadratics` and
/// `cubics` bring one or more of their kind in a row, from `p1` on, with one, two or three points
/// each. The subpath ends with `close(p2, p1)`, or with `leaveOpen(p2, p1)` where nothing is drawn
/// between the two but filling closes it.
template <typename Sink>
void walk(std::span<const CGPathElementType> types, const CGPoint* next, Sink& sink) {
    CGPoint start, current;
    bool isDrawing = false;
    const auto leave = [&] {
        if (isDrawing)
            sink.leaveOpen(current, start);
        isDrawing = false;
    };
    for (auto type = types.begin(); type != types.end();) {
        const CGPathElementType kind = *type;
        if (kind == CGPathElementType::moveToPoint) {
            leave();
            start = current = *next++;
            ++type;
            continue;
        }
        if (!isDrawing)
            sink.begin(start);
        isDrawing = true;
        if (kind == CGPathElementType::closeSubpath) {
            sink.close(current, start);
            current = start;
            isDrawing = false;
            ++type;
            continue;
        }
        const auto other = std::find_if(type, types.end(), [&](auto t) { return t != kind; });
        const std::span points(next, pointCount(kind) * static_cast<std::size_t>(other - type));
        if (kind == CGPathElementType::addCurveToPoint)
            sink.cubics(current, points);
        else if (kind == CGPathElementType::addQuadCurveToPoint)
            sink.quadratics(current, points);
        else
            sink.lines(current, points);
        current = points.back();
        next += points.size();
        type = other;
    }
    leave();
}

}  // namespace quorin
