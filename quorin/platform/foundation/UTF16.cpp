#include "quorin/platform/foundation/UTF16.h"

#include <unicode/ustring.h>
#include <unicode/utf16.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace quorin {
namespace {

constexpr UChar32 replacement = 0xFFFD;
// ICU counts in 32 bits, so a text goes to it in pieces, of whole characters each.
constexpr std::size_t pieceSize = 65'536;

bool continuesCharacter(char byte) { return U8_IS_TRAIL(byte); }
bool continuesCharacter(char16_t unit) { return U16_IS_TRAIL(unit); }

template <typename Unit>
std::size_t firstPiece(std::basic_string_view<Unit> text) {
    if (text.size() <= pieceSize)
        return text.size();
    for (std::size_t end = pieceSize; end > pieceSize - 4; --end)
        if (!continuesCharacter(text[end]))
            return end;
    return pieceSize;  // no character is that long, so there is none to break
}

template <typename Unit>
std::size_t asciiPrefix(std::basic_string_view<Unit> text) {
    const auto isAscii = [](Unit unit) {
        return static_cast<std::make_unsigned_t<Unit>>(unit) < 0x80;
    };
    const auto end = std::find_if_not(text.begin(), text.end(), isAscii);
    return static_cast<std::size_t>(end - text.begin());
}

/// Calls with the start of each piece and its size.
template <typename Unit, typename Convert>
void forEachPiece(std::basic_string_view<Unit> text, const Convert& convert) {
    while (!text.empty()) {
        const std::size_t size = firstPiece(text);
        convert(text.data(), static_cast<std::int32_t>(size));
        text.remove_prefix(size);
    }
}

}  // namespace

std::u16string utf16(std::string_view text) {
    std::u16string result;
    convertToUtf16(text, result);
    return result;
}

bool convertToUtf16(std::string_view text, std::u16string& result) {
    result.resize(text.size());  // never more units than bytes
    const std::size_t plain = asciiPrefix(text);
    std::copy_n(text.begin(), plain, result.begin());
    std::size_t written = plain;

    forEachPiece(text.substr(plain), [&](const char* bytes, std::int32_t size) {
        std::int32_t count = 0;
        UErrorCode status = U_ZERO_ERROR;
        u_strFromUTF8WithSub(result.data() + written, size, &count, bytes, size, replacement,
                             nullptr, &status);
        written += static_cast<std::size_t>(count);
    });
    result.resize(written);
    return plain == text.size();
}

std::string utf8(std::u16string_view text) {
    const std::size_t plain = asciiPrefix(text);
    std::string result(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(plain));
    forEachPiece(text.substr(plain), [&](const char16_t* units, std::int32_t size) {
        const std::size_t written = result.size();
        const std::int32_t capacity = 3 * size;
        result.resize(written + static_cast<std::size_t>(capacity));
        std::int32_t count = 0;
        UErrorCode status = U_ZERO_ERROR;
        u_strToUTF8WithSub(result.data() + written, capacity, &count, units, size, replacement,
                           nullptr, &status);
        result.resize(written + static_cast<std::size_t>(count));
    });
    return result;
}

}  // namespace quorin
