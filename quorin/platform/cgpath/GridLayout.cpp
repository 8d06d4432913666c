#include "quorin/platform/cgpath/GridLayout.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

namespace quorin {

namespace {

using Piece = MonotoneOutline::Piece;

/// Every so many pieces of an outline, about `count` in all.
class Sample {
public:
    Sample(std::span<const Piece> pieces_, std::size_t count)
        : pieces(pieces_), stride(std::max<std::size_t>(1, pieces_.size() / count)) {}

    template <typename Body>
    void forEach(Body&& body) const {
        for (std::size_t index = 0; index < pieces.size(); index += stride)
            body(pieces[index]);
    }
    /// How many pieces each of the sample stands for.
    CGFloat weight() const { return static_cast<CGFloat>(stride); }

private:
    std::span<const Piece> pieces;
    std::size_t stride;
};

/// Where pieces begin and end along one axis, in ascending order.
std::vector<CGFloat> sortedEnds(const Sample& sample, CGFloat CGPoint::*axis) {
    std::vector<CGFloat> ends;
    sample.forEach([&](const Piece& piece) {
        ends.push_back(piece.start.*axis);
        ends.push_back(piece.end.*axis);
    });
    std::sort(ends.begin(), ends.end());
    return ends;
}

/// How many separators all pieces together cross, as a share of those there are.
CGFloat crossings(const Sample& sample, CGFloat CGPoint::*axis) {
    const std::vector<CGFloat> ends = sortedEnds(sample, axis);
    const auto rank = [&](CGFloat value) {
        return std::lower_bound(ends.begin(), ends.end(), value) - ends.begin();
    };
    CGFloat sum = 0;
    sample.forEach([&](const Piece& piece) {
        sum += static_cast<CGFloat>(std::abs(rank(piece.end.*axis) - rank(piece.start.*axis)));
    });
    return sum * sample.weight() / static_cast<CGFloat>(ends.size());
}

/// Separators that leave about as many ends in each cell.
GridLines quantiles(std::span<const Piece> pieces, CGFloat CGPoint::*axis, CGFloat cells,
                    CGFloat gap) {
    const auto count = static_cast<std::size_t>(cells);
    const std::vector<CGFloat> ends = sortedEnds(Sample(pieces, 4 * count), axis);
    std::vector<CGFloat> separators;
    CGFloat last = ends.front();
    for (std::size_t cell = 1; cell < count; ++cell) {
        const CGFloat value = ends[cell * ends.size() / count];
        if (value - last > gap)
            separators.push_back(last = value);
    }
    return GridLines(std::move(separators));
}

}  // namespace

// With c columns and r rows, n pieces that cross the share h of the columns and v of the rows have
// about n + h·c + v·r cells near them. For given c·r that is least when h·c = v·r, and there it is
// n + 2·sqrt(h·v·c·r).
GridLayout GridLayout::of(const MonotoneOutline& outline, CGFloat gap) {
    constexpr std::size_t sampleSize = 512;
    constexpr CGFloat cellsPerPiece = 2;
    constexpr CGFloat bytesPerCell = 8, bytesPerEntry = 4;
    constexpr CGFloat loss = 1.35;  // cells are counted near when the piece passes by a corner

    const Sample sample(outline.pieces, sampleSize);
    const CGFloat horizontal = std::max(crossings(sample, &CGPoint::x), 1.0);
    const CGFloat vertical = std::max(crossings(sample, &CGPoint::y), 1.0);

    const auto pieces = static_cast<CGFloat>(outline.pieces.size());
    const CGFloat spare = bytesPerPiece * pieces - static_cast<CGFloat>(outline.byteCount()) -
                          cellsPerPiece * bytesPerCell * pieces;
    const CGFloat entries = std::max(spare / bytesPerEntry / loss - pieces, 0.0);
    const CGFloat cells =
        std::min(cellsPerPiece * pieces, entries * entries / (4 * horizontal * vertical));

    const CGFloat across = std::clamp(std::sqrt(cells * vertical / horizontal), 1.0, pieces);
    GridLines columns = quantiles(outline.pieces, &CGPoint::x, across, gap);
    const CGFloat down = std::clamp(cells / columns.cellCount(), 1.0, pieces);
    return {std::move(columns), quantiles(outline.pieces, &CGPoint::y, down, gap)};
}

}  // namespace quorin
