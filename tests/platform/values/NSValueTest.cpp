#include "quorin/platform/values/NSValue.h"

#include <array>
#include <bit>
#include <limits>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StrEq;

constexpr CGRect rect{{1, 2}, {3, 4}};
constexpr CATransform3D transform{2, 3, 5, 7, 11, 13, 17, 19, 23, 29, 31, 37, 41, 43, 47, 53};

template <typename Plain>
std::array<std::uint8_t, sizeof(Plain)> bytesOf(const Plain& value) {
    return std::bit_cast<std::array<std::uint8_t, sizeof(Plain)>>(value);
}

TEST(NSValue, namesTheTypeItHolds) {
    EXPECT_THAT(NSValue(CGPoint{1, 2}).objCType(), StrEq("{CGPoint=dd}"));
    EXPECT_THAT(NSValue(CGSize{1, 2}).objCType(), StrEq("{CGSize=dd}"));
    EXPECT_THAT(NSValue(rect).objCType(), StrEq("{CGRect={CGPoint=dd}{CGSize=dd}}"));
    EXPECT_THAT(NSValue(transform).objCType(), StrEq("{CATransform3D=dddddddddddddddd}"));
    EXPECT_THAT(NSValue(NSNumber(1.5)).objCType(), StrEq("d"));
    EXPECT_THAT(NSValue(NSNumber(2)).objCType(), StrEq("q"));
    EXPECT_THAT(NSValue(bytesOf(CGVector{1, 2}), "{CGVector=dd}").objCType(),
                StrEq("{CGVector=dd}"));
}

TEST(NSValue, givesBackWhatItHoldsAndNothingElse) {
    const NSValue point = CGPoint{1, 2};
    EXPECT_EQ(point.pointValue(), (CGPoint{1, 2}));
    EXPECT_EQ(point.sizeValue(), std::nullopt);
    EXPECT_EQ(point.rectValue(), std::nullopt);
    EXPECT_EQ(point.CATransform3DValue(), std::nullopt);
    EXPECT_EQ(point.number(), nullptr);
    EXPECT_THAT(point.bytes(), IsEmpty());

    EXPECT_EQ(NSValue(CGSize{1, 2}).sizeValue(), (CGSize{1, 2}));
    EXPECT_EQ(NSValue(CGSize{1, 2}).pointValue(), std::nullopt);
    EXPECT_EQ(NSValue(rect).rectValue(), rect);
    EXPECT_EQ(NSValue(transform).CATransform3DValue(), transform);
    const NSValue number = NSNumber(1.5);
    ASSERT_NE(number.number(), nullptr);
    EXPECT_EQ(*number.number(), NSNumber(1.5));
}

TEST(NSValue, ofBytesOfAGeometryTypeIsThatGeometry) {
    EXPECT_EQ(NSValue(bytesOf(CGPoint{1, 2}), "{CGPoint=dd}"), NSValue(CGPoint{1, 2}));
    EXPECT_EQ(NSValue(bytesOf(CGSize{1, 2}), "{CGSize=dd}"), NSValue(CGSize{1, 2}));
    EXPECT_EQ(NSValue(bytesOf(rect), "{CGRect={CGPoint=dd}{CGSize=dd}}"), NSValue(rect));
    EXPECT_EQ(NSValue(bytesOf(transform), "{CATransform3D=dddddddddddddddd}"), NSValue(transform));
}

TEST(NSValue, keepsTheBytesOfAnyOtherType) {
    const std::array<std::uint8_t, 3> bytes{1, 2, 3};
    const NSValue value(bytes, "[3C]");
    EXPECT_THAT(value.bytes(), ElementsAre(1, 2, 3));
    EXPECT_EQ(value.pointValue(), std::nullopt);
    EXPECT_EQ(value.number(), nullptr);
}

TEST(NSValue, ofBytesWithTheTypeOfANumberIsNoNumber) {
    EXPECT_EQ(NSValue(bytesOf(1.5), "d").number(), nullptr);
}

TEST(NSValueDeathTest, stopsTheProcessForAWrongNumberOfGeometryBytes) {
    const std::array<std::uint8_t, 15> bytes{};
    EXPECT_DEATH(NSValue(bytes, "{CGPoint=dd}"), "15 of the 16 bytes of \\{CGPoint=dd\\}");
}

TEST(NSValue, equalsTheSameTypeWithAnEqualValue) {
    EXPECT_EQ(NSValue(CGPoint{0, 2}), NSValue(CGPoint{-0.0, 2}));
    EXPECT_FALSE(NSValue(CGPoint{1, 2}) == NSValue(CGPoint{1, 2.5}));
    EXPECT_FALSE(NSValue(CGPoint{1, 2}) == NSValue(CGSize{1, 2}));
    EXPECT_EQ(NSValue(NSNumber(2)), NSValue(NSNumber(2.0)));
    EXPECT_EQ(NSValue(transform), NSValue(transform));
    EXPECT_FALSE(NSValue(transform) == NSValue(CATransform3D::identity));
}

TEST(NSValue, ofOtherBytesEqualsSameBytesOfTheSameTypeOnly) {
    const std::array<std::uint8_t, 2> bytes{1, 2}, others{1, 3};
    EXPECT_EQ(NSValue(bytes, "[2C]"), NSValue(bytes, "[2C]"));
    EXPECT_FALSE(NSValue(bytes, "[2C]") == NSValue(others, "[2C]"));
    EXPECT_FALSE(NSValue(bytes, "[2C]") == NSValue(bytes, "s"));
}

TEST(NSValue, holdingNaNEqualsNotEvenItsCopy) {
    CATransform3D notANumber;
    notANumber.m11 = std::numeric_limits<CGFloat>::quiet_NaN();
    const NSValue value = notANumber;
    const NSValue copy = value;
    EXPECT_FALSE(value == copy);
}

}  // namespace
}  // namespace quorin
