#include "quorin/svg/reading/SvgText.h"

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using namespace std::string_view_literals;

std::string utf16(std::u16string_view text, bool isBigEndian) {
    std::string bytes;
    for (const char16_t unit : text) {
        const char high = static_cast<char>(unit >> 8), low = static_cast<char>(unit & 0xff);
        bytes += isBigEndian ? high : low;
        bytes += isBigEndian ? low : high;
    }
    return bytes;
}

TEST(SvgText, readsUtf16ByItsMarkOrItsFirstCharacter) {
    const std::u16string text = u"<a>é€𝄞</a>";
    for (const bool isBigEndian : {false, true}) {
        EXPECT_EQ(utf8SvgText(utf16(text, isBigEndian)), "<a>é€𝄞</a>");
        // The mark itself stays, as it does in UTF-8.
        EXPECT_EQ(utf8SvgText(utf16(u"\xfeff" + text, isBigEndian)), "\xef\xbb\xbf<a>é€𝄞</a>");
    }
}

TEST(SvgText, replacesHalvesOfSurrogatePairs) {
    EXPECT_EQ(utf8SvgText(utf16(std::u16string(u"<") + char16_t(0xd834) + u"x", false)),
              "<\ufffdx");
    EXPECT_EQ(utf8SvgText(utf16(std::u16string(u"<") + char16_t(0xdd1e), false)), "<\ufffd");
    EXPECT_EQ(utf8SvgText(utf16(std::u16string(u"<x") + char16_t(0xd834), true)), "<x\ufffd");
}

TEST(SvgText, readsLatin1WhenItIsDeclared) {
    EXPECT_EQ(utf8SvgText("<?xml version='1.0' encoding='ISO-8859-1'?><a b='\xe9'/>"),
              "<?xml version='1.0' encoding='ISO-8859-1'?><a b='é'/>");
    EXPECT_EQ(utf8SvgText("<?xml encoding=\"latin1\"?>\xfc"), "<?xml encoding=\"latin1\"?>ü");
}

TEST(SvgText, leavesOtherTextAsItIs) {
    for (const std::string_view text :
         {""sv, "<svg/>"sv, "\xef\xbb\xbf<svg/>"sv, "<?xml encoding='UTF-8'?>\xc3\xa9"sv,
          "<?xml encoding"sv, "<?xml encoding='"sv, "<?xml version='1.0'"sv, "\xff"sv, "<"sv})
        EXPECT_EQ(utf8SvgText(text), text);
}

TEST(SvgText, repairsBytesThatAreNoCharacters) {
    EXPECT_EQ(repairedUtf8("aé"), "aé");
    EXPECT_EQ(repairedUtf8("a\xffz\xc3"), "a\ufffdz\ufffd");
    EXPECT_EQ(repairedUtf8(""), "");
}

TEST(SvgLines, countsFromOne) {
    const SvgLines lines("ab\ncd\n\nef");
    EXPECT_EQ(lines.lineOf(0), 1u);
    EXPECT_EQ(lines.lineOf(2), 1u);  // the line feed ends its own line
    EXPECT_EQ(lines.lineOf(3), 2u);
    EXPECT_EQ(lines.lineOf(6), 3u);
    EXPECT_EQ(lines.lineOf(7), 4u);
    EXPECT_EQ(lines.lineOf(1000), 4u);
    EXPECT_EQ(SvgLines("").lineOf(0), 1u);
}

TEST(SvgElementCount, countsStartsOfElementsOnly) {
    EXPECT_EQ(
        countElements("<?xml?><!DOCTYPE svg><a><b/><!-- <c/> --><![CDATA[<d>]]></a>", 100).count,
        2u);
    EXPECT_EQ(countElements("no elements", 100).count, 0u);
    EXPECT_EQ(countElements("<", 100).count, 0u);
    EXPECT_EQ(countElements("<!-- <a>", 100).count, 0u);
}

TEST(SvgElementCount, stopsAboveItsLimit) {
    const SvgElementCount count = countElements("<a><b><c><d>", 2);
    EXPECT_EQ(count.count, 3u);
    EXPECT_EQ(count.offset, 6u);
}

}  // namespace
}  // namespace quorin
