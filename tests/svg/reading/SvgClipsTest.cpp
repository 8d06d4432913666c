#include "quorin/svg/reading/SvgClips.h"

#include "tests/TestSupport.h"
#include "tests/svg/DrawnText.h"
#include "tests/svg/ReadDrawing.h"

namespace quorin {
namespace {

using test::drawnText;
using test::readDrawing;
using test::warningsAbout;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::ThrowsMessage;

/// What the clips of the first shape draw.
std::vector<std::string> clips(const std::string& elements) {
    std::vector<std::string> texts;
    const Drawing drawing = readDrawing(elements);
    for (const DrawingClip& clip : drawing.shapes.at(0).clips)
        texts.push_back(drawnText(*clip.outline));
    return texts;
}

const std::string square = "<path d='M1 1H5V5H1Z'/>";
const std::string shape = "<path d='M0 0H9' clip-path='url(#c)'/>";

TEST(SvgClips, areTheShapesOfAClipPath) {
    EXPECT_THAT(clips("<clipPath id='c'>" + square + "</clipPath>" + shape),
                ElementsAre("M 1,1 L 5,1 L 5,5 L 1,5 L 1,1 Z"));
    EXPECT_THAT(clips("<clipPath id='c'><rect width='2' height='3'/><title/>" + square +
                      "</clipPath>" + shape),
                ElementsAre("M 0,0 L 2,0 L 2,3 L 0,3 L 0,0 Z M 1,1 L 5,1 L 5,5 L 1,5 L 1,1 Z"));
    EXPECT_THAT(clips("<path d='M0 0H9'/>"), IsEmpty());
    EXPECT_THAT(clips("<path d='M0 0H9' clip-path='none'/>"), IsEmpty());
}

TEST(SvgClips, haveTheirOwnRule) {
    const std::string start = "<clipPath id='c' clip-rule='evenodd'>";
    EXPECT_EQ(readDrawing(start + square + "</clipPath>" + shape).shapes[0].clips[0].rule,
              CGPathFillRule::evenOdd);
    EXPECT_EQ(readDrawing(start +
                          "<path clip-rule='nonzero' fill-rule='evenodd' d='M1 1H5V5Z'/>"
                          "</clipPath>" +
                          shape)
                  .shapes[0]
                  .clips[0]
                  .rule,
              CGPathFillRule::winding);
}

TEST(SvgClips, followAllTransforms) {
    EXPECT_THAT(clips("<clipPath id='c' transform='translate(1)'>"
                      "<path transform='scale(2)' d='M1 1H5V5Z'/></clipPath>"
                      "<g transform='translate(100)'>" +
                      shape + "</g>"),
                ElementsAre("M 103,2 L 111,2 L 111,10 L 103,2 Z"));
    EXPECT_THAT(clips("<clipPath id='c'><use href='#p' x='10' transform='scale(2)'/></clipPath>"
                      "<defs><path id='p' transform='translate(1)' d='M1 1H5V5Z'/></defs>" +
                      shape),
                ElementsAre("M 24,2 L 32,2 L 32,10 L 24,2 Z"));
}

TEST(SvgClips, areTakenInPartsOfTheShapesBox) {
    EXPECT_THAT(clips("<clipPath id='c' clipPathUnits='objectBoundingBox'>"
                      "<path d='M0 0H.5V.5Z'/></clipPath>"
                      "<rect x='10' y='20' width='20' height='40' clip-path='url(#c)'/>"),
                ElementsAre("M 10,20 L 20,20 L 20,40 L 10,20 Z"));
    const std::string group =
        "<clipPath id='c' clipPathUnits='objectBoundingBox'><path "
        "d='M0 0H.5V.5Z'/></clipPath><g clip-path='url(#c)'/>";
    EXPECT_THAT(warningsAbout(group),
                ElementsAre("clip-path: it is left out, being in parts of a group's box"));
}

TEST(SvgClips, reachEveryShapeOfAGroup) {
    const Drawing drawing = readDrawing(
        "<clipPath id='a'><path d='M0 0H1V1Z'/></clipPath><clipPath id='b'><path d='M0 0H2V2Z'/>"
        "</clipPath><g clip-path='url(#a)'><path d='M0 0H9'/><path d='M0 0H9' "
        "clip-path='url(#b)'/></g><path d='M0 0H9'/>");
    ASSERT_EQ(drawing.shapes.size(), 3u);
    EXPECT_EQ(drawing.shapes[0].clips.size(), 1u);
    ASSERT_EQ(drawing.shapes[1].clips.size(), 2u);
    EXPECT_EQ(drawnText(*drawing.shapes[1].clips[0].outline), "M 0,0 L 1,0 L 1,1 L 0,0 Z");
    EXPECT_EQ(drawnText(*drawing.shapes[1].clips[1].outline), "M 0,0 L 2,0 L 2,2 L 0,0 Z");
    EXPECT_THAT(drawing.shapes[2].clips, IsEmpty());
}

TEST(SvgClips, areClippedThemselves) {
    EXPECT_THAT(clips("<clipPath id='c' clip-path='url(#d)'><path d='M0 0H1V1Z'/></clipPath>"
                      "<clipPath id='d'><path d='M0 0H2V2Z'/></clipPath>" +
                      shape),
                ElementsAre("M 0,0 L 2,0 L 2,2 L 0,0 Z", "M 0,0 L 1,0 L 1,1 L 0,0 Z"));
}

TEST(SvgClips, leaveNothingWhenTheyAreEmpty) {
    for (const std::string inside : {"", "<path d=''/>", "<path display='none' d='M0 0H1V1Z'/>",
                                     "<path visibility='hidden' d='M0 0H1V1Z'/>",
                                     "<g><path d='M0 0H1V1Z'/></g>", "<use href='#nowhere'/>"})
        EXPECT_THAT(readDrawing("<clipPath id='c'>" + inside + "</clipPath>" + shape).shapes,
                    IsEmpty())
            << inside;
}

TEST(SvgClips, sayWhereTheyAreMissing) {
    EXPECT_THAT(warningsAbout(shape), ElementsAre("clip-path: there is no clipPath 'c'"));
    EXPECT_THAT(warningsAbout("<mask id='c'/>" + shape),
                ElementsAre("clip-path: there is no clipPath 'c'"));
    EXPECT_THAT(warningsAbout("<path d='M0 0H9' clip-path='circle(5px)'/>"),
                ElementsAre("clip-path: there is no clipPath 'circle(5px)'"));
    EXPECT_THAT(
        warningsAbout("<clipPath id='c' clip-path='url(#c)'>" + square + "</clipPath>" + shape),
        ElementsAre("clip-path: it refers to itself"));
}

TEST(SvgClips, countAgainstTheLimitsForEveryShape) {
    SvgLimits limits;
    limits.pathCommands = 30;
    std::string text =
        "<svg><clipPath id='c'><path d='M0 0 1 1 2 2 3 3 4 4'/></clipPath>"
        "<g clip-path='url(#c)'>";
    for (int i = 0; i < 5; ++i)
        text += "<path d='M0 0H1'/>";
    EXPECT_THAT([&] { readSvg(text + "</g></svg>", "t", limits); },
                ThrowsMessage<SvgError>(HasSubstr("more than 30 path commands")));

    limits.elements = 20;
    text = "<svg><clipPath id='c'>";
    for (int i = 0; i < 5; ++i)
        text += "<title/>";
    text += "</clipPath>";
    for (int i = 0; i < 5; ++i)
        text += "<g clip-path='url(#c)'/>";
    EXPECT_THAT([&] { readSvg(text + "</svg>", "t", limits); },
                ThrowsMessage<SvgError>(HasSubstr("more than 20 elements")));
}

}  // namespace
}  // namespace quorin
