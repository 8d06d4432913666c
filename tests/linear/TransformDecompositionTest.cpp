#include "quorin/linear/TransformDecomposition.h"

#include <cmath>
#include <numbers>

#include "tests/TestSupport.h"
#include "tests/linear/QuaternionTruth.h"

namespace quorin {
namespace {

constexpr CGFloat half = std::numbers::sqrt2 / 2;

Matrix4 composed(const Vector3& translation, const Quaternion& rotation, const Vector3& scale) {
    return Matrix4::withTranslation(translation) * rotation.rotationMatrix() *
           Matrix4::withScale(scale);
}

rc::Gen<Vector3> positiveScale() {
    return rc::gen::map(test::fractionalVector(),
                        [](const Vector3& v) { return v.absolute() + Vector3::unit * 0.01; });
}

TEST(Decompose, findsATranslation) {
    EXPECT_EQ(Matrix4::withTranslation({5, 6, 7}).decompose(),
              (TransformDecomposition{{5, 6, 7}, {0, 0, 0, 1}, {1, 1, 1}}));
}

TEST(Decompose, findsAScale) {
    EXPECT_EQ(Matrix4::withScale({2, 3, 4}).decompose(),
              (TransformDecomposition{{0, 0, 0}, Quaternion::identity, {2, 3, 4}}));
}

TEST(Decompose, carriesAMirrorInX) {
    EXPECT_EQ(Matrix4::withScale({-2, 3, 4}).decompose(),
              (TransformDecomposition{{0, 0, 0}, Quaternion::identity, {-2, 3, 4}}));
}

TEST(Decompose, movesAMirrorToXWithAHalfTurn) {
    EXPECT_EQ(Matrix4::withScale({2, -3, 4}).decompose(),
              (TransformDecomposition{{0, 0, 0}, {0, 0, 1, 0}, {-2, 3, 4}}));
    EXPECT_EQ(Matrix4::withScale({2, 3, -4}).decompose(),
              (TransformDecomposition{{0, 0, 0}, {0, 1, 0, 0}, {-2, 3, 4}}));
}

TEST(Decompose, takesTwoMirrorsForAHalfTurn) {
    EXPECT_EQ(Matrix4::withScale({2, -3, -4}).decompose(),
              (TransformDecomposition{{0, 0, 0}, {1, 0, 0, 0}, {2, 3, 4}}));
}

TEST(Decompose, knowsTheHalfTurnsAboutEveryAxis) {
    struct Row {
        const char* says;
        Matrix4 matrix;
        Quaternion quaternion;
    };
    const Row table[] = {
        {"x", Matrix4(1, 0, 0, 0, 0, -1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1), {1, 0, 0, 0}},
        {"y", Matrix4(-1, 0, 0, 0, 0, 1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1), {0, 1, 0, 0}},
        {"z", Matrix4(-1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1), {0, 0, 1, 0}},
        {"x and y tie",
         Matrix4(0, 1, 0, 0, 1, 0, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1),
         {half, half, 0, 0}},
        {"x and z tie",
         Matrix4(0, 0, 1, 0, 0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 0, 1),
         {half, 0, half, 0}},
        {"y and z tie",
         Matrix4(-1, 0, 0, 0, 0, 0, 1, 0, 0, 1, 0, 0, 0, 0, 0, 1),
         {0, half, half, 0}},
    };
    for (const auto& [says, matrix, quaternion] : table)
        EXPECT_TRUE(isNearlyEqual(matrix.decompose().quaternion, quaternion)) << says;
}

/// Columns of length one that are no rotation, so that the signs of all four fields show. The
/// second and third matrix are the first one with the axes passed on: x to y to z to x.
TEST(Decompose, dividesByTheFieldOfTheLargestDiagonalElement) {
    const CGFloat s = 2 * std::sqrt(3.36);
    const CGFloat a = s / 4, b = 0.8 / s, c = 0.36 / s, w = 0.2 / s;
    const Matrix4 x(0.6, 0.8, 0, 0, 0, -0.96, 0.28, 0, 0.36, 0.48, -0.8, 0, 0, 0, 0, 1);
    const Matrix4 y(-0.8, 0.36, 0.48, 0, 0, 0.6, 0.8, 0, 0.28, 0, -0.96, 0, 0, 0, 0, 1);
    const Matrix4 z(-0.96, 0.28, 0, 0, 0.48, -0.8, 0.36, 0, 0.8, 0, 0.6, 0, 0, 0, 0, 1);
    EXPECT_TRUE(isNearlyEqual(x.decompose().quaternion, Quaternion{a, b, c, w}));
    EXPECT_TRUE(isNearlyEqual(y.decompose().quaternion, Quaternion{c, a, b, w}));
    EXPECT_TRUE(isNearlyEqual(z.decompose().quaternion, Quaternion{b, c, a, w}));
}

/// Again no rotations: only then it shows which of two fields was divided by.
TEST(Decompose, dividesByTheLaterFieldWhereDiagonalElementsTie) {
    const CGFloat s = 2 * std::sqrt(2.0);
    const Matrix4 xAndY(0, 1, 0, 0, 0.8, 0, 0.6, 0, 0, 0, -1, 0, 0, 0, 0, 1);
    EXPECT_TRUE(
        isNearlyEqual(xAndY.decompose().quaternion, Quaternion{1.8 / s, s / 4, 0.6 / s, 0}));
    const Matrix4 yAndZ(-1, 0, 0, 0, 0, 0, 1, 0, 0.6, 0.8, 0, 0, 0, 0, 0, 1);
    EXPECT_TRUE(
        isNearlyEqual(yAndZ.decompose().quaternion, Quaternion{0.6 / s, 1.8 / s, s / 4, 0}));
    const Matrix4 xAndZ(0, 0.6, 0.8, 0, 0, -1, 0, 0, 1, 0, 0, 0, 0, 0, 0, 1);
    EXPECT_TRUE(
        isNearlyEqual(xAndZ.decompose().quaternion, Quaternion{1.8 / s, 0, s / 4, -0.6 / s}));
}

RC_GTEST_PROP(Decompose, givesTheConjugateOfAQuaternion, ()) {
    const Quaternion q = *test::quaternionOfPositiveW();
    const auto parts = Matrix4::withQuaternion(q).decompose();
    RC_ASSERT(test::difference(parts.quaternion, test::wide(q.inverse())) < 1e-12L);
    RC_ASSERT(isNearlyEqual(parts.scale, Vector3::unit));
    RC_ASSERT(parts.translation == Vector3::zero);
}

RC_GTEST_PROP(Decompose, findsThePartsOfWhatWasComposed, ()) {
    const Quaternion q = *test::quaternionOfPositiveW();
    const Vector3 translation = *test::fractionalVector();
    Vector3 scale = *positiveScale();
    scale.x *= *rc::gen::element(-1.0, 1.0);
    const auto parts = composed(translation, q, scale).decompose();
    RC_ASSERT(parts.translation == translation);
    RC_ASSERT(isNearlyEqual(parts.scale, scale));
    RC_ASSERT(test::difference(parts.quaternion, test::wide(-q)) < 1e-12L);
}

RC_GTEST_PROP(Decompose, isUndoneByComposingWithTheConjugate, ()) {
    const Quaternion q = *test::unitQuaternion();
    const Vector3 translation = *test::fractionalVector();
    const auto sign = rc::gen::element(-1.0, 1.0);
    const Vector3 scale = *positiveScale() * Vector3{*sign, *sign, *sign};
    const Matrix4 m = composed(translation, q, scale);
    const auto parts = m.decompose();
    RC_PRE(parts.quaternion.w > 0.1);  // it is divided by
    RC_ASSERT(isNearlyEqual(composed(parts.translation, -parts.quaternion, parts.scale), m));
}

TEST(Decompose, leavesPerspectiveOut) {
    const Matrix4 plain = composed({1, 2, 3}, {0.5, 0.5, -0.5, 0.5}, {-2, 3, 4});
    Matrix4 m = plain;
    m.m14 = 0.5;
    m.m24 = -0.25;
    m.m34 = 0.125;
    m.m44 = -3;
    EXPECT_EQ(m.decompose(), plain.decompose());
}

TEST(Decompose, givesNaNForAScaleOfZero) {
    const auto parts = composed({1, 2, 3}, Quaternion::identity, {2, 0, 4}).decompose();
    EXPECT_EQ(parts.scale, (Vector3{2, 0, 4}));
    EXPECT_EQ(parts.translation, (Vector3{1, 2, 3}));
    EXPECT_TRUE(std::isnan(parts.quaternion.w));
}

}  // namespace
}  // namespace quorin
