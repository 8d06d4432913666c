#include "quorin/linear/Vector2.h"

#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

#include "tests/TestSupport.h"
#include "tests/support/MemoryRecord.h"

namespace quorin {
namespace {

using testing::ElementsAre;

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();
constexpr CGFloat pi = std::numbers::pi;

rc::Gen<Vector2> anyVector() {
    const auto component = rc::gen::map(rc::gen::inRange(-100000, 100001),
                                        [](int thousandths) { return thousandths / 1000.0; });
    return rc::gen::map(rc::gen::pair(component, component),
                        [](const auto& xy) { return Vector2(xy.first, xy.second); });
}

TEST(Vector2, isZeroAtFirst) { EXPECT_EQ(Vector2(), (Vector2{0, 0})); }

TEST(Vector2, hasItsConstants) {
    EXPECT_EQ(Vector2::zero, (Vector2{0, 0}));
    EXPECT_EQ(Vector2::unit, (Vector2{1, 1}));
    EXPECT_EQ(Vector2::unitX, (Vector2{1, 0}));
    EXPECT_EQ(Vector2::unitY, (Vector2{0, 1}));
}

TEST(Vector2, convertsFromAndToThePlatformValues) {
    EXPECT_EQ(Vector2(CGPoint{1, 2}), (Vector2{1, 2}));
    EXPECT_EQ(Vector2(CGSize{1, 2}), (Vector2{1, 2}));
    EXPECT_EQ(Vector2(CGVector{1, 2}), (Vector2{1, 2}));
    const Vector2 vector{3, 4};
    EXPECT_EQ(CGPoint(vector), (CGPoint{3, 4}));
    EXPECT_EQ(CGSize(vector), (CGSize{3, 4}));
    EXPECT_EQ(CGVector(vector), (CGVector{3, 4}));
}

TEST(Vector2, isMadeFromTheFirstTwoElementsOfAList) {
    const std::vector<CGFloat> exact{1, 2};
    const std::vector<CGFloat> longer{1, 2, 3};
    const std::vector<float> single{1.5f, 2.5f, 3.5f};
    EXPECT_EQ(Vector2(exact), (Vector2{1, 2}));
    EXPECT_EQ(Vector2(longer), (Vector2{1, 2}));
    EXPECT_EQ(Vector2(single), (Vector2{1.5, 2.5}));
}

TEST(Vector2, showsItsComponentsAsAnArray) {
    EXPECT_THAT((Vector2{1, 0.1}.array()), ElementsAre(1, 0.1));
    EXPECT_THAT((Vector2{1, 0.1}.floatArray()), ElementsAre(1.0f, 0.1f));
    EXPECT_EQ(Vector2(Vector2{1, 0.1}.array()), (Vector2{1, 0.1}));
}

TEST(Vector2DeathTest, stopsTheProcessForAListTooShort) {
    const std::vector<CGFloat> one{1};
    const std::vector<float> none;
    EXPECT_DEATH(static_cast<void>(Vector2(one)), "Vector2 from 1 of 2 components");
    EXPECT_DEATH(static_cast<void>(Vector2(none)), "Vector2 from 0 of 2 components");
}

TEST(Vector2, isMeasured) {
    const Vector2 a{3, 4}, b{-1, 2};
    EXPECT_EQ(a.lengthSquared(), 25);
    EXPECT_EQ(a.length(), 5);
    EXPECT_EQ(a.dot(b), 5);
    EXPECT_EQ(a.cross(b), 10);
    EXPECT_EQ(b.cross(a), -10);
}

TEST(Vector2Angle, isSignedFromTheReceiverToTheOther) {
    EXPECT_DOUBLE_EQ(Vector2(1, 0).angle({0, 1}), pi / 2);
    EXPECT_DOUBLE_EQ(Vector2(0, 1).angle({1, 0}), -pi / 2);
    EXPECT_DOUBLE_EQ(Vector2(5, 0).angle({3, 3}), pi / 4);
    EXPECT_DOUBLE_EQ(Vector2(0, -2).angle({-7, 0}), -pi / 2);
}

TEST(Vector2Angle, ofIdenticalVectorsIsZeroWithoutFurtherWork) {
    EXPECT_EQ(Vector2(0.1, 0.7).angle({0.1, 0.7}), 0);
    EXPECT_EQ(Vector2(infinity, 1).angle({infinity, 1}), 0);  // normalizing would give NaN
}

TEST(Vector2Angle, ofOppositeVectorsIsPositiveEitherWay) {
    EXPECT_EQ(Vector2(1, 0).angle({-1, 0}), pi);
    EXPECT_EQ(Vector2(-1, 0).angle({1, 0}), pi);
    EXPECT_EQ(Vector2(0, -2).angle({0, 2}), pi);
    EXPECT_EQ(Vector2(0, 2).angle({0, -2}), pi);
}

TEST(Vector2Angle, limitsTheCosineOfVectorsThatAreALittleTooLong) {
    // Both count as of length one. Their dot product, 1 + 8e-13, would make the angle smaller.
    const CGFloat length = 1 + 4e-13;
    EXPECT_DOUBLE_EQ(Vector2(length, 0).angle({length, 1e-7}), std::atan(length * 1e-7));
}

TEST(Vector2Angle, ofAZeroVectorIsZero) {
    EXPECT_EQ(Vector2::zero.angle({3, 4}), 0);
    EXPECT_EQ(Vector2(-3, 4).angle(Vector2::zero), 0);
}

RC_GTEST_PROP(Vector2Angle, turnsTheReceiverOntoTheOther, ()) {
    const Vector2 a = *anyVector(), b = *anyVector();
    RC_PRE(a.length() > 0.01 && b.length() > 0.01);
    const Vector2 turned = a.rotatedBy(a.angle(b)).normalized();
    RC_ASSERT((turned - b.normalized()).length() < 1e-11);
}

RC_GTEST_PROP(Vector2Angle, changesItsSignWithTheDirection, ()) {
    const Vector2 a = *anyVector(), b = *anyVector();
    const CGFloat angle = a.angle(b);
    RC_ASSERT(angle == pi || b.angle(a) == -angle);
}

TEST(Vector2Normalized, hasLengthOne) {
    EXPECT_EQ(Vector2(3, 4).normalized(), (Vector2{0.6, 0.8}));
    EXPECT_EQ(Vector2(0, -1e-5).normalized(), (Vector2{0, -1}));
}

TEST(Vector2Normalized, leavesZeroAndNearlyZeroAlone) {
    EXPECT_EQ(Vector2(0, 0).normalized(), (Vector2{0, 0}));
    EXPECT_EQ(Vector2(9e-7, 0).normalized(), (Vector2{9e-7, 0}));  // squared 8.1e-13
    EXPECT_EQ(Vector2(1.1e-6, 0).normalized(), (Vector2{1, 0}));   // squared 1.21e-12
}

TEST(Vector2Normalized, leavesLengthOneWithinTheToleranceOfItsSquareAlone) {
    EXPECT_EQ(Vector2(1 + 4e-13, 0).normalized(), (Vector2{1 + 4e-13, 0}));
    EXPECT_EQ(Vector2(1 - 4e-13, 0).normalized(), (Vector2{1 - 4e-13, 0}));
    // A length of 1 + 6e-13 has the square 1 + 1.2e-12.
    EXPECT_EQ(Vector2(1 + 6e-13, 0).normalized(), (Vector2{1, 0}));
}

TEST(Vector2, hasItsAdditiveInverse) {
    EXPECT_EQ(Vector2(2, -4).inverse(), (Vector2{-2, 4}));
    EXPECT_EQ(-Vector2(2, -4), (Vector2{-2, 4}));
}

TEST(Vector2, hasAnAbsoluteValue) { EXPECT_EQ(Vector2(-2, 3).absolute(), (Vector2{2, 3})); }

TEST(Vector2, isInterpolatedBeyondTheEndsToo) {
    const Vector2 a{1, 10}, b{3, 20};
    EXPECT_EQ(a.interpolated(b, 0), a);
    EXPECT_EQ(a.interpolated(b, 0.5), (Vector2{2, 15}));
    EXPECT_EQ(a.interpolated(b, 1), b);
    EXPECT_EQ(a.interpolated(b, 2), (Vector2{5, 30}));
    EXPECT_EQ(a.interpolated(b, -1), (Vector2{-1, 0}));
}

TEST(Vector2Projected, keepsThePartAlongTheOther) {
    EXPECT_EQ(Vector2(3, 4).projected({10, 0}), (Vector2{3, 0}));
    EXPECT_EQ(Vector2(3, 4).projected({0, -0.5}), (Vector2{0, 4}));
}

TEST(Vector2Projected, ontoZeroIsZero) {
    EXPECT_EQ(Vector2(3, 4).projected(Vector2::zero), Vector2::zero);
    EXPECT_EQ(Vector2(3, 4).projected({-0.0, 0}), Vector2::zero);
}

RC_GTEST_PROP(Vector2Projected, leavesARestAtRightAngles, ()) {
    const Vector2 a = *anyVector(), b = *anyVector();
    const Vector2 rest = a - a.projected(b);
    RC_ASSERT(std::abs(rest.dot(b)) <= 1e-13 * (1 + a.length() * b.length()));
}

TEST(Vector2Rotated, turnsCounterClockwise) {
    const Vector2 turned = Vector2(2, 1).rotatedBy(pi / 2);
    EXPECT_NEAR(turned.x, -1, 1e-15);
    EXPECT_NEAR(turned.y, 2, 1e-15);
}

TEST(Vector2Rotated, turnsAboutACentre) {
    const Vector2 turned = Vector2(3, 1).rotatedBy(pi, {1, 1});
    EXPECT_NEAR(turned.x, -1, 1e-15);
    EXPECT_NEAR(turned.y, 1, 1e-15);
    EXPECT_EQ(Vector2(1, 1).rotatedBy(1.23, {1, 1}), (Vector2{1, 1}));
}

TEST(Vector2Finite, asksEveryComponent) {
    EXPECT_TRUE(Vector2(1, -2).isFinite());
    EXPECT_FALSE(Vector2(infinity, 0).isFinite());
    EXPECT_FALSE(Vector2(0, nan).isFinite());
}

TEST(Vector2Finite, repairsInPlace) {
    Vector2 a{-infinity, nan}, b{infinity, 5};
    a.formFinite();
    b.formFinite();
    EXPECT_EQ(a, (Vector2{2.2250738585072014e-308, 0}));
    EXPECT_EQ(b, (Vector2{1.7976931348623157e308, 5}));
}

TEST(Vector2Operators, workByComponent) {
    const Vector2 a{12, 20}, b{3, 4};
    EXPECT_EQ(a + b, (Vector2{15, 24}));
    EXPECT_EQ(a - b, (Vector2{9, 16}));
    EXPECT_EQ(a * b, (Vector2{36, 80}));
    EXPECT_EQ(a / b, (Vector2{4, 5}));
    EXPECT_EQ(a * 2, (Vector2{24, 40}));
    EXPECT_EQ(a / 2, (Vector2{6, 10}));
}

TEST(Vector2Equality, isExact) {
    EXPECT_EQ(Vector2(0, 0), Vector2(-0.0, 0));
    EXPECT_FALSE(Vector2(0, 1e-300) == Vector2::zero);
    EXPECT_FALSE(Vector2(nan, 0) == Vector2(nan, 0));
}

TEST(Vector2Equality, canBeTolerant) {
    EXPECT_TRUE(isNearlyEqual(Vector2{9e-13, -9e-13}, Vector2::zero));
    EXPECT_FALSE(isNearlyEqual(Vector2{1e-12, 0}, Vector2::zero));
    EXPECT_FALSE(isNearlyEqual(Vector2{0, 1e-12}, Vector2::zero));
}

TEST(Vector2Hash, agreesWithEqualityAndCountsTheOrder) {
    const std::hash<Vector2> hash;
    EXPECT_EQ(hash({0, 1}), hash({-0.0, 1}));
    EXPECT_NE(hash({1, 2}), hash({2, 1}));
}

TEST(Vector2Record, hasTheComponentsUnderTheirNames) {
    const test::MemoryRecord record = test::recordOf(Vector2{1.5, -2});
    EXPECT_THAT(record.keys(), ElementsAre("x", "y"));
    EXPECT_EQ(test::decoded<Vector2>(record), (Vector2{1.5, -2}));
}

TEST(Vector2Record, requiresEveryKey) {
    for (const char* key : {"x", "y"}) {
        test::MemoryRecord record = test::recordOf(Vector2{1, 2});
        record.remove(key);
        EXPECT_THROW(test::decoded<Vector2>(record), DecodingError) << key;
    }
}

}  // namespace
}  // namespace quorin
