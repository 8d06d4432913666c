#pragma once

#include "quorin/platform/cgpath/GridLines.h"
#include "quorin/platform/cgpath/MonotoneOutline.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

/// Where to cut the plane so that a cell has as few pieces near it as memory allows.
///
/// The lines stand close where pieces begin and end close to each other, so a small detail in a
/// wide drawing has its own cells. A drawing that runs mostly up and down is cut into narrow
/// columns, one that runs sideways into flat rows.
struct GridLayout {
    GridLines columns, rows;

    /// What an index may keep for each piece, the piece itself included.
    static constexpr CGFloat bytesPerPiece = 200;

    /// Lines are more than `gap` apart.
    static GridLayout of(const MonotoneOutline& outline, CGFloat gap);
};

}  // namespace quorin
