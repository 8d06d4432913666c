#include <filesystem>

#include "tests/TestSupport.h"
#include "tests/apps/Drawings.h"
#include "tests/apps/ProgramRun.h"
#include "tests/apps/WrittenDrawing.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using test::anchorPoints;
using test::PointNear;
using test::RefusedUsage;
using test::runQuorin;
using test::TemporaryFolder;
using test::WentWell;
using test::writtenContours;
using test::writtenDrawing;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

class TrimCommand : public testing::Test {
protected:
    std::string drawing(const std::string& content) const {
        return folder.file("a.svg", test::svgOf("width='50' height='50'", content));
    }
    void trim(const std::string& file, const std::vector<std::string>& options) const {
        std::vector<std::string> words = {"trim", file, output};
        words.insert(words.end(), options.begin(), options.end());
        EXPECT_THAT(runQuorin(words), WentWell());
    }

    const TemporaryFolder folder;
    const std::string output = folder / "out.svg";
    const std::string square = drawing("<path fill='red' d='M0 0 H10 V10 H0 Z'/>");
};

TEST_F(TrimCommand, keepsThePartOfALineBetweenTwoFractions) {
    trim(drawing("<path stroke='blue' d='M5 7 H15'/>"), {"--from", "0.2", "--to", "0.7"});
    EXPECT_THAT(anchorPoints(*writtenContours(output).at(0)),
                ElementsAre(PointNear(7, 7, 1e-6), PointNear(12, 7, 1e-6)));
}

TEST_F(TrimCommand, measuresTheLengthOfACurve) {
    // A quarter of a circle of 40 around the origin; a third of it ends at 30 degrees.
    trim(drawing("<path d='M40 0 A40 40 0 0 1 0 40'/>"), {"--to", "0.3333333333333333"});
    EXPECT_THAT(anchorPoints(*writtenContours(output).at(0)),
                ElementsAre(PointNear(40, 0, 1e-9), PointNear(34.641016, 20, 0.02)));
}

TEST_F(TrimCommand, opensAClosedContourAtItsFirstAnchor) {
    trim(square, {"--from", "0.5"});
    const auto contours = writtenContours(output);
    ASSERT_EQ(contours.size(), 1u);
    EXPECT_FALSE(contours[0]->isClosed());
    EXPECT_THAT(
        anchorPoints(*contours[0]),
        ElementsAre(PointNear(10, 10, 1e-6), PointNear(0, 10, 1e-6), PointNear(0, 0, 1e-6)));
}

TEST_F(TrimCommand, measuresEachContourOfEachShapeByItself) {
    trim(drawing("<path d='M0 0 H10 M0 5 H40'/><path d='M0 9 H20'/>"), {"--to", "0.5"});
    const auto contours = writtenContours(output);
    ASSERT_EQ(contours.size(), 3u);
    EXPECT_NEAR(contours[0]->length(), 5, 1e-6);
    EXPECT_NEAR(contours[1]->length(), 20, 1e-6);
    EXPECT_NEAR(contours[2]->length(), 10, 1e-6);
}

TEST_F(TrimCommand, keepsTheWholeAsItIs) {
    trim(square, {});
    EXPECT_THAT(runQuorin({"compare", square, output}), WentWell());
    trim(square, {"--from", "0", "--to", "1"});
    EXPECT_THAT(runQuorin({"compare", square, output}), WentWell());
}

TEST_F(TrimCommand, leavesOutShapesOfWhichNothingIsLeft) {
    const std::string file =
        drawing("<path id='dot' d='M5 5 H5'/><path id='line' d='M0 0 H9 M3 3 H3'/>");
    const std::string json = folder / "out.json";
    EXPECT_THAT(runQuorin({"trim", file, json, "--to", "0.5"}), WentWell());
    const std::string info = runQuorin({"info", json}).output;
    EXPECT_THAT(info, StartsWith(json + ": 50 by 50, 1 shape, 1 path\n"));
    EXPECT_THAT(info, HasSubstr(" line\n"));
}

TEST_F(TrimCommand, keepsPaint) {
    trim(square, {"--to", "0.5"});
    EXPECT_EQ(writtenDrawing(output).shapes.at(0).paint, writtenDrawing(square).shapes.at(0).paint);
}

TEST_F(TrimCommand, drawsLinesInsteadOfAreasWhenAsked) {
    const std::string file = drawing(
        "<path id='area' fill='red' fill-opacity='0.5' d='M0 0 H9 V9'/>"
        "<path id='both' fill='red' stroke='blue' stroke-width='4' d='M0 0 H9 V9'/>"
        "<path id='neither' fill='none' d='M0 0 H9 V9'/>");
    trim(file, {"--to", "0.5", "--lines", "3"});
    const Drawing after = writtenDrawing(output);
    ASSERT_EQ(after.shapes.size(), 3u);
    const DrawingColor red{1, 0, 0, 1}, blue{0, 0, 1, 1};
    for (const DrawingShape& shape : after.shapes)
        EXPECT_EQ(shape.paint.fill, DrawingBrush());
    EXPECT_EQ(after.shapes[0].paint.stroke, DrawingBrush(red));
    EXPECT_EQ(after.shapes[0].paint.strokeOpacity, 0.5);
    EXPECT_EQ(after.shapes[0].paint.strokeWidth, 3);
    EXPECT_EQ(after.shapes[1].paint.stroke, DrawingBrush(blue));
    EXPECT_EQ(after.shapes[1].paint.strokeWidth, 4);
    EXPECT_EQ(after.shapes[2].paint.stroke, DrawingBrush());
}

TEST_F(TrimCommand, refusesFractionsThatAreNone) {
    for (const std::string option : {"--from", "--to"})
        for (const std::string text : {"-0.1", "1.1", "20%", "x", "", "nan", "inf"})
            EXPECT_THAT(
                runQuorin({"trim", square, output, option, text}),
                RefusedUsage(option + ": expected a fraction from 0 to 1, not '" + text + "'",
                             "quorin trim"));
    for (const std::string text : {"-1", "x", "nan"})
        EXPECT_THAT(runQuorin({"trim", square, output, "--lines", text}),
                    RefusedUsage("--lines: expected a length of 0 or more, not '" + text + "'",
                                 "quorin trim"));
    EXPECT_FALSE(std::filesystem::exists(output));
}

TEST_F(TrimCommand, refusesPartsThatEndBeforeTheyBegin) {
    EXPECT_THAT(
        runQuorin({"trim", square, output, "--from", "0.7", "--to", "0.2"}),
        RefusedUsage("--to: expected more than --from, which is 0.7, not '0.2'", "quorin trim"));
    EXPECT_THAT(
        runQuorin({"trim", square, output, "--from", "0.5", "--to", "0.5"}),
        RefusedUsage("--to: expected more than --from, which is 0.5, not '0.5'", "quorin trim"));
    EXPECT_THAT(
        runQuorin({"trim", square, output, "--from", "1"}),
        RefusedUsage("--to: expected more than --from, which is 1, not '1'", "quorin trim"));
    EXPECT_FALSE(std::filesystem::exists(output));
}

}  // namespace
}  // namespace quorin
