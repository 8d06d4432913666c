#include "quorin/platform/cgpath/ContainmentIndex.h"

#include <algorithm>
#include <cmath>

#include "quorin/geometry/CubicBounds.h"
#include "quorin/platform/cgpath/PieceTracer.h"

namespace quorin {

namespace {

using Piece = MonotoneOutline::Piece;

constexpr CGFloat reach = scalar::windingEpsilon;

/// How near a piece has to be for more to matter than the side it is on: the reach of the outline,
/// and more than rounding adds to it.
CGFloat slackOf(const MonotoneOutline& outline) {
    CGFloat largest = 0;
    for (const OutlineCurve& curve : outline.curves)
        for (const CGPoint point : {curve.start, curve.a1, curve.a2, curve.a3})
            largest = std::max({largest, std::abs(point.x), std::abs(point.y)});
    return 2 * reach + largest * 0x1p-44;
}

}  // namespace

ContainmentIndex::ContainmentIndex(std::span<const CGPathElementType> types,
                                   std::span<const CGPoint> points)
    : outline(types, points), slack(slackOf(outline)) {
    for (const Piece& piece : outline.pieces)
        for (const CGPoint end : {piece.start, piece.end})
            extendByPoint(inReach, end);
    inReach.min -= reach;
    inReach.max += reach;
    if (outline.pieces.empty())
        return;

    grid = GridLayout::of(outline, 4 * slack);
    const std::vector<Span> traced = spans();
    addCells(traced);
    addEntries(traced);
}

std::vector<ContainmentIndex::Span> ContainmentIndex::spans() const {
    std::vector<Span> traced;
    traced.reserve(2 * outline.pieces.size());
    PieceTracer tracer(grid.columns, grid.rows, slack);
    for (std::uint32_t index = 0; index < outline.pieces.size(); ++index) {
        const Piece& piece = outline.pieces[index];
        const auto reached = tracer.trace(piece, outline.curves[piece.curve]);
        for (std::uint32_t row = reached.first; row <= reached.last; ++row) {
            const auto columns = tracer.columnsIn(row);
            const int step = reached.first == reached.last ? 0 : stepAbove(row, piece);
            traced.push_back({index, row, columns.first, columns.last, step});
        }
    }
    return traced;
}

int ContainmentIndex::stepAbove(std::uint32_t row, const MonotonePiece& piece) const {
    return static_cast<int>(grid.rows.cellOf(piece.end.y) > row) -
           static_cast<int>(grid.rows.cellOf(piece.start.y) > row);
}

// Beyond its span a piece lies wholly to the left and adds the step between its ends. Here goes in
// what ends above the row do for it; an end in the row itself is a matter for the entries.
void ContainmentIndex::addCells(const std::vector<Span>& spans) {
    cells.resize(cellAt(grid.rows.cellCount(), 0) + 1);
    for (const Span& span : spans) {
        for (std::uint32_t column = span.first; column <= span.last; ++column)
            ++cells[cellAt(span.row, column) + 1].firstEntry;
        if (span.last + 1 < grid.columns.cellCount())
            cells[cellAt(span.row, span.last + 1)].base += span.step;
    }
    for (std::size_t cell = 1; cell < cells.size(); ++cell) {
        cells[cell].firstEntry += cells[cell - 1].firstEntry;
        if (cell % grid.columns.cellCount() != 0)
            cells[cell].base += cells[cell - 1].base;
    }
}

void ContainmentIndex::addEntries(const std::vector<Span>& spans) {
    entries.resize(cells.back().firstEntry);
    std::vector<std::uint32_t> next(cells.size());
    std::transform(cells.begin(), cells.end(), next.begin(),
                   [](const Cell& cell) { return cell.firstEntry; });
    const auto columnInRow = [this](CGPoint end, std::uint32_t row) {
        return grid.rows.cellOf(end.y) == row ? grid.columns.cellOf(end.x)
                                              : grid.columns.cellCount();
    };
    for (const Span& span : spans) {
        const Piece& piece = outline.pieces[span.piece];
        // No end in the row lies to the left of the first cell.
        const bool isSingle = span.first == span.last;
        const std::uint32_t start = isSingle ? span.last : columnInRow(piece.start, span.row);
        const std::uint32_t end = isSingle ? span.last : columnInRow(piece.end, span.row);
        for (std::uint32_t column = span.first; column <= span.last; ++column)
            entries[next[cellAt(span.row, column)]++] = {start < column, end < column,
                                                         span.piece & 0x3fffffff};
    }
}

Winding ContainmentIndex::windingAround(CGPoint point) const {
    if (!inReach.holds(lanesOf(point), lanesOf(point)))
        return {};

    const Cell* const cell =
        &cells[cellAt(grid.rows.cellOf(point.y), grid.columns.cellOf(point.x))];
    Winding sum{cell->base, false};
    for (const Entry& entry :
         std::span(entries).subspan(cell[0].firstEntry, cell[1].firstEntry - cell[0].firstEntry)) {
        const Piece& piece = outline.pieces[entry.piece];
        const Winding around = piece.windingAround(point, outline.curves[piece.curve]);
        if (around.isOnOutline)
            return around;
        sum.number += around.number + (entry.startsLeft & (piece.start.y > point.y)) -
                      (entry.endsLeft & (piece.end.y > point.y));
    }
    return sum;
}

std::size_t ContainmentIndex::byteCount() const {
    return outline.byteCount() + grid.columns.byteCount() + grid.rows.byteCount() +
           cells.capacity() * sizeof(Cell) + entries.capacity() * sizeof(Entry);
}

}  // namespace quorin
