#include "quorin/platform/cgpath/MonotonePiece.h"

#include <cmath>
#include <vector>

#include "quorin/platform/cgpath/MonotoneOutline.h"
#include "tests/TestSupport.h"
#include "tests/platform/cgpath/RandomOutlines.h"

namespace quorin {
namespace {

using namespace test;

MonotoneOutline outlineOf(const CGPath& path) {
    std::vector<CGPathElementType> types;
    std::vector<CGPoint> points;
    path.apply([&](const CGPathElement& element) {
        types.push_back(element.type);
        points.insert(points.end(), element.points.begin(), element.points.end());
    });
    return MonotoneOutline(types, points);
}

TEST(MonotonePiece, stepsAtItsLowerEndAndNotAtItsUpperOne) {
    const MonotonePiece up{0, 1, {0, 1}, {0, 2}};
    EXPECT_EQ(up.stepAt(0.5), 0);
    EXPECT_EQ(up.stepAt(1), 1);
    EXPECT_EQ(up.stepAt(1.5), 1);
    EXPECT_EQ(up.stepAt(2), 0);
    const MonotonePiece down{0, 1, {0, 2}, {0, 1}};
    EXPECT_EQ(down.stepAt(1), -1);
    EXPECT_EQ(down.stepAt(2), 0);
    const MonotonePiece flat{0, 1, {0, 1}, {5, 1}};
    EXPECT_EQ(flat.stepAt(1), 0);
}

TEST(MonotonePiece, countsForPointsToItsRight) {
    const OutlineCurve curve = OutlineCurve::cubic({0, 0}, {3, 0}, {0, 3}, {3, 3});
    const MonotonePiece piece{0, 1, {0, 0}, {3, 3}};
    EXPECT_EQ(piece.windingAround({-1, 1}, curve), (Winding{0, false}));
    EXPECT_EQ(piece.windingAround({4, 1}, curve), (Winding{1, false}));
    EXPECT_EQ(piece.windingAround({0.1, 1.4}, curve), (Winding{0, false}));
    EXPECT_EQ(piece.windingAround({2.9, 1.6}, curve), (Winding{1, false}));
    EXPECT_EQ(piece.windingAround({1.5 - 1e-7, 1.5}, curve), (Winding{0, false}));
    EXPECT_EQ(piece.windingAround({1.5 + 1e-7, 1.5}, curve), (Winding{1, false}));
    EXPECT_EQ(piece.windingAround({1.5, 1.5}, curve), (Winding{0, true}));
    EXPECT_EQ(piece.windingAround({1, 4}, curve), (Winding{0, false}));
}

TEST(MonotonePiece, isTheOutlineExactlyWithinReach) {
    RandomOutlines random(OutlineKind::scribble);
    const MonotoneOutline outline = outlineOf(*random.path(20));
    int asked = 0;
    for (const auto& piece : outline.pieces) {
        const OutlineCurve& curve = outline.curves[piece.curve];
        for (const CGFloat share : {0.2, 0.5, 0.9}) {
            const CGFloat t = piece.startTime + (piece.endTime - piece.startTime) * share;
            const CGPoint way = curve.wayTo(t), velocity = curve.velocityAt(t);
            const CGFloat speed = std::hypot(velocity.x, velocity.y);
            if (speed < 10)
                continue;  // the curve may bend within reach
            const auto aside = [&](CGFloat distance) {
                return CGPoint{curve.start.x + way.x - velocity.y / speed * distance,
                               curve.start.y + way.y + velocity.x / speed * distance};
            };
            for (const CGFloat side : {-1.0, 1.0}) {
                EXPECT_TRUE(piece.windingAround(aside(side * 0.999e-8), curve).isOnOutline);
                // The way up has the points to its left at smaller x.
                const CGPoint beyond = aside(side * 1.001e-8);
                const bool isCrossed = side < 0 ? velocity.y > 0 : velocity.y < 0;
                EXPECT_EQ(piece.windingAround(beyond, curve),
                          (Winding{isCrossed ? piece.stepAt(beyond.y) : 0, false}));
                ++asked;
            }
        }
    }
    EXPECT_GT(asked, 200);
}

TEST(MonotoneOutline, isMadeOfRingsOfPiecesThatTurnNowhere) {
    for (const OutlineKind kind : allOutlineKinds) {
        SCOPED_TRACE(nameOf(kind));
        const MonotoneOutline outline = outlineOf(*RandomOutlines(kind).path(60));
        ASSERT_FALSE(outline.pieces.empty());
        CGPoint ring = outline.pieces.front().start;
        for (std::size_t index = 0; index < outline.pieces.size(); ++index) {
            const auto& piece = outline.pieces[index];
            const bool isLast = index + 1 == outline.pieces.size();
            if (isLast || !(outline.pieces[index + 1].start == piece.end)) {
                EXPECT_EQ(piece.end, ring);
                ring = isLast ? ring : outline.pieces[index + 1].start;
            }
            const OutlineCurve& curve = outline.curves[piece.curve];
            // Up to rounding, which is coarser far away.
            const CGFloat slack = 1e-12 * (1 + std::abs(curve.start.x));
            for (CGFloat share = 0; share <= 1; share += 0.125) {
                const CGFloat t = piece.startTime + (piece.endTime - piece.startTime) * share;
                const CGFloat x = curve.start.x + curve.wayTo(t).x;
                const CGFloat y = curve.start.y + curve.wayTo(t).y;
                EXPECT_GE(x, std::min(piece.start.x, piece.end.x) - slack);
                EXPECT_LE(x, std::max(piece.start.x, piece.end.x) + slack);
                EXPECT_GE(y, std::min(piece.start.y, piece.end.y) - slack);
                EXPECT_LE(y, std::max(piece.start.y, piece.end.y) + slack);
            }
        }
    }
}

}  // namespace
}  // namespace quorin
