#include "quorin/platform/values/NSNumber.h"

#include <cstdint>
#include <limits>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using ::testing::StrEq;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr std::int64_t greatest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();

TEST(NSNumber, keepsTheTypeItWasMadeFrom) {
    EXPECT_THAT(NSNumber(true).objCType(), StrEq("c"));
    EXPECT_THAT(NSNumber(1).objCType(), StrEq("q"));
    EXPECT_THAT(NSNumber(1U).objCType(), StrEq("q"));
    EXPECT_THAT(NSNumber(std::int8_t{1}).objCType(), StrEq("q"));
    EXPECT_THAT(NSNumber(1.0).objCType(), StrEq("d"));
    EXPECT_THAT(NSNumber(1.0f).objCType(), StrEq("d"));
}

TEST(NSNumber, isNotMadeFromCharactersOrPointers) {
    EXPECT_FALSE((std::is_constructible_v<NSNumber, char>));
    EXPECT_FALSE((std::is_constructible_v<NSNumber, wchar_t>));
    EXPECT_FALSE((std::is_constructible_v<NSNumber, char8_t>));
    EXPECT_FALSE((std::is_constructible_v<NSNumber, char16_t>));
    EXPECT_FALSE((std::is_constructible_v<NSNumber, char32_t>));
    EXPECT_FALSE((std::is_constructible_v<NSNumber, const char*>));
    EXPECT_FALSE((std::is_constructible_v<NSNumber, int*>));
    EXPECT_TRUE((std::is_constructible_v<NSNumber, signed char>));
    EXPECT_TRUE((std::is_constructible_v<NSNumber, unsigned char>));
}

TEST(NSNumber, isOfOneKindOnly) {
    const NSNumber boolean = true, integer = 1, number = 1.0;
    EXPECT_TRUE(boolean.isBoolean() && !boolean.isInteger() && !boolean.isDouble());
    EXPECT_TRUE(!integer.isBoolean() && integer.isInteger() && !integer.isDouble());
    EXPECT_TRUE(!number.isBoolean() && !number.isInteger() && number.isDouble());
}

TEST(NSNumber, ofAnUnsignedIntegerBeyond64SignedBitsIsADouble) {
    EXPECT_TRUE(NSNumber(std::uint64_t{9223372036854775807U}).isInteger());
    const NSNumber beyond = std::uint64_t{9223372036854775808U};
    EXPECT_TRUE(beyond.isDouble());
    EXPECT_EQ(beyond.doubleValue(), 0x1p63);
}

TEST(NSNumber, readsAsADouble) {
    EXPECT_EQ(NSNumber(true).doubleValue(), 1);
    EXPECT_EQ(NSNumber(false).doubleValue(), 0);
    EXPECT_EQ(NSNumber(-7).doubleValue(), -7);
    EXPECT_EQ(NSNumber(0.1).doubleValue(), 0.1);
    EXPECT_EQ(NSNumber(9007199254740993).doubleValue(), 9007199254740992.0);
}

TEST(NSNumber, readsAsAnIntegerWithoutTheFraction) {
    struct Row {
        NSNumber number;
        std::int64_t integer;
    };
    const Row table[] = {
        {true, 1},
        {least, least},
        {2.9, 2},
        {-2.9, -2},
        {0x1p63, greatest},
        {infinity, greatest},
        {-0x1p63, least},
        {-0x1.8p63, least},
        {-infinity, least},
        {nan, 0},
        {0x1.fffffffffffffp62, 9223372036854774784},
    };
    for (const auto& [number, integer] : table)
        EXPECT_EQ(number.integerValue(), integer) << number.doubleValue();
}

TEST(NSNumber, isTrueUnlessItIsZero) {
    EXPECT_TRUE(NSNumber(true).boolValue());
    EXPECT_TRUE(NSNumber(-1).boolValue());
    EXPECT_TRUE(NSNumber(1e-300).boolValue());
    EXPECT_FALSE(NSNumber(false).boolValue());
    EXPECT_FALSE(NSNumber(0).boolValue());
    EXPECT_FALSE(NSNumber(-0.0).boolValue());
}

TEST(NSNumber, equalsByValueAcrossIntegersAndDoubles) {
    EXPECT_EQ(NSNumber(3), NSNumber(3.0));
    EXPECT_EQ(NSNumber(3.0), NSNumber(3));
    EXPECT_EQ(NSNumber(0), NSNumber(-0.0));
    EXPECT_EQ(NSNumber(least), NSNumber(-0x1p63));
    EXPECT_FALSE(NSNumber(3) == NSNumber(3.5));
    EXPECT_FALSE(NSNumber(3) == NSNumber(4.0));
    EXPECT_FALSE(NSNumber(0) == NSNumber(nan));
}

TEST(NSNumber, tellsNeighboursApartThatRoundToTheSameDouble) {
    EXPECT_FALSE(NSNumber(9007199254740993) == NSNumber(9007199254740992.0));
    EXPECT_FALSE(NSNumber(9007199254740992.0) == NSNumber(9007199254740993));
    EXPECT_FALSE(NSNumber(greatest) == NSNumber(0x1p63));
    EXPECT_FALSE(NSNumber(least) == NSNumber(0x1p63));
}

TEST(NSNumber, aBooleanEqualsNoNumber) {
    EXPECT_EQ(NSNumber(true), NSNumber(true));
    EXPECT_FALSE(NSNumber(true) == NSNumber(false));
    EXPECT_FALSE(NSNumber(true) == NSNumber(1));
    EXPECT_FALSE(NSNumber(0.0) == NSNumber(false));
}

TEST(NSNumber, nanEqualsNothing) { EXPECT_FALSE(NSNumber(nan) == NSNumber(nan)); }

RC_GTEST_PROP(NSNumber, ofAnIntegerEqualsADoubleExactlyWhenNothingWasRounded,
              (std::int64_t integer)) {
    const bool isExact =
        static_cast<long double>(static_cast<double>(integer)) == static_cast<long double>(integer);
    RC_ASSERT((NSNumber(integer) == NSNumber(static_cast<double>(integer))) == isExact);
}

TEST(NSNumber, isWrittenWithAtMostSixteenDigitsWhateverTheLocale) {
    struct Row {
        NSNumber number;
        const char* text;
    };
    const Row table[] = {
        {1234.0, "1234"},
        {0.1, "0.1"},
        {1.0 / 3, "0.3333333333333333"},
        {0.1 + 0.2, "0.3"},  // 17 digits would show 0.30000000000000004
        {-0.0, "-0"},
        {0.0, "0"},
        {1e15, "1000000000000000"},
        {1e16, "1e+16"},
        {1e-4, "0.0001"},
        {1e-5, "1e-05"},
        {-2.2250738585072014e-308, "-2.225073858507201e-308"},
        {infinity, "inf"},
        {-infinity, "-inf"},
        {nan, "nan"},
        {-nan, "nan"},
        {1234, "1234"},
        {least, "-9223372036854775808"},
        {greatest, "9223372036854775807"},
        {true, "1"},
        {false, "0"},
    };
    for (const auto& [number, text] : table)
        EXPECT_EQ(number.stringValue(), text);
}

}  // namespace
}  // namespace quorin
