#include "quorin/svg/reading/EllipticalArc.h"

#include <cmath>

#include "quorin/geometry/PointArithmetic.h"
#include "tests/TestSupport.h"

namespace quorin {
namespace {

using ::testing::SizeIs;

CGPoint pointOn(CGPoint start, const CubicPiece& piece, CGFloat t) {
    const CGFloat s = 1 - t;
    return start * (s * s * s) + piece.control1 * (3 * s * s * t) +
           piece.control2 * (3 * s * t * t) + piece.end * (t * t * t);
}

/// How far the pieces leave the circle, in parts of its radius.
CGFloat worstDeparture(const EllipticalArc& arc, CGPoint center, CGFloat radius) {
    CGFloat worst = 0;
    CGPoint start = arc.from;
    for (const CubicPiece& piece : cubicPieces(arc)) {
        for (int i = 0; i <= 100; ++i) {
            const CGFloat reach = distance(pointOn(start, piece, i / 100.0), center);
            worst = std::max(worst, std::abs(reach / radius - 1));
        }
        start = piece.end;
    }
    return worst;
}

TEST(EllipticalArc, goesOneOfFourWaysBetweenTwoPoints) {
    // Circles of radius 5 through (0, 0) and (6, 0) have their centres at (3, 4) and (3, -4).
    struct Row {
        const char* says;
        bool isLarge, isSweep;
        CGPoint center;
        std::size_t pieces;
        CGPoint middle;  // of the arc
    };
    const Row table[] = {
        {"small, to greater angles", false, true, {3, 4}, 1, {3, -1}},
        {"small, to smaller angles", false, false, {3, -4}, 1, {3, 1}},
        {"large, to greater angles", true, true, {3, -4}, 4, {3, -9}},
        {"large, to smaller angles", true, false, {3, 4}, 4, {3, 9}},
    };
    for (const auto& [says, isLarge, isSweep, center, count, middle] : table) {
        SCOPED_TRACE(says);
        const EllipticalArc arc{{0, 0}, {6, 0}, 5, 5, 0, isLarge, isSweep};
        const std::vector<CubicPiece> pieces = cubicPieces(arc);
        ASSERT_THAT(pieces, SizeIs(count));
        EXPECT_EQ(pieces.back().end, arc.to);
        EXPECT_LT(worstDeparture(arc, center, 5), 2.8e-4);
        const CGPoint reached =
            count == 1 ? pointOn(arc.from, pieces[0], 0.5) : pieces[count / 2 - 1].end;
        EXPECT_NEAR(reached.x, middle.x, 2e-3);
        EXPECT_NEAR(reached.y, middle.y, 2e-3);
    }
}

TEST(EllipticalArc, makesTwoPiecesOfAHalfTurn) {
    const EllipticalArc arc{{-1, 0}, {1, 0}, 1, 1, 0, false, true};
    const std::vector<CubicPiece> pieces = cubicPieces(arc);
    ASSERT_THAT(pieces, SizeIs(2));
    EXPECT_NEAR(pieces[0].end.x, 0, 1e-15);
    EXPECT_NEAR(pieces[0].end.y, -1, 1e-15);
    // The handles of a quarter circle are 4(√2 − 1)/3 long.
    EXPECT_NEAR(pieces[0].control1.y, -0.5522847498307936, 1e-15);
    EXPECT_NEAR(pieces[0].control2.x, -0.5522847498307936, 1e-15);
}

TEST(EllipticalArc, turnsTheEllipse) {
    // The ellipse of radii 4 and 2, turned by 90 degrees, from its top to its right.
    const EllipticalArc arc{{0, -4}, {2, 0}, 4, 2, 90, false, true};
    const std::vector<CubicPiece> pieces = cubicPieces(arc);
    ASSERT_THAT(pieces, SizeIs(1));
    const CGPoint middle = pointOn(arc.from, pieces[0], 0.5);
    EXPECT_NEAR(middle.x, 2 * std::sqrt(0.5), 1e-3);
    EXPECT_NEAR(middle.y, -4 * std::sqrt(0.5), 2e-3);
}

TEST(EllipticalArc, growsRadiiThatAreTooSmall) {
    const EllipticalArc arc{{0, 0}, {10, 0}, 1, 1, 0, false, true};
    EXPECT_LT(worstDeparture(arc, {5, 0}, 5), 2.8e-4);
    const EllipticalArc flat{{0, 0}, {10, 0}, -1, 0.5, 0, false, true};
    const std::vector<CubicPiece> pieces = cubicPieces(flat);
    ASSERT_THAT(pieces, SizeIs(2));
    EXPECT_NEAR(pieces[0].end.y, -2.5, 1e-14);
}

TEST(EllipticalArc, isNothingBetweenEqualPointsAndStraightWithoutRadius) {
    EXPECT_TRUE(cubicPieces({{3, 4}, {3, 4}, 5, 5, 0, true, true}).empty());
    for (const auto& [radiusX, radiusY] : {std::pair(0.0, 5.0), std::pair(5.0, 0.0)}) {
        const auto pieces = cubicPieces({{0, 0}, {6, 0}, radiusX, radiusY, 0, true, true});
        ASSERT_THAT(pieces, SizeIs(1));
        EXPECT_EQ(pieces[0].control1, (CGPoint{0, 0}));
        EXPECT_EQ(pieces[0].control2, (CGPoint{6, 0}));
        EXPECT_EQ(pieces[0].end, (CGPoint{6, 0}));
    }
}

TEST(EllipticalArc, goesTheShortWayOnAHugeCircle) {
    // Both ends have the same angle to the last bit, so a difference of angles could go round.
    const EllipticalArc arc{{0, 0}, {1e-7, 0}, 1e10, 1e10, 0, false, true};
    const std::vector<CubicPiece> pieces = cubicPieces(arc);
    ASSERT_THAT(pieces, SizeIs(1));
    EXPECT_LT(distance(pieces[0].control1, {0, 0}), 1e-7);
}

TEST(EllipticalArc, staysFiniteWhereNumbersOverflow) {
    const CGFloat most = 1.7e308;
    for (const EllipticalArc& arc :
         {EllipticalArc{{-most, 0}, {most, 0}, 1, 1, 0, false, true},
          EllipticalArc{{0, 0}, {1, 1}, most, 1e-300, 33, true, true},
          EllipticalArc{{0, 0}, {1, 1}, 1e-320, 1e-320, 1e300, true, false}}) {
        const std::vector<CubicPiece> pieces = cubicPieces(arc);
        ASSERT_FALSE(pieces.empty());
        EXPECT_EQ(pieces.back().end, arc.to);
    }
}

RC_GTEST_PROP(EllipticalArc, keepsTheDistanceFromOneCentre, ()) {
    const auto coordinate =
        rc::gen::map(rc::gen::inRange(-1000, 1001), [](int i) { return i / 10.0; });
    const EllipticalArc arc{
        {*coordinate, *coordinate},  {*coordinate, *coordinate}, 300, 300, *coordinate,
        *rc::gen::arbitrary<bool>(), *rc::gen::arbitrary<bool>()};
    RC_PRE(!(arc.from == arc.to));
    // The centre lies on the perpendicular through the middle of the chord.
    const CGPoint chord = arc.to - arc.from;
    const CGFloat length = distance(arc.from, arc.to);
    const CGFloat height = std::sqrt(300.0 * 300 - length * length / 4);
    const CGFloat side = arc.isLarge == arc.isSweep ? 1 : -1;
    const CGPoint normal{chord.y / length * side, -chord.x / length * side};
    const CGPoint center = (arc.from + arc.to) / 2.0 + normal * height;
    RC_ASSERT(worstDeparture(arc, center, 300) < 2.8e-4);
    RC_ASSERT(cubicPieces(arc).back().end == arc.to);
}

}  // namespace
}  // namespace quorin
