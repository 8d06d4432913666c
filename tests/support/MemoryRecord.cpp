#include "tests/support/MemoryRecord.h"

#include <algorithm>
#include <stdexcept>

namespace quorin::test {
namespace {

auto placeOf(auto& entries, std::string_view key) {
    return std::find_if(entries.begin(), entries.end(),
                        [key](const auto& entry) { return entry.first == key; });
}

}  // namespace

std::vector<std::string> MemoryRecord::keys() const {
    std::vector<std::string> keys;
    for (const auto& [key, entry] : entries)
        keys.push_back(key);
    return keys;
}

const MemoryRecord::Entry* MemoryRecord::find(std::string_view key) const {
    const auto place = placeOf(entries, key);
    return place == entries.end() ? nullptr : &place->second;
}

MemoryRecord::Entry& MemoryRecord::operator[](std::string_view key) {
    const auto place = placeOf(entries, key);
    if (place == entries.end())
        throw std::out_of_range("no entry " + std::string(key));
    return place->second;
}

void MemoryRecord::remove(std::string_view key) {
    std::erase_if(entries, [key](const auto& entry) { return entry.first == key; });
}

void MemoryEncoder::add(std::string_view key, MemoryRecord::Entry entry) {
    record.entries.emplace_back(key, std::move(entry));
}

void MemoryEncoder::encodeBool(std::string_view key, bool value) { add(key, value); }

void MemoryEncoder::encodeInt(std::string_view key, std::int64_t value) { add(key, value); }

void MemoryEncoder::encodeNumber(std::string_view key, CGFloat value) { add(key, value); }

void MemoryEncoder::encodeText(std::string_view key, std::string_view value) {
    add(key, std::string(value));
}

void MemoryEncoder::encodePoint(std::string_view key, CGPoint value) {
    add(key, MemoryRecord::Numbers{value.x, value.y});
}

void MemoryEncoder::encodeSize(std::string_view key, CGSize value) {
    add(key, MemoryRecord::Numbers{value.width, value.height});
}

void MemoryEncoder::encodeVector(std::string_view key, CGVector value) {
    add(key, MemoryRecord::Numbers{value.dx, value.dy});
}

void MemoryEncoder::encodeRect(std::string_view key, const CGRect& value) {
    add(key,
        MemoryRecord::Numbers{value.origin.x, value.origin.y, value.size.width, value.size.height});
}

void MemoryEncoder::encodeTransform(std::string_view key, const CGAffineTransform& value) {
    add(key, MemoryRecord::Numbers{value.a, value.b, value.c, value.d, value.tx, value.ty});
}

void MemoryEncoder::encodeNumbers(std::string_view key, std::span<const CGFloat> values) {
    add(key, MemoryRecord::Numbers(values.begin(), values.end()));
}

void MemoryEncoder::encodeRecord(std::string_view key, FunctionRef<void(Encoder&)> body) {
    encodeRecords(key, 1, [body](Encoder& encoder, std::size_t) { body(encoder); });
}

void MemoryEncoder::encodeRecords(std::string_view key, std::size_t count,
                                  FunctionRef<void(Encoder&, std::size_t)> body) {
    MemoryRecord::Records records(count);
    for (std::size_t i = 0; i < count; ++i) {
        MemoryEncoder encoder(records[i]);
        body(encoder, i);
    }
    add(key, std::move(records));
}

void MemoryDecoder::fail(DecodingError::Kind kind, std::string_view key,
                         std::string_view why) const {
    throw DecodingError(kind, codingPath + std::string(key) + ": " + std::string(why));
}

template <typename Type>
const Type& MemoryDecoder::read(std::string_view key) const {
    const MemoryRecord::Entry* entry = record.find(key);
    if (!entry)
        fail(DecodingError::Kind::keyNotFound, key, "key not found");
    const Type* value = std::get_if<Type>(entry);
    if (!value)
        fail(DecodingError::Kind::typeMismatch, key, "another type");
    return *value;
}

const MemoryRecord::Numbers& MemoryDecoder::numbers(std::string_view key, std::size_t count) const {
    const auto& values = read<MemoryRecord::Numbers>(key);
    if (values.size() != count)
        fail(DecodingError::Kind::typeMismatch, key, "another count of numbers");
    return values;
}

bool MemoryDecoder::contains(std::string_view key) { return record.find(key) != nullptr; }

bool MemoryDecoder::decodeBool(std::string_view key) { return read<bool>(key); }

std::int64_t MemoryDecoder::decodeInt(std::string_view key) { return read<std::int64_t>(key); }

CGFloat MemoryDecoder::decodeNumber(std::string_view key) { return read<CGFloat>(key); }

std::string MemoryDecoder::decodeText(std::string_view key) { return read<std::string>(key); }

CGPoint MemoryDecoder::decodePoint(std::string_view key) {
    const auto& values = numbers(key, 2);
    return {values[0], values[1]};
}

CGSize MemoryDecoder::decodeSize(std::string_view key) {
    const auto& values = numbers(key, 2);
    return {values[0], values[1]};
}

CGVector MemoryDecoder::decodeVector(std::string_view key) {
    const auto& values = numbers(key, 2);
    return {values[0], values[1]};
}

CGRect MemoryDecoder::decodeRect(std::string_view key) {
    const auto& values = numbers(key, 4);
    return CGRectMake(values[0], values[1], values[2], values[3]);
}

CGAffineTransform MemoryDecoder::decodeTransform(std::string_view key) {
    const auto& values = numbers(key, 6);
    return {values[0], values[1], values[2], values[3], values[4], values[5]};
}

std::vector<CGFloat> MemoryDecoder::decodeNumbers(std::string_view key) {
    return read<MemoryRecord::Numbers>(key);
}

void MemoryDecoder::decodeRecord(std::string_view key, FunctionRef<void(Decoder&)> body) {
    const auto& records = read<MemoryRecord::Records>(key);
    if (records.size() != 1)
        fail(DecodingError::Kind::typeMismatch, key, "not one record");
    MemoryDecoder decoder(records[0], codingPath + std::string(key) + ".");
    body(decoder);
}

std::size_t MemoryDecoder::recordCount(std::string_view key) {
    return read<MemoryRecord::Records>(key).size();
}

void MemoryDecoder::decodeRecords(std::string_view key,
                                  FunctionRef<void(Decoder&, std::size_t)> body) {
    const auto& records = read<MemoryRecord::Records>(key);
    for (std::size_t i = 0; i < records.size(); ++i) {
        MemoryDecoder decoder(records[i],
                              codingPath + std::string(key) + "[" + std::to_string(i) + "].");
        body(decoder, i);
    }
}

void MemoryDecoder::corrupted(std::string_view key, std::string_view why) {
    fail(DecodingError::Kind::valueCorrupted, key, why);
}

}  // namespace quorin::test
