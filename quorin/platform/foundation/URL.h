#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorin {

/// The place of a file or of something on the net: `scheme://authority/path?query#fragment`, of
/// which all but the path may be absent. It is kept as it was written, so that it prints as it was
/// read.
class URL {
public:
    /// Cuts the text at its delimiters (RFC 3986, appendix B). Nothing for an empty text, for
    /// characters that no URL has (blanks, control characters, quotes, all beyond ASCII), for a `%`
    /// without two hexadecimal digits and for an escape of the byte 0, which no name of a file has,
    /// in front of the query.
    static std::optional<URL> parse(std::string_view text);
    /// The file at a path, whose bytes may be anything. One that does not start at the root counts
    /// from the current folder.
    static URL fileURL(std::string_view path);

    std::string absoluteString() const;

    const std::optional<std::string>& scheme() const { return _scheme; }
    /// Host and port, as written.
    const std::optional<std::string>& authority() const { return _authority; }
    /// The path without escapes: the name of the file, if it is one.
    std::string path() const;
    /// As written, without its `?`.
    const std::optional<std::string>& query() const { return _query; }
    const std::optional<std::string>& fragment() const { return _fragment; }

    bool isFileURL() const;
    /// The components of the path, each without escapes; see `pathComponents`. A slash that was
    /// written as an escape separates nothing.
    std::vector<std::string> pathComponents() const;

    /// With a query in place of the one that is there, or none. Characters that no query has are
    /// written as escapes; escapes stay as they are.
    URL withQuery(const std::optional<std::string>& query) const;

    /// Letter by letter.
    friend bool operator==(const URL&, const URL&) = default;

private:
    URL() = default;

    std::optional<std::string> _scheme, _authority;
    std::string escapedPath;
    std::optional<std::string> _query, _fragment;
};

}  // namespace quorin
