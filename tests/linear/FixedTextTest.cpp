#include "quorin/linear/FixedText.h"

#include <cstdio>
#include <limits>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::StartsWith;

TEST(FixedText, hasThreeDecimalsAndABlankForAPlus) {
    EXPECT_EQ(fixedText(1), " 1.000");
    EXPECT_EQ(fixedText(-12.34567), "-12.346");
    EXPECT_EQ(fixedText(-0.0), "-0.000");
    EXPECT_EQ(fixedText(-0.0001), "-0.000");
}

TEST(FixedText, roundsExactHalvesToTheEvenDigit) {
    EXPECT_EQ(fixedText(0.0625), " 0.062");
    EXPECT_EQ(fixedText(0.1875), " 0.188");
}

TEST(FixedText, fillsFourPlacesWhereThereAreNoDigits) {
    const CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
    EXPECT_EQ(fixedText(infinity), " inf");
    EXPECT_EQ(fixedText(-infinity), "-inf");
    EXPECT_EQ(fixedText(std::numeric_limits<CGFloat>::quiet_NaN()), " nan");
    EXPECT_EQ(fixedText(-std::numeric_limits<CGFloat>::quiet_NaN()), " nan");
}

TEST(FixedText, holdsTheGreatestNumbers) {
    const std::string text = fixedText(-std::numeric_limits<CGFloat>::max());
    EXPECT_THAT(text, StartsWith("-17976931348623157"));
    EXPECT_EQ(text.size(), 1u + 309u + 4u);
}

RC_GTEST_PROP(FixedText, readsAsTheCFormatInTheCLocale, (CGFloat x)) {
    RC_PRE(std::isfinite(x));
    char expected[400];
    std::snprintf(expected, sizeof expected, "% 4.3lf", x);
    RC_ASSERT(fixedText(x) == expected);
}

}  // namespace
}  // namespace quorin
