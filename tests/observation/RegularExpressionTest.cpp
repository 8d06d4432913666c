#include "quorin/observation/RegularExpression.h"

#include <chrono>
#include <ctime>
#include <string>
#include <vector>

#include "quorin/platform/foundation/UTF16.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

using Options = Regex::Options;
using Matches = Regex::Matches;

Matches found(const std::string& pattern, std::string_view input, Options options = Options::none,
              NSMatchingOptions matching = NSMatchingOptions::none) {
    return Regex::create(pattern, options)->matches(input, matching).value_or(Matches());
}

/// What is found between bars, one after the other.
std::string shown(const Matches& matches) {
    std::string result = "|";
    for (const Regex::Groups& groups : matches)
        result += groups.front() + '|';
    return result;
}

TEST(Regex, keepsPatternAndOptionsAndHasNoMatchesAtFirst) {
    const auto regex = Regex::create("a+", Options::caseInsensitive);
    EXPECT_EQ(regex->pattern(), "a+");
    EXPECT_EQ(regex->options(), Options::caseInsensitive);
    EXPECT_TRUE(regex->m().empty());
}

TEST(Regex, givesAllGroupsOfEachMatchAlsoThoseThatTookNoPart) {
    const auto regex = Regex::create("(a)(b)?");
    EXPECT_TRUE(regex->match("ab a"));
    EXPECT_EQ(regex->m(), (Matches{{"ab", "a", "b"}, {"a", "a", ""}}));
}

TEST(Regex, givesNothingAndForgetsTheLastMatchesWithoutAMatch) {
    const auto regex = Regex::create("a");
    EXPECT_TRUE(regex->match("a"));
    EXPECT_EQ(regex->matches("xyz"), std::nullopt);
    EXPECT_TRUE(regex->m().empty());
    EXPECT_TRUE(regex->match("a"));
    EXPECT_FALSE(regex->match("xyz"));
    EXPECT_TRUE(regex->m().empty());
}

TEST(Regex, givesWhatItKeeps) {
    const auto regex = Regex::create("\\d");
    EXPECT_EQ(regex->matches("1 2"), (Matches{{"1"}, {"2"}}));
    EXPECT_EQ(regex->m(), (Matches{{"1"}, {"2"}}));
}

TEST(Regex, goesOnOneCharacterLaterAfterAnEmptyMatch) {
    EXPECT_EQ(shown(found("x*", "axb")), "||x|||");
    EXPECT_EQ(shown(found("(?:)", "ab")), "||||");
}

TEST(Regex, findsTheEmptyMatchOfAnEmptyText) {
    EXPECT_EQ(found("x*", ""), (Matches{{""}}));
    EXPECT_EQ(found("x*", std::string_view()), (Matches{{""}}));
    EXPECT_TRUE(found("x", "").empty());
}

TEST(Regex, doesNotMatchHalfOfACharacterOutsideTheFirstPlane) {
    EXPECT_EQ(shown(found(".", "\U0001F600x")), "|\U0001F600|x|");
    EXPECT_EQ(found("x*", "\U0001F600").size(), 2u);  // before and after, not within
}

TEST(Regex, handsOutTextsOfOtherScriptsWhole) {
    EXPECT_EQ(found("(\\w+)@(\\w+)", "\u00e4\u00f6@\u65e5\u672c \U0001F600 a@b"),
              (Matches{{"\u00e4\u00f6@\u65e5\u672c", "\u00e4\u00f6", "\u65e5\u672c"},
                       {"a@b", "a", "b"}}));
}

