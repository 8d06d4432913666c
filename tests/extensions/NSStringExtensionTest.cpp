#include "quorin/extensions/NSStringExtension.h"

#include "quorin/observation/RegularExpression.h"
#include "quorin/platform/foundation/NSRegularExpression.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::ElementsAre;
using testing::Optional;
using Names = std::vector<std::string>;

TEST(UniqueName, staysWhenItIsFree) {
    EXPECT_EQ(uniqueName("Frame", Names{}), "Frame");
    EXPECT_EQ(uniqueName("Frame 3", Names{"Frame", "Frame 2"}), "Frame 3");
    EXPECT_EQ(uniqueName("", Names{"a"}), "");
}

TEST(UniqueName, ofFrameAmongFRAMEAndFrame1IsFrame2) {
    EXPECT_EQ(uniqueName("Frame", Names{"FRAME", "frame 1"}), "Frame 2");
}

TEST(UniqueName, getsTheFirstFreeNumber) {
    EXPECT_EQ(uniqueName("Frame", Names{"frame"}), "Frame 1");
    EXPECT_EQ(uniqueName("Frame 3", Names{"frame 3"}), "Frame 1");
    EXPECT_EQ(uniqueName("Frame", Names{"frame", "frame 2", "frame 1", "frame 4"}), "Frame 3");
    EXPECT_EQ(uniqueName("", Names{""}), " 1");
}

TEST(UniqueName, replacesOnlyANumberWithBlanksBeforeIt) {
    EXPECT_EQ(uniqueName("Frame3", Names{"frame3"}), "Frame3 1");
    EXPECT_EQ(uniqueName("Frame \t 12", Names{"FRAME \t 12"}), "Frame 1");
    EXPECT_EQ(uniqueName("Frame\u00A0٣", Names{"frame\u00A0٣"}), "Frame 1") << "of any script";
    EXPECT_EQ(uniqueName("12", Names{"12"}), "12 1");
    EXPECT_EQ(uniqueName(" 12", Names{" 12"}), " 1") << "nothing is left as the base";
    EXPECT_EQ(uniqueName(" 3", Names{" 3", " 1"}), " 2");
    EXPECT_EQ(uniqueName("Frame 3\n", Names{"frame 3\n"}), "Frame\n 1") << "past one line end";
    EXPECT_EQ(uniqueName("Frame 1 2", Names{"frame 1 2"}), "Frame 1 1") << "once";
    EXPECT_EQ(uniqueName("Frame 3 ", Names{"frame 3 "}), "Frame 3  1");
}

TEST(UniqueName, comparesByTheFullRulesOfLowerCase) {
    EXPECT_EQ(uniqueName("ÜBERSICHT", Names{"übersicht"}), "ÜBERSICHT 1");
    EXPECT_EQ(uniqueName("ΟΔΟΣ", Names{"οδος", "ΟΔΟΣ 1"}), "ΟΔΟΣ 2");
    EXPECT_EQ(uniqueName("İ", Names{"i\u0307"}), "İ 1") << "one letter becomes two code points";
    EXPECT_EQ(uniqueName("I", Names{"ı", "İ"}), "I") << "in no language in particular";
    EXPECT_EQ(uniqueName("ΟΔΟΣ 7", Names{"οδος 7", "οδος 1"}), "ΟΔΟΣ 2");
    EXPECT_EQ(uniqueName("straße", Names{"STRASSE"}), "straße") << "lower case folds no letters";
}

TEST(UniqueName, countsAccentsAlikeHoweverTheyAreEncoded) {
    EXPECT_EQ(uniqueName("Caf\u00E9", Names{"cafe\u0301"}), "Caf\u00E9 1");
    EXPECT_EQ(uniqueName("Cafe\u0301", Names{"caf\u00E9", "caf\u00E9 1"}), "Cafe\u0301 2");
}

TEST(UniqueName, keepsBytesThatAreNoText) {
    EXPECT_EQ(uniqueName("a\xFF", Names{"b"}), "a\xFF");
    EXPECT_EQ(uniqueName("a\xFF 3", Names{"A\xFF 3"}), "a\xFF 1");
}

RC_GTEST_PROP(UniqueName, isInNoWayTaken, ()) {
    const auto names = rc::gen::container<std::string>(rc::gen::elementOf(std::string("aA 12")));
    const auto within = *rc::gen::container<Names>(names);
    const std::string unique = uniqueName(*names, within);
    for (const std::string& name : within)
        RC_ASSERT(!std::equal(name.begin(), name.end(), unique.begin(), unique.end(),
                              [](char a, char b) { return (a | 0x20) == (b | 0x20); }));
}

