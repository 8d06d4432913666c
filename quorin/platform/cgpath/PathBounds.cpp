#include <array>
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

    // A curve whose controls leave the box waits a while: most often the ends of the curves after
    // it reach further, and its extrema need no computing. An outline that wanders outwards would
    // otherwise pay for nearly every curve.
    void cubics(CGPoint p1, std::span<const CGPoint> points) {
        Bounds gathered = box;  // kept in registers, which a member would not be
        for (std::size_t index = 0; index < points.size(); index += 3) {
            const CGPoint* const cubic = &points[index];
            extendByPoint(gathered, cubic[2]);
            if (!gathered.holds(lanesOf(cubic[0]), lanesOf(cubic[1]))) {
                waiting[waitingCount++] = {p1, cubic};
                if (waitingCount == waiting.size())
                    gathered = settled(gathered);
            }
            p1 = cubic[2];
        }
        box = settled(gathered);
    }

    void leaveOpen(CGPoint, CGPoint) {}  // filling closes a subpath, but draws nothing there

    const Bounds& bounds() const { return box; }

private:
    struct Cubic {
        CGPoint p1;
        const CGPoint* others;
    };

    Bounds settled(Bounds gathered) {
        for (const auto& [p1, others] : std::span(waiting).first(waitingCount))
            extendByCubic(gathered, p1, others[0], others[1], others[2]);
        waitingCount = 0;
        return gathered;
    }

    Bounds box;
    std::size_t waitingCount = 0;
    std::array<Cubic, 64> waiting;
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
