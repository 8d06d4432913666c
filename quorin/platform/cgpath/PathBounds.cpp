#include <mutex>

#include "quorin/geometry/CubicBounds.h"
#include "quorin/platform/cgpath/CGPath.h"
#include "quorin/platform/cgpath/PathWalk.h"

namespace quorin {

namespace {

struct TightBox {
    Bounds box;

    void line(CGPoint p1, CGPoint p2) {
        extendByPoint(box, p1);
        extendByPoint(box, p2);
    }
    void quadratic(CGPoint p1, CGPoint c, CGPoint p2) { extendByQuadratic(box, p1, c, p2); }
    void cubic(CGPoint p1, CGPoint c1, CGPoint c2, CGPoint p2) {
        extendByCubic(box, p1, c1, c2, p2);
    }
    void end(CGPoint, CGPoint) {}  // what is only filled is not drawn
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
        TightBox drawn;
        walk(types, points.data(), drawn);
        _pathBoundingBox = drawn.box.isEmpty() ? boundingBox() : drawn.box.rect();
    });
    return _pathBoundingBox;
}

}  // namespace quorin
