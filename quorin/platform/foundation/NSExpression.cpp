#include "quorin/platform/foundation/NSExpression.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <limits>
#include <string>

#include "quorin/platform/foundation/PlatformException.h"
#include "quorin/platform/values/NumberReading.h"

namespace quorin {
namespace {

bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

/// What stands within one pair of parentheses, as far as it was read: a sum whose last term is
/// still growing.
struct Level {
    double sum, term;
    char addition, multiplication;  // what comes before the term and the next factor; 0 for nothing
    bool isNegative;                // the parenthesis as a whole, within the level around it
};

class Reader {
public:
    explicit Reader(std::string_view whole)
        : text(whole), at(whole.data()), end(whole.data() + whole.size()) {}

    double value() {
        std::array<Level, NSExpression::maximumNesting + 1> levels;  // fixed, unlike a recursion
        std::size_t depth = 0;
        levels[0] = {0, 0, 0, 0, false};
        for (;;) {
            bool isNegative = readMinuses();
            if (at != end && *at == '(') {
                if (++depth > NSExpression::maximumNesting)
                    fail("more than 256 parentheses in each other");
                levels[depth] = {0, 0, 0, 0, isNegative};
                ++at;
                continue;
            }
            double factor = number();
            for (;;) {
                Level& level = levels[depth];
                multiply(level, isNegative ? -factor : factor);
                skipBlanks();
                const char c = at != end ? *at : '\0';
                if (at != end && (c == '+' || c == '-')) {
                    close(level);
                    level.addition = c;
                    level.multiplication = 0;
                    ++at;
                    break;
                }
                if (at != end && (c == '*' || c == '/')) {
                    level.multiplication = c;
                    ++at;
                    break;
                }
                if (depth == 0 ? at != end : c != ')')
                    fail(depth == 0 ? "an operator or the end" : "an operator or )");
                close(level);
                if (depth == 0)
                    return level.sum;
                ++at;
                factor = level.sum;
                isNegative = level.isNegative;
                --depth;
            }
        }
    }

private:
    static void multiply(Level& level, double factor) {
        if (level.multiplication == '*')
            level.term *= factor;
        else if (level.multiplication == '/')
            level.term /= factor;
        else
            level.term = factor;
    }

    static void close(Level& level) {
        if (level.addition == '+')
            level.sum += level.term;
        else if (level.addition == '-')
            level.sum -= level.term;
        else
            level.sum = level.term;
    }

    void skipBlanks() {
        while (at != end && isBlank(*at))
            ++at;
    }

    bool readMinuses() {
        bool isOdd = false;
        for (skipBlanks(); at != end && *at == '-'; skipBlanks()) {
            isOdd = !isOdd;
            ++at;
        }
        return isOdd;
    }

    double number() {
        double value = 0;
        const char* next = readDecimal(at, end, std::chars_format::fixed, value);
        if (next == at)
            fail("a number");
        at = next;
        return value;
    }

    [[noreturn]] void fail(const char* expected) const {
        std::string reason = "column ";
        reason.append(std::to_string(at - text.data() + 1)).append(": expected ").append(expected);
        throw PlatformException("NSInvalidArgumentException", reason);
    }

    std::string_view text;
    const char* at;
    const char* end;
};

}  // namespace

double NSExpression::value(std::string_view format) { return Reader(format).value(); }

}  // namespace quorin
