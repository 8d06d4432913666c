#include "apps/quorin/Console.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "quorin/platform/foundation/UTF8.h"

namespace quorin::app {

namespace {

/// Bytes of the control character that `text` starts with: 0 when there is none. Those from U+0080
/// to U+009F take two bytes and steer terminals too.
std::size_t controlLength(std::string_view text) {
    const auto first = static_cast<unsigned char>(text[0]);
    if (first < 0x20 || first == 0x7F)
        return 1;
    if (first != 0xC2 || text.size() < 2)
        return 0;
    const auto second = static_cast<unsigned char>(text[1]);
    return second >= 0x80 && second < 0xA0 ? 2 : 0;
}

}  // namespace

void print(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stdout); }

void complain(std::string_view message) {
    std::string line = "quorin: ";
    line.append(oneLine(message)).append("\n");
    std::fwrite(line.data(), 1, line.size(), stderr);
}

void sendLinesAtOnce() { std::setvbuf(stdout, nullptr, _IOLBF, 0); }

bool isOutputBroken() { return std::ferror(stdout) != 0; }

bool finishOutput() {
    const bool wasBroken = isOutputBroken();
    if (std::fflush(stdout) == 0 && !wasBroken)
        return true;
    complain(std::string("standard output: ").append(std::strerror(errno)));
    return false;
}

std::string oneLine(std::string_view text) {
    std::string line;
    while (!text.empty()) {
        const std::size_t control = controlLength(text);
        line += control == 0 ? text[0] : '?';
        text.remove_prefix(control == 0 ? 1 : control);
    }
    return line;
}

std::string validUtf8(std::string_view text) {
    std::string valid;
    for (;;) {
        const std::size_t length = utf8ValidPrefix(text);
        valid += text.substr(0, length);
        if (length == text.size())
            return valid;
        valid += '?';
        text.remove_prefix(length + 1);
    }
}

}  // namespace quorin::app
