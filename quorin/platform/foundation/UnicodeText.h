#pragma once

#include <string>
#include <string_view>

#include "quorin/platform/values/FunctionRef.h"

/// What Unicode says of texts, in no language in particular. What is no UTF-8 is read as U+FFFD.
namespace quorin {

/// By the full rules: `İ` becomes two characters, a sigma at the end of a word a final one.
std::string lowercased(std::string_view text);

/// In normalization form C: texts that look the same however an accent was typed are the same.
std::string composed(std::string_view text);

/// Calls `body` with each character as a reader counts them: a letter with its accents, a line end
/// of two bytes, a flag (the extended grapheme clusters of Unicode). Their bytes are as they stand.
void forEachCharacter(std::string_view text, FunctionRef<void(std::string_view)> body);

bool isWhiteSpace(char32_t codePoint);
/// A decimal digit of any script.
bool isDecimalDigit(char32_t codePoint);

/// The code point that the text ends with, and its size in bytes; U+FFFD and 1 for a byte that ends
/// none. Of an empty text 0 and 0.
struct CodePoint {
    char32_t value;
    std::size_t size;
};
CodePoint lastCodePoint(std::string_view text);

}  // namespace quorin
