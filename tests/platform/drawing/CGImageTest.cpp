#include "quorin/platform/drawing/CGImage.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "quorin/platform/foundation/AtomicFile.h"
#include "tests/TestSupport.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using test::TemporaryFolder;
using testing::ElementsAre;
using testing::EndsWith;
using testing::ThrowsMessage;

/// Every possible pixel of one colour channel: alpha down, colour up to alpha to the right.
std::shared_ptr<const CGImage> allPremultipliedPixels() {
    std::vector<std::uint8_t> pixels;
    for (unsigned alpha = 0; alpha < 256; ++alpha)
        for (unsigned color = 0; color < 256; ++color) {
            const auto channel = static_cast<std::uint8_t>(std::min(color, alpha));
            pixels.insert(pixels.end(), {channel, static_cast<std::uint8_t>(alpha - channel), 0,
                                         static_cast<std::uint8_t>(alpha)});
        }
    return CGImage::create(256, 256, std::move(pixels));
}

auto decoding(const std::string& bytes) {
    return [=] { CGImage::decodePNG(bytes, "icon.png"); };
}

/// A header chunk of a PNG file that claims this size.
std::string pngClaiming(std::uint32_t width, std::uint32_t height) {
    std::string png("\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR", 16);
    for (const std::uint32_t side : {width, height})
        for (const unsigned shift : {24u, 16u, 8u, 0u})
            png += static_cast<char>(side >> shift);
    return png + std::string("\x08\x06\0\0\0", 5);
}

TEST(CGImage, keepsItsPixelsRowByRow) {
    const auto image =
        CGImage::create(2, 2, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16});
    EXPECT_EQ(image->width(), 2u);
    EXPECT_EQ(image->height(), 2u);
    EXPECT_THAT(image->pixelAt(1, 0), ElementsAre(5, 6, 7, 8));
    EXPECT_THAT(image->pixelAt(0, 1), ElementsAre(9, 10, 11, 12));
    EXPECT_EQ(image->pixels().size(), 16u);
}

TEST(CGImage, isEqualWithEqualSizesAndPixels) {
    const auto wide = CGImage::create(2, 1, {1, 1, 1, 1, 2, 2, 2, 2});
    EXPECT_EQ(*wide, *CGImage::create(2, 1, {1, 1, 1, 1, 2, 2, 2, 2}));
    EXPECT_FALSE(*wide == *CGImage::create(1, 2, {1, 1, 1, 1, 2, 2, 2, 2}));
    EXPECT_FALSE(*wide == *CGImage::create(2, 1, {1, 1, 1, 1, 2, 2, 2, 3}));
}

