#include "quorin/svg/reading/SvgText.h"

#include <algorithm>
#include <cstdint>

#include "quorin/platform/foundation/UTF8.h"

namespace quorin {
namespace {

constexpr char32_t replacement = 0xfffd;

void append(std::string& text, char32_t code) {
    const auto byte = [&](char32_t bits) { text += static_cast<char>(bits); };
    if (code < 0x80) {
        byte(code);
    } else if (code < 0x800) {
        byte(0xc0 | code >> 6);
        byte(0x80 | (code & 0x3f));
    } else if (code < 0x10000) {
        byte(0xe0 | code >> 12);
        byte(0x80 | (code >> 6 & 0x3f));
        byte(0x80 | (code & 0x3f));
    } else {
        byte(0xf0 | code >> 18);
        byte(0x80 | (code >> 12 & 0x3f));
        byte(0x80 | (code >> 6 & 0x3f));
        byte(0x80 | (code & 0x3f));
    }
}

/// The 16-bit units of UTF-16 in either byte order.
class Utf16Units {
public:
    Utf16Units(std::string_view bytes, bool bigEndian) : text(bytes), isBigEndian(bigEndian) {}

    std::size_t count() const { return text.size() / 2; }
    char32_t operator[](std::size_t index) const {
        const char32_t first = static_cast<unsigned char>(text[2 * index]);
        const char32_t second = static_cast<unsigned char>(text[2 * index + 1]);
        return isBigEndian ? first << 8 | second : second << 8 | first;
    }

private:
    std::string_view text;
    bool isBigEndian;
};

std::string utf8OfUtf16(const Utf16Units& units) {
    const auto isHigh = [](char32_t unit) { return unit >= 0xd800 && unit < 0xdc00; };
    const auto isLow = [](char32_t unit) { return unit >= 0xdc00 && unit < 0xe000; };
    std::string result;
    result.reserve(units.count());
    for (std::size_t i = 0; i < units.count(); ++i) {
        const char32_t unit = units[i];
        if (isHigh(unit) && i + 1 < units.count() && isLow(units[i + 1]))
            append(result, 0x10000 + ((unit - 0xd800) << 10) + (units[++i] - 0xdc00));
        else
            append(result, isHigh(unit) || isLow(unit) ? replacement : unit);
    }
    return result;
}

std::string utf8OfLatin1(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (const char c : text)
        append(result, static_cast<unsigned char>(c));
    return result;
}

/// The encoding that the XML declaration names, in small letters.
std::string declaredEncoding(std::string_view text) {
    if (!text.starts_with("<?xml"))
        return {};
    const std::string_view declaration = text.substr(0, std::min(text.find("?>"), text.size()));
    constexpr std::string_view key = "encoding";
    const std::size_t keyAt = declaration.find(key);
    if (keyAt == std::string_view::npos)
        return {};
    const std::size_t open = declaration.find_first_of("\"'", keyAt + key.size());
    if (open == std::string_view::npos)
        return {};
    std::string name(
        declaration.substr(open + 1, declaration.find(declaration[open], open + 1) - open - 1));
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return name;
}

}  // namespace

std::string utf8SvgText(std::string_view text) {
    using namespace std::string_view_literals;
    if (text.starts_with("\xff\xfe"))
        return utf8OfUtf16({text, false});
    if (text.starts_with("\xfe\xff"))
        return utf8OfUtf16({text, true});
    if (text.starts_with("<\0"sv))
        return utf8OfUtf16({text, false});
    if (text.starts_with("\0<"sv))
        return utf8OfUtf16({text, true});
    const std::string encoding = declaredEncoding(text);
    if (encoding == "iso-8859-1" || encoding == "latin1")
        return utf8OfLatin1(text);
    return std::string(text);
}

std::string repairedUtf8(std::string_view text) {
    std::string result;
    for (;;) {
        const std::size_t valid = utf8ValidPrefix(text);
        result += text.substr(0, valid);
        if (valid == text.size())
            return result;
        append(result, replacement);
        text.remove_prefix(valid + 1);
    }
}

SvgLines::SvgLines(std::string_view text) {
    for (std::size_t at = text.find('\n'); at != std::string_view::npos;
         at = text.find('\n', at + 1))
        ends.push_back(at);
}

std::size_t SvgLines::lineOf(std::size_t offset) const {
    return static_cast<std::size_t>(std::lower_bound(ends.begin(), ends.end(), offset) -
                                    ends.begin()) +
           1;
}

SvgElementCount countElements(std::string_view text, std::size_t limit) {
    SvgElementCount result;
    const auto skipTo = [&](std::string_view end) {
        result.offset = std::min(text.find(end, result.offset), text.size());
    };
    for (skipTo("<"); result.offset < text.size(); skipTo("<")) {
        const std::string_view here = text.substr(result.offset);
        const char next = here.size() > 1 ? here[1] : '/';
        if (next == '!' && here.starts_with("<!--"))
            skipTo("-->");
        else if (next == '!' && here.starts_with("<![CDATA["))
            skipTo("]]>");
        else if (next != '/' && next != '!' && next != '?' && ++result.count > limit)
            return result;
        ++result.offset;
    }
    return result;
}

}  // namespace quorin
