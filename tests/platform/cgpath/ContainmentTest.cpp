#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

#include "quorin/geometry/Scalar.h"
#include "quorin/platform/cgpath/CGMutablePath.h"
#include "quorin/platform/cgpath/CGPath.h"
#include "tests/TestSupport.h"
#include "tests/platform/cgpath/Elements.h"
#include "tests/platform/cgpath/RandomOutlines.h"

namespace quorin {
namespace {

using namespace test;

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();

std::shared_ptr<const CGPath> polygon(std::initializer_list<CGPoint> corners, bool closes = true) {
    CGMutablePath builder;
    for (const CGPoint corner : corners)
        builder.isEmpty() ? builder.moveTo(corner) : builder.addLineTo(corner);
    if (closes)
        builder.closeSubpath();
    return builder.take();
}

std::shared_ptr<const CGPath> rect(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
    CGMutablePath builder;
    builder.addRect(CGRectMake(x, y, width, height));
    return builder.take();
}

TEST(Containment, ofARectCountsCornersAndEdges) {
    const auto path = rect(-10, -10, 20, 20);
    for (const CGFloat x : {-10, 0, 10})
        for (const CGFloat y : {-10, 0, 10})
            EXPECT_TRUE(path->contains({x, y})) << x << ", " << y;
    for (const CGFloat beyond : {-10.1, 10.1})
        for (const CGFloat at : {-10.0, 0.0, 10.0}) {
            EXPECT_FALSE(path->contains({beyond, at})) << beyond << ", " << at;
            EXPECT_FALSE(path->contains({at, beyond})) << at << ", " << beyond;
        }
}

TEST(Containment, ofACircleHoldsAPointNearItsRim) {
    // Four cubics between the diagonals of a circle around (256, 256) with radius 204.8.
    const CGFloat low = 111.1845, high = 400.8155;
    const CGFloat a = 31.2052, b = 191.1639, c = 320.8361, d = 480.7948;
    CGMutablePath builder;
    builder.moveTo({high, low});
    builder.addCurveTo({high, high}, {d, b}, {d, c});
    builder.addCurveTo({low, high}, {c, d}, {b, d});
    builder.addCurveTo({low, low}, {a, c}, {a, b});
    builder.addCurveTo({high, low}, {b, a}, {c, a});
    builder.closeSubpath();
    const auto path = builder.take();
    EXPECT_TRUE(path->contains({332.85, 445.26}));
    EXPECT_TRUE(path->contains({256, 256}));
    EXPECT_FALSE(path->contains({256 + 204.8, 256 + 60}));
}

TEST(Containment, ofACrescentHoldsPointsAtTheHeightOfItsTurns) {
    CGMutablePath builder;
    builder.moveTo({200, 410});
    builder.addCurveTo({90, 300}, {139.12278747558594, 410}, {90, 360.8772277832031});
    builder.addCurveTo({200, 190}, {90, 239.12278747558594}, {139.12278747558594, 190});
    builder.addCurveTo({110, 300}, {150.19137573242188, 210}, {110, 250.19137573242188});
    builder.addCurveTo({200, 390}, {110, 349.8086242675781}, {150.19137573242188, 390});
    builder.closeSubpath();
    const auto path = builder.take();
    for (const CGFloat y : {299.9, 300.0, 300.1}) {
        EXPECT_TRUE(path->contains({100, y})) << y;
        EXPECT_FALSE(path->contains({89, y})) << y;
        EXPECT_FALSE(path->contains({111, y})) << y;
    }
}

TEST(Containment, takesAFlatCubicForTheSideItIs) {
    CGMutablePath builder;
    builder.moveTo({100, 100});
    builder.addCurveTo({200, 100}, {120, 100}, {180, 100});
    builder.addLineTo({150, 200});
    builder.closeSubpath();
    const auto path = builder.take();
    EXPECT_FALSE(path->contains({0, 100}));
    EXPECT_FALSE(path->contains({300, 100}));
    EXPECT_TRUE(path->contains({150, 100}));
    EXPECT_FALSE(path->contains({150, 99.9}));
    EXPECT_TRUE(path->contains({150, 100.1}));
}

TEST(Containment, ofAnIconIsThatOfItsFill) {
    CGMutablePath builder;
    builder.moveTo({13.68752, 15.483618});
    builder.addCurveTo({3.231074, 15.322257}, {6.1165633, 12.08989}, {4.412796, 12.770705});
    builder.addCurveTo({2.2409132, 4.4050307}, {2.0493531, 17.873812}, {-2.4950337, 7.8268027});
    builder.addCurveTo({14.740673, .3714725}, {6.97686, .98325753}, {12.049765, -.34644848});
    builder.addCurveTo({20.673872, 6.8366413}, {17.431581, 1.0893925}, {19.921005, 4.5336003});
    builder.addCurveTo({20.593191, 17.385418}, {21.42674, 9.139683}, {21.344765, 14.534013});
    builder.addCurveTo({13.68752, 15.483618}, {19.84162, 20.236822}, {16.858624, 16.604939});
    builder.closeSubpath();
    const auto path = builder.take();
    EXPECT_TRUE(path->contains({10, 8}));
    EXPECT_TRUE(path->contains({19, 18}));
    EXPECT_FALSE(path->contains({8, 15}));  // in the notch at the bottom
    EXPECT_FALSE(path->contains({0.1, 10}));
    EXPECT_TRUE(path->contains({0.2, 10}));
}

TEST(Containment, closesOpenSubpaths) {
    const auto open = polygon({{0, 0}, {10, 0}, {0, 10}}, false);
    EXPECT_TRUE(open->contains({3, 3}));
    EXPECT_TRUE(open->contains({0, 5})) << "on the line that closes it";
    EXPECT_FALSE(open->contains({6, 6}));

    CGMutablePath two;
    two.addPath(*open);
    two.addPath(*open, CGAffineTransformMakeTranslation(100, 0));
    const auto both = two.take();
    EXPECT_TRUE(both->contains({3, 3}));
    EXPECT_TRUE(both->contains({103, 3}));
    EXPECT_FALSE(both->contains({50, 0.1}));
}

TEST(Containment, goesOnFromTheStartOfAClosedSubpath) {
    CGMutablePath builder;
    builder.addRect(CGRectMake(0, 0, 1, 1));
    builder.addLineTo({-10, 0});
    builder.addLineTo({0, -10});
    const auto path = builder.take();
    EXPECT_TRUE(path->contains({-3, -3}));
    EXPECT_TRUE(path->contains({0.5, 0.5}));
    EXPECT_FALSE(path->contains({-6, -6}));
}

TEST(Containment, ofADoublyWoundAreaDependsOnTheRule) {
    CGMutablePath builder;
    builder.addRect(CGRectMake(0, 0, 10, 10));
    builder.addRect(CGRectMake(4, 4, 10, 10));
    const auto path = builder.take();
    EXPECT_TRUE(path->contains({5, 5}, CGPathFillRule::winding));
    EXPECT_FALSE(path->contains({5, 5}, CGPathFillRule::evenOdd));
    EXPECT_TRUE(path->contains({1, 1}, CGPathFillRule::evenOdd));
    EXPECT_TRUE(path->contains({12, 12}, CGPathFillRule::evenOdd));
}

TEST(Containment, ofAHoleIsNoneWhenItRunsTheOtherWay) {
    CGMutablePath builder;
    builder.addPath(*polygon({{0, 0}, {10, 0}, {10, 10}, {0, 10}}));
    builder.addPath(*polygon({{3, 3}, {3, 7}, {7, 7}, {7, 3}}));
    const auto path = builder.take();
    EXPECT_FALSE(path->contains({5, 5}, CGPathFillRule::winding));
    EXPECT_FALSE(path->contains({5, 5}, CGPathFillRule::evenOdd));
    EXPECT_TRUE(path->contains({3, 5})) << "the rim of the hole is outline";
    EXPECT_TRUE(path->contains({2, 5}));
}

TEST(Containment, ofAPentagramHoldsItsMiddleByWindingOnly) {
    CGMutablePath builder;
    for (int corner = 0; corner < 5; ++corner) {
        const CGFloat angle = corner * 4 * std::numbers::pi / 5;
        const CGPoint place{std::cos(angle), std::sin(angle)};
        corner == 0 ? builder.moveTo(place) : builder.addLineTo(place);
    }
    const auto path = builder.take();
    EXPECT_TRUE(path->contains({0.01, 0.02}, CGPathFillRule::winding));
    EXPECT_FALSE(path->contains({0.01, 0.02}, CGPathFillRule::evenOdd));
    EXPECT_TRUE(path->contains({0.8, 0}, CGPathFillRule::evenOdd));
}

TEST(Containment, reachesAsFarAsTheToleranceAroundTheOutline) {
    const CGFloat almost = 0.99 * scalar::windingEpsilon, beyond = 1.01 * scalar::windingEpsilon;
    const auto path = rect(0, 0, 1, 1);
    EXPECT_TRUE(path->contains({-almost, 0.5}));
    EXPECT_FALSE(path->contains({-beyond, 0.5}));
    EXPECT_TRUE(path->contains({0.5, 1 + almost}));
    EXPECT_FALSE(path->contains({0.5, 1 + beyond}));
    // The distance counts, not the larger of its components.
    const CGFloat diagonal = std::numbers::sqrt2 / 2;
    EXPECT_TRUE(path->contains({-almost * diagonal, -almost * diagonal}));
    EXPECT_FALSE(path->contains({-beyond * diagonal, -beyond * diagonal}));
}

TEST(Containment, reachesAsFarAroundACurve) {
    CGMutablePath builder;
    builder.addEllipseInRect(CGRectMake(-1, -1, 2, 2));
    const auto path = builder.take();
    for (const CGFloat side : {-1.0, 1.0}) {
        EXPECT_TRUE(path->contains({side * (1 + 0.99e-8), 0}));
        EXPECT_FALSE(path->contains({side * (1 + 1.01e-8), 0}));
        EXPECT_TRUE(path->contains({0, side * (1 + 0.99e-8)}));
        EXPECT_FALSE(path->contains({0, side * (1 + 1.01e-8)}));
    }
}

TEST(Containment, countsEachCornerOfAZigzagOnce) {
    // Every corner lies at height 0 or 1, and so do the points.
    const auto path = polygon({{0, 0}, {1, 1}, {2, 0}, {3, 1}, {4, 0}, {4, 5}, {0, 5}});
    for (const CGFloat x : {0.5, 2.5}) {
        EXPECT_TRUE(path->contains({x, 1})) << x;
        EXPECT_FALSE(path->contains({x, 0})) << x;
    }
    EXPECT_FALSE(path->contains({-1, 1}));
    EXPECT_FALSE(path->contains({5, 1}));
    EXPECT_FALSE(path->contains({1, 0}));
}

TEST(Containment, isNotMisledByHorizontalEdgesAtItsHeight) {
    const auto stairs = polygon({{0, 0}, {4, 0}, {4, 2}, {3, 2}, {3, 1}, {1, 1}, {1, 2}, {0, 2}});
    EXPECT_FALSE(stairs->contains({-1, 1}));
    EXPECT_FALSE(stairs->contains({5, 1}));
    EXPECT_TRUE(stairs->contains({0.5, 1}));
    EXPECT_TRUE(stairs->contains({3.5, 1}));
    EXPECT_TRUE(stairs->contains({2, 1})) << "on the edge";
    EXPECT_FALSE(stairs->contains({2, 1.5}));
    EXPECT_FALSE(stairs->contains({-1, 2}));
    EXPECT_FALSE(stairs->contains({2, 2}));
}

TEST(Containment, isNotMisledByAnArchThatOnlyTouchesItsHeight) {
    CGMutablePath builder;
    builder.moveTo({0, 0});
    builder.addCurveTo({4, 0}, {0, 4}, {4, 4});  // rises to 3
    builder.closeSubpath();
    const auto path = builder.take();
    EXPECT_TRUE(path->contains({2, 3}));
    EXPECT_FALSE(path->contains({5, 3}));
    EXPECT_FALSE(path->contains({-1, 3}));
    EXPECT_FALSE(path->contains({2, 3 + 1e-7}));
    EXPECT_TRUE(path->contains({2, 3 - 1e-7}));
}

TEST(Containment, ofAQuadraticIsExact) {
    CGMutablePath builder;
    builder.moveTo({0, 0});
    builder.addQuadCurveTo({2, 0}, {1, 2});  // y = x·(2 − x)
    const auto path = builder.take();
    for (CGFloat x = 0.1; x < 2; x += 0.1) {
        const CGFloat y = x * (2 - x);
        EXPECT_TRUE(path->contains({x, y})) << x;
        EXPECT_TRUE(path->contains({x, y - 1e-7})) << x;
        EXPECT_FALSE(path->contains({x, y + 1e-7})) << x;
    }
}

TEST(Containment, appliesTheTransformToThePoint) {
    const auto path = rect(0, 0, 10, 10);
    const auto move = CGAffineTransformMakeTranslation(100, 0);
    EXPECT_FALSE(path->contains({5, 5}, CGPathFillRule::winding, move));
    EXPECT_TRUE(path->contains({-95, 5}, CGPathFillRule::winding, move));
}

TEST(Containment, hasNothingWithoutAnOutline) {
    EXPECT_FALSE(CGMutablePath().take()->contains({0, 0}));
    CGMutablePath moves;
    moves.moveTo({1, 1});
    moves.moveTo({2, 2});
    EXPECT_FALSE(moves.take()->contains({1, 1}));
}

TEST(Containment, ofAPointThatIsClosedIsThePoint) {
    CGMutablePath builder;
    builder.moveTo({1, 1});
    builder.closeSubpath();
    const auto path = builder.take();
    EXPECT_TRUE(path->contains({1, 1}));
    EXPECT_FALSE(path->contains({1, 1.1}));
    EXPECT_FALSE(path->contains({2, 1}));
}

TEST(Containment, ofDegenerateCurvesIsTheirOutlineAlone) {
    CGMutablePath builder;
    builder.moveTo({0, 0});
    builder.addCurveTo({0, 0}, {0, 0}, {0, 0});
    builder.addLineTo({0, 0});
    builder.addCurveTo({10, 10}, {30, 30}, {-20, -20});  // along the diagonal, there and back
    builder.addQuadCurveTo({0, 0}, {5, 5});
    builder.closeSubpath();
    builder.closeSubpath();
    const auto path = builder.take();
    EXPECT_TRUE(path->contains({0, 0}));
    EXPECT_TRUE(path->contains({5, 5}));
    EXPECT_FALSE(path->contains({5, 5.001}));
    EXPECT_FALSE(path->contains({20, 20}));
}

TEST(Containment, neverHoldsAPointThatIsNotFinite) {
    const auto path = rect(0, 0, 10, 10);
    for (const CGFloat wild : {nan, infinity, -infinity}) {
        EXPECT_FALSE(path->contains({wild, 5}));
        EXPECT_FALSE(path->contains({5, wild}));
        EXPECT_FALSE(
            path->contains({5, 5}, CGPathFillRule::winding, CGAffineTransformMakeScale(wild, 1)));
    }
}

TEST(Containment, takesHugeCoordinatesInItsStride) {
    for (const CGFloat huge : {1e15, 1e150, 1e200, 1.7e308, infinity}) {
        const auto square = polygon({{0, 0}, {huge, 0}, {huge, huge}, {0, huge}});
        EXPECT_TRUE(square->contains({1, 1})) << huge;
        EXPECT_FALSE(square->contains({-1, 1})) << huge;
        EXPECT_FALSE(square->contains({1, -1})) << huge;

        CGMutablePath builder;
        builder.moveTo({-1, 0});
        builder.addCurveTo({1, 0}, {-huge, huge}, {huge, huge});
        const auto balloon = builder.take();
        const CGFloat far = std::min(huge / 10, 1e149);
        EXPECT_TRUE(balloon->contains({0, far})) << huge;
        EXPECT_FALSE(balloon->contains({0, -far})) << huge;
        EXPECT_FALSE(balloon->contains({20 * far, 0})) << huge;
        EXPECT_FALSE(balloon->contains({-20 * far, far})) << huge;
    }
}

TEST(Containment, takesACoordinateThatIsNotANumberForTheOneBefore) {
    const auto path = polygon({{0, 0}, {10, nan}, {10, 10}, {nan, 10}, {0, 10}});
    EXPECT_TRUE(path->contains({5, 5}));
    EXPECT_TRUE(path->contains({9, 1}));
    EXPECT_FALSE(path->contains({11, 5}));
}

/// Winding number around a point of the polygon through many places on each curve, in long double,
/// and the square of the distance from it.
struct BruteForce {
    int winding = 0;
    long double squaredDistance = infinity;

