#include "quorin/platform/foundation/JSONDecoder.h"

#include <simdjson.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <limits>
#include <memory>
#include <new>
#include <span>
#include <string>
#include <vector>

#include "quorin/platform/foundation/CodingPath.h"
#include "quorin/platform/foundation/JSONSyntax.h"
#include "quorin/platform/foundation/PageAdvice.h"

namespace quorin {
namespace {

using simdjson::dom::element;
using simdjson::dom::element_type;
using Kind = DecodingError::Kind;

[[noreturn]] void mismatch(const CodingPath& place, std::string_view reason) {
    throw DecodingError(Kind::typeMismatch, place.describe(reason));
}
[[noreturn]] void corruptedValue(const CodingPath& place, std::string_view reason) {
    throw DecodingError(Kind::valueCorrupted, place.describe(reason));
}

simdjson::dom::array listOf(const element& value, const CodingPath& place) {
    simdjson::dom::array list;
    if (value.get(list) != simdjson::SUCCESS)
        mismatch(place, "not a list");
    return list;
}

std::size_t countOf(const simdjson::dom::array& list) {
    constexpr std::size_t countsEndHere = 0xFFFFFF;  // the reader keeps only 24 bits
    const std::size_t count = list.size();
    if (count < countsEndHere)
        return count;
    return static_cast<std::size_t>(std::distance(list.begin(), list.end()));
}

std::optional<CGFloat> nonFiniteFromText(const element& value) {
    std::string_view text;
    if (value.get(text) != simdjson::SUCCESS)
        return std::nullopt;
    if (text == "inf")
        return std::numeric_limits<CGFloat>::infinity();
    if (text == "-inf")
        return -std::numeric_limits<CGFloat>::infinity();
    if (text == "nan")
        return std::numeric_limits<CGFloat>::quiet_NaN();
    return std::nullopt;
}

std::int64_t integerOf(const element& value, const CodingPath& place) {
    std::int64_t integer = 0;
    CGFloat number = 0;
    if (value.get(integer) == simdjson::SUCCESS)
        return integer;
    if (value.get(number) != simdjson::SUCCESS || number != std::trunc(number))
        mismatch(place, "not an integer");
    constexpr CGFloat bound = 9223372036854775808.0;  // 2^63
    if (std::abs(number) >= bound)
        corruptedValue(place, "an integer beyond 64 bits");
    return static_cast<std::int64_t>(number);
}

/// What all records of one text share.
struct Reading {
    struct Field {
        std::string_view key;
        element value;
    };

    const JSONDecoder::Options& options;
    /// The fields of the records open at the moment, the inner records' after the outer ones'.
    std::vector<Field> fields;
};

class RecordReader final : public Decoder {
public:
    RecordReader(Reading& whole, const element& value, const CodingPath& place)
        : reading(whole), path(place), begin(whole.fields.size()) {
        simdjson::dom::object record;
        if (value.get(record) != simdjson::SUCCESS)
            mismatch(path, "not a record");
        for (const auto field : record)
            reading.fields.push_back({field.key, field.value});
        end = reading.fields.size();
    }
    RecordReader(const RecordReader&) = delete;
    RecordReader& operator=(const RecordReader&) = delete;
    ~RecordReader() override { reading.fields.resize(begin); }

    bool contains(std::string_view key) override { return find(key) != nullptr; }

    bool decodeBool(std::string_view key) override {
        bool result = false;
        if (valueOf(key).get(result) != simdjson::SUCCESS)
            mismatch(at(key), "not a Boolean");
        return result;
    }
    std::int64_t decodeInt(std::string_view key) override {
        return integerOf(valueOf(key), at(key));
    }
    CGFloat decodeNumber(std::string_view key) override { return number(valueOf(key), at(key)); }
    std::string decodeText(std::string_view key) override {
        std::string_view result;
        if (valueOf(key).get(result) != simdjson::SUCCESS)
            mismatch(at(key), "not a text");
        return std::string(result);
    }

