#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "quorin/platform/values/FunctionRef.h"

namespace quorin {

/// `property: value` as it stands in a style, without the space around it.
struct SvgDeclaration {
    std::string_view property, value;
    std::size_t offset = 0;    ///< of the value, from the start of the text
    bool isImportant = false;  ///< "!important" stood behind the value
};

/// Calls `body` with each declaration of the text, which is the inside of a rule's braces or of a
/// style attribute. What has no colon is passed over.
void forEachDeclaration(std::string_view text, FunctionRef<void(const SvgDeclaration&)> body);

/// The text with its comments overwritten by spaces, so that places stay.
std::string withoutCssComments(std::string_view text);

/// Where the first of the characters stands that is neither quoted nor in parentheses; the size of
/// the text when there is none.
std::size_t findOutsideQuotes(std::string_view text, std::string_view characters,
                              std::size_t start = 0);

}  // namespace quorin
