#include "quorin/linear/Matrix3.h"

#include <limits>
#include <numbers>
#include <vector>

#include "tests/TestSupport.h"
#include "tests/linear/MatrixTruth.h"
#include "tests/support/MemoryRecord.h"

namespace quorin {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();

/// mIJ is IJ.
constexpr Matrix3 numbered(11, 12, 13, 21, 22, 23, 31, 32, 33);
constexpr Matrix3 invertible(2, 1, 3, 0, -1, 4, 5, 2, 1);  // its determinant is 17

static_assert(VectorArrayConvertible<Matrix3> && VectorFloatArrayConvertible<Matrix3>);
static_assert(sizeof(Matrix3) == 9 * sizeof(CGFloat));
static_assert(invertible.determinant() == 17);

TEST(Matrix3, isTheIdentityAtFirst) {
    EXPECT_EQ(Matrix3(), Matrix3(1, 0, 0, 0, 1, 0, 0, 0, 1));
    EXPECT_EQ(Matrix3::identity, Matrix3());
}

TEST(Matrix3, keepsItsElementsColumnAfterColumn) {
    const Matrix3 m{1, 2, 3, 4, 5, 6, 7, 8, 9};
    EXPECT_THAT((std::array{m.m11, m.m12, m.m13, m.m21, m.m22, m.m23, m.m31, m.m32, m.m33}),
                ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9));
    EXPECT_THAT(m.array(), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9));
    EXPECT_EQ(Matrix3::withColumns({1, 2, 3}, {4, 5, 6}, {7, 8, 9}), m);
}

