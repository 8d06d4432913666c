#pragma once

#include <cstddef>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "quorin/platform/cgpath/CGPath.h"

namespace quorin {

struct PathDataError {
    std::size_t offset = 0;  ///< bytes from the start of the path data
    std::string message;
};

/// What SVG path data draws, with absolute points: moves, lines, cubics and closes. Every contour
/// begins with a move, the one after a close too; a move that nothing is drawn from is left out.
/// Quadratics are elevated exactly, arcs become cubics.
struct PathData {
    std::shared_ptr<const CGPath> path;  ///< what stands before the error, if there is one
    std::size_t commands = 0;            ///< repetitions without a letter included
    std::optional<PathDataError> error;
    bool hasTooManyCommands = false;
};

/// Reads the path data grammar of SVG 2, commas before the first argument or after the last being
/// errors as they are there. Numbers that leave the range of a double are errors too.
PathData parsePathData(std::string_view text,
                       std::size_t maximumCommands = std::numeric_limits<std::size_t>::max());

}  // namespace quorin
