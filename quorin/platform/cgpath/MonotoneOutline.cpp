#include "quorin/platform/cgpath/MonotoneOutline.h"

#include "quorin/platform/cgpath/MonotoneSplit.h"
#include "quorin/platform/cgpath/PathWalk.h"

namespace quorin {

namespace {

class Collector {
public:
    explicit Collector(MonotoneOutline& outline_) : outline(outline_) {}

    void begin(CGPoint) {}

    void lines(CGPoint p1, std::span<const CGPoint> points) {
        for (const CGPoint p2 : points) {
            addLine(p1, p2);
            p1 = p2;
        }
    }

    void quadratics(CGPoint p1, std::span<const CGPoint> points) {
        for (std::size_t index = 0; index < points.size(); index += 2) {
            const CGPoint c = points[index], p2 = points[index + 1];
            add(OutlineCurve::quadratic(p1, c, p2), turnTimes(p1, c, p2),
                ControlExtent::of(p1, c, p2), p2);
            p1 = p2;
        }
    }

    void cubics(CGPoint p1, std::span<const CGPoint> points) {
        for (std::size_t index = 0; index < points.size(); index += 3) {
            const CGPoint c1 = points[index], c2 = points[index + 1], p2 = points[index + 2];
            add(OutlineCurve::cubic(p1, c1, c2, p2), turnTimes(p1, c1, c2, p2),
                ControlExtent::of(p1, c1, c2, p2), p2);
            p1 = p2;
        }
    }

    void close(CGPoint p1, CGPoint p2) { addLine(p1, p2); }
    void leaveOpen(CGPoint p1, CGPoint p2) { addLine(p1, p2); }

private:
    std::uint32_t nextCurve() const { return static_cast<std::uint32_t>(outline.curves.size()); }

    void addLine(CGPoint p1, CGPoint p2) {
        outline.pieces.push_back({{0, 1, p1, p2}, nextCurve()});
        outline.curves.push_back(OutlineCurve::line(p1, p2));
    }

    void add(const OutlineCurve& curve, const TurnTimes& turns, const ControlExtent& extent,
             CGPoint end) {
        forEachMonotonePiece(curve, turns, extent, end, [&](const MonotonePiece& piece) {
            outline.pieces.push_back({piece, nextCurve()});
        });
        outline.curves.push_back(curve);
    }

    MonotoneOutline& outline;
};

}  // namespace

MonotoneOutline::MonotoneOutline(std::span<const CGPathElementType> types,
                                 std::span<const CGPoint> points) {
    curves.reserve(types.size());
    pieces.reserve(types.size());
    Collector collector(*this);
    walk(types, points.data(), collector);
    pieces.shrink_to_fit();
}

}  // namespace quorin
