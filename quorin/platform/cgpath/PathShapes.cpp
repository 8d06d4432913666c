#include <cmath>
#include <numbers>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/platform/cgpath/CGMutablePath.h"

namespace quorin {

namespace {

/// A circle arc by two vectors of the length of its radius: from the centre to where it starts,
/// and from there along it.
struct Arc {
    CGPoint centre, out, along;

    CGPoint at(CGFloat angle) const {
        return centre + out * std::cos(angle) + along * std::sin(angle);
    }
    CGPoint velocityAt(CGFloat angle) const {
        return along * std::cos(angle) - out * std::sin(angle);
    }
};

CGFloat length(CGPoint vector) { return std::hypot(vector.x, vector.y); }

}  // namespace

// The tangent points are radius / tan(φ / 2) away from the corner, φ being the angle between its
// sides, and the arc turns by what φ lacks of a half circle.
void CGMutablePath::addArcToPoint(CGPoint tangent1, CGPoint tangent2, CGFloat radius) {
    requireCurrentPoint();
    const CGPoint back = current - tangent1;
    const CGPoint ahead = tangent2 - tangent1;
    const CGFloat area = length(back) * length(ahead);
    const CGFloat sine = cross(back, ahead) / area;
    // NaN when two of the points coincide.
    if (!(radius > 0) || !(std::abs(sine) > scalar::trigonometricEpsilon))
        return addLineTo(tangent1);

    const CGFloat cosine = dot(back, ahead) / area;
    const CGFloat cotangent =
        cosine > 0 ? (1 + cosine) / std::abs(sine) : std::abs(sine) / (1 - cosine);
    const CGPoint first = tangent1 + back * (radius * cotangent / length(back));
    const CGPoint last = tangent1 + ahead * (radius * cotangent / length(ahead));
    if (!isNearlyEqual(first, current))
        addLineTo(first);

    const CGPoint along = back * (-radius / length(back));
    const CGPoint out = sine > 0 ? CGPoint{-along.y, along.x} : CGPoint{along.y, -along.x};
    const Arc arc{first - out, out, along};
    const CGFloat sweep = std::numbers::pi - std::atan2(std::abs(sine), cosine);
    const int pieces = static_cast<int>(std::ceil(sweep / scalar::halfPi));
    const CGFloat handle = 4.0 / 3 * std::tan(sweep / pieces / 4);
    for (int piece = 0; piece < pieces; ++piece) {
        const CGFloat from = sweep * piece / pieces;
        const CGFloat to = sweep * (piece + 1) / pieces;
        addCurveTo(piece + 1 < pieces ? arc.at(to) : last,
                   arc.at(from) + arc.velocityAt(from) * handle,
                   arc.at(to) - arc.velocityAt(to) * handle);
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
    const CGPoint radius{CGRectGetWidth(rect) / 2, CGRectGetHeight(rect) / 2};
    const CGFloat k = scalar::kappa;
    const auto place = [&](CGFloat x, CGFloat y) { return centre + radius * CGPoint{x, y}; };
    moveTo(place(1, 0));
    addCurveTo(place(0, 1), place(1, k), place(k, 1));
    addCurveTo(place(-1, 0), place(-k, 1), place(-1, k));
    addCurveTo(place(0, -1), place(-1, -k), place(-k, -1));
    addCurveTo(place(1, 0), place(k, -1), place(1, -k));
    closeSubpath();
}

}  // namespace quorin
