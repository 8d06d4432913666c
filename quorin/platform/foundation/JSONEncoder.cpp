#include "quorin/platform/foundation/JSONEncoder.h"

#include <array>
#include <charconv>
#include <cmath>

#include "quorin/platform/foundation/CodingPath.h"
#include "quorin/platform/foundation/UTF8.h"
#include "quorin/platform/foundation/json/JSONOutput.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {
namespace {

class RecordWriter final : public Encoder {
public:
    RecordWriter(JSONOutput& to, const JSONEncoder::Options& how, const CodingPath& place,
                 std::size_t depth)
        : output(to), options(how), path(place), level(depth) {
        output.append('{');
    }

    void close() {
        if (!isEmpty)
            breakLine(level);
        output.append('}');
    }

    void encodeBool(std::string_view key, bool value) override {
        begin(key);
        output.wroteUpTo(writeLiteral(output.roomFor(5), value ? "true" : "false"));
    }

    void encodeInt(std::string_view key, std::int64_t value) override {
        begin(key);
        char* const at = output.roomFor(longestNumber);
        output.wroteUpTo(std::to_chars(at, at + longestNumber, value).ptr);
    }

    void encodeNumber(std::string_view key, CGFloat value) override {
        begin(key);
        output.wroteUpTo(number(output.roomFor(longestNumber), value, {&path, key, {}}));
    }

    void encodeText(std::string_view key, std::string_view value) override {
        if (!isUtf8(value))
            throw EncodingError(CodingPath{&path, key, {}}.describe("not UTF-8 text"));
        begin(key);
        output.wroteUpTo(writeQuoted(output.roomFor(roomForQuoted(value)), value));
    }

    void encodePoint(std::string_view key, CGPoint value) override {
        encodeNumbers(key, std::array{value.x, value.y});
    }
    void encodeSize(std::string_view key, CGSize value) override {
        encodeNumbers(key, std::array{value.width, value.height});
    }
    void encodeVector(std::string_view key, CGVector value) override {
        encodeNumbers(key, std::array{value.dx, value.dy});
    }
    void encodeTransform(std::string_view key, const CGAffineTransform& value) override {
        encodeNumbers(key, std::array{value.a, value.b, value.c, value.d, value.tx, value.ty});
    }
    void encodeNumbers(std::string_view key, std::span<const CGFloat> values) override {
        begin(key);
        list({&path, key, {}}, values);
    }

    void encodeRect(std::string_view key, const CGRect& value) override {
        begin(key);
        output.append('[');
        list({&path, key, 0}, std::array{value.origin.x, value.origin.y});
        output.wroteUpTo(separator(output.roomFor(2)));
        list({&path, key, 1}, std::array{value.size.width, value.size.height});
        output.append(']');
    }

    void encodeRecord(std::string_view key, FunctionRef<void(Encoder&)> body) override {
        begin(key);
        innerIsOpen = true;
        const CodingPath place{&path, key, {}};
        RecordWriter inner(output, options, place, level + 1);
        body(inner);
        inner.close();
        innerIsOpen = false;
    }

    void encodeRecords(std::string_view key, std::size_t count,
                       FunctionRef<void(Encoder&, std::size_t)> body) override {
        begin(key);
        innerIsOpen = true;
        records(output, options, {&path, key, {}}, level + 1, count, body);
        innerIsOpen = false;
    }

    /// A list of records; `place` gets the index of each, `listLevel` is that of the brackets.
    static void records(JSONOutput& output, const JSONEncoder::Options& options, CodingPath place,
                        std::size_t listLevel, std::size_t count,
                        FunctionRef<void(Encoder&, std::size_t)> body) {
        constexpr std::size_t sample = 64;
        const std::size_t recordLevel = listLevel + 1;
        const std::size_t start = output.size();
        output.append('[');
        for (std::size_t i = 0; i < count; ++i) {
            if (i > 0)
                output.append(',');
            if (options.indentation > 0)
                output.appendLine(recordLevel * options.indentation);
            place.index = i;
            RecordWriter record(output, options, place, recordLevel);
            body(record, i);
            record.close();
            if (i + 1 == sample)
                output.expect((output.size() - start) / sample * (count - sample) / 16 * 17);
        }
        if (options.indentation > 0 && count > 0)
            output.appendLine(listLevel * options.indentation);
        output.append(']');
    }

private:
    void breakLine(std::size_t atLevel) {
        if (options.indentation > 0)
            output.appendLine(atLevel * options.indentation);
    }

    void begin(std::string_view key) {
        // Written now, the value would land inside the inner record.
        if (innerIsOpen)
            fatalError(CodingPath{&path, key, {}}.describe("an inner record is still open"));
        if (!isEmpty)
            output.append(',');
        isEmpty = false;
        breakLine(level + 1);
        char* at = writeQuoted(output.roomFor(roomForQuoted(key) + 2), key);
        *at++ = ':';
        if (options.indentation > 0)
            *at++ = ' ';
        output.wroteUpTo(at);
    }

    char* separator(char* at) const {
        *at++ = ',';
        if (options.indentation > 0)
            *at++ = ' ';
        return at;
    }

    char* number(char* at, CGFloat value, const CodingPath& place) const {
        if (std::isfinite(value))
            return writeNumber(at, value);
        if (!options.nonFiniteAsTexts)
            throw EncodingError(place.describe("not a finite number"));
        return writeNonFinite(at, value);
    }

    void list(const CodingPath& place, std::span<const CGFloat> values) {
        char* at = output.roomFor(values.size() * (longestNumber + 2) + 2);
        *at++ = '[';
        for (std::size_t i = 0; i < values.size(); ++i) {
            if (i > 0)
                at = separator(at);
            at = number(at, values[i], {&place, {}, i});
        }
        *at++ = ']';
        output.wroteUpTo(at);
    }

    JSONOutput& output;
    const JSONEncoder::Options& options;
    const CodingPath& path;
    std::size_t level;
    bool isEmpty = true;
    bool innerIsOpen = false;
};

}  // namespace

std::string JSONEncoder::encode(FunctionRef<void(Encoder&)> body) const {
    JSONOutput output;
    const CodingPath outermost;
    RecordWriter record(output, options, outermost, 0);
    body(record);
    record.close();
    return output.take();
}

std::string JSONEncoder::encodeRecords(std::size_t count,
                                       FunctionRef<void(Encoder&, std::size_t)> body) const {
    JSONOutput output;
    const CodingPath outermost;
    RecordWriter::records(output, options, {&outermost, {}, {}}, 0, count, body);
    return output.take();
}

}  // namespace quorin
