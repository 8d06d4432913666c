#include "quorin/observation/RegularExpression.h"

#include <span>
#include <utility>

#include "quorin/platform/foundation/UTF16.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {
namespace {

/// A text in both encodings.
struct Input {
    std::string_view bytes;
    std::u16string_view units;
    bool isAscii;

    std::string text(const NSRange& range) const {
        if (range.location == NSNotFound)
            return {};
        if (isAscii)
            return std::string(bytes.substr(range.location, range.length));
        return utf8(units.substr(range.location, range.length));
    }
};

}  // namespace

std::shared_ptr<Regex> Regex::create(std::string pattern, Options options) {
    return std::shared_ptr<Regex>(new Regex(std::move(pattern), options));
}

Regex::Regex(std::string pattern, Options options)
    : _pattern(std::move(pattern)), _options(options) {}

void Regex::setPattern(std::string pattern) {
    if (pattern == _pattern)
        return;
    _pattern = std::move(pattern);
    _compiled.reset();
}

void Regex::setOptions(Options options) {
    if (options == _options)
        return;
    _options = options;
    _compiled.reset();
}

NSRegularExpression& Regex::compiled() {
    if (!_compiled) {
        try {
            _compiled.emplace(_pattern, _options);
        } catch (const RegularExpressionError& error) {
            fatalError(error.what());
        }
    }
    return *_compiled;
}

bool Regex::match(std::string_view input, NSMatchingOptions options) {
    NSRegularExpression& expression = compiled();
    const bool isAscii = convertToUtf16(input, units);
    const Input searched{input, units, isAscii};

    Matches found;  // not at once into the last ones, which the input may be a part of
    const auto keep = [&](std::span<const NSRange> ranges) {
        Groups& groups = found.emplace_back();
        groups.reserve(ranges.size());
        for (const NSRange& range : ranges)
            groups.push_back(searched.text(range));
    };
    _reachedLimit = !expression.enumerateMatches(units, options, _timeLimit, keep);
    if (_reachedLimit)
        found.clear();
    _m = std::move(found);
    return !_m.empty();
}

std::optional<Regex::Matches> Regex::matches(std::string_view input, NSMatchingOptions options) {
    return match(input, options) ? std::optional(_m) : std::nullopt;
}

bool match(std::string_view text, Regex& regex) { return regex.match(text); }

std::optional<Regex::Matches> matches(std::string_view text, Regex& regex) {
    return regex.matches(text);
}

}  // namespace quorin
