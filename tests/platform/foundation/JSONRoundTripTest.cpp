#include <bit>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

#include "quorin/platform/foundation/JSONDecoder.h"
#include "quorin/platform/foundation/JSONEncoder.h"
#include "quorin/platform/foundation/JSONSyntax.h"
#include "quorin/platform/foundation/UTF8.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

std::string encoded(const std::vector<CGFloat>& numbers, std::size_t indentation = 0) {
    return JSONEncoder({.indentation = indentation}).encode([&](Encoder& encoder) {
        encoder.encodeNumbers("n", numbers);
    });
}

std::vector<CGFloat> decoded(std::string_view text) {
    std::vector<CGFloat> result;
    JSONDecoder().decode(text, [&](Decoder& decoder) { result = decoder.decodeNumbers("n"); });
    return result;
}

std::vector<std::uint64_t> bitsOf(const std::vector<CGFloat>& numbers) {
    std::vector<std::uint64_t> bits;
    for (const CGFloat number : numbers)
        bits.push_back(std::bit_cast<std::uint64_t>(number));
    return bits;
}

TEST(JSONRoundTrip, keepsTheHardNumbersBitForBit) {
    std::vector<CGFloat> numbers = {0.0,
                                    -0.0,
                                    5e-324,
                                    -5e-324,
                                    std::numeric_limits<CGFloat>::min(),
                                    std::nextafter(std::numeric_limits<CGFloat>::min(), 0),
                                    std::numeric_limits<CGFloat>::max(),
                                    std::numeric_limits<CGFloat>::lowest(),
                                    std::numeric_limits<CGFloat>::epsilon(),
                                    0.1,
                                    1.0 / 3,
                                    9007199254740993.0,
                                    100000,
                                    1e15,
                                    123456789012345680000.0};
    for (int power = 50; power <= 70; ++power)
        for (const CGFloat direction : {0.0, 1e300})
            numbers.push_back(-std::nextafter(std::ldexp(1.0, power), direction));
    EXPECT_EQ(bitsOf(decoded(encoded(numbers))), bitsOf(numbers));
}

RC_GTEST_PROP(JSONRoundTrip, keepsEveryFiniteDoubleBitForBit, ()) {
    std::vector<CGFloat> numbers;
    for (const std::uint64_t bits : *rc::gen::arbitrary<std::vector<std::uint64_t>>())
        if (const auto number = std::bit_cast<CGFloat>(bits); std::isfinite(number))
            numbers.push_back(number);
    // The generator prefers small words, which are denormal: spread them over all exponents.
    for (const auto mantissa : *rc::gen::arbitrary<std::vector<std::uint32_t>>())
        numbers.push_back(std::ldexp(-1 - mantissa * 0x1p-32, *rc::gen::inRange(-1022, 1024)));
    RC_ASSERT(bitsOf(decoded(encoded(numbers))) == bitsOf(numbers));
    RC_ASSERT(bitsOf(decoded(encoded(numbers, 3))) == bitsOf(numbers));
}

RC_GTEST_PROP(JSONRoundTrip, readsDecimalsAsTheStandardLibraryDoes, ()) {
    const auto digits =
        rc::gen::nonEmpty(rc::gen::container<std::string>(rc::gen::inRange('0', ':')));
    std::string text = std::to_string(*rc::gen::inRange(1, 10)) + *digits + '.' + *digits;
    text += 'e' + std::to_string(*rc::gen::inRange(-340, 200));
    RC_ASSERT(bitsOf(decoded("{\"n\":[" + text + "]}")) ==
              bitsOf({std::strtod(text.c_str(), nullptr)}));
}

RC_GTEST_PROP(JSONRoundTrip, keepsTextsAndKeys, ()) {
    // Code units below U+0080 and a few beyond, since arbitrary bytes are seldom characters.
    const auto character = rc::gen::oneOf(
        rc::gen::map(rc::gen::inRange(0, 0x80), [](int c) { return std::string(1, char(c)); }),
        rc::gen::element<std::string>("\u00e9", "\u20ac", "\U0001F600", "\uFFFF", "\u2028"));
    const auto text = rc::gen::map(rc::gen::container<std::vector<std::string>>(character),
                                   [](const std::vector<std::string>& characters) {
                                       std::string joined;
                                       for (const std::string& each : characters)
                                           joined += each;
                                       return joined;
                                   });
    const std::string key = *text;
    const std::string value = *text;
    const std::string json =
        JSONEncoder().encode([&](Encoder& encoder) { encoder.encodeText(key, value); });
    RC_ASSERT(isUtf8(json));
    JSONDecoder().decode(json,
                         [&](Decoder& decoder) { RC_ASSERT(decoder.decodeText(key) == value); });
}

RC_GTEST_PROP(JSONRoundTrip, namesAPlaceWheneverATextIsDamaged, ()) {
    std::string text =
        R"({"a":[1,-0.5e3,{"b":"x\u00e9\n"},true],"c":{"d":null,"e":[[],{}]},"f":"\ud83d\ude00"})";
    const auto at = *rc::gen::inRange<std::size_t>(0, text.size());
    text[at] = *rc::gen::arbitrary<char>();
    try {
        JSONDecoder().decode(text, [](Decoder&) {});
        RC_ASSERT(!findJSONSyntaxError(text, 1'024));
    } catch (const DecodingError& error) {
        RC_ASSERT(std::string(error.what()).starts_with("line "));
    }
}

}  // namespace
}  // namespace quorin
