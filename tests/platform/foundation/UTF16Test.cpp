#include "quorin/platform/foundation/UTF16.h"

#include <string>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using namespace std::string_literals;

TEST(UTF16, writesEveryCharacterAndReadsItBack) {
    const std::pair<std::string, std::u16string> table[] = {
        {"", u""},
        {"plain", u"plain"},
        {"a\0b"s, u"a\0b"s},
        {"\u00e9\u20ac\uffff", u"\u00e9\u20ac\uffff"},
        {"a\U0001F600b\U0010FFFF", u"a\U0001F600b\U0010FFFF"},
    };
    for (const auto& [bytes, units] : table) {
        EXPECT_EQ(utf16(bytes), units);
        EXPECT_EQ(utf8(units), bytes);
    }
}

TEST(UTF16, replacesEachBrokenOffCharacterOnce) {
    const std::pair<std::string, std::u16string> table[] = {
        {"\x80", u"\uFFFD"},
        {"\xFF\xFE", u"\uFFFD\uFFFD"},
        {"a\xE2\x82"
         "b",
         u"a\uFFFDb"},
        {"\xF0\x9F\x98", u"\uFFFD"},
        {"\xC0\x80", u"\uFFFD\uFFFD"},                      // overlong
        {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},            // half a pair
        {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},  // beyond the last
    };
    for (const auto& [bytes, units] : table)
        EXPECT_EQ(utf16(bytes), units);
}

TEST(UTF16, replacesHalvesOfPairsOnTheWayBack) {
    EXPECT_EQ(utf8(std::u16string{0xD83D}), "\uFFFD");
    EXPECT_EQ(utf8(std::u16string{0xDE00, u'a', 0xD83D}), "\uFFFDa\uFFFD");
}

TEST(UTF16, tellsTextsThatStandTheSameInBoth) {
    std::u16string units = u"what was there before";
    EXPECT_TRUE(convertToUtf16("plain", units));
    EXPECT_EQ(units, u"plain");
    EXPECT_TRUE(convertToUtf16("", units));
    EXPECT_EQ(units, u"");
    EXPECT_FALSE(convertToUtf16("caf\u00e9", units));
    EXPECT_FALSE(convertToUtf16("as many units as bytes \xFF", units));
}

TEST(UTF16, breaksNoCharacterOfALongText) {
    for (std::size_t shift = 0; shift < 4; ++shift) {
        std::string bytes = "\u00e9" + std::string(shift, 'x');
        std::u16string units = u"\u00e9" + std::u16string(shift, u'x');
        for (int i = 0; i < 70'000; ++i) {
            bytes += "\U0001F600";
            units += u"\U0001F600";
        }
        EXPECT_TRUE(utf16(bytes) == units);
        EXPECT_TRUE(utf8(units) == bytes);
    }
    EXPECT_EQ(utf16(std::string(200'000, '\x80')), std::u16string(200'000, u'\uFFFD'));
}

}  // namespace
}  // namespace quorin
