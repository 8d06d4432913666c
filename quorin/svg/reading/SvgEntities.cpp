#include "quorin/svg/reading/SvgEntities.h"

#include <algorithm>

#include "quorin/svg/reading/SvgScanner.h"

namespace quorin {
namespace {

/// The part of a document type declaration between the brackets; empty when there is none.
std::string_view internalSubset(std::string_view text) {
    const std::size_t declaration = text.find("<!DOCTYPE");
    if (declaration == std::string_view::npos)
        return {};
    const std::size_t end = text.find_first_of("[>", declaration);
    if (end == std::string_view::npos || text[end] == '>')
        return {};
    return text.substr(end + 1, text.find("]", end) - end - 1);
}

std::string_view takeQuoted(SvgScanner& scanner) {
    const char quote = scanner.peek();
    if (quote != '"' && quote != '\'')
        return {};
    const std::string_view rest = scanner.rest().substr(1);
    const std::size_t length = std::min(rest.find(quote), rest.size());
    scanner.advance(1 + length);
    return rest.substr(0, length);
}

}  // namespace

SvgEntities::SvgEntities(std::string_view text, std::size_t budget) : remaining(budget) {
    constexpr std::string_view keyword = "<!ENTITY";
    std::string_view subset = internalSubset(text);
    for (std::size_t at = subset.find(keyword); at != std::string_view::npos;
         at = subset.find(keyword)) {
        subset.remove_prefix(at + keyword.size());
        SvgScanner scanner(subset);
        scanner.skipSpace();
        const std::string_view name = scanner.word();
        scanner.skipSpace();
        const std::string_view value = takeQuoted(scanner);
        if (!name.empty() && !value.empty())
            entities.emplace(name, value);
    }
}

std::string_view SvgEntities::replaced(std::string_view value) {
    if (entities.empty() || value.find('&') == std::string_view::npos)
        return value;
    if (const auto found = known.find(value.data()); found != known.end())
        return found->second;

    std::string result;
    std::string_view rest = value;
    for (std::size_t at = rest.find('&'); at != std::string_view::npos; at = rest.find('&')) {
        const std::size_t end = rest.find(';', at);
        const auto entity = end == std::string_view::npos
                                ? entities.end()
                                : entities.find(rest.substr(at + 1, end - at - 1));
        const bool isKnown = entity != entities.end();
        const std::string_view replacement = isKnown ? entity->second : rest.substr(at, 1);
        if (at + replacement.size() > remaining)
            return value;
        remaining -= at + replacement.size();
        result.append(rest.substr(0, at)).append(replacement);
        rest.remove_prefix(isKnown ? end + 1 : at + 1);
    }
    result.append(rest);
    return known[value.data()] = results.emplace_back(std::move(result));
}

}  // namespace quorin
