#include "quorin/platform/foundation/JSONDecoder.h"

#include <simdjson.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <limits>
#include <span>
#include <string>
#include <vector>

#include "quorin/platform/foundation/CodingPath.h"
#include "quorin/platform/foundation/json/ParsedJSON.h"

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

}  // namespace

void JSONDecoder::decode(std::string_view text, FunctionRef<void(Decoder&)> body) const {
    const ParsedJSON parsed(text, options);
    Reading reading{options, {}};
    const CodingPath outermost;
    RecordReader record(reading, parsed.root(), outermost);
    body(record);
}

void JSONDecoder::decodeRecords(std::string_view text,
                                FunctionRef<void(Decoder&, std::size_t)> body) const {
    const ParsedJSON parsed(text, options);
    Reading reading{options, {}};
    const CodingPath outermost;
    RecordReader::records(reading, parsed.root(), {&outermost, {}, std::nullopt}, body);
}

}  // namespace quorin
