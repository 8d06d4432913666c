#include <cmath>
#include <filesystem>
#include <numbers>

#include "tests/TestSupport.h"
#include "tests/apps/ProgramRun.h"
#include "tests/apps/WrittenDrawing.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using test::anchorPoints;
using test::contents;
using test::PointNear;
using test::ProgramRun;
using test::RefusedInput;
using test::RefusedUsage;
using test::runQuorin;
using test::TemporaryFolder;
using test::WentWell;
using test::writtenDrawing;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

class ShapeCommand : public testing::Test {
protected:
    ProgramRun shape(std::vector<std::string> words) const {
        words.insert(words.begin(), "shape");
        words.push_back(output);
        return runQuorin(words);
    }
    Drawing drawingOf(std::vector<std::string> words) const {
        EXPECT_THAT(shape(std::move(words)), WentWell());
        Drawing drawing = writtenDrawing(output);
        EXPECT_EQ(drawing.shapes.size(), 1u);
        EXPECT_EQ(drawing.size, drawing.viewBox.size);
        return drawing;
    }
    static const Path& contourOf(const Drawing& drawing) {
        return *drawing.shapes.at(0).outline->children().at(0);
    }

    const TemporaryFolder folder;
    const std::string output = folder / "out.svg";
};

TEST_F(ShapeCommand, drawsARectangleOnAPageOfItsSize) {
    const Drawing drawing = drawingOf({"rect", "--at", "-5,10", "--size", "80x50.5"});
    EXPECT_EQ(drawing.viewBox, CGRectMake(-5, 10, 80, 50.5));
    EXPECT_TRUE(contourOf(drawing).isSimpleRectangle());
    EXPECT_EQ(contourOf(drawing).boundingBox(), drawing.viewBox);
    EXPECT_EQ(drawing.shapes[0].paint, DrawingPaint());
}

TEST_F(ShapeCommand, roundsTheCornersOfARectangle) {
    const Drawing drawing = drawingOf({"rect", "--size", "40", "--corner-radius", "8"});
    EXPECT_EQ(contourOf(drawing).segments().count(), 8u);
    EXPECT_NEAR(contourOf(drawing).length(), 4 * 24 + 16 * std::numbers::pi, 0.02);
}

TEST_F(ShapeCommand, drawsAnEllipse) {
    const Drawing drawing = drawingOf({"ellipse", "--at", "10,20", "--size", "60x40"});
    EXPECT_EQ(drawing.viewBox, CGRectMake(10, 20, 60, 40));
    EXPECT_THAT(anchorPoints(contourOf(drawing)),
                ElementsAre(CGPoint{10, 40}, CGPoint{40, 20}, CGPoint{70, 40}, CGPoint{40, 60}));
}

TEST_F(ShapeCommand, drawsAStarFromTheTopOn) {
    const Drawing drawing = drawingOf(
        {"star", "--points", "4", "--radius1", "10", "--radius2", "2", "--center", "50,60"});
    const CGFloat d = std::sqrt(2);
    EXPECT_THAT(anchorPoints(contourOf(drawing)),
                ElementsAre(PointNear(50, 50, 1e-9), PointNear(50 + d, 60 - d, 1e-9),
                            PointNear(60, 60, 1e-9), PointNear(50 + d, 60 + d, 1e-9),
                            PointNear(50, 70, 1e-9), PointNear(50 - d, 60 + d, 1e-9),
                            PointNear(40, 60, 1e-9), PointNear(50 - d, 60 - d, 1e-9)));
}

TEST_F(ShapeCommand, givesAStarFiveRaysUnlessToldOtherwise) {
    const Drawing drawing = drawingOf({"star", "--radius1", "10"});
    const std::vector<CGPoint> points = anchorPoints(contourOf(drawing));
    ASSERT_EQ(points.size(), 10u);
    const CGFloat turn = std::numbers::pi / 5;
    EXPECT_THAT(points[0], PointNear(0, -10, 1e-9));
    EXPECT_THAT(points[1], PointNear(4 * std::sin(turn), -4 * std::cos(turn), 1e-9));
}

