#include <cmath>
#include <limits>
#include <numbers>

#include "quorin/path/Curve.h"
#include "tests/TestSupport.h"
#include "tests/path/CurveTruth.h"
#include "tests/path/PlainSearch.h"
#include "tests/path/RandomCurves.h"
#include "tests/support/Printing.h"

namespace quorin {
namespace {

using test::areSame;
using test::CurveKind;
using test::CurveTruth;
using test::RandomCurves;

constexpr CGFloat notANumber = std::numeric_limits<CGFloat>::quiet_NaN();
const CubicBezier arch{{0, 0}, {0, 10}, {0, 10}, {10, 0}};

TEST(CurveEvaluation, answersNothingOutsideItsTimes) {
    for (const CGFloat t : {-1e-300, -1.0, 1.0000001, std::nextafter(1.0, 2.0), 1e300}) {
        SCOPED_TRACE(t);
        EXPECT_EQ(arch.pointAt(t), std::nullopt);
        EXPECT_EQ(arch.tangentAt(t), std::nullopt);
        EXPECT_EQ(arch.weightedTangentAt(t), std::nullopt);
        EXPECT_EQ(arch.normalAt(t), std::nullopt);
        EXPECT_EQ(arch.weightedNormalAt(t), std::nullopt);
        EXPECT_EQ(arch.curvatureAt(t), std::nullopt);
        EXPECT_EQ(PathCurve(arch).pointAt(t), std::nullopt);
        EXPECT_EQ(PathCurve(arch).curvatureAt(t), std::nullopt);
    }
    EXPECT_TRUE(arch.pointAt(-0.0));
}

TEST(CurveEvaluation, meetsBothAnchorsExactly) {
    for (const CurveKind kind : test::finiteCurveKinds) {
        SCOPED_TRACE(nameOf(kind));
        RandomCurves random(kind);
        for (int i = 0; i < 200; ++i) {
            const CubicBezier curve = random.curve();
            EXPECT_EQ(curve.pointAt(0), curve.p1);
            EXPECT_EQ(curve.pointAt(1), curve.p2);
        }
    }
}

TEST(CurveEvaluation, evaluatesThePowerBasisInItsOrder) {
    for (const CurveKind kind : test::allCurveKinds) {
        SCOPED_TRACE(nameOf(kind));
        RandomCurves random(kind);
        for (int i = 0; i < 500; ++i) {
            const CubicBezier curve = random.curve();
            const CGFloat t = random.between(0, 1);
            const auto coordinate = [&](CGFloat CGPoint::*axis) {
                const auto isZero = [](CGPoint h) {
                    return std::abs(h.x) < 1e-12 && std::abs(h.y) < 1e-12;
                };
                const CGFloat p1 = curve.p1.*axis, p2 = curve.p2.*axis;
                const CGFloat c1 = isZero(curve.h1) ? p1 : p1 + curve.h1.*axis;
                const CGFloat c2 = isZero(curve.h2) ? p2 : p2 + curve.h2.*axis;
                const CGFloat c = 3 * (c1 - p1);
                const CGFloat b = 3 * (c2 - c1) - c;
                const CGFloat a = p2 - p1 - c - b;
                return ((a * t + b) * t + c) * t + p1;
            };
            const CGPoint expected{coordinate(&CGPoint::x), coordinate(&CGPoint::y)};
            EXPECT_TRUE(areSame(curve.pointAt(t).value(), expected));
        }
    }
}

TEST(CurveEvaluation, agreesWithBernsteinPolynomials) {
    RandomCurves random(CurveKind::anywhere);
    for (int i = 0; i < 1000; ++i) {
        const CubicBezier curve = random.curve();
        const CurveTruth truth(curve);
        const CGFloat t = random.between(0.001, 0.999);
        const auto [x, y] = truth.pointAt(t);
        EXPECT_NEAR(curve.pointAt(t)->x, static_cast<CGFloat>(x), 1e-11);
        EXPECT_NEAR(curve.pointAt(t)->y, static_cast<CGFloat>(y), 1e-11);
        const auto [vx, vy] = truth.velocityAt(t);
        EXPECT_NEAR(curve.weightedTangentAt(t)->x, static_cast<CGFloat>(vx), 1e-10);
        EXPECT_NEAR(curve.weightedTangentAt(t)->y, static_cast<CGFloat>(vy), 1e-10);
        const long double speed = truth.speedAt(t);
        EXPECT_NEAR(curve.tangentAt(t)->x, static_cast<CGFloat>(vx / speed), 1e-11);
        EXPECT_NEAR(curve.tangentAt(t)->y, static_cast<CGFloat>(vy / speed), 1e-11);
    }
}

TEST(CurveEvaluation, takesHandlesBelowEpsilonAsZero) {
    const CubicBezier plain{{0, 0}, {0, 0}, {0, 0}, {1, 1}};
    const CubicBezier below{{0, 0}, {0.9e-12, -0.9e-12}, {-0.9e-12, 0.9e-12}, {1, 1}};
    const CubicBezier above{{0, 0}, {1.1e-12, 0}, {0, 0}, {1, 1}};
    EXPECT_EQ(below.weightedTangentAt(0), CGPoint::zero);
    EXPECT_EQ(below.weightedTangentAt(1), CGPoint::zero);
    EXPECT_EQ(below.pointAt(0.3), plain.pointAt(0.3));
    EXPECT_EQ(above.weightedTangentAt(0), (CGPoint{3 * 1.1e-12, 0}))
        << "one component at the tolerance is enough to count";
    EXPECT_EQ((CubicBezier{{0, 0}, {1e-12, 0}, {}, {1, 1}}.weightedTangentAt(0)),
              (CGPoint{3 * 1e-12, 0}))
        << "the tolerance itself is not below it";
}

TEST(CurveEvaluation, keepsTheDerivativeConstantNearTheEnds) {
    const CubicBezier curve{{0, 0}, {1, 2}, {-5, 7}, {10, 0}};
    const CGPoint atStart{3, 6}, atEnd{15, -21};
    const CGFloat near = 4e-7;
    EXPECT_EQ(curve.weightedTangentAt(0), atStart);
    EXPECT_EQ(curve.weightedTangentAt(3.99e-7), atStart);
    EXPECT_NE(curve.weightedTangentAt(near), atStart) << "the bound itself is not near";
    EXPECT_EQ(curve.weightedTangentAt(1), atEnd);
    EXPECT_EQ(curve.weightedTangentAt(1 - 3.99e-7), atEnd);
    EXPECT_NE(curve.weightedTangentAt(1 - near), atEnd);

    // c = (3, 6), b = 3·(c2 - c1) - c = (9, 9), a = p2 - c - b = (-2, -15).
    const CGPoint inside = *curve.weightedTangentAt(0.5);
    EXPECT_EQ(inside, (CGPoint{3 * -2 * 0.25 + 9 + 3, 3 * -15 * 0.25 + 9 + 6}));
}

TEST(CurveEvaluation, pointsAlongTheChordWhereThereAreNoHandles) {
    const CubicBezier line{{1, 1}, {}, {}, {4, 5}};
    EXPECT_EQ(line.tangentAt(0), (CGPoint{0.6, 0.8}));
    EXPECT_EQ(line.tangentAt(1), (CGPoint{0.6, 0.8}));
    EXPECT_EQ(line.weightedTangentAt(0), CGPoint::zero);
}

TEST(CurveEvaluation, pointsToTheOtherControlWhereOneHandleIsZero) {
    const CubicBezier fromCorner{{0, 0}, {}, {-7, 4}, {10, 0}};
    EXPECT_EQ(fromCorner.weightedTangentAt(0), CGPoint::zero);
    EXPECT_EQ(fromCorner.tangentAt(0), (CGPoint{0.6, 0.8})) << "from p1 to c2 = (3, 4)";
    EXPECT_EQ(fromCorner.tangentAt(3.9e-7), (CGPoint{0.6, 0.8}));
    EXPECT_EQ(fromCorner.normalAt(0), (CGPoint{0.8, -0.6}));

    const CubicBezier toCorner{{0, 0}, {7, 4}, {}, {10, 0}};
    EXPECT_EQ(toCorner.tangentAt(1), (CGPoint{0.6, -0.8})) << "from c1 = (7, 4) to p2";
    EXPECT_EQ(toCorner.tangentAt(1 - 3.9e-7), (CGPoint{0.6, -0.8}));
}

TEST(CurveEvaluation, leavesTheChordAloneWhereTheDerivativeIsMerelySmall) {
    const CubicBezier curve{{0, 0}, {0, 1e-9}, {-7, 4}, {10, 0}};
    EXPECT_EQ(curve.tangentAt(0), (CGPoint{0, 3 * 1e-9})) << "too short to be normalised";
}

TEST(CurveEvaluation, leavesAVanishingDerivativeInsideAlone) {
    // An exact cusp at the middle.
    const CubicBezier cusp{{0, 0}, {100, 100}, {-100, 100}, {100, 0}};
    EXPECT_EQ(cusp.weightedTangentAt(0.5), CGPoint::zero);
    EXPECT_EQ(cusp.tangentAt(0.5), CGPoint::zero);
    EXPECT_EQ(cusp.normalAt(0.5), CGPoint::zero);
}

TEST(CurveEvaluation, leavesTangentsOfNearlyUnitLengthAlone) {
    struct Row {
        const char* says;
        CGFloat squared;
        bool isLeft;
    };
    const Row table[] = {
        {"a hair above one", 1 + 1e-13, true},   {"a hair below one", 1 - 1e-13, true},
        {"too far above one", 1 + 2e-12, false}, {"too far below one", 1 - 2e-12, false},
        {"next to nothing", 0.9e-12, true},      {"little", 1.1e-12, false},
    };
    for (const auto& [says, squared, isLeft] : table) {
        SCOPED_TRACE(says);
        const CGFloat length = std::sqrt(squared);
        // The derivative at the start is three handles long.
        const CubicBezier curve{{0, 0}, {length / 3, 0}, {-1, 1}, {10, 0}};
        const CGPoint derivative = *curve.weightedTangentAt(0);
        ASSERT_NEAR(derivative.x, length, 1e-15);
        if (isLeft)
            EXPECT_EQ(curve.tangentAt(0), derivative);
        else
            EXPECT_EQ(curve.tangentAt(0), (CGPoint{1, 0}));
    }
}

TEST(CurveEvaluation, turnsTangentsIntoNormals) {
    RandomCurves random(CurveKind::anywhere);
    for (int i = 0; i < 100; ++i) {
        const CubicBezier curve = random.curve();
        const CGFloat t = random.between(0, 1);
        const CGPoint tangent = *curve.tangentAt(t), weighted = *curve.weightedTangentAt(t);
        EXPECT_EQ(curve.normalAt(t), (CGPoint{tangent.y, -tangent.x}));
        EXPECT_EQ(curve.weightedNormalAt(t), (CGPoint{weighted.y, -weighted.x}));
    }
}

TEST(CurveEvaluation, dividesCurvatureByTheSecondDerivative) {
    // At 1/2: d = 3/4·(p2 + c2 - c1 - p1) = (15, 0), e = 3·(p1 - c1 - c2 + p2) = (0, -60).
    EXPECT_DOUBLE_EQ(*arch.curvatureAt(0.5), (-60.0 * 15) / (60.0 * 60.0 * 60.0));
    // At 0: d = (0, 30), e = 6·(p1 - 2·c1 + c2) = (60, -60).
    EXPECT_DOUBLE_EQ(*arch.curvatureAt(0), (-60.0 * 0 - 60.0 * 30) / std::pow(7200.0, 1.5));
}

TEST(CurveEvaluation, takesTheUnnormalisedDerivativeForCurvature) {
    RandomCurves random(CurveKind::anywhere);
    for (int i = 0; i < 500; ++i) {
        const CubicBezier curve = random.curve();
        const CGFloat t = random.between(0, 1);
        const CurveTruth truth(curve);
        const auto [dx, dy] = truth.velocityAt(t);
        // The second derivative is the velocity's, which is a quadratic: its difference is exact.
        const long double h = 0x1p-10L;
        const auto [fx, fy] = truth.velocityAt(t + h);
        const auto [bx, by] = truth.velocityAt(t - h);
        const long double ex = (fx - bx) / (2 * h), ey = (fy - by) / (2 * h);
        const long double expected = (ey * dx - ex * dy) / std::pow(ex * ex + ey * ey, 1.5L);
        EXPECT_NEAR(*curve.curvatureAt(t), static_cast<CGFloat>(expected),
                    1e-9 * std::abs(static_cast<CGFloat>(expected)) + 1e-13);
    }
}

TEST(CurveEvaluation, hasNoCurvatureWhereTheSecondDerivativeVanishes) {
    // Point symmetric about its middle, where it therefore has an inflection.
    const CubicBezier wave{{0, 0}, {1, 1}, {-1, -1}, {3, 0}};
    EXPECT_EQ(wave.curvatureAt(0.5), 0.0);
    const CubicBezier uniform{{0, 0}, {1, 0}, {-1, 0}, {3, 0}};
    EXPECT_EQ(uniform.curvatureAt(0), 0.0);
    EXPECT_EQ(CubicBezier{}.curvatureAt(0.3), 0.0);
}

TEST(CurveEvaluation, usesTheClampedDerivativeForCurvatureNearTheEnds) {
    const CubicBezier curve{{0, 0}, {1, 2}, {-5, 7}, {10, 0}};
    // d = (3, 6) although t is not 0; a = (-2, -15), b = (9, 9), e = 6·a·t + 2·b.
    const CGFloat t = 3e-7;
    const CGFloat ex = 6 * -2.0 * t + 2 * 9, ey = 6 * -15.0 * t + 2 * 9;
    EXPECT_DOUBLE_EQ(*curve.curvatureAt(t), (ey * 3 - ex * 6) / std::pow(ex * ex + ey * ey, 1.5));
}

TEST(CurveEvaluation, answersForNumbersThatAreNone) {
    const CubicBezier broken{{notANumber, 0}, {1, notANumber}, {0, 0}, {3, 3}};
    EXPECT_TRUE(std::isnan(broken.pointAt(0.5)->x));
    EXPECT_TRUE(broken.tangentAt(0.5));
    EXPECT_TRUE(broken.curvatureAt(0.5));
}

}  // namespace
}  // namespace quorin
