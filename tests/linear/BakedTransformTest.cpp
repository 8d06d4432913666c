#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "quorin/geometry/PointArithmetic.h"
#include "quorin/linear/Matrix4.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

using Quad = std::array<CGPoint, 4>;

/// The corners of a rect of this size about the origin.
Quad cornersAboutOrigin(CGFloat width, CGFloat height) {
    const CGFloat x = width / 2, y = height / 2;
    return {{{-x, -y}, {x, -y}, {x, y}, {-x, y}}};
}

CGPoint image(const Matrix4& m, CGPoint p) {
    const Vector4 v = (m * Vector4{p.x, p.y, 0, 1}).toReal();
    return {v.x, v.y};
}

/// Where the diagonals cross: perspective takes the centre of a rect there.
CGPoint crossing(const Quad& q) {
    const long double ax = q[2].x - q[0].x, ay = q[2].y - q[0].y;
    const long double bx = q[3].x - q[1].x, by = q[3].y - q[1].y;
    const long double dx = q[1].x - q[0].x, dy = q[1].y - q[0].y;
    const long double t = (dx * by - dy * bx) / (ax * by - ay * bx);
    return {static_cast<CGFloat>(q[0].x + t * ax), static_cast<CGFloat>(q[0].y + t * ay)};
}

TEST(BakedTransform, isTheIdentityForTheOwnCorners) {
    const CGRect bounds = CGRectMake(100, 50, 30, 20);
    EXPECT_TRUE(Matrix4::bakedTransform(cornersAboutOrigin(30, 20), bounds).isNearlyIdentity());
}

TEST(BakedTransform, dividesByTheLastElementRatherThanMultiplyByItsInverse) {
    for (int size = 1; size < 50; ++size)  // whole numbers, and so exact until then
        EXPECT_TRUE(Matrix4::bakedTransform(cornersAboutOrigin(2 * size, 2 * size),
                                            CGRectMake(0, 0, 2 * size, 2 * size))
                        .isIdentity())
            << size;
}

TEST(BakedTransform, isTheIdentityForEmptyBoundsWithoutALookAtThePoints) {
    EXPECT_EQ(Matrix4::bakedTransform({}, CGRectMake(7, 8, 0, 0)), Matrix4::identity);
    EXPECT_EQ(Matrix4::bakedTransform(cornersAboutOrigin(9, 9), CGRect::zero), Matrix4::identity);
}

TEST(BakedTransformDeathTest, stopsTheProcessForFewerThanFourPoints) {
    const Quad corners = cornersAboutOrigin(30, 20);
    const std::span<const CGPoint> three = std::span(corners).first(3);
    EXPECT_DEATH(static_cast<void>(Matrix4::bakedTransform(three, CGRectMake(0, 0, 30, 20))),
                 "baked transform from 3 of 4 points");
    EXPECT_DEATH(static_cast<void>(Matrix4::bakedTransform(three, CGRectMake(0, 0, 30, 0))),
                 "baked transform from 3 of 4 points");
}

TEST(BakedTransform, leavesFurtherPointsOut) {
    const Quad corners = {{{0, 0}, {4, 0}, {3, 3}, {0, 2}}};
    std::vector<CGPoint> more(corners.begin(), corners.end());
    more.push_back({77, 88});
    const CGRect bounds = CGRectMake(0, 0, 30, 20);
    EXPECT_EQ(Matrix4::bakedTransform(more, bounds), Matrix4::bakedTransform(corners, bounds));
}

TEST(BakedTransform, asksOnlyForTheSizeOfTheBounds) {
    const Quad corners = {{{0, 0}, {4, 0}, {3, 3}, {0, 2}}};
    EXPECT_EQ(Matrix4::bakedTransform(corners, CGRectMake(10, -20, 30, 20)),
              Matrix4::bakedTransform(corners, CGRectMake(-15, -10, 30, 20)));
}