    CGPoint decodePoint(std::string_view key) override {
        const auto [x, y] = numbers<2>(valueOf(key), at(key));
        return {x, y};
    }
    CGSize decodeSize(std::string_view key) override {
        const auto [width, height] = numbers<2>(valueOf(key), at(key));
        return {width, height};
    }
    CGVector decodeVector(std::string_view key) override {
        const auto [dx, dy] = numbers<2>(valueOf(key), at(key));
        return {dx, dy};
    }
    CGRect decodeRect(std::string_view key) override {
        const CodingPath place = at(key);
        std::array<std::array<CGFloat, 2>, 2> pairs{};
        forEachOf<2>(valueOf(key), place, [&](const element& pair, std::size_t i) {
            pairs[i] = numbers<2>(pair, {&place, {}, i});
        });
        return {{pairs[0][0], pairs[0][1]}, {pairs[1][0], pairs[1][1]}};
    }
    CGAffineTransform decodeTransform(std::string_view key) override {
        const auto [a, b, c, d, tx, ty] = numbers<6>(valueOf(key), at(key));
        return {a, b, c, d, tx, ty};
    }
    std::vector<CGFloat> decodeNumbers(std::string_view key) override {
        const CodingPath place = at(key);
        std::vector<CGFloat> result;
        for (const element value : listOf(valueOf(key), place))
            result.push_back(number(value, {&place, {}, result.size()}));
        return result;
    }

    void decodeRecord(std::string_view key, FunctionRef<void(Decoder&)> body) override {
        const CodingPath place = at(key);
        RecordReader record(reading, valueOf(key), place);
        body(record);
    }
    std::size_t recordCount(std::string_view key) override {
        return countOf(listOf(valueOf(key), at(key)));
    }
    void decodeRecords(std::string_view key,
                       FunctionRef<void(Decoder&, std::size_t)> body) override {
        records(reading, valueOf(key), at(key), body);
    }

    void corrupted(std::string_view key, std::string_view why) override {
        corruptedValue(at(key), why);
    }

    /// The records of a list; `place` gets the index of each.
    static void records(Reading& whole, const element& value, CodingPath place,
                        FunctionRef<void(Decoder&, std::size_t)> body) {
        const simdjson::dom::array list = listOf(value, place);
        std::size_t index = 0;
        for (const element item : list) {
            place.index = index;
            RecordReader record(whole, item, place);
            body(record, index++);
        }
    }

private:
    CodingPath at(std::string_view key) const { return {&path, key, std::nullopt}; }

    /// From the back, so that of equal keys the last one counts.
    const element* find(std::string_view key) const {
        for (std::size_t i = end; i-- > begin;)
            if (reading.fields[i].key == key)
                return &reading.fields[i].value;
        return nullptr;
    }

    element valueOf(std::string_view key) const {
        if (const element* const value = find(key))
            return *value;
        throw DecodingError(Kind::keyNotFound, at(key).describe("key not found"));
    }

    CGFloat number(const element& value, const CodingPath& place) const {
        CGFloat result = 0;
        if (value.get(result) == simdjson::SUCCESS)
            return result;
        if (reading.options.nonFiniteAsTexts)
            if (const auto nonFinite = nonFiniteFromText(value))
                return *nonFinite;
        mismatch(place, "not a number");
    }

    /// Calls `body` with each value of a list that has to hold exactly `count`.
    template <std::size_t count, typename Body>
    void forEachOf(const element& value, const CodingPath& place, const Body& body) const {
        const simdjson::dom::array list = listOf(value, place);
        if (list.size() != count)
            corruptedValue(place, std::to_string(countOf(list)) + " elements instead of " +
                                      std::to_string(count));
        std::size_t index = 0;
        for (const element item : list)
            body(item, index++);
    }

    template <std::size_t count>
    std::array<CGFloat, count> numbers(const element& value, const CodingPath& place) const {
        std::array<CGFloat, count> result{};
        forEachOf<count>(value, place, [&](const element& item, std::size_t i) {
            result[i] = number(item, {&place, {}, i});
        });
        return result;
    }

