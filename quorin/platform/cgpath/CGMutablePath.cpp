#include "quorin/platform/cgpath/CGMutablePath.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/platform/cgpath/OrdinaryPoints.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {

void CGMutablePath::reserve(std::size_t elements, std::size_t pointCount) {
    types.reserve(elements);
    points.reserve(pointCount);
}

void CGMutablePath::append(CGPathElementType type, std::initializer_list<CGPoint> added) {
    types.push_back(type);
    for (const CGPoint point : added) {
        points.push_back(point);
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

// The arc's centre lies on the line that halves the angle at `tangent1`; with φ the angle between
// the two sides, both tangent points are radius / tan(φ / 2) away from `tangent1`.
void CGMutablePath::addArcToPoint(CGPoint tangent1, CGPoint tangent2, CGFloat radius) {
    requireCurrentPoint();
    const CGPoint back = current - tangent1;
    const CGPoint ahead = tangent2 - tangent1;
    const CGFloat turn = cross(back, ahead);
    const CGFloat backLength = std::hypot(back.x, back.y);
    const CGFloat aheadLength = std::hypot(ahead.x, ahead.y);
    const CGFloat sine = turn / (backLength * aheadLength);
    // Sines below `trigonometricEpsilon` count as a straight line; NaN (two points in one) too.
    if (radius == 0 || !(std::abs(sine) > scalar::trigonometricEpsilon))
        return addLineTo(tangent1);

    const CGFloat angle = std::atan2(std::abs(turn), dot(back, ahead));
    const CGFloat reach = radius / std::tan(angle / 2);
    const CGPoint first = tangent1 + back * (reach / backLength);
    const CGPoint last = tangent1 + ahead * (reach / aheadLength);
    if (first != current)
        addLineTo(first);

    const CGFloat sweep = std::numbers::pi - angle;
    const int pieces = static_cast<int>(std::ceil(sweep / scalar::halfPi));
    const CGFloat step = sweep / pieces;
    const CGFloat handle = 4.0 / 3 * std::tan(step / 4);
    // The arc in the frame of its centre: outwards at its first point, and along the way there.
    const CGPoint along = -back / backLength;
    const CGPoint inwards = turn > 0 ? CGPoint{along.y, -along.x} : CGPoint{-along.y, along.x};
    const CGPoint centre = first + inwards * radius;
    const auto place = [&](CGFloat outwards, CGFloat forwards) {
        return centre + (along * forwards - inwards * outwards) * radius;
    };
    CGFloat cosine = 1, sine0 = 0;
    for (int piece = 1; piece <= pieces; ++piece) {
        const CGFloat nextCosine = std::cos(step * piece);
        const CGFloat nextSine = std::sin(step * piece);
        const CGPoint end = piece == pieces ? last : place(nextCosine, nextSine);
        addCurveTo(end, place(cosine - handle * sine0, sine0 + handle * cosine),
                   place(nextCosine + handle * nextSine, nextSine - handle * nextCosine));
        cosine = nextCosine;
        sine0 = nextSine;
    }
}

void CGMutablePath::addRect(const CGRect& rect) {
    const auto [x, y] = rect.origin;
    const auto [width, height] = rect.size;
    moveTo({x, y});
    addLineTo({x + width, y});
    addLineTo({x + width, y + height});
    addLineTo({x, y + height});
    closeSubpath();
}

void CGMutablePath::addEllipseInRect(const CGRect& rect) {
    const CGPoint centre{CGRectGetMidX(rect), CGRectGetMidY(rect)};
    const CGFloat rx = CGRectGetWidth(rect) / 2, ry = CGRectGetHeight(rect) / 2;
    const CGFloat hx = rx * scalar::kappa, hy = ry * scalar::kappa;
    const auto place = [&](CGFloat dx, CGFloat dy) {
        return CGPoint{centre.x + dx, centre.y + dy};
    };
    moveTo(place(rx, 0));
    addCurveTo(place(0, ry), place(rx, hy), place(hx, ry));
    addCurveTo(place(-rx, 0), place(-hx, ry), place(-rx, hy));
    addCurveTo(place(0, -ry), place(-rx, -hy), place(-hx, -ry));
    addCurveTo(place(rx, 0), place(hx, -ry), place(rx, -hy));
    closeSubpath();
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
