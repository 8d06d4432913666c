#include "quorin/path/Path.h"

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/path/CurveWalk.h"
#include "quorin/platform/cgpath/CGMutablePath.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {
namespace {

bool isDrawnCurved(const CubicBezier& curve) {
    return curve.h1 != CGPoint::zero || curve.h2 != CGPoint::zero;
}

void addOutline(const Path& path, CGMutablePath& outline) {
    std::size_t lines = 0;
    std::size_t cubics = 0;
    forEachCurve(path,
                 [&](const CubicBezier& curve) { ++(isDrawnCurved(curve) ? cubics : lines); });
    outline.reserve(1 + lines + cubics + (path.isClosed() ? 1 : 0), 1 + lines + 3 * cubics);

    outline.moveTo(path.segments().anchors().front().point);
    forEachCurve(path, [&](const CubicBezier& curve) {
        if (isDrawnCurved(curve))
            outline.addCurveTo(curve.p2, curve.c1(), curve.c2());
        else
            outline.addLineTo(curve.p2);
    });
    if (path.isClosed())
        outline.closeSubpath();
}

void addQuadratic(Path& path, CGPoint control, CGPoint end) {
    const auto anchors = path.segments().anchors();
    if (anchors.empty())
        return;
    const CGPoint c = (2 * control + anchors.back().point) / 3.0;
    path.addCurveTo(end, c, c);
}

}  // namespace

std::shared_ptr<const CGPath> Path::cg() const {
    if (!_cgPath) {
        CGMutablePath outline;
        if (!_segments.isEmpty())
            addOutline(*this, outline);
        _cgPath = outline.take();
    }
    return _cgPath;
}

std::shared_ptr<Path> Path::create(std::shared_ptr<const CGPath> cg) {
    auto path = create();
    path->_segments.reserve(cg->elementCount());
    cg->apply([&](const CGPathElement& element) { path->addElement(element); });
    path->_cgPath = std::move(cg);
    return path;
}

void Path::addElement(const CGPathElement& element) {
    const auto points = element.points;
    switch (element.type) {
        case CGPathElementType::moveToPoint:
            return moveTo(points[0]);
        case CGPathElementType::addLineToPoint:
            return addLineTo(points[0]);
        case CGPathElementType::addQuadCurveToPoint:
            return addQuadratic(*this, points[0], points[1]);
        case CGPathElementType::addCurveToPoint:
            return addCurveTo(points[2], points[0], points[1]);
        case CGPathElementType::closeSubpath:
            return closePath();
    }
    fatalError("Not implemented");
}

}  // namespace quorin
