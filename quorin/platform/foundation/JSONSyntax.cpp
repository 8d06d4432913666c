#include "quorin/platform/foundation/JSONSyntax.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <system_error>
#include <utility>

#include "quorin/platform/foundation/UTF8.h"
#include "quorin/platform/values/NumberReading.h"

namespace quorin {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isPartOfNumber(char c) {
    return isDigit(c) || c == '-' || c == '+' || c == '.' || c == 'e' || c == 'E';
}

/// The number, or as much as looks like one, that starts at `at`.
std::string_view numberRun(std::string_view text, std::size_t at) {
    const auto end = std::find_if_not(text.begin() + static_cast<std::ptrdiff_t>(at), text.end(),
                                      isPartOfNumber);
    return text.substr(at, static_cast<std::size_t>(end - text.begin()) - at);
}

/// Reads from front to back and throws a `JSONSyntaxError` at the first fault. Keeps its own stack,
/// since the depth is for the caller to choose.
class Checker {
public:
    Checker(std::string_view json, std::size_t depth) : text(json), maximumDepth(depth) {}

    void check() {
        skipSpace();
        if (isAtEnd())
            fail("empty text");
        while (readValue())
            continue;
        if (!isAtEnd())
            fail("more text after the end");
    }

private:
    [[noreturn]] static void failAt(std::size_t offset, std::string reason) {
        throw JSONSyntaxError{offset, std::move(reason)};
    }
    [[noreturn]] void fail(std::string_view reason) const { failAt(at, std::string(reason)); }
    [[noreturn]] void failExpecting(const std::string& what) const {
        fail(isAtEnd() ? "the text ends, expected " + what : "expected " + what);
    }

    bool isAtEnd() const { return at == text.size(); }
    bool isNext(char c) const { return !isAtEnd() && text[at] == c; }
    bool accept(char c) {
        const bool isFound = isNext(c);
        at += isFound ? 1 : 0;
        return isFound;
    }
    void skipSpace() { at = std::min(text.find_first_not_of(" \t\n\r", at), text.size()); }
    void skipDigits() {
        if (isAtEnd() || !isDigit(text[at]))
            failExpecting("a digit");
        while (!isAtEnd() && isDigit(text[at]))
            ++at;
    }

    /// A scalar, an empty container or the opening of one. Answers whether another value follows.
    bool readValue() {
        if (accept('['))
            return enter(']');
        if (accept('{'))
            return enter('}');
        readScalar();
        return leaveFinished();
    }

    bool enter(char closing) {
        skipSpace();
        if (accept(closing))
            return leaveFinished();
        if (closings.size() == maximumDepth)
            fail("nesting deeper than the limit of " + std::to_string(maximumDepth));
        closings += closing;
        readKeyInRecord();
        return true;
    }

    bool leaveFinished() {
        while (true) {
            skipSpace();
            if (closings.empty())
                return false;
            if (accept(','))
                break;
            if (!accept(closings.back()))
                failExpecting(std::string("',' or '") + closings.back() + '\'');
            closings.pop_back();
        }
        skipSpace();
        readKeyInRecord();
        return true;
    }

    void readKeyInRecord() {
        if (closings.back() != '}')
            return;
        if (!isNext('"'))
            failExpecting("a key in quotes");
        readText();
        skipSpace();
        if (!accept(':'))
            failExpecting("':'");
        skipSpace();
    }

    void readScalar() {
        if (isNext('"'))
            return readText();
        if (isNext('-') || (!isAtEnd() && isDigit(text[at])))
            return readNumber();
        for (const std::string_view word : {"true", "false", "null"})
            if (text.substr(at).starts_with(word)) {
                at += word.size();
                return;
            }
        failExpecting("a value");
    }

    void readNumber() {
        const std::string_view run = numberRun(text, at);
        const std::size_t start = at;
        accept('-');
        if (!accept('0'))
            skipDigits();
        if (accept('.'))
            skipDigits();
        if (accept('e') || accept('E')) {
            if (!accept('+'))
                accept('-');
            skipDigits();
        }
        if (at != start + run.size())
            failAt(start, "malformed number");
        double value = 0;
        readDecimal(run.substr(run.starts_with('-') ? 1 : 0), std::chars_format::general, value);
        if (std::isinf(value))
            failAt(start, "number too large for a double");
    }

    void readText() {
        const std::size_t start = at++;
        while (!accept('"')) {
            if (isAtEnd())
                failAt(start, "a text that is never closed");
            if (static_cast<unsigned char>(text[at]) < 0x20)
                fail("a control character inside a text");
            if (accept('\\'))
                readEscape();
            else
                readPlainCharacters();
        }
    }

