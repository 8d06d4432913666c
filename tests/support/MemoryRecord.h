#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "quorin/platform/values/KeyedCoding.h"

namespace quorin::test {

/// A keyed record that stays in memory, so that what a type writes can be seen entry by entry,
/// damaged on purpose and read back.
struct MemoryRecord {
    using Numbers = std::vector<CGFloat>;
    using Records = std::vector<MemoryRecord>;
    using Entry = std::variant<bool, std::int64_t, CGFloat, std::string, Numbers, Records>;

    std::vector<std::pair<std::string, Entry>> entries;  // in the order of writing

    std::vector<std::string> keys() const;
    const Entry* find(std::string_view key) const;
    /// The entry of a key that must be there.
    Entry& operator[](std::string_view key);
    void remove(std::string_view key);

    friend bool operator==(const MemoryRecord&, const MemoryRecord&) = default;
};

/// A point, size, rect or transform is a list of its numbers, a record a list of one.
class MemoryEncoder : public Encoder {
public:
    explicit MemoryEncoder(MemoryRecord& target) : record(target) {}

    void encodeBool(std::string_view key, bool value) override;
    void encodeInt(std::string_view key, std::int64_t value) override;
    void encodeNumber(std::string_view key, CGFloat value) override;
    void encodeText(std::string_view key, std::string_view value) override;
    void encodePoint(std::string_view key, CGPoint value) override;
    void encodeSize(std::string_view key, CGSize value) override;
    void encodeVector(std::string_view key, CGVector value) override;
    void encodeRect(std::string_view key, const CGRect& value) override;
    void encodeTransform(std::string_view key, const CGAffineTransform& value) override;
    void encodeNumbers(std::string_view key, std::span<const CGFloat> values) override;
    void encodeRecord(std::string_view key, FunctionRef<void(Encoder&)> body) override;
    void encodeRecords(std::string_view key, std::size_t count,
                       FunctionRef<void(Encoder&, std::size_t)> body) override;

private:
    void add(std::string_view key, MemoryRecord::Entry entry);

    MemoryRecord& record;
};

class MemoryDecoder : public Decoder {
public:
    explicit MemoryDecoder(const MemoryRecord& source, std::string prefix = "")
        : record(source), codingPath(std::move(prefix)) {}

    bool contains(std::string_view key) override;
    bool decodeBool(std::string_view key) override;
    std::int64_t decodeInt(std::string_view key) override;
    CGFloat decodeNumber(std::string_view key) override;
    std::string decodeText(std::string_view key) override;
    CGPoint decodePoint(std::string_view key) override;
    CGSize decodeSize(std::string_view key) override;
    CGVector decodeVector(std::string_view key) override;
    CGRect decodeRect(std::string_view key) override;
    CGAffineTransform decodeTransform(std::string_view key) override;
    std::vector<CGFloat> decodeNumbers(std::string_view key) override;
    void decodeRecord(std::string_view key, FunctionRef<void(Decoder&)> body) override;
    std::size_t recordCount(std::string_view key) override;
    void decodeRecords(std::string_view key,
                       FunctionRef<void(Decoder&, std::size_t)> body) override;
    [[noreturn]] void corrupted(std::string_view key, std::string_view why) override;

private:
    template <typename Type>
    const Type& read(std::string_view key) const;
    const MemoryRecord::Numbers& numbers(std::string_view key, std::size_t count) const;
    [[noreturn]] void fail(DecodingError::Kind kind, std::string_view key,
                           std::string_view why) const;

    const MemoryRecord& record;
    std::string codingPath;
};

/// What `value.encode` writes.
template <typename Type>
MemoryRecord recordOf(const Type& value) {
    MemoryRecord record;
    MemoryEncoder encoder(record);
    value.encode(encoder);
    return record;
}

/// What `Type::decode` makes of the record.
template <typename Type>
auto decoded(const MemoryRecord& record) {
    MemoryDecoder decoder(record);
    return Type::decode(decoder);
}

}  // namespace quorin::test
