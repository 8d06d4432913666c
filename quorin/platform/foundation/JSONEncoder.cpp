#include "quorin/platform/foundation/JSONEncoder.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <utility>

#include "quorin/platform/foundation/CodingPath.h"
#include "quorin/platform/foundation/PageAdvice.h"
#include "quorin/platform/foundation/UTF8.h"
#include "quorin/platform/values/FatalError.h"

namespace quorin {
namespace {

constexpr std::size_t longestNumber = 32;  // "-2.2250738585072014e-308" and some air
constexpr std::size_t longestEscape = 6;   // "\u001f"

/// How a byte is written inside quotes: as it is (0), as a backslash and this letter, or, for
/// 'u', as \u00XX.
constexpr std::array<char, 256> escapeLetters = [] {
    std::array<char, 256> letters{};
    for (std::size_t control = 0; control < 0x20; ++control)
        letters[control] = 'u';
    letters['\b'] = 'b';
    letters['\t'] = 't';
    letters['\n'] = 'n';
    letters['\f'] = 'f';
    letters['\r'] = 'r';
    letters['"'] = '"';
    letters['\\'] = '\\';
    return letters;
}();

/// Text that grows. A writer asks once for all the room its value can take, then writes into it
/// without looking.
class Output {
public:
    char* roomFor(std::size_t count) {
        if (text.size() - used < count)
            grow(used + count);
        return text.data() + used;
    }
    void wroteUpTo(const char* end) { used = static_cast<std::size_t>(end - text.data()); }

    void append(char character) {
        *roomFor(1) = character;
        ++used;
    }
    void appendLine(std::size_t indentation) {
        char* at = roomFor(1 + indentation);
        *at++ = '\n';
        wroteUpTo(std::fill_n(at, indentation, ' '));
    }

    std::size_t size() const { return used; }
    /// Of a long text, what is still to come: doubling its room again and again would touch twice
    /// the memory.
    void expect(std::size_t count) {
        if (text.capacity() - used < count)
            reserve(used + count);
    }

    std::string take() {
        text.resize(used);
        return std::move(text);
    }

private:
    void reserve(std::size_t count) {
        text.reserve(count);
        adviseHugePages(text.data(), text.capacity());
    }
    void grow(std::size_t needed) {
        if (text.capacity() < needed)
            reserve(std::max(2 * text.capacity(), needed));
        // Not all of it at once: memory is dear when it is first touched.
        constexpr std::size_t step = 16'384;
        text.resize(std::min(text.capacity(), needed + step));
    }

    std::string text;
    std::size_t used = 0;
};

char* writeLiteral(char* at, std::string_view literal) {
    return std::copy(literal.begin(), literal.end(), at);
}

char* writeNonFinite(char* at, CGFloat value) {
    return writeLiteral(at, std::isnan(value) ? "\"nan\"" : value > 0 ? "\"inf\"" : "\"-inf\"");
}

char* writeNumber(char* at, CGFloat value) {
    constexpr CGFloat allIntegersExact = 9007199254740992.0;            // 2^53
    constexpr CGFloat beyondReadersOfIntegers = 9223372036854775808.0;  // 2^63
    char* const end = at + longestNumber;
    const CGFloat magnitude = std::abs(value);

    // Shortest would make 1e+05 of 100000, which is short but hard on human readers.
    if (magnitude < allIntegersExact && value == std::trunc(value)) {
        if (value == 0 && std::signbit(value))
            return writeLiteral(at, "-0.0");
        return std::to_chars(at, end, static_cast<std::int64_t>(value)).ptr;
    }
    if (magnitude >= beyondReadersOfIntegers)
        return std::to_chars(at, end, value, std::chars_format::scientific).ptr;
    return std::to_chars(at, end, value).ptr;
}

/// Needs room for the longest escape of every byte and two quotes.
char* writeQuoted(char* at, std::string_view text) {
    *at++ = '"';
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        const char letter = escapeLetters[byte];
        if (letter == 0) {
            *at++ = character;
            continue;
        }
        *at++ = '\\';
        *at++ = letter;
        if (letter == 'u') {
            at = writeLiteral(at, byte < 0x10 ? "000" : "001");
            *at++ = "0123456789abcdef"[byte & 0xF];
        }
    }
    *at++ = '"';
    return at;
}

constexpr std::size_t roomForQuoted(std::string_view text) {
    return longestEscape * text.size() + 2;
}

class RecordWriter final : public Encoder {
public:
    RecordWriter(Output& to, const JSONEncoder::Options& how, const CodingPath& place,
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
    static void records(Output& output, const JSONEncoder::Options& options, CodingPath place,
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

    Output& output;
    const JSONEncoder::Options& options;
    const CodingPath& path;
    std::size_t level;
    bool isEmpty = true;
    bool innerIsOpen = false;
};

}  // namespace

std::string JSONEncoder::encode(FunctionRef<void(Encoder&)> body) const {
    Output output;
    const CodingPath outermost;
    RecordWriter record(output, options, outermost, 0);
    body(record);
    record.close();
    return output.take();
}

std::string JSONEncoder::encodeRecords(std::size_t count,
                                       FunctionRef<void(Encoder&, std::size_t)> body) const {
    Output output;
    const CodingPath outermost;
    RecordWriter::records(output, options, {&outermost, {}, {}}, 0, count, body);
    return output.take();
}

}  // namespace quorin
