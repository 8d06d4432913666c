#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "quorin/svg/Drawing.h"

namespace quorin {

/// What a reader takes from outside before it gives up with an `SvgError` naming the limit.
struct SvgLimits {
    std::size_t bytes = 256u << 20;
    /// Nesting of elements; also of the places that `use` elements lead to.
    std::size_t depth = 1'024;
    /// Elements visited, counting again what `use` elements repeat.
    std::size_t elements = 1'000'000;
    /// Path commands in the whole drawing.
    std::size_t pathCommands = 10'000'000;
};

/// Something in a drawing that was left out or read as well as it could be.
struct SvgWarning {
    std::string file;
    std::size_t line = 1;    ///< counted from 1
    std::size_t offset = 0;  ///< bytes from the start of the text
    std::string message;

    /// "icon.svg:12: offset 340: path data: expected a number"
    std::string description() const;
};

/// The text cannot be read as a drawing at all. The message starts with file and line, as in
/// `icon.svg:12: the document ends inside <path>`.
class SvgError : public std::runtime_error {
public:
    SvgError(std::string file, std::size_t line, std::string_view message);

    const std::string& file() const { return _file; }
    std::size_t line() const { return _line; }  ///< counted from 1

private:
    std::string _file;
    std::size_t _line;
};

struct SvgReadResult {
    Drawing drawing;
    std::vector<SvgWarning> warnings;  ///< in the order of the text
};

/// Reads an SVG document from UTF-8 (or UTF-16 with a byte order mark) text. `fileName` is only
/// quoted in messages: nothing is opened, neither files nor network nor entities.
///
/// Transforms are applied to the points; a stroke's width is scaled by the square root of the
/// transform's area. The opacity of a group is multiplied into that of its shapes. What has no
/// outline (text, images) and what is not painted here (masks, filters, patterns, markers) is left
/// out with a warning; inner drawings and symbols are not cut off at their edges. After an error in
/// path data what stands before it is kept.
///
/// Throws `SvgError` when the text is not SVG, ends early or passes a limit.
SvgReadResult readSvg(std::string_view text, std::string_view fileName,
                      const SvgLimits& limits = {});

}  // namespace quorin
