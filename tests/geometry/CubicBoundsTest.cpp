#include "quorin/geometry/CubicBounds.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

using ::testing::DoubleNear;

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();

using Cubic = std::array<CGPoint, 4>;

Bounds boundsOf(const std::vector<Cubic>& cubics) {
    Bounds box;
    for (const auto& [p1, c1, c2, p2] : cubics)
        extendByCubic(box, p1, c1, c2, p2);
    return box;
}

std::array<CGFloat, 4> sides(const Bounds& box) {
    return {box.min[0], box.min[1], box.max[0], box.max[1]};
}

void expectSides(const Bounds& box, CGFloat minX, CGFloat minY, CGFloat maxX, CGFloat maxY) {
    EXPECT_THAT(box.min[0], DoubleNear(minX, 1e-12));
    EXPECT_THAT(box.min[1], DoubleNear(minY, 1e-12));
    EXPECT_THAT(box.max[0], DoubleNear(maxX, 1e-12));
    EXPECT_THAT(box.max[1], DoubleNear(maxY, 1e-12));
}

TEST(Bounds, areNullBeforeAnythingIsAdded) {
    EXPECT_TRUE(Bounds().isEmpty());
    EXPECT_TRUE(CGRectIsNull(Bounds().rect()));
}

TEST(Bounds, ofOnePointHaveNoSize) {
    Bounds box;
    extendByPoint(box, {3, 4});
    EXPECT_EQ(box.rect(), CGRectMake(3, 4, 0, 0));
}

TEST(Bounds, passOverWhatIsNotANumber) {
    Bounds box;
    extendByPoint(box, {nan, nan});
    EXPECT_TRUE(box.isEmpty());
    extendByPoint(box, {1, 2});
    extendByPoint(box, {nan, 5});
    EXPECT_EQ(box.rect(), CGRectMake(1, 2, 0, 3));
}

TEST(CubicBounds, areThoseOfAnIconOfFiveCubics) {
    const std::vector<Cubic> icon = {
        {{{13.68752, 15.483618},
          {6.1165633, 12.08989},
          {4.412796, 12.770705},
          {3.231074, 15.322257}}},
        {{{3.231074, 15.322257},
          {2.0493531, 17.873812},
          {-2.4950337, 7.8268027},
          {2.2409132, 4.4050307}}},
        {{{2.2409132, 4.4050307},
          {6.97686, .98325753},
          {12.049765, -.34644848},
          {14.740673, .3714725}}},
        {{{14.740673, .3714725},
          {17.431581, 1.0893925},
          {19.921005, 4.5336003},
          {20.673872, 6.8366413}}},
        {{{20.673872, 6.8366413},
          {21.42674, 9.139683},
          {21.344765, 14.534013},
          {20.593191, 17.385418}}},
        {{{20.593191, 17.385418},
          {19.84162, 20.236822},
          {16.858624, 16.604939},
          {13.68752, 15.483618}}},
    };
    expectSides(boundsOf(icon), .129837298618, .18292788237146, 21.19934267996, 18.454193145416);
}

TEST(CubicBounds, ofACurveWithTwoFoldsAreThoseOfTheFolds) {
    const Bounds box = boundsOf({{{{0, 10}, {-10, 10}, {180, 10}, {60, 10}}}});
    expectSides(box, -0.38337601385638, 10, 99.883568247613, 10);
}

TEST(CubicBounds, findATurnCloseToAnEnd) {
    // The turn at t = 1 − 4.99e-4 passes the end by 2.5e-6.
    const Bounds box = boundsOf({{{{10, 0}, {9.99, 0}, {20.01, 0}, {20, 0}}}});
    EXPECT_LT(box.min[0], 10);
    EXPECT_GT(box.max[0], 20);
    EXPECT_THAT(box.max[0] - 20, DoubleNear(10 - box.min[0], 1e-13));
}

TEST(CubicBounds, areTheEndsWhenNothingTurns) {
    EXPECT_EQ(boundsOf({{{{0, 0}, {1, 5}, {2, 5}, {3, 9}}}}).rect(), CGRectMake(0, 0, 3, 9));
    EXPECT_EQ(boundsOf({{{{2, 1}, {2, 1}, {2, 1}, {2, 1}}}}).rect(), CGRectMake(2, 1, 0, 0));
}

TEST(CubicBounds, followAControlToInfinity) {
    EXPECT_EQ(sides(boundsOf({{{{0, 0}, {infinity, 1}, {1, -infinity}, {2, 0}}}})),
              (std::array<CGFloat, 4>{0, -infinity, infinity, 0}));
}

TEST(CubicBounds, passOverAControlThatIsNotANumber) {
    EXPECT_EQ(boundsOf({{{{0, 0}, {nan, nan}, {50, 50}, {2, 3}}}}).rect(), CGRectMake(0, 0, 2, 3));
}

