#include "quorin/path/TangentCircle.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/Scalar.h"
#include "quorin/linear/Vector2.h"
#include "quorin/path/PowerBasis.h"

namespace quorin {
namespace {

constexpr CGFloat smallestTurn = 1e-6;  // radians that a corner differs from a line, or a spike

CGFloat angleBetween(CGPoint a, CGPoint b) { return std::atan2(cross(a, b), dot(a, b)); }

CGFloat largestCoordinate(const CubicBezier& curve) {
    CGFloat largest = 0;
    for (const CGPoint p : {curve.p1, curve.c1(), curve.c2(), curve.p2})
        largest = std::max({largest, std::abs(p.x), std::abs(p.y)});
    return largest;
}

/// A place at a distance from a curve, where the centre of a touching circle may lie, and how fast
/// it moves along with the time.
struct OffsetPlace {
    CGPoint place, velocity;
};

/// `offset` is counted to the left of the curve's direction.
std::optional<OffsetPlace> offsetPlace(const PowerBasis& curve, CGFloat t, CGFloat offset) {
    const CGPoint d = curve.derivativeAt(t);
    const CGFloat speed = std::sqrt(dot(d, d));
    if (!(speed > 0))
        return std::nullopt;
    const CGFloat curvature = cross(d, curve.secondDerivativeAt(t)) / (speed * speed * speed);
    return OffsetPlace{curve.pointAt(t) + CGPoint{-d.y, d.x} * (offset / speed),
                       d * (1 - offset * curvature)};
}

class CircleSearch {
public:
    explicit CircleSearch(const CornerSides& corner)
        : sides(corner),
          before(PowerBasis::forEvaluation(corner.before)),
          after(PowerBasis::forEvaluation(corner.after)),
          size(std::max(largestCoordinate(corner.before), largestCoordinate(corner.after))) {
        const auto in = corner.before.tangentAt(1), out = corner.after.tangentAt(0);
        if (in && out && *in != CGPoint::zero && *out != CGPoint::zero)
            turn = angleBetween(*in, *out);
    }

    std::optional<TangentCircle> largest(CGFloat radius) const {
        const bool isCorner =
            std::abs(turn) > smallestTurn && std::abs(turn) < std::numbers::pi - smallestTurn;
        // No circle that touches a side in its box is larger by orders of magnitude.
        const CGFloat wanted = std::min(radius, 1e6 * size);
        if (!isCorner || !std::isfinite(wanted))
            return std::nullopt;

        TangentCircle found;
        // A step that fails is too long for Newton's method, or leads to a circle without room.
        // Beside flat corners rounding lets some fail and some not, up to here at the latest.
        constexpr int maximumAttempts = 1000;
        int attempts = 0, successes = 0;
        for (CGFloat step = wanted;
             step > smallestStep(found, wanted) && attempts < maximumAttempts; ++attempts) {
            const CGFloat next = std::min(found.radius + step, wanted);
            const auto circle = grown(found, next);
            successes = circle ? successes + 1 : 0;
            if (circle)
                found = *circle;
            if (found.radius == wanted)
                break;
            if (!circle)
                step /= 2;
            else if (successes > 1)
                step *= 2;
        }
        return found.radius > 0 ? std::optional(found) : std::nullopt;
    }

private:
    static CGFloat smallestStep(const TangentCircle& found, CGFloat wanted) {
        return found.radius > 0 ? 0x1p-46 * found.radius : 0x1p-60 * wanted;
    }

    CGFloat inwards(CGFloat radius) const { return turn > 0 ? radius : -radius; }

    std::optional<TangentCircle> grown(const TangentCircle& from, CGFloat radius) const {
        auto circle = from.radius == 0 ? firstGuess(radius) : nextGuess(from, radius);
        if (!circle || !settle(*circle) || !fits(*circle))
            return std::nullopt;
        return circle;
    }

