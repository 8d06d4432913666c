#include "quorin/extensions/sysfs/SysfsText.h"

#include <algorithm>
#include <string_view>

#include "quorin/platform/foundation/AtomicFile.h"
#include "quorin/platform/foundation/UTF8.h"

namespace quorin {
namespace {

constexpr std::size_t maximumSize = 65'536;  // the kernel gives a page at most

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view whiteSpace = " \t\n\v\f\r";
    const std::size_t begin = text.find_first_not_of(whiteSpace);
    if (begin == std::string_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(whiteSpace) + 1 - begin);
}

bool isText(std::string_view text) {
    const auto isControl = [](char character) {
        return static_cast<unsigned char>(character) < 0x20 || character == 0x7F;
    };
    return isUtf8(text) && std::none_of(text.begin(), text.end(), isControl);
}

}  // namespace

std::optional<std::string> sysfsText(const std::string& path) {
    try {
        const std::string content = readFile(path, maximumSize);
        const std::string_view text = trimmed(content);
        if (!text.empty() && isText(text))
            return std::string(text);
    } catch (const FileError&) {
        // Many entries are readable by root only, or absent on this machine.
    }
    return std::nullopt;
}

}  // namespace quorin
