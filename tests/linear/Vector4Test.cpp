#include "quorin/linear/Vector4.h"

#include <limits>
#include <vector>

#include "tests/TestSupport.h"
#include "tests/support/MemoryRecord.h"

namespace quorin {
namespace {

using testing::ElementsAre;

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();

TEST(Vector4, isZeroAtFirst) { EXPECT_EQ(Vector4(), (Vector4{0, 0, 0, 0})); }

TEST(Vector4, hasItsConstants) {
    EXPECT_EQ(Vector4::zero, (Vector4{0, 0, 0, 0}));
    EXPECT_EQ(Vector4::unit, (Vector4{1, 1, 1, 1}));
    EXPECT_EQ(Vector4::unitX, (Vector4{1, 0, 0, 0}));
    EXPECT_EQ(Vector4::unitY, (Vector4{0, 1, 0, 0}));
    EXPECT_EQ(Vector4::unitZ, (Vector4{0, 0, 1, 0}));
    EXPECT_EQ(Vector4::unitW, (Vector4{0, 0, 0, 1}));
}

TEST(Vector4, takesAPlaceInSpaceWithWOne) {
    EXPECT_EQ(Vector4(Vector3{1, 2, 3}), (Vector4{1, 2, 3, 1}));
}

TEST(Vector4, isMadeFromTheFirstFourElementsOfAList) {
    const std::vector<CGFloat> longer{1, 2, 3, 4, 5};
    const std::vector<float> single{1.5f, 2.5f, 3.5f, 4.5f};
    EXPECT_EQ(Vector4(longer), (Vector4{1, 2, 3, 4}));
    EXPECT_EQ(Vector4(single), (Vector4{1.5, 2.5, 3.5, 4.5}));
    EXPECT_THAT((Vector4{1, 2, 3, 0.1}.array()), ElementsAre(1, 2, 3, 0.1));
    EXPECT_THAT((Vector4{1, 2, 3, 0.1}.floatArray()), ElementsAre(1.0f, 2.0f, 3.0f, 0.1f));
}

TEST(Vector4DeathTest, stopsTheProcessForAListTooShort) {
    const std::vector<CGFloat> three{1, 2, 3};
    EXPECT_DEATH(static_cast<void>(Vector4(three)), "Vector4 from 3 of 4 components");
}

TEST(Vector4Parts, areRead) {
    const Vector4 v{1, 2, 3, 4};
    EXPECT_EQ(v.xy(), (Vector2{1, 2}));
    EXPECT_EQ(v.xz(), (Vector2{1, 3}));
    EXPECT_EQ(v.yz(), (Vector2{2, 3}));
    EXPECT_EQ(v.xyz(), (Vector3{1, 2, 3}));
}

TEST(Vector4Parts, areReplacedWithoutTouchingTheOthers) {
    Vector4 a{1, 2, 3, 4}, b = a, c = a, d = a;
    a.setXY({8, 9});
    b.setXZ({8, 9});
    c.setYZ({8, 9});
    d.setXYZ({7, 8, 9});
    EXPECT_EQ(a, (Vector4{8, 9, 3, 4}));
    EXPECT_EQ(b, (Vector4{8, 2, 9, 4}));
    EXPECT_EQ(c, (Vector4{1, 8, 9, 4}));
    EXPECT_EQ(d, (Vector4{7, 8, 9, 4}));
}

TEST(Vector4, isMeasured) {
    EXPECT_EQ(Vector4(1, 2, 3, 4).lengthSquared(), 30);
    EXPECT_EQ(Vector4(1, 1, 1, 1).length(), 2);
    EXPECT_EQ(Vector4(1, 2, 3, 4).dot({5, -6, 7, 8}), 46);
}

TEST(Vector4Normalized, hasLengthOneUnlessTheSquareIsNearlyZeroOrOne) {
    EXPECT_EQ(Vector4(1, -1, 1, 1).normalized(), (Vector4{0.5, -0.5, 0.5, 0.5}));
    EXPECT_EQ(Vector4::zero.normalized(), Vector4::zero);
    EXPECT_EQ(Vector4(0, 0, 0, 9e-7).normalized(), (Vector4{0, 0, 0, 9e-7}));
    EXPECT_EQ(Vector4(0, 0, 0, 1 - 4e-13).normalized(), (Vector4{0, 0, 0, 1 - 4e-13}));
}

TEST(Vector4, hasInverseAndAbsolute) {
    EXPECT_EQ(Vector4(2, -4, 5, -6).inverse(), (Vector4{-2, 4, -5, 6}));
    EXPECT_EQ(-Vector4(2, -4, 5, -6), (Vector4{-2, 4, -5, 6}));
    EXPECT_EQ(Vector4(2, -4, -5, -6).absolute(), (Vector4{2, 4, 5, 6}));
}

TEST(Vector4, isInterpolatedBeyondTheEndsToo) {
    const Vector4 a{1, 10, 0, 0}, b{3, 20, -4, 1};
    EXPECT_EQ(a.interpolated(b, 0.5), (Vector4{2, 15, -2, 0.5}));
    EXPECT_EQ(a.interpolated(b, 2), (Vector4{5, 30, -8, 2}));
}

TEST(Vector4ToReal, dividesByW) {
    EXPECT_EQ(Vector4(2, 4, 6, 2).toReal(), (Vector4{1, 2, 3, 1}));
    EXPECT_EQ(Vector4(2, 4, 6, -0.5).toReal(), (Vector4{-4, -8, -12, 1}));
}

TEST(Vector4ToReal, leavesADirectionAndARealPlaceAlone) {
    EXPECT_EQ(Vector4(2, 4, 6, 0).toReal(), (Vector4{2, 4, 6, 0}));
    EXPECT_EQ(Vector4(2, 4, 6, 1).toReal(), (Vector4{2, 4, 6, 1}));
}

TEST(Vector4Finite, asksEveryComponent) {
    EXPECT_TRUE(Vector4(1, -2, 3, 4).isFinite());
    EXPECT_FALSE(Vector4(infinity, 0, 0, 0).isFinite());
    EXPECT_FALSE(Vector4(0, 0, nan, 0).isFinite());
    EXPECT_FALSE(Vector4(0, 0, 0, -infinity).isFinite());
}

TEST(Vector4SafeVector, replacesTinyComponentsAndRepairsTheRest) {
    EXPECT_EQ(Vector4(-1e-9, 0, 2, 1e-8).safeVector(), (Vector4{1e-7, 1e-7, 2, 1e-7}));
    EXPECT_EQ(Vector4(nan, infinity, -infinity, -1e-7).safeVector(),
              (Vector4{0, 1.7976931348623157e308, 2.2250738585072014e-308, -1e-7}));
}

TEST(Vector4Operators, workByComponent) {
    const Vector4 a{12, 20, 30, 42}, b{3, 4, 5, 6};
    EXPECT_EQ(a + b, (Vector4{15, 24, 35, 48}));
    EXPECT_EQ(a - b, (Vector4{9, 16, 25, 36}));
    EXPECT_EQ(a * b, (Vector4{36, 80, 150, 252}));
    EXPECT_EQ(a / b, (Vector4{4, 5, 6, 7}));
    EXPECT_EQ(a * 2, (Vector4{24, 40, 60, 84}));
    EXPECT_EQ(a / 2, (Vector4{6, 10, 15, 21}));
}

TEST(Vector4Equality, isExactOrTolerant) {
    EXPECT_FALSE(Vector4(0, 0, 0, 1e-300) == Vector4::zero);
    EXPECT_TRUE(isNearlyEqual(Vector4{9e-13, -9e-13, 9e-13, -9e-13}, Vector4::zero));
    EXPECT_FALSE(isNearlyEqual(Vector4{1e-12, 0, 0, 0}, Vector4::zero));
    EXPECT_FALSE(isNearlyEqual(Vector4{0, 0, 0, 1e-12}, Vector4::zero));
}

TEST(Vector4Hash, agreesWithEqualityAndCountsTheOrder) {
    const std::hash<Vector4> hash;
    EXPECT_EQ(hash({0, 1, 2, 3}), hash({-0.0, 1, 2, 3}));
    EXPECT_NE(hash({1, 2, 3, 4}), hash({4, 3, 2, 1}));
}

TEST(Vector4Record, hasTheComponentsUnderTheirNamesAndRequiresThem) {
    const Vector4 v{1.5, -2, 1e-300, 4};
    const test::MemoryRecord record = test::recordOf(v);
    EXPECT_THAT(record.keys(), ElementsAre("x", "y", "z", "w"));
    EXPECT_EQ(test::decoded<Vector4>(record), v);
    for (const char* key : {"x", "y", "z", "w"}) {
        test::MemoryRecord damaged = record;
        damaged.remove(key);
        EXPECT_THROW(test::decoded<Vector4>(damaged), DecodingError) << key;
    }
}

}  // namespace
}  // namespace quorin
