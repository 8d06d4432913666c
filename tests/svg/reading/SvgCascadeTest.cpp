#include "quorin/svg/reading/SvgCascade.h"

#include "tests/TestSupport.h"
#include "tests/svg/ReadDrawing.h"

namespace quorin {
namespace {

using test::readDrawing;
using test::warningsAbout;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr DrawingColor red{1, 0, 0, 1}, lime{0, 1, 0, 1}, blue{0, 0, 1, 1};

/// The fill of the first shape.
DrawingBrush fillOf(std::string_view elements) {
    return readDrawing(elements).shapes.at(0).paint.fill;
}

TEST(SvgCascade, ranksSheetsOverAttributesAndStylesOverSheets) {
    EXPECT_EQ(fillOf("<path d='M0 0H1' fill='red'/>"), DrawingBrush(red));
    EXPECT_EQ(fillOf("<style>path{fill:lime}</style><path d='M0 0H1' fill='red'/>"),
              DrawingBrush(lime));
    EXPECT_EQ(fillOf("<style>#a{fill:lime}</style>"
                     "<path id='a' d='M0 0H1' fill='red' style='fill:blue'/>"),
              DrawingBrush(blue));
}

TEST(SvgCascade, letsImportantDeclarationsWin) {
    EXPECT_EQ(fillOf("<style>path{fill:lime!important}</style><path d='M0 0H1' style='fill:red'/>"),
              DrawingBrush(lime));
    EXPECT_EQ(fillOf("<style>path{fill:lime!important}</style>"
                     "<path d='M0 0H1' style='fill:red !important'/>"),
              DrawingBrush(red));
}

// How themed icons name their colours, so that a desktop can put its own in their place.
TEST(SvgCascade, paintsWithTheColorOfAClass) {
    const Drawing drawing = readDrawing(
        "<defs><style type=\"text/css\" id=\"current-color-scheme\">\n"
        "      .ColorScheme-Text {\n        color:#232629;\n      }\n"
        "      .ColorScheme-Highlight { color:#3daee9; }\n</style></defs>"
        "<path style='fill:currentColor;fill-opacity:1;stroke:none' d='M3 3v1' "
        "class='ColorScheme-Text'/>"
        "<g class='ColorScheme-Highlight'><path d='M3 3v1' fill='currentColor'/></g>");
    ASSERT_EQ(drawing.shapes.size(), 2u);
    EXPECT_EQ(drawing.shapes[0].paint.fill,
              DrawingBrush(DrawingColor{0x23 / 255.0, 0x26 / 255.0, 0x29 / 255.0, 1}));
    EXPECT_EQ(drawing.shapes[1].paint.fill,
              DrawingBrush(DrawingColor{0x3d / 255.0, 0xae / 255.0, 0xe9 / 255.0, 1}));
}

TEST(SvgCascade, passesCurrentColorOnAsAWord) {
    EXPECT_EQ(fillOf("<g fill='currentColor' color='red'><path color='blue' d='M0 0H1'/></g>"),
              DrawingBrush(blue));
}

TEST(SvgCascade, findsSheetsAnywhereAndInCharacterData) {
    EXPECT_EQ(fillOf("<path d='M0 0H1'/><g><style><![CDATA[path{fill:red}]]></style></g>"),
              DrawingBrush(red));
    EXPECT_EQ(fillOf("<style>path{fill:red}</style><style>path{fill:lime}</style>"
                     "<path d='M0 0H1'/>"),
              DrawingBrush(lime));
}

TEST(SvgCascade, leavesOutSheetsForOthers) {
    EXPECT_EQ(fillOf("<path d='M0 0H1' fill='red'/><style media='print'>path{fill:lime}</style>"
                     "<style type='text/less'>path{fill:lime}</style>"),
              DrawingBrush(red));
    EXPECT_EQ(fillOf("<path d='M0 0H1' fill='red'/>"
                     "<style media='screen, print'>path{fill:lime}</style>"),
              DrawingBrush(lime));
}

TEST(SvgCascade, readsStylesWithComments) {
    EXPECT_EQ(fillOf("<path d='M0 0H1' style='/* fill:lime; */fill:red'/>"), DrawingBrush(red));
}

TEST(SvgCascade, appliesTransformsFromAttributesAndStyles) {
    EXPECT_EQ(test::drawnText("<path d='M1 1H2' transform='translate(5)'/>"), "M 6,1 L 7,1");
    EXPECT_EQ(test::drawnText("<path d='M1 1H2' transform='scale(9)' "
                              "style='transform:translate(5px,0px)'/>"),
              "M 6,1 L 7,1");
}

TEST(SvgCascade, warnsOfWhatItCannotRead) {
    EXPECT_THAT(warningsAbout("<path d='M0 0H1' fill='rainbow'/>"),
                ElementsAre("fill: cannot read 'rainbow'"));
    EXPECT_THAT(warningsAbout("<path d='M0 0H1' style='stroke:none;opacity:x'/>"),
                ElementsAre("opacity: cannot read 'x'"));
    EXPECT_THAT(warningsAbout("<path d='M0 0H1' transform='rotate(x)'/>"),
                ElementsAre("transform: expected a number"));
    EXPECT_THAT(warningsAbout("<style>g path{fill:red}</style>"),
                ElementsAre("style: the selector 'g path' is not read"));
    EXPECT_THAT(warningsAbout("<path d='M0 0H1' fill='" + std::string(100, 'x') + "'/>"),
                ElementsAre("fill: cannot read '" + std::string(60, 'x') + "...'"));
}

TEST(SvgCascade, namesThePlaceInsideOfSheetsAndStyles) {
    const std::string text =
        "<svg viewBox='0 0 9 9'>\n<style>\n.a { fill: odd }\n</style>\n"
        "<path class='a' style='opacity:\nhalf' d='M0 0H1'/></svg>";
    const SvgReadResult result = readSvg(text, "t.svg");
    ASSERT_EQ(result.warnings.size(), 2u);
    EXPECT_EQ(result.warnings[0].line, 3u);
    EXPECT_EQ(result.warnings[0].offset, text.find("odd"));
    EXPECT_EQ(result.warnings[1].line, 6u);
    EXPECT_EQ(result.warnings[1].offset, text.find("half"));
}

TEST(SvgCascade, readsStylesThatEntitiesStandFor) {
    const SvgReadResult result = readSvg(
        "<!DOCTYPE svg [<!ENTITY st0 \"fill:red;\"><!ENTITY ns \"http://www.w3.org/2000/svg\">]>"
        "<svg xmlns=\"&ns;\" viewBox='0 0 1 1'><path style=\"&st0;opacity:0.5\" d='M0 0H1'/></svg>",
        "t.svg");
    EXPECT_THAT(result.warnings, IsEmpty());
    EXPECT_EQ(result.drawing.shapes.at(0).paint.fill, DrawingBrush(red));
    EXPECT_EQ(result.drawing.shapes.at(0).paint.opacity, 0.5);
}

}  // namespace
}  // namespace quorin
