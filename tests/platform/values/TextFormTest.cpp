#include "quorin/platform/values/TextForm.h"

#include <cstdlib>
#include <limits>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

TEST(TextForm, writesANumberWithItsShortestDigitsAndAFraction) {
    struct Row {
        CGFloat number;
        const char* text;
    };
    const Row table[] = {
        {0, "0.0"},
        {-0.0, "-0.0"},
        {1, "1.0"},
        {-20, "-20.0"},
        {0.1, "0.1"},
        {1.0 / 3, "0.3333333333333333"},
        {123456789.125, "123456789.125"},
        {1e15, "1000000000000000.0"},
    };
    for (const auto& [number, text] : table)
        EXPECT_EQ(textForm(number), text);
}

TEST(TextForm, writesAnExponentBelowATenThousandthAndAboveTwoToThe53rd) {
    struct Row {
        CGFloat number;
        const char* text;
    };
    const Row table[] = {
        {1e-4, "0.0001"},
        {-0.00012, "-0.00012"},
        {0.00009999, "9.999e-05"},
        {1e-5, "1e-05"},
        {-2.5e-7, "-2.5e-07"},
        {9007199254740992, "9007199254740992.0"},
        {-9007199254740992, "-9007199254740992.0"},
        {9007199254740994, "9.007199254740994e+15"},
        {1e16, "1e+16"},
        {1e20, "1e+20"},
        {std::numeric_limits<CGFloat>::max(), "1.7976931348623157e+308"},
        {-2.2250738585072014e-308, "-2.2250738585072014e-308"},
        {std::numeric_limits<CGFloat>::denorm_min(), "5e-324"},
    };
    for (const auto& [number, text] : table)
        EXPECT_EQ(textForm(number), text);
}

TEST(TextForm, namesWhatIsNoNumberWhateverItsSign) {
    const CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
    const CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();
    EXPECT_EQ(textForm(infinity), "inf");
    EXPECT_EQ(textForm(-infinity), "-inf");
    EXPECT_EQ(textForm(nan), "nan");
    EXPECT_EQ(textForm(-nan), "nan");
}

RC_GTEST_PROP(TextForm, readsBackToTheSameNumber, ()) {
    const CGFloat number = *rc::gen::arbitrary<CGFloat>();
    RC_ASSERT(std::strtod(textForm(number).c_str(), nullptr) == number);
}

TEST(TextForm, bracketsAPoint) { EXPECT_EQ(textForm(CGPoint{50, -0.5}), "(50.0, -0.5)"); }

TEST(TextForm, wrapsAnOptionalOrWritesNil) {
    EXPECT_EQ(textForm(std::optional<int>(3)), "Optional(3)");
    EXPECT_EQ(textForm(std::optional<CGPoint>(CGPoint{1, 2})), "Optional((1.0, 2.0))");
    EXPECT_EQ(textForm(std::optional<CGFloat>()), "nil");
}

}  // namespace
}  // namespace quorin
