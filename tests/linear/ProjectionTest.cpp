#include <cmath>
#include <numbers>

#include "quorin/linear/Matrix4.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

constexpr CGFloat pi = std::numbers::pi;

CGFloat cotangent(CGFloat angle) {
    return static_cast<CGFloat>(1 / std::tan(static_cast<long double>(angle)));
}

/// Everything but the two scales, which the constructors arrive at differently.
void expectPerspective(const Matrix4& m, CGFloat sx, CGFloat sy, CGFloat near, CGFloat far) {
    EXPECT_DOUBLE_EQ(m.m11, sx);
    EXPECT_DOUBLE_EQ(m.m22, sy);
    EXPECT_DOUBLE_EQ(m.m33, -(far + near) / (far - near));
    EXPECT_DOUBLE_EQ(m.m43, -2 * near * far / (far - near));
    Matrix4 rest = m;
    rest.m11 = rest.m22 = rest.m33 = rest.m43 = 0;
    EXPECT_EQ(rest, Matrix4(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, -1, 0, 0, 0, 0));
}

TEST(Perspective, isKnownForARightAngle) {
    const Matrix4 m = Matrix4::withFovy(pi / 2, 2, 1, 3);
    EXPECT_DOUBLE_EQ(m.m11, 0.5);
    EXPECT_DOUBLE_EQ(m.m22, 1);
    EXPECT_EQ(m.m33, -2);
    EXPECT_EQ(m.m43, -3);
    EXPECT_EQ(m.m34, -1);
    EXPECT_EQ(m.m44, 0);
}

TEST(Perspective, takesTheViewBetweenItsEdgesToTheCube) {
    const Matrix4 m = Matrix4::withFovy(1.2, 1.5, 2, 10);
    const CGFloat top = 2 * std::tan(0.6);
    const Vector4 nearCorner = (m * Vector4{1.5 * top, top, -2, 1}).toReal();
    EXPECT_TRUE(isNearlyEqual(nearCorner, Vector4{1, 1, -1, 1}));
    const Vector4 farCorner = (m * Vector4{-5 * 1.5 * top, 5 * top, -10, 1}).toReal();
    EXPECT_TRUE(isNearlyEqual(farCorner, Vector4{-1, 1, 1, 1}));
}

TEST(Perspective, fromTheVerticalAngleDividesByTheAspect) {
    const CGFloat sy = cotangent(0.35);
    expectPerspective(Matrix4::withFovy(0.7, 1.5, 2, 10), sy / 1.5, sy, 2, 10);
}

TEST(Perspective, fromBothAnglesTakesTheirPlainRatioForTheAspect) {
    const Matrix4 m = Matrix4::withFovxFovy(2, 1, 0.5, 100);
    const CGFloat sy = cotangent(0.5);
    expectPerspective(m, sy / 2, sy, 0.5, 100);
    EXPECT_GT(m.m11 / cotangent(1), 1.1);  // as the true aspect would not have it
}

TEST(Perspective, fromTheHorizontalAngleTakesThePlainRatioForTheVerticalOne) {
    const Matrix4 m = Matrix4::withFovx(2, 2, 0.5, 100);
    const CGFloat sy = cotangent(0.5);
    expectPerspective(m, sy / 2, sy, 0.5, 100);
    EXPECT_GT(m.m11 / cotangent(1), 1.1);
}

TEST(Perspective, isNotFiniteForADepthOfZero) {
    EXPECT_FALSE(std::isfinite(Matrix4::withFovy(1, 1, 2, 2).m33));
}

TEST(Orthographic, hasItsElements) {
    EXPECT_EQ(Matrix4::orthographic(6, 9, 2, 1, 3, 5),
              Matrix4(0.25, 0, 0, 0, 0, 0.5, 0, 0, 0, 0, -1, 0, -1.25, -2, -4, 1));
}

TEST(Orthographic, takesTheBoxBetweenItsEdgesToTheCube) {
    const Matrix4 m = Matrix4::orthographic(6, 9, 2, 1, 3, 5);
    EXPECT_EQ(m * (Vector3{9, 6, -3}), (Vector3{1, 1, -1}));
    EXPECT_EQ(m * (Vector3{1, 2, -5}), (Vector3{-1, -1, 1}));
}

}  // namespace
}  // namespace quorin
