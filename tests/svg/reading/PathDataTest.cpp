#include "quorin/svg/reading/PathData.h"

#include <string>

#include "tests/TestSupport.h"
#include "tests/svg/DrawnText.h"

namespace quorin {
namespace {

using test::drawnText;
using ::testing::HasSubstr;

std::string drawn(std::string_view text) {
    const PathData data = parsePathData(text);
    EXPECT_FALSE(data.error) << text << ": " << data.error->message;
    return drawnText(*data.path);
}

TEST(PathData, drawsEveryCommandAbsoluteAndRelative) {
    struct Row {
        const char* text;
        const char* drawn;
    };
    const Row table[] = {
        {"M1 2L3 4", "M 1,2 L 3,4"},
        {"m1 2l3 4", "M 1,2 L 4,6"},
        {"M1 2H5V7", "M 1,2 L 5,2 L 5,7"},
        {"m1 2h5v7", "M 1,2 L 6,2 L 6,9"},
        {"M0 0C1 2 3 4 5 6", "M 0,0 C 1,2 3,4 5,6"},
        {"m1 1c1 2 3 4 5 6", "M 1,1 C 2,3 4,5 6,7"},
        {"M0 0C1 2 3 4 5 6S8 9 10 11", "M 0,0 C 1,2 3,4 5,6 C 7,8 8,9 10,11"},
        {"m0 0c1 2 3 4 5 6s3 3 5 5", "M 0,0 C 1,2 3,4 5,6 C 7,8 8,9 10,11"},
        {"M0 0Q3 3 6 0", "M 0,0 C 2,2 4,2 6,0"},
        {"m1 1q3 3 6 0", "M 1,1 C 3,3 5,3 7,1"},
        {"M0 0Q3 3 6 0T12 0", "M 0,0 C 2,2 4,2 6,0 C 8,-2 10,-2 12,0"},
        {"m0 0q3 3 6 0t6 0", "M 0,0 C 2,2 4,2 6,0 C 8,-2 10,-2 12,0"},
        {"M1 2L3 4Z", "M 1,2 L 3,4 Z"},
        {"M1 2L3 4z", "M 1,2 L 3,4 Z"},
        {"M0 0A0 5 0 0 1 6 0", "M 0,0 L 6,0"},
        {"m1 1a5 0 0 0 1 6 0", "M 1,1 L 7,1"},
        {"M1 1L2 2A5 5 0 0 1 2 2L3 3", "M 1,1 L 2,2 L 3,3"},
    };
    for (const auto& [text, expected] : table) {
        SCOPED_TRACE(text);
        EXPECT_EQ(drawn(text), expected);
    }
}

TEST(PathData, repeatsACommandWithoutItsLetter) {
    EXPECT_EQ(drawn("M0 0 1 1 2 2"), "M 0,0 L 1,1 L 2,2");
    EXPECT_EQ(drawn("m1 1 1 1 1 1"), "M 1,1 L 2,2 L 3,3");
    EXPECT_EQ(drawn("M0 0h1 2 3"), "M 0,0 L 1,0 L 3,0 L 6,0");
    EXPECT_EQ(drawn("M0 0c1 0 2 0 3 0 1 0 2 0 3 0"), "M 0,0 C 1,0 2,0 3,0 C 4,0 5,0 6,0");
    EXPECT_EQ(parsePathData("M0 0 1 1h1 2 3z").commands, 6u);
}

TEST(PathData, takesAnySeparatorsOrNoneBetweenNumbers) {
    const std::string expected = "M 0.5,-0.5 L 1,1 L 2,-3";
    for (const char* text :
         {"M.5-.5L1 1 2-3", "M .5 , -.5 L 1 , 1 , 2 , -3", " \t\n\r\fM.5,-.5\nL1,1\r\n2,-3 ",
          "M5e-1-.5L1 1,2-3", "M+.5-5E-1L+1+1+2-3"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(drawn(text), expected);
    }
}

// An icon's path, compressed by a program that glues flags to the numbers behind them.
TEST(PathData, readsFlagsGluedToTheNextNumber) {
    const PathData data = parsePathData("M3.5 8a.5.5 0 01.5-.5h8a.5.5 0 010 1H4a.5.5 0 01-.5-.5z");
    ASSERT_FALSE(data.error);
    EXPECT_EQ(data.commands, 7u);
    std::size_t lines = 0, cubics = 0;
    std::vector<CGPoint> ends;
    data.path->apply([&](const CGPathElement& element) {
        lines += element.type == CGPathElementType::addLineToPoint;
        cubics += element.type == CGPathElementType::addCurveToPoint;
        if (!element.points.empty())
            ends.push_back(element.points.back());
    });
    EXPECT_EQ(lines, 2u);
    EXPECT_EQ(cubics, 4u);  // a quarter turn, a half turn of two, a quarter turn
    const std::vector<CGPoint> expected = {{3.5, 8},  {4, 7.5}, {12, 7.5}, {12.5, 8},
                                           {12, 8.5}, {4, 8.5}, {3.5, 8}};
    ASSERT_EQ(ends.size(), expected.size());
    for (std::size_t i = 0; i < ends.size(); ++i) {
        EXPECT_NEAR(ends[i].x, expected[i].x, 1e-14);
        EXPECT_NEAR(ends[i].y, expected[i].y, 1e-14);
    }
}

TEST(PathData, readsExponentsThatTouchTheNextNumber) {
    EXPECT_EQ(drawn("M0 0L1e-123-4E+5"), "M 0,0 L 1e-123,-4e+05");
}

TEST(PathData, drawsDegenerateRunsAsTheyStand) {
    EXPECT_EQ(drawn("M0,0 L0,0 V0 H0 L5,0 V8 H0 L0,0 V0 H0 Z"),
              "M 0,0 L 0,0 L 0,0 L 0,0 L 5,0 L 5,8 L 0,8 L 0,0 L 0,0 L 0,0 Z");
}

TEST(PathData, leavesOutMovesThatNothingIsDrawnFrom) {
    EXPECT_EQ(drawn("M1 1"), "");
    EXPECT_EQ(drawn("M1 1M2 2"), "");
    EXPECT_EQ(drawn("M1 1M2 2L3 3M4 4"), "M 2,2 L 3,3");
    EXPECT_EQ(drawn("M1 1L2 2m5 5m1 1l1 1"), "M 1,1 L 2,2 M 8,8 L 9,9");
    EXPECT_EQ(drawn("M1 1A5 5 0 0 0 1 1"), "");
}

TEST(PathData, beginsAnotherContourAfterAClose) {
    EXPECT_EQ(drawn("M1 2L5 2L5 6ZL9 9"), "M 1,2 L 5,2 L 5,6 Z M 1,2 L 9,9");
    EXPECT_EQ(drawn("m1 2l4 0zm1 1l1 0z"), "M 1,2 L 5,2 Z M 2,3 L 3,3 Z");
    EXPECT_EQ(drawn("m1 2l4 0zl1 0"), "M 1,2 L 5,2 Z M 1,2 L 2,2");
}

TEST(PathData, closesOnceAndClosesAPointOnItsOwn) {
    EXPECT_EQ(drawn("M1 1L2 2ZZZ"), "M 1,1 L 2,2 Z");
    EXPECT_EQ(drawn("M1 1Z"), "M 1,1 Z");
    EXPECT_EQ(drawn("M1 1ZZM2 2ZL3 3"), "M 1,1 Z M 2,2 Z M 2,2 L 3,3");
}

TEST(PathData, reflectsOnlyControlsOfItsOwnKind) {
    EXPECT_EQ(drawn("M1 1S2 2 3 3"), "M 1,1 C 1,1 2,2 3,3");
    EXPECT_EQ(drawn("M0 0Q3 3 6 0S9 9 9 0"), "M 0,0 C 2,2 4,2 6,0 C 6,0 9,9 9,0");
    EXPECT_EQ(drawn("M0 0C1 2 3 4 6 0T12 6"), "M 0,0 C 1,2 3,4 6,0 C 6,0 8,2 12,6");
    EXPECT_EQ(drawn("M0 0C1 2 3 4 6 0L6 6S9 9 9 0"), "M 0,0 C 1,2 3,4 6,0 L 6,6 C 6,6 9,9 9,0");
    EXPECT_EQ(drawn("M0 0C1 2 3 4 6 0ZS9 9 9 0"), "M 0,0 C 1,2 3,4 6,0 Z M 0,0 C 0,0 9,9 9,0");
}

TEST(PathData, reflectsAlongAChainOfSmoothQuadratics) {
    // The controls are (3, 3), (9, -3), (15, 3).
    EXPECT_EQ(drawn("M0 0Q3 3 6 0T12 0 18 0"),
              "M 0,0 C 2,2 4,2 6,0 C 8,-2 10,-2 12,0 C 14,2 16,2 18,0");
}

TEST(PathData, keepsWhatStandsBeforeAnErrorAndNamesItsPlace) {
    struct Row {
        const char* text;
        const char* drawn;
        std::size_t offset;
        const char* message;
    };
    const Row table[] = {
        {"L1 1", "", 0, "must begin with a move, not 'L'"},
        {"ZM1 1L2 2", "", 0, "must begin with a move, not 'Z'"},
        {"5 5", "", 0, "expected a command, not '5'"},
        {"M1", "", 2, "expected a number before the end"},
        {"M1 1L2 2L3", "M 1,1 L 2,2", 10, "expected a number before the end"},
        {"M1 1L2 2L3 x", "M 1,1 L 2,2", 11, "expected a number, not 'x'"},
        {"M1 1L2 2 3 3 4", "M 1,1 L 2,2 L 3,3", 14, "expected a number before the end"},
        {"M1 1L2 2XL3 3", "M 1,1 L 2,2", 8, "there is no command 'X'"},
        {"M1 1L2 2,Z", "M 1,1 L 2,2", 9, "expected a number, not 'Z'"},
        {"M1 1L2 2,", "M 1,1 L 2,2", 9, "expected a number before the end"},
        {"M1 1L2 2#", "M 1,1 L 2,2", 8, "expected a number, not '#'"},
        {"M1 1L2 2Z5", "M 1,1 L 2,2 Z", 9, "expected a command, not '5'"},
        {"M,1 1", "", 1, "expected a number, not ','"},
        {"M1,,1", "", 3, "expected a number, not ','"},
        {"M1 1L2 2A5 5 0 2 0 9 9", "M 1,1 L 2,2", 15, "expected a flag, 0 or 1, not '2'"},
        {"M1 1L2 2A5 5 0 1", "M 1,1 L 2,2", 16, "expected a flag, 0 or 1 before the end"},
        {"M1 1L1e999 2", "", 5, "the number is too large"},
        {"M1 1L2 2L-.9e999 2", "M 1,1 L 2,2", 9, "the number is too large"},
        {"M1e308 0l1e308 0", "", 8, "the coordinates are out of range"},
        {"M1 1L- 5 5", "", 5, "expected a number, not '-'"},
        {"M1 1L\xc3\xa9", "", 5, "expected a number, not byte 0xc3"},
        {"M1 1L\x01", "", 5, "expected a number, not byte 0x01"},
        {"M1 1C1 1 2 2 3", "", 14, "expected a number before the end"},
    };
    for (const auto& [text, expected, offset, message] : table) {
        SCOPED_TRACE(text);
        const PathData data = parsePathData(text);
        EXPECT_EQ(drawnText(*data.path), expected);
        ASSERT_TRUE(data.error);
        EXPECT_EQ(data.error->offset, offset);
        EXPECT_EQ(data.error->message, message);
        EXPECT_FALSE(data.hasTooManyCommands);
    }
}

TEST(PathData, drawsNothingWithoutText) {
    EXPECT_EQ(drawn(""), "");
    EXPECT_EQ(drawn(" \n\t"), "");
}

TEST(PathData, stopsAtTheGreatestNumberOfCommands) {
    EXPECT_FALSE(parsePathData("M0 0L1 1 2 2", 3).error);
    const PathData data = parsePathData("M0 0L1 1 2 2", 2);
    EXPECT_TRUE(data.hasTooManyCommands);
    EXPECT_EQ(data.commands, 2u);
    EXPECT_EQ(drawnText(*data.path), "M 0,0 L 1,1");
    EXPECT_THAT(data.error->message, HasSubstr("too many"));
}

TEST(PathData, hasTheBoundsOfAnIconThatAControlBoxWouldMiss) {
    const PathData data = parsePathData(
        "M13.68752 15.483618 C6.1165633 12.08989 4.412796 12.770705 3.231074 15.322257 2.0493531 "
        "17.873812 -2.4950337 7.8268027 2.2409132 4.4050307 6.97686 .98325753 12.049765 -.34644848 "
        "14.740673 .3714725 17.431581 1.0893925 19.921005 4.5336003 20.673872 6.8366413 21.42674 "
        "9.139683 21.344765 14.534013 20.593191 17.385418 19.84162 20.236822 16.858624 16.604939 "
        "13.68752 15.483618Z");
    ASSERT_FALSE(data.error);
    EXPECT_EQ(data.path->elementCount(), 8u);
    const CGRect box = data.path->pathBoundingBox();
    EXPECT_NEAR(CGRectGetMinX(box), 0.129837298618, 1e-10);
    EXPECT_NEAR(CGRectGetMaxX(box), 21.19934267996, 1e-10);
    EXPECT_NEAR(CGRectGetMinY(box), 0.18292788237146, 1e-10);
    EXPECT_NEAR(CGRectGetMaxY(box), 18.454193145416, 1e-10);
}

RC_GTEST_PROP(PathData, survivesAnyTextMadeOfItsCharacters, ()) {
    const auto characters = rc::gen::container<std::string>(
        rc::gen::elementOf(std::string("MmLlHhVvCcSsQqTtAaZz0019.-+e, \n#")));
    const std::string text = "M1 1" + *characters;
    const PathData data = parsePathData(text);
    RC_ASSERT((!data.error || data.error->offset <= text.size()));
    // What is kept is what the text up to the error draws.
    if (data.error) {
        CGPathElementType last = CGPathElementType::moveToPoint;
        data.path->apply([&](const CGPathElement& element) { last = element.type; });
        RC_ASSERT(data.path->isEmpty() || last != CGPathElementType::moveToPoint);
    }
}

}  // namespace
}  // namespace quorin
