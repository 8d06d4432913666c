/// Searching texts: the wrapper beside the library it stands on.
#include <unicode/uregex.h>
#include <unicode/ustring.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "bench/PeerReport.h"
#include "quorin/observation/RegularExpression.h"

namespace {

using namespace quorin;
using namespace quorin::bench;

using Matches = Regex::Matches;

constexpr std::size_t textSize = 10'000;

std::string repeated(const std::string& piece) {
    std::string text;
    while (text.size() < textSize)
        text += piece;
    return text;
}

/// The same answer as ours, asked of ICU by hand.
class PlainIcu {
public:
    explicit PlainIcu(const std::string& pattern) {
        const std::vector<UChar> units = unitsOf(pattern);
        const auto size = static_cast<std::int32_t>(units.size());
        expression = {uregex_open(units.data(), size, 0, nullptr, &status), uregex_close};
        groups = uregex_groupCount(expression.get(), &status);
    }

    Matches matches(const std::string& text) {
        const std::vector<UChar> units = unitsOf(text);
        uregex_setText(expression.get(), units.data(), static_cast<std::int32_t>(units.size()),
                       &status);
        Matches result;
        while (uregex_findNext(expression.get(), &status)) {
            Regex::Groups& texts = result.emplace_back();
            for (std::int32_t group = 0; group <= groups; ++group) {
                const std::int32_t start = uregex_start(expression.get(), group, &status);
                const std::int32_t end = uregex_end(expression.get(), group, &status);
                texts.push_back(start < 0 ? std::string() : textOf(&units[0] + start, end - start));
            }
        }
        return result;
    }

private:
    std::vector<UChar> unitsOf(const std::string& text) {
        std::vector<UChar> units(text.size());
        std::int32_t count = 0;
        const auto size = static_cast<std::int32_t>(text.size());
        u_strFromUTF8(units.data(), size, &count, text.data(), size, &status);
        units.resize(static_cast<std::size_t>(count));
        return units;
    }
    std::string textOf(const UChar* units, std::int32_t size) {
        std::string text(static_cast<std::size_t>(size) * 3, '\0');
        std::int32_t count = 0;
        u_strToUTF8(text.data(), size * 3, &count, units, size, &status);
        text.resize(static_cast<std::size_t>(count));
        return text;
    }

    UErrorCode status = U_ZERO_ERROR;
    std::shared_ptr<URegularExpression> expression;
    std::int32_t groups = 0;
};

void registerSearch(const std::string& work, const std::string& pattern, const std::string& text) {
    const auto regex = Regex::create(pattern);
    const auto icu = std::make_shared<PlainIcu>(pattern);
    if (!regex->match(text) || regex->m() != icu->matches(text)) {
        std::fprintf(stderr, "%s: not what ICU finds\n", work.c_str());
        std::exit(1);
    }
    compare(work, ours, 1, [=] { benchmark::DoNotOptimize(regex->match(text)); });
    compare(work, "ICU", 1, [=] { benchmark::DoNotOptimize(icu->matches(text)); });
}

}  // namespace

int main(int argumentCount, char** arguments) {
    const std::string sentence = "The box of 12.5 by 40 points stands at (7, -3), see a.b@c.org. ";
    const std::string accented = "Die H\u00f6he betr\u00e4gt 12,5 \u20ac und 40 Stra\u00dfen. ";
    const std::string size = "10 kB, ";
    registerSearch(size + "numbers", "(-?\\d+)(\\.\\d+)?", repeated(sentence));
    registerSearch(size + "addresses", "[\\w._%+-]+@[\\w.-]+\\.[\\w]{2,}", repeated(sentence));
    registerSearch(size + "one match at the end", "needle", repeated(sentence) + "needle");
    registerSearch(size + "words beyond ASCII", "\\w+", repeated(accented));
    return runComparison(argumentCount, arguments);
}