TEST(Regex, readsEachOptionAsItsOwn) {
    struct Row {
        const char* says;
        Options option;
        const char* pattern;
        const char* input;
        const char* without;
        const char* with;
    };
    const Row table[] = {
        {"case", Options::caseInsensitive, "a\u00e4", "A\u00c4", "|", "|A\u00c4|"},
        {"comments", Options::allowCommentsAndWhitespace, "a b # c", "ab", "|", "|ab|"},
        {"literal", Options::ignoreMetacharacters, "a.c", "abc a.c", "|abc|a.c|", "|a.c|"},
        {"dot", Options::dotMatchesLineSeparators, "a.c", "a\nc", "|", "|a\nc|"},
        {"anchors", Options::anchorsMatchLines, "^.", "a\nb", "|a|", "|a|b|"},
        {"unix lines", Options::useUnixLineSeparators, "a.c", "a\rc", "|", "|a\rc|"},
        {"words", Options::useUnicodeWordBoundaries, "\\b\\S+?\\b", "can't", "|can|'|t|",
         "|can't|"},
    };
    for (const auto& [says, option, pattern, input, without, with] : table) {
        SCOPED_TRACE(says);
        EXPECT_EQ(shown(found(pattern, input)), without);
        EXPECT_EQ(shown(found(pattern, input, option)), with);
    }
}

TEST(Regex, combinesOptionsAndIgnoresBitsWithoutAName) {
    EXPECT_EQ(shown(found("A .", "a\n",
                          Options::caseInsensitive | Options::dotMatchesLineSeparators |
                              Options::allowCommentsAndWhitespace)),
              "|a\n|");
    EXPECT_EQ(shown(found("a.", "a\nab", static_cast<Options>(0xFFFFFF00))), "|ab|");
}

TEST(Regex, matchesOnlyAtTheStartWhenAnchored) {
    const auto anchored = NSMatchingOptions::anchored;
    EXPECT_EQ(shown(found("a", "aab", Options::none, anchored)), "|a|");
    EXPECT_EQ(shown(found("b", "aab", Options::none, anchored)), "|");
}

TEST(Regex, findsTheSameWithTheOtherMatchingOptions) {
    for (const auto option :
         {NSMatchingOptions::reportProgress, NSMatchingOptions::reportCompletion,
          NSMatchingOptions::withTransparentBounds, NSMatchingOptions::withoutAnchoringBounds})
        EXPECT_EQ(shown(found("^a|b$", "aab", Options::none, option)), "|a|b|");
}

TEST(Regex, readsWhatIsNoUtf8AsTheReplacementCharacter) {
    EXPECT_EQ(shown(found(".", "\xFF")), "|\uFFFD|");
    EXPECT_EQ(shown(found("a.b",
                          "a\xE2\x82"
                          "b")),
              "|a\uFFFDb|");
    EXPECT_TRUE(Regex::create("\xFF")->match("\xC0"));
}

TEST(Regex, searchesTextsWithZerosToTheirEnd) {
    using namespace std::string_view_literals;
    EXPECT_EQ(shown(found("b", "a\0b"sv)), "|b|");
    EXPECT_EQ(found(std::string("\0b"sv), "a\0b"sv), (Matches{{std::string("\0b"sv)}}));
}

TEST(Regex, followsAChangedPatternAndChangedOptions) {
    const auto regex = Regex::create("a");
    EXPECT_TRUE(regex->match("a"));
    regex->setPattern("b");
    EXPECT_FALSE(regex->match("a"));
    EXPECT_TRUE(regex->match("b"));
    regex->setOptions(Options::caseInsensitive);
    EXPECT_TRUE(regex->match("B"));
    EXPECT_EQ(regex->pattern(), "b");
    EXPECT_EQ(regex->options(), Options::caseInsensitive);
}

TEST(Regex, canSearchATextItFoundItself) {
    const auto regex = Regex::create("[a-z]+");
    EXPECT_TRUE(regex->match("a text too long to be stored without asking for memory"));
    regex->setPattern(".{20,}");
    EXPECT_FALSE(regex->match(regex->m()[5][0]));
    regex->setPattern("[a-z ]+");
    EXPECT_TRUE(regex->match("a text too long to be stored without asking for memory"));
    EXPECT_TRUE(regex->match(regex->m()[0][0]));
    EXPECT_EQ(regex->m()[0][0], "a text too long to be stored without asking for memory");
}

TEST(RegexDeath, aPatternThatCannotBeCompiledStopsTheProcessAtTheSearch) {
    const auto regex = Regex::create("a(b");
    EXPECT_DEATH(regex->match("ab"), "invalid regular expression \"a\\(b\", at 3");
    EXPECT_DEATH(regex->matches("ab"), "MISMATCHED_PAREN");
    EXPECT_DEATH(Regex::create("")->match(""), "invalid regular expression \"\"");
    EXPECT_DEATH(Regex::create("a**+?{")->match(""), "invalid regular expression");
}

