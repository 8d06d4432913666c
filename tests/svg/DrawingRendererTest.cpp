#include "quorin/svg/DrawingRenderer.h"

#include "quorin/platform/drawing/CGContext.h"
#include "tests/TestSupport.h"
#include "tests/svg/ReadDrawing.h"

namespace quorin {
namespace {

using ::testing::ElementsAre;

/// The picture of the elements, a pixel to each of their units, 20 wide and high.
std::shared_ptr<const CGImage> picture(std::string_view elements) {
    const auto context = CGContext::createBitmap(20, 20);
    render(test::readDrawing(elements), *context);
    return context->makeImage();
}

CGImage::Pixel pixel(std::string_view elements, std::size_t x, std::size_t y) {
    return picture(elements)->pixelAt(x, y);
}

MATCHER_P4(IsNear, red, green, blue, alpha, "") {
    const int wanted[] = {red, green, blue, alpha};
    *result_listener << testing::PrintToString(arg);
    for (std::size_t i = 0; i < 4; ++i)
        if (std::abs(int{arg[i]} - wanted[i]) > 2)
            return false;
    return true;
}

TEST(DrawingRenderer, fillsAndStrokesWithColors) {
    const char* const rect =
        "<rect x='4' y='4' width='12' height='12' fill='#f00' stroke='#00f' stroke-width='4'/>";
    EXPECT_THAT(pixel(rect, 10, 10), IsNear(255, 0, 0, 255));
    EXPECT_THAT(pixel(rect, 4, 10), IsNear(0, 0, 255, 255));
    EXPECT_THAT(pixel(rect, 3, 10), IsNear(0, 0, 255, 255));
    EXPECT_THAT(pixel(rect, 1, 10), IsNear(0, 0, 0, 0));
}

TEST(DrawingRenderer, paintsNothingWithoutPaint) {
    EXPECT_THAT(pixel("<rect width='20' height='20' fill='none'/>", 10, 10), IsNear(0, 0, 0, 0));
    EXPECT_THAT(
        pixel("<rect width='20' height='20' fill='none' stroke='red' stroke-width='0'/>", 0, 0),
        IsNear(0, 0, 0, 0));
}

TEST(DrawingRenderer, paintsLaterShapesOverEarlierOnes) {
    EXPECT_THAT(
        pixel("<rect width='20' height='20'/><rect width='20' height='20' fill='lime'/>", 9, 9),
        IsNear(0, 255, 0, 255));
}

TEST(DrawingRenderer, obeysTheFillRule) {
    const std::string ring = "<path d='M0 0H20V20H0ZM5 5H15V15H5Z' fill-rule='";
    EXPECT_THAT(pixel(ring + "nonzero'/>", 10, 10), IsNear(0, 0, 0, 255));
    EXPECT_THAT(pixel(ring + "evenodd'/>", 10, 10), IsNear(0, 0, 0, 0));
    EXPECT_THAT(pixel(ring + "evenodd'/>", 2, 10), IsNear(0, 0, 0, 255));
}

TEST(DrawingRenderer, multipliesOpacities) {
    EXPECT_THAT(pixel("<rect width='20' height='20' fill='rgba(255,0,0,.5)' fill-opacity='.5' "
                      "opacity='.5'/>",
                      9, 9),
                IsNear(32, 0, 0, 32));
    EXPECT_THAT(pixel("<path d='M0 10H20' stroke='red' stroke-width='6' stroke-opacity='.5' "
                      "opacity='.5'/>",
                      9, 10),
                IsNear(64, 0, 0, 64));
}

// Painted one over the other, the fill would shine through the inner half of the stroke.
TEST(DrawingRenderer, makesFillAndStrokeTranslucentAsOne) {
    const char* const rect =
        "<rect x='2' y='2' width='16' height='16' fill='red' stroke='blue' stroke-width='4' "
        "opacity='.5'/>";
    EXPECT_THAT(pixel(rect, 3, 10), IsNear(0, 0, 128, 128));
    EXPECT_THAT(pixel(rect, 10, 10), IsNear(128, 0, 0, 128));
}

TEST(DrawingRenderer, paintsTheStrokeFirstWhenAsked) {
    const std::string rect =
        "<rect x='4' y='4' width='12' height='12' fill='red' stroke='blue' stroke-width='4'";
    EXPECT_THAT(pixel(rect + "/>", 5, 10), IsNear(0, 0, 255, 255));
    EXPECT_THAT(pixel(rect + " paint-order='stroke'/>", 5, 10), IsNear(255, 0, 0, 255));
    EXPECT_THAT(pixel(rect + " paint-order='stroke'/>", 3, 10), IsNear(0, 0, 255, 255));
}

TEST(DrawingRenderer, drawsCapsJoinsAndDashes) {
    const std::string line = "<path d='M6 10H14' fill='none' stroke='red' stroke-width='6' ";
    EXPECT_EQ(pixel(line + "/>", 4, 10)[3], 0);
    EXPECT_EQ(pixel(line + "stroke-linecap='square'/>", 4, 8)[3], 255);
    EXPECT_EQ(pixel(line + "stroke-linecap='round'/>", 4, 10)[3], 255);
    EXPECT_LT(pixel(line + "stroke-linecap='round'/>", 3, 7)[3], 128);

    const std::string dashed = line + "stroke-dasharray='2' stroke-dashoffset='";
    EXPECT_EQ(pixel(dashed + "0'/>", 7, 10)[3], 255);
    EXPECT_EQ(pixel(dashed + "0'/>", 9, 10)[3], 0);
    EXPECT_EQ(pixel(dashed + "2'/>", 7, 10)[3], 0);
    EXPECT_EQ(pixel(dashed + "2'/>", 9, 10)[3], 255);

    const std::string corner = "<path d='M2 16H14V4' fill='none' stroke='red' stroke-width='4' ";
    EXPECT_EQ(pixel(corner + "/>", 15, 17)[3], 255);
    EXPECT_EQ(pixel(corner + "stroke-miterlimit='1'/>", 15, 17)[3], 0);
    EXPECT_EQ(pixel(corner + "stroke-linejoin='bevel'/>", 15, 17)[3], 0);
    EXPECT_LT(pixel(corner + "stroke-linejoin='round'/>", 15, 17)[3], 192);
}

TEST(DrawingRenderer, shadesAlongLinesAndCircles) {
    const std::string stops = "<stop stop-color='#000'/><stop offset='1' stop-color='#fff'/>";
    const std::string rect = "<rect width='20' height='20' fill='url(#g)'/>";
    const std::string linear =
        "<linearGradient id='g' gradientUnits='userSpaceOnUse' x1='5' x2='15'>" + stops +
        "</linearGradient>" + rect;
    EXPECT_THAT(pixel(linear, 1, 3), IsNear(0, 0, 0, 255));
    EXPECT_NEAR(pixel(linear, 9, 3)[0], 115, 8);
    EXPECT_THAT(pixel(linear, 18, 3), IsNear(255, 255, 255, 255));

    const std::string reflected =
        "<linearGradient id='g' gradientUnits='userSpaceOnUse' x1='5' "
        "x2='15' spreadMethod='reflect'>" +
        stops + "</linearGradient>" + rect;
    EXPECT_NEAR(pixel(reflected, 1, 3)[0], 89, 8);
    const std::string radial = "<radialGradient id='g'>" + stops + "</radialGradient>" + rect;
    EXPECT_LT(pixel(radial, 10, 10)[0], 30);
    EXPECT_NEAR(pixel(radial, 15, 10)[0], 140, 10);
    EXPECT_THAT(pixel(radial, 0, 0), IsNear(255, 255, 255, 255));
}

TEST(DrawingRenderer, paintsInsideOfAllClips) {
    const std::string clips =
        "<clipPath id='a'><rect width='12' height='20'/></clipPath>"
        "<clipPath id='b' clip-rule='evenodd'><path d='M0 0H20V20H0ZM2 2H8V8H2Z'/></clipPath>";
    const std::string rect =
        "<g clip-path='url(#a)'><rect width='20' height='20' "
        "clip-path='url(#b)'/></g><rect x='18' width='2' height='2'/>";
    EXPECT_THAT(pixel(clips + rect, 10, 10), IsNear(0, 0, 0, 255));
    EXPECT_THAT(pixel(clips + rect, 14, 10), IsNear(0, 0, 0, 0));
    EXPECT_THAT(pixel(clips + rect, 5, 5), IsNear(0, 0, 0, 0));
    EXPECT_THAT(pixel(clips + rect, 18, 0), IsNear(0, 0, 0, 255));
}

TEST(DrawingRenderer, drawsThroughTheTransformAndLeavesTheStateAlone) {
    const auto context = CGContext::createBitmap(20, 20);
    context->setFillColor({0, 1, 0, 1});
    context->setAlpha(0.5);
    context->saveGState();
    context->scaleBy(2, 2);
    const CGAffineTransform before = context->ctm();
    context->setAlpha(1);
    render(test::readDrawing("<rect width='5' height='5' fill='red' stroke='blue' opacity='.9'/>"),
           *context);
    EXPECT_EQ(context->ctm(), before);
    context->restoreGState();
    EXPECT_THAT(context->makeImage()->pixelAt(6, 6), IsNear(230, 0, 0, 230));
    context->fillRect(CGRectMake(15, 15, 5, 5));
    EXPECT_THAT(context->makeImage()->pixelAt(17, 17), IsNear(0, 128, 0, 128));
}

}  // namespace
}  // namespace quorin
