#include <algorithm>
#include <cmath>

#include "quorin/path/Curve.h"
#include "tests/TestSupport.h"
#include "tests/path/CurveTruth.h"
#include "tests/path/HardCurves.h"
#include "tests/path/RandomCurves.h"
#include "tests/support/Printing.h"

namespace quorin {
namespace {

using test::cubic;
using test::CurveKind;
using test::CurveTruth;
using test::RandomCurves;

TEST(CurveBounds, areTightAroundTheCurve) {
    const CubicBezier arch{{0, 0}, {0, 10}, {0, 10}, {10, 0}};
    EXPECT_EQ(arch.bounds(), CGRectMake(0, 0, 10, 7.5));
    EXPECT_EQ(PathCurve(arch).bounds(), CGRectMake(0, 0, 10, 7.5));
    EXPECT_EQ((CubicBezier{{3, 4}, {}, {}, {1, 9}}.bounds()), CGRectMake(1, 4, 2, 5));
    EXPECT_EQ((CubicBezier{{3, 4}, {}, {}, {3, 4}}.bounds()), CGRectMake(3, 4, 0, 0));
}

TEST(CurveBounds, holdTheFoldsOfACurveOnALine) {
    const CGRect box = cubic({0, 10}, {-10, 10}, {180, 10}, {60, 10}).bounds();
    EXPECT_NEAR(box.origin.x, -0.38337601385638, 1e-13);
    EXPECT_NEAR(box.origin.x + box.size.width, 99.883568247613, 1e-12);
    EXPECT_EQ(box.origin.y, 10);
    EXPECT_EQ(box.size.height, 0);
}

TEST(CurveBounds, holdTheCurveAndLittleElse) {
    for (const CurveKind kind : test::finiteCurveKinds) {
        SCOPED_TRACE(nameOf(kind));
        RandomCurves random(kind);
        for (int i = 0; i < 30; ++i) {
            const CubicBezier curve = random.curve();
            const CurveTruth truth(curve);
            long double minX = curve.p1.x, maxX = minX, minY = curve.p1.y, maxY = minY;
            for (int step = 0; step <= 2000; ++step) {
                const auto [x, y] = truth.pointAt(step / 2000.0L);
                minX = std::min(minX, x);
                maxX = std::max(maxX, x);
                minY = std::min(minY, y);
                maxY = std::max(maxY, y);
            }
            const CGRect box = curve.bounds();
            const CGFloat size = static_cast<CGFloat>(truth.polygonLength());
            // Between samples a curve bulges by the second derivative times h²/8.
            const CGFloat bulge = 6 * size / (8 * 2000.0 * 2000.0);
            const CGFloat rounding = 1e-15 * (size + std::abs(curve.p1.x) + std::abs(curve.p1.y));
            const auto expectEdge = [&](CGFloat edge, long double sampled, CGFloat outwards) {
                const CGFloat beyond = outwards * static_cast<CGFloat>(edge - sampled);
                EXPECT_GE(beyond, -rounding) << PathCurve(curve).description();
                EXPECT_LE(beyond, bulge + rounding) << PathCurve(curve).description();
            };
            expectEdge(CGRectGetMinX(box), minX, -1);
            expectEdge(CGRectGetMinY(box), minY, -1);
            expectEdge(CGRectGetMaxX(box), maxX, 1);
            expectEdge(CGRectGetMaxY(box), maxY, 1);
        }
    }
}

TEST(CurveBounds, neverLeaveTheControlHull) {
    for (const CurveKind kind : test::finiteCurveKinds) {
        SCOPED_TRACE(nameOf(kind));
        RandomCurves random(kind);
        for (int i = 0; i < 1000; ++i) {
            const CubicBezier curve = random.curve();
            const CGRect box = curve.bounds();
            const auto [lowX, highX] =
                std::minmax({curve.p1.x, curve.c1().x, curve.c2().x, curve.p2.x});
            const auto [lowY, highY] =
                std::minmax({curve.p1.y, curve.c1().y, curve.c2().y, curve.p2.y});
            EXPECT_GE(box.origin.x, lowX);
            EXPECT_GE(box.origin.y, lowY);
            EXPECT_LE(box.size.width, highX - lowX);
            EXPECT_LE(box.size.height, highY - lowY);
        }
    }
}

}  // namespace
}  // namespace quorin
