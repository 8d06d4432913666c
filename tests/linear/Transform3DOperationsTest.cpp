#include "quorin/linear/Transform3DOperations.h"

#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <numbers>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

constexpr CATransform3D odd{2, 3, 5, 7, 11, 13, 17, 19, 23, 29, 31, 37, 41, 43, 47, 53};

CGFloat anyAngle() { return *rc::gen::inRange(-10000, 10001) / 1000.0; }

CATransform3D anyTransform() {
    std::array<CGFloat, 16> fields{};
    for (CGFloat& field : fields)
        field = *rc::gen::inRange(-1000, 1001) / 7.0;
    return std::bit_cast<CATransform3D>(fields);
}

TEST(Transform3DOperations, rotateAboutTheGivenAxis) {
    EXPECT_EQ(rotate(odd, 0.5, 1, -2, 3), CATransform3DRotate(odd, 0.5, 1, -2, 3));
    EXPECT_EQ(rotate(odd, 0.5, 0, 0, 0), odd);
}

TEST(Transform3DOperations, rotateByThreeAnglesZFirst) {
    // A quarter turn about z takes x to y, the one about x takes that to z.
    const CGFloat quarter = std::numbers::pi / 2;
    const CATransform3D turned = rotate(CATransform3D::identity, Vector3{quarter, 0, quarter});
    EXPECT_NEAR(turned.m11, 0, 1e-15);
    EXPECT_NEAR(turned.m12, 0, 1e-15);
    EXPECT_NEAR(turned.m13, 1, 1e-15);
}

RC_GTEST_PROP(Transform3DOperations, rotateByThreeAnglesAsTheMatrixDoes, ()) {
    const CATransform3D transform = anyTransform();
    const Vector3 angles{anyAngle(), anyAngle(), anyAngle()};
    RC_ASSERT(Matrix4(rotate(transform, angles)) == Matrix4(transform).rotate(angles));
}

// Rodrigues: v·cos a + (k × v)·sin a + k·(k · v)·(1 − cos a) for the unit axis k.
RC_GTEST_PROP(Transform3DOperations, rotateAPlaceRoundItsAxis, ()) {
    const CGFloat angle = anyAngle();
    const Vector3 axis{anyAngle(), anyAngle(), anyAngle()},
        place{anyAngle(), anyAngle(), anyAngle()};
    RC_PRE(axis.length() > 0.1);
    const Vector3 k = axis / axis.length();
    const Vector3 expected = place * std::cos(angle) + k.cross(place) * std::sin(angle) +
                             k * (k.dot(place) * (1 - std::cos(angle)));

    const CATransform3D turn = rotate(CATransform3D::identity, angle, axis.x, axis.y, axis.z);
    const Vector3 actual = Matrix4(turn) * place;
    RC_ASSERT(actual.isGeometricallyEqual(expected, 1e-13));
}

TEST(Transform3DOperations, scaleByAVectorOrThreeNumbers) {
    const CATransform3D expected{4, 6, 10, 14, 33, 39, 51, 57, 92, 116, 124, 148, 41, 43, 47, 53};
    EXPECT_EQ(scale(odd, Vector3{2, 3, 4}), expected);
    EXPECT_EQ(scale(odd, 2, 3, 4), expected);
}

TEST(Transform3DOperations, translateByAVectorOrThreeNumbers) {
    CATransform3D expected = odd;
    expected.m41 += 10 * 2 + 20 * 11 + 30 * 23;
    expected.m42 += 10 * 3 + 20 * 13 + 30 * 29;
    expected.m43 += 10 * 5 + 20 * 17 + 30 * 31;
    expected.m44 += 10 * 7 + 20 * 19 + 30 * 37;
    EXPECT_EQ(translate(odd, Vector3{10, 20, 30}), expected);
    EXPECT_EQ(translate(odd, 10, 20, 30), expected);
}

TEST(Transform3DOperations, translateByAPointWithinThePlane) {
    EXPECT_EQ(translate(odd, CGPoint{10, 20}), translate(odd, 10, 20, 0));
}

RC_GTEST_PROP(Transform3DOperations, scaleAndTranslateAsTheMatrixDoes, ()) {
    const CATransform3D transform = anyTransform();
    const Vector3 v{anyAngle(), anyAngle(), anyAngle()};
    RC_ASSERT(Matrix4(scale(transform, v)) == Matrix4(transform).scale(v));
    RC_ASSERT(Matrix4(translate(transform, v)) == Matrix4(transform).translate(v));
}

TEST(Transform3DOperations, knowTheIdentityExactlyAndNearly) {
    EXPECT_TRUE(isIdentity(CATransform3D::identity));
    EXPECT_TRUE(isNearlyIdentity(CATransform3D::identity));

    for (std::size_t i = 0; i < 16; ++i) {
        auto fields = std::bit_cast<std::array<CGFloat, 16>>(CATransform3D::identity);
        fields[i] += 5e-13;
        EXPECT_FALSE(isIdentity(std::bit_cast<CATransform3D>(fields)));
        EXPECT_TRUE(isNearlyIdentity(std::bit_cast<CATransform3D>(fields)));
        fields[i] += 1e-12;
        EXPECT_FALSE(isNearlyIdentity(std::bit_cast<CATransform3D>(fields)));
    }
}

TEST(Transform3DOperations, showTheAffinePartWithinThePlane) {
    EXPECT_EQ(affineTransform(odd), (CGAffineTransform{2, 3, 11, 13, 41, 43}));
}

}  // namespace
}  // namespace quorin
