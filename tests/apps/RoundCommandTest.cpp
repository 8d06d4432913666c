#include <cmath>
#include <filesystem>
#include <numbers>

#include "tests/TestSupport.h"
#include "tests/apps/Drawings.h"
#include "tests/apps/ProgramRun.h"
#include "tests/apps/WrittenDrawing.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using test::anchorPoints;
using test::contents;
using test::PointNear;
using test::ProgramRun;
using test::RefusedUsage;
using test::runQuorin;
using test::TemporaryFolder;
using test::WentWell;
using test::writtenContours;
using test::writtenDrawing;
using testing::ElementsAre;
using testing::HasSubstr;

class RoundCommand : public testing::Test {
protected:
    std::string drawing(const std::string& content) const {
        return folder.file("a.svg", test::svgOf("width='100' height='100'", content));
    }
    /// The SVG that is written of a drawing.
    std::string rounded(const std::string& file, const std::vector<std::string>& options) const {
        std::vector<std::string> words = {"round", file, output};
        words.insert(words.end(), options.begin(), options.end());
        EXPECT_THAT(runQuorin(words), WentWell());
        return contents(output);
    }

    const TemporaryFolder folder;
    const std::string output = folder / "out.svg";
    const std::string square = drawing("<path d='M0 0 H100 V100 H0 Z'/>");
};

TEST_F(RoundCommand, makesArcsOfCorners) {
    rounded(square, {"--radius", "10"});
    const auto contours = writtenContours(output);
    ASSERT_EQ(contours.size(), 1u);
    EXPECT_THAT(
        anchorPoints(*contours[0]),
        ElementsAre(PointNear(10, 0, 1e-9), PointNear(90, 0, 1e-9), PointNear(100, 10, 1e-9),
                    PointNear(100, 90, 1e-9), PointNear(90, 100, 1e-9), PointNear(10, 100, 1e-9),
                    PointNear(0, 90, 1e-9), PointNear(0, 10, 1e-9)));
    // Four sides of 80 and a circle of 10, which cubics follow to 3 parts in 10,000.
    EXPECT_NEAR(contours[0]->length(), 320 + 20 * std::numbers::pi, 0.02);
}

TEST_F(RoundCommand, roundsEveryContourOfEveryShapeAndKeepsPaint) {
    const std::string file = drawing(
        "<path id='ring' fill='red' fill-rule='evenodd' stroke='blue' stroke-width='2' "
        "d='M0 0 H90 V90 H0 Z M20 20 H60 V60 H20 Z'/>"
        "<path id='open' d='M0 0 H50 V50'/>");
    rounded(file, {"--radius", "5"});
    const Drawing before = writtenDrawing(file), after = writtenDrawing(output);
    ASSERT_EQ(after.shapes.size(), 2u);
    EXPECT_EQ(after.shapes[0].id, "ring");
    EXPECT_EQ(after.shapes[0].paint, before.shapes[0].paint);
    ASSERT_EQ(after.shapes[0].outline->children().size(), 2u);
    for (const auto& contour : after.shapes[0].outline->children())
        EXPECT_EQ(contour->segments().count(), 8u);
    const Path& open = *after.shapes[1].outline->children().at(0);
    EXPECT_FALSE(open.isClosed());
    EXPECT_THAT(anchorPoints(open), ElementsAre(PointNear(0, 0, 1e-9), PointNear(45, 0, 1e-9),
                                                PointNear(50, 5, 1e-9), PointNear(50, 50, 1e-9)));
}

TEST_F(RoundCommand, countsWholeUnitsOfARadius) {
    const std::string ten = rounded(square, {"--radius", "10"});
    EXPECT_EQ(rounded(square, {"--radius", "10.7"}), ten);
    EXPECT_NE(rounded(square, {"--radius", "11"}), ten);
}

TEST_F(RoundCommand, takesAtMostHalfOfASide) {
    EXPECT_EQ(rounded(square, {"--radius", "80"}), rounded(square, {"--radius", "50"}));
}

TEST_F(RoundCommand, leavesSmoothAnchorsAlone) {
    const std::string file = drawing("<circle cx='50' cy='50' r='40'/>");
    rounded(file, {"--radius", "10"});
    EXPECT_THAT(runQuorin({"compare", file, output}), WentWell());
}

TEST_F(RoundCommand, usesTheRadiiOfTheDrawingUnlessToldOtherwise) {
    const std::string json = folder / "a.json";
    EXPECT_THAT(runQuorin({"convert", square, json}), WentWell());
    std::string record = contents(json);
    const std::string key = "\"radius\": 0";
    ASSERT_NE(record.find(key), std::string::npos) << record;
    folder.file("a.json", record.replace(record.find(key), key.size(), "\"radius\": 20"));

    rounded(json, {});
    EXPECT_THAT(anchorPoints(*writtenContours(output).at(0)),
                testing::UnorderedElementsAre(PointNear(20, 0, 1e-9), PointNear(0, 20, 1e-9),
                                              PointNear(100, 0, 1e-9), PointNear(100, 100, 1e-9),
                                              PointNear(0, 100, 1e-9)));
    EXPECT_EQ(rounded(json, {"--radius", "10"}), rounded(square, {"--radius", "10"}));
    // A radius of 0 is one too: nothing is rounded then, as nothing is in SVG.
    rounded(json, {"--radius", "0"});
    EXPECT_THAT(runQuorin({"compare", square, output}), WentWell());
    rounded(square, {});
    EXPECT_THAT(runQuorin({"compare", square, output}), WentWell());
}

TEST_F(RoundCommand, writesJsonToo) {
    const std::string json = folder / "out.json";
    EXPECT_THAT(runQuorin({"round", square, json, "--radius", "10"}), WentWell());
    EXPECT_THAT(runQuorin({"info", json}).output, HasSubstr("\n   0        8     yes  382.8"));
}

TEST_F(RoundCommand, refusesRadiiThatAreNone) {
    for (const std::string text : {"-1", "0.5", "x", "", "nan", "inf", "3px"})
        EXPECT_THAT(
            runQuorin({"round", square, output, "--radius", text}),
            RefusedUsage("--radius: expected a radius of 1 or more, or 0, not '" + text + "'",
                         "quorin round"));
    EXPECT_FALSE(std::filesystem::exists(output));
}

}  // namespace
}  // namespace quorin
