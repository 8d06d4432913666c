#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "quorin/geometry/Line.h"
#include "quorin/geometry/Polynomial.h"
#include "quorin/linear/Vector2.h"
#include "quorin/path/CubicBezier.h"
#include "quorin/path/CurveOverlap.h"
#include "quorin/path/CurveTime.h"
#include "quorin/platform/values/CGGeometry.h"
#include "quorin/platform/values/CGRect.h"

namespace quorin {

class Path;
class PathCurveLocation;

/// The cubic Bézier between two neighbouring anchors: a value, free of the path it came from.
///
/// `h1` and `h2` are vectors relative to `p1` and `p2`. Positions and lengths are in points,
/// times are the Bézier parameter in [0, 1]. A query outside that range answers nothing.
/// A curve of a path knows its position there (`index`) and refers to the path weakly.
class PathCurve {
public:
    using Time = PathCurveTime;
    using Offset = PathCurveOffset;

    PathCurve() = default;
    explicit PathCurve(const CubicBezier& cubic) : _cubic(cubic) {}
    /// Handles relative to their anchors.
    PathCurve(CGPoint p1, CGPoint h1, CGPoint h2, CGPoint p2) : _cubic{p1, h1, h2, p2} {}
    /// Absolute control points.
    static PathCurve withControlPoints(CGPoint p1, CGPoint cp1, CGPoint cp2, CGPoint p2);
    /// A curve at a position of a path.
    PathCurve(const CubicBezier& cubic, std::weak_ptr<const Path> path, std::ptrdiff_t index);

    const CubicBezier& cubic() const { return _cubic; }
    CGPoint p1() const { return _cubic.p1; }
    CGPoint h1() const { return _cubic.h1; }
    CGPoint h2() const { return _cubic.h2; }
    CGPoint p2() const { return _cubic.p2; }
    CGPoint c1() const { return _cubic.c1(); }
    CGPoint c2() const { return _cubic.c2(); }
    void setP1(CGPoint point);
    void setH1(CGPoint handle);
    void setH2(CGPoint handle);
    void setP2(CGPoint point);
    void setC1(CGPoint controlPoint);
    /// Stores `controlPoint - p1` as `h2`: measured from the start anchor, although `c2()` reads
    /// from `p2`. Use `setH2` to move the second control point.
    void setC2(CGPoint controlPoint);

    std::optional<std::ptrdiff_t> index() const { return _index; }
    std::shared_ptr<const Path> path() const { return _path.lock(); }

    /// p1, c1, c2, p2.
    std::array<CGPoint, 4> points() const;
    /// From the end anchor back to the start anchor.
    Vector2 vector() const;

    std::optional<CGPoint> pointAt(Time time) const { return _cubic.pointAt(time.rawValue); }
    std::optional<CGPoint> tangentAt(Time time) const { return _cubic.tangentAt(time.rawValue); }
    std::optional<CGPoint> weightedTangentAt(Time time) const {
        return _cubic.weightedTangentAt(time.rawValue);
    }
    std::optional<CGPoint> normalAt(Time time) const { return _cubic.normalAt(time.rawValue); }
    std::optional<CGPoint> weightedNormalAt(Time time) const {
        return _cubic.weightedNormalAt(time.rawValue);
    }
    std::optional<CGFloat> curvatureAt(Time time) const {
        return _cubic.curvatureAt(time.rawValue);
    }

    /// Arc length by 16-point Gauss-Legendre quadrature, measured once and kept until a setter
    /// changes the curve. Because it is kept, one curve is not to be read by several threads.
    CGFloat length() const;
    /// The same measured anew.
    CGFloat lengthNoCache() const { return _cubic.length(); }
    /// Arc length to `accuracy` points, whatever the curve's shape; says what was reached.
    MeasuredLength length(CGFloat accuracy) const { return _cubic.length(accuracy); }
    /// Arc length from the start to `time`.
    Offset offsetAt(Time time) const { return _cubic.offsetAt(time.rawValue); }
    /// The time reached by walking the arc length `offset` from `start`, backwards when negative.
    /// Without `start` from the beginning, or from the end when walking backwards. Nothing when
    /// the curve ends before.
    std::optional<Time> timeAt(Offset offset, std::optional<Time> start = std::nullopt) const;
    /// The tight box, kept until a setter changes the curve.
    CGRect bounds() const;

    /// The largest arc length that a rounded corner at one end may consume: half the curve, or the
    /// stretch, to 0.1 points, before it has turned by 6.35 degrees.
    CGFloat safeCornerRadius(bool fromBeginning) const;

    bool isStraight() const { return _cubic.isStraight(); }
    bool isLinear() const { return _cubic.isLinear(); }

    /// De Casteljau's two parts, both free of any path.
    static std::pair<PathCurve, PathCurve> subdivide(const PathCurve& curve, Time at);
    /// Cuts this curve at `time` and answers the second part; nothing happens within
    /// `curvetimeEpsilon` of the ends. The parts of a curve without handles have none.
    std::optional<PathCurve> divideAt(Time time);
    /// The stretch between two times, `from` not after `to`.
    PathCurve partialCurve(Time from, Time to) const;

    /// The time of the nearest point: 101 samples refined by a halving search; a straight curve
    /// through the projection of `point`, which may fall between its times and answer nothing.
    std::optional<Time> nearestTime(CGPoint from) const;
    std::optional<CGPoint> nearestPoint(CGPoint from) const;
    std::optional<PathCurveLocation> nearestLocation(CGPoint from) const;
    /// The nearest place of all, certain to within `accuracy` points of distance.
    PathCurveLocation nearestLocation(CGPoint from, CGFloat accuracy) const;
    /// The time at which the curve passes within `geometricEpsilon` of `point`.
    std::optional<Time> timeOf(CGPoint point) const;
    /// The times at which the curve meets the infinite line; nothing at all when the curve lies
    /// on it. A line without direction is a point.
    std::optional<Roots> intesections(const Line& with) const;
    /// The two pairs of times (on this curve, on the other) that bound a shared stretch.
    std::optional<CurveOverlap> overlap(const PathCurve& with) const;

    /// The stored points p1, h1, h2, p2.
    std::string description() const;

    /// Whether anchors and handles agree within `epsilon`; position and path do not count.
    friend bool operator==(const PathCurve& a, const PathCurve& b);
    friend bool isNearlyEqual(const PathCurve& a, const PathCurve& b) { return a == b; }

private:
    void dropCaches();

    CubicBezier _cubic;
    std::optional<std::ptrdiff_t> _index;
    std::weak_ptr<const Path> _path;
    mutable std::optional<CGFloat> _length;
    mutable std::optional<CGRect> _bounds;
};

}  // namespace quorin
