#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "quorin/svg/SvgReader.h"

namespace quorin::test {

/// The elements between `<svg viewBox="0 0 100 80">` and `</svg>`, which must give no warning.
Drawing readDrawing(std::string_view elements);
/// The messages of the warnings about them.
std::vector<std::string> warningsAbout(std::string_view elements);
/// What all shapes draw, with a bar between them.
std::string drawnText(const Drawing& drawing);
/// What the elements draw.
std::string drawnText(std::string_view elements);

}  // namespace quorin::test
