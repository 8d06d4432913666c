#include "quorin/svg/reading/SvgWalk.h"

#include "tests/TestSupport.h"
#include "tests/support/Printing.h"
#include "tests/svg/ReadDrawing.h"

namespace quorin {
namespace {

using test::drawnText;
using test::readDrawing;
using test::warningsAbout;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::StrEq;
using ::testing::ThrowsMessage;

/// The frame of a root element with these attributes.
Drawing frame(const std::string& attributes) {
    const SvgReadResult result = readSvg("<svg " + attributes + "/>", "t.svg");
    EXPECT_THAT(result.warnings, IsEmpty());
    return result.drawing;
}

TEST(SvgWalk, takesTheSizeFromTheRoot) {
    struct Row {
        const char* attributes;
        CGRect viewBox;
        CGSize size;
    };
    const Row table[] = {
        {"viewBox='0 0 22 22'", CGRectMake(0, 0, 22, 22), {22, 22}},
        {"width='44' height='44' viewBox='1 2 22 22'", CGRectMake(1, 2, 22, 22), {44, 44}},
        {"width='1in' height='48pt'", CGRectMake(0, 0, 96, 64), {96, 64}},
        {"width='100%' height='100%' viewBox='0 0 9 8'", CGRectMake(0, 0, 9, 8), {9, 8}},
        {"width='40' viewBox='0 0 20 10'", CGRectMake(0, 0, 20, 10), {40, 20}},
        {"height='40' width='auto' viewBox='0 0 20 10'", CGRectMake(0, 0, 20, 10), {80, 40}},
        {"width='40'", CGRectMake(0, 0, 40, 150), {40, 150}},
        {"", CGRectMake(0, 0, 300, 150), {300, 150}},
        {"width='40' height='20' viewBox='0 0 10 10'", CGRectMake(-5, 0, 20, 10), {40, 20}},
        {"width='40' height='20' viewBox='0 0 10 10' preserveAspectRatio='none'",
         CGRectMake(0, 0, 10, 10),
         {40, 20}},
    };
    for (const auto& [attributes, viewBox, size] : table) {
        SCOPED_TRACE(attributes);
        const Drawing drawing = frame(attributes);
        EXPECT_EQ(drawing.viewBox, viewBox);
        EXPECT_EQ(drawing.size, size);
    }
}

TEST(SvgWalk, replacesSizesThatCannotBe) {
    for (const char* attribute : {"width='0'", "width='-5'", "width='x'", "height='1e999'",
                                  "viewBox='0 0 0 5'", "preserveAspectRatio='x'"}) {
        const SvgReadResult result = readSvg("<svg " + std::string(attribute) + "/>", "t.svg");
        EXPECT_EQ(result.drawing.size, (CGSize{300, 150})) << attribute;
        EXPECT_THAT(result.warnings, SizeIs(1)) << attribute;
    }
    const Drawing tiny =
        readSvg("<svg width='1e-320' height='5' viewBox='0 0 1e300 1'/>", "t").drawing;
    EXPECT_EQ(tiny.viewBox, CGRectMake(0, 0, 1e300, 1));
}

TEST(SvgWalk, drawsShapesInOrderThroughGroups) {
    EXPECT_EQ(drawnText("<path d='M1 1H2'/><g><a><path d='M2 1H3'/></a><path d='M3 1H4'/></g>"
                        "<path d='M4 1H5'/>"),
              "M 1,1 L 2,1 | M 2,1 L 3,1 | M 3,1 L 4,1 | M 4,1 L 5,1");
}

TEST(SvgWalk, namesShapesByTheirIds) {
    const Drawing drawing =
        readDrawing("<g id='g'><path id='a b' d='M1 1H2'/><path d='M1 1H2'/></g>");
    EXPECT_EQ(drawing.shapes[0].id, "a b");
    EXPECT_EQ(drawing.shapes[1].id, "");
}

TEST(SvgWalk, appliesTransformsFromTheInside) {
    EXPECT_EQ(
        drawnText("<g transform='translate(10 20)'><path transform='scale(2)' d='M1 1H2'/></g>"),
        "M 12,22 L 14,22");
    const SvgReadResult root =
        readSvg("<svg viewBox='0 0 9 9' transform='scale(2)'><path d='M1 1H2'/></svg>", "t");
    EXPECT_EQ(drawnText(root.drawing), "M 2,2 L 4,2");
}

TEST(SvgWalk, scalesStrokesByTheAreaOfTheTransform) {
    const char* const text =
        "<path d='M1 1H2' transform='scale(2 8)' stroke-width='3' "
        "stroke-dasharray='1 2' stroke-dashoffset='5'/>";
    const DrawingPaint paint = readDrawing(text).shapes[0].paint;
    EXPECT_EQ(paint.strokeWidth, 12);
    EXPECT_THAT(paint.dashes, ElementsAre(4, 8));
    EXPECT_EQ(paint.dashOffset, 20);
    EXPECT_EQ(readDrawing("<path d='M1 1H2' transform='scale(2)' stroke-width='3' "
                          "vector-effect='non-scaling-stroke'/>")
                  .shapes[0]
                  .paint.strokeWidth,
              3);
    EXPECT_DOUBLE_EQ(
        readDrawing("<path d='M1 1H2' stroke-width='10%'/>").shapes[0].paint.strokeWidth,
        9.055385138137417);
}

TEST(SvgWalk, warnsOfStrokesThatATransformStretches) {
    const std::string start = "<path d='M1 1H2' transform='scale(2 8)' ";
    EXPECT_THAT(warningsAbout(start + "stroke='red'/>"),
                ElementsAre("stroke: it is drawn evenly where the transform stretches it"));
    EXPECT_THAT(warningsAbout(start + "/>"), IsEmpty());
    EXPECT_THAT(warningsAbout(start + "stroke='red' vector-effect='non-scaling-stroke'/>"),
                IsEmpty());
    EXPECT_THAT(warningsAbout("<path d='M1 1H2' transform='scale(2 -2.2)' stroke='red'/>"),
                IsEmpty());
}

TEST(SvgWalk, multipliesTheOpacityOfGroupsIntoShapes) {
    const Drawing drawing = readDrawing(
        "<g opacity='0.5'><g opacity='0.5'><path d='M1 1H2' opacity='0.5' fill-opacity='0.3' "
        "stroke-opacity='0.2'/></g><path d='M1 1H2'/></g>");
    EXPECT_EQ(drawing.shapes[0].paint.opacity, 0.125);
    EXPECT_EQ(drawing.shapes[0].paint.fillOpacity, 0.3);
    EXPECT_EQ(drawing.shapes[0].paint.strokeOpacity, 0.2);
    EXPECT_EQ(drawing.shapes[1].paint.opacity, 0.5);
}

TEST(SvgWalk, handsPaintOn) {
    const DrawingPaint paint =
        readDrawing(
            "<g fill-rule='evenodd' stroke='#0f0' stroke-linecap='square' "
            "stroke-linejoin='round' stroke-miterlimit='9' paint-order='stroke'>"
            "<path d='M1 1H2' fill='none'/></g>")
            .shapes[0]
            .paint;
    EXPECT_EQ(paint.fill, DrawingBrush());
    EXPECT_EQ(paint.fillRule, CGPathFillRule::evenOdd);
    EXPECT_EQ(paint.stroke, DrawingBrush(DrawingColor{0, 1, 0, 1}));
    EXPECT_EQ(paint.lineCap, DrawingLineCap::square);
    EXPECT_EQ(paint.lineJoin, DrawingLineJoin::round);
    EXPECT_EQ(paint.miterLimit, 9);
    EXPECT_TRUE(paint.isStrokeFirst);
}

TEST(SvgWalk, leavesOutWhatIsNotShown) {
    EXPECT_EQ(drawnText("<g display='none'><path d='M1 1H2'/></g><path style='display:none' "
                        "d='M1 1H2'/><path visibility='hidden' d='M1 1H2'/>"
                        "<g visibility='hidden'><path visibility='visible' d='M3 3H4'/></g>"),
              "M 3,3 L 4,3");
    EXPECT_EQ(drawnText("<g transform='scale(0)'><path d='M1 1H2'/></g>"), "");
    EXPECT_EQ(drawnText("<g transform='matrix(1 1 1 1 0 0)'><path d='M1 1H2'/></g>"), "");
}

TEST(SvgWalk, leavesDefinitionsAndOtherVocabulariesAlone) {
    EXPECT_EQ(drawnText("<defs><path d='M1 1H2'/></defs><symbol><path d='M1 1H2'/></symbol>"
                        "<clipPath><path d='M1 1H2'/></clipPath><mask><path d='M1 1H2'/></mask>"
                        "<marker><path d='M1 1H2'/></marker><pattern><path d='M1 1H2'/></pattern>"
                        "<title>x</title><desc/><metadata><path d='M1 1H2'/></metadata>"
                        "<sodipodi:namedview><path d='M1 1H2'/></sodipodi:namedview>"
                        "<inkscape:grid/><!-- <path d='M1 1H2'/> -->text"),
              "");
}

TEST(SvgWalk, warnsOfElementsWithoutOutline) {
    EXPECT_THAT(
        warningsAbout("<text>a</text><image/><foreignObject><path d='M1 1H2'/></foreignObject>"),
        ElementsAre("<text> is left out", "<image> is left out", "<foreignObject> is left out"));
    EXPECT_THAT(warningsAbout("<text display='none'>a</text>"), IsEmpty());
}

TEST(SvgWalk, warnsOfEffects) {
    EXPECT_THAT(warningsAbout("<g style='mask:url(#m)'/>"
                              "<g filter='url(#f)'/><g style='mix-blend-mode:multiply'/>"
                              "<path d='M1 1H2' marker-end='url(#m)'/>"),
                ElementsAre("mask is left out", "filter is left out", "mix-blend-mode is left out",
                            "marker is left out"));
    EXPECT_THAT(warningsAbout("<g clip-path='none' mask='none' filter='none' marker='none' "
                              "style='mix-blend-mode:normal'/>"),
                IsEmpty());
}

TEST(SvgWalk, drawsWhatUseRefersTo) {
    EXPECT_EQ(drawnText("<defs><path id='p' d='M1 1H2'/></defs><use href='#p' x='10' y='20'/>"
                        "<use xlink:href='#p' transform='scale(2)' x='1'/>"),
              "M 11,21 L 12,21 | M 4,2 L 6,2");
    EXPECT_EQ(drawnText("<g id='p'><path d='M1 1H2'/><path d='M3 3H4'/></g><path d='M9 9H8'/>"
                        "<use href='#p' x='10'/>"),
              "M 1,1 L 2,1 | M 3,3 L 4,3 | M 9,9 L 8,9 | M 11,1 L 12,1 | M 13,3 L 14,3");
}

TEST(SvgWalk, letsUsedElementsInheritFromTheUse) {
    const Drawing drawing = readDrawing(
        "<defs fill='lime'><path id='p' d='M1 1H2'/></defs><use href='#p' fill='red' "
        "opacity='.5'/>");
    EXPECT_EQ(drawing.shapes[0].paint.fill, DrawingBrush(DrawingColor{1, 0, 0, 1}));
    EXPECT_EQ(drawing.shapes[0].paint.opacity, 0.5);
}

TEST(SvgWalk, fitsSymbolsIntoTheSizeOfTheUse) {
    const std::string symbol = "<symbol id='s' viewBox='0 0 10 10'><path d='M0 0L10 10'/></symbol>";
    EXPECT_EQ(drawnText(symbol + "<use href='#s' x='5' y='6' width='20' height='20'/>"),
              "M 5,6 L 25,26");
    EXPECT_EQ(drawnText(symbol + "<use href='#s' width='40' height='20'/>"), "M 10,0 L 30,20");
    // Without sizes, those of the viewport around: 100 by 80.
    EXPECT_EQ(drawnText(symbol + "<use href='#s'/>"), "M 10,0 L 90,80");
    EXPECT_EQ(drawnText("<symbol id='s'><path d='M0 0L10 10'/></symbol><use href='#s' x='1'/>"),
              "M 1,0 L 11,10");
}

TEST(SvgWalk, fitsInnerDrawingsIntoTheirViewport) {
    EXPECT_EQ(drawnText("<svg x='10' y='20' width='20' height='20' viewBox='0 0 10 10'>"
                        "<path d='M0 0L10 10'/></svg>"),
              "M 10,20 L 30,40");
    EXPECT_EQ(drawnText("<svg x='50%' y='50%' width='50%' height='50%'>"
                        "<line x2='100%' y2='100%'/></svg>"),
              "M 50,40 L 100,80");
    EXPECT_EQ(drawnText("<svg width='0'><path d='M0 0L10 10'/></svg>"), "");
    EXPECT_EQ(drawnText("<defs><svg id='s' x='3' width='5' height='5' viewBox='0 0 10 10'>"
                        "<path d='M0 0L10 10'/></svg></defs>"
                        "<use href='#s' x='1' width='20' height='20'/>"),
              "M 4,0 L 24,20");
}

TEST(SvgWalk, drawsTheFirstOfASwitchThatAsksForNothing) {
    EXPECT_EQ(drawnText("<switch><foreignObject requiredExtensions='x'/><i:pgf/>"
                        "<g><path d='M1 1H2'/></g><path d='M3 3H4'/></switch><path d='M5 5H6'/>"),
              "M 1,1 L 2,1 | M 5,5 L 6,5");
    EXPECT_EQ(drawnText("<switch/>"), "");
}

TEST(SvgWalk, stopsWhereAUseDrawsItself) {
    EXPECT_THAT(warningsAbout("<use id='u' href='#u'/>"), ElementsAre("use: it draws itself"));
    EXPECT_THAT(warningsAbout("<g id='g'><path d='M1 1H2'/><use href='#g'/></g>"),
                ElementsAre("use: it draws itself"));
    EXPECT_THAT(warningsAbout("<defs><g id='a'><use href='#b'/></g><g id='b'><use href='#a'/></g>"
                              "</defs><use href='#a'/>"),
                ElementsAre("use: it draws itself"));
    // The same thing twice, one after the other, is no circle.
    EXPECT_THAT(warningsAbout("<defs><path id='p' d='M1 1H2'/><g id='a'><use href='#p'/></g></defs>"
                              "<g><use href='#a'/><use href='#a'/></g>"),
                IsEmpty());
}

TEST(SvgWalk, warnsOfUsesThatLeadNowhere) {
    EXPECT_THAT(warningsAbout("<use href='#x'/><use href='other.svg#x'/><use/>"),
                ElementsAre("use: there is no element 'x'", "use: there is no element ''",
                            "use: there is no element ''"));
}

TEST(SvgWalk, limitsWhatUsesRepeat) {
    // Every level doubles what is below it: 2^40 paths.
    std::string text = "<svg><defs><path id='u0' d='M1 1H2'/>";
    for (int i = 1; i <= 40; ++i) {
        const std::string below = "<use href='#u" + std::to_string(i - 1) + "'/>";
        text += "<g id='u" + std::to_string(i) + "'>" + below + below + "</g>";
    }
    text += "</defs><use href='#u40'/></svg>";
    SvgLimits limits;
    limits.elements = 10'000;
    EXPECT_THAT([&] { readSvg(text, "bomb.svg", limits); },
                ThrowsMessage<SvgError>(StrEq(
                    "bomb.svg:1: there are more than 10000 elements, repeated ones included")));
}

TEST(SvgWalk, limitsHowDeepUsesLead) {
    std::string text = "<svg><defs><path id='u0' d='M1 1H2'/>";
    for (int i = 1; i <= 2'000; ++i)
        text += "<use id='u" + std::to_string(i) + "' href='#u" + std::to_string(i - 1) + "'/>";
    text += "</defs><use href='#u2000'/></svg>";
    EXPECT_THAT([&] { readSvg(text, "deep.svg"); },
                ThrowsMessage<SvgError>(StrEq("deep.svg:1: elements lead deeper than 1024")));
}

TEST(SvgWalk, limitsPathCommandsOfTheWholeDrawing) {
    SvgLimits limits;
    limits.pathCommands = 5;
    EXPECT_NO_THROW(readSvg("<svg><path d='M1 1H2'/><path d='M1 1H2 3'/></svg>", "t", limits));
    for (const char* text : {"<svg><path d='M1 1H2'/>\n<path d='M1 1H2 3 4'/></svg>",
                             "<svg>\n<polygon points='1 2 3 4 5 6 7 8 9 10 11 12'/></svg>"})
        EXPECT_THAT([&] { readSvg(text, "t", limits); },
                    ThrowsMessage<SvgError>(StrEq("t:2: there are more than 5 path commands")));
}

TEST(SvgWalk, countsTheStopsThatShapesTakeOver) {
    SvgLimits limits;
    limits.elements = 30;
    std::string text = "<svg><linearGradient id='g' gradientUnits='userSpaceOnUse'>";
    for (int i = 0; i < 8; ++i)
        text += "<stop/>";
    text += "</linearGradient>";
    for (int i = 0; i < 4; ++i)
        text += "<rect width='5' height='5' fill='url(#g)'/>";
    EXPECT_THAT([&] { readSvg(text + "</svg>", "t", limits); },
                ThrowsMessage<SvgError>(HasSubstr("more than 30 elements")));
}

}  // namespace
}  // namespace quorin
