#include "quorin/svg/reading/SvgDocument.h"

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using ::testing::StrEq;
using ::testing::ThrowsMessage;

TEST(SvgDocument, knowsElementsByTheirId) {
    const SvgDocument document("<svg><a id='x'/><g><b id='y'/><c id='x'/></g></svg>", "t", {});
    EXPECT_STREQ(document.elementWithId("x").name(), "a");
    EXPECT_STREQ(document.elementWithId("y").name(), "b");
    EXPECT_FALSE(document.elementWithId("z"));
    EXPECT_FALSE(document.elementWithId(""));
}

TEST(SvgDocument, tellsSvgFromOtherVocabularies) {
    const SvgDocument document(
        "<svg xmlns:s='http://www.w3.org/2000/svg' xmlns:i='http://example.org/i'>"
        "<path/><s:path/><i:path/><x:path/>text<!-- c --></svg>",
        "t", {});
    std::vector<std::string> names;
    for (const pugi::xml_node node : document.root().children())
        names.emplace_back(document.name(node));
    EXPECT_THAT(names, ::testing::ElementsAre("path", "path", "", "", ""));
}

TEST(SvgDocument, readsPrefixedRoots) {
    const SvgDocument document("<s:svg xmlns:s='http://www.w3.org/2000/svg'><s:g/></s:svg>", "t",
                               {});
    EXPECT_EQ(document.name(document.root()), "svg");
    EXPECT_EQ(document.name(document.root().first_child()), "g");
    EXPECT_EQ(SvgDocument("<q:svg/>", "t", {}).root().type(), pugi::node_element);
}

TEST(SvgDocument, findsReferencesWithAnyPrefix) {
    SvgDocument document(
        "<svg><a href='#x'/><b xlink:href=' #y '/><c l:href='#z' href='#w'/>"
        "<d href='f.svg#x'/><e/></svg>",
        "t", {});
    std::vector<std::string> targets;
    for (const pugi::xml_node node : document.root().children())
        targets.emplace_back(document.reference(node).text);
    EXPECT_THAT(targets, ::testing::ElementsAre("x", "y", "w", "", ""));
}

TEST(SvgDocument, knowsWhereThingsStand) {
    const std::string text = "<svg>\n <g a=\"12&lt;345\" b=''/></svg>";
    SvgDocument document(text, "t", {});
    const pugi::xml_node group = document.root().first_child();
    EXPECT_EQ(document.offset(group), text.find("<g"));
    const SvgValue value = document.attribute(group, "a");
    EXPECT_EQ(value.text, "12<345");
    EXPECT_EQ(value.offset, text.find("12"));
    EXPECT_EQ(document.offset(value, 0), text.find("12"));
    EXPECT_EQ(document.offset(value, 3), text.find("345"));
    EXPECT_EQ(document.offset(value, 100), text.size());
    const SvgValue empty = document.attribute(group, "b");
    EXPECT_TRUE(empty.exists);
    EXPECT_EQ(empty.offset, text.find("b="));
    EXPECT_FALSE(document.attribute(group, "c").exists);
}

TEST(SvgDocument, countsCarriageReturnsInPlaces) {
    const std::string text = "<svg><g a='1\r\n2'/></svg>";
    SvgDocument document(text, "t", {});
    const SvgValue value = document.attribute(document.root().first_child(), "a");
    EXPECT_EQ(value.text, "1 2");
    EXPECT_EQ(document.offset(value, 2), text.find('2'));
}

TEST(SvgDocument, refusesTextThatIsNotSvg) {
    struct Row {
        std::string text;
        const char* message;
    };
    const Row table[] = {
        {"", "t:1: the text is empty"},
        {" \n ", "t:1: the text is empty"},
        {"\xef\xbb\xbf", "t:1: the text is empty"},
        {"{\"a\":1}", "t:1: this is not SVG: it does not begin with '<'"},
        {"\x89PNG\r\n\x1a\n", "t:1: this is not SVG: it does not begin with '<'"},
        {std::string("<svg>\n\0</svg>", 13), "t:2: this is not SVG: it holds a zero byte"},
        {"<html><svg/></html>", "t:1: this is not SVG: its first element is <html>"},
        {"\n\n<svgx/>", "t:3: this is not SVG: its first element is <svgx>"},
        {"<?xml version='1.0'?>", "t:1: there is no element"},
        {"<!-- nothing -->", "t:1: there is no element"},
        {"<svg>\n<g>\n</svg>", "t:3: an element ends that is not the one that began last"},
        {"<svg a=b/>", "t:1: an attribute is not XML"},
        {"<svg>\n< g/></svg>", "t:2: the start of an element is not XML"},
    };
    for (const Row& row : table)
        EXPECT_THAT([&] { SvgDocument(row.text, "t", {}); },
                    ThrowsMessage<SvgError>(StrEq(row.message)))
            << row.text;
}

TEST(SvgDocument, saysThatATextEndsEarly) {
    for (const char* text : {"<svg",
                             "<svg ",
                             "<svg a",
                             "<svg a=",
                             "<svg a='",
                             "<svg a='b",
                             "<svg a='b'",
                             "<svg>",
                             "<svg>\n<g",
                             "<svg>\n<g>\n",
                             "<svg><path d='M0 0L1",
                             "<svg></sv",
                             "<svg></svg",
                             "<svg><g></g>\n",
                             "<svg><!-- ",
                             "<svg><![CDATA[ x",
                             "<svg><?x ",
                             "<svg>text",
                             "<!DOCTYPE svg [ <!ENTITY a 'b'",
                             "<"})
        EXPECT_THAT([&] { SvgDocument(text, "t", {}); },
                    ThrowsMessage<SvgError>(
                        ::testing::EndsWith(": the text ends before the last element does")))
            << text;
}

TEST(SvgDocument, namesTheLimitThatWasPassed) {
    SvgLimits limits;
    limits.bytes = 30;
    limits.depth = 3;
    limits.elements = 4;
    const auto read = [&](std::string_view text) { SvgDocument(text, "t", limits); };
    EXPECT_NO_THROW(read("<svg><g><a>x</a></g></svg>"));
    EXPECT_NO_THROW(read("<svg><g/><g/><g/></svg>"));
    EXPECT_THAT([&] { read("<svg>                             </svg>"); },
                ThrowsMessage<SvgError>(StrEq("t:1: the text is longer than 30 bytes")));
    EXPECT_THAT([&] { read("<svg><g><a>\n<b/></a></g></svg>"); },
                ThrowsMessage<SvgError>(StrEq("t:2: elements are nested deeper than 3")));
    EXPECT_THAT([&] { read("<svg><g/><g/><g/>\n<g/></svg>"); },
                ThrowsMessage<SvgError>(StrEq("t:2: there are more than 4 elements")));
}

}  // namespace
}  // namespace quorin
