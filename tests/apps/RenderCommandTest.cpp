#include <filesystem>

#include "quorin/platform/drawing/CGImage.h"
#include "tests/TestSupport.h"
#include "tests/apps/Drawings.h"
#include "tests/apps/ProgramRun.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using test::contents;
using test::ProgramRun;
using test::RefusedInput;
using test::RefusedUsage;
using test::runQuorin;
using test::runQuorinAfter;
using test::sizeOfPng;
using test::TemporaryFolder;
using test::WentWell;
using testing::Pair;
using Pixel = CGImage::Pixel;

constexpr Pixel nothing{0, 0, 0, 0}, red{255, 0, 0, 255}, blue{0, 0, 255, 255}, black{0, 0, 0, 255},
    white{255, 255, 255, 255};

class RenderCommand : public testing::Test {
protected:
    /// The picture of a drawing made with these options.
    std::shared_ptr<const CGImage> picture(const std::string& drawing,
                                           std::vector<std::string> options = {}) const {
        options.insert(options.begin(), {"render", drawing, output});
        const ProgramRun run = runQuorin(options);
        EXPECT_THAT(run, WentWell());
        EXPECT_EQ(run.output, "");
        return CGImage::readPNG(output);
    }
    std::string drawing(const std::string& attributes, const std::string& content) const {
        return folder.file("b.svg", "<svg xmlns='http://www.w3.org/2000/svg' " + attributes + ">" +
                                        content + "</svg>");
    }

    const TemporaryFolder folder;
    const std::string file = folder.file("a.svg", test::sampleSvg);
    const std::string output = folder / "a.png";
};

TEST_F(RenderCommand, paintsADrawingInItsOwnSize) {
    const auto image = picture(file);
    EXPECT_THAT(sizeOfPng(output), Pair(20, 10));
    EXPECT_EQ(image->pixelAt(0, 0), nothing);
    EXPECT_EQ(image->pixelAt(1, 2), red);
    EXPECT_EQ(image->pixelAt(4, 4), red);
    EXPECT_EQ(image->pixelAt(5, 4), nothing);
    EXPECT_EQ(image->pixelAt(7, 5), blue);
    EXPECT_EQ(image->pixelAt(8, 5), blue);
    EXPECT_EQ(image->pixelAt(13, 5), black);
}

TEST_F(RenderCommand, takesOneNumberAsTheLongerSide) {
    const auto image = picture(file, {"--size", "200"});
    EXPECT_THAT(sizeOfPng(output), Pair(200, 100));
    EXPECT_EQ(image->pixelAt(10, 20), red);
    EXPECT_EQ(image->pixelAt(9, 20), nothing);
    EXPECT_EQ(image->pixelAt(150, 50), nothing) << "the hole of the ring";
    EXPECT_EQ(image->pixelAt(130, 50), black);
    picture(drawing("width='1' height='4'", ""), {"--size", "100"});
    EXPECT_THAT(sizeOfPng(output), Pair(25, 100));
}

TEST_F(RenderCommand, putsTheDrawingIntoTheMiddleOfAPictureOfOtherProportions) {
    const auto image = picture(file, {"--size", "40x60"});
    EXPECT_THAT(sizeOfPng(output), Pair(40, 60));
    // Twice as large, with 20 free rows above and below.
    EXPECT_EQ(image->pixelAt(2, 24), red);
    EXPECT_EQ(image->pixelAt(2, 23), nothing);
    EXPECT_EQ(image->pixelAt(9, 29), red);
    EXPECT_EQ(image->pixelAt(9, 30), nothing);
}

TEST_F(RenderCommand, showsThePartOfThePlaneThatTheViewBoxNames) {
    const auto image = picture(drawing("width='4' height='4' viewBox='-10 -10 2 2'",
                                       "<rect x='-9' y='-9' width='9' height='9'/>"));
    EXPECT_EQ(image->pixelAt(1, 1), nothing);
    EXPECT_EQ(image->pixelAt(2, 2), black);
}

TEST_F(RenderCommand, showsNothingBeyondTheViewBox) {
    const auto image =
        picture(drawing("width='4' height='4'", "<rect y='-9' width='9' height='99'/>"),
                {"--size", "4x12"});
    EXPECT_EQ(image->pixelAt(0, 3), nothing);
    EXPECT_EQ(image->pixelAt(0, 4), black);
    EXPECT_EQ(image->pixelAt(3, 7), black);
    EXPECT_EQ(image->pixelAt(3, 8), nothing);
}

TEST_F(RenderCommand, paintsOverABackground) {
    const auto image = picture(file, {"--background", "white"});
    EXPECT_EQ(image->pixelAt(0, 0), white);
    EXPECT_EQ(image->pixelAt(1, 2), red);
    EXPECT_EQ(picture(file, {"--background", "#00f"})->pixelAt(19, 9), blue);
    EXPECT_EQ(picture(file, {"--background", "none"})->pixelAt(19, 9), nothing);
}