TEST_F(ShapeCommand, roundsTheCornersOfAStar) {
    const CGFloat sharp = contourOf(drawingOf({"star", "--radius1", "50"})).length();
    const Drawing drawing = drawingOf({"star", "--radius1", "50", "--corner-radius", "4"});
    EXPECT_EQ(contourOf(drawing).segments().count(), 20u);
    EXPECT_LT(contourOf(drawing).length(), sharp - 10);
}

TEST_F(ShapeCommand, drawsALineWithRoomForItsWidth) {
    const Drawing drawing =
        drawingOf({"line", "--from", "10,20", "--to", "40,20", "--stroke-width", "6"});
    EXPECT_EQ(drawing.viewBox, CGRectMake(7, 17, 36, 6));
    EXPECT_THAT(anchorPoints(contourOf(drawing)), ElementsAre(CGPoint{10, 20}, CGPoint{40, 20}));
    EXPECT_FALSE(contourOf(drawing).isClosed());
    EXPECT_EQ(drawing.shapes[0].paint.fill, DrawingBrush());
    EXPECT_EQ(drawing.shapes[0].paint.stroke, DrawingBrush(DrawingColor{}));
}

TEST_F(ShapeCommand, paintsInTheColoursThatAreAskedFor) {
    const Drawing drawing = drawingOf(
        {"rect", "--size", "10", "--fill", "#ff0000", "--stroke", "blue", "--stroke-width", "4"});
    EXPECT_EQ(drawing.shapes[0].paint.fill, DrawingBrush(DrawingColor{1, 0, 0, 1}));
    EXPECT_EQ(drawing.shapes[0].paint.stroke, DrawingBrush(DrawingColor{0, 0, 1, 1}));
    EXPECT_EQ(drawing.shapes[0].paint.strokeWidth, 4);
    EXPECT_EQ(drawing.viewBox, CGRectMake(-2, -2, 14, 14)) << "with a margin for the line";
    EXPECT_EQ(drawingOf({"ellipse", "--size", "10", "--fill", "none", "--stroke", "red"})
                  .shapes[0]
                  .paint.fill,
              DrawingBrush());
}

TEST_F(ShapeCommand, leavesRoomForTheTipsOfALine) {
    // At the top of a four-pointed star of 10 and 5 the line turns from (1, -s) to (1, s).
    const Drawing drawing = drawingOf({"star", "--points", "4", "--radius1", "10", "--radius2", "5",
                                       "--stroke", "red", "--stroke-width", "2"});
    const CGFloat across = 5 / std::sqrt(2), up = 10 - across;
    const CGFloat tip = std::hypot(across, up) / across;
    EXPECT_NEAR(CGRectGetMinY(drawing.viewBox), -10 - tip, 1e-9);
    EXPECT_NEAR(drawing.viewBox.size.height, 20 + 2 * tip, 1e-9);
}

TEST_F(ShapeCommand, writesJsonToo) {
    const std::string json = folder / "out.json";
    EXPECT_THAT(runQuorin({"shape", "rect", "--size", "30x20", json}), WentWell());
    EXPECT_THAT(runQuorin({"shape", "rect", "--size", "30x20", output}), WentWell());
    EXPECT_THAT(runQuorin({"compare", json, output}), WentWell());
    const std::string other = folder / "out.png";
    EXPECT_THAT(runQuorin({"shape", "rect", "--size", "1", other}),
                RefusedInput(other + ": the name of a drawing to write must end in .svg or .json"));
}

