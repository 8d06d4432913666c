#include "quorin/extensions/URLExtension.h"

#include <algorithm>

#include "quorin/platform/foundation/PercentEncoding.h"
#include "quorin/platform/foundation/UTF16.h"

namespace quorin {
namespace {

/// Takes the text up to the next delimiter off `text`, and the delimiter.
std::string_view cutUpTo(std::string_view& text, char delimiter) {
    const std::size_t end = std::min(text.find(delimiter), text.size());
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return part;
}

std::string decodedText(std::string_view text) { return utf8(utf16(percentDecoded(text))); }

/// `plain` are the characters that need no escape besides letters and digits.
std::string joined(const QueryMap& map, std::string_view plain) {
    std::string text;
    for (const auto& [name, value] : map) {
        if (!text.empty())
            text += '&';
        text.append(percentEncoded(name, plain)).append("=").append(percentEncoded(value, plain));
    }
    return text;
}

}  // namespace

std::optional<std::vector<std::string>> relativeCloudPathComponents(const URL& url) {
    const std::vector<std::string> components = url.pathComponents();
    const auto documents = std::find(components.begin(), components.end(), "Documents");
    if (documents == components.end())
        return std::nullopt;
    return std::vector(documents + 1, components.end());
}

bool availableInRelativeCloudPathComponents(const URL& url,
                                            std::span<const std::string> components) {
    const auto own = relativeCloudPathComponents(url);
    return own && std::equal(own->begin(), own->end(), components.begin(), components.end());
}

URL appendingQueryString(const URL& url, std::string_view queryString) {
    if (queryString.empty())
        return url;
    std::string query = url.query().value_or("");
    if (!query.empty())
        query += '&';
    return url.withQuery(query.append(queryString));
}

QueryMap queries(const URL& url) {
    QueryMap map;
    const std::string query = url.query().value_or("");
    for (std::string_view rest = query; !rest.empty();) {
        std::string_view value = cutUpTo(rest, '&');
        if (value.empty())
            continue;
        const std::string_view name = cutUpTo(value, '=');
        map[decodedText(name)] = decodedText(value);
    }
    return map;
}

URL settingQueries(const URL& url, const QueryMap& queries) {
    if (queries.empty())
        return url.withQuery(std::nullopt);
    return url.withQuery(joined(queries, "-._~"));
}

std::string formUrlEncoded(const QueryMap& map) { return joined(map, ""); }

void quorinThumbnail(const URL& url, ThumbnailCallback callback, const ThumbnailOptions& options) {
    if (url.isFileURL())
        quorinThumbnail(url.path(), callback, options);
    else
        callback(std::nullopt, FileError(url.absoluteString(), "is no file"));
}

}  // namespace quorin
