#include <filesystem>

#include "quorin/platform/drawing/CGImage.h"
#include "tests/TestSupport.h"
#include "tests/apps/ProgramRun.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using test::ProgramRun;
using test::RefusedInput;
using test::RefusedUsage;
using test::runQuorin;
using test::sizeOfPng;
using test::TemporaryFolder;
using test::WentWell;
using testing::Pair;
using Pixel = CGImage::Pixel;

class SheetCommand : public testing::Test {
protected:
    /// A square full of a colour.
    std::string square(const std::string& color) const {
        return folder.file(color + ".svg",
                           "<svg xmlns='http://www.w3.org/2000/svg' width='3' height='3'>"
                           "<rect width='3' height='3' fill='" +
                               color + "'/></svg>");
    }
    ProgramRun sheet(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"sheet", output});
        return runQuorin(arguments);
    }

    const TemporaryFolder folder;
    const std::string output = folder / "sheet.png";
};

TEST_F(SheetCommand, paintsDrawingsInRowsInTheirOrder) {
    EXPECT_THAT(sheet({square("red"), square("lime"), square("blue"), "--columns", "2", "--cell",
                       "8", "--background", "white"}),
                WentWell());
    // Gaps of a quarter of a cell between all and around them.
    EXPECT_THAT(sizeOfPng(output), Pair(2 + 8 + 2 + 8 + 2, 2 + 8 + 2 + 8 + 2));
    const auto image = CGImage::readPNG(output);
    EXPECT_EQ(image->pixelAt(2, 2), (Pixel{255, 0, 0, 255}));
    EXPECT_EQ(image->pixelAt(9, 9), (Pixel{255, 0, 0, 255}));
    EXPECT_EQ(image->pixelAt(10, 10), (Pixel{255, 255, 255, 255}));
    EXPECT_EQ(image->pixelAt(12, 2), (Pixel{0, 255, 0, 255}));
    EXPECT_EQ(image->pixelAt(2, 12), (Pixel{0, 0, 255, 255}));
    EXPECT_EQ(image->pixelAt(12, 12), (Pixel{255, 255, 255, 255}));
}

TEST_F(SheetCommand, chooses64PixelsAndASheetThatIsWide) {
    const std::string file = square("red");
    EXPECT_THAT(sheet({file, file, file, file, file, file}), WentWell());
    EXPECT_THAT(sizeOfPng(output), Pair(16 + 3 * 80, 16 + 2 * 80));
    EXPECT_EQ(CGImage::readPNG(output)->pixelAt(0, 0), (Pixel{246, 247, 249, 255}));
}

TEST_F(SheetCommand, needsNoMoreColumnsThanDrawings) {
    EXPECT_THAT(sheet({square("red"), "--columns", "10", "--cell", "4"}), WentWell());
    EXPECT_THAT(sizeOfPng(output), Pair(6, 6));
}

TEST_F(SheetCommand, leavesTheGroundOpenWhenAsked) {
    EXPECT_THAT(sheet({square("red"), "--cell", "4", "--background", "none"}), WentWell());
    EXPECT_EQ(CGImage::readPNG(output)->pixelAt(0, 0), (Pixel{0, 0, 0, 0}));
}

TEST_F(SheetCommand, marksTheCellOfADrawingItCannotRead) {
    const std::string missing = folder / "missing.svg";
    const ProgramRun run =
        sheet({missing, square("blue"), "--cell", "16", "--background", "white"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.errors, "quorin: " + missing + ": no such file\n");
    const auto image = CGImage::readPNG(output);
    const auto isReddish = [&](std::size_t x, std::size_t y) {
        const Pixel pixel = image->pixelAt(x, y);
        return pixel[0] > 200 && pixel[1] < 130 && pixel[2] < 130;
    };
    EXPECT_TRUE(isReddish(4, 10)) << "the frame's left side";
    EXPECT_TRUE(isReddish(19, 10)) << "the frame's right side";
    EXPECT_TRUE(isReddish(12, 12)) << "the middle of the cross";
    EXPECT_EQ(image->pixelAt(6, 12), (Pixel{255, 255, 255, 255}));
    EXPECT_EQ(image->pixelAt(24, 4), (Pixel{0, 0, 255, 255}));
}

TEST_F(SheetCommand, writesNothingWhenNoDrawingCanBeRead) {
    folder.file("sheet.png", "as it was");
    const std::string missing = folder / "missing.svg";
    EXPECT_THAT(sheet({missing}), RefusedInput(missing + ": no such file"));
    EXPECT_EQ(test::contents(output), "as it was");
}

TEST_F(SheetCommand, refusesASheetThatNoImageHolds) {
    const std::string file = square("red");
    const ProgramRun run = sheet(
        {"--cell", "4096", "--columns", "10000", file, file, file, file, file, file, file, file});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_THAT(run.errors, testing::StartsWith("quorin: " + output + ": "));
    EXPECT_FALSE(std::filesystem::exists(output));
}

TEST_F(SheetCommand, refusesCountsThatAreNone) {
    const std::string file = square("red");
    for (const std::string count : {"", "0", "-1", "2.5", "many", "99999999999999999999"}) {
        EXPECT_THAT(
            sheet({file, "--columns", count}),
            RefusedUsage("--columns: expected a whole number from 1 to 10000, not '" + count + "'",
                         "quorin sheet"));
        EXPECT_THAT(
            sheet({file, "--cell", count}),
            RefusedUsage("--cell: expected a whole number from 1 to 4096, not '" + count + "'",
                         "quorin sheet"));
    }
}

TEST_F(SheetCommand, writesPicturesUnderNamesOfPicturesOnly) {
    const std::string file = square("red");
    // Before anything is read.
    for (const std::string& drawing : {file, folder / "missing.svg"})
        EXPECT_THAT(runQuorin({"sheet", file, drawing}),
                    RefusedInput(file + ": the name of a picture to write must end in .png"));
}

}  // namespace
}  // namespace quorin
