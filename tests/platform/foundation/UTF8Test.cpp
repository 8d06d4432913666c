#include "quorin/platform/foundation/UTF8.h"

#include <string>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

/// The encoding by the arithmetic of the definition, without regard to what is allowed.
std::string encoded(unsigned code) {
    const auto byte = [](unsigned value) { return static_cast<char>(value); };
    const auto tail = [&](unsigned shift) { return byte(0x80 | ((code >> shift) & 0x3F)); };
    if (code < 0x80)
        return {byte(code)};
    if (code < 0x800)
        return {byte(0xC0 | (code >> 6)), tail(0)};
    if (code < 0x10000)
        return {byte(0xE0 | (code >> 12)), tail(6), tail(0)};
    return {byte(0xF0 | (code >> 18)), tail(12), tail(6), tail(0)};
}

TEST(UTF8, acceptsEveryCharacterAndNoHalfOfASurrogatePair) {
    for (unsigned code = 0; code < 0x110000; ++code) {
        const bool isHalf = code >= 0xD800 && code < 0xE000;
        ASSERT_EQ(isUtf8(encoded(code)), !isHalf) << std::hex << code;
    }
}

TEST(UTF8, refusesCodesBeyondTheLast) {
    for (unsigned code = 0x110000; code < 0x200000; code += 0x1001)
        ASSERT_FALSE(isUtf8(encoded(code))) << std::hex << code;
    EXPECT_FALSE(isUtf8("\xF8\x88\x80\x80\x80"));
    EXPECT_FALSE(isUtf8("\xFF"));
}

TEST(UTF8, refusesOverlongForms) {
    for (const char* overlong : {"\xC0\x80", "\xC1\xBF", "\xE0\x80\x80", "\xE0\x9F\xBF",
                                 "\xF0\x80\x80\x80", "\xF0\x8F\xBF\xBF"})
        EXPECT_EQ(utf8ValidPrefix(overlong), 0u);
}

TEST(UTF8, refusesBrokenOffCharactersAndStrayContinuations) {
    for (const std::string whole : {"\u00e9", "\u20ac", "\U0001F600"})
        for (std::size_t kept = 1; kept < whole.size(); ++kept) {
            EXPECT_FALSE(isUtf8(whole.substr(0, kept)));
            EXPECT_FALSE(isUtf8(whole.substr(0, kept) + "x"));
        }
    EXPECT_FALSE(isUtf8("\x80"));
    EXPECT_FALSE(isUtf8("\xBF"));
}

TEST(UTF8, saysHowFarTheTextIsGood) {
    EXPECT_EQ(utf8ValidPrefix(""), 0u);
    EXPECT_EQ(utf8ValidPrefix("12345678"), 8u);
    EXPECT_EQ(utf8ValidPrefix("0123456789\xFFzzzzzzzzz"), 10u);
    EXPECT_EQ(utf8ValidPrefix("\u00e9\u20ac\xE2\x82"), 5u);
}

}  // namespace
}  // namespace quorin
