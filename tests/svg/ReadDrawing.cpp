#include "tests/svg/ReadDrawing.h"

#include "tests/TestSupport.h"
#include "tests/svg/DrawnText.h"

namespace quorin::test {
namespace {

SvgReadResult readElements(std::string_view elements) {
    return readSvg("<svg viewBox=\"0 0 100 80\">" + std::string(elements) + "</svg>", "test.svg");
}

}  // namespace

Drawing readDrawing(std::string_view elements) {
    SvgReadResult result = readElements(elements);
    for (const SvgWarning& warning : result.warnings)
        ADD_FAILURE() << warning.description();
    return std::move(result.drawing);
}

std::vector<std::string> warningsAbout(std::string_view elements) {
    std::vector<std::string> messages;
    for (const SvgWarning& warning : readElements(elements).warnings)
        messages.push_back(warning.message);
    return messages;
}

std::string drawnText(const Drawing& drawing) {
    std::string text;
    for (const DrawingShape& shape : drawing.shapes)
        text += (text.empty() ? "" : " | ") + drawnText(*shape.outline);
    return text;
}

std::string drawnText(std::string_view elements) { return drawnText(readDrawing(elements)); }

}  // namespace quorin::test
