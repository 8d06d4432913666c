#include "quorin/platform/foundation/JSONDecoder.h"
#include "tests/TestSupport.h"
#include "tests/apps/Drawings.h"
#include "tests/apps/ProgramRun.h"
#include "tests/support/TemporaryFolder.h"

namespace quorin {
namespace {

using test::ProgramRun;
using test::RefusedUsage;
using test::runQuorin;
using test::TemporaryFolder;
using test::WentWell;
using testing::HasSubstr;

class HitCommand : public testing::Test {
protected:
    ProgramRun hit(const std::string& at, std::vector<std::string> more = {}) const {
        more.insert(more.begin(), {"hit", file, "--at", at});
        return runQuorin(more);
    }

    const TemporaryFolder folder;
    const std::string file = folder.file("a.svg", test::sampleSvg);
};

TEST_F(HitCommand, tellsTheNearestPlaceOnAnOutline) {
    // The right side of the rectangle, from (5, 2) to (5, 5), is its second curve.
    const ProgramRun run = hit("5.5,3.5");
    EXPECT_THAT(run, WentWell());
    EXPECT_EQ(run.output,
              "outline   path 0 (box), curve 1, time 0.5\n"
              "point     5, 3.5\n"
              "distance  0.5\n"
              "inside    no shape\n");
}

TEST_F(HitCommand, tellsTheShapesThatThePlaceIsInside) {
    const ProgramRun run = hit("3,3.5", {"--tolerance", "0.1"});
    EXPECT_THAT(run, WentWell());
    EXPECT_EQ(run.output, "outline   none within reach\ninside    shape 0 (box)\n");
}

TEST_F(HitCommand, fillsAsTheDrawingDoes) {
    // In the ring, and in its hole, which even-odd leaves out.
    EXPECT_THAT(hit("13,5", {"--tolerance", "0"}).output, HasSubstr("inside    shape 2\n"));
    EXPECT_THAT(hit("15,5", {"--tolerance", "0"}).output, HasSubstr("inside    no shape\n"));
}

TEST_F(HitCommand, listsTheTopmostShapeFirst) {
    const std::string stacked = folder.file(
        "b.svg",
        "<svg xmlns='http://www.w3.org/2000/svg'><rect id='below' width='9' height='9'/>"
        "<rect id='above' width='9' height='9'/></svg>");
    const ProgramRun run = runQuorin({"hit", stacked, "--at", "9,4.5"});
    // Outlines that lie on each other: the upper one is what a person sees.
    EXPECT_EQ(run.output,
              "outline   path 1 (above), curve 1, time 0.5\n"
              "point     9, 4.5\n"
              "distance  0\n"
              "inside    shape 1 (above)\n"
              "inside    shape 0 (below)\n");
}

TEST_F(HitCommand, reachesHalfTheDrawnLineAndTheTolerance) {
    // The line at x = 8 is 2 wide: its reach is 1 and the tolerance, strictly.
    EXPECT_THAT(hit("9.4,5", {"--tolerance", "0.5"}).output, HasSubstr("outline   path 1 (line)"));
    EXPECT_THAT(hit("9.5,5", {"--tolerance", "0.5"}).output, HasSubstr("outline   none"));
    // The rectangle has no stroke, whatever its width would be.
    EXPECT_THAT(hit("5.4,3", {"--tolerance", "0.5"}).output, HasSubstr("outline   path 0 (box)"));
    EXPECT_THAT(hit("5.5,3", {"--tolerance", "0.5"}).output, HasSubstr("outline   none"));
}

TEST_F(HitCommand, takesAnotherLineWidthWhenAsked) {
    EXPECT_THAT(hit("9.9,5", {"--tolerance", "0", "--line-width", "4"}).output,
                HasSubstr("outline   path 1 (line)"));
    EXPECT_THAT(hit("8.5,5", {"--tolerance", "0", "--line-width", "1"}).output,
                HasSubstr("outline   none"));
}

TEST_F(HitCommand, takesPlacesOnTheNegativeSide) {
    for (const std::string at : {"-1,-0.5", "-1e0,-.5"}) {
        SCOPED_TRACE(at);
        const ProgramRun run = hit(at, {"--tolerance", "5"});
        EXPECT_THAT(run, WentWell());
        EXPECT_THAT(run.output, HasSubstr("point     1, 2\ndistance  3.20156212\n"));
    }
    EXPECT_THAT(runQuorin({"hit", file, "--at=-.5,3"}).output, HasSubstr("point     1, 3\n"));
}

TEST_F(HitCommand, refusesPlacesThatAreNone) {
    for (const std::string at : {"", ",", "3", "3,", ",4", "3;4", "3,4,5", "3, 4", " 3,4", "nan,1",
                                 "1,inf", "-inf,1", "0x1,2", "1e999,1", "a,b", "1,2x", "--5,1"})
        EXPECT_THAT(hit(at),
                    RefusedUsage("--at: expected two numbers X,Y, not '" + at + "'", "quorin hit"));
}

TEST_F(HitCommand, refusesLengthsThatAreNone) {
    for (const std::string option : {"--line-width", "--tolerance"})
        for (const std::string length : {"", "-1", "nan", "inf", "1e999", "wide", "1,5", "2px"})
            EXPECT_THAT(
                hit("1,1", {option, length}),
                RefusedUsage(option + ": expected a length of 0 or more, not '" + length + "'",
                             "quorin hit"));
}

TEST_F(HitCommand, printsExactNumbersAsJson) {
    const ProgramRun run = hit("5.1,3.5", {"--json", "--tolerance", "1"});
    EXPECT_THAT(run, WentWell());
    JSONDecoder().decode(run.output, [](Decoder& record) {
        record.decodeRecord("outline", [](Decoder& outline) {
            EXPECT_EQ(outline.decodeInt("path"), 0);
            EXPECT_EQ(outline.decodeText("id"), "box");
            EXPECT_EQ(outline.decodeInt("curve"), 1);
            EXPECT_EQ(outline.decodeNumber("time"), 0.5);
            EXPECT_EQ(outline.decodePoint("point"), (CGPoint{5, 3.5}));
            EXPECT_EQ(outline.decodeNumber("distance"), 5.1 - 5);
        });
        EXPECT_EQ(record.recordCount("inside"), 0u);
    });
}

TEST_F(HitCommand, leavesOutTheOutlineOfTheJsonWhenNoneIsInReach) {
    const ProgramRun run = hit("3,3.5", {"--json", "--tolerance", "0"});
    JSONDecoder().decode(run.output, [](Decoder& record) {
        EXPECT_FALSE(record.contains("outline"));
        EXPECT_EQ(record.recordCount("inside"), 1u);
        record.decodeRecords("inside", [](Decoder& shape, std::size_t) {
            EXPECT_EQ(shape.decodeInt("shape"), 0);
            EXPECT_EQ(shape.decodeText("id"), "box");
        });
    });
}

TEST_F(HitCommand, answersInADrawingWithoutShapes) {
    const std::string empty =
        folder.file("b.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='1' height='1'/>");
    EXPECT_EQ(runQuorin({"hit", empty, "--at", "0,0"}).output,
              "outline   none within reach\ninside    no shape\n");
}

}  // namespace
}  // namespace quorin