    /// As if both sides were straight. Times say little here: a side without a handle at the
    /// corner starts with no speed.
    std::optional<TangentCircle> firstGuess(CGFloat radius) const {
        const CGFloat length = radius * std::tan(std::abs(turn) / 2);
        const auto timeBefore = sides.before.timeAt(-length, std::nullopt);
        const auto timeAfter = sides.after.timeAt(length, std::nullopt);
        if (!timeBefore || !timeAfter)
            return std::nullopt;
        return TangentCircle{radius, *timeBefore, *timeAfter};
    }

    std::optional<TangentCircle> nextGuess(const TangentCircle& from, CGFloat radius) const {
        return moved({radius, from.timeBefore, from.timeAfter});
    }

    /// How far apart the centres are that the two sides want.
    std::optional<CGPoint> gap(const TangentCircle& circle) const {
        const auto a = offsetPlace(before, circle.timeBefore, inwards(circle.radius));
        const auto b = offsetPlace(after, circle.timeAfter, inwards(circle.radius));
        return a && b ? std::optional(a->place - b->place) : std::nullopt;
    }

    /// One step of Newton's method, kept within the sides.
    std::optional<TangentCircle> moved(const TangentCircle& circle) const {
        const auto a = offsetPlace(before, circle.timeBefore, inwards(circle.radius));
        const auto b = offsetPlace(after, circle.timeAfter, inwards(circle.radius));
        if (!a || !b)
            return std::nullopt;
        const CGPoint apart = a->place - b->place;
        const CGFloat area = cross(a->velocity, b->velocity);
        const CGFloat stepBefore = cross(b->velocity, apart) / area;
        const CGFloat stepAfter = cross(a->velocity, apart) / area;
        if (!std::isfinite(stepBefore) || !std::isfinite(stepAfter))
            return std::nullopt;
        return TangentCircle{circle.radius, std::clamp(circle.timeBefore + stepBefore, 0.0, 1.0),
                             std::clamp(circle.timeAfter + stepAfter, 0.0, 1.0)};
    }

    bool settle(TangentCircle& circle) const {
        constexpr int maximumSteps = 32;
        const CGFloat rounding = 1e-14 * (size + circle.radius);
        CGFloat distance = scalar::greatestFinite;
        for (int i = 0; i < maximumSteps; ++i) {
            const auto apart = gap(circle);
            if (!apart)
                return false;
            const CGFloat last = std::exchange(distance, std::hypot(apart->x, apart->y));
            // Rounding ends the approach; a step more or less makes no difference then.
            if (distance == 0 || (distance < rounding && distance >= last / 2))
                return true;
            const auto next = moved(circle);
            if (!next)
                return distance < rounding;
            circle = *next;
        }
        return distance < rounding;
    }

    bool fits(const TangentCircle& circle) const {
        if (circle.timeBefore < sides.firstTime || circle.timeAfter > sides.lastTime)
            return false;
        const CGFloat sweep = angleBetween(before.derivativeAt(circle.timeBefore),
                                           after.derivativeAt(circle.timeAfter));
        if (!(inwards(sweep) > 0))
            return false;
        const CGPoint centre =
            offsetPlace(before, circle.timeBefore, inwards(circle.radius))->place;
        return isClear(sides.before.partialCurve(0, circle.timeBefore), centre, circle.radius) &&
               isClear(sides.after.partialCurve(circle.timeAfter, 1), centre, circle.radius);
    }

    bool isClear(const CubicBezier& side, CGPoint centre, CGFloat radius) const {
        if (side.isStraight())
            return true;
        const CGFloat accuracy = 1e-9 * radius + 1e-12 * size;
        return side.nearest(centre, accuracy).distance > radius - 2 * accuracy;
    }

    CornerSides sides;
    PowerBasis before, after;
    CGFloat size;      // the largest coordinate
    CGFloat turn = 0;  // from the one side to the other, positive to the left
};

}  // namespace

std::optional<TangentCircle> largestTangentCircle(const CornerSides& sides, CGFloat radius) {
    return CircleSearch(sides).largest(radius);
}

}  // namespace quorin
