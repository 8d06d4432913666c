#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "quorin/geometry/CubicBounds.h"
#include "quorin/platform/cgpath/CGPath.h"
#include "quorin/platform/cgpath/GridLayout.h"
#include "quorin/platform/cgpath/MonotoneOutline.h"
#include "quorin/platform/cgpath/MonotonePiece.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// Answers for the winding number around many points of one outline, without allocating.
///
/// The plane is cut into a grid. A cell lists the pieces that come near it and keeps what the
/// others add to the winding numbers of its points. At the height of a point of the cell any of
/// those lies wholly to the left or wholly to the right, and what the left ones add is a matter of
/// where their ends are; since the outline is made of rings, inner ends cancel each other out.
///
/// A question asks the pieces of one cell the very question that a walk over the whole outline
/// asks all of them, so both give the same answer.
class ContainmentIndex {
public:
    /// Coordinates are to be ordinary ones.
    ContainmentIndex(std::span<const CGPathElementType> types, std::span<const CGPoint> points);

    /// The same as `windingByWalk`.
    Winding windingAround(CGPoint point) const;

    std::size_t pieceCount() const { return outline.pieces.size(); }
    std::size_t byteCount() const;

private:
    struct Cell {
        std::uint32_t firstEntry = 0;
        /// What pieces wholly to the left add by ends above the row.
        std::int32_t base = 0;
    };
    /// A piece near a cell. Where an end of it lies in the row of the cell but to the left of it,
    /// the pieces that go on from there count from that height on, and are counted with this one.
    struct Entry {
        std::uint32_t startsLeft : 1;
        std::uint32_t endsLeft : 1;
        std::uint32_t piece : 30;
    };
    /// The cells of one row that a piece comes near, and the step between its ends as far as they
    /// lie above the row.
    struct Span {
        std::uint32_t piece, row, first, last;
        std::int32_t step;
    };

    std::vector<Span> spans() const;
    int stepAbove(std::uint32_t row, const MonotonePiece& piece) const;
    void addCells(const std::vector<Span>& spans);
    void addEntries(const std::vector<Span>& spans);
    std::size_t cellAt(std::uint32_t row, std::uint32_t column) const {
        return std::size_t{row} * grid.columns.cellCount() + column;
    }

    MonotoneOutline outline;
    Bounds inReach;  // points beyond are outside
    CGFloat slack;
    GridLayout grid;
    std::vector<Cell> cells;  // row by row, and one more to end the last one's entries
    std::vector<Entry> entries;
};

}  // namespace quorin
