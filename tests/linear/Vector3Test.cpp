#include "quorin/linear/Vector3.h"

#include <cstdio>
#include <limits>
#include <numbers>
#include <vector>

#include "quorin/linear/Vector4.h"
#include "tests/TestSupport.h"
#include "tests/support/MemoryRecord.h"

namespace quorin {
namespace {

using testing::ElementsAre;

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();
constexpr CGFloat greatest = 1.7976931348623157e308;
constexpr CGFloat least = 2.2250738585072014e-308;
constexpr CGFloat pi = std::numbers::pi;

rc::Gen<Vector3> wholeVector() {
    const auto component = rc::gen::inRange(-1000, 1001);  // small enough to stay exact
    return rc::gen::map(rc::gen::tuple(component, component, component), [](const auto& xyz) {
        return Vector3(std::get<0>(xyz), std::get<1>(xyz), std::get<2>(xyz));
    });
}

TEST(Vector3, isZeroAtFirst) { EXPECT_EQ(Vector3(), (Vector3{0, 0, 0})); }

TEST(Vector3, hasItsConstants) {
    EXPECT_EQ(Vector3::zero, (Vector3{0, 0, 0}));
    EXPECT_EQ(Vector3::unit, (Vector3{1, 1, 1}));
    EXPECT_EQ(Vector3::unitX, (Vector3{1, 0, 0}));
    EXPECT_EQ(Vector3::unitY, (Vector3{0, 1, 0}));
    EXPECT_EQ(Vector3::unitZ, (Vector3{0, 0, 1}));
}

TEST(Vector3, takesAPointFlatAndASizeAsAScale) {
    EXPECT_EQ(Vector3(CGPoint{2, 3}), (Vector3{2, 3, 0}));
    EXPECT_EQ(Vector3(CGSize{2, 3}), (Vector3{2, 3, 1}));
}

TEST(Vector3, dropsTheFourthComponent) {
    EXPECT_EQ(Vector3(Vector4{1, 2, 3, 4}), (Vector3{1, 2, 3}));
}

TEST(Vector3, isMadeFromTheFirstThreeElementsOfAList) {
    const std::vector<CGFloat> longer{1, 2, 3, 4};
    const std::vector<float> single{1.5f, 2.5f, 3.5f};
    EXPECT_EQ(Vector3(longer), (Vector3{1, 2, 3}));
    EXPECT_EQ(Vector3(single), (Vector3{1.5, 2.5, 3.5}));
    EXPECT_THAT((Vector3{1, 2, 0.1}.array()), ElementsAre(1, 2, 0.1));
    EXPECT_THAT((Vector3{1, 2, 0.1}.floatArray()), ElementsAre(1.0f, 2.0f, 0.1f));
}

TEST(Vector3DeathTest, stopsTheProcessForAListTooShort) {
    const std::vector<CGFloat> two{1, 2};
    EXPECT_DEATH(static_cast<void>(Vector3(two)), "Vector3 from 2 of 3 components");
}

TEST(Vector3Pairs, areRead) {
    const Vector3 v{1, 2, 3};
    EXPECT_EQ(v.xy(), (Vector2{1, 2}));
    EXPECT_EQ(v.xz(), (Vector2{1, 3}));
    EXPECT_EQ(v.yz(), (Vector2{2, 3}));
}

TEST(Vector3Pairs, areReplacedWithoutTouchingTheThird) {
    Vector3 a{1, 2, 3}, b = a, c = a;
    a.setXY({8, 9});
    b.setXZ({8, 9});
    c.setYZ({8, 9});
    EXPECT_EQ(a, (Vector3{8, 9, 3}));
    EXPECT_EQ(b, (Vector3{8, 2, 9}));
    EXPECT_EQ(c, (Vector3{1, 8, 9}));
}

TEST(Vector3, isMeasured) {
    const Vector3 a{1, 2, 3}, b{4, -5, 6};
    EXPECT_EQ(a.lengthSquared(), 14);
    EXPECT_EQ(Vector3(2, 3, 6).length(), 7);
    EXPECT_EQ(a.dot(b), 12);
    EXPECT_EQ(a.cross(b), (Vector3{27, 6, -13}));
    EXPECT_EQ(Vector3::unitX.cross(Vector3::unitY), Vector3::unitZ);
}

RC_GTEST_PROP(Vector3Cross, standsAtRightAnglesOnBothAndTurnsWithTheirOrder, ()) {
    const Vector3 a = *wholeVector(), b = *wholeVector();
    RC_ASSERT(a.cross(b).dot(a) == 0);
    RC_ASSERT(a.cross(b).dot(b) == 0);
    RC_ASSERT(a.cross(b) == -b.cross(a));
    RC_ASSERT(a.cross(b).lengthSquared() ==
              a.lengthSquared() * b.lengthSquared() - a.dot(b) * a.dot(b));
}

TEST(Vector3Normalized, hasLengthOneUnlessTheSquareIsNearlyZeroOrOne) {
    EXPECT_EQ(Vector3(0, -4, 3).normalized(), (Vector3{0, -0.8, 0.6}));
    EXPECT_EQ(Vector3::zero.normalized(), Vector3::zero);
    EXPECT_EQ(Vector3(0, 0, 9e-7).normalized(), (Vector3{0, 0, 9e-7}));
    EXPECT_EQ(Vector3(0, 0, 1 + 4e-13).normalized(), (Vector3{0, 0, 1 + 4e-13}));
}

TEST(Vector3, hasInverseAndAbsolute) {
    EXPECT_EQ(Vector3(2, -4, 5).inverse(), (Vector3{-2, 4, -5}));
    EXPECT_EQ(-Vector3(2, -4, 5), (Vector3{-2, 4, -5}));
    EXPECT_EQ(Vector3(2, -4, -5).absolute(), (Vector3{2, 4, 5}));
}

TEST(Vector3, isInterpolatedBeyondTheEndsToo) {
    const Vector3 a{1, 10, 0}, b{3, 20, -4};
    EXPECT_EQ(a.interpolated(b, 0.5), (Vector3{2, 15, -2}));
    EXPECT_EQ(a.interpolated(b, 2), (Vector3{5, 30, -8}));
}

TEST(Vector3Clamped, keepsEachComponentInItsBounds) {
    EXPECT_EQ(Vector3(-5, 0.5, 5).clamped({0, 0, 0}, {1, 2, 3}), (Vector3{0, 0.5, 3}));
    EXPECT_EQ(Vector3(-5, 0.5, 5).clamped(0, 1), (Vector3{0, 0.5, 1}));
    EXPECT_EQ(Vector3(-infinity, 1, infinity).clamped(-2, 2), (Vector3{-2, 1, 2}));
}

TEST(Vector3Clamped, turnsNaNIntoTheLowerBound) {
    EXPECT_EQ(Vector3(nan, nan, 2).clamped({1, -7, 0}, {5, 5, 5}), (Vector3{1, -7, 2}));
}

TEST(Vector3Clamped, prefersTheLowerOfCrossedBounds) {
    EXPECT_EQ(Vector3(0, 5, 9).clamped(6, 3), (Vector3{6, 6, 6}));
}

TEST(Vector3Finite, asksEveryComponent) {
    EXPECT_TRUE(Vector3(1, -2, greatest).isFinite());
    EXPECT_FALSE(Vector3(infinity, 0, 0).isFinite());
    EXPECT_FALSE(Vector3(0, nan, 0).isFinite());
    EXPECT_FALSE(Vector3(0, 0, -infinity).isFinite());
}

TEST(Vector3Finite, repairsInACopy) {
    const Vector3 broken{-infinity, infinity, nan};
    EXPECT_EQ(broken.finite(), (Vector3{least, greatest, 0}));
    EXPECT_FALSE(broken.isFinite());
}

TEST(Vector3SafeVector, replacesTinyComponentsByAPositiveOne) {
    EXPECT_EQ(Vector3(-1e-9, 0, 2).safeVector(), (Vector3{1e-7, 1e-7, 2}));
    EXPECT_EQ(Vector3(-1e-7, 9.9e-8, -3).safeVector(), (Vector3{-1e-7, 1e-7, -3}));
}

TEST(Vector3SafeVector, repairsWhatIsNotFiniteAfterwards) {
    EXPECT_EQ(Vector3(nan, infinity, -infinity).safeVector(), (Vector3{0, greatest, least}));
}

TEST(Vector3Scale, isUnitExactlyOrNearly) {
    EXPECT_TRUE(Vector3::unit.isUnit());
    EXPECT_FALSE(Vector3(1, 1, 1 + 1e-15).isUnit());
    EXPECT_TRUE(Vector3(1 + 9e-13, 1, 1 - 9e-13).isNearlyUnit());
    EXPECT_FALSE(Vector3(1 + 1.1e-12, 1, 1).isNearlyUnit());
    EXPECT_FALSE(Vector3(1, 1 - 1.1e-12, 1).isNearlyUnit());
    EXPECT_FALSE(Vector3(1, 1, 1 + 1.1e-12).isNearlyUnit());
}

TEST(Vector3Angles, areZeroAtEveryFullTurn) {
    EXPECT_TRUE(Vector3(0, 0, 4 * pi + 1e-13).isZeroAngle());
    EXPECT_TRUE(Vector3(-2 * pi, 2 * pi, -0.0).isZeroAngle());
    EXPECT_TRUE(Vector3(0, 0, 2 * pi - 1e-13).isZeroAngle());
    EXPECT_FALSE(Vector3(pi, 0, 0).isZeroAngle());
    EXPECT_FALSE(Vector3(0, 1.1e-12, 0).isZeroAngle());
    EXPECT_FALSE(Vector3(0, 0, nan).isZeroAngle());
}

TEST(Vector3Angles, leaveThePlaneByXOrY) {
    EXPECT_FALSE(Vector3(1e-13, 2 * pi, 0).is3DTransformed());
    EXPECT_FALSE(Vector3(0, 0, 1).is3DTransformed());
    EXPECT_TRUE(Vector3(0.1, 0, 0).is3DTransformed());
    EXPECT_TRUE(Vector3(0, pi, 0).is3DTransformed());
}

TEST(Vector3Angles, areRightAtEveryQuarterTurnInThePlane) {
    EXPECT_TRUE(Vector3(0, 0, 3 * pi / 2).isRightAngle());
    EXPECT_TRUE(Vector3(2 * pi, 0, -pi / 2).isRightAngle());
    EXPECT_TRUE(Vector3(0, 0, 0).isRightAngle());
    EXPECT_FALSE(Vector3(0, 0, pi / 4).isRightAngle());
    EXPECT_FALSE(Vector3(pi / 2, 0, pi / 2).isRightAngle());
    EXPECT_FALSE(Vector3(0, pi / 2, pi / 2).isRightAngle());
}

TEST(Vector3GeometricEquality, isStrictlyWithinTheTolerance) {
    const Vector3 v{1, 2, 3};
    EXPECT_TRUE(v.isGeometricallyEqual(Vector3{1.25, 1.75, 3.25}, 0.5));
    EXPECT_FALSE(v.isGeometricallyEqual(Vector3{1.5, 2, 3}, 0.5));
    EXPECT_FALSE(v.isGeometricallyEqual(Vector3{1, 1.5, 3}, 0.5));
    EXPECT_FALSE(v.isGeometricallyEqual(Vector3{1, 2, 3.5}, 0.5));
}

TEST(Vector3GeometricEquality, failsForAnotherType) {
    EXPECT_FALSE(Vector3(1, 2, 0).isGeometricallyEqual(CGPoint{1, 2}, 10));
    EXPECT_FALSE(Vector3(1, 2, 0).isGeometricallyEqual(Vector2{1, 2}, 10));
    EXPECT_FALSE(isGeometricallyEqual(CGPoint{1, 2}, Vector3{1, 2, 0}, 10));
}

TEST(Vector3MakeProportional, takesTheGreaterMagnitudeWithItsSign) {
    struct Row {
        Vector3 before, after;
    };
    const Row table[] = {
        {{-3, 2, 5}, {-3, -3, 5}},
        {{2, -3, 5}, {-3, -3, 5}},
        {{2, -2, 7}, {2, 2, 7}},
        {{-2, 2, 7}, {-2, -2, 7}},
    };
    for (const Row& row : table) {
        Vector3 v = row.before;
        v.makeProportional();
        EXPECT_EQ(v, row.after) << row.before.description();
    }
}

TEST(Vector3Resize, turnsADragOfEachHandleIntoAChangeOfSize) {
    struct Row {
        RectCorner corner;
        Vector3 change;
    };
    const Row table[] = {
        {RectCorner::topLeft, {-2, -3, -4}},  {RectCorner::topRight, {2, -3, 4}},
        {RectCorner::bottomRight, {2, 3, 4}}, {RectCorner::bottomLeft, {-2, 3, 4}},
        {RectCorner::top, {0, -3, 4}},        {RectCorner::right, {2, 0, 4}},
        {RectCorner::bottom, {0, 3, 4}},      {RectCorner::left, {-2, 0, 4}},
    };
    for (const Row& row : table)
        EXPECT_EQ(Vector3(2, 3, 4).resizeVectorWithRectCorner(row.corner), row.change)
            << static_cast<int>(row.corner);
}

TEST(Vector3Description, hasThreeDecimals) {
    EXPECT_EQ(Vector3(1, -2.5, 1234.56789).description(), "Vector3(  1.000, -2.500,  1234.568)");
    EXPECT_EQ(Vector3(-1, 2.5, 0).description(), "Vector3( -1.000,  2.500,  0.000)");
}

TEST(Vector3Description, isThatOfTheCFormat) {
    char expected[80];
    std::snprintf(expected, sizeof expected, "Vector3( % 4.3lf, % 4.3lf, % 4.3lf)", 0.5, -7.25,
                  1e6);
    EXPECT_EQ(Vector3(0.5, -7.25, 1e6).description(), expected);
}

TEST(Vector3Operators, workByComponent) {
    const Vector3 a{12, 20, 30}, b{3, 4, 5};
    EXPECT_EQ(a + b, (Vector3{15, 24, 35}));
    EXPECT_EQ(a - b, (Vector3{9, 16, 25}));
    EXPECT_EQ(a * b, (Vector3{36, 80, 150}));
    EXPECT_EQ(a / b, (Vector3{4, 5, 6}));
    EXPECT_EQ(a * 2, (Vector3{24, 40, 60}));
    EXPECT_EQ(a / 2, (Vector3{6, 10, 15}));
}

TEST(Vector3Operators, haveTheirCompoundForms) {
    Vector3 v{12, 20, 30};
    const Vector3 b{3, 4, 5};
    EXPECT_EQ(&(v += b), &v);
    EXPECT_EQ(v, (Vector3{15, 24, 35}));
    v -= b;
    EXPECT_EQ(v, (Vector3{12, 20, 30}));
    v *= b;
    EXPECT_EQ(v, (Vector3{36, 80, 150}));
    v /= b;
    EXPECT_EQ(v, (Vector3{12, 20, 30}));
}

TEST(Vector3Equality, isExactOrTolerant) {
    EXPECT_FALSE(Vector3(0, 0, 1e-300) == Vector3::zero);
    EXPECT_TRUE(isNearlyEqual(Vector3{9e-13, -9e-13, 9e-13}, Vector3::zero));
    EXPECT_FALSE(isNearlyEqual(Vector3{1e-12, 0, 0}, Vector3::zero));
    EXPECT_FALSE(isNearlyEqual(Vector3{0, 1e-12, 0}, Vector3::zero));
    EXPECT_FALSE(isNearlyEqual(Vector3{0, 0, 1e-12}, Vector3::zero));
}

TEST(Vector3Hash, agreesWithEqualityAndCountsTheOrder) {
    const std::hash<Vector3> hash;
    EXPECT_EQ(hash({0, 1, 2}), hash({-0.0, 1, 2}));
    EXPECT_NE(hash({1, 2, 3}), hash({3, 2, 1}));
}

TEST(Vector3Record, hasTheComponentsUnderTheirNamesAndRequiresThem) {
    const Vector3 v{1.5, -2, 1e-300};
    const test::MemoryRecord record = test::recordOf(v);
    EXPECT_THAT(record.keys(), ElementsAre("x", "y", "z"));
    EXPECT_EQ(test::decoded<Vector3>(record), v);
    for (const char* key : {"x", "y", "z"}) {
        test::MemoryRecord damaged = record;
        damaged.remove(key);
        EXPECT_THROW(test::decoded<Vector3>(damaged), DecodingError) << key;
    }
}

}  // namespace
}  // namespace quorin
