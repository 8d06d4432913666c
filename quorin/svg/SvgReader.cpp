#include "quorin/svg/SvgReader.h"

#include "quorin/svg/reading/SvgDocument.h"
#include "quorin/svg/reading/SvgWalk.h"

namespace quorin {

std::string SvgWarning::description() const {
    return file + ":" + std::to_string(line) + ": offset " + std::to_string(offset) + ": " +
           message;
}

SvgError::SvgError(std::string file, std::size_t line, std::string_view message)
    : std::runtime_error(file + ":" + std::to_string(line) + ": " + std::string(message)),
      _file(std::move(file)),
      _line(line) {}

SvgReadResult readSvg(std::string_view text, std::string_view fileName, const SvgLimits& limits) {
    SvgDocument document(text, fileName, limits);
    SvgReadResult result;
    result.drawing = SvgWalk(document, limits).draw();
    result.warnings = document.messages().take();
    return result;
}

}  // namespace quorin
