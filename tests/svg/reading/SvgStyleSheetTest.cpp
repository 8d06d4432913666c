#include "quorin/svg/reading/SvgStyleSheet.h"

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Sheet {
    explicit Sheet(std::string_view text) { add(text); }

    void add(std::string_view text) {
        sheet.add(text, [&](std::string_view selector, std::size_t offset) {
            unread.push_back(std::string(selector) + "@" + std::to_string(offset));
        });
    }
    /// The values of the declarations for an element, weaker ones first.
    std::vector<std::string> values(const SvgSelectable& element) const {
        std::vector<std::string> result;
        for (const SvgRule* rule : sheet.rulesFor(element))
            for (const SvgDeclaration& declaration : rule->declarations)
                result.emplace_back(declaration.value);
        return result;
    }

    SvgStyleSheet sheet;
    std::vector<std::string> unread;
};

TEST(SvgStyleSheet, selectsByTypeIdAndClass) {
    const Sheet sheet("path{a:type} #x{a:id} .k{a:class} *{a:any} path.k.l{a:both} rect{a:other}");
    EXPECT_THAT(sheet.values({"path", "x", "k"}), ElementsAre("any", "type", "class", "id"));
    EXPECT_THAT(sheet.values({"path", "", "l  k"}), ElementsAre("any", "type", "class", "both"));
    EXPECT_THAT(sheet.values({"rect", "y", ""}), ElementsAre("any", "other"));
    EXPECT_THAT(sheet.values({"circle", "", "kk"}), ElementsAre("any"));
    EXPECT_THAT(sheet.unread, IsEmpty());
}

TEST(SvgStyleSheet, letsTheLaterOfEquallyStrongRulesWin) {
    Sheet sheet(".a{v:1} .b{v:2} .a{v:3}");
    sheet.add(".b{v:4}");
    EXPECT_THAT(sheet.values({"path", "", "b a"}), ElementsAre("1", "2", "3", "4"));
}

TEST(SvgStyleSheet, ranksIdsOverClassesOverTypes) {
    const Sheet sheet("#i{v:5} .a.b{v:4} path.a{v:3} .a{v:2} path{v:1}");
    EXPECT_THAT(sheet.values({"path", "i", "a b"}), ElementsAre("1", "2", "3", "4", "5"));
}

TEST(SvgStyleSheet, readsListsCommentsAndWhatAnEditorWrites) {
    const Sheet sheet(
        "\n<!-- not CSS but seen -->\n/* .c { v:0 } */ .a , .b /* and */ { v : 1 ; w:2 }\n"
        ".c{v:3;}.d{}");
    EXPECT_THAT(sheet.values({"g", "", "b"}), ElementsAre("1", "2"));
    EXPECT_THAT(sheet.values({"g", "", "c"}), ElementsAre("3"));
    EXPECT_THAT(sheet.values({"g", "", "d"}), IsEmpty());
}

TEST(SvgStyleSheet, namesSelectorsThatItDoesNotRead) {
    const Sheet sheet("g path{v:1} .a:hover,.b{v:2} a>b{v:3} [x]{v:4}");
    EXPECT_THAT(sheet.unread, ElementsAre("g path@0", ".a:hover@12", "a>b@29", "[x]@38"));
    EXPECT_THAT(sheet.values({"path", "", "a"}), IsEmpty());
    EXPECT_THAT(sheet.values({"path", "", "b"}), ElementsAre("2"));
}

TEST(SvgStyleSheet, passesOverRulesThatBeginWithAt) {
    const Sheet sheet(
        "@import url(x;y.css); @charset 'u'; @media print { .a{v:1} .b{v:2} } .a{v:3} "
        "@font-face{}");
    EXPECT_THAT(sheet.values({"g", "", "a"}), ElementsAre("3"));
    EXPECT_THAT(sheet.unread, IsEmpty());
}

TEST(SvgStyleSheet, readsSheetsThatBreakOff) {
    EXPECT_THAT(Sheet(".a{v:1").values({"g", "", "a"}), ElementsAre("1"));
    EXPECT_THAT(Sheet(".a{v:1;w").values({"g", "", "a"}), ElementsAre("1"));
    for (const char* text : {"", ".a", "{", "}", "{}", "a{{", "@media{", "/*", ".a{'", ","})
        EXPECT_THAT(Sheet(text).values({"path", "", "x"}), IsEmpty()) << text;
}

TEST(SvgStyleSheet, looksAtAHundredClassesOnly) {
    std::string classes;
    for (int i = 0; i < 100; ++i)
        classes += "x ";
    const Sheet sheet(".x{v:1} .y{v:2}");
    EXPECT_THAT(sheet.values({"g", "", "y x"}), ElementsAre("1", "2"));
    EXPECT_EQ(sheet.values({"g", "", classes + "y"}).back(), "1");
}

TEST(SvgStyleSheet, knowsWhereDeclarationsStand) {
    Sheet sheet(".a{v:1}");
    sheet.add("  .a{ w: 22}");
    const auto rules = sheet.sheet.rulesFor({"g", "", "a"});
    ASSERT_EQ(rules.size(), 2u);
    EXPECT_EQ(rules[0]->sheet, 0u);
    EXPECT_EQ(rules[0]->declarations[0].offset, 5u);
    EXPECT_EQ(rules[1]->sheet, 1u);
    EXPECT_EQ(rules[1]->declarations[0].offset, 9u);
}

}  // namespace
}  // namespace quorin
