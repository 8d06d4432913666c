#include "quorin/svg/reading/SvgLength.h"

#include "tests/TestSupport.h"

namespace quorin {
namespace {

TEST(SvgLength, countsNinetySixUserUnitsToTheInch) {
    struct Row {
        const char* text;
        CGFloat units;
    };
    const Row table[] = {
        {"7", 7},    {"7px", 7},  {"7PX", 7},   {" 3 ", 3},  {"72pt", 96},     {"6pc", 96},
        {"1in", 96}, {"2em", 32}, {"2rem", 32}, {"2ex", 16}, {"-1.5in", -144}, {".5", .5},
    };
    for (const auto& [text, units] : table) {
        SCOPED_TRACE(text);
        EXPECT_EQ(parseSvgLength(text), (SvgLength{units, false}));
    }
    EXPECT_DOUBLE_EQ(parseSvgLength("25.4mm")->value, 96);
    EXPECT_DOUBLE_EQ(parseSvgLength("2.54cm")->value, 96);
}

TEST(SvgLength, takesPercentagesOfTheSideTheyAreOf) {
    const SvgLength half = parseSvgLength("50%").value();
    EXPECT_TRUE(half.isPercentage);
    const CGSize viewport{60, 80};
    EXPECT_EQ(half.resolved(viewport, SvgAxis::horizontal), 30);
    EXPECT_EQ(half.resolved(viewport, SvgAxis::vertical), 40);
    // The root of (3600 + 6400) / 2 is 70.71.
    EXPECT_DOUBLE_EQ(half.resolved(viewport, SvgAxis::diagonal), 35.35533905932738);
    EXPECT_EQ(half.resolved({1, 1}, SvgAxis::diagonal), 0.5);
    EXPECT_EQ((SvgLength{5, false}).resolved(viewport, SvgAxis::diagonal), 5);
}

TEST(SvgLength, refusesWhatIsNotALength) {
    for (const char* text : {"", " ", "px", "5 px", "5kg", "5%%", "1e999", "calc(1px)", "auto"})
        EXPECT_EQ(parseSvgLength(text), std::nullopt) << text;
}

TEST(SvgLength, readsPlainNumbersAndFractions) {
    EXPECT_EQ(parseSvgNumber(" 4.5 "), 4.5);
    EXPECT_EQ(parseSvgNumber("4px"), std::nullopt);
    EXPECT_EQ(parseSvgNumber(""), std::nullopt);
    EXPECT_EQ(parseSvgFraction("0.25"), 0.25);
    EXPECT_EQ(parseSvgFraction("25%"), 0.25);
    EXPECT_EQ(parseSvgFraction("1.5"), 1);
    EXPECT_EQ(parseSvgFraction("-20%"), 0);
    EXPECT_EQ(parseSvgFraction("half"), std::nullopt);
    EXPECT_EQ(parseSvgFraction("5 %"), std::nullopt);
}

}  // namespace
}  // namespace quorin
