#include "quorin/platform/cgpath/PieceTracer.h"

#include <algorithm>

#include "quorin/geometry/PointArithmetic.h"

namespace quorin {

PieceTracer::PieceTracer(const GridLines& columns_, const GridLines& rows_, CGFloat slack_)
    : columns(columns_), rows(rows_), slack(slack_), ranges(rows_.cellCount()) {}

PieceTracer::Range PieceTracer::trace(const MonotonePiece& piece, const OutlineCurve& curve) {
    constexpr int depth = 32;  // a piece that long is at the end of its doubles
    const Range reached = cellsBetween(rows, piece.start.y, piece.end.y);
    std::fill(ranges.begin() + reached.first, ranges.begin() + reached.last + 1,
              Range{columns.cellCount(), 0});
    cover(curve, {piece.startTime, piece.start}, {piece.endTime, piece.end}, depth);
    return reached;
}

PieceTracer::Range PieceTracer::cellsBetween(const GridLines& lines, CGFloat a, CGFloat b) const {
    return {lines.cellOf(std::min(a, b) - slack), lines.cellOf(std::max(a, b) + slack)};
}

// The box of a stretch is the box of its ends. One that lies in a single row or column, or about a
// corner, names no cell too many that is worth halving for.
void PieceTracer::cover(const OutlineCurve& curve, const Place& from, const Place& to, int depth) {
    const Range across = cellsBetween(columns, from.point.x, to.point.x);
    const Range down = cellsBetween(rows, from.point.y, to.point.y);
    const std::uint32_t width = across.last - across.first;
    const std::uint32_t height = down.last - down.first;
    if (width == 0 || height == 0 || (width == 1 && height == 1) || depth == 0) {
        for (std::uint32_t row = down.first; row <= down.last; ++row) {
            ranges[row].first = std::min(ranges[row].first, across.first);
            ranges[row].last = std::max(ranges[row].last, across.last);
        }
        return;
    }

    const CGFloat time = from.time + (to.time - from.time) / 2;
    const CGPoint place = curve.start + curve.wayTo(time);
    const auto [left, right] = std::minmax(from.point.x, to.point.x);
    const auto [bottom, top] = std::minmax(from.point.y, to.point.y);
    const Place middle{time, {std::clamp(place.x, left, right), std::clamp(place.y, bottom, top)}};
    cover(curve, from, middle, depth - 1);
    cover(curve, middle, to, depth - 1);
}

}  // namespace quorin
