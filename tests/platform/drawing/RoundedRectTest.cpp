#include "quorin/platform/drawing/RoundedRect.h"

#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

#include "tests/TestSupport.h"
#include "tests/platform/drawing/Pixels.h"

namespace quorin {
namespace {

using namespace test;

constexpr double quarterCut =
    1 - std::numbers::pi / 4;  // of a corner's square, by its quarter disk

std::shared_ptr<CGContext> filledRoundedRect(const CGRect& rect, CGFloat ovalWidth,
                                             CGFloat ovalHeight) {
    auto context = CGContext::createBitmap(100, 80);
    addRoundedRectToPath(rect, *context, ovalWidth, ovalHeight);
    context->fillPath();
    return context;
}

std::shared_ptr<const CGImage> plainImage(std::size_t width, std::size_t height,
                                          CGImage::Pixel pixel) {
    std::vector<std::uint8_t> bytes;
    for (std::size_t i = 0; i < width * height; ++i)
        bytes.insert(bytes.end(), pixel.begin(), pixel.end());
    return CGImage::create(width, height, std::move(bytes));
}

TEST(AddRoundedRectToPath, addsAPlainRectWithoutAnOval) {
    for (const auto& [ovalWidth, ovalHeight] :
         {std::pair(0.0, 10.0), {10.0, 0.0}, {0.0, 0.0}, {-0.0, 10.0}}) {
        const auto context = filledRoundedRect(CGRectMake(10, 20, 30, 40), ovalWidth, ovalHeight);
        EXPECT_EQ(coveredArea(*context), 30 * 40);
        EXPECT_EQ(alphaAt(*context, 10, 20), 255);
        EXPECT_EQ(alphaAt(*context, 39, 59), 255);
    }
}

TEST(AddRoundedRectToPath, roundsByTheFullOvalSizes) {
    const auto context = filledRoundedRect(CGRectMake(10, 20, 80, 50), 20, 10);
    EXPECT_NEAR(coveredArea(*context), 80 * 50 - 4 * 20 * 10 * quarterCut, 4);
    // Ellipses of half sizes would cover this pixel, which the quarter ellipse leaves out.
    EXPECT_EQ(alphaAt(*context, 14, 22), 0);
    EXPECT_EQ(alphaAt(*context, 85, 67), 0);
    EXPECT_EQ(alphaAt(*context, 30, 20), 255) << "where the straight side starts";
    EXPECT_EQ(alphaAt(*context, 10, 30), 255);
    EXPECT_LT(alphaAt(*context, 27, 20), 255);
    EXPECT_LT(alphaAt(*context, 10, 27), 255);
}

TEST(AddRoundedRectToPath, readsTheStandardizedRect) {
    const auto context = filledRoundedRect(CGRectMake(90, 70, -80, -50), 20, 10);
    EXPECT_EQ(*context->makeImage(),
              *filledRoundedRect(CGRectMake(10, 20, 80, 50), 20, 10)->makeImage());
}

TEST(AddRoundedRectToPath, leavesTheTransformAsItWas) {
    const auto context = CGContext::createBitmap(10, 10);
    context->scaleBy(2, 3);
    addRoundedRectToPath(CGRectMake(0, 0, 4, 3), *context, 1, 1);
    EXPECT_EQ(context->ctm(), CGAffineTransformMakeScale(2, 3));
    context->fillPath();
    EXPECT_NEAR(coveredArea(*context), (4 * 3 - 4 * quarterCut) * 2 * 3, 0.5);
}

TEST(AddRoundedRectToPath, addsToThePathThatIsThere) {
    const auto context = CGContext::createBitmap(100, 80);
    context->addRect(CGRectMake(0, 0, 5, 5));
    addRoundedRectToPath(CGRectMake(10, 20, 80, 50), *context, 20, 10);
    context->fillPath();
    EXPECT_NEAR(coveredArea(*context), 25 + 80 * 50 - 4 * 20 * 10 * quarterCut, 4);
}

TEST(RoundedCornerImage, cutsTheCornersOffTheStretchedImage) {
    const auto image = plainImage(4, 2, {255, 0, 0, 255});
    const auto rounded = roundedCornerImage(image, {60, 40}, 12, 5);
    ASSERT_EQ(rounded->width(), 60u);
    ASSERT_EQ(rounded->height(), 40u);
    EXPECT_EQ(rounded->pixelAt(30, 20), (CGImage::Pixel{255, 0, 0, 255}));
    EXPECT_EQ(rounded->pixelAt(5, 20), (CGImage::Pixel{255, 0, 0, 255}));
    EXPECT_EQ(rounded->pixelAt(4, 20)[3], 0) << "the border stays clear";
    EXPECT_EQ(rounded->pixelAt(54, 20)[3], 255);
    EXPECT_EQ(rounded->pixelAt(55, 20)[3], 0);
    EXPECT_EQ(rounded->pixelAt(7, 7)[3], 0) << "outside of the arc of 12";
    EXPECT_EQ(rounded->pixelAt(10, 10)[3], 255);
    double covered = 0;
    for (std::size_t i = 3; i < rounded->pixels().size(); i += 4)
        covered += rounded->pixels()[i] / 255.0;
    EXPECT_NEAR(covered, 50 * 30 - 4 * 12 * 12 * quarterCut, 4);
}

TEST(RoundedCornerImage, drawsTheImageOnceOverTheWholeSize) {
    const auto image = CGImage::create(2, 1, {255, 0, 0, 255, 0, 0, 255, 255});
    const auto rounded = roundedCornerImage(image, {40, 20}, 0, 0);
    EXPECT_THAT(rounded->pixelAt(2, 10), PixelNear((CGImage::Pixel{255, 0, 0, 255}), 3));
    EXPECT_THAT(rounded->pixelAt(37, 10), PixelNear((CGImage::Pixel{0, 0, 255, 255}), 3));
}

TEST(RoundedCornerImage, keepsTheImageUpright) {
    const auto image = CGImage::create(1, 2, {255, 0, 0, 255, 0, 0, 255, 255});
    const auto rounded = roundedCornerImage(image, {20, 40}, 0, 0);
    EXPECT_THAT(rounded->pixelAt(10, 2), PixelNear((CGImage::Pixel{255, 0, 0, 255}), 3));
    EXPECT_THAT(rounded->pixelAt(10, 37), PixelNear((CGImage::Pixel{0, 0, 255, 255}), 3));
}

TEST(RoundedCornerImage, cutsFractionsOfAPixelOff) {
    const auto rounded = roundedCornerImage(plainImage(2, 2, {0, 0, 0, 255}), {7.9, 5.2}, 1, 0);
    EXPECT_EQ(rounded->width(), 7u);
    EXPECT_EQ(rounded->height(), 5u);
}

TEST(RoundedCornerImage, isTheImageItselfWhenThereIsNoSuchBitmap) {
    const auto image = plainImage(2, 2, {0, 0, 0, 255});
    for (const CGSize size : {CGSize{0, 10}, CGSize{10, 0.9}, CGSize{-5, 10}, CGSize{1e6, 10},
                              CGSize{30000, 30000}, CGSize{9e18, 1}})
        EXPECT_EQ(roundedCornerImage(image, size, 1, 0), image);
}

TEST(RoundedCornerImageDeathTest, doesNotTakeASizeThatIsNoInteger) {
    const auto image = plainImage(2, 2, {0, 0, 0, 255});
    EXPECT_DEATH(roundedCornerImage(image, {INFINITY, 5}, 1, 0), "side of inf pixels");
    EXPECT_DEATH(roundedCornerImage(image, {5, std::nan("")}, 1, 0), "side of nan pixels");
    EXPECT_DEATH(roundedCornerImage(image, {5, 9.3e18}, 1, 0), "side of 9.3e\\+18 pixels");
    EXPECT_DEATH(roundedCornerImage(image, {-9.3e18, 5}, 1, 0), "side of -9.3e\\+18 pixels");
}

}  // namespace
}  // namespace quorin
