#include "quorin/svg/reading/SvgOutline.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "quorin/geometry/Finiteness.h"
#include "quorin/geometry/PointArithmetic.h"

namespace quorin {
namespace {

PointBehavior inferredBehavior(CGPoint handleIn, CGPoint handleOut) {
    if (handleIn == CGPoint::zero && handleOut == CGPoint::zero)
        return PointBehavior::straight;
    return handleIn == -handleOut ? PointBehavior::mirrored : PointBehavior::disconnected;
}

void inferBehaviors(Path& path) {
    path.segments().transform([](PathSegment& segment) {
        segment = PathSegment(segment.point(), segment.handleIn(), segment.handleOut(),
                              inferredBehavior(segment.handleIn(), segment.handleOut()));
    });
}

bool hasFiniteAnchors(const Path& path) {
    return std::all_of(path.segments().begin(), path.segments().end(), [](const PathSegment& s) {
        return isFinite(s.point()) && isFinite(s.handleIn()) && isFinite(s.handleOut()) &&
               isFinite(s.controlPointIn()) && isFinite(s.controlPointOut());
    });
}

}  // namespace

std::shared_ptr<CompoundPath> editableOutline(const CGPath& path,
                                              const CGAffineTransform& transform) {
    std::vector<std::shared_ptr<Path>> contours;
    path.apply([&](const CGPathElement& element) {
        const auto point = [&](std::size_t index) {
            return CGPointApplyAffineTransform(element.points[index], transform);
        };
        switch (element.type) {
            case CGPathElementType::moveToPoint:
                contours.push_back(Path::create());
                contours.back()->moveTo(point(0));
                break;
            case CGPathElementType::addLineToPoint:
                contours.back()->addLineTo(point(0));
                break;
            case CGPathElementType::addQuadCurveToPoint: {
                const CGPoint start = contours.back()->segments().last()->point();
                const CGPoint control = point(0) * 2;
                contours.back()->addCurveTo(point(1), (start + control) / 3.0,
                                            (point(1) + control) / 3.0);
                break;
            }
            case CGPathElementType::addCurveToPoint:
                contours.back()->addCurveTo(point(2), point(0), point(1));
                break;
            case CGPathElementType::closeSubpath:
                contours.back()->closePath();
                break;
        }
    });
    const bool isUsable =
        !contours.empty() && std::all_of(contours.begin(), contours.end(), [](const auto& contour) {
            return hasFiniteAnchors(*contour);
        });
    if (!isUsable)
        return nullptr;
    for (const std::shared_ptr<Path>& contour : contours)
        inferBehaviors(*contour);
    return CompoundPath::create(std::move(contours));
}

}  // namespace quorin
