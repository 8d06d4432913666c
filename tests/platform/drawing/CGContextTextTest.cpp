#include <cmath>
#include <limits>
#include <numbers>
#include <string>

#include "tests/TestSupport.h"
#include "tests/platform/drawing/Pixels.h"

namespace quorin {
namespace {

using namespace test;

/// The box of all pixels that are painted at all.
CGRect paintedBox(const CGContext& context) {
    const auto image = context.makeImage();
    CGRect box = CGRectNull;
    for (std::size_t y = 0; y < image->height(); ++y)
        for (std::size_t x = 0; x < image->width(); ++x)
            if (image->pixelAt(x, y)[3] > 0)
                box = CGRectUnion(box, CGRectMake(double(x), double(y), 1, 1));
    return box;
}

TEST(CGContextText, standsOnItsBaselineToTheRightOfThePoint) {
    const auto context = CGContext::createBitmap(100, 60);
    context->setFontSize(40);
    context->showText("H", {20, 50});
    const CGRect box = paintedBox(*context);
    EXPECT_NEAR(CGRectGetMaxY(box), 50, 1);
    EXPECT_GE(CGRectGetMinX(box), 20);
    EXPECT_LE(CGRectGetMaxX(box), 21 + context->widthOfText("H"));
    // Capitals of every usual face are between half and four fifths of the size.
    EXPECT_GT(box.size.height, 20);
    EXPECT_LT(box.size.height, 32);
}

TEST(CGContextText, isAsWideAsItWasMeasured) {
    const auto context = CGContext::createBitmap(200, 50);
    context->setFontSize(40);
    const CGFloat one = context->widthOfText("H"), three = context->widthOfText("HHH");
    EXPECT_GT(one, 10);
    EXPECT_NEAR(three, 3 * one, 1e-9);
    // From the left edge of the first letter to that of the third.
    context->showText("H", {0, 45});
    const CGRect alone = paintedBox(*context);
    context->clearRect(CGRectMake(0, 0, 200, 50));
    context->showText("HHH", {0, 45});
    EXPECT_NEAR(CGRectGetMaxX(paintedBox(*context)), CGRectGetMaxX(alone) + 2 * one, 1);
}

TEST(CGContextText, growsWithTheFontSize) {
    const auto context = CGContext::createBitmap(1, 1);
    const CGFloat first = context->widthOfText("0.25");
    context->setFontSize(24);
    EXPECT_NEAR(context->widthOfText("0.25"), 2 * first, 1e-12) << "12 at first";
    context->setFontSize(0);
    EXPECT_EQ(context->widthOfText("0.25"), 0);
    EXPECT_EQ(context->widthOfText(""), 0);
}

TEST(CGContextText, isMeasuredInUnitsWhateverTheTransform) {
    const auto context = CGContext::createBitmap(1, 1);
    const CGFloat width = context->widthOfText("42");
    context->scaleBy(7, 0.1);
    EXPECT_EQ(context->widthOfText("42"), width);
    context->scaleBy(0, 0);
    EXPECT_EQ(context->widthOfText("42"), width);
}

TEST(CGContextText, followsTheTransform) {
    const auto context = CGContext::createBitmap(60, 100);
    context->setFontSize(20);
    context->translateBy(10, 20);
    context->rotateBy(std::numbers::pi / 2);
    context->scaleBy(2, 2);
    context->showText("H", {0, 0});  // runs down now, letters standing to the right
    const CGRect box = paintedBox(*context);
    EXPECT_NEAR(CGRectGetMinX(box), 10, 1);
    EXPECT_GE(CGRectGetMinY(box), 20);
    EXPECT_GT(box.size.width, 20);
    EXPECT_LT(box.size.width, 32);
}

TEST(CGContextText, isFilledLikeAPath) {
    const auto context = CGContext::createBitmap(40, 40);
    context->setFillColor(red);
    context->setAlpha(0.5);
    context->setFontSize(400);
    context->showText("\u2588", {-50, 100});  // a full block, far larger than the bitmap
    EXPECT_THAT(context->makeImage()->pixelAt(20, 20),
                PixelNear((CGImage::Pixel{128, 0, 0, 128}), 1));
    context->clipToRect(CGRectMake(0, 0, 20, 40));
    context->setAlpha(1);
    context->showText("\u2588", {-50, 100});
    EXPECT_EQ(alphaAt(*context, 19, 20), 255);
    EXPECT_NEAR(alphaAt(*context, 20, 20), 128, 1);
}

TEST(CGContextText, belongsToTheState) {
    const auto context = CGContext::createBitmap(1, 1);
    const CGFloat width = context->widthOfText("8");
    context->saveGState();
    context->setFontSize(99);
    EXPECT_GT(context->widthOfText("8"), 5 * width);
    context->restoreGState();
    EXPECT_EQ(context->widthOfText("8"), width);
}

TEST(CGContextText, usesThePathUp) {
    const auto context = CGContext::createBitmap(4, 4);
    context->addRect(CGRectMake(0, 0, 4, 4));
    context->showText("", {0, 0});
    context->fillPath();
    EXPECT_EQ(coveredArea(*context), 0);
}

TEST(CGContextText, showsASignForBytesThatAreNoCharacters) {
    const auto context = CGContext::createBitmap(1, 1);
    const CGFloat sign = context->widthOfText("\uFFFD");
    EXPECT_GT(sign, 0);
    EXPECT_NEAR(context->widthOfText("\xFF\xC3"), 2 * sign, 1e-9);
    EXPECT_NEAR(context->widthOfText(std::string_view("\0", 1)), sign, 1e-9);
    EXPECT_NEAR(context->widthOfText(std::string_view("1\0002", 3)),
                context->widthOfText("12") + sign, 1e-9);
}

TEST(CGContextText, isNotShownAtSizesAndPlacesWithoutPicture) {
    const CGFloat nan = std::nan(""), infinity = std::numeric_limits<CGFloat>::infinity();
    const auto context = CGContext::createBitmap(10, 10);
    for (const CGFloat size : {0.0, -5.0, 1e-9, 1e9, 1e300, nan, infinity}) {
        context->setFontSize(size);
        context->showText("\u2588", {0, 5});
    }
    context->setFontSize(12);
    for (const CGPoint& at : {CGPoint{nan, 5}, {0, infinity}, {-1e300, 5}})
        context->showText("\u2588", at);
    for (const CGAffineTransform& flat :
         {CGAffineTransformMakeScale(0, 1), CGAffineTransformMakeScale(1e200, 1e200),
          CGAffineTransform{1, 2, 2, 4, 0, 0}, CGAffineTransformMakeScale(nan, 1)}) {
        context->saveGState();
        context->concatCTM(flat);
        context->showText("\u2588", {0, 5});
        context->restoreGState();
    }
    EXPECT_EQ(coveredArea(*context), 0);
    context->showText("\u2588", {0, 10});  // and works on
    EXPECT_GT(coveredArea(*context), 10);
}

}  // namespace
}  // namespace quorin