/// What the expression `\s+\d+$` leaves of a text.
std::string withoutMatch(const std::string& text) {
    const auto found = Regex::create(R"(\s+\d+$)")->matches(text);
    if (!found)
        return text;
    const std::string& match = found->front().front();
    std::string rest = text;
    return rest.erase(text.rfind(match), match.size());
}

RC_GTEST_PROP(UniqueName, stripsWhatTheExpressionMatches, ()) {
    const auto pieces = rc::gen::element<std::string>("a", " ", "1", "2", "\n", "\r", "\u00A0",
                                                      "\u2028", "٣", "\f", "\u200B", "\u0085");
    std::string text;
    for (const std::string& piece : *rc::gen::container<Names>(pieces))
        text += piece;
    // A free number tells the base from the whole.
    RC_ASSERT(uniqueName(text, Names{text, withoutMatch(text) + " 1"}) ==
                  withoutMatch(text) + " 2" ||
              withoutMatch(text) + " 2" == text);
}

TEST(AppendingSuffix, standsBeforeTheExtension) {
    EXPECT_EQ(appendingSuffix("photo.png", "2x"), "photo-2x.png");
    EXPECT_EQ(appendingSuffix("/tmp/photo.old.png", "2x"), "/tmp/photo.old-2x.png");
    EXPECT_EQ(appendingSuffix("photo..png", "2x"), "photo.-2x.png");
}

TEST(AppendingSuffix, givesANameWithoutExtensionTheDotToo) {
    EXPECT_EQ(appendingSuffix("photo", "2x"), "photo-2x.");
    EXPECT_EQ(appendingSuffix(".photo", "2x"), ".photo-2x.") << "a hidden file has none";
    EXPECT_EQ(appendingSuffix("photo.", "2x"), "photo-2x.");
}

TEST(ApendingPathExtension, followsThePathRules) {
    EXPECT_EQ(apendingPathExtension("/tmp/", "tiff"), "/tmp.tiff");
    EXPECT_EQ(apendingPathExtension("/tmp/scratch.", "tiff"), "/tmp/scratch..tiff");
    EXPECT_EQ(apendingPathExtension("/", "tiff"), std::nullopt);
}

TEST(DeletingScreenPrefix, removesEveryToAndThenEveryFrom) {
    EXPECT_EQ(deletingScreenPrefix("to.Home"), "Home");
    EXPECT_EQ(deletingScreenPrefix("from.Home"), "Home");
    EXPECT_EQ(deletingScreenPrefix("a.to.bfrom.cto."), "a.bc");
    EXPECT_EQ(deletingScreenPrefix("photo.png"), "phopng") << "anywhere in the text";
    EXPECT_EQ(deletingScreenPrefix("To.Home to, from"), "To.Home to, from");
}

TEST(DeletingScreenPrefix, leavesWhatARemovalForms) {
    EXPECT_EQ(deletingScreenPrefix("tto.o.x"), "to.x");
    EXPECT_EQ(deletingScreenPrefix("frto.om.x"), "x") << "the second pass sees what the first left";
    EXPECT_EQ(deletingScreenPrefix("tfrom.o.x"), "to.x");
}

TEST(RemovingUnsafeFilenameCharacter, turnsABCWithSlashAndColonIntoUnderscores) {
    EXPECT_EQ(removingUnsafeFilenameCharacter("a/b:c"), "a_b_c");
}

TEST(RemovingUnsafeFilenameCharacter, knowsThreeCharacters) {
    EXPECT_EQ(removingUnsafeFilenameCharacter("\\//::"), "_____");
    EXPECT_EQ(removingUnsafeFilenameCharacter("a*?\"<>|.\xFFü"), "a*?\"<>|.\xFFü");
}

TEST(StripCharacters, removesEveryListedOne) {
    EXPECT_EQ(stripCharacters("a-b_c-d", Names{"-", "_"}), "abcd");
    EXPECT_EQ(stripCharacters("größe", Names{"ö", "ß"}), "gre");
    EXPECT_EQ(stripCharacters("abc", Names{}), "abc");
}

TEST(StripCharacters, takesALetterWithItsAccentsForOne) {
    EXPECT_EQ(stripCharacters("e\u0301e", Names{"e"}), "e\u0301");
    EXPECT_EQ(stripCharacters("e\u0301e", Names{"\u00E9"}), "e") << "however it is encoded";
    EXPECT_EQ(stripCharacters("a\r\nb\n", Names{"\n"}), "a\r\nb");
    EXPECT_EQ(stripCharacters("abab", Names{"ab"}), "abab") << "two characters";
    EXPECT_EQ(stripCharacters("🇸🇪🇸👩‍👧👧", Names{"🇸", "👧"}),
              "🇸🇪👩‍👧")
        << "flags and families";
}