TEST_F(RenderCommand, showsAnchorsAndHandles) {
    // One curve from the left middle upwards; 320 pixels leave a margin of 4.
    const std::string curve =
        drawing("width='10' height='10'", "<path fill='none' d='M2 5 C2 2 8 2 8 5'/>");
    const auto plain = picture(curve, {"--size", "328"});
    EXPECT_EQ(plain->pixelAt(4 + 64, 4 + 160), nothing);

    const auto image = picture(curve, {"--size", "328", "--anchors"});
    const auto isBlue = [&](std::size_t x, std::size_t y) {
        const Pixel pixel = image->pixelAt(4 + x, 4 + y);
        return pixel[2] > 200 && pixel[0] < 100;
    };
    EXPECT_EQ(image->pixelAt(4 + 64, 4 + 160), white) << "the first anchor's square";
    EXPECT_EQ(image->pixelAt(4 + 256, 4 + 160), white) << "the last anchor's square";
    EXPECT_TRUE(isBlue(64, 112)) << "the middle of the first handle";
    EXPECT_TRUE(isBlue(256, 64)) << "the end of the second handle";
    EXPECT_TRUE(isBlue(160, 88)) << "the middle of the outline";  // y = (5 + 3·2 + 3·2 + 5) / 8
    EXPECT_EQ(image->pixelAt(4 + 160, 4 + 160), nothing);
}

TEST_F(RenderCommand, marksAnchorsWithABrightEdgeOnDarkGround) {
    const std::string line = drawing("width='10' height='10'", "<path d='M2 5 L8 5'/>");
    const auto image = picture(line, {"--size", "328", "--anchors", "--background", "black"});
    std::uint8_t brightest = 0;
    for (std::size_t y = 155; y < 175; ++y)
        brightest = std::max(brightest, image->pixelAt(164, y)[0]);
    EXPECT_GT(brightest, 100) << "across the middle of the line";
}

TEST_F(RenderCommand, rendersWhatConvertWrote) {
    const std::string json = folder / "a.json";
    EXPECT_THAT(runQuorin({"convert", file, json}), WentWell());
    EXPECT_EQ(*picture(file, {"--size", "100"}), *picture(json, {"--size", "100"}));
}

TEST_F(RenderCommand, refusesSizesThatAreNone) {
    for (const std::string size : {"", "0", "-5", "1.5", "x", "5x", "x5", "5x0", "5X5", "5x5x5",
                                   "32768", "5x32768", "99999999999999999999", "ten", "+5"})
        EXPECT_THAT(
            runQuorin({"render", file, output, "--size", size}),
            RefusedUsage("--size: expected pixels as N or WxH, up to 32767, not '" + size + "'",
                         "quorin render"));
    EXPECT_FALSE(std::filesystem::exists(output));
}

TEST_F(RenderCommand, refusesColoursThatAreNone) {
    for (const std::string color : {"", "reddish", "#12", "rgb(1,2)", "None"})
        EXPECT_THAT(
            runQuorin({"render", file, output, "--background", color}),
            RefusedUsage("--background: expected a colour such as white, #f4f5f7 or none, not '" +
                             color + "'",
                         "quorin render"));
}

TEST_F(RenderCommand, refusesPicturesThatNoImageHolds) {
    folder.file("a.png", "as it was");
    const ProgramRun run = runQuorin({"render", file, output, "--size", "32767x32767"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.errors, testing::StartsWith("quorin: " + output + ": "));
    EXPECT_EQ(contents(output), "as it was");
}

TEST_F(RenderCommand, asksForTheSizeOfADrawingThatIsTooLarge) {
    const std::string wide = drawing("width='1e300' height='40000'", "");
    EXPECT_THAT(
        runQuorin({"render", wide, output}),
        RefusedInput(wide + ": the drawing is 1e+300 by 40000, so a --size has to be chosen"));
    EXPECT_FALSE(std::filesystem::exists(output));
    picture(wide, {"--size", "10"});
    EXPECT_THAT(sizeOfPng(output), Pair(10, 1));
}

TEST_F(RenderCommand, refusesADrawingWithoutSize) {
    for (const char* sizes : {R"("viewBox": [[0, 0], [1, 1]], "size": [0, 5])",
                              R"("viewBox": [[0, 0], [1, 0]], "size": [5, 5])"}) {
        const std::string flat =
            folder.file("flat.json", std::string(R"({"version": 1, "shapes": [], )") + sizes + "}");
        for (const std::string command : {"render", "sheet"})
            EXPECT_THAT(
                command == "render" ? runQuorin({command, flat, output, "--size", "10"})
                                    : runQuorin({command, output, flat}),
                RefusedInput(flat + ": the drawing has no size, so there is nothing to paint"));
    }
}

TEST_F(RenderCommand, keepsASideOfOnePixelAtLeast) {
    picture(drawing("width='1000' height='0.5'", ""), {"--size", "10"});
    EXPECT_THAT(sizeOfPng(output), Pair(10, 1));
}

TEST_F(RenderCommand, writesPicturesUnderNamesOfPicturesOnly) {
    for (const char* name : {"a.jpg", "a.svg", "a", "png"}) {
        const std::string other = folder / name;
        EXPECT_THAT(runQuorin({"render", file, other}),
                    RefusedInput(other + ": the name of a picture to write must end in .png"));
    }
    EXPECT_EQ(contents(file), test::sampleSvg);
    // Before anything is read.
    EXPECT_THAT(runQuorin({"render", folder / "missing.svg", file}).errors,
                testing::StartsWith("quorin: " + file + ": "));
}

TEST_F(RenderCommand, leavesTheOldPictureWhenTheNewOneDoesNotFit) {
    folder.file("a.png", "as it was");
    const ProgramRun run = runQuorinAfter("trap '' XFSZ; ulimit -f 0", {"render", file, output});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(contents(output), "as it was");
    EXPECT_EQ(folder.count(), 2) << "a temporary file was left behind";
}

}  // namespace
}  // namespace quorin
