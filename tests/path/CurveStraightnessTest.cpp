#include <cmath>
#include <limits>

#include "quorin/path/Curve.h"
#include "tests/TestSupport.h"
#include "tests/path/RandomCurves.h"

namespace quorin {
namespace {

using test::CurveKind;
using test::RandomCurves;

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat notANumber = std::numeric_limits<CGFloat>::quiet_NaN();

struct Row {
    const char* says;
    CubicBezier curve;
    bool isStraight;
};

void expectStraightness(std::initializer_list<Row> table) {
    for (const auto& [says, curve, isStraight] : table) {
        SCOPED_TRACE(says);
        EXPECT_EQ(curve.isStraight(), isStraight);
        EXPECT_EQ(curve.reversed().isStraight(), isStraight) << "reversed";
        EXPECT_EQ(PathCurve(curve).isStraight(), isStraight);
    }
}

TEST(CurveStraightness, isGivenWithoutHandles) {
    expectStraightness({
        {"a line", {{0, 0}, {}, {}, {10, 3}}, true},
        {"a point", {{5, 5}, {}, {}, {5, 5}}, true},
        {"handles below epsilon", {{0, 0}, {9e-13, 9e-13}, {0, -9e-13}, {10, 0}}, true},
        {"a closed one with handles below epsilon", {{0, 0}, {9e-13, 0}, {}, {}}, true},
    });
}

TEST(CurveStraightness, isNeverGivenToALoopOfHandles) {
    expectStraightness({
        {"out and back on one line", {{0, 0}, {5, 0}, {5, 0}, {0, 0}}, false},
        {"ends apart by less than epsilon", {{0, 0}, {5e-13, 0}, {-2e-12, 0}, {9e-13, 0}}, false},
        {"beside its ends", {{0, 0}, {4e-13, 5e-8}, {}, {9e-13, 0}}, false},
        {"a handle at epsilon", {{0, 0}, {1e-12, 0}, {}, {0, 0}}, false},
    });
}

TEST(CurveStraightness, allowsControlsWithinGeometricEpsilonOfTheChord) {
    expectStraightness({
        {"on the chord", {{0, 0}, {3, 0}, {-3, 0}, {10, 0}}, true},
        {"first control just within", {{0, 0}, {3, 0.99e-7}, {-3, 0}, {10, 0}}, true},
        {"second control just within", {{0, 0}, {3, 0}, {-3, -0.99e-7}, {10, 0}}, true},
        {"first control at the tolerance", {{0, 0}, {3, 1e-7}, {-3, 0}, {10, 0}}, false},
        {"second control at the tolerance", {{0, 0}, {3, 0}, {-3, -1e-7}, {10, 0}}, false},
        {"within, on a slope", {{0, 0}, {3 - 0.79e-7, 4 + 0.59e-7}, {}, {30, 40}}, true},
        {"beyond, on a slope", {{0, 0}, {3 - 0.81e-7, 4 + 0.61e-7}, {}, {30, 40}}, false},
        {"bent", {{0, 0}, {3, 1}, {-3, 1}, {10, 0}}, false},
    });
}

TEST(CurveStraightness, wantsHandlesInwardsAndNoLongerThanTheChord) {
    expectStraightness({
        {"to the other end", {{0, 0}, {10, 0}, {-10, 0}, {10, 0}}, true},
        {"first beyond the other end", {{0, 0}, {10.001, 0}, {}, {10, 0}}, false},
        {"second beyond the other end", {{0, 0}, {}, {-10.001, 0}, {10, 0}}, false},
        {"first outwards", {{0, 0}, {-0.001, 0}, {}, {10, 0}}, false},
        {"second outwards", {{0, 0}, {}, {0.001, 0}, {10, 0}}, false},
        {"collinear, but there and back", {{10.5, 0.5}, {1, 0}, {-56, 0}, {31, 0.5}}, false},
        {"its mirror", {{19.5, 0.5}, {-1, 0}, {56, 0}, {-1, 0.5}}, false},
    });
}

TEST(CurveStraightness, isNotGivenToNumbersThatAreNone) {
    for (const CGFloat bad : {infinity, -infinity, notANumber}) {
        SCOPED_TRACE(bad);
        EXPECT_FALSE((CubicBezier{{0, 0}, {bad, 0}, {}, {10, 0}}.isStraight()));
        EXPECT_FALSE((CubicBezier{{0, 0}, {3, 0}, {0, bad}, {10, 0}}.isStraight()));
        EXPECT_FALSE((CubicBezier{{bad, 0}, {3, 0}, {}, {10, 0}}.isStraight()));
        EXPECT_FALSE((CubicBezier{{0, 0}, {3, 0}, {}, {10, bad}}.isStraight()));
        EXPECT_TRUE((CubicBezier{{bad, 0}, {}, {}, {10, bad}}.isStraight())) << "without handles";
    }
}

/// By the distances to the chord alone, with no way out before them.
bool plainIsStraight(const CubicBezier& curve) {
    if (isNearlyEqual(curve.h1, CGPoint::zero) && isNearlyEqual(curve.h2, CGPoint::zero))
        return true;
    const CGPoint v = curve.p2 - curve.p1;
    if (isNearlyEqual(v, CGPoint::zero))
        return false;
    const Line chord = Line::along(curve.p1, v);
    const CGFloat first = dot(v, curve.h1) / dot(v, v);
    const CGFloat second = dot(v, curve.h2) / dot(v, v);
    return chord.distance(curve.c1()) < 1e-7 && chord.distance(curve.c2()) < 1e-7 && first >= 0 &&
           first <= 1 && second >= -1 && second <= 0;
}

TEST(CurveStraightness, isTheSameWithoutItsShortCut) {
    for (const CurveKind kind : test::allCurveKinds) {
        SCOPED_TRACE(nameOf(kind));
        RandomCurves random(kind);
        for (int i = 0; i < 3000; ++i) {
            const CubicBezier curve = random.curve();
            EXPECT_EQ(curve.isStraight(), plainIsStraight(curve));
        }
    }
    // Where the distance is about the tolerance.
    RandomCurves random(CurveKind::anywhere);
    int straight = 0;
    for (int i = 0; i < 3000; ++i) {
        const CGPoint v{random.between(-1000, 1000), random.between(-1000, 1000)};
        const CGPoint normal = CGPoint{-v.y, v.x} / std::sqrt(dot(v, v));
        const CGFloat off = 1e-7 * (1 + random.wholeBetween(-3, 3) * 1e-10);
        const CubicBezier curve{{0, 0}, 0.3 * v + off * normal, -0.3 * v, v};
        EXPECT_EQ(curve.isStraight(), plainIsStraight(curve));
        straight += curve.isStraight();
    }
    EXPECT_GT(straight, 1000);
    EXPECT_LT(straight, 2000);
}

TEST(CurveLinearity, holdsForControlsExactlyAtTheThirds) {
    EXPECT_TRUE((CubicBezier{{0, 0}, {1, 2}, {-1, -2}, {3, 6}}.isLinear()));
    EXPECT_TRUE((CubicBezier{{5, 5}, {}, {}, {5, 5}}.isLinear()));
    EXPECT_TRUE(PathCurve(CGPoint{0, 0}, {1, 2}, {-1, -2}, {3, 6}).isLinear());
    const CGFloat third = 1.0 / 3;
    EXPECT_TRUE((CubicBezier{{0, 0}, {third, 0}, {-third, 0}, {1, 0}}.isLinear()));
}

TEST(CurveLinearity, allowsNoToleranceAtAll) {
    const CGFloat near = std::nextafter(1.0, 2.0);
    EXPECT_FALSE((CubicBezier{{0, 0}, {near, 2}, {-1, -2}, {3, 6}}.isLinear()));
    EXPECT_FALSE((CubicBezier{{0, 0}, {1, 2}, {-1, std::nextafter(-2.0, 0.0)}, {3, 6}}.isLinear()));
    EXPECT_FALSE((CubicBezier{{0, 0}, {}, {}, {3, 6}}.isLinear())) << "straight, yet not uniform";
    EXPECT_FALSE((CubicBezier{{0, 0}, {1, 2}, {1, 2}, {3, 6}}.isLinear()));
}

}  // namespace
}  // namespace quorin