    void addLine(long double x1, long double y1, long double x2, long double y2) {
        const long double dx = x2 - x1, dy = y2 - y1, length = dx * dx + dy * dy;
        const long double t =
            length > 0 ? std::clamp(-(x1 * dx + y1 * dy) / length, 0.0L, 1.0L) : 0;
        const long double x = x1 + t * dx, y = y1 + t * dy;
        squaredDistance = std::min(squaredDistance, x * x + y * y);
        if ((y1 > 0) != (y2 > 0) && (x1 * dy - y1 * dx < 0) == (dy > 0))
            winding += dy > 0 ? 1 : -1;
    }

    static BruteForce around(CGPoint point, const CGPath& path) {
        BruteForce result;
        CGPoint start, current;
        const auto place = [&](std::span<const CGPoint> controls, long double t) {
            std::array<std::array<long double, 2>, 4> level{{{current.x, current.y}}};
            for (std::size_t i = 0; i < controls.size(); ++i)
                level[i + 1] = {controls[i].x, controls[i].y};
            for (auto& [x, y] : level) {
                x -= point.x;
                y -= point.y;
            }
            for (std::size_t count = controls.size(); count > 0; --count)
                for (std::size_t i = 0; i < count; ++i)
                    for (std::size_t axis = 0; axis < 2; ++axis)
                        level[i][axis] += t * (level[i + 1][axis] - level[i][axis]);
            return level[0];
        };
        const auto draw = [&](std::span<const CGPoint> controls) {
            const int steps = controls.size() == 1 ? 1 : 60;
            auto from = place(controls, 0);
            for (int step = 1; step <= steps; ++step) {
                const auto to = place(controls, static_cast<long double>(step) / steps);
                result.addLine(from[0], from[1], to[0], to[1]);
                from = to;
            }
            current = controls.back();
        };
        path.apply([&](const CGPathElement& element) {
            const bool isMove = element.type == CGPathElementType::moveToPoint;
            if (isMove || element.type == CGPathElementType::closeSubpath)
                draw({&start, 1});
            if (isMove)
                start = current = element.points[0];
            else if (!element.points.empty())
                draw(element.points);
        });
        draw({&start, 1});
        return result;
    }
};

TEST(Containment, agreesWithBruteForceAwayFromTheOutline) {
    int asked = 0;
    for (const OutlineKind kind : {OutlineKind::blob, OutlineKind::spiral, OutlineKind::scribble,
                                   OutlineKind::wholeNumbers, OutlineKind::mixed}) {
        SCOPED_TRACE(nameOf(kind));
        RandomOutlines random(kind);
        for (int round = 0; round < 12; ++round) {
            const auto path = random.path(round + 1);
            // The polygon misses a curve by less than a 2000th of the size.
            const CGRect box = path->boundingBox();
            const CGFloat away = 1e-3 * std::max(box.size.width, box.size.height);
            for (int question = 0; question < 12; ++question) {
                const CGPoint point = random.pointFor(*path);
                const BruteForce truth = BruteForce::around(point, *path);
                if (truth.squaredDistance < static_cast<long double>(away) * away)
                    continue;
                ++asked;
                EXPECT_EQ(path->contains(point, CGPathFillRule::winding), truth.winding != 0);
                EXPECT_EQ(path->contains(point, CGPathFillRule::evenOdd), truth.winding % 2 != 0);
            }
        }
    }
    EXPECT_GT(asked, 200);
}

}  // namespace
}  // namespace quorin
