#include "quorin/svg/SvgReader.h"

#include "quorin/svg/SvgWriter.h"
#include "tests/TestSupport.h"
#include "tests/svg/ReadDrawing.h"

namespace quorin {
namespace {

using test::drawnText;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StrEq;
using ::testing::ThrowsMessage;

std::string repeated(std::string_view text, std::size_t count) {
    std::string result;
    for (std::size_t i = 0; i < count; ++i)
        result += text;
    return result;
}

TEST(SvgReader, keepsWhatStandsBeforeAnErrorAndNamesFileLineAndOffset) {
    const std::string text =
        "<svg viewBox=\"0 0 22 22\">\n  <path\n    d=\"M 13,9 3,19 h 11 v -8 l\"/>\n"
        "  <path d='M1 1H2'/>\n</svg>\n";
    const SvgReadResult result = readSvg(text, "icons/locked.svg");
    EXPECT_EQ(drawnText(result.drawing), "M 13,9 L 3,19 L 14,19 L 14,11 | M 1,1 L 2,1");
    ASSERT_THAT(result.warnings, SizeIs(1));
    const std::size_t offset = text.find("l\"") + 1;
    EXPECT_EQ(result.warnings[0].description(),
              "icons/locked.svg:3: offset " + std::to_string(offset) +
                  ": path data: expected a number before the end");
}

TEST(SvgReader, readsTextInUtf8AndUtf16) {
    const std::string plain = "<svg viewBox='0 0 9 9'><path id='x' d='M1 1H2'/></svg>";
    std::string wide = "\xff\xfe";
    for (const char c : plain) {
        wide += c;
        wide += '\0';
    }
    for (const std::string& text : {plain, "\xef\xbb\xbf" + plain, wide}) {
        const SvgReadResult result = readSvg(text, "t.svg");
        EXPECT_EQ(drawnText(result.drawing), "M 1,1 L 2,1");
        EXPECT_EQ(result.drawing.shapes[0].id, "x");
    }
}

TEST(SvgReader, makesIdsThatAreAlwaysCharacters) {
    const Drawing drawing = readSvg("<svg><path id='a\xff' d='M1 1H2'/></svg>", "t.svg").drawing;
    EXPECT_EQ(drawing.shapes[0].id, "a\ufffd");
}

TEST(SvgReader, readsDeclarationsAndDocumentTypes) {
    const SvgReadResult result = readSvg(
        "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"no\"?>\n"
        "<!DOCTYPE svg PUBLIC \"-//W3C//DTD SVG 1.1//EN\" "
        "\"http://www.w3.org/Graphics/SVG/1.1/DTD/svg11.dtd\" [\n"
        "  <!ENTITY ns_svg \"http://www.w3.org/2000/svg\">\n"
        "  <!ATTLIST svg x CDATA #IMPLIED>\n]>\n<!-- made by hand -->\n"
        "<svg xmlns=\"&ns_svg;\" viewBox='0 0 9 9'><path d='M1 1H2'/></svg>\n<!-- end -->\n",
        "t.svg");
    EXPECT_EQ(drawnText(result.drawing), "M 1,1 L 2,1");
    EXPECT_THAT(result.warnings, IsEmpty());
}

TEST(SvgReader, isNotBlownUpByEntities) {
    std::string text = "<!DOCTYPE lolz [<!ENTITY l0 \"lol\">";
    for (int i = 1; i < 30; ++i)
        text += "<!ENTITY l" + std::to_string(i) + " \"" +
                repeated("&l" + std::to_string(i - 1) + ";", 10) + "\">";
    text += "]><svg><g id='&l29;'>&l29;</g><path d='&l29;' style='&l29;'/></svg>";
    const SvgReadResult result = readSvg(text, "lol.svg");
    EXPECT_THAT(result.drawing.shapes, IsEmpty());
    EXPECT_THAT(result.warnings, SizeIs(1));
}

TEST(SvgReader, opensNothingFromOutside) {
    const SvgReadResult result = readSvg(
        "<!DOCTYPE svg [<!ENTITY x SYSTEM \"file:///etc/hostname\">"
        "<!ENTITY % y SYSTEM \"http://localhost/x.dtd\"> %y;]>"
        "<svg xmlns:xlink='http://www.w3.org/1999/xlink'><path id='&x;' d='M1 1H2'/>"
        "<use xlink:href='/etc/hostname#a'/><style>@import url(/etc/hostname);</style></svg>",
        "t.svg");
    EXPECT_EQ(result.drawing.shapes.at(0).id, "&x;");
    EXPECT_THAT(result.warnings, SizeIs(1));
}

// A parser or a walk that calls itself for each level would run out of stack.
TEST(SvgReader, refusesAMillionElementsInsideEachOther) {
    SvgLimits limits;
    limits.elements = 1'000'001;
    const std::string closed =
        "<svg>\n" + repeated("<g>", 1'000'000) + repeated("</g>", 1'000'000) + "</svg>";
    EXPECT_THAT([&] { readSvg(closed, "deep.svg", limits); },
                ThrowsMessage<SvgError>(StrEq("deep.svg:2: elements are nested deeper than 1024")));
}

TEST(SvgReader, refusesElementsInsideEachOtherThatDoNotEnd) {
    const std::string open = "<svg>\n" + repeated("<g>", 100'000);
    EXPECT_THAT(
        [&] { readSvg(open, "deep.svg"); },
        ThrowsMessage<SvgError>(StrEq("deep.svg:2: the text ends before the last element does")));
    SvgLimits limits;
    limits.elements = 100'000;
    EXPECT_THAT([&] { readSvg(open, "deep.svg", limits); },
                ThrowsMessage<SvgError>(StrEq("deep.svg:2: there are more than 100000 elements")));
}

TEST(SvgReader, readsElementsDownToTheLimit) {
    const std::string text = "<svg viewBox='0 0 9 9'>" +
                             repeated("<g transform='translate(1)'>", 1'022) +
                             "<path d='M1 1H2'/>" + repeated("</g>", 1'022) + "</svg>";
    EXPECT_EQ(drawnText(readSvg(text, "t.svg").drawing), "M 1023,1 L 1024,1");
    const std::string deeper = "<svg>" + repeated("<g>", 1'023) + "<path d='M1 1H2'/>" +
                               repeated("</g>", 1'023) + "</svg>";
    EXPECT_THROW(readSvg(deeper, "t.svg"), SvgError);
}

TEST(SvgReader, refusesEveryBeginningOfADrawing) {
    const std::string text =
        "<?xml version='1.0'?><!DOCTYPE svg [<!ENTITY a 'b'>]><!-- c --><svg viewBox='0 0 9 9'>"
        "<style><![CDATA[ path { fill: red } ]]></style><g><path d='M1 1H2'/></g></svg>";
    for (std::size_t length = 0; length < text.size(); ++length)
        EXPECT_THROW(readSvg(text.substr(0, length), "t.svg"), SvgError) << length;
    EXPECT_EQ(drawnText(readSvg(text, "t.svg").drawing), "M 1,1 L 2,1");
}

RC_GTEST_PROP(SvgReader, survivesDamagedDrawings, ()) {
    std::string text =
        "<svg width='10' height='9' viewBox='0 0 10 10'><style>.a{fill:red;stroke:url(#g)}</style>"
        "<linearGradient id='g'><stop offset='50%' stop-color='#fff'/></linearGradient>"
        "<symbol id='s' viewBox='0 0 5 5'><rect rx='1' width='3' height='3' class='a'/></symbol>"
        "<g transform='rotate(30) scale(2)'><use href='#s' x='1'/><path d='M0 0a5 5 0 01 3 "
        "3z'/></g>"
        "</svg>";
    const auto place = rc::gen::inRange<std::size_t>(0, text.size());
    for (int i = *rc::gen::inRange(1, 8); i > 0; --i) {
        switch (*rc::gen::inRange(0, 3)) {
            case 0:
                text[*place % text.size()] = *rc::gen::arbitrary<char>();
                break;
            case 1:
                text.erase(*place % text.size(), 3);
                break;
            default:
                text.insert(*place % text.size(), text.substr(*place % text.size(), *place % 20));
        }
        RC_PRE(!text.empty());
    }
    try {
        const SvgReadResult result = readSvg(text, "t.svg");
        const Drawing again = readSvg(writeSvg(result.drawing), "again.svg").drawing;
        RC_ASSERT(hasSameGeometry(again, result.drawing));
    } catch (const SvgError& error) {
        RC_ASSERT(std::string_view(error.what()).starts_with("t.svg:"));
    }
}

}  // namespace
}  // namespace quorin