TEST(BakedTransform, scalesAboutTheCentreAndForgetsThePlace) {
    Quad corners = cornersAboutOrigin(60, 20);
    for (CGPoint& corner : corners)
        corner = corner + CGPoint{500, 300};
    const Matrix4 m = Matrix4::bakedTransform(corners, CGRectMake(0, 0, 30, 20));
    EXPECT_TRUE(isNearlyEqual(m, Matrix4::withScale({2, 1, 1})));
}

TEST(BakedTransform, hasTheElementsOfItsProjection) {
    // A square whose far edge (y = 1) looks half as long and half as far away as the near one.
    const Quad corners = {{{-2, -2}, {2, -2}, {1, 1}, {-1, 1}}};
    const Matrix4 m = Matrix4::bakedTransform(corners, CGRectMake(0, 0, 2, 2));
    const CGFloat third = 1.0 / 3;
    EXPECT_TRUE(isNearlyEqual(m, Matrix4(4 * third, 0, 0, 0,      //
                                         0, 4 * third, 0, third,  //
                                         0, 0, 1, 0,              //
                                         0, 0, 0, 1)));
}

/// Convex, so that no place between the corners runs to infinity.
rc::Gen<Quad> convexQuad() {
    const auto shift = rc::gen::container<std::array<int, 8>>(rc::gen::inRange(-40, 41));
    return rc::gen::map(shift, [](const std::array<int, 8>& d) {
        Quad quad = cornersAboutOrigin(200, 200);
        for (std::size_t i = 0; i < 4; ++i)
            quad[i] = quad[i] + CGPoint{CGFloat(d[2 * i]), CGFloat(d[2 * i + 1])};
        return quad;
    });
}

RC_GTEST_PROP(BakedTransform, takesTheCornersToThePointsAroundTheImageOfTheCentre, ()) {
    const Quad points = *convexQuad();
    const CGFloat width = *rc::gen::inRange(1, 300), height = *rc::gen::inRange(1, 300);
    const Matrix4 m = Matrix4::bakedTransform(points, CGRectMake(3, 4, width, height));
    const Quad corners = cornersAboutOrigin(width, height);
    for (std::size_t i = 0; i < 4; ++i) {
        const CGPoint expected = points[i] - crossing(points), at = image(m, corners[i]);
        RC_ASSERT(std::abs(at.x - expected.x) < 1e-9);
        RC_ASSERT(std::abs(at.y - expected.y) < 1e-9);
    }
    const CGPoint centre = image(m, {0, 0});
    RC_ASSERT(std::abs(centre.x) < 1e-9);
    RC_ASSERT(std::abs(centre.y) < 1e-9);
}

TEST(BakedTransform, takesNegativeSizesAsTheyAre) {
    // The first corner is then the one at the greatest x.
    const Quad points = {{{15, -10}, {-15, -10}, {-15, 10}, {15, 10}}};
    EXPECT_TRUE(Matrix4::bakedTransform(points, CGRectMake(30, 0, -30, 20)).isNearlyIdentity());
}

TEST(BakedTransform, flattensTheImageForThreePointsInALine) {
    const Quad points = {{{0, 0}, {1, 0}, {2, 0}, {0, 1}}};
    EXPECT_EQ(Matrix4::bakedTransform(points, CGRectMake(0, 0, 2, 2)),
              Matrix4(0.5, 0, 0, 0.5, 0.5, 0, 0, -0.5, 0, 0, 1, 0, 0, 0, 0, 1));
}

TEST(BakedTransform, isNaNForFourPointsInALineOrBoundsWithoutArea) {
    const Quad inLine = {{{0, 0}, {1, 1}, {2, 2}, {3, 3}}};
    EXPECT_TRUE(std::isnan(Matrix4::bakedTransform(inLine, CGRectMake(0, 0, 2, 2)).m11));
    const Quad points = cornersAboutOrigin(2, 2);
    EXPECT_TRUE(std::isnan(Matrix4::bakedTransform(points, CGRectMake(0, 0, 2, 0)).m11));
    EXPECT_TRUE(std::isnan(Matrix4::bakedTransform(points, CGRectMake(0, 0, 0, 2)).m11));
}

}  // namespace
}  // namespace quorin
