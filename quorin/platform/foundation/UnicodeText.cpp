#include "quorin/platform/foundation/UnicodeText.h"

#include <unicode/ubrk.h>
#include <unicode/uchar.h>
#include <unicode/unorm2.h>
#include <unicode/ustring.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

#include <algorithm>
#include <cstdint>
#include <memory>

#include "quorin/platform/foundation/UTF16.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {
namespace {

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char byte) { return static_cast<std::uint8_t>(byte) < 0x80; });
}

void require(UErrorCode status) {
    if (U_FAILURE(status))
        fatalError(std::string("ICU: ") + u_errorName(status));
}

/// What `convert(units, capacity, count, status)` gives, in as much room as it asks for.
template <typename Convert>
std::string convertedUnits(std::string_view text, const Convert& convert) {
    const std::u16string source = utf16(text);
    std::u16string result(source.size() + source.size() / 8 + 8, u'\0');
    for (;;) {
        UErrorCode status = U_ZERO_ERROR;
        const std::int32_t needed =
            convert(source, result.data(), static_cast<std::int32_t>(result.size()), status);
        const bool isTooSmall = status == U_BUFFER_OVERFLOW_ERROR;
        if (!isTooSmall)
            require(status);
        result.resize(static_cast<std::size_t>(needed));
        if (!isTooSmall)
            return utf8(result);
    }
}

}  // namespace

std::string lowercased(std::string_view text) {
    if (isAscii(text)) {
        std::string lower(text);
        for (char& letter : lower)
            if (letter >= 'A' && letter <= 'Z')
                letter = static_cast<char>(letter | 0x20);
        return lower;
    }
    return convertedUnits(text, [](const std::u16string& source, char16_t* result,
                                   std::int32_t capacity, UErrorCode& status) {
        return u_strToLower(result, capacity, source.data(),
                            static_cast<std::int32_t>(source.size()), "", &status);
    });
}

std::string composed(std::string_view text) {
    if (isAscii(text))
        return std::string(text);
    return convertedUnits(text, [](const std::u16string& source, char16_t* result,
                                   std::int32_t capacity, UErrorCode& status) {
        return unorm2_normalize(unorm2_getNFCInstance(&status), source.data(),
                                static_cast<std::int32_t>(source.size()), result, capacity,
                                &status);
    });
}

void forEachCharacter(std::string_view text, FunctionRef<void(std::string_view)> body) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UBreakIterator, decltype(&ubrk_close)> breaks(
        ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &status), &ubrk_close);
    const std::unique_ptr<UText, decltype(&utext_close)> bytes(
        utext_openUTF8(nullptr, text.data(), static_cast<std::int64_t>(text.size()), &status),
        &utext_close);
    require(status);
    ubrk_setUText(breaks.get(), bytes.get(), &status);
    require(status);
    std::size_t start = 0;
    for (std::int32_t end = ubrk_next(breaks.get()); end != UBRK_DONE;
         end = ubrk_next(breaks.get())) {
        const auto next = static_cast<std::size_t>(end);
        body(text.substr(start, next - start));
        start = next;
    }
}

bool isWhiteSpace(char32_t codePoint) { return u_isUWhiteSpace(static_cast<UChar32>(codePoint)); }

bool isDecimalDigit(char32_t codePoint) { return u_isdigit(static_cast<UChar32>(codePoint)); }

CodePoint lastCodePoint(std::string_view text) {
    if (text.empty())
        return {0, 0};
    // No code point has more than four bytes, however long the text is.
    const std::string_view end = text.substr(text.size() - std::min<std::size_t>(text.size(), 4));
    auto at = static_cast<std::int32_t>(end.size());
    UChar32 value = 0;
    U8_PREV_OR_FFFD(reinterpret_cast<const std::uint8_t*>(end.data()), 0, at, value);
    return {static_cast<char32_t>(value), end.size() - static_cast<std::size_t>(at)};
}

}  // namespace quorin
