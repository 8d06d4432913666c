#include "quorin/platform/values/CATransform3D.h"

#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <numbers>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using ::testing::DoubleNear;
using ::testing::ElementsAre;

constexpr CGFloat pi = std::numbers::pi;
constexpr CATransform3D odd{2, 3, 5, 7, 11, 13, 17, 19, 23, 29, 31, 37, 41, 43, 47, 53};

// The row vector (x, y, z, 1) times the matrix.
std::array<CGFloat, 4> applied(const CATransform3D& t, CGFloat x, CGFloat y, CGFloat z) {
    return {x * t.m11 + y * t.m21 + z * t.m31 + t.m41, x * t.m12 + y * t.m22 + z * t.m32 + t.m42,
            x * t.m13 + y * t.m23 + z * t.m33 + t.m43, x * t.m14 + y * t.m24 + z * t.m34 + t.m44};
}

void expectPlace(const std::array<CGFloat, 4>& actual, CGFloat x, CGFloat y, CGFloat z) {
    const auto near = [](CGFloat expected) { return DoubleNear(expected, 1e-15); };
    EXPECT_THAT(actual, ElementsAre(near(x), near(y), near(z), near(1)));
}

rc::Gen<CATransform3D> wholeTransform() {
    // Products of two such numbers, and sums of a few, stay exact.
    return rc::gen::map(rc::gen::container<std::array<int, 16>>(rc::gen::inRange(-1000, 1001)),
                        [](const std::array<int, 16>& numbers) {
                            std::array<CGFloat, 16> fields{};
                            std::copy(numbers.begin(), numbers.end(), fields.begin());
                            return std::bit_cast<CATransform3D>(fields);
                        });
}

TEST(CATransform3D, isTheIdentityAtFirst) {
    EXPECT_EQ(CATransform3D(), (CATransform3D{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}));
    EXPECT_EQ(CATransform3D(), CATransform3D::identity);
}

TEST(CATransform3D, keepsItsFieldsRowAfterRow) {
    EXPECT_EQ(odd.m14, 7);
    EXPECT_EQ(odd.m21, 11);
    EXPECT_EQ(odd.m34, 37);
    EXPECT_EQ(odd.m43, 47);
}

TEST(CATransform3D, onlyTheExactIdentityIsTheIdentity) {
    EXPECT_TRUE(CATransform3DIsIdentity(CATransform3D()));
    CATransform3D withNegativeZero;
    withNegativeZero.m12 = -0.0;
    EXPECT_TRUE(CATransform3DIsIdentity(withNegativeZero));
    for (std::size_t i = 0; i < 16; ++i) {
        auto fields = std::bit_cast<std::array<CGFloat, 16>>(CATransform3D::identity);
        fields[i] = std::nextafter(fields[i], 2);
        EXPECT_FALSE(CATransform3DIsIdentity(std::bit_cast<CATransform3D>(fields))) << i;
    }
}

TEST(CATransform3D, movesAndScalesAPlace) {
    expectPlace(applied(CATransform3DMakeTranslation(10, 20, 30), 1, 2, 3), 11, 22, 33);
    expectPlace(applied(CATransform3DMakeScale(2, 3, -4), 1, 2, 3), 2, 6, -12);
}

TEST(CATransform3D, rotatesEachAxisTowardsTheNext) {
    const CGFloat quarter = pi / 2;
    expectPlace(applied(CATransform3DMakeRotation(quarter, 1, 0, 0), 0, 1, 0), 0, 0, 1);
    expectPlace(applied(CATransform3DMakeRotation(quarter, 0, 1, 0), 0, 0, 1), 1, 0, 0);
    expectPlace(applied(CATransform3DMakeRotation(quarter, 0, 0, 1), 1, 0, 0), 0, 1, 0);
}

TEST(CATransform3D, aThirdOfATurnAboutTheDiagonalExchangesTheAxes) {
    const CATransform3D third = CATransform3DMakeRotation(2 * pi / 3, 1, 1, 1);
    expectPlace(applied(third, 1, 0, 0), 0, 1, 0);
    expectPlace(applied(third, 0, 1, 0), 0, 0, 1);
    expectPlace(applied(third, 0, 0, 1), 1, 0, 0);
}

TEST(CATransform3D, takesAnAxisOfAnyLengthForADirection) {
    const CATransform3D expected = CATransform3DMakeRotation(0.75, 0, 0, 1);
    for (const CGFloat length : {1e-300, 1e-160, 0.5, 3.0, 1e200, 1e300}) {
        EXPECT_EQ(CATransform3DMakeRotation(0.75, 0, 0, length), expected) << length;
        EXPECT_EQ(CATransform3DMakeRotation(-0.75, 0, 0, -length), expected) << length;
    }
}

TEST(CATransform3D, aZeroAxisLeavesItAsItIs) {
    EXPECT_EQ(CATransform3DMakeRotation(1, 0, -0.0, 0), CATransform3D::identity);
    EXPECT_EQ(CATransform3DRotate(odd, 1, 0, 0, 0), odd);
    CATransform3D infinite;
    infinite.m41 = std::numeric_limits<CGFloat>::infinity();  // times zero it would become NaN
    EXPECT_EQ(CATransform3DRotate(infinite, 1, 0, 0, 0), infinite);
}

