#include "quorin/geometry/Clamped.h"

#include <cmath>
#include <limits>
#include <string>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

TEST(Clamped, keepsAValueBetweenBothBounds) {
    EXPECT_EQ(clamped(5, ClosedRange{1, 3}), 3);
    EXPECT_EQ(clamped(0, ClosedRange{1, 3}), 1);
    EXPECT_EQ(clamped(2, ClosedRange{1, 3}), 2);
    EXPECT_EQ(clamped(-0.5, ClosedRange{0.0, 1.0}), 0.0);
}

TEST(Clamped, asksTheUpperBoundFirst) { EXPECT_EQ(clamped(5, ClosedRange{9, 3}), 3); }

TEST(Clamped, keepsAValueAboveALowerBoundAlone) {
    EXPECT_EQ(clamped(0, PartialRangeFrom{1}), 1);
    EXPECT_EQ(clamped(1000, PartialRangeFrom{1}), 1000);
}

TEST(Clamped, keepsAValueBelowAnUpperBoundAlone) {
    EXPECT_EQ(clamped(5, PartialRangeThrough{3}), 3);
    EXPECT_EQ(clamped(-1000, PartialRangeThrough{3}), -1000);
}

TEST(Clamped, takesAnyComparableType) {
    const std::string a = "a", m = "m", p = "p", z = "z";
    EXPECT_EQ(clamped(z, ClosedRange{a, m}), m);
    EXPECT_EQ(clamped(p, PartialRangeFrom{z}), z);
}

TEST(Clamped, leavesNaNAsItIs) {
    EXPECT_TRUE(std::isnan(clamped(std::nan(""), ClosedRange{0.0, 1.0})));
}

RC_GTEST_PROP(Clamped, isTheNearestValueOfTheRange, (int value, int a, int b)) {
    const ClosedRange range{std::min(a, b), std::max(a, b)};
    const int result = clamped(value, range);
    RC_ASSERT(result >= range.lower && result <= range.upper);
    RC_ASSERT(result == value || result == range.lower || result == range.upper);
    RC_ASSERT(result == value || value < range.lower || value > range.upper);
    RC_ASSERT(clamped(result, range) == result);
}

}  // namespace
}  // namespace quorin
