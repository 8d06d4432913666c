#pragma once

#include <array>
#include <cstddef>

#include "quorin/geometry/Extrema.h"
#include "quorin/geometry/PointArithmetic.h"
#include "quorin/geometry/PointLanes.h"
#include "quorin/platform/cgpath/MonotonePiece.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// The upright box of a curve's points, which holds the curve.
struct ControlExtent {
    PointLanes min, max;

    template <typename... Others>
    static ControlExtent of(CGPoint p1, Others... others) {
        ControlExtent extent{lanesOf(p1), lanesOf(p1)};
        ((extent.min = lesser(lanesOf(others), extent.min)), ...);
        ((extent.max = greater(lanesOf(others), extent.max)), ...);
        return extent;
    }

    CGPoint clamped(CGPoint point) const {
        return pointOf(greater(min, lesser(max, lanesOf(point))));
    }
};

/// Calls `body` with the stretches of a curve between its turns in x and in y, in order, the last
/// up to `end`. Neighbours share an end, bit for bit, and no end leaves the extent.
template <typename Body>
void forEachMonotonePiece(const OutlineCurve& curve, const TurnTimes& turns,
                          const ControlExtent& extent, CGPoint end, Body&& body) {
    std::array<CGFloat, 4> times;
    std::size_t count = 0;
    for (const CGFloat turn : {turns.first[0], turns.first[1], turns.second[0], turns.second[1]}) {
        if (!TurnTimes::isTurn(turn))
            continue;
        std::size_t slot = count++;
        for (; slot > 0 && times[slot - 1] > turn; --slot)
            times[slot] = times[slot - 1];
        times[slot] = turn;
    }

    CGFloat time = 0;
    CGPoint place = curve.start;
    for (std::size_t index = 0; index < count; ++index) {
        const CGPoint turn = extent.clamped(curve.start + curve.wayTo(times[index]));
        body(MonotonePiece{time, times[index], place, turn});
        time = times[index];
        place = turn;
    }
    body(MonotonePiece{time, 1, place, end});
}

}  // namespace quorin
