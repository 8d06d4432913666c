#include "quorin/path/ControlBox.h"

#include <cmath>
#include <limits>

#include "tests/TestSupport.h"
#include "tests/path/RandomCurves.h"

namespace quorin {
namespace {

using test::CurveKind;
using test::RandomCurves;

constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat notANumber = std::numeric_limits<CGFloat>::quiet_NaN();
const ControlBox arch = ControlBox::of({{0, 0}, {0, 10}, {0, 10}, {10, 0}});

class ControlBoxOfKind : public ::testing::TestWithParam<CurveKind> {};

TEST_P(ControlBoxOfKind, isNeverBeyondThePlacesOfItsCurve) {
    RandomCurves random(GetParam());
    for (int i = 0; i < 1500; ++i) {
        const CubicBezier curve = random.curve();
        const ControlBox box = ControlBox::of(curve);
        // At halves of halves the boxes of the parts have their corners.
        const CGPoint on = *curve.pointAt(random.wholeBetween(0, 64) / 64.0);
        const CGFloat off = std::pow(10, random.between(-15, 3));
        for (const CGPoint from :
             {on, on + CGPoint{off, 0}, on + CGPoint{random.between(-off, off), off},
              random.pointFor(curve)}) {
            const CGFloat squared = distance(on, from, true);
            EXPECT_FALSE(box.squaredDistance(from) > squared);
            for (int depth = 0; depth <= 5; ++depth)
                EXPECT_FALSE(box.isBeyond(from, std::sqrt(squared), depth))
                    << depth << " halvings, " << std::sqrt(squared) << " away";
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Curves, ControlBoxOfKind, ::testing::ValuesIn(test::allCurveKinds),
                         [](const auto& kind) { return nameOf(kind.param); });

TEST(ControlBox, holdsACurveWhoseHandlesAreLeftOutInEvaluation) {
    RandomCurves random(CurveKind::anywhere);
    for (int i = 0; i < 2000; ++i) {
        const auto within = [&random](CGFloat size) {
            return CGPoint{random.between(-size, size), random.between(-size, size)};
        };
        const CubicBezier curve{within(1e-4), within(9e-13), within(1e-5), within(1e-4)};
        const CGPoint on = *curve.pointAt(random.wholeBetween(0, 64) / 64.0);
        EXPECT_FALSE(ControlBox::of(curve).isBeyond(on, 0, 5));
    }
}

TEST(ControlBox, isNothingFromWithin) {
    EXPECT_EQ(arch.squaredDistance({5, 9}), 0);
    EXPECT_EQ(arch.squaredDistance({10, 10}), 0);
    EXPECT_FALSE(arch.isBeyond({5, 9}, 0));
}

TEST(ControlBox, isMeasuredSquareFromOutside) {
    EXPECT_NEAR(arch.squaredDistance({13, 14}), 25, 1e-9);
    EXPECT_NEAR(arch.squaredDistance({-2, 5}), 4, 1e-9);
    EXPECT_NEAR(arch.squaredDistance({5, -3}), 9, 1e-9);
}

TEST(ControlBox, rulesOutMoreByItsHalves) {
    // Between the legs of the arch, in its box, and yet 3 points away from it.
    const CGPoint amid{5, 2};
    EXPECT_FALSE(arch.isBeyond(amid, 3));
    EXPECT_FALSE(arch.isBeyond(amid, 3, 0));
    EXPECT_TRUE(arch.isBeyond(amid, 3, 5));
    EXPECT_FALSE(arch.isBeyond(amid, 5, 5));
}

TEST(ControlBox, isBeyondOnlyWhereCertainly) {
    EXPECT_TRUE(arch.isBeyond({13, 14}, 4.999));
    EXPECT_FALSE(arch.isBeyond({13, 14}, 5));
    EXPECT_FALSE(arch.isBeyond({13, 14}, std::nextafter(5, 0))) << "the root may round to 5";
    EXPECT_TRUE(arch.isBeyond({13, 14}, 0));
    EXPECT_FALSE(arch.isBeyond({13, 14}, notANumber));
    EXPECT_FALSE(arch.isBeyond({notANumber, 5}, 1, 5));
    EXPECT_FALSE(arch.isBeyond({1e300, 14}, infinity));
    EXPECT_FALSE(arch.isBeyond({infinity, 14}, infinity));
}

}  // namespace
}  // namespace quorin
