#include <algorithm>
#include <cmath>

#include "quorin/path/CubicBezier.h"
#include "quorin/path/CurveNearestSearch.h"

namespace quorin {

namespace {

bool isWithinGeometricEpsilon(CGPoint a, CGPoint b) {
    return std::abs(a.x - b.x) < scalar::geometricEpsilon &&
           std::abs(a.y - b.y) < scalar::geometricEpsilon;
}

/// The times in [0, 1] at which one coordinate of a cubic, p1 c1 c2 p2, has the given value.
std::optional<Roots> timesAt(CGFloat value, CGFloat p1, CGFloat c1, CGFloat c2, CGFloat p2) {
    const CGFloat c = 3 * (c1 - p1);
    const CGFloat b = 3 * (c2 - c1) - c;
    const CGFloat a = p2 - p1 - c - b;
    return scalar::solveCubic(a, b, c, p1 - value, 0, 1);
}

bool isClearOfBox(const CubicBezier& curve, CGPoint point) {
    // Wider than any tolerance of the search, so that it only skips what would find nothing.
    constexpr CGFloat margin = 1e-6;
    const auto [lowX, highX] = std::minmax({curve.p1.x, curve.c1().x, curve.c2().x, curve.p2.x});
    const auto [lowY, highY] = std::minmax({curve.p1.y, curve.c1().y, curve.c2().y, curve.p2.y});
    const CGFloat slack = margin + 1e-12 * std::max({std::abs(lowX), std::abs(highX),
                                                     std::abs(lowY), std::abs(highY)});
    return point.x < lowX - slack || point.x > highX + slack || point.y < lowY - slack ||
           point.y > highY + slack;
}

std::optional<CGFloat> timeOnChord(const CubicBezier& curve, CGPoint point) {
    const CGPoint v = curve.p2 - curve.p1;
    const CGFloat vSquared = dot(v, v);
    if (vSquared == 0)
        return 0;
    const CGFloat u = dot(point - curve.p1, v) / vSquared;
    if (std::isnan(u) || u < 1e-12)
        return 0;
    if (u > 0.999999999999)
        return 1;
    // Handles make the time of a straight curve uneven: the place is known, its time is not.
    return curve.timeOf(curve.p1 + u * v);
}

}  // namespace

std::optional<CGFloat> CubicBezier::nearestTime(CGPoint from) const {
    if (isStraight())
        return timeOnChord(*this, from);
    return nearestSampledTime(PowerBasis::forEvaluation(*this), from);
}

std::optional<CGFloat> CubicBezier::timeOf(CGPoint point) const {
    if (distance(point, p1) < scalar::epsilon)
        return 0;
    if (distance(point, p2) < scalar::epsilon)
        return 1;
    if (isClearOfBox(*this, point))
        return std::nullopt;

    const PowerBasis basis = PowerBasis::forEvaluation(*this);
    const auto firstOnCurve = [&](const std::optional<Roots>& times) -> std::optional<CGFloat> {
        if (!times)
            return std::nullopt;
        for (const CGFloat t : *times)
            if (distance(basis.pointAt(t), point) < scalar::geometricEpsilon)
                return t;
        return std::nullopt;
    };
    if (const auto t = firstOnCurve(timesAt(point.x, p1.x, c1().x, c2().x, p2.x)))
        return t;
    return firstOnCurve(timesAt(point.y, p1.y, c1().y, c2().y, p2.y));
}

std::optional<Roots> CubicBezier::intesections(const Line& line) const {
    if (line.v == CGPoint::zero) {
        const auto t = timeOf(line.p);
        if (!t)
            return std::nullopt;
        Roots only;
        only.append(*t);
        return only;
    }

    const CGFloat angle = std::atan2(-line.v.y, line.v.x);
    const CGFloat sine = std::sin(angle);
    const CGFloat cosine = std::cos(angle);
    const auto height = [&](CGPoint point) {
        const CGPoint d = point - line.p;
        return d.x * sine + d.y * cosine;
    };
    return timesAt(0, height(p1), height(c1()), height(c2()), height(p2));
}

namespace {

using TimePair = std::pair<PathCurveTime, PathCurveTime>;

/// Up to two pairs of times at which an end of one curve lies on the other.
class EndPairs {
public:
    void add(CGFloat own, std::optional<CGFloat> other) {
        if (other)
            addPair({own, *other});
    }
    void addSwapped(std::optional<CGFloat> own, CGFloat other) {
        if (own)
            addPair({*own, other});
    }
    bool isComplete() const { return count == 2; }
    const CurveOverlap& pairs() const { return found; }

private:
    void addPair(const TimePair& pair) {
        const auto isNear = [](PathCurveTime a, PathCurveTime b) {
            return std::abs(a.rawValue - b.rawValue) < scalar::curvetimeEpsilon;
        };
        if (count == 1 &&
            (isNear(pair.first, found[0].first) || isNear(pair.second, found[0].second)))
            return;
        if (!isComplete())
            found[count++] = pair;
    }

    CurveOverlap found;
    std::size_t count = 0;
};

CubicBezier stretchBetween(const CubicBezier& curve, CGFloat a, CGFloat b) {
    return curve.partialCurve(std::min(a, b), std::max(a, b));
}

bool haveSameControls(const CubicBezier& own, const CubicBezier& other, const CurveOverlap& pairs) {
    const auto& [start, end] = pairs;
    const CubicBezier ownStretch = stretchBetween(own, start.first.rawValue, end.first.rawValue);
    CubicBezier otherStretch = stretchBetween(other, start.second.rawValue, end.second.rawValue);
    const bool runsBackwards = (start.first < end.first) != (start.second < end.second);
    if (runsBackwards)
        otherStretch = otherStretch.reversed();
    return isWithinGeometricEpsilon(ownStretch.c1(), otherStretch.c1()) &&
           isWithinGeometricEpsilon(ownStretch.c2(), otherStretch.c2());
}

}  // namespace

std::optional<CurveOverlap> CubicBezier::overlap(const CubicBezier& other) const {
    const bool areStraight = isStraight();
    if (areStraight != other.isStraight())
        return std::nullopt;
    if (areStraight) {
        const Line chord(p1, p2);
        for (const CGPoint& point : {other.p1, other.c1(), other.c2(), other.p2})
            if (!(chord.distance(point) < scalar::geometricEpsilon))
                return std::nullopt;
    }

    EndPairs ends;
    ends.add(0, other.timeOf(p1));
    ends.add(1, other.timeOf(p2));
    if (!ends.isComplete())
        ends.addSwapped(timeOf(other.p1), 0);
    if (!ends.isComplete())
        ends.addSwapped(timeOf(other.p2), 1);

    if (!ends.isComplete())
        return std::nullopt;
    if (!areStraight && !haveSameControls(*this, other, ends.pairs()))
        return std::nullopt;
    return ends.pairs();
}

}  // namespace quorin
