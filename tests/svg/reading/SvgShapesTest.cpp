#include "quorin/svg/reading/SvgShapes.h"

#include "quorin/geometry/PointArithmetic.h"
#include "tests/TestSupport.h"
#include "tests/support/Printing.h"
#include "tests/svg/ReadDrawing.h"

namespace quorin {
namespace {

using test::drawnText;
using test::readDrawing;
using test::warningsAbout;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<CGPoint> anchors(const char* element) {
    std::vector<CGPoint> points;
    const Drawing drawing = readDrawing(element);
    for (const auto& contour : drawing.shapes.at(0).outline->children())
        for (const PathSegment& segment : contour->segments())
            points.push_back(segment.point());
    return points;
}

TEST(SvgShapes, drawLinesPolylinesAndPolygons) {
    struct Row {
        const char* element;
        const char* drawn;
    };
    const Row table[] = {
        {"<line x1='1' y1='2' x2='3' y2='4'/>", "M 1,2 L 3,4"},
        {"<line x2='50%' y2='50%'/>", "M 0,0 L 50,40"},
        {"<polyline points='1,2 3,4 5,6'/>", "M 1,2 L 3,4 L 5,6"},
        {"<polygon points='1,2 3,4 5,6'/>", "M 1,2 L 3,4 L 5,6 L 1,2 Z"},
        {"<polyline points='1-2.5.5+5'/>", "M 1,-2.5 L 0.5,5"},
        {"<polygon points='1 2 3 4'/>", "M 1,2 L 3,4 L 1,2 Z"},
        {"<polyline points=' 1 , 2 , 3 , 4 '/>", "M 1,2 L 3,4"},
        {"<path d='M1 2L3 4'/>", "M 1,2 L 3,4"},
        {"<rect x='1' y='2' width='3' height='4'/>", "M 1,2 L 4,2 L 4,6 L 1,6 L 1,2 Z"},
        {"<rect width='10%' height='10%'/>", "M 0,0 L 10,0 L 10,8 L 0,8 L 0,0 Z"},
        {"<rect width='1in' height='3' rx='0' ry='9'/>", "M 0,0 L 96,0 L 96,3 L 0,3 L 0,0 Z"},
    };
    for (const auto& [element, drawn] : table) {
        SCOPED_TRACE(element);
        EXPECT_EQ(drawnText(element), drawn);
    }
}

TEST(SvgShapes, drawNothingWithoutExtent) {
    for (const char* element :
         {"<path/>", "<path d=''/>", "<path d='none'/>", "<path d='M1 1'/>", "<rect/>",
          "<rect width='5'/>", "<rect width='5' height='0'/>", "<circle/>", "<circle r='0'/>",
          "<ellipse rx='0' ry='5'/>", "<ellipse/>", "<polyline/>", "<polyline points=''/>",
          "<polyline points='1,2'/>", "<polygon points='1,2'/>"})
        EXPECT_THAT(readDrawing(element).shapes, IsEmpty()) << element;
}

TEST(SvgShapes, drawCirclesFromTheRightDownwards) {
    EXPECT_THAT(anchors("<circle cx='10' cy='20' r='4'/>"),
                ElementsAre(CGPoint{14, 20}, CGPoint{10, 24}, CGPoint{6, 20}, CGPoint{10, 16}));
    EXPECT_THAT(anchors("<ellipse cx='10' cy='20' rx='4' ry='2'/>"),
                ElementsAre(CGPoint{14, 20}, CGPoint{10, 22}, CGPoint{6, 20}, CGPoint{10, 18}));
    EXPECT_THAT(anchors("<ellipse rx='4'/>"),
                ElementsAre(CGPoint{4, 0}, CGPoint{0, 4}, CGPoint{-4, 0}, CGPoint{0, -4}));
    EXPECT_THAT(anchors("<ellipse ry='4' rx='auto'/>"),
                ElementsAre(CGPoint{4, 0}, CGPoint{0, 4}, CGPoint{-4, 0}, CGPoint{0, -4}));
    // The radius of a circle is a part of the diagonal: sqrt((100² + 80²) / 2) is 90.55.
    EXPECT_NEAR(anchors("<circle r='10%'/>")[0].x, 9.0553851381374, 1e-12);
}

TEST(SvgShapes, keepCirclesWithinTheirErrorOfTheTrueOne) {
    const Drawing drawing = readDrawing("<circle cx='10' cy='20' r='5'/>");
    const auto& circle = drawing.shapes[0].outline->children()[0];
    EXPECT_TRUE(circle->isClosed());
    ASSERT_EQ(circle->segments().count(), 4u);
    for (const Path::Curve& curve : circle->curves())
        for (const CGFloat time : {0.0, 0.1, 0.21, 0.5, 0.79, 1.0})
            EXPECT_NEAR(distance(*curve.pointAt(time), {10, 20}), 5, 5 * 2.8e-4);
    EXPECT_EQ(circle->segments()[1].behavior(), PointBehavior::mirrored);
}

TEST(SvgShapes, roundTheCornersOfRects) {
    const std::vector<CGPoint> corners = {{3, 2},   {19, 2}, {21, 5}, {21, 9},
                                          {19, 12}, {3, 12}, {1, 9},  {1, 5}};
    EXPECT_EQ(anchors("<rect x='1' y='2' width='20' height='10' rx='2' ry='3'/>"), corners);
}

TEST(SvgShapes, takeTheOtherRadiusForOneThatIsMissing) {
    const char* const both = "<rect width='20' height='10' rx='2' ry='2'/>";
    for (const char* element :
         {"<rect width='20' height='10' rx='2'/>", "<rect width='20' height='10' ry='2'/>",
          "<rect width='20' height='10' rx='auto' ry='2'/>",
          "<rect width='20' height='10' rx='2' ry='auto'/>"})
        EXPECT_EQ(drawnText(element), drawnText(both)) << element;
    EXPECT_EQ(drawnText("<rect width='20' height='10' rx='auto'/>"),
              drawnText("<rect width='20' height='10'/>"));
}

TEST(SvgShapes, clampRadiiToHalfTheSides) {
    EXPECT_EQ(drawnText("<rect width='20' height='10' rx='50' ry='3'/>"),
              drawnText("<rect width='20' height='10' rx='10' ry='3'/>"));
    EXPECT_THAT(anchors("<rect width='20' height='10' rx='50'/>"),
                ElementsAre(CGPoint{10, 0}, CGPoint{20, 5}, CGPoint{10, 10}, CGPoint{0, 5}));
    EXPECT_THAT(anchors("<rect width='20' height='10' rx='5'/>"),
                ElementsAre(CGPoint{5, 0}, CGPoint{15, 0}, CGPoint{20, 5}, CGPoint{15, 10},
                            CGPoint{5, 10}, CGPoint{0, 5}));
}

TEST(SvgShapes, bendTheirCornersLikeAnEllipse) {
    const Drawing drawing = readDrawing("<rect width='20' height='12' rx='4' ry='2'/>");
    const auto curves = drawing.shapes[0].outline->children()[0]->curves();
    ASSERT_EQ(curves.size(), 8u);
    const CGPoint middle = *curves[1].pointAt(0.5) - CGPoint{16, 2};
    EXPECT_NEAR(middle.x * middle.x / 16 + middle.y * middle.y / 4, 1, 1e-3);
}

TEST(SvgShapes, sayWhatIsWrongWithThem) {
    struct Row {
        const char* element;
        const char* warning;
        const char* drawn;
    };
    const Row table[] = {
        {"<polyline points='1,2 3,4 5'/>", "points: the last point has no y", "M 1,2 L 3,4"},
        {"<polyline points='1,2 3,4 x'/>", "points: expected a number", "M 1,2 L 3,4"},
        {"<polyline points='1,2 3,4 5 x'/>", "points: expected a number", "M 1,2 L 3,4"},
        {"<path d='M1 2L3 4L5'/>", "path data: expected a number before the end", "M 1,2 L 3,4"},
        {"<rect width='-5' height='5'/>", "width: must not be negative", ""},
        {"<circle r='-5'/>", "r: must not be negative", ""},
        {"<circle r='big'/>", "r: expected a length", ""},
        {"<line x1='a' x2='3'/>", "x1: expected a length", "M 0,0 L 3,0"},
        {"<rect width='2' height='2' rx='-1'/>", "rx: must not be negative",
         "M 0,0 L 2,0 L 2,2 L 0,2 L 0,0 Z"},
        {"<path d='M0 0L1e300 0' transform='scale(1e100)'/>", "<path> is too far out to be drawn",
         ""},
    };
    for (const auto& [element, warning, drawn] : table) {
        SCOPED_TRACE(element);
        EXPECT_THAT(warningsAbout(element), ElementsAre(warning));
        const SvgReadResult result =
            readSvg("<svg viewBox='0 0 9 9'>" + std::string(element) + "</svg>", "t");
        EXPECT_EQ(drawnText(result.drawing), drawn);
    }
}

TEST(SvgShapes, areSevenElements) {
    for (const char* name : {"path", "rect", "circle", "ellipse", "line", "polyline", "polygon"})
        EXPECT_TRUE(SvgShapes::isShape(name)) << name;
    for (const char* name : {"", "g", "text", "Path", "image"})
        EXPECT_FALSE(SvgShapes::isShape(name)) << name;
}

}  // namespace
}  // namespace quorin
