#include "quorin/platform/drawing/CGContext.h"

#include <array>
#include <cmath>
#include <limits>
#include <numbers>

#include "quorin/platform/cgpath/CGMutablePath.h"
#include "tests/TestSupport.h"
#include "tests/platform/drawing/Pixels.h"

namespace quorin {
namespace {

using namespace test;
using testing::Each;

TEST(CGContext, startsTransparentInTheSizeAskedFor) {
    const auto context = CGContext::createBitmap(7, 5);
    EXPECT_EQ(context->width(), 7u);
    EXPECT_EQ(context->height(), 5u);
    const auto image = context->makeImage();
    EXPECT_EQ(image->width(), 7u);
    EXPECT_EQ(image->height(), 5u);
    EXPECT_THAT(image->pixels(), Each(0));
    EXPECT_EQ(context->ctm(), CGAffineTransform::identity);
}

TEST(CGContext, refusesSizesNobodyCanMean) {
    EXPECT_THAT([] { CGContext::createBitmap(0, 10); },
                testing::ThrowsMessage<ImageError>(
                    "an image of 0 x 10 pixels: a side has to be from 1 to 32767"));
    EXPECT_THROW(CGContext::createBitmap(100'000, 10), ImageError);
    EXPECT_THROW(CGContext::createBitmap(30'000, 30'000), ImageError);
}

TEST(CGContext, makesImagesThatDoNotChangeAnyMore) {
    const auto context = CGContext::createBitmap(1, 1);
    const auto before = context->makeImage();
    context->fillRect(CGRectMake(0, 0, 1, 1));
    EXPECT_EQ(before->pixelAt(0, 0)[3], 0);
    EXPECT_EQ(context->makeImage()->pixelAt(0, 0)[3], 255);
}

TEST(CGContextState, comesBackAsAWhole) {
    const auto context = CGContext::createBitmap(10, 10);
    context->saveGState();
    context->translateBy(3, 4);
    context->setFillColor(red);
    context->setStrokeColor(red);
    context->setAlpha(0.5);
    context->setLineWidth(9);
    context->setLineDash(0, std::array{1.0, 1.0});
    context->clipToRect(CGRectMake(0, 0, 1, 1));
    context->restoreGState();

    const auto fresh = CGContext::createBitmap(10, 10);
    for (const auto& each : {context, fresh}) {
        each->fillRect(CGRectMake(0, 0, 10, 4));
        each->addPath(*polyline({{0, 7}, {10, 7}}));
        each->strokePath();
    }
    EXPECT_EQ(context->ctm(), fresh->ctm());
    EXPECT_EQ(*context->makeImage(), *fresh->makeImage());
}

TEST(CGContextState, doesNotHoldThePath) {
    const auto context = CGContext::createBitmap(4, 4);
    context->saveGState();
    context->addRect(CGRectMake(1, 1, 2, 2));
    context->restoreGState();
    context->fillPath();
    EXPECT_EQ(coveredArea(*context), 4);
}

TEST(CGContextStateDeathTest, stopsWhenRestoredMoreOftenThanSaved) {
    const auto context = CGContext::createBitmap(1, 1);
    context->saveGState();
    context->restoreGState();
    EXPECT_DEATH(context->restoreGState(), "restoreGState without saveGState");
}

TEST(CGContextTransform, appliesTheLastOneFirst) {
    const auto context = CGContext::createBitmap(20, 20);
    context->translateBy(10, 4);
    context->scaleBy(2, 3);
    EXPECT_EQ(context->ctm(), (CGAffineTransform{2, 0, 0, 3, 10, 4}));
    context->fillRect(CGRectMake(1, 1, 2, 1));
    EXPECT_EQ(alphaAt(*context, 12, 7), 255);
    EXPECT_EQ(alphaAt(*context, 15, 9), 255);
    EXPECT_EQ(coveredArea(*context), 4 * 3);
}

TEST(CGContextTransform, turnsClockwise) {
    const auto context = CGContext::createBitmap(20, 20);
    context->translateBy(10, 10);
    context->rotateBy(std::numbers::pi / 2);
    context->fillRect(CGRectMake(0, -1, 8, 2));  // to the right before, down now
    EXPECT_EQ(alphaAt(*context, 10, 15), 255);
    EXPECT_EQ(alphaAt(*context, 15, 10), 0);
    EXPECT_NEAR(coveredArea(*context), 16, 0.1);
}

TEST(CGContextTransform, appliesToThePathAsItIsAdded) {
    const auto context = CGContext::createBitmap(10, 10);
    context->addRect(CGRectMake(0, 0, 2, 2));
    context->translateBy(5, 5);
    context->addRect(CGRectMake(0, 0, 2, 2));
    context->translateBy(100, 100);
    context->fillPath();
    EXPECT_EQ(alphaAt(*context, 1, 1), 255);
    EXPECT_EQ(alphaAt(*context, 6, 6), 255);
    EXPECT_EQ(coveredArea(*context), 8);
}

TEST(CGContextTransform, withoutInverseIsGoneAfterRestoring) {
    const auto context = CGContext::createBitmap(10, 10);
    for (const CGAffineTransform& flat :
         {CGAffineTransformMakeScale(0, 1), CGAffineTransform{1, 2, 2, 4, 0, 0},
          CGAffineTransformMakeScale(std::numeric_limits<CGFloat>::infinity(), 1),
          CGAffineTransformMakeScale(std::nan(""), 1), CGAffineTransformMakeScale(1e-200, 1e-200),
          CGAffineTransformMakeScale(1e200, 1e200)}) {
        context->saveGState();
        context->concatCTM(flat);
        context->strokeRect(CGRectMake(1, 1, 5, 5));
        context->drawLinearGradient({{{0, red}, {1, blue}}, CGGradientSpread::pad},
                                    {std::nan(""), 0}, {1, 0});
        context->drawImage(*CGImage::create(1, 1, {0, 0, 0, 0}), CGRectMake(0, 0, 1, 1));
        context->restoreGState();
    }
    context->clearRect(CGRectMake(0, 0, 10, 10));
    context->fillRect(CGRectMake(1, 1, 5, 5));
    EXPECT_EQ(coveredArea(*context), 25);
}

TEST(CGContextClip, cutsWhatIsPainted) {
    const auto context = CGContext::createBitmap(10, 10);
    context->addPath(*polygon({{1, 1}, {9, 1}, {9, 9}, {1, 9}}));
    context->clip();
    context->clipToRect(CGRectMake(0, 0, 5, 10));
    context->fillRect(CGRectMake(0, 0, 10, 10));
    EXPECT_EQ(coveredArea(*context), 4 * 8);
    EXPECT_EQ(alphaAt(*context, 1, 1), 255);
    EXPECT_EQ(alphaAt(*context, 5, 1), 0);
}

TEST(CGContextClip, followsTheEvenOddRuleWhenAsked) {
    const auto context = CGContext::createBitmap(10, 10);
    context->addRect(CGRectMake(0, 0, 10, 10));
    context->addRect(CGRectMake(2, 2, 6, 6));
    context->clip(CGPathFillRule::evenOdd);
    context->fillRect(CGRectMake(0, 0, 10, 10));
    EXPECT_EQ(coveredArea(*context), 100 - 36);
}

TEST(CGContextClip, isSmoothAtItsEdges) {
    const auto context = CGContext::createBitmap(4, 1);
    context->clipToRect(CGRectMake(0, 0, 1.5, 1));
    context->fillRect(CGRectMake(0, 0, 4, 1));
    EXPECT_NEAR(alphaAt(*context, 1, 0), 128, 1);
}

TEST(CGContextPath, leavesOutPointsThatAreNotFinite) {
    const CGFloat nan = std::nan(""), infinity = std::numeric_limits<CGFloat>::infinity();
    const auto context = CGContext::createBitmap(10, 10);
    context->addPath(*polygon({{1, 1}, {nan, 5}, {9, 1}, {9, infinity}, {9, 9}, {1, 9}}));
    context->fillPath();
    EXPECT_EQ(coveredArea(*context), 64);
    context->fillRect(CGRectNull);
    context->fillRect(CGRectMake(0, 0, infinity, 5));
    EXPECT_EQ(coveredArea(*context), 64);
}

TEST(CGContextPath, reachesFarBeyondTheBitmap) {
    const auto context = CGContext::createBitmap(10, 10);
    context->fillRect(CGRectMake(-1e300, 2, 2e300, 3));
    EXPECT_EQ(coveredArea(*context), 30);
    context->fillRect(CGRectInfinite);
    EXPECT_EQ(coveredArea(*context), 100);
}

/// Numbers of every magnitude, the impossible ones among them.
rc::Gen<CGFloat> wildNumber() {
    return rc::gen::oneOf(
        rc::gen::element<CGFloat>(0.0, -0.0, 1e-300, 1e300, std::nan(""), INFINITY, -INFINITY),
        rc::gen::map(
            rc::gen::pair(rc::gen::inRange(-1000, 1001), rc::gen::inRange(-12, 13)),
            [](std::pair<int, int> parts) { return parts.first * std::pow(10.0, parts.second); }));
}

RC_GTEST_PROP(CGContext, drawsOnAfterAnythingItWasAskedFor, ()) {
    const auto number = wildNumber();
    const auto context = CGContext::createBitmap(16, 16);
    context->saveGState();
    context->concatCTM({*number, *number, *number, *number, *number, *number});
    context->setLineWidth(*number);
    context->setMiterLimit(*number);
    context->setLineDash(*number, std::array{*number, *number});
    context->setLineCap(CGLineCap(*rc::gen::inRange(0, 3)));
    context->setLineJoin(CGLineJoin(*rc::gen::inRange(0, 3)));
    context->setFillShading(CGRadialShading{
        {{{*number, red}, {*number, blue}}}, {*number, *number}, *number, {1, 2}, *number, {}});
    CGMutablePath path;
    path.moveTo({*number, *number});
    path.addLineTo({*number, *number});
    path.addCurveTo({*number, *number}, {*number, *number}, {*number, *number});
    path.addQuadCurveTo({*number, *number}, {*number, *number});
    context->addPath(*path.copy());
    context->strokePath();
    context->addPath(*path.copy());
    context->fillPath();
    context->drawImage(*CGImage::create(1, 1, {0, 0, 0, 255}),
                       CGRectMake(*number, *number, *number, *number));
    context->beginTransparencyLayer(*number);
    context->strokeEllipse(CGRectMake(*number, *number, *number, *number));
    context->endTransparencyLayer();
    context->addPath(*path.take());
    context->clip();
    context->restoreGState();

    context->clearRect(CGRectMake(0, 0, 16, 16));
    context->fillRect(CGRectMake(4, 4, 8, 8));
    RC_ASSERT(coveredArea(*context) == 64);
}

}  // namespace
}  // namespace quorin