TEST(StripCharacters, keepsBytesThatAreNoTextUnlessTheyAreListed) {
    EXPECT_EQ(stripCharacters("\xFF-a\xC3-", Names{"-"}),
              "\xFF"
              "a\xC3");
    EXPECT_EQ(stripCharacters("a\xFF", Names{"\uFFFD"}), "a") << "they are read as that";
}

TEST(IsEmailAddress, wantsTheWholeText) {
    for (const char* good : {"a@b.co", "first.last+tag_%-1@sub-domain.example.org", "ü@grün.de"})
        EXPECT_TRUE(isEmailAddress(good)) << good;
    for (const char* bad : {"", "a", "a@b", "a@b.c", "@b.co", "a@.", "a b@c.de", " a@b.co",
                            "a@b.co ", "a@b@c.de", "a@b.c-", "a@b.co\xFF", "\xFF@b.co"})
        EXPECT_FALSE(isEmailAddress(bad)) << bad;
}

TEST(IsEmailAddress, acceptsNoLineBreakAtTheEnd) {
    for (const std::string end : {"\n", "\r", "\r\n", "\u2028", "\u0085", "\n\n"})
        EXPECT_FALSE(isEmailAddress("a@b.co" + end));
    EXPECT_FALSE(isEmailAddress("x\na@b.co"));
}

TEST(HexadecimalOfText, of0aFfIsTheBytes0AAndFF) {
    EXPECT_THAT(hexadecimal("0aFf"), Optional(ElementsAre(0x0A, 0xFF)));
}

TEST(HexadecimalOfText, readsRunsOfOneOrTwoDigits) {
    EXPECT_THAT(hexadecimal("abc"), Optional(ElementsAre(0xAB, 0x0C)));
    EXPECT_THAT(hexadecimal("a b"), Optional(ElementsAre(0x0A, 0x0B)));
    EXPECT_THAT(hexadecimal("0x1F, 0x2"), Optional(ElementsAre(0x00, 0x1F, 0x00, 0x02)));
    EXPECT_THAT(hexadecimal("g\xFFz9"), Optional(ElementsAre(0x09)));
}

TEST(HexadecimalOfText, isNothingWithoutADigit) {
    EXPECT_EQ(hexadecimal(""), std::nullopt);
    EXPECT_EQ(hexadecimal("xyz – ü"), std::nullopt);
}

RC_GTEST_PROP(HexadecimalOfText, takesWhatTheExpressionMatches, ()) {
    const auto text =
        *rc::gen::container<std::string>(rc::gen::elementOf(std::string("09afAFgG -")));
    const auto found =
        Regex::create("[0-9a-f]{1,2}", NSRegularExpressionOptions::caseInsensitive)->matches(text);
    const auto bytes = hexadecimal(text);
    RC_ASSERT(bytes.has_value() == found.has_value());
    RC_ASSERT((bytes ? bytes->size() : 0) == (found ? found->size() : 0));
    for (std::size_t i = 0; bytes && i < bytes->size(); ++i)
        RC_ASSERT((*bytes)[i] == std::stoul((*found)[i][0], nullptr, 16));
}

TEST(TextHelpers, takeLongTextsInNoTime) {
    // With anything that grows by the square this would run for minutes.
    constexpr std::size_t size = 200'000;
    const std::string blanks(size, ' '), digits(size, '1'), tos = [] {
        std::string text;
        for (std::size_t i = 0; i < size / 3; ++i)
            text += "to.";
        return text;
    }();
    EXPECT_EQ(uniqueName(blanks, Names{blanks}), blanks + " 1");
    EXPECT_EQ(uniqueName(blanks + digits, Names{blanks + digits}), " 1");
    EXPECT_EQ(uniqueName(blanks + "x", Names{blanks + "x", blanks + "x 1"}), blanks + "x 2");
    EXPECT_EQ(deletingScreenPrefix(tos), "");
    EXPECT_EQ(stripCharacters(blanks, Names{" "}), "");
    EXPECT_EQ(removingUnsafeFilenameCharacter(blanks), blanks);
    EXPECT_EQ(hexadecimal(digits)->size(), size / 2);
    EXPECT_FALSE(isEmailAddress("a@" + tos + "!"));
    EXPECT_FALSE(isEmailAddress(std::string(size, '\xFF')));
}

}  // namespace
}  // namespace quorin
