#include "quorin/linear/Matrix4.h"

#include <cstdint>
#include <limits>
#include <numbers>
#include <vector>

#include "quorin/linear/Quaternion.h"
#include "tests/TestSupport.h"
#include "tests/linear/MatrixTruth.h"
#include "tests/support/MemoryRecord.h"

namespace quorin {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();

/// mIJ is IJ.
constexpr Matrix4 numbered(11, 12, 13, 14, 21, 22, 23, 24, 31, 32, 33, 34, 41, 42, 43, 44);

static_assert(VectorArrayConvertible<Matrix4> && VectorFloatArrayConvertible<Matrix4>);
static_assert(sizeof(Matrix4) == 16 * sizeof(CGFloat));

TEST(Matrix4, isTheIdentityAtFirst) {
    EXPECT_EQ(Matrix4(), Matrix4(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1));
    EXPECT_EQ(Matrix4::identity, Matrix4());
}

TEST(Matrix4, keepsItsElementsColumnAfterColumn) {
    const Matrix4& m = numbered;
    EXPECT_THAT((std::array{m.m11, m.m12, m.m13, m.m14, m.m21, m.m22, m.m23, m.m24, m.m31, m.m32,
                            m.m33, m.m34, m.m41, m.m42, m.m43, m.m44}),
                ElementsAre(11, 12, 13, 14, 21, 22, 23, 24, 31, 32, 33, 34, 41, 42, 43, 44));
    EXPECT_THAT(m.array(),
                ElementsAre(11, 12, 13, 14, 21, 22, 23, 24, 31, 32, 33, 34, 41, 42, 43, 44));
    EXPECT_EQ(Matrix4::withColumns({11, 12, 13, 14}, {21, 22, 23, 24}, {31, 32, 33, 34},
                                   {41, 42, 43, 44}),
              m);
}

TEST(Matrix4, isMadeFromTheFirstSixteenElementsOfAList) {
    std::vector<CGFloat> longer(20, 7);
    longer[0] = 1.5;
    longer[15] = -2;
    const std::vector<float> single(longer.begin(), longer.begin() + 16);
    EXPECT_EQ(Matrix4(longer), Matrix4(1.5, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7, -2));
    EXPECT_EQ(Matrix4(single), Matrix4(longer));
    EXPECT_THAT(Matrix4(longer).floatArray(), ElementsAreArray(single));
}

TEST(Matrix4DeathTest, stopsTheProcessForAListTooShort) {
    const std::vector<CGFloat> fifteen(15);
    EXPECT_DEATH(static_cast<void>(Matrix4(fifteen)), "Matrix4 from 15 of 16 components");
}

TEST(Matrix4, isMadeOfAScaleOrATranslation) {
    EXPECT_EQ(Matrix4::withScale({2, 3, 4}),
              Matrix4(2, 0, 0, 0, 0, 3, 0, 0, 0, 0, 4, 0, 0, 0, 0, 1));
    EXPECT_EQ(Matrix4::withTranslation({2, 3, 4}),
              Matrix4(1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 2, 3, 4, 1));
}

TEST(Matrix4Rotation, isThatOfTheQuaternion) {
    const Vector4 axisAngle{0.6, 0, 0.8, 1.25};
    EXPECT_EQ(Matrix4::withRotation(axisAngle),
              Matrix4::withQuaternion(Quaternion::withAxisAngle(axisAngle)));
    EXPECT_EQ(Matrix4::withQuaternion({1, 2, 3, 4}), Quaternion(1, 2, 3, 4).rotationMatrix());
}

TEST(Matrix4Rotation, isRightHandedAboutItsAxis) {
    const Matrix4 m = Matrix4::withRotation({0, 0, 1, std::numbers::pi / 2});
    EXPECT_TRUE(isNearlyEqual(m * Vector3{1, 0, 5}, Vector3{0, 1, 5}));
}

TEST(Matrix4Rotation, takesTheAxisAsItIs) {
    // About (0, 0, 2) by π: the quaternion (0, 0, 2, 0) is twice too long.
    const Matrix4 m = Matrix4::withRotation({0, 0, 2, std::numbers::pi});
    EXPECT_NEAR(m.m11, -7, 1e-12);
    EXPECT_NEAR(m.m22, -7, 1e-12);
    EXPECT_EQ(m.m33, 1);
}

TEST(Matrix4Product, doesTheRightOneFirst) {
    const Matrix4 move = Matrix4::withTranslation({1, 2, 3});
    const Matrix4 scale = Matrix4::withScale({2, 2, 2});
    EXPECT_EQ(move * scale * (Vector3{1, 1, 1}), (Vector3{3, 4, 5}));
    EXPECT_EQ(scale * move * (Vector3{1, 1, 1}), (Vector3{4, 6, 8}));
    EXPECT_EQ(move.multiply(scale), move * scale);
    EXPECT_NE(move.multiply(scale), scale * move);
}

TEST(Matrix4Product, addsFromTheFirstColumnToTheLast) {
    const Matrix4 a(1e16, 0, 0, 0, 1, 0, 0, 0, -1e16, 0, 0, 0, 2, 0, 0, 0);  // 1e16 + 1 is 1e16
    EXPECT_EQ((a * Matrix4(1, 1, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0)).m11, 2);
    EXPECT_EQ((a * Vector3{1, 1, 1}).x, 2);
    EXPECT_EQ((a * Vector4{1, 1, 1, 1}).x, 2);
}

RC_GTEST_PROP(Matrix4Product, isThatOfRowsByColumns, ()) {
    const auto [a, b] =
        *rc::gen::pair(test::fractionalMatrix<Matrix4>(), test::fractionalMatrix<Matrix4>());
    const auto truth = test::product(test::rowsOf(a), test::rowsOf(b));
    RC_ASSERT(test::largestDifference(test::rowsOf(a * b), truth) < 2e-15L);
}

TEST(Matrix4TimesVector, isTheSameInBothOrders) {
    const Vector4 v{1, 2, 3, 4};
    const Vector4 product{11 + 42 + 93 + 164, 12 + 44 + 96 + 168, 13 + 46 + 99 + 172,
                          14 + 48 + 102 + 176};
    EXPECT_EQ(numbered * v, product);
    EXPECT_EQ(v * numbered, product);
}

TEST(Matrix4TimesVector, movesAPlaceInSpaceWithoutPerspective) {
    const Vector3 v{1, 2, 3}, moved{11 + 42 + 93 + 41, 12 + 44 + 96 + 42, 13 + 46 + 99 + 43};
    EXPECT_EQ(numbered * v, moved);
    EXPECT_EQ(v * numbered, moved);
    Matrix4 other = numbered;
    other.m14 = other.m24 = other.m34 = other.m44 = infinity;
    EXPECT_EQ(v * other, moved);
}

TEST(Matrix4TimesNumber, multipliesEveryElement) {
    EXPECT_EQ(numbered * 2,
              Matrix4(22, 24, 26, 28, 42, 44, 46, 48, 62, 64, 66, 68, 82, 84, 86, 88));
}

TEST(Matrix4Translate, actsBeforeTheMatrix) {
    const Matrix4 scale = Matrix4::withScale({2, 3, 4});
    EXPECT_EQ(scale.translate(Vector3{1, 1, 1}) * (Vector3{0, 0, 0}), (Vector3{2, 3, 4}));
    EXPECT_EQ(scale.translate(CGPoint{1, 1}) * (Vector3{0, 0, 0}), (Vector3{2, 3, 0}));
    EXPECT_EQ(numbered.translate(Vector3{1, 2, 3}), numbered * Matrix4::withTranslation({1, 2, 3}));
}

TEST(Matrix4Scale, actsBeforeTheMatrix) {
    const Matrix4 m = Matrix4::identity.translate(Vector3{1, 0, 0}).scale({2, 2, 2});
    EXPECT_EQ(m, Matrix4(2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 2, 0, 1, 0, 0, 1));
    EXPECT_EQ(numbered.scale({1, 2, 3}), numbered * Matrix4::withScale({1, 2, 3}));
}

TEST(Matrix4Rotate, isRightHandedAboutEachAxis) {
    const CGFloat c = std::cos(0.7), s = std::sin(0.7);
    const Matrix4 m;
    EXPECT_EQ(m.rotate({0.7, 0, 0}), Matrix4(1, 0, 0, 0, 0, c, s, 0, 0, -s, c, 0, 0, 0, 0, 1));
    EXPECT_EQ(m.rotate({0, 0.7, 0}), Matrix4(c, 0, -s, 0, 0, 1, 0, 0, s, 0, c, 0, 0, 0, 0, 1));
    EXPECT_EQ(m.rotate({0, 0, 0.7}), Matrix4(c, s, 0, 0, -s, c, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1));
}

TEST(Matrix4Rotate, actsAboutZFirstThenYThenXThenTheMatrix) {
    const CGFloat quarter = std::numbers::pi / 2;
    const Matrix4 m = Matrix4::withTranslation({10, 0, 0}).rotate({quarter, quarter, quarter});
    // (1, 0, 0) goes to y by z, stays there by y, and goes to z by x.
    EXPECT_TRUE(isNearlyEqual(m * Vector3{1, 0, 0}, Vector3{10, 0, 1}));
    // (0, 0, 1) stays by z, goes to x by y, and stays there by x.
    EXPECT_TRUE(isNearlyEqual(m * Vector3{0, 0, 1}, Vector3{11, 0, 0}));
}

TEST(Matrix4, isTransposed) {
    EXPECT_EQ(numbered.transpose(),
              Matrix4(11, 21, 31, 41, 12, 22, 32, 42, 13, 23, 33, 43, 14, 24, 34, 44));
}

TEST(Matrix4Determinant, isKnownForSimpleMatrices) {
    EXPECT_EQ(Matrix4::identity.determinant(), 1);
    EXPECT_EQ(Matrix4::withScale({2, 3, -4}).determinant(), -24);
    EXPECT_EQ(Matrix4::withTranslation({2, 3, -4}).determinant(), 1);
    EXPECT_EQ(numbered.determinant(), 0);
    // Two columns exchanged, then all four moved on by one place: odd permutations both.
    EXPECT_EQ(Matrix4(0, 1, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1).determinant(), -1);
    EXPECT_EQ(Matrix4(0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 1, 0, 0, 0).determinant(), -1);
}

RC_GTEST_PROP(Matrix4Adjugate, givesTheDeterminantOnBothSides, ()) {
    const Matrix4 m = *test::wholeMatrix<Matrix4>();
    RC_ASSERT(m * m.adjugate() == Matrix4::identity * m.determinant());
    RC_ASSERT(m.adjugate() * m == Matrix4::identity * m.determinant());
}

RC_GTEST_PROP(Matrix4Determinant, ofAProductIsTheProduct, ()) {
    const auto [a, b] = *rc::gen::pair(test::wholeMatrix<Matrix4>(), test::wholeMatrix<Matrix4>());
    RC_ASSERT((a * b).determinant() == a.determinant() * b.determinant());
}

RC_GTEST_PROP(Matrix4Inverse, isThatOfElimination, ()) {
    const Matrix4 m = *test::invertibleMatrix<Matrix4>();
    const auto truth = test::eliminated(test::rowsOf(m));
    RC_ASSERT(std::abs(m.determinant() - truth.determinant) < 1e-13L);
    RC_ASSERT(test::largestDifference(test::rowsOf(m.inverse()), truth.inverse) < 1e-11L);
}

RC_GTEST_PROP(Matrix4Inverse, isTheAdjugateTimesOneOverTheDeterminant, ()) {
    const Matrix4 m = *test::invertibleMatrix<Matrix4>();
    RC_ASSERT(m.inverse() == m.adjugate() * (1 / m.determinant()));
    RC_ASSERT(-m == m.inverse());
}

RC_GTEST_PROP(Matrix4Determinant, isTheFirstColumnByTheAdjugate, ()) {
    const Matrix4 m = *test::fractionalMatrix<Matrix4>(), a = m.adjugate();
    RC_ASSERT(m.determinant() == m.m11 * a.m11 + m.m12 * a.m21 + m.m13 * a.m31 + m.m14 * a.m41);
}

RC_GTEST_PROP(Matrix4Adjugate, hasTheSameBitsInConstantsAsInLanes, ()) {
    using Bits = std::array<std::uint64_t, 16>;
    const Matrix4 m = *test::fractionalMatrix<Matrix4>();
    RC_ASSERT(std::bit_cast<Bits>(adjugateInPairs<Vector2>(m)) ==
              std::bit_cast<Bits>(adjugateInPairs<PointLanes>(m)));
}

TEST(Matrix4Inverse, isKnownToTheCompiler) {
    constexpr Matrix4 halved = Matrix4::withScale({2, 2, 2}).inverse();
    static_assert(halved == Matrix4::withScale({0.5, 0.5, 0.5}));
}

TEST(Matrix4Inverse, isWhatAPrefixMinusMeans) {
    EXPECT_EQ(-Matrix4::withScale({2, 4, 8}), Matrix4::withScale({0.5, 0.25, 0.125}));
    EXPECT_EQ(-Matrix4::withTranslation({2, 4, 8}), Matrix4::withTranslation({-2, -4, -8}));
}

TEST(Matrix4Inverse, isNotFiniteWithoutADeterminant) {
    const auto elements = Matrix4::withScale({0, 4, 8}).inverse().array();
    EXPECT_FALSE(std::isfinite(elements[0]));
    EXPECT_TRUE(std::isnan(elements[5]));
    EXPECT_FALSE(std::isfinite((Matrix4::identity * 0).inverse().m44));
}

TEST(Matrix4Identity, isExactOrNear) {
    EXPECT_TRUE(Matrix4::identity.isIdentity());
    EXPECT_TRUE(Matrix4::identity.isNearlyIdentity());
    for (std::size_t i = 0; i < 16; ++i) {
        auto near = Matrix4::identity.array(), far = near;
        near[i] += 5e-13;
        far[i] -= 1.1e-12;
        EXPECT_FALSE(Matrix4(near).isIdentity()) << i;
        EXPECT_TRUE(Matrix4(near).isNearlyIdentity()) << i;
        EXPECT_TRUE(isNearlyEqual(Matrix4(near), Matrix4::identity)) << i;
        EXPECT_FALSE(Matrix4(far).isNearlyIdentity()) << i;
        EXPECT_FALSE(isNearlyEqual(Matrix4(far), Matrix4::identity)) << i;
    }
}

TEST(Matrix4Affine, isWithoutPerspectiveWhateverM44Is) {
    Matrix4 m = Matrix4::withTranslation({1, 2, 3});
    m.m44 = 5;
    EXPECT_TRUE(m.isAffine());
    for (CGFloat Matrix4::*element : {&Matrix4::m14, &Matrix4::m24, &Matrix4::m34}) {
        Matrix4 other = m;
        other.*element = -9e-13;
        EXPECT_TRUE(other.isAffine());
        other.*element = -1e-12;
        EXPECT_FALSE(other.isAffine());
    }
}

TEST(Matrix4Equality, isExact) {
    EXPECT_EQ(Matrix4::identity * -1 * -1, Matrix4::identity);
    EXPECT_NE(numbered, numbered.transpose());
    EXPECT_FALSE(isNearlyEqual(numbered, numbered * std::numeric_limits<CGFloat>::quiet_NaN()));
}

TEST(Matrix4Hash, agreesWithEqualityAndCountsTheOrder) {
    const std::hash<Matrix4> hash;
    Matrix4 other;
    other.m21 = -0.0;
    EXPECT_EQ(hash(other), hash(Matrix4::identity));
    EXPECT_NE(hash(numbered), hash(numbered.transpose()));
}

TEST(Matrix4Description, listsTheRowsAndThePartsInDegrees) {
    const Matrix4 m = Matrix4::withTranslation({5, 6, -7.5})
                          .rotate({0, 0, -std::numbers::pi / 6})
                          .scale({2, 3, 4});
    EXPECT_EQ(m.description(),
              "[  1.732,  1.500,  0.000,  5.000, \n"
              "  -1.000,  2.598,  0.000,  6.000, \n"
              "   0.000,  0.000,  4.000, -7.500, \n"
              "   0.000,  0.000,  0.000,  1.000 ]\n"
              "isAffine: true\n"
              "T: Vector3(  5.000,  6.000, -7.500)\n"
              "R: Vector3(  0.000, -0.000,  30.000)\n"
              "S: Vector3(  2.000,  3.000,  4.000)\n"
              "Q: Quaternion(  0.000,  0.000,  0.259,  0.966)\n");
}

TEST(Matrix4Description, tellsPerspective) {
    Matrix4 m;
    m.m34 = -0.25;
    EXPECT_THAT(m.description(), testing::HasSubstr("\n   0.000,  0.000, -0.250,  1.000 ]\n"
                                                    "isAffine: false\nT: "));
}

TEST(Matrix4Record, hasTheElementsUnderTheirNamesAndRequiresThem) {
    const test::MemoryRecord record = test::recordOf(numbered);
    EXPECT_THAT(record.keys(), ElementsAre("m11", "m12", "m13", "m14", "m21", "m22", "m23", "m24",
                                           "m31", "m32", "m33", "m34", "m41", "m42", "m43", "m44"));
    EXPECT_EQ(test::decoded<Matrix4>(record), numbered);
    EXPECT_EQ(std::get<CGFloat>(*record.find("m41")), 41);
    for (const std::string& key : record.keys()) {
        test::MemoryRecord damaged = record;
        damaged.remove(key);
        EXPECT_THROW(test::decoded<Matrix4>(damaged), DecodingError) << key;
    }
}

}  // namespace
}  // namespace quorin
