#pragma once

#include <cstddef>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "quorin/platform/values/FunctionRef.h"
#include "quorin/svg/SvgReader.h"
#include "quorin/svg/reading/SvgEntities.h"
#include "quorin/svg/reading/SvgMessages.h"

namespace quorin {

/// An attribute's value, or the text inside an element, and where it stands. Lives as long as its
/// document.
struct SvgValue {
    bool exists = false;
    std::string_view text;
    std::size_t offset = 0;  ///< bytes from the start of the document

    explicit operator bool() const { return exists; }
};

/// The elements of an SVG text. Elements of other vocabularies, as editors leave them, have no
/// name here.
///
/// The whole text has been checked against the limits of depth and number of elements, so those
/// who walk it can rely on them.
class SvgDocument {
public:
    /// Throws `SvgError`.
    SvgDocument(std::string_view text, std::string_view fileName, const SvgLimits& limits);
    SvgDocument(const SvgDocument&) = delete;
    SvgDocument& operator=(const SvgDocument&) = delete;

    pugi::xml_node root() const { return document.document_element(); }
    /// The first element with that id, or no node.
    pugi::xml_node elementWithId(std::string_view id) const;
    /// The texts of all `style` elements for screens, in order.
    const std::vector<SvgValue>& styleSheets() const { return _styleSheets; }

    /// The element's name without a prefix; empty for what is not an SVG element.
    std::string_view name(pugi::xml_node node) const;
    SvgValue value(pugi::xml_attribute attribute);
    SvgValue attribute(pugi::xml_node node, const char* name);
    /// The id that `href`, with any prefix or none, refers to; empty unless in this document.
    SvgValue reference(pugi::xml_node node);

    std::size_t offset(pugi::xml_node node) const;
    /// Where the byte `index` of a value stands, as near as entities in the value let it be told.
    std::size_t offset(const SvgValue& value, std::size_t index) const;

    SvgMessages& messages() { return _messages; }

private:
    void requireXml() const;
    void parse(const SvgLimits& limits);
    void requireSvg();
    void collect(const SvgLimits& limits);
    void collectStyleSheet(pugi::xml_node style);

    std::string source;  // as it came, for places and lines
    std::string buffer;  // what the parser works in
    SvgMessages _messages;
    SvgEntities entities;
    pugi::xml_document document;
    std::vector<std::string> prefixes;  // that mean SVG, with their colon
    std::unordered_map<std::string_view, pugi::xml_node> elements;
    std::vector<SvgValue> _styleSheets;
};

}  // namespace quorin
