#include "quorin/platform/foundation/UTF8.h"

#include <cstdint>
#include <cstring>

namespace quorin {
namespace {

/// What may follow a leading byte: how many bytes, and the range of the first of them. All later
/// ones are 80 to BF.
struct Continuation {
    std::size_t count;
    unsigned char lowest = 0x80, highest = 0xBF;
};

Continuation continuationOf(unsigned char lead) {
    if (lead < 0x80)
        return {0};
    if (lead < 0xC2)
        return {0, 1, 0};  // a continuation byte alone, or an overlong form
    if (lead < 0xE0)
        return {1};
    if (lead < 0xF0)
        return {2, static_cast<unsigned char>(lead == 0xE0 ? 0xA0 : 0x80),
                static_cast<unsigned char>(lead == 0xED ? 0x9F : 0xBF)};
    if (lead < 0xF5)
        return {3, static_cast<unsigned char>(lead == 0xF0 ? 0x90 : 0x80),
                static_cast<unsigned char>(lead == 0xF4 ? 0x8F : 0xBF)};
    return {0, 1, 0};
}

/// The length of the character that `text` starts with, or 0.
std::size_t characterLength(std::string_view text) {
    const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const Continuation next = continuationOf(byteAt(0));
    if (next.lowest > next.highest || text.size() <= next.count)
        return 0;
    if (next.count > 0 && (byteAt(1) < next.lowest || byteAt(1) > next.highest))
        return 0;
    for (std::size_t i = 2; i <= next.count; ++i)
        if (byteAt(i) < 0x80 || byteAt(i) > 0xBF)
            return 0;
    return next.count + 1;
}

bool startsWithEightAscii(std::string_view text) {
    if (text.size() < 8)
        return false;
    std::uint64_t bytes;
    std::memcpy(&bytes, text.data(), 8);
    return (bytes & 0x8080808080808080u) == 0;
}

}  // namespace

std::size_t utf8ValidPrefix(std::string_view text) {
    std::size_t at = 0;
    while (at < text.size()) {
        const std::string_view rest = text.substr(at);
        const std::size_t length = startsWithEightAscii(rest) ? 8 : characterLength(rest);
        if (length == 0)
            break;
        at += length;
    }
    return at;
}

}  // namespace quorin
