#include "quorin/platform/drawing/CGContext.h"
#include "tests/TestSupport.h"
#include "tests/platform/drawing/Pixels.h"

namespace quorin {
namespace {

using namespace test;
using Pixel = CGImage::Pixel;

TEST(CGContextLayer, isPutDownAsOnePicture) {
    const auto context = CGContext::createBitmap(3, 1);
    context->beginTransparencyLayer(0.5);
    context->setFillColor(red);
    context->fillRect(CGRectMake(0, 0, 2, 1));
    context->setFillColor(blue);
    context->fillRect(CGRectMake(1, 0, 2, 1));
    context->endTransparencyLayer();
    const auto image = context->makeImage();
    EXPECT_THAT(image->pixelAt(0, 0), PixelNear(Pixel{128, 0, 0, 128}, 1));
    // Where both overlap only the upper one shows, unlike with half-transparent colours.
    EXPECT_THAT(image->pixelAt(1, 0), PixelNear(Pixel{0, 0, 128, 128}, 1));
}

TEST(CGContextLayer, takesTheStatesAlphaOnce) {
    const auto context = CGContext::createBitmap(1, 1);
    context->setAlpha(0.5);
    context->beginTransparencyLayer(0.5);
    context->fillRect(CGRectMake(0, 0, 1, 1));
    context->endTransparencyLayer();
    EXPECT_NEAR(alphaAt(*context, 0, 0), 64, 1);
    context->clearRect(CGRectMake(0, 0, 1, 1));
    context->fillRect(CGRectMake(0, 0, 1, 1));
    EXPECT_NEAR(alphaAt(*context, 0, 0), 128, 1);
}

TEST(CGContextLayer, standsInsideAnother) {
    const auto context = CGContext::createBitmap(2, 1);
    context->beginTransparencyLayer(0.5);
    context->fillRect(CGRectMake(0, 0, 1, 1));
    context->beginTransparencyLayer(0.5);
    context->fillRect(CGRectMake(1, 0, 1, 1));
    context->endTransparencyLayer();
    context->endTransparencyLayer();
    EXPECT_NEAR(alphaAt(*context, 0, 0), 128, 1);
    EXPECT_NEAR(alphaAt(*context, 1, 0), 64, 1);
}

TEST(CGContextLayer, restoresTheStateOfItsBeginning) {
    const auto context = CGContext::createBitmap(4, 1);
    context->translateBy(1, 0);
    context->beginTransparencyLayer();
    context->translateBy(2, 0);
    context->setFillColor(red);
    context->clipToRect(CGRectMake(0, 0, 0, 0));
    context->endTransparencyLayer();
    EXPECT_EQ(context->ctm(), CGAffineTransformMakeTranslation(1, 0));
    context->fillRect(CGRectMake(0, 0, 1, 1));
    EXPECT_THAT(context->makeImage()->pixelAt(1, 0), PixelNear(Pixel{0, 0, 0, 255}, 0));
}

TEST(CGContextLayer, keepsTheClipAroundIt) {
    const auto context = CGContext::createBitmap(4, 4);
    context->clipToRect(CGRectMake(1, 1, 2, 2));
    context->beginTransparencyLayer(1);
    context->fillRect(CGRectMake(0, 0, 4, 4));
    context->endTransparencyLayer();
    EXPECT_EQ(coveredArea(*context), 4);
    EXPECT_EQ(alphaAt(*context, 1, 1), 255);
}

TEST(CGContextLayer, showsNothingUntilItEnds) {
    const auto context = CGContext::createBitmap(1, 1);
    context->beginTransparencyLayer();
    context->fillRect(CGRectMake(0, 0, 1, 1));
    EXPECT_EQ(alphaAt(*context, 0, 0), 0);
    context->endTransparencyLayer();
    EXPECT_EQ(alphaAt(*context, 0, 0), 255);
}

TEST(CGContextLayerDeathTest, stopsWhenItIsNotTheInnermostThingToEnd) {
    const auto context = CGContext::createBitmap(1, 1);
    EXPECT_DEATH(context->endTransparencyLayer(), "without beginTransparencyLayer");
    context->beginTransparencyLayer();
    EXPECT_DEATH(context->restoreGState(), "before the open transparency layer");
    context->saveGState();
    EXPECT_DEATH(context->endTransparencyLayer(), "before restoreGState");
}

}  // namespace
}  // namespace quorin
