#include "tests/path/HardCurves.h"

#include <cmath>

#include "quorin/geometry/Finiteness.h"
#include "quorin/path/Curve.h"
#include "quorin/path/CurveLocation.h"
#include "tests/TestSupport.h"
#include "tests/support/Printing.h"

namespace quorin {
namespace {

class HardCurve : public ::testing::TestWithParam<test::HardCurve> {
protected:
    const PathCurve curve{GetParam().curve};
    const std::array<CGFloat, 7> times{0, 3e-7, 0.25, 0.5, 0.75, 1 - 3e-7, 1};
};

TEST_P(HardCurve, isEvaluatedToFiniteNumbers) {
    for (const CGFloat t : times) {
        SCOPED_TRACE(t);
        EXPECT_TRUE(isFinite(curve.pointAt(t).value()));
        EXPECT_TRUE(isFinite(curve.tangentAt(t).value()));
        EXPECT_TRUE(isFinite(curve.weightedTangentAt(t).value()));
        EXPECT_TRUE(isFinite(curve.normalAt(t).value()));
        EXPECT_TRUE(isFinite(curve.weightedNormalAt(t).value()));
        EXPECT_TRUE(std::isfinite(curve.curvatureAt(t).value()));
        const auto [first, second] = PathCurve::subdivide(curve, t);
        EXPECT_TRUE(isFinite(first.h1()) && isFinite(first.h2()) && isFinite(first.p2()));
        EXPECT_TRUE(isFinite(second.h1()) && isFinite(second.h2()));
    }
}

TEST_P(HardCurve, isMeasuredInFiniteNumbers) {
    EXPECT_TRUE(std::isfinite(curve.length()));
    EXPECT_TRUE(isFinite(curve.bounds().origin));
    EXPECT_GE(curve.bounds().size.width, 0);
    EXPECT_GE(curve.bounds().size.height, 0);
    for (const CGFloat t : times) {
        EXPECT_TRUE(std::isfinite(curve.offsetAt(t).rawValue));
        EXPECT_TRUE(curve.timeAt(curve.length() * t));
    }
}

TEST_P(HardCurve, isSearchedWithoutFail) {
    for (const CGFloat t : times) {
        SCOPED_TRACE(t);
        const CGPoint on = *curve.pointAt(t);
        const CGPoint beside = on + CGPoint{1, -1};
        const CGFloat size = std::abs(on.x) + std::abs(on.y);
        EXPECT_LE(curve.nearestLocation(beside, 1e-9).distance(),
                  1.4142135623730951 + 1e-15 * size);
        const auto nearest = curve.nearestTime(beside);
        EXPECT_TRUE(nearest.value_or(0).rawValue >= 0 && nearest.value_or(0).rawValue <= 1);
        EXPECT_LE(curve.intesections(Line::along(on, {1, 2})).value_or(Roots()).size(), 3u);
    }
    const auto overlap = curve.overlap(curve);
    EXPECT_TRUE(!overlap || (*overlap)[0].first == PathCurve::Time::start);
}

INSTANTIATE_TEST_SUITE_P(Curves, HardCurve, ::testing::ValuesIn(test::hardCurves()));

TEST(HardCurves, comeToRestWhereTheLastHandleIsZero) {
    const CubicBezier curve =
        test::cubic({602.469, 286.585}, {641.975, 286.585}, {562.963, 286.585}, {562.963, 286.585});
    EXPECT_EQ(curve.weightedTangentAt(1), CGPoint::zero);
    EXPECT_EQ(curve.tangentAt(1), (CGPoint{-1, 0})) << "along its controls";
    EXPECT_FALSE(curve.isStraight()) << "its first handle points away from its end";
}

}  // namespace
}  // namespace quorin
