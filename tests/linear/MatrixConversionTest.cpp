#include "quorin/linear/Matrix3.h"
#include "quorin/linear/Matrix4.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

constexpr CATransform3D spatial{2, 3, 5, 7, 11, 13, 17, 19, 23, 29, 31, 37, 41, 43, 47, 53};
constexpr CGAffineTransform planar{2, 3, 5, 7, 11, 13};

TEST(MatrixConversion, takesEachFieldOfASpatialTransformToTheOneOfItsName) {
    const Matrix4 matrix(spatial);
    EXPECT_EQ(matrix.m12, spatial.m12);
    EXPECT_EQ(matrix.m34, spatial.m34);
    EXPECT_EQ(matrix.m41, spatial.m41);
    EXPECT_EQ(matrix, Matrix4(2, 3, 5, 7, 11, 13, 17, 19, 23, 29, 31, 37, 41, 43, 47, 53));
}

TEST(MatrixConversion, takesEachFieldOfAMatrixToTheOneOfItsName) {
    const Matrix4 matrix(2, 3, 5, 7, 11, 13, 17, 19, 23, 29, 31, 37, 41, 43, 47, 53);
    EXPECT_EQ(static_cast<CATransform3D>(matrix), spatial);
    EXPECT_EQ(CATransform3D(matrix), spatial);
    EXPECT_EQ(CATransform3D(Matrix4::identity), CATransform3D::identity);
}

TEST(MatrixConversion, fillsAPlanarTransformUpWithTheIdentity) {
    EXPECT_EQ(Matrix3(planar), Matrix3(2, 3, 0, 5, 7, 0, 11, 13, 1));
}

TEST(MatrixConversion, dropsThePerspectiveOfAPlanarMatrix) {
    const Matrix3 matrix(2, 3, 17, 5, 7, 19, 11, 13, 23);
    EXPECT_EQ(static_cast<CGAffineTransform>(matrix), planar);
    EXPECT_EQ(CGAffineTransform(Matrix3(planar)), planar);
}

TEST(MatrixConversion, movesAPlaceAsTheTransformDoes) {
    const Vector2 place = Matrix3(planar) * Vector2{10, 100};
    EXPECT_EQ(static_cast<CGPoint>(place), CGPointApplyAffineTransform({10, 100}, planar));
}

TEST(MatrixConversion, turnsTheProductAround) {
    const CATransform3D other = CATransform3DMakeTranslation(1, 2, 3);
    EXPECT_EQ(CATransform3D(Matrix4(spatial) * Matrix4(other)),
              CATransform3DConcat(other, spatial));
    EXPECT_EQ(CATransform3D(Matrix4(other) * Matrix4(spatial)),
              CATransform3DConcat(spatial, other));
}

}  // namespace
}  // namespace quorin
