#include "quorin/linear/VectorGeometryArithmetic.h"

#include "tests/TestSupport.h"

namespace quorin {
namespace {

constexpr CGPoint p{12, 20};
constexpr CGSize s{12, 20};
constexpr Vector2 flat{3, 4};
constexpr Vector3 v{3, 4, 5};

TEST(PointWithVector2, worksByComponent) {
    EXPECT_EQ(p + flat, (CGPoint{15, 24}));
    EXPECT_EQ(p - flat, (CGPoint{9, 16}));
    EXPECT_EQ(p * flat, (CGPoint{36, 80}));
    EXPECT_EQ(p / flat, (CGPoint{4, 5}));
}

TEST(PointWithVector3, ignoresTheThirdComponent) {
    EXPECT_EQ(p + v, (CGPoint{15, 24}));
    EXPECT_EQ(p - v, (CGPoint{9, 16}));
    EXPECT_EQ(p * v, (CGPoint{36, 80}));
    EXPECT_EQ(p / v, (CGPoint{4, 5}));
}

TEST(PointWithVector3, hasTheCompoundForms) {
    CGPoint point = p;
    EXPECT_EQ(&(point += v), &point);
    EXPECT_EQ(point, (CGPoint{15, 24}));
    point -= v;
    EXPECT_EQ(point, (CGPoint{12, 20}));
    point *= v;
    EXPECT_EQ(point, (CGPoint{36, 80}));
    point /= v;
    EXPECT_EQ(point, (CGPoint{12, 20}));
}

TEST(Vector3WithPoint, keepsTheThirdComponent) {
    const Vector3 a{12, 20, 7};
    const CGPoint b{3, 4};
    EXPECT_EQ(a + b, (Vector3{15, 24, 7}));
    EXPECT_EQ(a - b, (Vector3{9, 16, 7}));
    EXPECT_EQ(a * b, (Vector3{36, 80, 7}));
    EXPECT_EQ(a / b, (Vector3{4, 5, 7}));
}

TEST(Vector3WithPoint, hasTheCompoundForms) {
    Vector3 a{12, 20, 7};
    const CGPoint b{3, 4};
    EXPECT_EQ(&(a += b), &a);
    EXPECT_EQ(a, (Vector3{15, 24, 7}));
    a -= b;
    EXPECT_EQ(a, (Vector3{12, 20, 7}));
    a *= b;
    EXPECT_EQ(a, (Vector3{36, 80, 7}));
    a /= b;
    EXPECT_EQ(a, (Vector3{12, 20, 7}));
}

TEST(SizeWithVector3, scalesWidthByXAndHeightByY) {
    EXPECT_EQ(s * v, (CGSize{36, 80}));
    EXPECT_EQ(s / v, (CGSize{4, 5}));
    CGSize size = s;
    EXPECT_EQ(&(size *= v), &size);
    EXPECT_EQ(size, (CGSize{36, 80}));
    size /= v;
    EXPECT_EQ(size, (CGSize{12, 20}));
}

TEST(Vector3WithSize, scalesXByWidthAndYByHeight) {
    Vector3 a{12, 20, 7};
    const CGSize b{3, 4};
    EXPECT_EQ(a * b, (Vector3{36, 80, 7}));
    EXPECT_EQ(a / b, (Vector3{4, 5, 7}));
    EXPECT_EQ(&(a *= b), &a);
    EXPECT_EQ(a, (Vector3{36, 80, 7}));
    a /= b;
    EXPECT_EQ(a, (Vector3{12, 20, 7}));
}

TEST(RectWithVector3, scalesOriginAndSize) {
    EXPECT_EQ(CGRectMake(1, 2, 30, 40) * v, CGRectMake(3, 8, 90, 160));
    EXPECT_EQ(CGRectMake(3, 8, 90, 160) / v, CGRectMake(1, 2, 30, 40));
}

}  // namespace
}  // namespace quorin
