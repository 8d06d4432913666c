#include <algorithm>
#include <cstddef>
#include <mutex>
#include <span>

#include "quorin/geometry/CubicBounds.h"
#include "quorin/platform/cgpath/CGPath.h"
#include "quorin/platform/cgpath/PathWalk.h"

namespace quorin {

namespace {

class DrawnBounds {
public:
    void begin(CGPoint p1) { extendByPoint(box, p1); }

    void lines(CGPoint, std::span<const CGPoint> points) {
        for (const CGPoint point : points)
            extendByPoint(box, point);
    }

    void quadratics(CGPoint p1, std::span<const CGPoint> points) {
        for (std::size_t index = 0; index < points.size(); index += 2) {
            extendByQuadratic(box, p1, points[index], points[index + 1]);
            p1 = points[index + 1];
        }
    }

    // The ends of a stretch of curves come first. They most often reach further than the controls
    // of those before them, whose extrema then need no computing; an outline that wanders outwards
    // would otherwise pay for nearly every curve.
    void cubics(CGPoint p1, std::span<const CGPoint> points) {
        constexpr std::size_t stretch = 768;  // three points each
        while (!points.empty()) {
            const auto part = points.first(std::min(stretch, points.size()));
            Bounds gathered = box;  // kept in registers, which a member would not be
            for (std::size_t index = 2; index < part.size(); index += 3)
                extendByPoint(gathered, part[index]);
            box = gathered;
            for (std::size_t index = 0; index < part.size(); index += 3) {
                const CGPoint c1 = part[index], c2 = part[index + 1], p2 = part[index + 2];
                if (!gathered.holds(lanesOf(c1), lanesOf(c2))) {
                    extendByCubic(box, p1, c1, c2, p2);
                    gathered = box;
                }
                p1 = p2;
            }
            points = points.subspan(part.size());
        }
    }

    // Both ends are in the box already.
    void close(CGPoint, CGPoint) {}
    void leaveOpen(CGPoint, CGPoint) {}

    const Bounds& bounds() const { return box; }

private:
    Bounds box;
};

}  // namespace

CGRect CGPath::boundingBox() const {
    Bounds box;
    for (const CGPoint point : points)
        extendByPoint(box, point);
    return box.rect();
}

CGRect CGPath::pathBoundingBox() const {
    std::call_once(_pathBoundingBoxOnce, [this] {
        DrawnBounds drawn;
        walk(types, points.data(), drawn);
        _pathBoundingBox = drawn.bounds().isEmpty() ? boundingBox() : drawn.bounds().rect();
    });
    return _pathBoundingBox;
}

}  // namespace quorin
