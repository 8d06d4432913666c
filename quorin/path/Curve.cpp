#include "quorin/path/Curve.h"

#include <utility>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/path/CurveLocation.h"
#include "quorin/platform/values/TextForm.h"

namespace quorin {

PathCurve PathCurve::withControlPoints(CGPoint p1, CGPoint cp1, CGPoint cp2, CGPoint p2) {
    return {p1, cp1 - p1, cp2 - p2, p2};
}

PathCurve::PathCurve(const CubicBezier& cubic, std::weak_ptr<const Path> path, std::ptrdiff_t index)
    : _cubic(cubic), _index(index), _path(std::move(path)) {}

void PathCurve::dropCaches() {
    _length.reset();
    _bounds.reset();
}

void PathCurve::setP1(CGPoint point) {
    _cubic.p1 = point;
    dropCaches();
}

void PathCurve::setH1(CGPoint handle) {
    _cubic.h1 = handle;
    dropCaches();
}

void PathCurve::setH2(CGPoint handle) {
    _cubic.h2 = handle;
    dropCaches();
}

void PathCurve::setP2(CGPoint point) {
    _cubic.p2 = point;
    dropCaches();
}

void PathCurve::setC1(CGPoint controlPoint) { setH1(controlPoint - p1()); }

void PathCurve::setC2(CGPoint controlPoint) { setH2(controlPoint - p1()); }

std::array<CGPoint, 4> PathCurve::points() const { return {p1(), c1(), c2(), p2()}; }

Vector2 PathCurve::vector() const { return Vector2(p1() - p2()); }

CGFloat PathCurve::length() const {
    if (!_length)
        _length = _cubic.length();
    return *_length;
}

CGRect PathCurve::bounds() const {
    if (!_bounds)
        _bounds = _cubic.bounds();
    return *_bounds;
}

std::optional<PathCurve::Time> PathCurve::timeAt(Offset offset, std::optional<Time> start) const {
    const auto begin = start ? std::optional(start->rawValue) : std::nullopt;
    const auto t = _cubic.timeAt(offset.rawValue, begin);
    return t ? std::optional<Time>(*t) : std::nullopt;
}

std::pair<PathCurve, PathCurve> PathCurve::subdivide(const PathCurve& curve, Time at) {
    const auto [first, second] = curve._cubic.subdivide(at.rawValue);
    return {PathCurve(first), PathCurve(second)};
}

std::optional<PathCurve> PathCurve::divideAt(Time time) {
    const CGFloat t = time.rawValue;
    if (!(t >= scalar::curvetimeEpsilon && t <= 1 - scalar::curvetimeEpsilon))
        return std::nullopt;

    const bool hadHandles = h1() != CGPoint::zero || h2() != CGPoint::zero;
    auto [first, second] = _cubic.subdivide(t);
    if (!hadHandles)
        // Rounding would leave handles an ulp long on a line that was drawn without any.
        first.h1 = first.h2 = second.h1 = second.h2 = CGPoint::zero;
    _cubic = first;
    dropCaches();
    return PathCurve(second);
}

PathCurve PathCurve::partialCurve(Time from, Time to) const {
    return PathCurve(_cubic.partialCurve(from.rawValue, to.rawValue));
}

std::optional<PathCurve::Time> PathCurve::nearestTime(CGPoint from) const {
    const auto t = _cubic.nearestTime(from);
    return t ? std::optional<Time>(*t) : std::nullopt;
}

std::optional<CGPoint> PathCurve::nearestPoint(CGPoint from) const {
    const auto t = _cubic.nearestTime(from);
    return t ? _cubic.pointAt(*t) : std::nullopt;
}

std::optional<PathCurveLocation> PathCurve::nearestLocation(CGPoint from) const {
    const auto t = _cubic.nearestTime(from);
    if (!t)
        return std::nullopt;
    const auto point = _cubic.pointAt(*t);
    if (!point)
        return std::nullopt;
    return PathCurveLocation(*this, *t, point, false, distance(from, *point));
}

PathCurveLocation PathCurve::nearestLocation(CGPoint from, CGFloat accuracy) const {
    const auto [time, distance] = _cubic.nearest(from, accuracy);
    return PathCurveLocation(*this, time, _cubic.pointAt(time), false, distance);
}

std::optional<PathCurve::Time> PathCurve::timeOf(CGPoint point) const {
    const auto t = _cubic.timeOf(point);
    return t ? std::optional<Time>(*t) : std::nullopt;
}

std::optional<Roots> PathCurve::intesections(const Line& with) const {
    return _cubic.intesections(with);
}

std::optional<CurveOverlap> PathCurve::overlap(const PathCurve& with) const {
    return _cubic.overlap(with._cubic);
}

std::string PathCurve::description() const {
    return textForm(p1()) + " " + textForm(h1()) + " " + textForm(h2()) + " " + textForm(p2());
}

bool operator==(const PathCurve& a, const PathCurve& b) {
    return isNearlyEqual(a.p1(), b.p1()) && isNearlyEqual(a.h1(), b.h1()) &&
           isNearlyEqual(a.h2(), b.h2()) && isNearlyEqual(a.p2(), b.p2());
}

}  // namespace quorin
