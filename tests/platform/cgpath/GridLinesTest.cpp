#include "quorin/platform/cgpath/GridLines.h"

#include <algorithm>
#include <limits>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

TEST(GridLines, withoutSeparatorsAreOneCell) {
    const GridLines lines;
    EXPECT_EQ(lines.cellCount(), 1u);
    EXPECT_EQ(lines.cellOf(-1e300), 0u);
    EXPECT_EQ(lines.cellOf(1e300), 0u);
}

TEST(GridLines, putASeparatorIntoTheCellAfterIt) {
    const GridLines lines({1, 2, 4});
    EXPECT_EQ(lines.cellCount(), 4u);
    EXPECT_EQ(lines.cellOf(0.999), 0u);
    EXPECT_EQ(lines.cellOf(1), 1u);
    EXPECT_EQ(lines.cellOf(1.999), 1u);
    EXPECT_EQ(lines.cellOf(2), 2u);
    EXPECT_EQ(lines.cellOf(4), 3u);
}

TEST(GridLines, coverAllNumbers) {
    const GridLines lines({-1, 3});
    EXPECT_EQ(lines.cellOf(-std::numeric_limits<CGFloat>::max()), 0u);
    EXPECT_EQ(lines.cellOf(std::numeric_limits<CGFloat>::max()), 2u);
}

TEST(GridLines, mayStandAtOnePlaceOnly) {
    const GridLines lines({5});
    EXPECT_EQ(lines.cellOf(4), 0u);
    EXPECT_EQ(lines.cellOf(5), 1u);
    EXPECT_EQ(lines.cellOf(6), 1u);
}

RC_GTEST_PROP(GridLines, countTheSeparatorsAtOrBelowAValue,
              (std::vector<CGFloat> separators, std::vector<CGFloat> values)) {
    // One very dense stretch beside a very wide one.
    for (std::size_t index = 0; index < separators.size(); index += 2)
        separators[index] *= 1e-12;
    std::sort(separators.begin(), separators.end());
    const GridLines lines(separators);
    values.insert(values.end(), separators.begin(), separators.end());
    for (const CGFloat value : values) {
        const auto below = std::upper_bound(separators.begin(), separators.end(), value);
        RC_ASSERT(lines.cellOf(value) == static_cast<std::uint32_t>(below - separators.begin()));
    }
}

}  // namespace
}  // namespace quorin
