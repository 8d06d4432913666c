#pragma once

#include <ostream>
#include <vector>

#include "quorin/platform/cgpath/CGPath.h"

namespace quorin {

inline void PrintTo(const CGPoint& point, std::ostream* stream) {
    *stream << '(' << point.x << ", " << point.y << ')';
}

namespace test {

/// An element that outlives its path.
struct Element {
    CGPathElementType type;
    std::vector<CGPoint> points;

    friend bool operator==(const Element&, const Element&) = default;
};

inline std::vector<Element> elementsOf(const CGPath& path) {
    std::vector<Element> elements;
    path.apply([&](const CGPathElement& element) {
        elements.push_back({element.type, {element.points.begin(), element.points.end()}});
    });
    return elements;
}

inline Element moveTo(CGPoint p) { return {CGPathElementType::moveToPoint, {p}}; }
inline Element lineTo(CGPoint p) { return {CGPathElementType::addLineToPoint, {p}}; }
inline Element quadTo(CGPoint c, CGPoint p) {
    return {CGPathElementType::addQuadCurveToPoint, {c, p}};
}
inline Element curveTo(CGPoint c1, CGPoint c2, CGPoint p) {
    return {CGPathElementType::addCurveToPoint, {c1, c2, p}};
}
inline Element close() { return {CGPathElementType::closeSubpath, {}}; }

}  // namespace test
}  // namespace quorin
