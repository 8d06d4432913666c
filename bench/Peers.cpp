#include "bench/Peers.h"

#include "quorin/path/CurveWalk.h"

namespace quorin::bench {

namespace {

Geom::Point geomPoint(CGPoint point) { return {point.x, point.y}; }
QPointF qtPoint(CGPoint point) { return {point.x, point.y}; }

}  // namespace

Geom::CubicBezier toGeom(const CubicBezier& cubic) {
    return {geomPoint(cubic.p1), geomPoint(cubic.c1()), geomPoint(cubic.c2()), geomPoint(cubic.p2)};
}

Geom::Path toGeom(const Path& path) {
    Geom::Path result(geomPoint(path.segments()[0].point()));
    walkCurves(path, [&](const CubicBezier& cubic, std::size_t) {
        result.appendNew<Geom::CubicBezier>(geomPoint(cubic.c1()), geomPoint(cubic.c2()),
                                            geomPoint(cubic.p2));
        return false;
    });
    result.close(path.isClosed());
    return result;
}

QPainterPath toQt(const Path& path) {
    QPainterPath result(qtPoint(path.segments()[0].point()));
    walkCurves(path, [&](const CubicBezier& cubic, std::size_t) {
        result.cubicTo(qtPoint(cubic.c1()), qtPoint(cubic.c2()), qtPoint(cubic.p2));
        return false;
    });
    return result;
}

void addToCairo(cairo_t* context, const Path& path) {
    const CGPoint start = path.segments()[0].point();
    cairo_move_to(context, start.x, start.y);
    walkCurves(path, [&](const CubicBezier& cubic, std::size_t) {
        const CGPoint c1 = cubic.c1(), c2 = cubic.c2();
        cairo_curve_to(context, c1.x, c1.y, c2.x, c2.y, cubic.p2.x, cubic.p2.y);
        return false;
    });
}

}  // namespace quorin::bench
