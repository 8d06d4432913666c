#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "quorin/extensions/DocumentThumbnail.h"
#include "quorin/platform/foundation/URL.h"

namespace quorin {

/// The components of the path behind the first one that is "Documents", of which there may be none.
/// Nothing without such a component.
std::optional<std::vector<std::string>> relativeCloudPathComponents(const URL& url);

/// Whether there is a "Documents" component and exactly these ones follow it.
bool availableInRelativeCloudPathComponents(const URL& url,
                                            std::span<const std::string> components);

/// The URL with the text at the end of its query, behind an "&" where there is something already.
/// An empty text changes nothing. Characters that no query has are written as escapes.
URL appendingQueryString(const URL& url, std::string_view queryString);

using QueryMap = std::map<std::string, std::string>;

/// What the query of a URL says: pairs separated by "&", each a name and, behind its first "=", a
/// value, both without escapes. A name without "=" has an empty value, of repeated names the last
/// one counts, and where nothing stands between two "&" there is no pair. "+" is a plus. Escapes
/// that make no UTF-8 are read as U+FFFD.
QueryMap queries(const URL& url);

/// The URL with a query that reads as `queries`, in the order of the names; without a query when
/// there are none.
URL settingQueries(const URL& url, const QueryMap& queries);

/// "name=value" for each pair, in the order of the names and joined by "&". All but ASCII letters
/// and digits is written as escapes.
std::string formUrlEncoded(const QueryMap& map);

/// The preview of the document at a URL. One that is no file is an error.
void quorinThumbnail(const URL& url, ThumbnailCallback callback,
                     const ThumbnailOptions& options = {});

}  // namespace quorin
