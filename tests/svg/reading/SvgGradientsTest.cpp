#include "quorin/svg/reading/SvgGradients.h"

#include "tests/TestSupport.h"
#include "tests/support/Printing.h"
#include "tests/svg/ReadDrawing.h"

namespace quorin {
namespace {

using test::readDrawing;
using test::warningsAbout;
using ::testing::ElementsAre;
using ::testing::SizeIs;

constexpr DrawingColor red{1, 0, 0, 1}, blue{0, 0, 1, 1};
const std::string stops = "<stop offset='0' stop-color='red'/><stop offset='1' stop-color='blue'/>";

/// The fill of a rect from (10, 20) to (30, 60) that refers to the gradient "g".
DrawingBrush fillOf(const std::string& gradients) {
    return readDrawing("<defs>" + gradients +
                       "</defs><rect x='10' y='20' width='20' height='40' fill='url(#g)'/>")
        .shapes.at(0)
        .paint.fill;
}

DrawingLinearGradient linear(const std::string& gradients) {
    return std::get<DrawingLinearGradient>(fillOf(gradients));
}

DrawingRadialGradient radial(const std::string& gradients) {
    return std::get<DrawingRadialGradient>(fillOf(gradients));
}

CGPoint inDrawing(CGPoint point, const CGAffineTransform& transform) {
    return CGPointApplyAffineTransform(point, transform);
}

TEST(SvgGradients, runAcrossTheBoxOfTheShape) {
    const DrawingLinearGradient gradient =
        linear("<linearGradient id='g'>" + stops + "</linearGradient>");
    EXPECT_EQ(inDrawing(gradient.start, gradient.transform), (CGPoint{10, 20}));
    EXPECT_EQ(inDrawing(gradient.end, gradient.transform), (CGPoint{30, 20}));
    EXPECT_EQ(gradient.spread, DrawingGradientSpread::pad);
    EXPECT_THAT(gradient.stops,
                ElementsAre(DrawingGradientStop{0, red}, DrawingGradientStop{1, blue}));

    const DrawingRadialGradient circle =
        radial("<radialGradient id='g'>" + stops + "</radialGradient>");
    EXPECT_EQ(inDrawing(circle.center, circle.transform), (CGPoint{20, 40}));
    EXPECT_EQ(circle.focus, circle.center);
    EXPECT_EQ(circle.radius, 0.5);
    EXPECT_EQ(circle.focusRadius, 0);
}

TEST(SvgGradients, takeFractionsAndPercentagesOfTheBox) {
    const DrawingLinearGradient gradient = linear(
        "<linearGradient id='g' x1='0.5' y1='25%' x2='50%' y2='1'>" + stops + "</linearGradient>");
    EXPECT_EQ(inDrawing(gradient.start, gradient.transform), (CGPoint{20, 30}));
    EXPECT_EQ(inDrawing(gradient.end, gradient.transform), (CGPoint{20, 60}));
}

TEST(SvgGradients, runThroughUserSpace) {
    const DrawingLinearGradient gradient = linear(
        "<linearGradient id='g' gradientUnits='userSpaceOnUse' x1='1' y1='2' x2='50%' "
        "y2='50%' spreadMethod='reflect'>" +
        stops + "</linearGradient>");
    EXPECT_EQ(gradient.transform, CGAffineTransform::identity);
    EXPECT_EQ(gradient.start, (CGPoint{1, 2}));
    EXPECT_EQ(gradient.end, (CGPoint{50, 40}));
    EXPECT_EQ(gradient.spread, DrawingGradientSpread::reflect);
}

TEST(SvgGradients, readCirclesAndTheirFocus) {
    const DrawingRadialGradient gradient = radial(
        "<radialGradient id='g' gradientUnits='userSpaceOnUse' cx='10' cy='20' r='8' fx='12' "
        "fy='21' fr='1' spreadMethod='repeat'>" +
        stops + "</radialGradient>");
    EXPECT_EQ(gradient.center, (CGPoint{10, 20}));
    EXPECT_EQ(gradient.radius, 8);
    EXPECT_EQ(gradient.focus, (CGPoint{12, 21}));
    EXPECT_EQ(gradient.focusRadius, 1);
    EXPECT_EQ(gradient.spread, DrawingGradientSpread::repeat);
}

TEST(SvgGradients, moveAFocusFromOutsideToTheEdge) {
    const DrawingRadialGradient gradient = radial(
        "<radialGradient id='g' gradientUnits='userSpaceOnUse' cx='10' cy='20' r='5' "
        "fx='30'>" +
        stops + "</radialGradient>");
    EXPECT_EQ(gradient.focus, (CGPoint{15, 20}));
}

TEST(SvgGradients, followTheirOwnAndTheShapesTransform) {
    const Drawing drawing = readDrawing(
        "<linearGradient id='g' gradientUnits='userSpaceOnUse' x1='1' x2='2' "
        "gradientTransform='translate(10 0)'>" +
        stops + "</linearGradient><g transform='scale(2)'><path d='M0 0H1' stroke='url(#g)'/></g>");
    const auto& gradient = std::get<DrawingLinearGradient>(drawing.shapes.at(0).paint.stroke);
    EXPECT_EQ(inDrawing(gradient.start, gradient.transform), (CGPoint{22, 0}));
    EXPECT_EQ(inDrawing(gradient.end, gradient.transform), (CGPoint{24, 0}));
}

TEST(SvgGradients, takeOverWhatTheyDoNotSay) {
    const DrawingLinearGradient gradient = linear(
        "<linearGradient id='g' x1='7' xlink:href='#a'/>"
        "<linearGradient id='a' x1='5' x2='9' href='#b' gradientUnits='userSpaceOnUse'/>"
        "<radialGradient id='b' gradientTransform='scale(2)' gradientUnits='objectBoundingBox'>" +
        stops + "</radialGradient>");
    EXPECT_EQ(gradient.start, (CGPoint{7, 0}));
    EXPECT_EQ(gradient.end, (CGPoint{9, 0}));
    EXPECT_EQ(gradient.transform, (CGAffineTransform{2, 0, 0, 2, 0, 0}));
    EXPECT_THAT(gradient.stops, SizeIs(2));
}

TEST(SvgGradients, preferTheirOwnStops) {
    const DrawingLinearGradient gradient = linear(
        "<linearGradient id='g' href='#a'><stop stop-color='blue'/><stop offset='1' "
        "stop-color='blue'/></linearGradient><linearGradient id='a'>" +
        stops + "</linearGradient>");
    EXPECT_EQ(gradient.stops[0].color, blue);
}

TEST(SvgGradients, readStopsFromStylesAndOrderTheirOffsets) {
    const DrawingLinearGradient gradient = linear(
        "<linearGradient id='g' color='blue'>"
        "<stop offset='20%' style='stop-color:red;stop-opacity:0.5'/>"
        "<stop offset='0.1' stop-color='currentColor'/>"
        "<stop offset='7' stop-color='rgba(255,0,0,0.5)' stop-opacity='50%'/>"
        "<title/></linearGradient>");
    EXPECT_THAT(gradient.stops, ElementsAre(DrawingGradientStop{0.2, {1, 0, 0, 0.5}},
                                            DrawingGradientStop{0.2, blue},
                                            DrawingGradientStop{1, {1, 0, 0, 0.25}}));
}

TEST(SvgGradients, takeTheColorOfTheirOwnPlace) {
    const Drawing drawing = readDrawing(
        "<style>.s{color:red}</style><defs class='s'><g><linearGradient id='g'>"
        "<stop stop-color='currentColor'/><stop offset='1' "
        "style='color:blue;stop-color:currentColor'/>"
        "</linearGradient></g></defs><rect width='5' height='5' fill='url(#g)' color='lime'/>");
    const auto& gradient = std::get<DrawingLinearGradient>(drawing.shapes.at(0).paint.fill);
    EXPECT_THAT(gradient.stops,
                ElementsAre(DrawingGradientStop{0, red}, DrawingGradientStop{1, blue}));
}

TEST(SvgGradients, areOneColorWithoutExtent) {
    const DrawingBrush last(blue);
    EXPECT_EQ(fillOf("<linearGradient id='g' x1='1' x2='1'>" + stops + "</linearGradient>"), last);
    EXPECT_EQ(fillOf("<radialGradient id='g' r='0'>" + stops + "</radialGradient>"), last);
    EXPECT_EQ(fillOf("<linearGradient id='g' gradientTransform='scale(0)'>" + stops +
                     "</linearGradient>"),
              last);
}

TEST(SvgGradients, areNothingWithoutStopsOrBox) {
    EXPECT_EQ(fillOf("<linearGradient id='g'/>"), DrawingBrush());
    const Drawing drawing = readDrawing("<linearGradient id='g'>" + stops +
                                        "</linearGradient><path d='M0 0H9' stroke='url(#g)'/>");
    EXPECT_EQ(drawing.shapes.at(0).paint.stroke, DrawingBrush());
}

TEST(SvgGradients, fallBackWhereThereIsNone) {
    const std::string rect = "<rect width='5' height='5' fill='url(#g) red'/>";
    EXPECT_THAT(warningsAbout(rect), ElementsAre("paint: there is no gradient 'g'"));
    EXPECT_THAT(warningsAbout("<pattern id='g'/>" + rect),
                ElementsAre("paint: <pattern> 'g' is no gradient"));
    const SvgReadResult result = readSvg("<svg>" + rect + "</svg>", "t");
    EXPECT_EQ(result.drawing.shapes.at(0).paint.fill, DrawingBrush(red));
}

TEST(SvgGradients, surviveGoingRoundInCircles) {
    const std::string rect = "<rect width='5' height='5' fill='url(#a)'/>";
    EXPECT_THAT(warningsAbout("<linearGradient id='a' href='#a'/>" + rect),
                ElementsAre("gradient: it refers to itself"));
    EXPECT_THAT(warningsAbout("<linearGradient id='a' href='#b'/><linearGradient id='b' "
                              "href='#a'/>" +
                              rect),
                ElementsAre("gradient: it refers to itself"));
    std::string chain;
    for (int i = 0; i < 200; ++i)
        chain += "<linearGradient id='a" + (i == 0 ? "" : std::to_string(i)) + "' href='#a" +
                 std::to_string(i + 1) + "'/>";
    EXPECT_THAT(warningsAbout(chain + rect), SizeIs(1));
}

TEST(SvgGradients, sayWhatIsWrongWithThem) {
    const auto warnings = [](const std::string& gradient) {
        return warningsAbout(gradient + "<rect width='5' height='5' fill='url(#g)'/>");
    };
    EXPECT_THAT(warnings("<linearGradient id='g' x1='a'/>"), ElementsAre("x1: expected a length"));
    EXPECT_THAT(warnings("<linearGradient id='g' gradientTransform='turn()'/>"),
                ElementsAre("gradientTransform: there is no turn of 0 arguments"));
    EXPECT_THAT(warnings("<linearGradient id='g'><stop offset='x'/></linearGradient>"),
                ElementsAre("offset: expected a number or a percentage"));
    EXPECT_THAT(warnings("<linearGradient id='g' href='#none'/>"),
                ElementsAre("gradient: there is no gradient 'none'"));
}

TEST(SvgGradients, stayFinite) {
    const DrawingBrush brush =
        fillOf("<linearGradient id='g' gradientUnits='userSpaceOnUse' x1='1e308%' x2='5'>" + stops +
               "</linearGradient>");
    EXPECT_TRUE(std::holds_alternative<DrawingLinearGradient>(brush));
    EXPECT_EQ(fillOf("<linearGradient id='g' gradientTransform='scale(1e200)scale(1e200)'>" +
                     stops + "</linearGradient>"),
              DrawingBrush(blue));
}

}  // namespace
}  // namespace quorin
