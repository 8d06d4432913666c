#include "quorin/svg/reading/SvgDocument.h"

#include <algorithm>
#include <cstring>

#include "quorin/svg/reading/SvgScanner.h"

namespace quorin {
namespace {

constexpr std::string_view svgNamespace = "http://www.w3.org/2000/svg";
constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";

std::string utf8WithinLimit(std::string_view text, std::string_view fileName,
                            const SvgLimits& limits) {
    if (text.size() > limits.bytes)
        throw SvgError(std::string(fileName), 1,
                       "the text is longer than " + std::to_string(limits.bytes) + " bytes");
    return utf8SvgText(text);
}

std::string_view withoutPrefix(std::string_view name) {
    const std::size_t colon = name.find(':');
    return colon == std::string_view::npos ? name : name.substr(colon + 1);
}

bool isForScreens(std::string_view type, std::string_view media) {
    return (type.empty() || type == "text/css") &&
           (media.empty() || media.find("all") != std::string_view::npos ||
            media.find("screen") != std::string_view::npos);
}

std::string failureText(pugi::xml_parse_status status) {
    switch (status) {
        case pugi::status_bad_start_element:
        case pugi::status_unrecognized_tag:
            return "the start of an element is not XML";
        case pugi::status_bad_attribute:
            return "an attribute is not XML";
        case pugi::status_bad_end_element:
            return "the end of an element is not XML";
        case pugi::status_end_element_mismatch:
            return "an element ends that is not the one that began last";
        case pugi::status_bad_comment:
            return "a comment does not end";
        case pugi::status_bad_cdata:
            return "character data does not end";
        case pugi::status_bad_doctype:
            return "the document type declaration is not XML";
        case pugi::status_no_document_element:
            return "there is no element";
        default:
            return "this is not XML";
    }
}

}  // namespace

SvgDocument::SvgDocument(std::string_view text, std::string_view fileName, const SvgLimits& limits)
    : source(utf8WithinLimit(text, fileName, limits)),
      buffer(source),
      _messages(source, fileName),
      entities(source, limits.bytes) {
    requireXml();
    parse(limits);
    requireSvg();
    collect(limits);
}

void SvgDocument::requireXml() const {
    std::string_view text = source;
    if (text.starts_with(byteOrderMark))
        text.remove_prefix(byteOrderMark.size());
    text = trimmedSvgSpace(text);
    if (text.empty())
        _messages.fail(0, "the text is empty");
    if (text.front() != '<')
        _messages.fail(0, "this is not SVG: it does not begin with '<'");
    const std::size_t zero = source.find('\0');
    if (zero != std::string::npos)
        _messages.fail(zero, "this is not SVG: it holds a zero byte");
}

void SvgDocument::parse(const SvgLimits& limits) {
    // Before anything is built, since an element takes far more memory than its text.
    const SvgElementCount found = countElements(source, limits.elements);
    if (found.count > limits.elements)
        _messages.fail(found.offset,
                       "there are more than " + std::to_string(limits.elements) + " elements");

    const pugi::xml_parse_result result = document.load_buffer_inplace(
        buffer.data(), buffer.size(), pugi::parse_default, pugi::encoding_utf8);
    if (result)
        return;
    const auto offset = static_cast<std::size_t>(std::max<std::ptrdiff_t>(result.offset, 0));
    const std::size_t textEnd = source.find_last_not_of(" \t\r\n") + 1;
    const bool isTruncated = offset + 1 >= textEnd || source[textEnd - 1] != '>';
    if (isTruncated && result.status != pugi::status_no_document_element)
        _messages.fail(textEnd, "the text ends before the last element does");
    _messages.fail(offset, failureText(result.status));
}

void SvgDocument::requireSvg() {
    const std::string_view rootName = root().name();
    if (withoutPrefix(rootName) != "svg")
        _messages.fail(offset(root()),
                       "this is not SVG: its first element is <" + std::string(rootName) + ">");

    constexpr std::string_view declaration = "xmlns:";
    if (rootName.size() > 3)
        prefixes.emplace_back(rootName.substr(0, rootName.size() - 3));
    for (const pugi::xml_attribute attribute : root().attributes()) {
        const std::string_view name = attribute.name();
        if (name.starts_with(declaration) && value(attribute).text == svgNamespace)
            prefixes.push_back(std::string(name.substr(declaration.size())) + ":");
    }
}

void SvgDocument::collect(const SvgLimits& limits) {
    std::size_t depth = 1;
    pugi::xml_node node = root();
    while (node) {
        if (depth > limits.depth && node.type() == pugi::node_element)
            _messages.fail(offset(node),
                           "elements are nested deeper than " + std::to_string(limits.depth));
        if (const SvgValue id = attribute(node, "id"))
            elements.emplace(id.text, node);
        if (name(node) == "style")
            collectStyleSheet(node);

        if (const pugi::xml_node child = node.first_child()) {
            node = child;
            ++depth;
            continue;
        }
        while (node && !node.next_sibling()) {
            node = node == root() ? pugi::xml_node() : node.parent();
            --depth;
        }
        node = node == root() ? pugi::xml_node() : node.next_sibling();
    }
}

void SvgDocument::collectStyleSheet(pugi::xml_node style) {
    if (!isForScreens(attribute(style, "type").text, attribute(style, "media").text))
        return;
    for (const pugi::xml_node child : style.children()) {
        const char* text = child.value();
        if (child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata)
            _styleSheets.push_back({true, text, static_cast<std::size_t>(text - buffer.data())});
    }
}

pugi::xml_node SvgDocument::elementWithId(std::string_view id) const {
    const auto found = elements.find(id);
    return found == elements.end() ? pugi::xml_node() : found->second;
}

std::string_view SvgDocument::name(pugi::xml_node node) const {
    if (node.type() != pugi::node_element)
        return {};
    const std::string_view whole = node.name();
    if (whole.find(':') == std::string_view::npos)
        return whole;
    for (const std::string& prefix : prefixes)
        if (whole.starts_with(prefix))
            return whole.substr(prefix.size());
    return {};
}

SvgValue SvgDocument::value(pugi::xml_attribute attribute) {
    if (!attribute)
        return {};
    const char* text = attribute.value();
    // The parser keeps an empty value outside of the text; the name stands before it.
    const char* place = *text == '\0' ? attribute.name() : text;
    return {true, entities.replaced(text), static_cast<std::size_t>(place - buffer.data())};
}

SvgValue SvgDocument::attribute(pugi::xml_node node, const char* name) {
    return value(node.attribute(name));
}

SvgValue SvgDocument::reference(pugi::xml_node node) {
    SvgValue result = attribute(node, "href");
    for (const pugi::xml_attribute candidate : node.attributes())
        if (!result && withoutPrefix(candidate.name()) == "href")
            result = value(candidate);
    result.text = trimmedSvgSpace(result.text);
    result.text.remove_prefix(result.text.starts_with('#') ? 1 : result.text.size());
    return result;
}

std::size_t SvgDocument::offset(pugi::xml_node node) const {
    // The name begins behind the angle bracket.
    return static_cast<std::size_t>(std::max<std::ptrdiff_t>(node.offset_debug() - 1, 0));
}

std::size_t SvgDocument::offset(const SvgValue& value, std::size_t index) const {
    std::size_t place = value.offset;
    for (; index > 0 && place < source.size(); --index) {
        const std::string_view here = std::string_view(source).substr(place);
        const bool isEntity = here.front() == '&' && here.find(';') != std::string_view::npos;
        place += isEntity ? here.find(';') + 1 : here.starts_with("\r\n") ? 2 : 1;
    }
    return place;
}

}  // namespace quorin
