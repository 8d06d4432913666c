#include "tests/path/RandomCurves.h"

#include <cmath>
#include <limits>

#include "quorin/geometry/PointArithmetic.h"

namespace quorin::test {

const char* nameOf(CurveKind kind) {
    switch (kind) {
        case CurveKind::anywhere:
            return "anywhere";
        case CurveKind::wholeNumbers:
            return "wholeNumbers";
        case CurveKind::tinyHandles:
            return "tinyHandles";
        case CurveKind::cusps:
            return "cusps";
        case CurveKind::loops:
            return "loops";
        case CurveKind::unevenLines:
            return "unevenLines";
        case CurveKind::steep:
            return "steep";
        case CurveKind::huge:
            return "huge";
        case CurveKind::overflowing:
            return "overflowing";
        case CurveKind::notFinite:
            return "notFinite";
    }
    return "unknown";
}

CGFloat RandomCurves::between(CGFloat low, CGFloat high) {
    return std::uniform_real_distribution<CGFloat>(low, high)(random);
}

int RandomCurves::wholeBetween(int low, int high) {
    return std::uniform_int_distribution<int>(low, high)(random);
}

CGPoint RandomCurves::place() {
    const auto coordinate = [this]() -> CGFloat {
        constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
        switch (kind) {
            case CurveKind::wholeNumbers:
            case CurveKind::unevenLines:
                return wholeBetween(-3, 3);
            case CurveKind::huge:
                return between(0.5e15, 1.5e15);
            case CurveKind::overflowing:
                return between(-1.7e308, 1.7e308);
            case CurveKind::notFinite:
                switch (wholeBetween(0, 12)) {
                    case 0:
                        return infinity;
                    case 1:
                        return -infinity;
                    case 2:
                        return std::numeric_limits<CGFloat>::quiet_NaN();
                    default:
                        return wholeBetween(-3, 3);
                }
            default:
                return between(0, 1000);
        }
    };
    const CGFloat x = coordinate();
    return {x, coordinate()};
}

CubicBezier RandomCurves::lineWithHandles() {
    const CGPoint p1 = place(), p2 = place();
    const CGPoint v = p2 - p1;
    const auto length = [this] { return wholeBetween(0, 2) == 0 ? 0 : between(0, 1.1); };
    const CGFloat first = length();
    return {p1, first * v, -length() * v, p2};
}

CubicBezier RandomCurves::curve() {
    if (kind == CurveKind::unevenLines)
        return lineWithHandles();

    const CGPoint p1 = place(), c1 = place(), c2 = place(), p2 = place();
    if (kind == CurveKind::steep) {
        // y = off + far·(2t - 1)³ or off + far·(2t - 1)².
        const CGFloat far = std::pow(10, between(3, 12));
        const CGFloat off = between(0, 1000), end = off + far;
        if (wholeBetween(0, 1) == 0)
            return {{p1.x, off - far}, {100, 2 * far}, {-100, -2 * far}, {p1.x + 300, end}};
        const CGFloat slope = -4 * far / 3;
        return {{p1.x, end}, {100, slope}, {-100, slope}, {p1.x + 300, end}};
    }
    if (kind == CurveKind::tinyHandles) {
        const auto tiny = [this] {
            return CGPoint{between(-2e-12, 2e-12),
                           wholeBetween(0, 1) == 0 ? 0 : between(-2e-12, 0)};
        };
        const CGPoint h1 = tiny();
        return {p1, h1, wholeBetween(0, 1) == 0 ? tiny() : c2 - p2, p2};
    }
    if (kind == CurveKind::cusps) {
        // The controls of a cusp at the middle cross over; a hair's breadth off it is none.
        const CGPoint hair = wholeBetween(0, 1) * CGPoint{between(-1e-3, 1e-3), between(-1e-9, 0)};
        const CGPoint v = p2 - p1;
        const CGPoint n{-v.y, v.x};
        return {p1, v + n + hair, n - v, p2};
    }
    if (kind == CurveKind::loops)
        return {p1, c1 - p1, c2 - p1, p1};
    return {p1, c1 - p1, c2 - p2, p2};
}

CGPoint RandomCurves::pointFor(const CubicBezier& curve) {
    switch (wholeBetween(0, 6)) {
        case 0:
            return curve.p1;
        case 1:
            return curve.p2;
        case 2:
            return *curve.pointAt(0.01 * wholeBetween(0, 100));
        case 3:
            return *curve.pointAt(between(0, 1)) + CGPoint{between(-1, 1), between(-1, 1)};
        case 4:
            return (curve.p1 + curve.p2) / 2.0;
        default:
            return place();
    }
}

std::shared_ptr<Path> RandomCurves::path(int curveCount, bool isClosed) {
    const auto path = Path::create();
    CGPoint handleIn;
    for (int i = 0; i <= curveCount; ++i) {
        const CubicBezier next = curve();
        path->segments().append({next.p1, handleIn, next.h1, PointBehavior::disconnected});
        handleIn = next.h2;
    }
    path->setIsClosed(isClosed);
    return path;
}

}  // namespace quorin::test
