#include <cmath>
#include <numbers>

#include "quorin/linear/Quaternion.h"
#include "tests/TestSupport.h"
#include "tests/linear/QuaternionTruth.h"

namespace quorin {
namespace {

constexpr CGFloat pi = std::numbers::pi;

Quaternion aboutZ(CGFloat angle) { return {0, 0, std::sin(angle / 2), std::cos(angle / 2)}; }

TEST(QuaternionInterpolated, startsAndEndsAtTheTwo) {
    const Quaternion a = aboutZ(0.3), b = Quaternion::withAxisAngle({0.6, 0.8, 0, 2});
    EXPECT_TRUE(isNearlyEqual(a.interpolated(b, 0), a));
    EXPECT_TRUE(isNearlyEqual(a.interpolated(b, 1), b));
}

TEST(QuaternionInterpolated, turnsEvenlyAndBeyondTheEnds) {
    const Quaternion a = aboutZ(0.5), b = aboutZ(1.5);
    EXPECT_TRUE(isNearlyEqual(a.interpolated(b, 0.25), aboutZ(0.75)));
    EXPECT_TRUE(isNearlyEqual(a.interpolated(b, 3), aboutZ(3.5)));
    EXPECT_TRUE(isNearlyEqual(a.interpolated(b, -1), aboutZ(-0.5)));
}

TEST(QuaternionInterpolated, takesTheLongerArcBetweenTheQuaternionsAsTheyAre) {
    // A quarter turn back, written as three quarters forward: half way is 3/8 of a turn.
    EXPECT_TRUE(
        isNearlyEqual(Quaternion::identity.interpolated(aboutZ(1.5 * pi), 0.5), aboutZ(0.75 * pi)));
}

TEST(QuaternionInterpolated, passesThroughNearlyZeroToTheNegated) {
    const Quaternion q{0.5, -0.5, 0.5, 0.5}, negated = q * -1;
    for (const CGFloat t : {0.0, 0.25, 0.5, 0.75, 1.0, 1.5})
        EXPECT_TRUE(isNearlyEqual(q.interpolated(negated, t), q * std::cos(pi * t))) << t;
    EXPECT_TRUE(isNearlyEqual(q.interpolated(negated, 0.5), Quaternion::zero));
}

TEST(QuaternionInterpolated, leavesATinyOrthogonalPartAsShortAsItIs) {
    // sin is 5e-7, its square below the limit for normalizing: at t = 0.5 only that is left.
    const Quaternion nearlyNegated{5e-7, 0, 0, -1};
    const Quaternion half = Quaternion::identity.interpolated(nearlyNegated, 0.5);
    EXPECT_NEAR(half.x, 5e-7, 1e-12);
    EXPECT_NEAR(half.length(), 5e-7, 1e-12);
}

/// Far beyond the ends the straight blend stays within a quarter turn, and the arc does not.
TEST(QuaternionInterpolated, blendsStraightWhatIsNearlyTheSame) {
    const CGFloat sine = std::sqrt(2e-13);  // the dot product is 1 - 1e-13
    const Quaternion next{sine, 0, 0, std::sqrt(1 - sine * sine)};
    ASSERT_NEAR(Quaternion::identity.dot(next), 1 - 1e-13, 1e-15);
    const Quaternion far = Quaternion::identity.interpolated(next, 1e7);
    const CGFloat angle = std::atan(sine * 1e7);
    EXPECT_NEAR(far.x, std::sin(angle), 1e-5);
    EXPECT_NEAR(far.w, std::cos(angle), 1e-5);
    EXPECT_NEAR(far.length(), 1, 1e-15);
}

TEST(QuaternionInterpolated, followsTheArcFromADotProductALittleFurtherOff) {
    const CGFloat sine = 2e-6;  // the dot product is 1 - 2e-12
    const Quaternion next{sine, 0, 0, std::sqrt(1 - sine * sine)};
    const Quaternion far = Quaternion::identity.interpolated(next, 1e6);
    EXPECT_NEAR(far.x, std::sin(2), 1e-3);
    EXPECT_NEAR(far.w, std::cos(2), 1e-3);
}

TEST(QuaternionInterpolated, clampsTheDotProductOfLongQuaternions) {
    const Quaternion two{0, 0, 0, 2};
    EXPECT_EQ(two.interpolated({0, 0, 0, 3}, 0.5), Quaternion::identity);
    // Counts as a half turn: a quarter of it leaves cos 45° of the first, and the other's part
    // beside it, -3 + 2, normalized.
    const CGFloat c = std::cos(pi / 4), s = std::sin(pi / 4);
    EXPECT_TRUE(
        isNearlyEqual(two.interpolated({0, 0, 0, -3}, 0.25), Quaternion{0, 0, 0, 2 * c - s}));
}

TEST(QuaternionInterpolated, blendsByAddingAPartOfTheDifference) {
    const Quaternion large{0, 0, 0, 1e16};  // 1 - 1e16 is -1e16
    EXPECT_EQ(large.interpolated(Quaternion::identity, 1), Quaternion::zero);
}

/// The arc by sines of its parts, which needs no orthogonal quaternion.
test::WideQuaternion wideArc(const Quaternion& a, const Quaternion& b, long double t) {
    const test::WideQuaternion from = test::wide(a), to = test::wide(b);
    long double cosine = 0;
    for (std::size_t i = 0; i < 4; ++i)
        cosine += from[i] * to[i];
    const long double angle = std::acos(cosine);
    test::WideQuaternion result{};
    for (std::size_t i = 0; i < 4; ++i)
        result[i] =
            (from[i] * std::sin((1 - t) * angle) + to[i] * std::sin(t * angle)) / std::sin(angle);
    return result;
}

RC_GTEST_PROP(QuaternionInterpolated, isTheArcOfMorePrecision, ()) {
    const auto [a, b] = *rc::gen::pair(test::unitQuaternion(), test::unitQuaternion());
    const CGFloat t = *rc::gen::inRange(-100, 201) / 100.0;
    RC_PRE(std::abs(a.dot(b)) < 0.999);
    RC_ASSERT(test::difference(a.interpolated(b, t), wideArc(a, b, t)) < 1e-13L);
}

}  // namespace
}  // namespace quorin
