#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>

#include "quorin/platform/foundation/NSRange.h"
#include "quorin/platform/values/FunctionRef.h"

namespace quorin {

/// How a pattern is read, as a set of bits. Bits without a name mean nothing.
enum class NSRegularExpressionOptions : unsigned {
    none = 0,
    caseInsensitive = 1,
    allowCommentsAndWhitespace = 2,
    ignoreMetacharacters = 4,
    dotMatchesLineSeparators = 8,
    anchorsMatchLines = 16,
    useUnixLineSeparators = 32,
    useUnicodeWordBoundaries = 64,
};

/// How a text is searched, as a set of bits. Progress is not reported, so the two bits that ask
/// for it change nothing. The whole text being searched, neither do those about its bounds.
enum class NSMatchingOptions : unsigned {
    none = 0,
    reportProgress = 1,
    reportCompletion = 2,
    anchored = 4,  ///< only a match at the very start, so at most one
    withTransparentBounds = 8,
    withoutAnchoringBounds = 16,
};

template <typename Options>
concept RegularExpressionOptionSet = std::is_same_v<Options, NSRegularExpressionOptions> ||
    std::is_same_v<Options, NSMatchingOptions>;

template <RegularExpressionOptionSet Options>
constexpr Options operator|(Options a, Options b) {
    return static_cast<Options>(static_cast<unsigned>(a) | static_cast<unsigned>(b));
}

template <RegularExpressionOptionSet Options>
constexpr bool contains(Options set, Options option) {
    return (static_cast<unsigned>(set) & static_cast<unsigned>(option)) != 0;
}

/// A pattern cannot be compiled. The message says where and why, as in
/// `invalid regular expression "a(b", at 3: U_REGEX_MISMATCHED_PAREN`.
class RegularExpressionError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A compiled regular expression in the syntax of ICU. It keeps its matcher from search to search,
/// so one object is for one thread at a time, and not for a search within its own search.
class NSRegularExpression {
public:
    /// Throws `RegularExpressionError`; the empty pattern is invalid too. What is no UTF-8 in the
    /// pattern stands for U+FFFD.
    explicit NSRegularExpression(std::string_view pattern, NSRegularExpressionOptions options =
                                                               NSRegularExpressionOptions::none);
    NSRegularExpression(NSRegularExpression&&) noexcept;
    NSRegularExpression& operator=(NSRegularExpression&&) noexcept;
    ~NSRegularExpression();

    std::size_t numberOfCaptureGroups() const { return ranges - 1; }

    /// Calls `body` for every match from left to right, with the ranges of the whole match and of
    /// all groups; that of a group that took no part is at `NSNotFound`. After an empty match the
    /// search goes on one character later.
    ///
    /// False when the search was given up: it took longer than `timeLimit` (0 for no limit),
    /// needed more memory for going back than ICU allows (8 MB), or the text has 2^31 units or
    /// more. Time is looked at every ten thousand steps back, so a search may take a little longer.
    bool enumerateMatches(std::u16string_view text, NSMatchingOptions options,
                          std::chrono::milliseconds timeLimit,
                          FunctionRef<void(std::span<const NSRange>)> body);

private:
    struct Matcher;

    std::unique_ptr<Matcher> matcher;
    std::size_t ranges;  // of each match
};

}  // namespace quorin
