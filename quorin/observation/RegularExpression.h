#pragma once

#include <chrono>
#include <concepts>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "quorin/platform/foundation/NSRegularExpression.h"

namespace quorin {

/// A regular expression that hands out all matches with their groups as texts.
///
/// The pattern, in the syntax of ICU, is compiled at the first search and again only after a
/// change. It is meant to be a constant of the program: one that cannot be compiled stops the
/// process, at the search. What is no UTF-8, in pattern or input, is read as U+FFFD.
///
/// A search changes the object, so one is for one thread at a time.
class Regex {
public:
    /// The whole match first, then each group; a group that took no part is the empty text.
    using Groups = std::vector<std::string>;
    using Matches = std::vector<Groups>;
    using Options = NSRegularExpressionOptions;

    static constexpr std::chrono::milliseconds defaultTimeLimit{2000};

    static std::shared_ptr<Regex> create(std::string pattern, Options options = Options::none);

    Regex(const Regex&) = delete;
    Regex& operator=(const Regex&) = delete;

    const std::string& pattern() const { return _pattern; }
    void setPattern(std::string pattern);
    Options options() const { return _options; }
    void setOptions(Options options);

    /// How long a search may take before it gives up; zero for as long as it takes. Some patterns
    /// need time that doubles with each character of an unlucky text.
    std::chrono::milliseconds timeLimit() const { return _timeLimit; }
    void setTimeLimit(std::chrono::milliseconds limit) { _timeLimit = limit; }
    /// Whether the last search gave up, for time or for memory. It then counts as a search without
    /// a match: half of the matches could be taken for all of them.
    bool reachedLimit() const { return _reachedLimit; }

    /// The matches of the last search.
    const Matches& m() const { return _m; }

    /// Searches the whole input from left to right; whether there is a match at all.
    bool match(std::string_view input, NSMatchingOptions options = NSMatchingOptions::none);
    /// The same with `m` as the answer, or nothing without a match.
    std::optional<Matches> matches(std::string_view input,
                                   NSMatchingOptions options = NSMatchingOptions::none);

private:
    Regex(std::string pattern, Options options);

    NSRegularExpression& compiled();

    std::string _pattern;
    Options _options;
    std::chrono::milliseconds _timeLimit = defaultTimeLimit;
    bool _reachedLimit = false;
    Matches _m;
    std::optional<NSRegularExpression> _compiled;
    std::u16string units;  // of the last input, for its memory
};

/// `regex.match(text)`.
bool match(std::string_view text, Regex& regex);
/// `regex.matches(text)`.
std::optional<Regex::Matches> matches(std::string_view text, Regex& regex);

/// What a regular expression can be tried on. Text is.
template <typename Type>
concept RegularExpressionMatchable = requires(const Type& value, Regex& regex) {
    { match(value, regex) } -> std::same_as<bool>;
};

}  // namespace quorin
