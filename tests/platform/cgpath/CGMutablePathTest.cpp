#include "quorin/platform/cgpath/CGMutablePath.h"

#include <cmath>
#include <limits>
#include <numbers>

#include "tests/TestSupport.h"
#include "tests/platform/cgpath/Elements.h"

namespace quorin {
namespace {

using ::testing::DoubleEq;
using ::testing::DoubleNear;
using ::testing::ElementsAre;
using namespace test;

constexpr CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();

TEST(CGMutablePathDeathTest, needsACurrentPointToDraw) {
    CGMutablePath path;
    EXPECT_DEATH(path.addLineTo({1, 1}), "no current point: the path has 0 elements");
    EXPECT_DEATH(path.addQuadCurveTo({1, 1}, {2, 2}), "no current point");
    EXPECT_DEATH(path.addCurveTo({1, 1}, {2, 2}, {3, 3}), "no current point");
    EXPECT_DEATH(path.addArcToPoint({1, 1}, {2, 2}, 1), "no current point");
    EXPECT_DEATH((void)path.currentPoint(), "no current point");
}

TEST(CGMutablePathDeathTest, hasNoCurrentPointAfterItsPathIsTaken) {
    CGMutablePath path;
    path.moveTo({1, 1});
    (void)path.take();
    EXPECT_DEATH(path.addLineTo({1, 1}), "no current point");
}

TEST(CGMutablePath, closingAnEmptyPathDoesNothing) {
    CGMutablePath path;
    path.closeSubpath();
    EXPECT_TRUE(path.isEmpty());
}

TEST(CGMutablePath, goesOnFromTheLastPoint) {
    CGMutablePath path;
    path.moveTo({1, 2});
    EXPECT_EQ(path.currentPoint(), (CGPoint{1, 2}));
    path.addLineTo({3, 4});
    EXPECT_EQ(path.currentPoint(), (CGPoint{3, 4}));
    path.addQuadCurveTo({5, 6}, {0, 0});
    EXPECT_EQ(path.currentPoint(), (CGPoint{5, 6}));
    path.addCurveTo({7, 8}, {0, 0}, {0, 0});
    EXPECT_EQ(path.currentPoint(), (CGPoint{7, 8}));
}

TEST(CGMutablePath, goesOnFromTheStartOfTheSubpathAfterAClose) {
    CGMutablePath path;
    path.moveTo({1, 2});
    path.addLineTo({3, 4});
    path.moveTo({5, 6});
    path.addLineTo({7, 8});
    path.closeSubpath();
    EXPECT_EQ(path.currentPoint(), (CGPoint{5, 6}));
    path.addLineTo({9, 9});
    path.closeSubpath();
    EXPECT_EQ(path.currentPoint(), (CGPoint{5, 6}));
}

TEST(CGMutablePath, copyIsNotChangedByWhatIsDrawnLater) {
    CGMutablePath builder;
    builder.moveTo({1, 1});
    const auto first = builder.copy();
    builder.addLineTo({2, 2});
    const auto second = builder.copy();
    EXPECT_THAT(elementsOf(*first), ElementsAre(moveTo({1, 1})));
    EXPECT_THAT(elementsOf(*second), ElementsAre(moveTo({1, 1}), lineTo({2, 2})));
}

TEST(CGMutablePath, isEmptyAfterItsPathIsTaken) {
    CGMutablePath builder;
    builder.moveTo({1, 1});
    EXPECT_EQ(builder.take()->elementCount(), 1u);
    EXPECT_TRUE(builder.isEmpty());
    EXPECT_TRUE(builder.take()->isEmpty());
}

TEST(CGMutablePath, reservingDrawsNothing) {
    CGMutablePath builder;
    builder.reserve(10, 20);
    EXPECT_TRUE(builder.isEmpty());
}

TEST(CGMutablePath, addsAPathWithItsPointsTransformed) {
    CGMutablePath part;
    part.moveTo({1, 1});
    part.addLineTo({2, 1});
    part.addQuadCurveTo({4, 1}, {3, 1});
    part.addCurveTo({7, 1}, {5, 1}, {6, 1});
    part.closeSubpath();

    CGMutablePath builder;
    builder.moveTo({9, 9});
    builder.addPath(*part.copy(), {2, 0, 0, 3, 10, 20});
    EXPECT_THAT(
        elementsOf(*builder.copy()),
        ElementsAre(moveTo({9, 9}), moveTo({12, 23}), lineTo({14, 23}), quadTo({16, 23}, {18, 23}),
                    curveTo({20, 23}, {22, 23}, {24, 23}), close()));
    EXPECT_EQ(builder.currentPoint(), (CGPoint{12, 23}));
}

TEST(CGMutablePath, addsAPathAsItIsWithoutATransform) {
    CGMutablePath part;
    part.addRect(CGRectMake(0.1, 0.2, 0.3, 0.4));
    CGMutablePath builder;
    builder.addPath(*part.copy());
    builder.addPath(*CGMutablePath().take());
    EXPECT_EQ(*builder.take(), *part.take());
}

TEST(CGMutablePath, addsARectAsAClosedSubpathFromItsOrigin) {
    CGMutablePath builder;
    builder.addRect(CGRectMake(1, 2, 10, 20));
    EXPECT_THAT(
        elementsOf(*builder.take()),
        ElementsAre(moveTo({1, 2}), lineTo({11, 2}), lineTo({11, 22}), lineTo({1, 22}), close()));
}

TEST(CGMutablePath, addsAnEllipseThatStaysWithin3e4OfItsRadius) {
    CGMutablePath builder;
    builder.addEllipseInRect(CGRectMake(-3, -4, 6, 12));
    const auto elements = elementsOf(*builder.take());
    ASSERT_EQ(elements.size(), 6u);
    EXPECT_EQ(elements[0], moveTo({3, 2}));
    EXPECT_EQ(elements[1].points.back(), (CGPoint{0, 8}));
    EXPECT_EQ(elements[5], close());
    CGPoint p1 = elements[0].points[0];
    for (std::size_t index = 1; index < 5; ++index) {
        const auto& controls = elements[index].points;
        for (CGFloat t = 0; t <= 1; t += 0.05) {
            const CGFloat s = 1 - t;
            const CGFloat b0 = s * s * s, b1 = 3 * s * s * t, b2 = 3 * s * t * t, b3 = t * t * t;
            const CGFloat x =
                b0 * p1.x + b1 * controls[0].x + b2 * controls[1].x + b3 * controls[2].x;
            const CGFloat y =
                b0 * p1.y + b1 * controls[0].y + b2 * controls[1].y + b3 * controls[2].y;
            EXPECT_THAT(std::hypot(x / 3, (y - 2) / 6), DoubleNear(1, 3e-4));
        }
        p1 = controls[2];
    }
}

TEST(ArcByTangents, roundsARightAngleWithAQuarterCircle) {
    CGMutablePath path;
    path.moveTo({0, 0});
    path.addArcToPoint({10, 0}, {10, 10}, 4);
    const auto elements = elementsOf(*path.take());
    ASSERT_EQ(elements.size(), 3u);
    const CGFloat handle = 4 * 0.5522847498307936;
    const CGPoint expected[] = {{6, 0}, {6 + handle, 0}, {10, 4 - handle}, {10, 4}};
    EXPECT_EQ(elements[1].type, CGPathElementType::addLineToPoint);
    EXPECT_EQ(elements[2].type, CGPathElementType::addCurveToPoint);
    for (std::size_t index = 0; index < 4; ++index) {
        const CGPoint actual = index == 0 ? elements[1].points[0] : elements[2].points[index - 1];
        EXPECT_THAT(actual.x, DoubleNear(expected[index].x, 1e-12));
        EXPECT_THAT(actual.y, DoubleNear(expected[index].y, 1e-12));
    }
}

TEST(ArcByTangents, needsNoLineWhenItStartsAtTheCurrentPoint) {
    struct Row {
        const char* says;
        CGPoint start, tangent1, tangent2;
        CGFloat radius;
    };
    const Row table[] = {
        {"exactly", {6, 0}, {10, 0}, {10, 10}, 4},
        {"but for rounding: 0.7 - 0.5 is less than 0.2", {0.2, 0.1}, {0.7, 0.1}, {0.7, 3}, 0.5},
    };
    for (const auto& [says, start, tangent1, tangent2, radius] : table) {
        SCOPED_TRACE(says);
        CGMutablePath path;
        path.moveTo(start);
        path.addArcToPoint(tangent1, tangent2, radius);
        const auto elements = elementsOf(*path.take());
        ASSERT_EQ(elements.size(), 2u);
        EXPECT_EQ(elements[1].type, CGPathElementType::addCurveToPoint);
    }
}

TEST(ArcByTangents, isAPlainLineWhereThereIsNoArc) {
    struct Row {
        const char* says;
        CGPoint tangent1, tangent2;
        CGFloat radius;
    };
    const Row table[] = {
        {"the first tangent point is the current point", {1, 1}, {5, 9}, 2},
        {"both tangent points coincide", {5, 1}, {5, 1}, 2},
        {"the second tangent point is the current point", {5, 1}, {1, 1}, 2},
        {"the radius is 0", {5, 1}, {5, 9}, 0},
        {"the radius is not a number", {5, 1}, {5, 9}, nan},
        {"straight on", {5, 1}, {9, 1}, 2},
        {"straight back", {5, 1}, {-9, 1}, 2},
        {"straight but for rounding", {1.1, 1.1}, {1.3, 1.3}, 2},
    };
    for (const auto& [says, tangent1, tangent2, radius] : table) {
        SCOPED_TRACE(says);
        CGMutablePath path;
        path.moveTo({1, 1});
        path.addArcToPoint(tangent1, tangent2, radius);
        EXPECT_THAT(elementsOf(*path.take()), ElementsAre(moveTo({1, 1}), lineTo(tangent1)));
    }
}

RC_GTEST_PROP(ArcByTangents, touchesBothTangentsAndKeepsItsRadius, ()) {
    const auto whole = [] { return static_cast<CGFloat>(*rc::gen::inRange(-20, 21)); };
    const CGPoint start{whole(), whole()}, corner{whole(), whole()}, aim{whole(), whole()};
    const CGFloat radius = *rc::gen::inRange(1, 20);
    const CGFloat ux = start.x - corner.x, uy = start.y - corner.y;
    const CGFloat vx = aim.x - corner.x, vy = aim.y - corner.y;
    RC_PRE(ux * vy - uy * vx != 0);

    // The centre is `radius` away from both sides of the corner, on the line that halves it.
    const CGFloat u = std::hypot(ux, uy), v = std::hypot(vx, vy);
    const CGFloat half = std::acos((ux * vx + uy * vy) / (u * v)) / 2;
    const CGFloat hx = ux / u + vx / v, hy = uy / u + vy / v;
    const CGFloat away = radius / std::sin(half) / std::hypot(hx, hy);
    const CGPoint centre{corner.x + hx * away, corner.y + hy * away};

    CGMutablePath path;
    path.moveTo(start);
    path.addArcToPoint(corner, aim, radius);
    const auto elements = elementsOf(*path.take());

    const CGFloat turn = std::numbers::pi - 2 * half;
    std::size_t pieces = 0;
    CGPoint p1 = start;
    for (const auto& [type, points] : elements) {
        if (type == CGPathElementType::addCurveToPoint) {
            ++pieces;
            for (const CGFloat t : {0.0, 0.3, 0.5, 0.7, 1.0}) {
                const CGFloat s = 1 - t;
                const CGFloat b0 = s * s * s, b1 = 3 * s * s * t, b2 = 3 * s * t * t,
                              b3 = t * t * t;
                const CGFloat x =
                    b0 * p1.x + b1 * points[0].x + b2 * points[1].x + b3 * points[2].x;
                const CGFloat y =
                    b0 * p1.y + b1 * points[0].y + b2 * points[1].y + b3 * points[2].y;
                RC_ASSERT(std::abs(std::hypot(x - centre.x, y - centre.y) - radius) <
                          3e-4 * radius + 1e-6 * away);
            }
        }
        p1 = points.back();
    }
    RC_ASSERT(pieces == static_cast<std::size_t>(std::ceil(turn / (std::numbers::pi / 2) - 1e-9)));
    // It ends on the second side, from the corner towards the aim.
    const CGFloat along = ((p1.x - corner.x) * vx + (p1.y - corner.y) * vy) / v;
    const CGFloat aside = ((p1.x - corner.x) * vy - (p1.y - corner.y) * vx) / v;
    RC_ASSERT(std::abs(along - radius / std::tan(half)) < 1e-9 * (1 + along));
    RC_ASSERT(std::abs(aside) < 1e-9 * (1 + along));
}

}  // namespace
}  // namespace quorin
