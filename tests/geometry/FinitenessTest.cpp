#include "quorin/geometry/Finiteness.h"

#include <limits>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();
constexpr CGFloat greatest = 1.7976931348623157e308;
constexpr CGFloat least = 2.2250738585072014e-308;

TEST(Finiteness, asksBothComponentsOfAPoint) {
    struct Row {
        CGPoint point;
        bool isNaN, isInfinite, isFinite;
    };
    const Row table[] = {
        {{1, 2}, false, false, true},
        {{nan, 2}, true, false, false},
        {{1, nan}, true, false, false},
        {{infinity, 2}, false, true, false},
        {{1, -infinity}, false, true, false},
        {{nan, infinity}, true, true, false},
        {{greatest, -greatest}, false, false, true},
    };
    for (const Row& row : table) {
        SCOPED_TRACE(testing::Message() << row.point.x << ", " << row.point.y);
        EXPECT_EQ(isNaN(row.point), row.isNaN);
        EXPECT_EQ(isInfinite(row.point), row.isInfinite);
        EXPECT_EQ(isFinite(row.point), row.isFinite);
        const CGSize size{row.point.x, row.point.y};
        EXPECT_EQ(isNaN(size), row.isNaN);
        EXPECT_EQ(isInfinite(size), row.isInfinite);
        EXPECT_EQ(isFinite(size), row.isFinite);
    }
}

TEST(Finiteness, ofARectFailsForAnyNaN) {
    for (int place = 0; place < 4; ++place) {
        CGFloat numbers[] = {1, 2, 3, 4};
        numbers[place] = nan;
        const CGRect rect = CGRectMake(numbers[0], numbers[1], numbers[2], numbers[3]);
        EXPECT_TRUE(isNaN(rect)) << place;
        EXPECT_FALSE(isFinite(rect)) << place;
    }
    EXPECT_FALSE(isNaN(CGRectMake(1, 2, 3, 4)));
}

TEST(Finiteness, ofARectFailsForTheInfiniteRectOnly) {
    EXPECT_TRUE(isFinite(CGRectMake(1, 2, 3, 4)));
    EXPECT_FALSE(isFinite(CGRectInfinite));
    EXPECT_TRUE(isFinite(CGRectNull));
    EXPECT_TRUE(isFinite(CGRectMake(infinity, 0, 1, 1)));
}

TEST(Finite, mapsTheThreeValuesThatAreNot) {
    EXPECT_EQ(finite(nan), 0);
    EXPECT_EQ(finite(-nan), 0);
    EXPECT_EQ(finite(infinity), greatest);
    EXPECT_EQ(finite(-infinity), least);  // tiny and positive, not the most negative number
}

TEST(Finite, repairsEveryComponent) {
    EXPECT_EQ(finite(CGPoint{-infinity, nan}), (CGPoint{least, 0}));
    EXPECT_EQ(finite(CGSize{infinity, 7}), (CGSize{greatest, 7}));
    EXPECT_EQ(finite(CGRectMake(nan, infinity, -infinity, -7)), CGRectMake(0, greatest, least, -7));
}

TEST(FormFinite, repairsInPlace) {
    CGFloat number = -infinity;
    CGPoint point{-infinity, nan};
    CGSize size{nan, infinity};
    CGRect rect = CGRectNull;
    formFinite(number);
    formFinite(point);
    formFinite(size);
    formFinite(rect);
    EXPECT_EQ(number, least);
    EXPECT_EQ(point, (CGPoint{least, 0}));
    EXPECT_EQ(size, (CGSize{0, greatest}));
    EXPECT_EQ(rect, CGRectMake(greatest, greatest, 0, 0));
}

RC_GTEST_PROP(Finite, leavesFiniteNumbersAlone, (CGFloat x)) {
    RC_PRE(std::isfinite(x));
    RC_ASSERT(finite(x) == x);
}

}  // namespace
}  // namespace quorin