TEST(CubicBounds, ofHugeCurvesAreThoseOfSmallOnesScaled) {
    const Bounds small = boundsOf({{{{0, 0}, {3, 1}, {-3, 8}, {1, 0}}}});
    constexpr CGFloat unit = 0x1p1000;
    const Bounds huge = boundsOf({{{{0, 0}, {3 * unit, unit}, {-3 * unit, 8 * unit}, {unit, 0}}}});
    expectSides({huge.min / unit, huge.max / unit}, small.min[0], small.min[1], small.max[0],
                small.max[1]);
}

TEST(QuadraticBounds, areExact) {
    Bounds box;
    extendByQuadratic(box, {0, 0}, {1, 2}, {2, 0});
    EXPECT_EQ(box.rect(), CGRectMake(0, 0, 2, 1));
}

TEST(QuadraticBounds, areThoseOfTheRaisedCubic) {
    const CGPoint p1{1, 7}, c{-8, 30}, p2{4, -2};
    Bounds quadratic;
    extendByQuadratic(quadratic, p1, c, p2);
    const Bounds cubic = boundsOf({{{p1,
                                     {(p1.x + 2 * c.x) / 3, (p1.y + 2 * c.y) / 3},
                                     {(p2.x + 2 * c.x) / 3, (p2.y + 2 * c.y) / 3},
                                     p2}}});
    expectSides(quadratic, cubic.min[0], cubic.min[1], cubic.max[0], cubic.max[1]);
}

rc::Gen<CGPoint> pointOfSize(CGFloat size) {
    const auto number =
        rc::gen::map(rc::gen::inRange(-1000, 1001), [size](int n) { return n * size / 1000; });
    return rc::gen::map(rc::gen::pair(number, number), [](const auto& xy) {
        return CGPoint{xy.first, xy.second};
    });
}

rc::Gen<Cubic> cubicOfSize(CGFloat size) {
    const auto point = pointOfSize(size);
    return rc::gen::container<Cubic>(point);
}

TEST(CubicBounds, stayInTheControlHullWhereTheExtremumRoundsOutOfIt) {
    // Controls an ulp or two apart, between which plain interpolation rounds up.
    const Bounds box = boundsOf({{{{0.94796343626961488, 0.90909447608025518},
                                   {0.9479634362696151, 0.90909447608025551},
                                   {0.86565343205634926, 0.90909447608025518},
                                   {0.55598826477583707, 0.90909447608025518}}}});
    EXPECT_LE(box.max[0], 0.9479634362696151);
    EXPECT_LE(box.max[1], 0.90909447608025551);
}

RC_GTEST_PROP(CubicBounds, neverLeaveTheControlHull, (std::array<CGFloat, 8> numbers)) {
    const auto& [a, b, c, d, e, f, g, h] = numbers;
    const Bounds tight = boundsOf({{{{a, b}, {c, d}, {e, f}, {g, h}}}});
    Bounds hull;
    for (const CGPoint point : {CGPoint{a, b}, CGPoint{c, d}, CGPoint{e, f}, CGPoint{g, h}})
        extendByPoint(hull, point);
    RC_ASSERT(areBothAtMost(hull.min, tight.min));
    RC_ASSERT(areBothAtMost(tight.max, hull.max));
}

// The same box whether a curve is passed over, since its controls are in the box, or not.
RC_GTEST_PROP(CubicBounds, ofManyAreTheUnionOfTheBoundsOfEach, ()) {
    const auto cubics = *rc::gen::container<std::vector<Cubic>>(cubicOfSize(0.1));
    Bounds joined;
    for (const Cubic& cubic : cubics) {
        const Bounds alone = boundsOf({cubic});
        extendByPoint(joined, pointOf(alone.min));
        extendByPoint(joined, pointOf(alone.max));
    }
    RC_ASSERT(sides(boundsOf(cubics)) == sides(joined));
}

RC_GTEST_PROP(CubicBounds, areTouchedByTheCurveOnEverySide, ()) {
    const Cubic cubic = *cubicOfSize(100);
    const auto& [p1, c1, c2, p2] = cubic;
    const Bounds box = boundsOf({cubic});
    std::array<long double, 4> reached{infinity, infinity, -infinity, -infinity};
    constexpr int steps = 4000;
    for (int step = 0; step <= steps; ++step) {
        const long double t = static_cast<long double>(step) / steps, s = 1 - t;
        const long double b0 = s * s * s, b1 = 3 * s * s * t, b2 = 3 * s * t * t, b3 = t * t * t;
        const long double x = b0 * p1.x + b1 * c1.x + b2 * c2.x + b3 * p2.x;
        const long double y = b0 * p1.y + b1 * c1.y + b2 * c2.y + b3 * p2.y;
        reached = {std::min(reached[0], x), std::min(reached[1], y), std::max(reached[2], x),
                   std::max(reached[3], y)};
    }
    // Between two samples a curve of this size turns by less than 1e-4.
    const auto found = sides(box);
    for (std::size_t side = 0; side < 4; ++side) {
        const long double beyond =
            side < 2 ? reached[side] - found[side] : found[side] - reached[side];
        RC_ASSERT(beyond > -1e-12L);
        RC_ASSERT(beyond < 1e-4L);
    }
}

}  // namespace
}  // namespace quorin
