#pragma once

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

/// Calls `sink.line(p1, p2)`, `sink.quadratic(p1, c, p2)` and `sink.cubic(p1, c1, c2, p2)` for
/// what the elements draw, in order, with the line of every close. Moves draw nothing; `sink.end(
/// start, current)` is called where a subpath that drew something is left open.
template <typename Sink>
void walk(std::span<const CGPathElementType> types, const CGPoint* next, Sink& sink) {
    CGPoint start, current;
    bool isOpen = false;
    for (const CGPathElementType type : types) {
        switch (type) {
            case CGPathElementType::moveToPoint:
                if (isOpen)
                    sink.end(current, start);
                start = current = next[0];
                isOpen = false;
                break;
            case CGPathElementType::addLineToPoint:
                sink.line(current, next[0]);
                current = next[0];
                isOpen = true;
                break;
            case CGPathElementType::addQuadCurveToPoint:
                sink.quadratic(current, next[0], next[1]);
                current = next[1];
                isOpen = true;
                break;
            case CGPathElementType::addCurveToPoint:
                sink.cubic(current, next[0], next[1], next[2]);
                current = next[2];
                isOpen = true;
                break;
            case CGPathElementType::closeSubpath:
                sink.line(current, start);
                current = start;
                isOpen = false;
                break;
        }
        next += pointCount(type);
    }
    if (isOpen)
        sink.end(current, start);
}

}  // namespace quorin
