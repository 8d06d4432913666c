#include "quorin/platform/foundation/UnicodeText.h"

#include <vector>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::ElementsAre;

std::vector<std::string> charactersOf(std::string_view text) {
    std::vector<std::string> characters;
    forEachCharacter(text, [&](std::string_view character) { characters.emplace_back(character); });
    return characters;
}

TEST(Lowercased, followsTheFullRules) {
    EXPECT_EQ(lowercased("Frame [@`{ 1Z"), "frame [@`{ 1z");
    EXPECT_EQ(lowercased("ÄÖÜ ЖД"), "äöü жд");
    EXPECT_EQ(lowercased("ΟΔΟΣ ΣΟ"), "οδος σο") << "a sigma at the end of a word is another letter";
    EXPECT_EQ(lowercased("İI"), "i̇i") << "one letter becomes two code points, whatever the locale";
    EXPECT_EQ(lowercased("ẞ"), "ß");
    EXPECT_EQ(lowercased("𐐀"), "𐐨");
    EXPECT_EQ(lowercased(""), "");
}

TEST(Lowercased, growsAsFarAsItMust) {
    std::string upper, lower;
    for (int i = 0; i < 1000; ++i) {
        upper += "İ";
        lower += "i̇";
    }
    EXPECT_EQ(lowercased(upper), lower);
}

TEST(Lowercased, readsWhatIsNoCharacterAsTheReplacement) {
    EXPECT_EQ(lowercased("A\xFF\xC3"), "a\uFFFD\uFFFD");
}

TEST(Composed, makesOneOfWhatLooksTheSame) {
    EXPECT_EQ(composed("e\u0301"), "\u00E9");
    EXPECT_EQ(composed("\u00E9"), "\u00E9");
    EXPECT_EQ(composed("\u212B"), "\u00C5") << "the sign of a unit is the letter";
    EXPECT_EQ(composed("plain"), "plain");
    EXPECT_EQ(composed("\xFF"), "\uFFFD");
}

TEST(Characters, areWhatAReaderTakesForOne) {
    EXPECT_THAT(charactersOf("ae\u0301\r\n🇸🇪👩‍👧"),
                ElementsAre("a", "e\u0301", "\r\n", "🇸🇪", "👩‍👧"));
    EXPECT_THAT(charactersOf(""), ElementsAre());
}

RC_GTEST_PROP(Characters, areTheWholeText, (const std::string& bytes)) {
    std::string whole;
    for (const std::string& character : charactersOf(bytes))
        whole += character;
    RC_ASSERT(whole == bytes);
}

TEST(LastCodePoint, isReadFromTheEnd) {
    const auto last = [](std::string_view text) {
        const CodePoint point = lastCodePoint(text);
        return std::pair(point.value, point.size);
    };
    EXPECT_EQ(last("aé"), std::pair(U'é', std::size_t{2}));
    EXPECT_EQ(last("ab"), std::pair(U'b', std::size_t{1}));
    EXPECT_EQ(last("𐐨"), std::pair(U'𐐨', std::size_t{4}));
    EXPECT_EQ(last("a\x80"), std::pair(U'\uFFFD', std::size_t{1}));
    EXPECT_EQ(last(""), std::pair(U'\0', std::size_t{0}));
}

TEST(CodePointClasses, coverAllScripts) {
    for (const char32_t blank : {U' ', U'\t', U'\n', U'\u00A0', U'\u3000', U'\u0085'})
        EXPECT_TRUE(isWhiteSpace(blank));
    EXPECT_FALSE(isWhiteSpace(U'\u200B'));
    EXPECT_TRUE(isDecimalDigit(U'0') && isDecimalDigit(U'٣') && isDecimalDigit(U'९'));
    EXPECT_FALSE(isDecimalDigit(U'²') || isDecimalDigit(U'a'));
}

}  // namespace
}  // namespace quorin
