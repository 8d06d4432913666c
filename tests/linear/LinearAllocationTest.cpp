#include <array>

#include "quorin/linear/Matrix3.h"
#include "quorin/linear/TransformDecomposition.h"
#include "tests/TestSupport.h"
#include "tests/support/AllocationCount.h"

namespace quorin {
namespace {

TEST(LinearAlgebra, asksForNoMemory) {
    const std::array<CGPoint, 4> points = {{{0, 0}, {4, 0}, {3, 3}, {0, 2}}};
    const std::size_t before = test::allocationCount();
    const Matrix4 baked = Matrix4::bakedTransform(points, CGRectMake(0, 0, 2, 2));
    const Matrix4 m = (baked * -baked).rotate({1, 2, 3}).scale({2, 3, 4}).transpose();
    const auto [translation, quaternion, scale] = m.decompose();
    const Quaternion between = quaternion.interpolated(Quaternion::identity, 0.5);
    const Matrix3 plane = Matrix3::withRotation(1).inverse().interpolated(Matrix3(), 0.5);
    const Vector3 v = translation * between.rotationMatrix() * plane + scale;
    EXPECT_EQ(test::allocationCount(), before);
    EXPECT_TRUE(v.isFinite());
}

}  // namespace
}  // namespace quorin