TEST_F(ShapeCommand, refusesNumbersThatMakeNoShape) {
    struct Row {
        std::vector<std::string> words;
        const char* option;
        const char* expects;
        std::vector<std::string> texts;
    };
    const Row table[] = {
        {{"rect"},
         "--size",
         "expected a size as S or WxH, above 0",
         {"", "0", "-5", "5x", "x5", "5x0", "-5x5", "5x-5", "nan", "infx5", "5x5x5", "5,5",
          "1e999"}},
        {{"ellipse"}, "--size", "expected a size as S or WxH, above 0", {"0", "1x-1"}},
        {{"rect", "--size", "9"}, "--at", "expected two numbers X,Y", {"1", "1x2", "nan,0"}},
        {{"rect", "--size", "9"},
         "--corner-radius",
         "expected a radius of 1 or more, or 0",
         {"-1", "0.5", "inf", "x"}},
        {{"star", "--radius1", "9"},
         "--points",
         "expected a whole number from 2 to 10000",
         {"-5", "0", "1", "2.5", "10001", "99999999999999999999", "five"}},
        {{"star"}, "--radius1", "expected a number above 0", {"0", "-1", "nan", "x"}},
        {{"star", "--radius1", "9"},
         "--radius2",
         "expected a length of 0 or more",
         {"-1", "inf", "x"}},
        {{"star", "--radius1", "9"}, "--center", "expected two numbers X,Y", {"1"}},
        {{"line", "--to", "1,1"}, "--from", "expected two numbers X,Y", {"1", "inf,0"}},
        {{"line", "--from", "1,1"}, "--to", "expected two numbers X,Y", {"", "0,nan"}},
        {{"line", "--from", "1,1", "--to", "2,2"},
         "--stroke-width",
         "expected a number above 0",
         {"0", "-1", "nan"}},
        {{"rect", "--size", "9"},
         "--fill",
         "expected a colour such as white, #f4f5f7 or none",
         {"reddish"}},
        {{"rect", "--size", "9"},
         "--stroke",
         "expected a colour such as white, #f4f5f7 or none",
         {"#12"}},
    };
    for (const auto& [words, option, expects, texts] : table)
        for (const std::string& text : texts) {
            std::vector<std::string> all = words;
            all.insert(all.end(), {option, text});
            EXPECT_THAT(shape(all),
                        RefusedUsage(std::string(option) + ": " + expects + ", not '" + text + "'",
                                     "quorin shape " + words[0]));
        }
    EXPECT_FALSE(std::filesystem::exists(output));
}

TEST_F(ShapeCommand, refusesShapesBeyondWhatNumbersHold) {
    EXPECT_THAT(shape({"rect", "--at", "1.7e308,0", "--size", "1e308"}),
                RefusedUsage("The shape goes beyond what numbers can hold", "quorin shape rect"));
    EXPECT_THAT(shape({"line", "--from", "-1.7e308,0", "--to", "1.7e308,0"}),
                RefusedUsage("The shape goes beyond what numbers can hold", "quorin shape line"));
    EXPECT_FALSE(std::filesystem::exists(output));
}

TEST_F(ShapeCommand, refusesShapesThatShowNothing) {
    EXPECT_THAT(shape({"rect", "--size", "9", "--fill", "none"}),
                RefusedUsage("Without fill or line there is nothing to see", "quorin shape rect"));
    EXPECT_THAT(shape({"line", "--from", "1,1", "--to", "2,2", "--stroke", "none"}),
                RefusedUsage("Without fill or line there is nothing to see", "quorin shape line"));
    EXPECT_THAT(shape({"rect", "--size", "9", "--stroke-width", "4"}),
                RefusedUsage("--stroke-width requires --stroke", "quorin shape rect"));
}

TEST_F(ShapeCommand, asksForWhatIsMissing) {
    EXPECT_THAT(runQuorin({"shape"}), RefusedUsage("A subcommand is required", "quorin shape"));
    EXPECT_THAT(runQuorin({"shape", "circle"}),
                RefusedUsage("there is no command 'circle'", "quorin shape"));
    EXPECT_THAT(shape({"rect"}), RefusedUsage("--size is required", "quorin shape rect"));
    EXPECT_THAT(shape({"star"}), RefusedUsage("--radius1 is required", "quorin shape star"));
    EXPECT_THAT(shape({"line", "--from", "1,1"}),
                RefusedUsage("--to is required", "quorin shape line"));
    EXPECT_THAT(runQuorin({"shape", "rect", "--size", "9"}),
                RefusedUsage("OUT is required", "quorin shape rect"));
}

TEST_F(ShapeCommand, helpsWithExamplesOfEachKind) {
    for (const std::string kind : {"rect", "ellipse", "star", "line"}) {
        const ProgramRun run = runQuorin({"shape", kind, "--help"});
        EXPECT_THAT(run, WentWell());
        EXPECT_THAT(run.output, AllOf(HasSubstr("Usage: quorin shape " + kind),
                                      HasSubstr("\n  quorin shape " + kind + " ")));
    }
}

}  // namespace
}  // namespace quorin