TEST(Regex, givesUpAPatternThatTriesEverythingAndKeepsNothing) {
    const auto regex = Regex::create("x|(a+)+$");
    regex->setTimeLimit(std::chrono::milliseconds(20));
    const std::string hostile = "x" + std::string(64, 'a') + "!";
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(regex->match(hostile));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
    EXPECT_TRUE(regex->reachedLimit());
    EXPECT_TRUE(regex->m().empty()) << "not the x before the place where it gave up";
    EXPECT_EQ(regex->matches(hostile), std::nullopt);

    EXPECT_TRUE(regex->match("aaa")) << "the next search starts afresh";
    EXPECT_FALSE(regex->reachedLimit());
}

TEST(Regex, givesUpScanningAHugeTextFromEveryPlace) {
    const std::string huge(1'000'000, 'a');
    // Both read on to the end from everywhere, the second one without a step back.
    for (const char* pattern : {"[^b]*b", "(?>[^b]*)b"}) {
        SCOPED_TRACE(pattern);
        const auto regex = Regex::create(pattern);
        regex->setTimeLimit(std::chrono::milliseconds(20));
        const std::clock_t start = std::clock();
        EXPECT_FALSE(regex->match(huge));
        EXPECT_LT(std::clock() - start, 2 * CLOCKS_PER_SEC);
        EXPECT_TRUE(regex->reachedLimit());
    }
}

TEST(Regex, givesUpAPatternThatNeedsTooMuchMemory) {
    const auto regex = Regex::create("(?:a|b)*c");
    EXPECT_FALSE(regex->match(std::string(2'000'000, 'a')));
    EXPECT_TRUE(regex->reachedLimit());
}

TEST(Regex, takesAsLongAsItTakesWithoutALimit) {
    const auto regex = Regex::create("(a+)+$");
    EXPECT_EQ(regex->timeLimit(), Regex::defaultTimeLimit);
    regex->setTimeLimit(std::chrono::milliseconds(0));
    EXPECT_FALSE(regex->match(std::string(16, 'a') + "!"));
    EXPECT_FALSE(regex->reachedLimit());
}

TEST(Regex, findsEveryMatchOfALongText) {
    std::string text;
    for (int i = 0; i < 20'000; ++i)
        text += std::to_string(i % 10) + "\u00e9 ";
    const auto regex = Regex::create("\\d");
    ASSERT_TRUE(regex->match(text));
    EXPECT_EQ(regex->m().size(), 20'000u);
}

TEST(RegularExpressionMatchable, textIsMatchedAndSearchedByARegex) {
    static_assert(RegularExpressionMatchable<std::string>);
    static_assert(RegularExpressionMatchable<std::string_view>);
    static_assert(RegularExpressionMatchable<const char*>);
    static_assert(!RegularExpressionMatchable<int>);

    const auto regex = Regex::create("(b)c");
    EXPECT_TRUE(match("abc", *regex));
    EXPECT_FALSE(match("ab", *regex));
    EXPECT_EQ(matches("abc", *regex), (Matches{{"bc", "b"}}));
    EXPECT_EQ(matches("ab", *regex), std::nullopt);
}

RC_GTEST_PROP(Regex, piecesTogetherAreTheText, (const std::string& text)) {
    // Every text is runs of letters and runs of anything else, so nothing is lost or added.
    std::string together;
    for (const auto& groups : found("\\w+|\\W+", text))
        together += groups.front();
    RC_ASSERT(together == utf8(utf16(text)));
}

RC_GTEST_PROP(Regex, takesAnyBytesForAText, (const std::vector<char>& bytes)) {
    const std::string text(bytes.begin(), bytes.end());
    for (const auto& groups : found("(.)", text, Options::dotMatchesLineSeparators))
        RC_ASSERT(groups[0] == groups[1]);
}

}  // namespace
}  // namespace quorin
