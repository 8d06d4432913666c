#include "quorin/geometry/RectArithmetic.h"

#include "tests/TestSupport.h"

namespace quorin {
namespace {

constexpr CGRect rect = CGRectMake(1, 2, 30, 40);

TEST(RectArithmetic, movesByAPoint) {
    EXPECT_EQ(rect + (CGPoint{5, -7}), CGRectMake(6, -5, 30, 40));
    EXPECT_EQ(rect - (CGPoint{5, -7}), CGRectMake(-4, 9, 30, 40));
}

TEST(RectArithmetic, keepsANegativeSizeWhenMoved) {
    EXPECT_EQ(CGRectMake(1, 2, -3, -4) + (CGPoint{1, 1}), CGRectMake(2, 3, -3, -4));
}

TEST(RectArithmetic, dividesAllFourNumbers) { EXPECT_EQ(rect / 2, CGRectMake(0.5, 1, 15, 20)); }

TEST(RectArithmetic, scalesAllFourNumbersInPlace) {
    CGRect scaled = rect;
    EXPECT_EQ(&(scaled *= 2), &scaled);
    EXPECT_EQ(scaled, CGRectMake(2, 4, 60, 80));
    EXPECT_EQ(&(scaled /= 4), &scaled);
    EXPECT_EQ(scaled, CGRectMake(0.5, 1, 15, 20));
}

}  // namespace
}  // namespace quorin
