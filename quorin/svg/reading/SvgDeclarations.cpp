#include "quorin/svg/reading/SvgDeclarations.h"

#include <algorithm>

#include "quorin/svg/reading/SvgScanner.h"

namespace quorin {
namespace {

/// Takes "!important" off the end. Whether it was there.
bool takeImportant(std::string_view& value) {
    const std::size_t mark = value.rfind('!');
    if (mark == std::string_view::npos ||
        !equalsIgnoringCase(trimmedSvgSpace(value.substr(mark + 1)), "important"))
        return false;
    value = trimmedSvgSpace(value.substr(0, mark));
    return true;
}

}  // namespace

std::size_t findOutsideQuotes(std::string_view text, std::string_view characters,
                              std::size_t start) {
    char quote = 0;
    std::size_t depth = 0;
    for (std::size_t i = start; i < text.size(); ++i) {
        const char c = text[i];
        if (quote != 0) {
            quote = c == quote ? '\0' : quote;
            continue;
        }
        if (depth == 0 && characters.find(c) != std::string_view::npos)
            return i;
        if (c == '"' || c == '\'')
            quote = c;
        else if (c == '(')
            ++depth;
        else if (c == ')' && depth > 0)
            --depth;
    }
    return text.size();
}

void forEachDeclaration(std::string_view text, FunctionRef<void(const SvgDeclaration&)> body) {
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = findOutsideQuotes(text, ";", start);
        const std::string_view whole = text.substr(start, end - start);
        if (const std::size_t colon = whole.find(':'); colon != std::string_view::npos) {
            SvgDeclaration declaration;
            declaration.property = trimmedSvgSpace(whole.substr(0, colon));
            declaration.value = trimmedSvgSpace(whole.substr(colon + 1));
            declaration.offset = static_cast<std::size_t>(declaration.value.data() - text.data());
            declaration.isImportant = takeImportant(declaration.value);
            body(declaration);
        }
        start = end + 1;
    }
}

std::string withoutCssComments(std::string_view text) {
    std::string result(text);
    for (std::size_t at = result.find("/*"); at != std::string::npos; at = result.find("/*", at)) {
        const std::size_t close = result.find("*/", at + 2);
        const std::size_t end = close == std::string::npos ? result.size() : close + 2;
        std::fill(result.begin() + static_cast<std::ptrdiff_t>(at),
                  result.begin() + static_cast<std::ptrdiff_t>(end), ' ');
    }
    return result;
}

}  // namespace quorin
