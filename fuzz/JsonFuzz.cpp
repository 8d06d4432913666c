// Arbitrary bytes are read as a keyed record: a text is refused exactly where the syntax checker
// finds a fault, and whatever is read is written and read again to the same bits.

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/FuzzSupport.h"
#include "quorin/platform/foundation/JSONDecoder.h"
#include "quorin/platform/foundation/JSONEncoder.h"
#include "quorin/platform/foundation/JSONSyntax.h"

namespace quorin::fuzz {
namespace {

/// The values found in a text, by the kind of reading that worked.
struct Findings {
    std::vector<CGFloat> numbers;
    std::vector<std::string> texts;

    void add(std::initializer_list<CGFloat> found) {
        numbers.insert(numbers.end(), found.begin(), found.end());
    }
};

template <typename Read>
void attempt(const Read& read) {
    try {
        read();
    } catch (const DecodingError& error) {
        expect(error.what()[0] != '\0', "an error says something");
    }
}

void explore(Decoder& decoder, Findings& findings) {
    for (const std::string_view key : {"a", "b", "segments"}) {
        if (!decoder.contains(key))
            continue;
        attempt([&] { (void)decoder.decodeBool(key); });
        attempt([&] { (void)decoder.decodeInt(key); });
        attempt([&] { findings.add({decoder.decodeNumber(key)}); });
        attempt([&] { findings.texts.push_back(decoder.decodeText(key)); });
        attempt([&] {
            const CGPoint point = decoder.decodePoint(key);
            findings.add({point.x, point.y});
        });
        attempt([&] {
            const CGRect rect = decoder.decodeRect(key);
            findings.add({rect.origin.x, rect.origin.y, rect.size.width, rect.size.height});
        });
        attempt([&] { (void)decoder.decodeTransform(key); });
        attempt([&] {
            for (const CGFloat number : decoder.decodeNumbers(key))
                findings.add({number});
        });
        attempt(
            [&] { decoder.decodeRecord(key, [&](Decoder& inner) { explore(inner, findings); }); });
        attempt([&] {
            decoder.decodeRecords(key,
                                  [&](Decoder& inner, std::size_t) { explore(inner, findings); });
        });
    }
}

void expectRoundTrip(const Findings& findings, std::size_t indentation) {
    const std::string text = JSONEncoder({.indentation = indentation}).encode([&](Encoder& e) {
        e.encodeNumbers("numbers", findings.numbers);
        for (const std::string& each : findings.texts)
            e.encodeText(each, each);
    });
    JSONDecoder().decode(text, [&](Decoder& decoder) {
        for (const std::string& each : findings.texts)
            if (each != "numbers")
                expect(decoder.decodeText(each) == each, "a text comes back");
        if (findings.texts.empty()) {
            const std::vector<CGFloat> numbers = decoder.decodeNumbers("numbers");
            expect(numbers.size() == findings.numbers.size(), "all numbers come back");
            for (std::size_t i = 0; i < numbers.size(); ++i)
                expect(std::bit_cast<std::uint64_t>(numbers[i]) ==
                           std::bit_cast<std::uint64_t>(findings.numbers[i]),
                       "a number comes back bit for bit");
        }
    });
}

void readAndWrite(std::string_view text) {
    Findings findings;
    bool isJSON = true;
    try {
        JSONDecoder().decode(text, [&](Decoder& decoder) { explore(decoder, findings); });
    } catch (const DecodingError& error) {
        isJSON = error.kind() == DecodingError::Kind::typeMismatch;
    }
    const std::string_view withoutMark = text.substr(text.starts_with("\xEF\xBB\xBF") ? 3 : 0);
    expect(isJSON == !findJSONSyntaxError(withoutMark, JSONDecoder::Options().maximumDepth),
           "reader and checker agree on what is JSON");

    expectRoundTrip(findings, 0);
    findings.texts.clear();
    expectRoundTrip(findings, 2);
}

}  // namespace
}  // namespace quorin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quorin::fuzz::readAndWrite({reinterpret_cast<const char*>(data), size});
    return 0;
}
