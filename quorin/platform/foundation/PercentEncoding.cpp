#include "quorin/platform/foundation/PercentEncoding.h"

#include <array>
#include <cstdint>

#include "quorin/platform/foundation/Hexadecimal.h"

namespace quorin {
namespace {

/// Whether each byte stays as it is.
using PlainBytes = std::array<bool, 256>;

PlainBytes alphanumericsAnd(std::string_view others) {
    PlainBytes isPlain{};
    for (std::size_t byte = 0; byte < 128; ++byte) {
        const auto lower = byte | 0x20;
        isPlain[byte] = (byte >= '0' && byte <= '9') || (lower >= 'a' && lower <= 'z');
    }
    for (const char byte : others)
        isPlain[static_cast<std::uint8_t>(byte)] = true;
    return isPlain;
}

void appendEncoded(std::string& text, char character, const PlainBytes& isPlain) {
    const auto byte = static_cast<std::uint8_t>(character);
    if (isPlain[byte]) {
        text += character;
        return;
    }
    text += '%';
    appendHexadecimal(text, byte, "0123456789ABCDEF");
}

}  // namespace

bool startsWithEscape(std::string_view text) {
    return text.size() >= 3 && text[0] == '%' && hexadecimalValue(text[1]) >= 0 &&
           hexadecimalValue(text[2]) >= 0;
}

std::string percentEncoded(std::string_view bytes, std::string_view plain) {
    const PlainBytes isPlain = alphanumericsAnd(plain);
    std::string text;
    for (const char byte : bytes)
        appendEncoded(text, byte, isPlain);
    return text;
}

std::string percentCompleted(std::string_view text, std::string_view plain) {
    const PlainBytes isPlain = alphanumericsAnd(plain);
    std::string completed;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (startsWithEscape(text.substr(i)))
            completed += '%';  // its digits are plain
        else
            appendEncoded(completed, text[i], isPlain);
    }
    return completed;
}

std::string percentDecoded(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!startsWithEscape(text.substr(i))) {
            bytes += text[i];
            continue;
        }
        bytes +=
            static_cast<char>(hexadecimalValue(text[i + 1]) * 16 + hexadecimalValue(text[i + 2]));
        i += 2;
    }
    return bytes;
}

}  // namespace quorin