TEST(Matrix3, isMadeFromTheFirstNineElementsOfAList) {
    const std::vector<CGFloat> longer{1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    const std::vector<float> single{1.5f, 2, 3, 4, 5, 6, 7, 8, 9.5f};
    EXPECT_EQ(Matrix3(longer), Matrix3(1, 2, 3, 4, 5, 6, 7, 8, 9));
    EXPECT_EQ(Matrix3(single), Matrix3(1.5, 2, 3, 4, 5, 6, 7, 8, 9.5));
    EXPECT_THAT(Matrix3(single).floatArray(), ElementsAreArray(single));
}

TEST(Matrix3DeathTest, stopsTheProcessForAListTooShort) {
    const std::vector<CGFloat> eight(8);
    EXPECT_DEATH(static_cast<void>(Matrix3(eight)), "Matrix3 from 8 of 9 components");
}

TEST(Matrix3, isMadeOfAScaleATranslationOrARotation) {
    EXPECT_EQ(Matrix3::withScale({2, 3}), Matrix3(2, 0, 0, 0, 3, 0, 0, 0, 1));
    EXPECT_EQ(Matrix3::withTranslation({2, 3}), Matrix3(1, 0, 0, 0, 1, 0, 2, 3, 1));
    const CGFloat c = std::cos(0.7), s = std::sin(0.7);
    EXPECT_EQ(Matrix3::withRotation(0.7), Matrix3(c, s, 0, -s, c, 0, 0, 0, 1));
}

TEST(Matrix3Rotation, isCounterClockwiseInAYUpPlane) {
    const Vector2 turned = Matrix3::withRotation(std::numbers::pi / 2) * Vector2{1, 0};
    EXPECT_TRUE(isNearlyEqual(turned, Vector2{0, 1}));
}

TEST(Matrix3Product, doesTheRightOneFirst) {
    const Matrix3 move = Matrix3::withTranslation({1, 2}), scale = Matrix3::withScale({2, 3});
    EXPECT_EQ(move * scale * (Vector2{1, 1}), (Vector2{3, 5}));
    EXPECT_EQ(scale * move * (Vector2{1, 1}), (Vector2{4, 9}));
}

TEST(Matrix3Product, addsFromTheFirstColumnToTheLast) {
    const Matrix3 a(1e16, 0, 0, 1, 0, 0, -1e16, 0, 0);  // 1e16 + 1 is 1e16
    EXPECT_EQ((a * Matrix3(1, 1, 1, 0, 0, 0, 0, 0, 0)).m11, 0);
}

RC_GTEST_PROP(Matrix3Product, isThatOfRowsByColumns, ()) {
    const auto [a, b] =
        *rc::gen::pair(test::fractionalMatrix<Matrix3>(), test::fractionalMatrix<Matrix3>());
    const auto truth = test::product(test::rowsOf(a), test::rowsOf(b));
    RC_ASSERT(test::largestDifference(test::rowsOf(a * b), truth) < 2e-15L);
}

TEST(Matrix3TimesVector, isTheSameInBothOrders) {
    const Vector3 v{1, 2, 3};
    const Vector3 product{11 + 2 * 21 + 3 * 31, 12 + 2 * 22 + 3 * 32, 13 + 2 * 23 + 3 * 33};
    EXPECT_EQ(numbered * v, product);
    EXPECT_EQ(v * numbered, product);
}

TEST(Matrix3TimesVector, movesAPlaceInThePlaneWithoutItsThirdRow) {
    const Vector2 v{1, 2}, moved{11 + 2 * 21 + 31, 12 + 2 * 22 + 32};
    EXPECT_EQ(numbered * v, moved);
    EXPECT_EQ(v * numbered, moved);
    Matrix3 other = numbered;
    other.m13 = other.m23 = other.m33 = infinity;
    EXPECT_EQ(v * other, moved);
}

TEST(Matrix3TimesNumber, multipliesEveryElement) {
    EXPECT_EQ(numbered * 2, Matrix3(22, 24, 26, 42, 44, 46, 62, 64, 66));
}

TEST(Matrix3, isTransposed) {
    EXPECT_EQ(numbered.transpose(), Matrix3(11, 21, 31, 12, 22, 32, 13, 23, 33));
}

TEST(Matrix3Determinant, isKnownForSimpleMatrices) {
    EXPECT_EQ(Matrix3::identity.determinant(), 1);
    EXPECT_EQ(Matrix3::withScale({2, -3}).determinant(), -6);
    EXPECT_EQ(invertible.determinant(), 17);
    EXPECT_EQ(numbered.determinant(), 0);
    EXPECT_EQ(Matrix3(0, 1, 0, 0, 0, 1, 1, 0, 0).determinant(), 1);
    EXPECT_EQ(Matrix3(0, 1, 0, 1, 0, 0, 0, 0, 1).determinant(), -1);
}

TEST(Matrix3Adjugate, holdsTheTransposedCofactors) {
    EXPECT_EQ(invertible.adjugate(), Matrix3(-9, 5, 7, 20, -13, -8, 5, 1, -2));
}

RC_GTEST_PROP(Matrix3Adjugate, givesTheDeterminantOnBothSides, ()) {
    const Matrix3 m = *test::wholeMatrix<Matrix3>();
    RC_ASSERT(m * m.adjugate() == Matrix3::identity * m.determinant());
    RC_ASSERT(m.adjugate() * m == Matrix3::identity * m.determinant());
}

RC_GTEST_PROP(Matrix3Determinant, ofAProductIsTheProduct, ()) {
    const auto [a, b] = *rc::gen::pair(test::wholeMatrix<Matrix3>(), test::wholeMatrix<Matrix3>());
    RC_ASSERT((a * b).determinant() == a.determinant() * b.determinant());
}

RC_GTEST_PROP(Matrix3Inverse, isThatOfElimination, ()) {
    const Matrix3 m = *test::invertibleMatrix<Matrix3>();
    const auto truth = test::eliminated(test::rowsOf(m));
    RC_ASSERT(std::abs(m.determinant() - truth.determinant) < 1e-14L);
    RC_ASSERT(test::largestDifference(test::rowsOf(m.inverse()), truth.inverse) < 1e-12L);
}

TEST(Matrix3Inverse, isTheAdjugateTimesOneOverTheDeterminant) {
    EXPECT_EQ(Matrix3::withScale({7, 7}).inverse().m33, 49 * (1.0 / 49));
    EXPECT_NE(Matrix3::withScale({7, 7}).inverse().m33, 1);  // as a division would have it
}

TEST(Matrix3Inverse, isWhatAPrefixMinusMeans) {
    EXPECT_EQ(-Matrix3::withScale({2, 4}), Matrix3::withScale({0.5, 0.25}));
    EXPECT_EQ(-Matrix3::withTranslation({2, 4}), Matrix3::withTranslation({-2, -4}));
    EXPECT_EQ(-invertible, invertible.inverse());
}

TEST(Matrix3Inverse, isNotFiniteWithoutADeterminant) {
    EXPECT_FALSE(std::isfinite(Matrix3::withScale({0, 2}).inverse().m11));
    EXPECT_FALSE(std::isfinite(Matrix3(0, 0, 0, 0, 0, 0, 0, 0, 0).inverse().m33));
}

TEST(Matrix3Interpolated, goesElementByElementAndBeyond) {
    const Matrix3 a(0, 1, 2, 3, 4, 5, 6, 7, 8), b(10, 9, 8, 7, 6, 5, 4, 3, 2);
    EXPECT_EQ(a.interpolated(b, 0), a);
    EXPECT_EQ(a.interpolated(b, 0.5), Matrix3(5, 5, 5, 5, 5, 5, 5, 5, 5));
    EXPECT_EQ(a.interpolated(b, 2), Matrix3(20, 17, 14, 11, 8, 5, 2, -1, -4));
    EXPECT_EQ(a.interpolated(b, -1), Matrix3(-10, -7, -4, -1, 2, 5, 8, 11, 14));
}

TEST(Matrix3Interpolated, addsAPartOfTheDifference) {
    const Matrix3 large = Matrix3::identity * 1e16;  // 1 - 1e16 is -1e16
    EXPECT_EQ(large.interpolated(Matrix3::identity, 1), Matrix3(0, 0, 0, 0, 0, 0, 0, 0, 0));
}

TEST(Matrix3Equality, isExactOrTolerantInEveryElement) {
    EXPECT_EQ(Matrix3(1, -0.0, 0, 0, 1, 0, 0, 0, 1), Matrix3::identity);
    for (std::size_t i = 0; i < 9; ++i) {
        auto near = Matrix3::identity.array(), far = near;
        near[i] += 9e-13;
        far[i] -= 1.1e-12;
        EXPECT_NE(Matrix3(near), Matrix3::identity) << i;
        EXPECT_TRUE(isNearlyEqual(Matrix3(near), Matrix3::identity)) << i;
        EXPECT_FALSE(isNearlyEqual(Matrix3(far), Matrix3::identity)) << i;
    }
}

TEST(Matrix3Hash, agreesWithEqualityAndCountsTheOrder) {
    const std::hash<Matrix3> hash;
    EXPECT_EQ(hash(Matrix3(1, -0.0, 0, 0, 1, 0, 0, 0, 1)), hash(Matrix3::identity));
    EXPECT_NE(hash(numbered), hash(numbered.transpose()));
}

TEST(Matrix3Record, hasTheElementsUnderTheirNamesAndRequiresThem) {
    const test::MemoryRecord record = test::recordOf(numbered);
    EXPECT_THAT(record.keys(),
                ElementsAre("m11", "m12", "m13", "m21", "m22", "m23", "m31", "m32", "m33"));
    EXPECT_EQ(test::decoded<Matrix3>(record), numbered);
    EXPECT_EQ(std::get<CGFloat>(*record.find("m21")), 21);
    for (const std::string& key : record.keys()) {
        test::MemoryRecord damaged = record;
        damaged.remove(key);
        EXPECT_THROW(test::decoded<Matrix3>(damaged), DecodingError) << key;
    }
}

}  // namespace
}  // namespace quorin
