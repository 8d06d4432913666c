#include "quorin/linear/Quaternion.h"

#include <cstdio>
#include <limits>
#include <numbers>

#include "tests/TestSupport.h"
#include "tests/linear/QuaternionTruth.h"
#include "tests/support/MemoryRecord.h"

namespace quorin {
namespace {

using testing::ElementsAre;

constexpr CGFloat pi = std::numbers::pi;

Quaternion aboutZ(CGFloat angle) { return {0, 0, std::sin(angle / 2), std::cos(angle / 2)}; }

TEST(Quaternion, isTheIdentityAtFirst) {
    EXPECT_EQ(Quaternion(), (Quaternion{0, 0, 0, 1}));
    EXPECT_EQ(Quaternion::identity, (Quaternion{0, 0, 0, 1}));
    EXPECT_EQ(Quaternion::zero, (Quaternion{0, 0, 0, 0}));
}

TEST(Quaternion, givesAndTakesItsVectorPart) {
    Quaternion q{1, 2, 3, 4};
    EXPECT_EQ(q.xyz(), (Vector3{1, 2, 3}));
    q.setXYZ({7, 8, 9});
    EXPECT_EQ(q, (Quaternion{7, 8, 9, 4}));
}

TEST(QuaternionWithAxisAngle, halvesTheAngleAndTakesTheAxisAsItIs) {
    const CGFloat s = std::sin(0.4), c = std::cos(0.4);
    EXPECT_EQ(Quaternion::withAxisAngle({0, 1, 0, 0.8}), (Quaternion{0, s, 0, c}));
    EXPECT_EQ(Quaternion::withAxisAngle({2, 0, -3, 0.8}), (Quaternion{2 * s, 0, -3 * s, c}));
}

TEST(QuaternionWithPitchYawRoll, putsEachAngleIntoItsOwnField) {
    const CGFloat s = std::sin(0.4), c = std::cos(0.4);
    EXPECT_EQ(Quaternion::withPitchYawRoll(0, 0, 0), (Quaternion{1, 0, 0, 0}));
    EXPECT_EQ(Quaternion::withPitchYawRoll(0.8, 0, 0), (Quaternion{c, s, 0, 0}));
    EXPECT_EQ(Quaternion::withPitchYawRoll(0, 0.8, 0), (Quaternion{c, 0, s, 0}));
    EXPECT_EQ(Quaternion::withPitchYawRoll(0, 0, 0.8), (Quaternion{c, 0, 0, s}));
}

TEST(QuaternionWithPitchYawRoll, mixesTheThreeAngles) {
    // cos and sin of the halves are 0.8 and 0.6, 0.28 and 0.96, 0.6 and 0.8.
    const Quaternion q = Quaternion::withPitchYawRoll(
        2 * std::atan2(0.6, 0.8), 2 * std::atan2(0.96, 0.28), 2 * std::atan2(0.8, 0.6));
    EXPECT_TRUE(isNearlyEqual(q, Quaternion{-0.3264, 0.7152, 0.5952, -0.1664}));
}

TEST(QuaternionAngles, areThoseAboutASingleAxis) {
    const CGFloat s = std::sin(0.4), c = std::cos(0.4);
    EXPECT_NEAR((Quaternion{s, 0, 0, c}.pitch()), 0.8, 1e-15);
    EXPECT_NEAR((Quaternion{0, s, 0, c}.yaw()), 0.8, 1e-15);
    EXPECT_NEAR((Quaternion{0, 0, s, c}.roll()), 0.8, 1e-15);
    EXPECT_NEAR(aboutZ(3).roll(), 3, 1e-15);
    EXPECT_NEAR(aboutZ(-3).roll(), -3, 1e-15);
}

TEST(QuaternionAngles, mixTheFieldsAsGiven) {
    const Quaternion q{0.1, 0.2, 0.3, 0.4};
    EXPECT_DOUBLE_EQ(q.pitch(), std::atan2(0.2, 0.2));   // 2(0.06 + 0.04), 0.09 + 0.16 - 0.05
    EXPECT_DOUBLE_EQ(q.yaw(), std::asin(0.1));           // -2(0.03 - 0.08)
    EXPECT_DOUBLE_EQ(q.roll(), std::atan2(0.28, 0.04));  // 2(0.02 + 0.12), 0.17 - 0.13
}

TEST(QuaternionAngles, comeInTheOrderPitchYawRoll) {
    const Quaternion q{0.1, 0.2, 0.3, 0.4};
    EXPECT_EQ(q.toPitchYawRoll(), (Vector3{q.pitch(), q.yaw(), q.roll()}));
    EXPECT_EQ(q.rotationVector(), q.toPitchYawRoll());
    EXPECT_THAT(q.toPitchYawRollArray(), ElementsAre(q.pitch(), q.yaw(), q.roll()));
}

TEST(QuaternionAngles, areNoWayBackFromPitchYawRoll) {
    EXPECT_FALSE(isNearlyEqual(Quaternion::withPitchYawRoll(0.8, 0, 0).rotationVector(),
                               Vector3{0.8, 0, 0}));
}

TEST(QuaternionYaw, isNaNBeyondAQuarterTurn) {
    const CGFloat s = std::numbers::sqrt2 / 2;  // rounded up: 2s² is one step above 1
    const Quaternion q{0, s, 0, s};
    EXPECT_TRUE(std::isnan(q.yaw()));
    EXPECT_TRUE(std::isnan(q.rotationVector().y));
    EXPECT_FALSE(std::isnan(q.roll()));
}

TEST(QuaternionToAxisAngle, leadsBackToAxisAndAngle) {
    const Vector4 v = Quaternion::withAxisAngle({0.6, 0, -0.8, 1.25}).toAxisAngle();
    EXPECT_TRUE(isNearlyEqual(v, Vector4{0.6, 0, -0.8, 1.25}));
}

TEST(QuaternionToAxisAngle, isTheZAxisWithoutAVectorPart) {
    EXPECT_EQ(Quaternion::identity.toAxisAngle(), (Vector4{0, 0, 1, 0}));
    EXPECT_EQ(Quaternion::zero.toAxisAngle(), (Vector4{0, 0, 1, 0}));
    EXPECT_EQ((Quaternion{9e-13, 0, 0, 0.5}.toAxisAngle()), (Vector4{0, 0, 1, 0}));
    EXPECT_EQ((Quaternion{0, 2e-12, 0, 1}.toAxisAngle()), (Vector4{0, 1, 0, 0}));
}

TEST(QuaternionToAxisAngle, isTheZAxisForAVectorPartAsLongAsAFullTurn) {
    EXPECT_EQ((Quaternion{2 * pi, 0, 0, 0.5}.toAxisAngle()), (Vector4{0, 0, 1, 0}));
    EXPECT_EQ((Quaternion{0, -2 * pi - 5e-13, 0, 0}.toAxisAngle()), (Vector4{0, 0, 1, 0}));
    EXPECT_EQ((Quaternion{2 * pi + 1e-11, 0, 0, -1}.toAxisAngle()), (Vector4{1, 0, 0, 2 * pi}));
}

TEST(QuaternionToAxisAngle, hasNoAngleForAScalarPartBeyondOne) {
    EXPECT_TRUE(std::isnan(Quaternion(1, 0, 0, 1.5).toAxisAngle().w));
}

TEST(QuaternionRotationMatrix, hasItsElements) {
    EXPECT_EQ(Quaternion(1, 2, 3, 4).rotationMatrix(),
              Matrix4(-25, 28, -10, 0, -20, -19, 20, 0, 22, 4, -9, 0, 0, 0, 0, 1));
}

RC_GTEST_PROP(QuaternionRotationMatrix, rotatesAsTheQuaternionDoes, ()) {
    const Quaternion q = *test::unitQuaternion();
    const Vector3 v = *test::fractionalVector();
    RC_ASSERT(isNearlyEqual(q.rotationMatrix() * v, q * v));
}

TEST(Quaternion, isMeasured) {
    const Quaternion q{1, 2, -4, 2};
    EXPECT_EQ(q.lengthSquared(), 25);
    EXPECT_EQ(q.length(), 5);
    EXPECT_EQ(q.dot({5, 6, 7, 8}), 5);
}

TEST(QuaternionNormalized, hasLengthOneUnlessTheSquareIsNearlyZeroOrOne) {
    EXPECT_EQ(Quaternion(1, -1, 1, 1).normalized(), (Quaternion{0.5, -0.5, 0.5, 0.5}));
    EXPECT_EQ(Quaternion::zero.normalized(), Quaternion::zero);
    EXPECT_EQ(Quaternion(0, 9e-7, 0, 0).normalized(), (Quaternion{0, 9e-7, 0, 0}));
    EXPECT_EQ(Quaternion(0, 2e-6, 0, 0).normalized(), (Quaternion{0, 1, 0, 0}));
    EXPECT_EQ(Quaternion(0, 0, 0, 1 + 4e-13).normalized(), (Quaternion{0, 0, 0, 1 + 4e-13}));
    EXPECT_EQ(Quaternion(0, 0, 0, 1 + 6e-13).normalized(), Quaternion::identity);
}

TEST(QuaternionInverse, isTheConjugateWithoutDivision) {
    EXPECT_EQ(Quaternion(1, 2, 3, 4).inverse(), (Quaternion{-1, -2, -3, 4}));
    EXPECT_EQ(-Quaternion(1, 2, 3, 4), (Quaternion{-1, -2, -3, 4}));
}

TEST(QuaternionOperators, workByField) {
    const Quaternion a{12, 20, 30, 42}, b{3, 4, 5, 6};
    EXPECT_EQ(a + b, (Quaternion{15, 24, 35, 48}));
    EXPECT_EQ(a - b, (Quaternion{9, 16, 25, 36}));
    EXPECT_EQ(a * 2, (Quaternion{24, 40, 60, 84}));
    EXPECT_EQ(a / 2, (Quaternion{6, 10, 15, 21}));
}

TEST(QuaternionProduct, keepsHamiltonsRules) {
    const Quaternion i{1, 0, 0, 0}, j{0, 1, 0, 0}, k{0, 0, 1, 0}, minusOne{0, 0, 0, -1};
    EXPECT_EQ(i * j, k);
    EXPECT_EQ(j * k, i);
    EXPECT_EQ(k * i, j);
    EXPECT_EQ(j * i, (Quaternion{0, 0, -1, 0}));
    for (const Quaternion& unit : {i, j, k, i * j * k * i})
        EXPECT_EQ(unit * unit, minusOne);
    EXPECT_EQ(Quaternion(1, 2, 3, 4) * Quaternion(5, 6, 7, 8), (Quaternion{24, 48, 48, -6}));
}

RC_GTEST_PROP(QuaternionProduct, isThatOfMorePrecision, ()) {
    const auto [a, b] = *rc::gen::pair(test::unitQuaternion(), test::unitQuaternion());
    RC_ASSERT(test::difference(a * b, test::product(test::wide(a), test::wide(b))) < 1e-15L);
}

RC_GTEST_PROP(QuaternionProduct, rotatesByTheRightOneFirst, ()) {
    const auto [a, b] = *rc::gen::pair(test::unitQuaternion(), test::unitQuaternion());
    const Vector3 v = *test::fractionalVector();
    RC_ASSERT(isNearlyEqual((a * b) * v, a * (b * v)));
    RC_ASSERT(isNearlyEqual((a * b).rotationMatrix(), a.rotationMatrix() * b.rotationMatrix()));
}

TEST(QuaternionTimesVector, isTheSameInBothOrders) {
    EXPECT_TRUE(isNearlyEqual(aboutZ(pi / 2) * Vector3{1, 0, 5}, Vector3{0, 1, 5}));
    const Quaternion q{1, 2, 3, 4};
    const Vector3 v{5, -6, 7};
    EXPECT_EQ(v * q, q * v);
}

TEST(QuaternionTimesVector, takesTheQuaternionAsItIs) {
    // u = (0, 0, 1), t = u × v = (0, 1, 0): v + 2·2·t + 2·(u × t)
    EXPECT_EQ(Quaternion(0, 0, 1, 2) * (Vector3{1, 0, 0}), (Vector3{-1, 4, 0}));
}

RC_GTEST_PROP(QuaternionTimesVector, isTheSandwichOfProducts, ()) {
    const Quaternion q = *test::unitQuaternion();
    const Vector3 v = *test::fractionalVector();
    const auto sandwich =
        test::product(test::product(test::wide(q), {v.x, v.y, v.z, 0}), {-q.x, -q.y, -q.z, q.w});
    const Vector3 turned = q * v;
    RC_ASSERT(test::difference({turned.x, turned.y, turned.z, 0}, sandwich) < 5e-15L);
}

TEST(QuaternionEquality, isExactOrTolerant) {
    EXPECT_FALSE(Quaternion(0, 0, 0, 1e-300) == Quaternion::zero);
    EXPECT_TRUE(Quaternion(-0.0, 0, 0, 1) == Quaternion::identity);
    EXPECT_TRUE(isNearlyEqual(Quaternion{9e-13, -9e-13, 9e-13, -9e-13}, Quaternion::zero));
    EXPECT_FALSE(isNearlyEqual(Quaternion{1e-12, 0, 0, 0}, Quaternion::zero));
    EXPECT_FALSE(isNearlyEqual(Quaternion{0, 1e-12, 0, 0}, Quaternion::zero));
    EXPECT_FALSE(isNearlyEqual(Quaternion{0, 0, 1e-12, 0}, Quaternion::zero));
    EXPECT_FALSE(isNearlyEqual(Quaternion{0, 0, 0, 1e-12}, Quaternion::zero));
}

TEST(QuaternionHash, agreesWithEqualityAndCountsTheOrder) {
    const std::hash<Quaternion> hash;
    EXPECT_EQ(hash({0, 1, 2, 3}), hash({-0.0, 1, 2, 3}));
    EXPECT_NE(hash({1, 2, 3, 4}), hash({4, 3, 2, 1}));
}

TEST(QuaternionDescription, hasThreeDecimals) {
    EXPECT_EQ(Quaternion(1, -0.5, 0.0625, 12.34567).description(),
              "Quaternion(  1.000, -0.500,  0.062,  12.346)");
}

TEST(QuaternionDescription, isThatOfTheCFormat) {
    char expected[80];
    std::snprintf(expected, sizeof expected, "Quaternion( % 4.3lf, % 4.3lf, % 4.3lf, % 4.3lf)",
                  -0.5, 0.25, -7.125, 1e6);
    EXPECT_EQ(Quaternion(-0.5, 0.25, -7.125, 1e6).description(), expected);
}

TEST(QuaternionRecord, hasTheFieldsUnderTheirNamesAndRequiresThem) {
    const Quaternion q{1.5, -2, 1e-300, 4};
    const test::MemoryRecord record = test::recordOf(q);
    EXPECT_THAT(record.keys(), ElementsAre("x", "y", "z", "w"));
    EXPECT_EQ(test::decoded<Quaternion>(record), q);
    for (const char* key : {"x", "y", "z", "w"}) {
        test::MemoryRecord damaged = record;
        damaged.remove(key);
        EXPECT_THROW(test::decoded<Quaternion>(damaged), DecodingError) << key;
    }
}

}  // namespace
}  // namespace quorin
