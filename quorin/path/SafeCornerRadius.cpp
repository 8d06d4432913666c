#include <cmath>
#include <optional>

#include "quorin/linear/Vector2.h"
#include "quorin/path/Curve.h"

namespace quorin {
namespace {

constexpr CGFloat straightnessThreshold = 0.01;        // radians between the end and the middle
constexpr CGFloat turningLimit = 0.11080752372115311;  // radians
constexpr CGFloat searchResolution = 0.1;              // points

std::optional<Vector2> directionAtLength(const PathCurve& curve, CGFloat length) {
    const auto time = curve.timeAt(length);
    const auto tangent = time ? curve.tangentAt(*time) : std::nullopt;
    return tangent ? std::optional<Vector2>(*tangent) : std::nullopt;
}

}  // namespace

CGFloat PathCurve::safeCornerRadius(bool fromBeginning) const {
    const CGFloat half = length() * 0.5;
    // A search for a place on a curve without a length would never end.
    if (isStraight() || !std::isfinite(half))
        return half;

    const auto tangent = tangentAt(fromBeginning ? Time::start : Time::end);
    const auto middle = directionAtLength(*this, half);
    if (!tangent || !middle)
        return half;
    const Vector2 end(*tangent);
    if (std::abs(end.angle(*middle)) < straightnessThreshold)
        return half;

    const CGFloat outwards = fromBeginning ? -1 : 1;
    CGFloat step = outwards * half * 0.5;
    CGFloat place = half + step;
    while (std::abs(step) > searchResolution) {
        const auto direction = directionAtLength(*this, place);
        if (!direction)
            return half;
        const bool hasTurned = std::abs(direction->angle(end)) > turningLimit;
        step = (hasTurned ? outwards : -outwards) * std::abs(step) * 0.5;
        place += step;
    }
    return fromBeginning ? place : length() - place;
}

}  // namespace quorin
