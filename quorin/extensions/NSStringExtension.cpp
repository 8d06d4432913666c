#include "quorin/extensions/NSStringExtension.h"

#include <algorithm>
#include <unordered_set>

#include "quorin/observation/RegularExpression.h"
#include "quorin/platform/foundation/Hexadecimal.h"
#include "quorin/platform/foundation/UnicodeText.h"

namespace quorin {
namespace {

/// What two names that count as the same have in common.
std::string comparisonKey(std::string_view name) { return composed(lowercased(name)); }

bool endsLine(char32_t codePoint) {
    return (codePoint >= 0x0A && codePoint <= 0x0D) || codePoint == 0x85 || codePoint == 0x2028 ||
           codePoint == 0x2029;
}

/// How many bytes before `end` belong to code points that `isWanted`.
template <typename Predicate>
std::size_t bytesBefore(std::string_view text, std::size_t end, const Predicate& isWanted) {
    std::size_t start = end;
    while (start > 0) {
        const CodePoint last = lastCodePoint(text.substr(0, start));
        if (!isWanted(last.value))
            break;
        start -= last.size;
    }
    return end - start;
}

/// The text without what `\s+\d+$` matches. The expression itself would try each blank of a long
/// run in turn, in time that grows with the square of the run.
std::string withoutTrailingNumber(std::string_view text) {
    // As "$" does, this looks past one line end.
    std::size_t end = text.size();
    if (text.ends_with("\r\n"))
        end -= 2;
    else if (const CodePoint last = lastCodePoint(text); last.size > 0 && endsLine(last.value))
        end -= last.size;

    const std::size_t digits = bytesBefore(text, end, isDecimalDigit);
    const std::size_t blanks = bytesBefore(text, end - digits, isWhiteSpace);
    if (digits == 0 || blanks == 0)
        return std::string(text);
    std::string base(text.substr(0, end - digits - blanks));
    return base.append(text.substr(end));
}

std::string removing(std::string_view text, std::string_view part) {
    std::string rest;
    for (std::size_t at = text.find(part); at != std::string_view::npos; at = text.find(part)) {
        rest.append(text.substr(0, at));
        text.remove_prefix(at + part.size());
    }
    return rest.append(text);
}

std::string numbered(const std::string& base, std::size_t number) {
    std::string name = base;
    return name.append(" ").append(std::to_string(number));
}

}  // namespace

std::string uniqueName(std::string_view text, std::span<const std::string> within) {
    std::unordered_set<std::string> taken;
    for (const std::string& name : within)
        taken.insert(comparisonKey(name));
    if (!taken.contains(comparisonKey(text)))
        return std::string(text);

    // A blank and digits have no case and join nothing, so they can follow what is converted.
    const std::string base = withoutTrailingNumber(text), baseKey = comparisonKey(base);
    std::size_t number = 1;
    while (taken.contains(numbered(baseKey, number)))
        ++number;
    return numbered(base, number);
}

std::string appendingSuffix(std::string_view fileName, std::string_view suffix) {
    std::string name = deletingPathExtension(fileName);
    return name.append("-").append(suffix).append(".").append(pathExtension(fileName));
}

std::optional<std::string> apendingPathExtension(std::string_view path,
                                                 std::string_view pathExtension) {
    return appendingPathExtension(path, pathExtension);
}

std::string deletingScreenPrefix(std::string_view text) {
    return removing(removing(text, "to."), "from.");
}

std::string removingUnsafeFilenameCharacter(std::string_view text) {
    std::string safe(text);
    std::replace_if(
        safe.begin(), safe.end(),
        [](char character) { return character == '\\' || character == '/' || character == ':'; },
        '_');
    return safe;
}

std::string stripCharacters(std::string_view text, std::span<const std::string> in) {
    std::unordered_set<std::string> unwanted;
    for (const std::string& character : in)
        unwanted.insert(composed(character));
    std::string rest;
    forEachCharacter(text, [&](std::string_view character) {
        if (!unwanted.contains(composed(character)))
            rest.append(character);
    });
    return rest;
}

bool isEmailAddress(std::string_view text) {
    const auto regex = Regex::create(R"(^[\w._%+-]+@[\w.-]+\.[\w]{2,}$)");
    const std::optional<Regex::Matches> found = regex->matches(text);
    // "$" also stands before a line end, which is no part of an address. What is no UTF-8 is read
    // as U+FFFD, which is no letter.
    return found && found->front().front().size() == text.size();
}

std::optional<std::vector<std::uint8_t>> hexadecimal(std::string_view text) {
    std::vector<std::uint8_t> bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        int value = hexadecimalValue(text[i]);
        if (value < 0)
            continue;
        if (i + 1 < text.size() && hexadecimalValue(text[i + 1]) >= 0)
            value = value * 16 + hexadecimalValue(text[++i]);
        bytes.push_back(static_cast<std::uint8_t>(value));
    }
    if (bytes.empty())
        return std::nullopt;
    return bytes;
}

}  // namespace quorin