    Reading& reading;
    const CodingPath& path;
    std::size_t begin, end = 0;
};

/// The fast reader's memory: the text once more with the padding it wants, where the tokens start,
/// and the values. Kept together to be advised on, which `simdjson::dom::parser` does not allow.
class ParsedText {
public:
    /// Reads `text`; afterwards `root()` stands on it unless the answer is an error.
    simdjson::error_code parse(std::string_view text, std::size_t maximumDepth) {
        if (const auto error = allocate(text.size(), maximumDepth))
            return error;
        std::memcpy(padded.get(), text.data(), text.size());
        std::memset(padded.get() + text.size(), ' ', simdjson::SIMDJSON_PADDING);
        return parser->parse(padded.get(), text.size(), document);
    }
    element root() const { return document.root(); }

private:
    simdjson::error_code allocate(std::size_t size, std::size_t maximumDepth) {
        const std::size_t capacity = std::max(size, simdjson::dom::MINIMAL_DOCUMENT_CAPACITY);
        // The parser counts the text itself as a level.
        if (const auto error =
                simdjson::get_active_implementation()->create_dom_parser_implementation(
                    capacity, maximumDepth + 1, parser))
            return error;
        if (const auto error = document.allocate(capacity))
            return error;
        const std::size_t paddedSize = size + simdjson::SIMDJSON_PADDING;
        padded = std::make_unique_for_overwrite<std::uint8_t[]>(paddedSize);
        adviseHugePages(padded.get(), paddedSize);
        adviseHugePages(parser->structural_indexes.get(), capacity * sizeof(std::uint32_t));
        adviseHugePages(document.tape.get(), capacity * sizeof(std::uint64_t));
        adviseHugePages(document.string_buf.get(), capacity);
        return simdjson::SUCCESS;
    }

    std::unique_ptr<std::uint8_t[]> padded;
    std::unique_ptr<simdjson::internal::dom_parser_implementation> parser;
    simdjson::dom::document document;
};

[[noreturn]] void throwSyntaxError(std::string_view text, std::size_t maximumDepth,
                                   simdjson::error_code code) {
    const auto error = findJSONSyntaxError(text, maximumDepth);
    throw DecodingError(Kind::valueCorrupted,
                        error ? describePlace(text, error->offset) + ": " + error->reason
                              : simdjson::error_message(code));
}

std::string_view withoutByteOrderMark(std::string_view text) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    return text.substr(text.starts_with(mark) ? mark.size() : 0);
}

void parseOrThrow(ParsedText& parsed, std::string_view text, const JSONDecoder::Options& options) {
    if (text.size() > options.maximumTextSize)
        throw DecodingError(Kind::valueCorrupted, "text of " + std::to_string(text.size()) +
                                                      " bytes, the limit is " +
                                                      std::to_string(options.maximumTextSize));
    text = withoutByteOrderMark(text);
    const std::size_t maximumDepth = std::min<std::size_t>(options.maximumDepth, 1'000'000);

    // The fast reader has neither -0 nor integers beyond 64 bits; both are rare enough to read
    // twice.
    simdjson::error_code error = simdjson::NUMBER_ERROR;
    if (!hasNegativeZeroIntegers(text))
        error = parsed.parse(text, maximumDepth);
    if (error == simdjson::NUMBER_ERROR)
        error = parsed.parse(spellingOutDoubles(text), maximumDepth);

    if (error == simdjson::MEMALLOC)
        throw std::bad_alloc();
    if (error != simdjson::SUCCESS)
        throwSyntaxError(text, maximumDepth, error);
}

}  // namespace

void JSONDecoder::decode(std::string_view text, FunctionRef<void(Decoder&)> body) const {
    ParsedText parsed;
    parseOrThrow(parsed, text, options);
    Reading reading{options, {}};
    const CodingPath outermost;
    RecordReader record(reading, parsed.root(), outermost);
    body(record);
}

void JSONDecoder::decodeRecords(std::string_view text,
                                FunctionRef<void(Decoder&, std::size_t)> body) const {
    ParsedText parsed;
    parseOrThrow(parsed, text, options);
    Reading reading{options, {}};
    const CodingPath outermost;
    RecordReader::records(reading, parsed.root(), {&outermost, {}, std::nullopt}, body);
}

}  // namespace quorin
