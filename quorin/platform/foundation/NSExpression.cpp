#include "quorin/platform/foundation/NSExpression.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>
#include <string_view>

#include "quorin/platform/foundation/PlatformException.h"
#include "quorin/platform/foundation/UTF8.h"
#include "quorin/platform/values/NumberReading.h"

namespace quorin {
namespace {

bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

/// As a message names it: `'+'`, `'é'`, `byte 0x80`, `the end`.
std::string nameOfFirst(std::string_view text) {
    if (text.empty())
        return "the end";
    const auto byte = static_cast<unsigned char>(text.front());
    const std::size_t size = byte < 0x80 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
    const std::string_view character = text.substr(0, size);
    std::string name;
    if (byte >= ' ' && byte != 0x7F && isUtf8(character))
        return name.append("'").append(character).append("'");
    constexpr std::string_view digits = "0123456789ABCDEF";
    name.append("byte 0x").append(1, digits[byte >> 4]).append(1, digits[byte & 0xF]);
    return name;
}

/// Reads from left to right and computes at once. What stands before an open parenthesis waits in
/// a fixed number of levels, so that no text can exhaust the stack.
class ExpressionReader {
public:
    explicit ExpressionReader(std::string_view whole)
        : text(whole), at(whole.data()), end(whole.data() + whole.size()) {}

    double value() {
        level = levels.begin();
        *level = Level{};
        for (;;) {
            const bool isNegative = takeMinuses();
            if (take('(')) {
                enter(isNegative);
                continue;
            }
            multiplyBy(takeNumber(), isNegative);
            while (level != levels.begin() && take(')'))
                leave();
            skipBlanks();
            if (at == end && level == levels.begin()) {
                addTerm();
                return level->sum;
            }
            takeOperator();
        }
    }

private:
    /// What was read within one pair of parentheses: a sum whose last term still grows.
    struct Level {
        double sum, term;
        char addition, multiplication;  // before the term and before its next factor, 0 for none
        bool isNegative;                // the parenthesis as a factor of the level around it
    };

    bool take(char c) {
        skipBlanks();
        if (at == end || *at != c)
            return false;
        ++at;
        return true;
    }

    void skipBlanks() {
        while (at != end && isBlank(*at))
            ++at;
    }

    bool takeMinuses() {
        bool isOdd = false;
        while (take('-'))
            isOdd = !isOdd;
        return isOdd;
    }

    double takeNumber() {
        double number = 0;
        const std::size_t size =
            readDecimal({at, static_cast<std::size_t>(end - at)}, std::chars_format::fixed, number);
        if (size == 0)
            fail("a number or '('");
        at += size;
        return number;
    }

    void takeOperator() {
        if (at == end || std::string_view("+-*/").find(*at) == std::string_view::npos)
            fail(level == levels.begin() ? "an operator" : "an operator or ')'");
        const char c = *at++;
        if (c == '*' || c == '/') {
            level->multiplication = c;
            return;
        }
        addTerm();
        level->addition = c;
        level->multiplication = 0;
    }

    void enter(bool isNegative) {
        if (level + 1 == levels.end()) {
            --at;
            fail(std::string("at most ")
                     .append(std::to_string(NSExpression::maximumNesting))
                     .append(" open parentheses"));
        }
        *++level = Level{0, 0, 0, 0, isNegative};
    }

    void leave() {
        addTerm();
        const Level inner = *level--;
        multiplyBy(inner.sum, inner.isNegative);
    }

    void multiplyBy(double magnitude, bool isNegative) {
        const double factor = isNegative ? -magnitude : magnitude;
        switch (level->multiplication) {
            case '*':
                level->term *= factor;
                break;
            case '/':
                level->term /= factor;
                break;
            default:
                level->term = factor;
        }
    }

    void addTerm() {
        switch (level->addition) {
            case '+':
                level->sum += level->term;
                break;
            case '-':
                level->sum -= level->term;
                break;
            default:
                level->sum = level->term;  // no 0 before it, which would lose the sign of -0
        }
    }

    [[noreturn]] void fail(std::string_view expected) const {
        const auto before = static_cast<std::size_t>(at - text.data());
        const auto startsCharacter = [](char c) {
            return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
        };
        const auto column = std::count_if(text.data(), at, startsCharacter) + 1;
        std::string reason = "column ";
        reason.append(std::to_string(column)).append(": expected ").append(expected);
        reason.append(", found ").append(nameOfFirst(text.substr(before)));
        throw PlatformException("NSInvalidArgumentException", reason);
    }

    std::string_view text;
    const char* at;
    const char* end;
    std::array<Level, NSExpression::maximumNesting + 1> levels;  // left unset until entered
    Level* level = nullptr;
};

}  // namespace

double NSExpression::value(std::string_view format) { return ExpressionReader(format).value(); }

}  // namespace quorin