    void readPlainCharacters() {
        const std::size_t start = at;
        while (!isAtEnd() && text[at] != '"' && text[at] != '\\' &&
               static_cast<unsigned char>(text[at]) >= 0x20)
            ++at;
        const std::string_view run = text.substr(start, at - start);
        const std::size_t valid = utf8ValidPrefix(run);
        if (valid < run.size())
            failAt(start + valid, "not UTF-8");
    }

    void readEscape() {
        const std::size_t start = at - 1;
        if (!accept('u')) {
            if (isAtEnd() ||
                std::string_view("\"\\/bfnrt").find(text[at]) == std::string_view::npos)
                failAt(start, "unknown escape");
            ++at;
            return;
        }
        const unsigned unit = readFourHexDigits();
        const bool isHigh = unit >= 0xD800 && unit < 0xDC00;
        const bool isLow = unit >= 0xDC00 && unit < 0xE000;
        if (isLow || (isHigh && !readLowSurrogate()))
            failAt(start, "half of a surrogate pair");
    }

    bool readLowSurrogate() {
        if (!accept('\\') || !accept('u'))
            return false;
        const unsigned unit = readFourHexDigits();
        return unit >= 0xDC00 && unit < 0xE000;
    }

    unsigned readFourHexDigits() {
        unsigned unit = 0;
        const std::string_view digits = text.substr(at, 4);
        const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), unit, 16);
        if (digits.size() < 4 || result.ptr != digits.data() + 4)
            failExpecting("four hexadecimal digits");
        at += 4;
        return unit;
    }

    std::string_view text;
    std::size_t maximumDepth;
    std::size_t at = 0;
    std::string closings;  // what closes each container around this place
};

/// Whether the run is an integer that the integer types cannot hold.
bool needsDouble(std::string_view run) {
    const std::string_view digits = run.substr(run.starts_with('-') ? 1 : 0);
    if (digits.empty() || !std::all_of(digits.begin(), digits.end(), isDigit))
        return false;
    if (run == "-0")
        return true;
    const auto overflows = [&](auto integer) {
        return std::from_chars(run.data(), run.data() + run.size(), integer).ec != std::errc();
    };
    return run.starts_with('-') ? overflows(std::int64_t()) : overflows(std::uint64_t());
}

/// Just after the text in quotes that starts at `at`.
std::size_t endOfText(std::string_view text, std::size_t at) {
    for (++at; at < text.size() && text[at] != '"'; ++at)
        at += text[at] == '\\' ? 1 : 0;
    return std::min(at + 1, text.size());
}

/// Whether one of the places in [begin, end) starts the integer -0.
bool hasNegativeZeroIntegerFrom(std::string_view text, std::size_t begin, std::size_t end) {
    for (std::size_t at = text.find("-0", begin); at < end; at = text.find("-0", at + 2))
        if (at + 2 == text.size() || !isPartOfNumber(text[at + 2]))
            return true;
    return false;
}

}  // namespace

std::optional<JSONSyntaxError> findJSONSyntaxError(std::string_view text,
                                                   std::size_t maximumDepth) {
    try {
        Checker(text, maximumDepth).check();
    } catch (JSONSyntaxError& error) {
        return std::move(error);
    }
    return std::nullopt;
}

std::string describePlace(std::string_view text, std::size_t offset) {
    const std::string_view before = text.substr(0, offset);
    const auto line = 1 + std::count(before.begin(), before.end(), '\n');
    const std::string_view onLine = before.substr(before.rfind('\n') + 1);
    // A character has one byte that is not a continuation.
    const auto column =
        1 + std::count_if(onLine.begin(), onLine.end(), [](char c) { return (c & 0xC0) != 0x80; });
    return "line " + std::to_string(line) + ", column " + std::to_string(column);
}

bool hasNegativeZeroIntegers(std::string_view text) {
    // Nearly every text has none: blocks without early exits are compared many bytes at a time.
    constexpr std::size_t block = 1'024;
    for (std::size_t begin = 0; begin + 1 < text.size(); begin += block) {
        const std::size_t end = std::min(begin + block, text.size() - 1);
        unsigned char leastDifference = 0xFF;
        for (std::size_t i = begin; i < end; ++i)
            leastDifference = std::min(
                leastDifference, static_cast<unsigned char>((text[i] ^ '-') | (text[i + 1] ^ '0')));
        if (leastDifference == 0 && hasNegativeZeroIntegerFrom(text, begin, end))
            return true;
    }
    return false;
}

std::string spellingOutDoubles(std::string_view text) {
    std::string result;
    result.reserve(text.size() + text.size() / 8);
    for (std::size_t at = 0; at < text.size();) {
        const bool isText = text[at] == '"';
        const std::string_view piece = isText ? text.substr(at, endOfText(text, at) - at)
                                       : isPartOfNumber(text[at]) ? numberRun(text, at)
                                                                  : text.substr(at, 1);
        result += piece;
        if (!isText && needsDouble(piece))
            result += ".0";
        at += piece.size();
    }
    return result;
}

}  // namespace quorin
