#include "quorin/motion/MDSpring.h"

#include <cmath>
#include <limits>

#include "tests/TestSupport.h"
#include "tests/motion/SpringTruth.h"
#include "tests/support/AllocationCount.h"

namespace quorin {
namespace {

using test::TrueSpring;
using test::TrueState;

constexpr CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();

TEST(MDSpring, isZeroAtTheStartInEveryBranch) {
    EXPECT_EQ(MDSpring(0.5, 10, 100, 1, 3)(0), 0);
    EXPECT_EQ(MDSpring(1, 20, 100, 1, 3)(0), 0);
    EXPECT_EQ(MDSpring(1.5, 30, 100, 1, 3)(0), 0);
}

TEST(MDSpring, followsTheTrueMotionBelowARatioOfOne) {
    for (const CGFloat mass : {1.0, 2.5})
        for (const CGFloat velocity : {-4.0, 0.0, 7.0}) {
            // 2·√(100 · mass) would be critical.
            const MDSpring spring(0.5, std::sqrt(100 * mass), 100, mass, velocity);
            const TrueSpring truth{100.0L / mass, std::sqrt(100.0L * mass) / mass};
            for (const CGFloat time : {0.01, 0.1, 0.3, 0.7, 1.9}) {
                const TrueState state = test::moved(truth, TrueState{0, velocity}, time);
                EXPECT_NEAR(spring(time), static_cast<CGFloat>(state.progress), 1e-13)
                    << mass << ", " << velocity << ", " << time;
            }
        }
}

TEST(MDSpring, followsTheTrueMotionAtARatioOfOne) {
    const MDSpring spring(1, 20, 100, 1, 5);
    for (const CGFloat time : {0.01, 0.1, 0.3, 0.7, 1.9}) {
        const TrueState state = test::moved(TrueSpring{100, 20}, TrueState{0, 5}, time);
        EXPECT_NEAR(spring(time), static_cast<CGFloat>(state.progress), 1e-13) << time;
    }
}

TEST(MDSpring, swingsAboveARatioOfOneInsteadOfCreeping) {
    // c = 30, k = 100, m = 1: β = 15 and ωd = √125.
    const MDSpring spring(1.5, 30, 100, 1, 2);
    const long double frequency = std::sqrt(125.0L);
    for (const CGFloat time : {0.01, 0.1, 0.3, 0.7}) {
        const long double angle = frequency * time;
        const long double circular =
            1 +
            std::exp(-15.0L * time) * (-std::cos(angle) + (-15 + 2) / frequency * std::sin(angle));
        EXPECT_NEAR(spring(time), static_cast<CGFloat>(circular), 1e-14) << time;
    }
    const TrueState creeping = test::moved(TrueSpring{100, 30}, TrueState{0, 2}, 0.3L);
    EXPECT_GT(std::abs(spring(0.3) - static_cast<CGFloat>(creeping.progress)), 0.1);
}

TEST(MDSpring, asksTheRatioForTheBranchOnly) {
    // The motion of c = 10, k = 100, m = 1 has a ratio of 0.5, whatever is said below 1.
    EXPECT_EQ(MDSpring(0.01, 10, 100, 1, 3)(0.2), MDSpring(0.99, 10, 100, 1, 3)(0.2));
    EXPECT_EQ(MDSpring(1.01, 30, 100, 1, 3)(0.2), MDSpring(9, 30, 100, 1, 3)(0.2));
    EXPECT_EQ(MDSpring(-3, 10, 100, 1, 3)(0.2), MDSpring(0.5, 10, 100, 1, 3)(0.2));
    // e^(-0.2 · 5) · (-1 + (-5 + 3) · 0.2) + 1
    EXPECT_DOUBLE_EQ(MDSpring(1, 10, 100, 1, 3)(0.2), 1 - 1.4 * std::exp(-1.0));
}

TEST(MDSpring, isCriticalAtExactlyOne) {
    const CGFloat critical = MDSpring(1, 10, 100, 1, 0)(0.2);
    EXPECT_NE(MDSpring(std::nextafter(1, 0), 10, 100, 1, 0)(0.2), critical);
    EXPECT_TRUE(std::isnan(MDSpring(std::nextafter(1, 2), 10, 100, 1, 0)(0.2)))
        << "10 is too little damping for a ratio above 1";
}

TEST(MDSpring, isCriticalForARatioThatIsNotANumber) {
    EXPECT_EQ(MDSpring(nan, 20, 100, 1, 3)(0.2), MDSpring(1, 20, 100, 1, 3)(0.2));
}

TEST(MDSpring, doesNotAllocate) {
    const std::size_t before = test::allocationCount();
    const MDSpring spring(0.5, 10, 100, 1, 3);
    EXPECT_GT(spring(0.5), 0);
    EXPECT_EQ(test::allocationCount(), before);
}

}  // namespace
}  // namespace quorin