TEST(CGImage, refusesSizesNobodyCanMean) {
    struct Row {
        std::size_t width, height;
        const char* message;
    };
    const Row table[] = {
        {0, 5, "an image of 0 x 5 pixels: a side has to be from 1 to 32767"},
        {5, 0, "an image of 5 x 0 pixels: a side has to be from 1 to 32767"},
        {32'768, 1, "an image of 32768 x 1 pixels: a side has to be from 1 to 32767"},
        {1, std::size_t(-1),
         "an image of 1 x 18446744073709551615 pixels: a side has to be from 1 to 32767"},
        {20'000, 10'000, "an image of 20000 x 10000 pixels: there may be 134217728 at most"},
    };
    for (const auto& row : table)
        EXPECT_THAT([&] { CGImage::create(row.width, row.height, {}); },
                    ThrowsMessage<ImageError>(row.message));
    EXPECT_NO_THROW(CGImage::requireSize(32'767, 4'096));
}

TEST(CGImageDeathTest, stopsAtPixelsThatAreNotThere) {
    EXPECT_DEATH(CGImage::create(2, 2, {1, 2, 3, 4}), "4 bytes for 2 x 2 pixels");
    EXPECT_DEATH(CGImage::create(1, 1, {1, 2, 3, 4})->pixelAt(1, 0), "pixel \\(1, 0\\) of 1 x 1");
    EXPECT_DEATH(CGImage::create(1, 1, {1, 2, 3, 4})->pixelAt(0, 1), "pixel \\(0, 1\\) of 1 x 1");
}

TEST(CGImage, comesBackFromPNGPixelByPixel) {
    const auto image = allPremultipliedPixels();
    EXPECT_EQ(*CGImage::decodePNG(image->encodePNG()), *image);
}

TEST(CGImage, comesBackFromAFile) {
    const TemporaryFolder folder;
    const auto image = allPremultipliedPixels();
    image->writePNG(folder / "image.png");
    EXPECT_EQ(*CGImage::readPNG(folder / "image.png"), *image);
    EXPECT_EQ(folder.count(), 1);
}

TEST(CGImage, isWrittenWithAlphaNotMultipliedIn) {
    // 8 bits, colour type 6: red, green, blue and alpha.
    const std::string png = CGImage::create(3, 2, std::vector<std::uint8_t>(24, 100))->encodePNG();
    EXPECT_EQ(png.substr(0, 26), pngClaiming(3, 2).substr(0, 26));
}

TEST(CGImage, readsPNGWithoutAlphaAndWithFewerBits) {
    // 2 x 1 pixels of one bit each, black and white, made with zlib's stored block by hand.
    const std::string bits(
        "\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\0\x02\0\0\0\x01\x01\0\0\0\0"
        "\xDC\x59\x42\x27\0\0\0\x0DIDAT\x78\x01\x01\x02\0\xFD\xFF\0\x40\0\x42\0\x41"
        "\x20\xB0\x99\xCB\0\0\0\0IEND\xAE\x42\x60\x82",
        70);
    const auto image = CGImage::decodePNG(bits);
    ASSERT_EQ(image->width(), 2u);
    EXPECT_THAT(image->pixelAt(0, 0), ElementsAre(0, 0, 0, 255));
    EXPECT_THAT(image->pixelAt(1, 0), ElementsAre(255, 255, 255, 255));
}

TEST(CGImage, namesTheFileWhoseContentsAreDamaged) {
    const std::string png = allPremultipliedPixels()->encodePNG();
    EXPECT_THAT(decoding(""), ThrowsMessage<FileError>("icon.png: not a PNG image"));
    EXPECT_THAT(decoding("<svg/>"), ThrowsMessage<FileError>("icon.png: not a PNG image"));
    EXPECT_THAT(decoding(png.substr(0, 20)),
                ThrowsMessage<FileError>("icon.png: the PNG image ends early"));
    EXPECT_THAT(decoding(png.substr(0, png.size() / 2)),
                ThrowsMessage<FileError>("icon.png: the PNG image ends early"));
    std::string flipped = png;
    flipped[png.size() / 2] = static_cast<char>(~flipped[png.size() / 2]);
    EXPECT_THAT(decoding(flipped), ThrowsMessage<FileError>("icon.png: damaged PNG image"));
    std::string badHeader = png;
    badHeader[24] = 77;  // bits a channel
    EXPECT_THAT(decoding(badHeader), ThrowsMessage<FileError>("icon.png: damaged PNG image"));
}

TEST(CGImage, unpacksNoPictureBeyondTheLimits) {
    EXPECT_THAT(
        decoding(pngClaiming(100'000, 1)),
        ThrowsMessage<FileError>("icon.png: an image of 100000 x 1 pixels: a side has to be "
                                 "from 1 to 32767"));
    EXPECT_THAT(decoding(pngClaiming(30'000, 30'000)),
                ThrowsMessage<FileError>("icon.png: an image of 30000 x 30000 pixels: there may be "
                                         "134217728 at most"));
}

TEST(CGImage, namesTheFileThatCannotBeReadOrWritten) {
    const TemporaryFolder folder;
    const auto image = CGImage::create(1, 1, {1, 2, 3, 4});
    EXPECT_THAT([&] { CGImage::readPNG(folder / "none.png"); },
                ThrowsMessage<FileError>((folder / "none.png") + ": no such file"));
    EXPECT_THAT([&] { CGImage::readPNG(folder.file("text.png", "text")); },
                ThrowsMessage<FileError>(EndsWith("text.png: not a PNG image")));
    EXPECT_THAT([&] { image->writePNG(folder / "none/image.png"); },
                ThrowsMessage<FileError>((folder / "none/image.png") + ": no such folder"));
}

RC_GTEST_PROP(CGImage, survivesAnyDamage, ()) {
    static const std::string png =
        CGImage::create(5, 4, std::vector<std::uint8_t>(80, 200))->encodePNG();
    std::string damaged = png;
    damaged[*rc::gen::inRange<std::size_t>(0, png.size())] = *rc::gen::arbitrary<char>();
    damaged.resize(*rc::gen::inRange<std::size_t>(0, png.size() + 1));
    try {
        const auto image = CGImage::decodePNG(damaged, "damaged.png");
        RC_ASSERT(image->pixels().size() == 4 * image->width() * image->height());
    } catch (const FileError& error) {
        RC_ASSERT(error.path() == "damaged.png");
    }
}

}  // namespace
}  // namespace quorin
