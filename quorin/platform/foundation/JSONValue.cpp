#include "quorin/platform/foundation/JSONValue.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "quorin/platform/foundation/CodingPath.h"
#include "quorin/platform/foundation/UTF8.h"
#include "quorin/platform/foundation/json/JSONOutput.h"
#include "quorin/platform/foundation/json/ParsedJSON.h"

namespace quorin {
namespace {

constexpr std::size_t maximumLevels = 1'024;

[[noreturn]] void refuse(const CodingPath& place, std::string_view reason) {
    throw EncodingError(place.describe(reason));
}

class ValueWriter {
public:
    explicit ValueWriter(const JSONEncoder::Options& how) : options(how) {}

    void write(const Value& value, const CodingPath& place, std::size_t level) {
        if (value.isNothing())
            literal("null");
        else if (const NSNumber* const boxed = value.asNSNumber())
            number(*boxed, place);
        else if (const std::string* const plain = value.asText())
            text(*plain, place);
        else if (const Value::List* const elements = value.asList())
            list(*elements, place, level);
        else if (const Value::Map* const entries = value.asMap())
            map(*entries, place, level);
        else
            refuse(place, "not a value that JSON has");
    }

    std::string take() { return output.take(); }

private:
    void literal(std::string_view characters) {
        output.wroteUpTo(writeLiteral(output.roomFor(characters.size()), characters));
    }

    void text(std::string_view characters, const CodingPath& place) {
        if (!isUtf8(characters))
            refuse(place, "not UTF-8 text");
        output.wroteUpTo(writeQuoted(output.roomFor(roomForQuoted(characters)), characters));
    }

    void number(NSNumber boxed, const CodingPath& place) {
        if (boxed.isBoolean())
            return literal(boxed.boolValue() ? "true" : "false");
        char* const at = output.roomFor(longestNumber);
        if (boxed.isInteger())
            return output.wroteUpTo(
                std::to_chars(at, at + longestNumber, boxed.integerValue()).ptr);
        real(at, boxed.doubleValue(), place);
    }

    void real(char* at, CGFloat value, const CodingPath& place) {
        if (!std::isfinite(value)) {
            if (!options.nonFiniteAsTexts)
                refuse(place, "not a finite number");
            return output.wroteUpTo(writeNonFinite(at, value));
        }
        char* end = writeNumber(at, value);
        // Bare digits would come back as an integer.
        if (std::find_if(at, end, [](char c) { return c == '.' || c == 'e'; }) == end)
            end = writeLiteral(end, ".0");
        output.wroteUpTo(end);
    }

    void list(const Value::List& elements, const CodingPath& place, std::size_t level) {
        output.append('[');
        CodingPath inner = {&place, {}, 0};
        for (std::size_t i = 0; i < elements.size(); ++i) {
            inner.index = i;
            startElement(i == 0, inner, level);
            write(elements[i], inner, level + 1);
        }
        close(']', elements.empty(), level);
    }

    void map(const Value::Map& entries, const CodingPath& place, std::size_t level) {
        output.append('{');
        bool isFirst = true;
        for (const auto& [key, value] : entries) {
            const CodingPath inner = {&place, key, {}};
            startElement(std::exchange(isFirst, false), inner, level);
            text(key, inner);
            literal(options.indentation > 0 ? ": " : ":");
            write(value, inner, level + 1);
        }
        close('}', entries.empty(), level);
    }

    void startElement(bool isFirst, const CodingPath& place, std::size_t level) {
        if (level >= maximumLevels)
            refuse(place, "more than " + std::to_string(maximumLevels) + " levels");
        if (!isFirst)
            output.append(',');
        if (options.indentation > 0)
            output.appendLine((level + 1) * options.indentation);
    }

    void close(char bracket, bool isEmpty, std::size_t level) {
        if (options.indentation > 0 && !isEmpty)
            output.appendLine(level * options.indentation);
        output.append(bracket);
    }

    const JSONEncoder::Options& options;
    JSONOutput output;
};

using simdjson::dom::element;
using simdjson::dom::element_type;

Value valueOf(const element& parsed);

Value listOf(const simdjson::dom::array& elements) {
    Value::List list;
    for (const element each : elements)
        list.push_back(valueOf(each));
    return list;
}

Value mapOf(const simdjson::dom::object& fields) {
    Value::Map map;
    for (const auto field : fields)
        map.insert_or_assign(std::string(field.key), valueOf(field.value));
    return map;
}

Value valueOf(const element& parsed) {
    switch (parsed.type()) {
        case element_type::ARRAY:
            return listOf(simdjson::dom::array(parsed));
        case element_type::OBJECT:
            return mapOf(simdjson::dom::object(parsed));
        case element_type::INT64:
            return std::int64_t(parsed);
        case element_type::UINT64:
            return std::uint64_t(parsed);
        case element_type::DOUBLE:
            return double(parsed);
        case element_type::STRING:
            return std::string_view(parsed);
        case element_type::BOOL:
            return bool(parsed);
        case element_type::NULL_VALUE:
            break;
    }
    return nullptr;
}

}  // namespace

std::string encodeJSONValue(const Value& value, const JSONEncoder::Options& options) {
    ValueWriter writer(options);
    writer.write(value, CodingPath(), 0);
    return writer.take();
}

Value decodeJSONValue(std::string_view text, const JSONDecoder::Options& options) {
    JSONDecoder::Options bounded = options;
    bounded.maximumDepth = std::min(options.maximumDepth, maximumLevels);
    return valueOf(ParsedJSON(text, bounded).root());
}

}  // namespace quorin
