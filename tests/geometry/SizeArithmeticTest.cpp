#include "quorin/geometry/SizeArithmetic.h"

#include "tests/TestSupport.h"

namespace quorin {
namespace {

constexpr CGSize s{12, 20};
constexpr CGSize t{3, 4};
constexpr CGPoint p{3, 4};

TEST(SizeArithmetic, worksByComponentOnSizes) {
    EXPECT_EQ(s + t, (CGSize{15, 24}));
    EXPECT_EQ(s - t, (CGSize{9, 16}));
    EXPECT_EQ(s * t, (CGSize{36, 80}));
    EXPECT_EQ(s / t, (CGSize{4, 5}));
}

TEST(SizeArithmetic, takesAPointAsWidthAndHeight) {
    EXPECT_EQ(s + p, (CGSize{15, 24}));
    EXPECT_EQ(s - p, (CGSize{9, 16}));
    EXPECT_EQ(s * p, (CGSize{36, 80}));
    EXPECT_EQ(s / p, (CGSize{4, 5}));
}

TEST(SizeArithmetic, scalesByAScalar) {
    EXPECT_EQ(s * 0.5, (CGSize{6, 10}));
    EXPECT_EQ(s / 4, (CGSize{3, 5}));
    EXPECT_EQ(scaleBy(s, 2), (CGSize{24, 40}));
}

TEST(SizeArithmetic, hasTheCompoundFormsOfEveryOperand) {
    CGSize size = s;
    size += t;
    EXPECT_EQ(size, (CGSize{15, 24}));
    size -= p;
    EXPECT_EQ(size, (CGSize{12, 20}));
    size *= p;
    EXPECT_EQ(size, (CGSize{36, 80}));
    size /= t;
    EXPECT_EQ(size, (CGSize{12, 20}));
    size += p;
    size -= t;
    size *= t;
    size /= p;
    EXPECT_EQ(size, (CGSize{12, 20}));
    size *= 2;
    EXPECT_EQ(size, (CGSize{24, 40}));
    size /= 8;
    EXPECT_EQ(size, (CGSize{3, 5}));
}

TEST(SizeComparison, isTolerantInBothComponents) {
    EXPECT_TRUE(isNearlyEqual(CGSize{1e-13, -1e-13}, CGSize::zero));
    EXPECT_FALSE(isNearlyEqual(CGSize{1e-12, 0}, CGSize::zero));
    EXPECT_FALSE(isNearlyEqual(CGSize{0, 1e-12}, CGSize::zero));
}

TEST(IsPortrait, isHigherThanWide) {
    EXPECT_TRUE(isPortrait({3, 4}));
    EXPECT_FALSE(isPortrait({4, 4}));
    EXPECT_FALSE(isPortrait({5, 4}));
}

TEST(SafeSizeForDivider, replacesTinyComponentsByAPositiveOne) {
    EXPECT_EQ(safeSizeForDivider({-1e-9, 5}), (CGSize{1e-7, 5}));
    EXPECT_EQ(safeSizeForDivider({0, -0.0}), (CGSize{1e-7, 1e-7}));
}

TEST(SafeSizeForDivider, countsTheToleranceItselfAsTiny) {
    EXPECT_EQ(safeSizeForDivider({-1e-7, 1.01e-7}), (CGSize{1e-7, 1.01e-7}));
    EXPECT_EQ(safeSizeForDivider({-1.01e-7, -5}), (CGSize{-1.01e-7, -5}));
}

}  // namespace
}  // namespace quorin
