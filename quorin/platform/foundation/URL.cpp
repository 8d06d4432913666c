#include "quorin/platform/foundation/URL.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

#include "quorin/platform/foundation/PathText.h"
#include "quorin/platform/foundation/PercentEncoding.h"

namespace quorin {
namespace {

constexpr auto npos = std::string_view::npos;
constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view digits = "0123456789";
constexpr std::string_view unreservedMarks = "-._~";
constexpr std::string_view pathMarks = "-._~!$&'()*+,;=:@/";
constexpr std::string_view queryMarks = "-._~!$&'()*+,;=:@/?";

bool isOf(std::string_view characters, char character) {
    return characters.find(character) != npos;
}

bool isWellFormed(std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%') {
            if (!startsWithEscape(text.substr(i)))
                return false;
        } else if (!isOf(letters, text[i]) && !isOf(digits, text[i]) &&
                   !isOf(unreservedMarks, text[i]) && !isOf(":/?#[]@!$&'()*+,;=", text[i])) {
            return false;
        }
    }
    return true;
}

bool isScheme(std::string_view text) {
    return !text.empty() && isOf(letters, text.front()) &&
           std::all_of(text.begin(), text.end(), [](char character) {
               return isOf(letters, character) || isOf(digits, character) || isOf("+-.", character);
           });
}

/// Takes what stands behind the first `delimiter` off the text, and the delimiter.
std::optional<std::string> cutBehind(std::string_view& text, char delimiter) {
    const std::size_t at = text.find(delimiter);
    if (at == npos)
        return std::nullopt;
    std::string rest(text.substr(at + 1));
    text = text.substr(0, at);
    return rest;
}

/// Without a current folder, since somebody removed it, paths start at the root.
std::string currentFolder() {
    const std::unique_ptr<char, decltype(&std::free)> folder(getcwd(nullptr, 0), &std::free);
    return folder ? std::string(folder.get()) : std::string("/");
}

}  // namespace

std::optional<URL> URL::parse(std::string_view text) {
    if (text.empty() || !isWellFormed(text))
        return std::nullopt;
    URL url;
    url._fragment = cutBehind(text, '#');
    if (url._fragment && isOf(*url._fragment, '#'))
        return std::nullopt;
    url._query = cutBehind(text, '?');
    if (text.find("%00") != npos)
        return std::nullopt;

    if (const std::size_t colon = text.find(':'); colon < text.find('/')) {
        if (!isScheme(text.substr(0, colon)))
            return std::nullopt;
        url._scheme = std::string(text.substr(0, colon));
        text.remove_prefix(colon + 1);
    }
    if (text.starts_with("//")) {
        const std::size_t end = std::min(text.find('/', 2), text.size());
        url._authority = std::string(text.substr(2, end - 2));
        text.remove_prefix(end);
    }
    url.escapedPath = std::string(text);
    return url;
}

URL URL::fileURL(std::string_view path) {
    URL url;
    url._scheme = "file";
    url._authority = "";
    url.escapedPath =
        path.starts_with('/')
            ? percentEncoded(path, pathMarks)
            : percentEncoded(appendingPathComponent(currentFolder(), path), pathMarks);
    return url;
}

std::string URL::absoluteString() const {
    std::string text;
    if (_scheme)
        text.append(*_scheme).append(":");
    if (_authority)
        text.append("//").append(*_authority);
    text.append(escapedPath);
    if (_query)
        text.append("?").append(*_query);
    if (_fragment)
        text.append("#").append(*_fragment);
    return text;
}

std::string URL::path() const { return percentDecoded(escapedPath); }

bool URL::isFileURL() const {
    constexpr std::string_view name = "file";
    return _scheme && std::equal(_scheme->begin(), _scheme->end(), name.begin(), name.end(),
                                 [](char a, char b) { return (a | 0x20) == b; });
}

std::vector<std::string> URL::pathComponents() const {
    std::vector<std::string> components = quorin::pathComponents(escapedPath);
    for (std::string& component : components)
        component = percentDecoded(component);
    return components;
}

URL URL::withQuery(const std::optional<std::string>& query) const {
    URL changed = *this;
    changed._query.reset();
    if (query)
        changed._query = percentCompleted(*query, queryMarks);
    return changed;
}

}  // namespace quorin
