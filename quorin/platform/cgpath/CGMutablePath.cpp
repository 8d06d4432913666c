#include "quorin/platform/cgpath/CGMutablePath.h"

#include <utility>

#include "quorin/platform/cgpath/OrdinaryPoints.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {

void CGMutablePath::reserve(std::size_t elements, std::size_t pointCount) {
    types.reserve(elements);
    points.reserve(pointCount);
}

void CGMutablePath::append(CGPathElementType type, std::initializer_list<CGPoint> added) {
    types.push_back(type);
    points.insert(points.end(), added);
    for (const CGPoint point : added) {
        isOrdinary = isOrdinary && quorin::isOrdinary(point);
        current = point;
    }
}

void CGMutablePath::moveTo(CGPoint point) {
    append(CGPathElementType::moveToPoint, {point});
    subpathStart = point;
}

void CGMutablePath::addLineTo(CGPoint point) {
    requireCurrentPoint();
    append(CGPathElementType::addLineToPoint, {point});
}

void CGMutablePath::addQuadCurveTo(CGPoint point, CGPoint control) {
    requireCurrentPoint();
    append(CGPathElementType::addQuadCurveToPoint, {control, point});
}

void CGMutablePath::addCurveTo(CGPoint point, CGPoint control1, CGPoint control2) {
    requireCurrentPoint();
    append(CGPathElementType::addCurveToPoint, {control1, control2, point});
}

void CGMutablePath::closeSubpath() {
    if (isEmpty())
        return;
    append(CGPathElementType::closeSubpath, {});
    current = subpathStart;
}

void CGMutablePath::addPath(const CGPath& path, const CGAffineTransform& transform) {
    path.apply([&](const CGPathElement& element) {
        const auto point = [&](std::size_t index) {
            return CGPointApplyAffineTransform(element.points[index], transform);
        };
        switch (element.type) {
            case CGPathElementType::moveToPoint:
                return moveTo(point(0));
            case CGPathElementType::addLineToPoint:
                return addLineTo(point(0));
            case CGPathElementType::addQuadCurveToPoint:
                return addQuadCurveTo(point(1), point(0));
            case CGPathElementType::addCurveToPoint:
                return addCurveTo(point(2), point(0), point(1));
            case CGPathElementType::closeSubpath:
                return closeSubpath();
        }
    });
}

CGPoint CGMutablePath::currentPoint() const {
    requireCurrentPoint();
    return current;
}

std::shared_ptr<const CGPath> CGMutablePath::copy() const {
    return std::make_shared<const CGPath>(CGPath::Token{}, types, points, isOrdinary);
}

std::shared_ptr<const CGPath> CGMutablePath::take() {
    return std::make_shared<const CGPath>(CGPath::Token{}, std::exchange(types, {}),
                                          std::exchange(points, {}),
                                          std::exchange(isOrdinary, true));
}

void CGMutablePath::requireCurrentPoint() const {
    if (isEmpty())
        fatalError("a drawing element with no current point: the path has 0 elements");
}

}  // namespace quorin
