#include <cmath>

#include "quorin/platform/drawing/CGContext.h"
#include "tests/TestSupport.h"
#include "tests/platform/drawing/Pixels.h"

namespace quorin {
namespace {

using namespace test;
using testing::ElementsAre;
using Pixel = CGImage::Pixel;

const CGGradient redToBlue{{{0, red}, {1, blue}}};
const CGRect all = CGRectMake(0, 0, 100, 100);

TEST(CGContextColor, isStoredMultipliedByAlpha) {
    const auto context = CGContext::createBitmap(1, 1);
    context->setFillColor({1, 0.5, 0, 0.5});
    context->fillRect(all);
    EXPECT_THAT(context->makeImage()->pixelAt(0, 0), PixelNear(Pixel{128, 64, 0, 128}, 1));
}

TEST(CGContextColor, keepsTheOrderOfChannels) {
    const auto context = CGContext::createBitmap(1, 1);
    context->setFillColor({51 / 255.0, 102 / 255.0, 153 / 255.0, 1});
    context->fillRect(all);
    EXPECT_THAT(context->makeImage()->pixelAt(0, 0), ElementsAre(51, 102, 153, 255));
}

TEST(CGContextColor, isPaintedOverWhatIsThere) {
    const auto context = CGContext::createBitmap(1, 1);
    context->setFillColor(blue);
    context->fillRect(all);
    context->setFillColor({1, 0, 0, 0.25});
    context->fillRect(all);
    EXPECT_THAT(context->makeImage()->pixelAt(0, 0), PixelNear(Pixel{64, 0, 191, 255}, 1));
}

TEST(CGContextColor, isBlackAtFirstForFillAndStroke) {
    const auto context = CGContext::createBitmap(4, 4);
    context->fillRect(CGRectMake(0, 0, 1, 1));
    context->setLineWidth(2);
    context->addPath(*polyline({{2, 3}, {4, 3}}));
    context->strokePath();
    EXPECT_THAT(context->makeImage()->pixelAt(0, 0), ElementsAre(0, 0, 0, 255));
    EXPECT_THAT(context->makeImage()->pixelAt(3, 3), ElementsAre(0, 0, 0, 255));
}

TEST(CGContextColor, isDifferentForFillAndStroke) {
    const auto context = CGContext::createBitmap(10, 10);
    context->setFillColor(red);
    context->setStrokeColor(blue);
    context->setLineWidth(2);
    context->fillRect(CGRectMake(2, 2, 6, 6));
    context->strokeRect(CGRectMake(2, 2, 6, 6));
    EXPECT_THAT(context->makeImage()->pixelAt(5, 5), ElementsAre(255, 0, 0, 255));
    EXPECT_THAT(context->makeImage()->pixelAt(2, 5), ElementsAre(0, 0, 255, 255));
}

TEST(CGContextColor, takesTheNearestComponentThatThereIs) {
    const auto context = CGContext::createBitmap(1, 1);
    context->setFillColor({7, -3, std::nan(""), 2});
    context->fillRect(all);
    EXPECT_THAT(context->makeImage()->pixelAt(0, 0), ElementsAre(255, 0, 0, 255));
}

TEST(CGContextAlpha, isMultipliedWithTheColour) {
    const auto context = CGContext::createBitmap(3, 1);
    context->setFillColor({1, 1, 1, 0.5});
    context->setAlpha(0.5);
    context->fillRect(CGRectMake(0, 0, 1, 1));
    context->setAlpha(2);
    context->fillRect(CGRectMake(1, 0, 1, 1));
    context->setAlpha(std::nan(""));
    context->fillRect(CGRectMake(2, 0, 1, 1));
    EXPECT_NEAR(alphaAt(*context, 0, 0), 64, 1);
    EXPECT_NEAR(alphaAt(*context, 1, 0), 128, 1);
    EXPECT_EQ(alphaAt(*context, 2, 0), 0);
}

TEST(CGContextClear, makesPixelsTransparentWithinTheClip) {
    const auto context = CGContext::createBitmap(4, 1);
    context->fillRect(all);
    context->clipToRect(CGRectMake(0, 0, 2, 1));
    context->clearRect(CGRectMake(1, 0, 3, 1));
    EXPECT_EQ(alphaAt(*context, 0, 0), 255);
    EXPECT_EQ(alphaAt(*context, 1, 0), 0);
    EXPECT_EQ(alphaAt(*context, 2, 0), 255);
    context->fillRect(CGRectMake(1, 0, 1, 1));
    EXPECT_EQ(alphaAt(*context, 1, 0), 255);
}

TEST(CGContextGradient, passesFromColourToColourAlongItsLine) {
    const auto context = CGContext::createBitmap(101, 2);
    context->drawLinearGradient(redToBlue, {0.5, 0}, {100.5, 0});
    const auto image = context->makeImage();
    EXPECT_THAT(image->pixelAt(0, 0), PixelNear(Pixel{255, 0, 0, 255}, 1));
    EXPECT_THAT(image->pixelAt(25, 1), PixelNear(Pixel{191, 0, 64, 255}, 1));
    EXPECT_THAT(image->pixelAt(50, 0), PixelNear(Pixel{128, 0, 128, 255}, 1));
    EXPECT_THAT(image->pixelAt(100, 1), PixelNear(Pixel{0, 0, 255, 255}, 1));
}

TEST(CGContextGradient, goesOnBeyondItsEndsAsTheSpreadSays) {
    struct Row {
        CGGradientSpread spread;
        Pixel before, after;
    };
    // The gradient reaches from 20 to 40; looked at are 15.5, a quarter before, and 45.5.
    const Row table[] = {
        {CGGradientSpread::pad, {255, 0, 0, 255}, {0, 0, 255, 255}},
        {CGGradientSpread::reflect, {198, 0, 57, 255}, {70, 0, 185, 255}},
        {CGGradientSpread::repeat, {57, 0, 198, 255}, {185, 0, 70, 255}},
    };
    for (const auto& [spread, before, after] : table) {
        const auto context = CGContext::createBitmap(60, 1);
        CGGradient gradient = redToBlue;
        gradient.spread = spread;
        context->drawLinearGradient(gradient, {20, 0}, {40, 0});
        EXPECT_THAT(context->makeImage()->pixelAt(15, 0), PixelNear(before, 2));
        EXPECT_THAT(context->makeImage()->pixelAt(45, 0), PixelNear(after, 2));
    }
}

TEST(CGContextGradient, passesFromCircleToCircle) {
    const auto context = CGContext::createBitmap(101, 101);
    context->drawRadialGradient(redToBlue, {50.5, 50.5}, 10, {50.5, 50.5}, 50);
    const auto image = context->makeImage();
    EXPECT_THAT(image->pixelAt(50, 50), PixelNear(Pixel{255, 0, 0, 255}, 1));
    EXPECT_THAT(image->pixelAt(50, 20), PixelNear(Pixel{128, 0, 128, 255}, 2));
    EXPECT_THAT(image->pixelAt(80, 50), PixelNear(Pixel{128, 0, 128, 255}, 2));
    EXPECT_THAT(image->pixelAt(0, 0), PixelNear(Pixel{0, 0, 255, 255}, 1));
}

TEST(CGContextGradient, fillsTheClipOnly) {
    const auto context = CGContext::createBitmap(10, 10);
    context->addRect(CGRectMake(2, 2, 3, 3));
    context->clip();
    context->drawLinearGradient(redToBlue, {0, 0}, {10, 0});
    EXPECT_EQ(coveredArea(*context), 9);
}

TEST(CGContextGradient, hasTransparentStopsAndTheStatesAlpha) {
    const auto context = CGContext::createBitmap(100, 1);
    context->setAlpha(0.5);
    context->drawLinearGradient({{{0, black}, {1, {0, 0, 0, 0}}}}, {0, 0}, {100, 0});
    EXPECT_NEAR(alphaAt(*context, 0, 0), 127, 2);
    EXPECT_NEAR(alphaAt(*context, 50, 0), 64, 2);
}

TEST(CGContextGradient, isItsLastColourWhereItsEndsAreOne) {
    for (const bool isRadial : {false, true}) {
        const auto context = CGContext::createBitmap(1, 1);
        if (isRadial)
            context->drawRadialGradient(redToBlue, {5, 5}, 3, {5, 5}, 3);
        else
            context->drawLinearGradient(redToBlue, {5, 5}, {5, 5});
        EXPECT_THAT(context->makeImage()->pixelAt(0, 0), ElementsAre(0, 0, 255, 255));
    }
}

TEST(CGContextGradient, paintsNothingWithoutStops) {
    const auto context = CGContext::createBitmap(1, 1);
    context->drawLinearGradient({}, {0, 0}, {1, 0});
    context->setFillShading(CGLinearShading{{}, {0, 0}, {1, 0}, {}});
    context->fillRect(all);
    EXPECT_EQ(alphaAt(*context, 0, 0), 0);
}

TEST(CGContextShading, fillsAndStrokesPaths) {
    const auto context = CGContext::createBitmap(100, 20);
    context->setFillShading(CGLinearShading{redToBlue, {0, 0}, {100, 0}, {}});
    context->setStrokeShading(CGLinearShading{redToBlue, {100, 0}, {0, 0}, {}});
    context->fillRect(CGRectMake(0, 0, 100, 10));
    context->setLineWidth(10);
    context->addPath(*polyline({{0, 15}, {100, 15}}));
    context->strokePath();
    const auto image = context->makeImage();
    EXPECT_THAT(image->pixelAt(25, 5), PixelNear(Pixel{190, 0, 65, 255}, 1));
    EXPECT_THAT(image->pixelAt(25, 15), PixelNear(Pixel{65, 0, 190, 255}, 1));
}

TEST(CGContextShading, standsInTheSpaceOfTheMomentItWasSet) {
    const auto context = CGContext::createBitmap(100, 1);
    context->scaleBy(10, 10);
    context->setFillShading(
        CGLinearShading{redToBlue, {0, 0}, {1, 0}, CGAffineTransformMakeScale(10, 1)});
    context->translateBy(5, 0);
    context->fillRect(CGRectMake(-5, 0, 10, 1));
    EXPECT_THAT(context->makeImage()->pixelAt(25, 0), PixelNear(Pixel{190, 0, 65, 255}, 1));
    EXPECT_THAT(context->makeImage()->pixelAt(75, 0), PixelNear(Pixel{63, 0, 192, 255}, 1));
}

TEST(CGContextShading, isExactHoweverFarOrLargeItsOwnSpaceIs) {
    struct Row {
        const char* says;
        CGAffineTransform ctm;
        CGFloat start, length;  // pixels 0 to 100
    };
    const Row table[] = {
        {"a million pixels away", CGAffineTransformMakeTranslation(-1e6, 0), 1e6, 100},
        {"in tiny units", CGAffineTransformMakeScale(1e6, 1e6), 0, 1e-4},
        {"in huge units", CGAffineTransformMakeScale(1e-6, 1e-6), 0, 1e8},
    };
    for (const auto& [says, ctm, start, length] : table) {
        SCOPED_TRACE(says);
        const auto context = CGContext::createBitmap(100, 2);
        context->concatCTM(ctm);
        context->setFillShading(CGLinearShading{redToBlue, {start, 0}, {start + length, 0}, {}});
        context->fillRect(CGRectMake(start, 0, length, length));
        EXPECT_THAT(context->makeImage()->pixelAt(25, 0), PixelNear(Pixel{190, 0, 65, 255}, 2));
        context->setFillShading(CGRadialShading{redToBlue, {start, 0}, 0, {start, 0}, length, {}});
        context->fillRect(CGRectMake(start, 0, length, length));
        EXPECT_THAT(context->makeImage()->pixelAt(75, 0), PixelNear(Pixel{63, 0, 192, 255}, 2));
    }
}

TEST(CGContextShading, strokesUnderATransformToo) {
    const auto context = CGContext::createBitmap(100, 4);
    context->scaleBy(10, 1);
    context->setStrokeShading(CGLinearShading{redToBlue, {0, 0}, {10, 0}, {}});
    context->setLineWidth(4);
    context->addPath(*polyline({{0, 2}, {10, 2}}));
    context->strokePath();
    EXPECT_THAT(context->makeImage()->pixelAt(75, 2), PixelNear(Pixel{63, 0, 192, 255}, 1));
}

TEST(CGContextShading, paintsNothingThroughATransformWithoutInverse) {
    const auto context = CGContext::createBitmap(4, 4);
    context->setFillShading(
        CGLinearShading{redToBlue, {0, 0}, {1, 0}, CGAffineTransformMakeScale(0, 1)});
    context->fillRect(all);
    EXPECT_EQ(coveredArea(*context), 0);
    context->setFillColor(black);
    context->fillRect(all);
    EXPECT_EQ(coveredArea(*context), 16);
}

TEST(CGContextImage, isDrawnPixelForPixel) {
    const auto image = CGImage::create(2, 2,
                                       {255, 0, 0, 255, 0, 255, 0, 255,  //
                                        0, 0, 255, 255, 0, 0, 0, 0});
    const auto context = CGContext::createBitmap(2, 2);
    context->drawImage(*image, CGRectMake(0, 0, 2, 2));
    EXPECT_EQ(*context->makeImage(), *image);
}

TEST(CGContextImage, isStretchedToItsRect) {
    const auto image = CGImage::create(1, 2, {255, 0, 0, 255, 0, 0, 255, 255});
    const auto context = CGContext::createBitmap(20, 40);
    context->translateBy(5, 0);
    context->drawImage(*image, CGRectMake(0, 0, 10, 40));
    const auto drawn = context->makeImage();
    EXPECT_EQ(coveredArea(*context), 400);
    EXPECT_THAT(drawn->pixelAt(5, 0), ElementsAre(255, 0, 0, 255));
    EXPECT_THAT(drawn->pixelAt(14, 39), ElementsAre(0, 0, 255, 255));
}

TEST(CGContextImage, isAveragedWhenItBecomesSmaller) {
    std::vector<std::uint8_t> stripes;
    for (int i = 0; i < 64 * 64; ++i)
        stripes.insert(stripes.end(), 4, i % 2 == 0 ? 255 : 0);
    const auto context = CGContext::createBitmap(8, 8);
    context->drawImage(*CGImage::create(64, 64, stripes), CGRectMake(0, 0, 8, 8));
    EXPECT_NEAR(alphaAt(*context, 4, 4), 128, 3);
}

TEST(CGContextImage, isDrawnFromFarAndLeftOutWhenBesideTheBitmap) {
    const auto image = CGImage::create(2, 1, {255, 0, 0, 255, 0, 0, 255, 255});
    const auto context = CGContext::createBitmap(4, 4);
    context->translateBy(-1e9, 0);
    context->drawImage(*image, CGRectMake(1e9 + 4, 0, 1, 4));
    EXPECT_EQ(coveredArea(*context), 0);
    context->drawImage(*image, CGRectMake(1e9 + 1, 0, 2, 4));
    EXPECT_EQ(coveredArea(*context), 8);
    EXPECT_THAT(context->makeImage()->pixelAt(2, 0), ElementsAre(0, 0, 255, 255));
}

TEST(CGContextImage, keepsTheStatesAlphaAndClip) {
    const auto image = CGImage::create(1, 1, {255, 255, 255, 255});
    const auto context = CGContext::createBitmap(4, 1);
    context->setAlpha(0.5);
    context->clipToRect(CGRectMake(0, 0, 2, 1));
    context->drawImage(*image, CGRectMake(0, 0, 1, 1));
    context->drawImage(*image, CGRectMake(1, 0, 3, 1));
    EXPECT_NEAR(alphaAt(*context, 0, 0), 128, 1);
    EXPECT_NEAR(alphaAt(*context, 1, 0), 128, 1);
    EXPECT_EQ(alphaAt(*context, 2, 0), 0);
}

}  // namespace
}  // namespace quorin