TEST(CATransform3D, turnsAboutACoordinateAxisLeaveExactlyTheFieldsOfThePlane) {
    for (CGFloat angle = -7; angle < 7; angle += 0.37) {
        const CGFloat s = std::sin(angle), c = std::cos(angle);
        EXPECT_EQ(CATransform3DMakeRotation(angle, 1, 0, 0),
                  (CATransform3D{1, 0, 0, 0, 0, c, s, 0, 0, -s, c, 0, 0, 0, 0, 1}));
        EXPECT_EQ(CATransform3DMakeRotation(angle, 0, 1, 0),
                  (CATransform3D{c, 0, -s, 0, 0, 1, 0, 0, s, 0, c, 0, 0, 0, 0, 1}));
        EXPECT_EQ(CATransform3DMakeRotation(angle, 0, 0, 1),
                  (CATransform3D{c, s, 0, 0, -s, c, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}));
    }
}

TEST(CATransform3D, doesTheAddedPartFirst) {
    const CATransform3D move = CATransform3DMakeTranslation(10, 20, 30);
    const CATransform3D scale = CATransform3DMakeScale(2, 3, 4);
    expectPlace(applied(CATransform3DScale(move, 2, 3, 4), 1, 1, 1), 12, 23, 34);
    expectPlace(applied(CATransform3DTranslate(scale, 10, 20, 30), 1, 1, 1), 22, 63, 124);
    expectPlace(applied(CATransform3DRotate(move, pi / 2, 0, 0, 1), 1, 0, 0), 10, 21, 30);
}

TEST(CATransform3D, concatenationAppliesTheFirstFirst) {
    const CATransform3D move = CATransform3DMakeTranslation(10, 20, 30);
    const CATransform3D scale = CATransform3DMakeScale(2, 3, 4);
    expectPlace(applied(CATransform3DConcat(scale, move), 1, 1, 1), 12, 23, 34);
    expectPlace(applied(CATransform3DConcat(move, scale), 1, 1, 1), 22, 63, 124);
}

TEST(CATransform3D, takesAnAffineTransformIntoThePlaneAndBack) {
    const CGAffineTransform affine{2, 3, 5, 7, 11, 13};
    const CATransform3D spatial = CATransform3DMakeAffineTransform(affine);
    EXPECT_EQ(spatial, (CATransform3D{2, 3, 0, 0, 5, 7, 0, 0, 0, 0, 1, 0, 11, 13, 0, 1}));
    EXPECT_EQ(CATransform3DGetAffineTransform(spatial), affine);
}

TEST(CATransform3D, showsOnlyItsSixPlanarFieldsAsAnAffineTransform) {
    EXPECT_EQ(CATransform3DGetAffineTransform(odd), (CGAffineTransform{2, 3, 11, 13, 41, 43}));
}

TEST(CATransform3D, isAffineOnlyWithoutDepthAndPerspective) {
    EXPECT_TRUE(CATransform3DIsAffine(CATransform3DMakeAffineTransform({2, 3, 5, 7, 11, 13})));
    EXPECT_FALSE(CATransform3DIsAffine(CATransform3DMakeTranslation(0, 0, 1e-9)));
    EXPECT_FALSE(CATransform3DIsAffine(CATransform3DMakeScale(1, 1, 2)));
    CATransform3D perspective;
    perspective.m34 = -0.002;
    EXPECT_FALSE(CATransform3DIsAffine(perspective));
}

RC_GTEST_PROP(CATransform3D, concatenationIsOneAfterTheOther, ()) {
    const CATransform3D first = *wholeTransform(), second = *wholeTransform();
    const auto once = applied(first, 3, 5, 7);
    std::array<CGFloat, 4> expected{};
    const auto rows = std::bit_cast<std::array<std::array<CGFloat, 4>, 4>>(second);
    for (std::size_t row = 0; row < 4; ++row)
        for (std::size_t column = 0; column < 4; ++column)
            expected[column] += once[row] * rows[row][column];
    RC_ASSERT(applied(CATransform3DConcat(first, second), 3, 5, 7) == expected);
}

RC_GTEST_PROP(CATransform3D, scalingAndMovingAreConcatenations, ()) {
    const CATransform3D transform = *wholeTransform();
    const auto number = [] { return static_cast<CGFloat>(*rc::gen::inRange(-1000, 1001)); };
    const CGFloat x = number(), y = number(), z = number();
    RC_ASSERT(CATransform3DScale(transform, x, y, z) ==
              CATransform3DConcat(CATransform3DMakeScale(x, y, z), transform));
    RC_ASSERT(CATransform3DTranslate(transform, x, y, z) ==
              CATransform3DConcat(CATransform3DMakeTranslation(x, y, z), transform));
}

}  // namespace
}  // namespace quorin
