#pragma once

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "quorin/platform/foundation/PageAdvice.h"
#include "quorin/platform/values/CGGeometry.h"

namespace quorin {

inline constexpr std::size_t longestNumber = 32;  // "-2.2250738585072014e-308" and some air
inline constexpr std::size_t longestEscape = 6;   // "\u001f"

/// How a byte is written inside quotes: as it is (0), as a backslash and this letter, or, for
/// 'u', as \u00XX.
inline constexpr std::array<char, 256> escapeLetters = [] {
    std::array<char, 256> letters{};
    for (std::size_t control = 0; control < 0x20; ++control)
        letters[control] = 'u';
    letters['\b'] = 'b';
    letters['\t'] = 't';
    letters['\n'] = 'n';
    letters['\f'] = 'f';
    letters['\r'] = 'r';
    letters['"'] = '"';
    letters['\\'] = '\\';
    return letters;
}();

/// JSON text that grows. A writer asks once for all the room its value can take, then writes into
/// it without looking.
class JSONOutput {
public:
    char* roomFor(std::size_t count) {
        if (text.size() - used < count)
            grow(used + count);
        return text.data() + used;
    }
    void wroteUpTo(const char* end) { used = static_cast<std::size_t>(end - text.data()); }

    void append(char character) {
        *roomFor(1) = character;
        ++used;
    }
    void appendLine(std::size_t indentation) {
        char* at = roomFor(1 + indentation);
        *at++ = '\n';
        wroteUpTo(std::fill_n(at, indentation, ' '));
    }

    std::size_t size() const { return used; }
    /// Of a long text, what is still to come: doubling its room again and again would touch twice
    /// the memory.
    void expect(std::size_t count) {
        if (text.capacity() - used < count)
            reserve(used + count);
    }

    std::string take() {
        text.resize(used);
        return std::move(text);
    }

private:
    void reserve(std::size_t count) {
        text.reserve(count);
        adviseHugePages(text.data(), text.capacity());
    }
    void grow(std::size_t needed) {
        if (text.capacity() < needed)
            reserve(std::max(2 * text.capacity(), needed));
        // Not all of it at once: memory is dear when it is first touched.
        constexpr std::size_t step = 16'384;
        text.resize(std::min(text.capacity(), needed + step));
    }

    std::string text;
    std::size_t used = 0;
};

inline char* writeLiteral(char* at, std::string_view literal) {
    return std::copy(literal.begin(), literal.end(), at);
}

inline char* writeNonFinite(char* at, CGFloat value) {
    return writeLiteral(at, std::isnan(value) ? "\"nan\"" : value > 0 ? "\"inf\"" : "\"-inf\"");
}

inline char* writeNumber(char* at, CGFloat value) {
    constexpr CGFloat allIntegersExact = 9007199254740992.0;            // 2^53
    constexpr CGFloat beyondReadersOfIntegers = 9223372036854775808.0;  // 2^63
    char* const end = at + longestNumber;
    const CGFloat magnitude = std::abs(value);

    // Shortest would make 1e+05 of 100000, which is short but hard on human readers.
    if (magnitude < allIntegersExact && value == std::trunc(value)) {
        if (value == 0 && std::signbit(value))
            return writeLiteral(at, "-0.0");
        return std::to_chars(at, end, static_cast<std::int64_t>(value)).ptr;
    }
    if (magnitude >= beyondReadersOfIntegers)
        return std::to_chars(at, end, value, std::chars_format::scientific).ptr;
    return std::to_chars(at, end, value).ptr;
}

/// Needs room for the longest escape of every byte and two quotes.
inline char* writeQuoted(char* at, std::string_view text) {
    *at++ = '"';
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        const char letter = escapeLetters[byte];
        if (letter == 0) {
            *at++ = character;
            continue;
        }
        *at++ = '\\';
        *at++ = letter;
        if (letter == 'u') {
            at = writeLiteral(at, byte < 0x10 ? "000" : "001");
            *at++ = "0123456789abcdef"[byte & 0xF];
        }
    }
    *at++ = '"';
    return at;
}

constexpr std::size_t roomForQuoted(std::string_view text) {
    return longestEscape * text.size() + 2;
}

}  // namespace quorin
