#pragma once

#include <cstdint>
#include <vector>

#include "quorin/platform/cgpath/GridLines.h"
#include "quorin/platform/cgpath/MonotonePiece.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// Finds the cells of a grid that a piece comes near, row by row.
class PieceTracer {
public:
    struct Range {
        std::uint32_t first, last;
    };

    /// Near is whatever is within `slack` in both coordinates.
    PieceTracer(const GridLines& columns, const GridLines& rows, CGFloat slack);

    /// The rows that the piece comes near. Until the next call, `columnsIn` tells the rest.
    Range trace(const MonotonePiece& piece, const OutlineCurve& curve);
    /// The columns of the cells that the piece comes near in a row.
    Range columnsIn(std::uint32_t row) const { return ranges[row]; }

private:
    struct Place {
        CGFloat time;
        CGPoint point;
    };

    Range cellsBetween(const GridLines& lines, CGFloat a, CGFloat b) const;
    void cover(const OutlineCurve& curve, const Place& from, const Place& to, int depth);

    const GridLines& columns;
    const GridLines& rows;
    CGFloat slack;
    std::vector<Range> ranges;
};

}  // namespace quorin
