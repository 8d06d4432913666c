#include "quorin/svg/writing/SvgNumberText.h"

#include <bit>
#include <cmath>
#include <limits>

#include "quorin/svg/reading/SvgScanner.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

TEST(SvgNumberText, isTheShortestThatReadsBack) {
    const std::pair<CGFloat, const char*> table[] = {
        {0, "0"},
        {-0.0, "0"},
        {1, "1"},
        {-1, "-1"},
        {0.5, ".5"},
        {-0.5, "-.5"},
        {0.1, ".1"},
        {10.25, "10.25"},
        {100, "100"},
        {1e5, "1e5"},
        {123'456, "123456"},
        {1e20, "1e20"},
        {1e-5, "1e-5"},
        {1.5e-10, "1.5e-10"},
        {0.001, ".001"},
        {1e100, "1e100"},
        {1.0 / 3, ".3333333333333333"},
        {5e-324, "5e-324"},
        {1.7976931348623157e308, "1.7976931348623157e308"},
    };
    for (const auto& [number, text] : table)
        EXPECT_EQ(svgNumberText(number), text);
}

TEST(SvgNumberList, putsASpaceOnlyWhereNumbersWouldRunTogether) {
    std::string text;
    SvgNumberList list(text);
    list.append("M");
    list.append(CGPoint{1, -2});
    list.append(CGPoint{0.5, 0.5});
    list.append(1e20);
    list.append(0.5);
    list.append(3);
    list.append(0.5);
    list.append("L");
    list.append(0.5);
    EXPECT_EQ(text, "M1-2 .5.5 1e20.5 3 .5L.5");
}

RC_GTEST_PROP(SvgNumberList, keepsEveryBitOfNumbersInARow, ()) {
    const auto bits =
        *rc::gen::container<std::vector<std::uint64_t>>(rc::gen::arbitrary<std::uint64_t>());
    std::vector<CGFloat> numbers;
    for (const std::uint64_t pattern : bits) {
        const auto number = std::bit_cast<CGFloat>(pattern * 0x9e3779b97f4a7c15);
        numbers.push_back(std::isfinite(number) ? number : static_cast<CGFloat>(pattern));
        numbers.push_back(static_cast<CGFloat>(pattern % 100) / 10);
    }
    std::string text;
    SvgNumberList list(text);
    for (const CGFloat number : numbers)
        list.append(number);
    SvgScanner scanner(text);
    for (const CGFloat number : numbers) {
        RC_ASSERT(scanner.number() == number);
        scanner.skipSpace();
    }
    RC_ASSERT(scanner.isAtEnd());
}

}  // namespace
}  // namespace quorin
