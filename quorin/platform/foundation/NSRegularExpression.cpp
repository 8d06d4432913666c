#include "quorin/platform/foundation/NSRegularExpression.h"

#include <unicode/uregex.h>

#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

#include "quorin/platform/foundation/UTF16.h"

namespace quorin {
namespace {

using Options = NSRegularExpressionOptions;

std::uint32_t flagsOf(Options options) {
    constexpr std::pair<Options, URegexpFlag> table[] = {
        {Options::caseInsensitive, UREGEX_CASE_INSENSITIVE},
        {Options::allowCommentsAndWhitespace, UREGEX_COMMENTS},
        {Options::ignoreMetacharacters, UREGEX_LITERAL},
        {Options::dotMatchesLineSeparators, UREGEX_DOTALL},
        {Options::anchorsMatchLines, UREGEX_MULTILINE},
        {Options::useUnixLineSeparators, UREGEX_UNIX_LINES},
        {Options::useUnicodeWordBoundaries, UREGEX_UWORD},
    };
    std::uint32_t flags = 0;
    for (const auto& [option, flag] : table)
        if (contains(options, option))
            flags |= static_cast<std::uint32_t>(flag);
    return flags;
}

struct CloseExpression {
    void operator()(URegularExpression* expression) const { uregex_close(expression); }
};

/// The end of a search that takes too long. ICU asks every ten thousand steps back, and, if told
/// to, at every place where a match could start.
class Deadline {
public:
    using Clock = std::chrono::steady_clock;

    explicit Deadline(std::chrono::milliseconds limit) : end(Clock::now() + limit) {}

    static UBool U_CALLCONV afterManySteps(const void* context, std::int32_t) {
        return Clock::now() < static_cast<const Deadline*>(context)->end;
    }
    static UBool U_CALLCONV atEachStart(const void* context, std::int64_t place) {
        return place % 64 != 0 || afterManySteps(context, 0);
    }

private:
    Clock::time_point end;
};

}  // namespace

struct NSRegularExpression::Matcher {
    /// Watches over the searches of one call.
    void setDeadline(const Deadline* deadline, bool isLongText) {
        UErrorCode status = U_ZERO_ERROR;
        uregex_setMatchCallback(expression.get(), deadline ? Deadline::afterManySteps : nullptr,
                                deadline, &status);
        // Scanning without going back is quadratic at worst: of a short text that is no matter,
        // and asking at every place would take as long as the search itself.
        const bool asks = deadline && isLongText;
        uregex_setFindProgressCallback(expression.get(), asks ? Deadline::atEachStart : nullptr,
                                       deadline, &status);
    }

    std::span<const NSRange> readRanges() {
        for (std::size_t i = 0; i < found.size(); ++i) {
            const auto group = static_cast<std::int32_t>(i);
            UErrorCode status = U_ZERO_ERROR;
            const std::int32_t start = uregex_start(expression.get(), group, &status);
            const std::int32_t end = uregex_end(expression.get(), group, &status);
            if (start < 0)
                found[i] = {NSNotFound, 0};
            else
                found[i] = {static_cast<std::size_t>(start), static_cast<std::size_t>(end - start)};
        }
        return found;
    }

    std::unique_ptr<URegularExpression, CloseExpression> expression;
    std::vector<NSRange> found;
};

NSRegularExpression::NSRegularExpression(std::string_view pattern, Options options)
    : matcher(std::make_unique<Matcher>()) {
    const std::u16string text = utf16(pattern);
    UParseError place{};
    UErrorCode status = U_ZERO_ERROR;
    if (text.size() > std::numeric_limits<std::int32_t>::max())
        status = U_REGEX_PATTERN_TOO_BIG;
    matcher->expression.reset(uregex_open(text.data(), static_cast<std::int32_t>(text.size()),
                                          flagsOf(options), &place, &status));
    if (U_FAILURE(status)) {
        std::string message = "invalid regular expression \"";
        message.append(pattern).append("\", at ").append(std::to_string(place.offset));
        throw RegularExpressionError(message.append(": ").append(u_errorName(status)));
    }
    ranges = static_cast<std::size_t>(uregex_groupCount(matcher->expression.get(), &status)) + 1;
    matcher->found.resize(ranges);
}

NSRegularExpression::NSRegularExpression(NSRegularExpression&&) noexcept = default;
NSRegularExpression& NSRegularExpression::operator=(NSRegularExpression&&) noexcept = default;
NSRegularExpression::~NSRegularExpression() = default;

bool NSRegularExpression::enumerateMatches(std::u16string_view text, NSMatchingOptions options,
                                           std::chrono::milliseconds timeLimit,
                                           FunctionRef<void(std::span<const NSRange>)> body) {
    constexpr std::size_t longText = 16'384;
    if (text.size() > std::numeric_limits<std::int32_t>::max())
        return false;

    const Deadline deadline(timeLimit);
    URegularExpression* expression = matcher->expression.get();
    UErrorCode status = U_ZERO_ERROR;
    uregex_setText(expression, text.empty() ? u"" : text.data(),
                   static_cast<std::int32_t>(text.size()), &status);
    matcher->setDeadline(timeLimit.count() > 0 ? &deadline : nullptr, text.size() > longText);

    if (contains(options, NSMatchingOptions::anchored)) {
        if (uregex_lookingAt(expression, -1, &status))
            body(matcher->readRanges());
        return U_SUCCESS(status);
    }
    while (uregex_findNext(expression, &status))
        body(matcher->readRanges());
    return U_SUCCESS(status);
}

}  // namespace quorin
