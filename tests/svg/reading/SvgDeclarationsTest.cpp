#include "quorin/svg/reading/SvgDeclarations.h"

#include <vector>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using ::testing::ElementsAre;

std::vector<std::string> declarations(std::string_view text) {
    std::vector<std::string> result;
    forEachDeclaration(text, [&](const SvgDeclaration& declaration) {
        result.push_back(std::string(declaration.property) + "=" + std::string(declaration.value) +
                         "@" + std::to_string(declaration.offset) +
                         (declaration.isImportant ? "!" : ""));
    });
    return result;
}

TEST(SvgDeclarations, areSplitAtSemicolons) {
    EXPECT_THAT(declarations("fill:red; stroke : blue ;;x"),
                ElementsAre("fill=red@5", "stroke=blue@19"));
    EXPECT_THAT(declarations(""), ElementsAre());
    EXPECT_THAT(declarations("fill:"), ElementsAre("fill=@5"));
}

TEST(SvgDeclarations, keepSemicolonsInQuotesAndParentheses) {
    EXPECT_THAT(declarations("a:url(data:x;y);b:'; ;';c:\"(;\";d:1"),
                ElementsAre("a=url(data:x;y)@2", "b='; ;'@18", "c=\"(;\"@26", "d=1@33"));
    EXPECT_THAT(declarations("a:url(x;b:1"), ElementsAre("a=url(x;b:1@2"));
    EXPECT_THAT(declarations("a:'x;b:1"), ElementsAre("a='x;b:1@2"));
}

TEST(SvgDeclarations, tellWhatIsImportant) {
    EXPECT_THAT(declarations("a:1!important;b:2 ! IMPORTANT ;c:3!x"),
                ElementsAre("a=1@2!", "b=2@16!", "c=3!x@33"));
}

TEST(SvgDeclarations, loseCommentsButNotTheirPlaces) {
    EXPECT_EQ(withoutCssComments("a/*b*/c/**/d"), "a     c    d");
    EXPECT_EQ(withoutCssComments("a/*b"), "a   ");
    EXPECT_EQ(withoutCssComments("/*/a*/b"), "      b");
    EXPECT_EQ(withoutCssComments("a*/b"), "a*/b");
}

}  // namespace
}  // namespace quorin
