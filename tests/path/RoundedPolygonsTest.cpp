/// Laws that hold for the rounding of any polygon.
#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/path/CurveWalk.h"
#include "quorin/path/Path.h"
#include "tests/TestSupport.h"
#include "tests/path/Corners.h"

namespace quorin {
namespace {

using namespace test;

/// A corner as plane geometry has it, and the rounding it is to get.
struct Corner {
    CGPoint place, in, out;  // unit vectors along the way
    CGFloat turn = 0;        // magnitude
    CGFloat radius = 0;

    CGFloat tangentLength() const { return radius * std::tan(turn / 2); }
    CGPoint start() const { return place - in * tangentLength(); }
    CGPoint end() const { return place + out * tangentLength(); }
};

struct Polygon {
    std::shared_ptr<Path> path;
    std::vector<Corner> corners;  // those that are rounded
};

CGFloat angleBetween(CGPoint a, CGPoint b) { return std::abs(std::atan2(cross(a, b), dot(a, b))); }

/// Anchors and radii of small whole numbers, no two neighbours at one place.
Polygon anyPolygon() {
    const auto among = [](int low, int high) {  // as wide in the first cases as in the last
        return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(low, high));
    };
    const int count = among(3, 9);
    Polygon polygon{Path::create(), {}};
    polygon.path->setIsClosed(*rc::gen::arbitrary<bool>());
    std::vector<CGPoint> points;
    while (std::ssize(points) < count) {
        const CGFloat x = among(-200, 201);
        const CGPoint point{x, static_cast<CGFloat>(among(-200, 201))};
        RC_PRE((points.empty() || (points.back() != point && points.front() != point)));
        points.push_back(point);
    }
    const auto size = points.size();
    for (std::size_t i = 0; i < size; ++i) {
        PathSegment segment(points[i], {}, {}, PointBehavior::straight);
        segment.setRadius(among(0, 60));
        polygon.path->segments().append(segment);

        const CGPoint before = points[(i + size - 1) % size], after = points[(i + 1) % size];
        const CGFloat lengthIn = distance(before, points[i]);
        const CGFloat lengthOut = distance(after, points[i]);
        Corner corner{points[i], (points[i] - before) / lengthIn, (after - points[i]) / lengthOut};
        corner.turn = angleBetween(corner.in, corner.out);
        const bool isEnd = !polygon.path->isClosed() && (i == 0 || i + 1 == size);
        const CGFloat room = std::min(lengthIn, lengthOut) / 2;
        // Half a side is all that an arc's tangent may use.
        corner.radius = std::min(std::floor(std::min(segment.radius(), room)),
                                 room / std::tan(corner.turn / 2));
        // Flat and spiky corners have tests of their own.
        RC_PRE((corner.turn == 0 || (corner.turn > 1e-3 && corner.turn < std::numbers::pi - 1e-3)));
        if (!isEnd && corner.turn > 0 && segment.radius() > 0 && room >= 1)
            polygon.corners.push_back(corner);
    }
    return polygon;
}

bool areNear(CGPoint a, CGPoint b) { return distance(a, b) < 1e-9; }

/// The curve that joins the two sides of a corner.
std::optional<PathCurve> arcOf(const Corner& corner, const Path& rounded) {
    for (const PathCurve& curve : rounded.curves())
        if (areNear(curve.p1(), corner.start()) && areNear(curve.p2(), corner.end()))
            return curve;
    return std::nullopt;
}

RC_GTEST_PROP(RoundedPolygon, hasAnArcBetweenTheTangentPointsOfEveryCorner, ()) {
    const auto [path, corners] = anyPolygon();
    const auto rounded = path->roundedCornerPath();
    for (const Corner& corner : corners)
        RC_ASSERT(arcOf(corner, *rounded).has_value());
    RC_ASSERT(rounded->segments().count() == path->segments().count() + corners.size());
}

RC_GTEST_PROP(RoundedPolygon, goesOnInTheDirectionOfItsSides, ()) {
    const auto [path, corners] = anyPolygon();
    const auto rounded = path->roundedCornerPath();
    for (const Corner& corner : corners) {
        const auto arc = arcOf(corner, *rounded);
        RC_PRE(arc.has_value());
        RC_ASSERT(angleBetween(arc->tangentAt(0).value(), corner.in) < 1e-9);
        RC_ASSERT(angleBetween(arc->tangentAt(1).value(), corner.out) < 1e-9);
    }
}

RC_GTEST_PROP(RoundedPolygon, curvesAsACircleOfTheRadiusDoes, ()) {
    const auto [path, corners] = anyPolygon();
    const auto rounded = path->roundedCornerPath();
    for (const Corner& corner : corners) {
        const auto arc = arcOf(corner, *rounded);
        RC_PRE(arc.has_value());
        const CGPoint d = arc->weightedTangentAt(0.5).value();
        const CGPoint e = (arc->p1() - arc->c1() - arc->c2() + arc->p2()) * 3;
        const CGFloat curvature = std::abs(cross(d, e)) / std::pow(dot(d, d), 1.5);
        // The middle of one cubic is flatter than the circle, by 0.6 % at a quarter turn; in units
        // of the radius its derivatives there are these.
        const CGFloat handle = 4.0 / 3 * std::tan(corner.turn / 4);
        const CGFloat sine = std::sin(corner.turn / 2), cosine = std::cos(corner.turn / 2);
        const CGFloat speed = 3 * sine - 1.5 * handle * cosine;
        const CGFloat expected = 6 * handle * sine / (speed * speed);
        RC_ASSERT(std::abs(curvature * corner.radius - expected) < 1e-6);
        if (corner.turn < 55 * std::numbers::pi / 180)
            RC_ASSERT(std::abs(curvature * corner.radius - 1) < 1e-3);

        // Its middle lies on the line from the corner to the centre.
        const CGPoint middle = arc->pointAt(0.5).value();
        const CGFloat toArc = corner.radius / std::cos(corner.turn / 2) - corner.radius;
        const CGFloat quarters = std::max(corner.turn / scalar::halfPi, 1.0);
        RC_ASSERT(std::abs(distance(middle, corner.place) - toArc) <
                  1e-9 + 2.8e-4 * std::pow(quarters, 6) * corner.radius);
    }
}

RC_GTEST_PROP(RoundedPolygon, isNoLongerThanThePolygon, ()) {
    const auto [path, corners] = anyPolygon();
    RC_ASSERT(path->roundedCornerPath()->length() <= path->length() * (1 + 1e-12));
}

RC_GTEST_PROP(RoundedPolygon, isOpenOrClosedAsThePolygonIs, ()) {
    const auto [path, corners] = anyPolygon();
    const auto rounded = path->roundedCornerPath();
    RC_ASSERT(rounded->isClosed() == path->isClosed());
    RC_ASSERT((path->isClosed() ||
               (rounded->segments()[0].point() == path->segments()[0].point() &&
                rounded->segments().last()->point() == path->segments().last()->point())));
}

RC_GTEST_PROP(RoundedPolygon, isSmoothWhenItIsRoundedSmoothly, ()) {
    const auto [path, corners] = anyPolygon();
    const auto rounded = path->smoothlyRoundedPath();
    RC_ASSERT(rounded->isClosed() == path->isClosed());
    RC_ASSERT(rounded->length() <= path->length() * (1 + 1e-12));
    for (const PathSegment& joint : rounded->segments()) {
        const bool isCorner = joint.behavior() == PointBehavior::straight;
        RC_ASSERT((isCorner || joint.handleIn() == CGPoint::zero ||
                   joint.handleOut() == CGPoint::zero ||
                   angleBetween(-joint.handleIn(), joint.handleOut()) < 1e-9));
    }
}

}  // namespace
}  // namespace quorin
