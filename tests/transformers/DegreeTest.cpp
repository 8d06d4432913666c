#include "quorin/transformers/Degree.h"

#include <bit>
#include <cmath>
#include <limits>
#include <numbers>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using testing::DoubleEq;

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();

CGFloat at45(CGFloat degrees) { return Degree(degrees).roundingAt45Degree().rawValue; }

static_assert(ScalarWrapper<Degree>);

TEST(Degree, isMadeFromRadians) {
    EXPECT_THAT(Degree::withRadian(std::numbers::pi).rawValue, DoubleEq(180));
    EXPECT_EQ(Degree::withRadian(1).rawValue, 57.29577951308232);
    EXPECT_EQ(Degree::withRadian(0).rawValue, 0);
}

TEST(Degree, tellsItsRadians) {
    EXPECT_THAT(Degree(180).radian(), DoubleEq(std::numbers::pi));
    EXPECT_EQ(Degree(1).radian(), 0.017453292519943295);
}

TEST(Degree, isComparedByItsRawValue) {
    EXPECT_TRUE(Degree(90) == Degree(90));
    EXPECT_TRUE(Degree(90) != Degree(450)) << "turns count";
    EXPECT_TRUE(Degree(-1) < Degree(0));
    EXPECT_FALSE(Degree(0) < Degree(0));
    EXPECT_FALSE(Degree(std::nan("")) == Degree(std::nan("")));
}

TEST(Degree, roundsToWholeDegreesHalvesAwayFromZero) {
    EXPECT_EQ(Degree(179.5).rounding(), Degree(180));
    EXPECT_EQ(Degree(-0.5).rounding(), Degree(-1));
    EXPECT_EQ(Degree(0.5).rounding(), Degree(1));
    EXPECT_EQ(Degree(0.49999999999999994).rounding(), Degree(0));
    EXPECT_EQ(Degree(-179.4).rounding(), Degree(-179));
}

TEST(DegreeAt45, goesToTheNearestMultiple) {
    const std::pair<CGFloat, CGFloat> table[] = {
        {0, 0},     {22.4, 0},    {44, 45},     {67.4, 45},   {90, 90},
        {-22.4, 0}, {-67.4, -45}, {359.9, 360}, {-800, -810},
    };
    for (const auto& [degrees, expected] : table)
        EXPECT_EQ(at45(degrees), expected) << degrees;
}

TEST(DegreeAt45, goesAwayFromZeroFromTheMiddle) {
    EXPECT_EQ(at45(22.5), 45);
    EXPECT_EQ(at45(-22.5), -45);
    EXPECT_EQ(at45(67.5), 90);
    EXPECT_EQ(at45(-67.5), -90);
    EXPECT_EQ(at45(22.499999), 0);
    EXPECT_EQ(at45(-67.499999), -45);
}

TEST(DegreeAt45, addsTheHalfBeforeItDivides) {
    // The sum is no double but 135, so the last angle below the middle goes up as well.
    EXPECT_EQ(at45(std::nextafter(112.5, 0)), 135);
    EXPECT_EQ(at45(std::nextafter(-112.5, 0)), -135);
}

TEST(DegreeAt45, isNeverNegativeZero) {
    for (const CGFloat degrees : {-0.0, -1.0, -22.0})
        EXPECT_FALSE(std::signbit(at45(degrees))) << degrees;
}

RC_GTEST_PROP(DegreeAt45, leavesMultiplesAndIsNowhereFartherThanHalfOfOne, ()) {
    const CGFloat degrees = *rc::gen::inRange(-1'000'000'000, 1'000'000'000) / 1000.0;
    const CGFloat rounded = at45(degrees);
    RC_ASSERT(std::abs(rounded - degrees) < 22.5 + 1e-6);
    RC_ASSERT(std::fmod(rounded, 45) == 0);
    RC_ASSERT(at45(rounded) == rounded);
}

TEST(DegreeAt45, reachesToTheEndsOf64Bits) {
    const CGFloat lowest = -0x1p63 * 45;
    EXPECT_EQ(at45(lowest), lowest) << "the lowest multiple is in";
    const CGFloat highest = std::nextafter(0x1p63, 0) * 45;
    EXPECT_EQ(at45(highest), highest);
    EXPECT_EQ(at45(std::nextafter(0x1p63 * 45, 0)), highest) << "the last one that is in";
}

TEST(DegreeAt45Death, beyond64BitsNamesTheNumber) {
    EXPECT_DEATH(at45(0x1p63 * 45),
                 "no 64-bit multiple of 45 is nearest to 4.1505[0-9]*e\\+20 degrees");
    EXPECT_DEATH(at45(std::nextafter(-0x1p63 * 45, -infinity)),
                 "no 64-bit multiple of 45 is nearest to -4.1505[0-9]*e\\+20 degrees");
    EXPECT_DEATH(at45(-1e300), "nearest to -1e\\+300 degrees");
}

TEST(DegreeAt45Death, ofWhatIsNotFiniteNamesIt) {
    EXPECT_DEATH(at45(std::nan("")), "nearest to nan degrees");
    EXPECT_DEATH(at45(infinity), "nearest to inf degrees");
    EXPECT_DEATH(at45(-infinity), "nearest to -inf degrees");
}

}  // namespace
}  // namespace quorin
