#include "quorin/svg/reading/SvgScanner.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "quorin/platform/values/NumberReading.h"

namespace quorin {
namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isWordCharacter(char c) {
    return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '-' || c == '_';
}

}  // namespace

std::string_view trimmedSvgSpace(std::string_view text) {
    while (!text.empty() && isSvgSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isSvgSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

bool equalsIgnoringCase(std::string_view text, std::string_view lower) {
    return std::equal(text.begin(), text.end(), lower.begin(), lower.end(), [](char c, char l) {
        return (c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c) == l;
    });
}

void SvgScanner::skipSpace() {
    while (!isAtEnd() && isSvgSpace(text[position]))
        ++position;
}

bool SvgScanner::skipCommaSpace() {
    skipSpace();
    if (!take(','))
        return false;
    skipSpace();
    return true;
}

bool SvgScanner::take(char c) {
    if (isAtEnd() || text[position] != c)
        return false;
    ++position;
    return true;
}

std::optional<CGFloat> SvgScanner::number() {
    const std::string_view here = rest();
    const bool hasSign = !here.empty() && (here[0] == '+' || here[0] == '-');
    CGFloat value = 0;
    const std::size_t size =
        readDecimal(here.substr(hasSign ? 1 : 0), std::chars_format::general, value);
    if (size == 0 || std::isinf(value))
        return std::nullopt;
    position += size + (hasSign ? 1 : 0);
    return here[0] == '-' ? -value : value;
}

std::optional<bool> SvgScanner::flag() {
    const char c = peek();
    if (c != '0' && c != '1')
        return std::nullopt;
    ++position;
    return c == '1';
}

std::string_view SvgScanner::word() {
    const std::size_t start = position;
    while (!isAtEnd() && isWordCharacter(text[position]))
        ++position;
    return text.substr(start, position - start);
}

}  // namespace quorin
