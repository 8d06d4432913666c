#include "quorin/svg/reading/SvgViewBox.h"

#include "tests/TestSupport.h"
#include "tests/support/Printing.h"

namespace quorin {
namespace {

TEST(SvgViewBox, isFourNumbersWithSizesAboveZero) {
    EXPECT_EQ(parseSvgViewBox("1 -2 30 40"), CGRectMake(1, -2, 30, 40));
    EXPECT_EQ(parseSvgViewBox(" 0,0 , 1e2-0.5 "), std::nullopt);
    EXPECT_EQ(parseSvgViewBox("0,0,16,16"), CGRectMake(0, 0, 16, 16));
    for (const char* text : {"", "0 0 16", "0 0 0 16", "0 0 16 -1", "0 0 16 16 5", "a b c d"})
        EXPECT_EQ(parseSvgViewBox(text), std::nullopt) << text;
}

// A box of 10 by 10 in a viewport of 40 by 20.
TEST(SvgViewBox, isFittedByTheAspectRatio) {
    struct Row {
        const char* aspectRatio;
        CGRect shown;
    };
    const Row table[] = {
        {"xMidYMid", CGRectMake(-5, 0, 20, 10)},
        {"xMidYMid meet", CGRectMake(-5, 0, 20, 10)},
        {"xMinYMin meet", CGRectMake(0, 0, 20, 10)},
        {"xMaxYMax meet", CGRectMake(-10, 0, 20, 10)},
        {"xMidYMid slice", CGRectMake(0, 2.5, 10, 5)},
        {"xMinYMin slice", CGRectMake(0, 0, 10, 5)},
        {"xMinYMax slice", CGRectMake(0, 5, 10, 5)},
        {"none", CGRectMake(0, 0, 10, 10)},
        {"defer xMinYMid meet", CGRectMake(0, 0, 20, 10)},
    };
    for (const auto& [text, shown] : table) {
        SCOPED_TRACE(text);
        const std::optional<SvgAspectRatio> aspectRatio = parseSvgAspectRatio(text);
        ASSERT_TRUE(aspectRatio);
        EXPECT_EQ(shownRect(CGRectMake(0, 0, 10, 10), {40, 20}, *aspectRatio), shown);
    }
    // And in a tall one, where the free room is above and below.
    EXPECT_EQ(shownRect(CGRectMake(1, 1, 10, 10), {20, 40}, SvgAspectRatio()),
              CGRectMake(1, -4, 10, 20));
}

TEST(SvgViewBox, staysToTheBitWhenTheProportionsAgree) {
    const CGRect box = CGRectMake(0.1, 0.2, 0.3, 0.3);
    EXPECT_EQ(shownRect(box, {22, 22}, SvgAspectRatio()), box);
}

TEST(SvgViewBox, refusesOtherAspectRatios) {
    for (const char* text : {"", "xMidYMid fit", "xmidymid", "xMidYMid meet slice", "meet",
                             "xMidYBot", "yMidXMid", "x"})
        EXPECT_FALSE(parseSvgAspectRatio(text)) << text;
}

TEST(SvgViewBox, leadsFromOneRectToTheOther) {
    const CGAffineTransform transform =
        transformBetween(CGRectMake(10, 20, 2, 4), CGRectMake(100, 100, 20, 20));
    EXPECT_EQ(CGPointApplyAffineTransform({10, 20}, transform), (CGPoint{100, 100}));
    EXPECT_EQ(CGPointApplyAffineTransform({12, 24}, transform), (CGPoint{120, 120}));
}

}  // namespace
}  // namespace quorin
