#include "tests/svg/DrawnText.h"

#include <array>
#include <charconv>

#include "quorin/svg/DrawnElements.h"

namespace quorin::test {
namespace {

std::string shortest(CGFloat number) {
    std::array<char, 32> buffer{};
    const CGFloat unsignedZero = number + 0.0;
    return {buffer.data(),
            std::to_chars(buffer.data(), buffer.data() + buffer.size(), unsignedZero).ptr};
}

void append(std::string& text, const CGPathElement& element) {
    constexpr std::string_view letters = "MLQCZ";
    text += text.empty() ? "" : " ";
    text += letters[static_cast<std::size_t>(element.type)];
    for (const CGPoint point : element.points)
        text += " " + shortest(point.x) + "," + shortest(point.y);
}

}  // namespace

std::string drawnText(const CGPath& path) {
    std::string text;
    path.apply([&](const CGPathElement& element) { append(text, element); });
    return text;
}

std::string drawnText(const Path& path) {
    std::string text;
    forEachDrawnElement(path, [&](const CGPathElement& element) { append(text, element); });
    return text;
}

std::string drawnText(const CompoundPath& outline) {
    std::string text;
    for (const std::shared_ptr<Path>& contour : outline.children())
        text += (text.empty() ? "" : " ") + drawnText(*contour);
    return text;
}

}  // namespace quorin::test
