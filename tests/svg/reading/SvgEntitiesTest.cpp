#include "quorin/svg/reading/SvgEntities.h"

#include "tests/TestSupport.h"

namespace quorin {
namespace {

constexpr std::size_t plenty = 1'000'000;

TEST(SvgEntities, replacesWhatTheDocumentDefines) {
    SvgEntities entities(
        "<?xml version='1.0'?><!DOCTYPE svg PUBLIC \"a\" \"b\" [\n"
        "<!ENTITY st0 \"fill:#fff;\">\n<!ENTITY  st1  'stroke:none;' >]><svg/>",
        plenty);
    EXPECT_EQ(entities.replaced("&st0;"), "fill:#fff;");
    EXPECT_EQ(entities.replaced("a &st1;b&st0;"), "a stroke:none;bfill:#fff;");
    EXPECT_EQ(entities.replaced("&st2;&st0;"), "&st2;fill:#fff;");
    EXPECT_EQ(entities.replaced("& &st0"), "& &st0");
    EXPECT_EQ(entities.replaced("plain"), "plain");
}

TEST(SvgEntities, leavesExternalOnesAlone) {
    SvgEntities entities("<!DOCTYPE svg [<!ENTITY x SYSTEM \"file:///etc/passwd\">]>", plenty);
    EXPECT_EQ(entities.replaced("&x;"), "&x;");
}

TEST(SvgEntities, doesNotLetEntitiesGrowInEachOther) {
    SvgEntities entities(
        "<!DOCTYPE lolz [<!ENTITY a \"lol\"><!ENTITY b \"&a;&a;\"><!ENTITY c \"&b;&b;\">]>",
        plenty);
    EXPECT_EQ(entities.replaced("&c;"), "&b;&b;");
}

TEST(SvgEntities, stopsWhenItsBudgetIsSpent) {
    SvgEntities entities("<!DOCTYPE s [<!ENTITY a \"0123456789\">]>", 25);
    const std::string_view first = "&a;&a;", second = "&a;";
    EXPECT_EQ(entities.replaced(first), "01234567890123456789");
    EXPECT_EQ(entities.replaced(second), second);
    EXPECT_EQ(entities.replaced(first), "01234567890123456789");
}

TEST(SvgEntities, readsDeclarationsThatBreakOff) {
    for (const char* text : {"<!DOCTYPE", "<!DOCTYPE svg", "<!DOCTYPE svg>&a;", "<!DOCTYPE svg [",
                             "<!DOCTYPE svg [<!ENTITY", "<!DOCTYPE svg [<!ENTITY a",
                             "<!DOCTYPE svg [<!ENTITY a ", "<!DOCTYPE svg [<!ENTITY a \"x", ""}) {
        SvgEntities entities(text, plenty);
        EXPECT_EQ(entities.replaced("&b;"), "&b;") << text;
    }
}

}  // namespace
}  // namespace quorin
