#include "quorin/extensions/TemplateImage.h"

#include <cmath>
#include <limits>

#include "tests/TestSupport.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using Pixel = CGImage::Pixel;
using test::TemporaryFolder;

std::shared_ptr<const CGImage> row(const std::vector<Pixel>& pixels) {
    std::vector<std::uint8_t> bytes;
    for (const Pixel& pixel : pixels)
        bytes.insert(bytes.end(), pixel.begin(), pixel.end());
    return CGImage::create(pixels.size(), 1, bytes);
}

std::vector<Pixel> pixelsOf(const CGImage& image) {
    std::vector<Pixel> pixels;
    for (std::size_t x = 0; x < image.width(); ++x)
        pixels.push_back(image.pixelAt(x, 0));
    return pixels;
}

TEST(TemplateImage, hasTheColourWhereTheImageHasAlpha) {
    const TemporaryFolder folder;
    row({{9, 9, 9, 255}, {5, 0, 0, 128}, {0, 0, 0, 0}, {0, 0, 0, 255}})
        ->writePNG(folder / "lock.png");
    const auto image = createTemplateImage("lock", {1, 0.5, 0, 1}, folder.path());
    ASSERT_NE(image, nullptr);
    EXPECT_TRUE(image->isTemplate());
    // Colours are multiplied by alpha: 255 · 0.5 = 127.5 and 128 · 0.5 = 64.
    EXPECT_EQ(pixelsOf(*image->cgImage()),
              (std::vector<Pixel>{
                  {255, 128, 0, 255}, {128, 64, 0, 128}, {0, 0, 0, 0}, {255, 128, 0, 255}}));
}

TEST(TemplateImage, takesTheAlphaOfTheColourIntoAccount) {
    // 200 · 0.25 = 50; half of that is 25.
    EXPECT_EQ(pixelsOf(*tinted(*row({{1, 2, 3, 200}}), {1, 0.5, 0, 0.25})),
              (std::vector<Pixel>{{50, 25, 0, 50}}));
    EXPECT_EQ(pixelsOf(*tinted(*row({{1, 2, 3, 200}}), {1, 1, 1, 0})),
              (std::vector<Pixel>{{0, 0, 0, 0}}));
}

TEST(TemplateImage, takesComponentsBeyondTheirRangeAsTheNearestWithin) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(pixelsOf(*tinted(*row({{0, 0, 0, 100}}), {2, -1, infinity, 7})),
              (std::vector<Pixel>{{100, 0, 100, 100}}));
    EXPECT_EQ(pixelsOf(*tinted(*row({{0, 0, 0, 100}}), {std::nan(""), -infinity, 1, 1})),
              (std::vector<Pixel>{{0, 0, 100, 100}}));
}

RC_GTEST_PROP(TemplateImage, neverHasMoreColourThanAlpha, ()) {
    const auto component = [] { return *rc::gen::inRange(0, 1001) / 1000.0; };
    const auto alpha = *rc::gen::arbitrary<std::uint8_t>();
    const CGColor color{component(), component(), component(), component()};
    const Pixel pixel = tinted(*row({{0, 0, 0, alpha}}), color)->pixelAt(0, 0);
    RC_ASSERT(pixel[3] == std::lround(alpha * color.alpha));
    RC_ASSERT((pixel[0] <= pixel[3] && pixel[1] <= pixel[3] && pixel[2] <= pixel[3]));
}

TEST(TemplateImage, isNothingWithoutTheImage) {
    const TemporaryFolder folder;
    folder.file("damaged.png", "\x89PNG\r\n\x1A\n");
    EXPECT_EQ(createTemplateImage("missing", {}, folder.path()), nullptr);
    EXPECT_EQ(createTemplateImage("damaged", {}, folder.path()), nullptr);
    EXPECT_EQ(createTemplateImage("missing", {}, folder / "no/folder"), nullptr);
}

}  // namespace
}  // namespace quorin
