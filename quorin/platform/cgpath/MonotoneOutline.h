#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "quorin/platform/cgpath/CGPath.h"
#include "quorin/platform/cgpath/MonotonePiece.h"

namespace quorin {

/// All pieces of a path's outline, in order, with the curves they are cut from. The outline is
/// made of rings: open subpaths are closed.
struct MonotoneOutline {
    struct Piece : MonotonePiece {
        std::uint32_t curve;
    };

    std::vector<OutlineCurve> curves;
    std::vector<Piece> pieces;

    MonotoneOutline(std::span<const CGPathElementType> types, std::span<const CGPoint> points);

    std::size_t byteCount() const {
        return curves.capacity() * sizeof(OutlineCurve) + pieces.capacity() * sizeof(Piece);
    }
};

}  // namespace quorin
