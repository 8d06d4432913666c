#include "quorin/linear/ViewingRay.h"

#include "tests/TestSupport.h"

namespace quorin {
namespace {

TEST(IntersectionWithCamera, isWhereTheRayMeetsThePlane) {
    EXPECT_EQ(intersectionWithCamera({0, 0, 10}, {0, 0, -1}, {0, 0, 1}, 0), (Vector3{0, 0, 0}));
    EXPECT_EQ(intersectionWithCamera({1, 2, 10}, {0, 0, -2}, {0, 0, 1}, 4), (Vector3{1, 2, 4}));
    // s·(1, 2, 3) · (1, 1, 1) = 12 at s = 2
    EXPECT_EQ(intersectionWithCamera({0, 0, 0}, {1, 2, 3}, {1, 1, 1}, 12), (Vector3{2, 4, 6}));
}

TEST(IntersectionWithCamera, isZeroForAParallelRay) {
    EXPECT_EQ(intersectionWithCamera({0, 0, 10}, {1, 0, 0}, {0, 0, 1}, 0), Vector3::zero);
    EXPECT_EQ(intersectionWithCamera({3, 4, 5}, {1, 0, 0}, {0, 0, 1}, 5), Vector3::zero);
    EXPECT_EQ(intersectionWithCamera({3, 4, 5}, {0, 0, 0}, {0, 0, 1}, 1), Vector3::zero);
}

TEST(IntersectionWithCamera, takesOnlyAnExactZeroForParallel) {
    EXPECT_EQ(intersectionWithCamera({0, 0, 1}, {0, 0, 0x1p-500}, {0, 0, 1}, 3),
              (Vector3{0, 0, 3}));
    EXPECT_EQ(intersectionWithCamera({0, 0, 1}, {1, 0, 0x1p-60}, {0, 0, 1}, 2),
              (Vector3{0x1p60, 0, 2}));
}

TEST(IntersectionWithCamera, mayBeBehindTheOrigin) {
    EXPECT_EQ(intersectionWithCamera({0, 0, 10}, {0, 0, 1}, {0, 0, 1}, 0), (Vector3{0, 0, 0}));
    EXPECT_EQ(intersectionWithCamera({5, 0, 10}, {1, 0, 1}, {0, 0, 1}, 8), (Vector3{3, 0, 8}));
}

RC_GTEST_PROP(IntersectionWithCamera, liesOnTheRayAndOnThePlane, ()) {
    const auto vector = [] {
        const auto component = [] { return *rc::gen::inRange(-1000, 1001) / 64.0; };
        return Vector3{component(), component(), component()};
    };
    const Vector3 origin = vector(), e = vector(), n = vector();
    const CGFloat d = vector().x;
    RC_PRE(std::abs(e.dot(n)) > 0.01 * e.length() * n.length());
    const Vector3 met = intersectionWithCamera(origin, e, n, d);
    const Vector3 way = met - origin;
    const CGFloat size = 1 + met.length() + origin.length();
    RC_ASSERT(std::abs(met.dot(n) - d) < 1e-12 * size * n.length());
    RC_ASSERT(way.cross(e).length() < 1e-12 * size * e.length());
}

}  // namespace
}  // namespace quorin
