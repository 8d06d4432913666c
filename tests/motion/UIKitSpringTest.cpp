#include "quorin/motion/UIKitSpring.h"

#include <cmath>
#include <limits>
#include <vector>

#include "quorin/motion/MDSpring.h"
#include "quorin/motion/SpringParameters.h"
#include "tests/TestSupport.h"
#include "tests/motion/SpringTruth.h"
#include "tests/support/AllocationCount.h"

namespace quorin {
namespace {

using test::TrueSpring;
using test::TrueState;
using testing::Each;
using testing::ElementsAre;

constexpr CGFloat frame = 1.0 / 60;
constexpr CGFloat infinity = std::numeric_limits<CGFloat>::infinity();
constexpr CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();
constexpr CGFloat greatest = 1.7976931348623157e308;
constexpr CGFloat least = 2.2250738585072014e-308;

TEST(UIKitSpringAnimation, followsTheTrueMotionOfItsParameters) {
    for (const CGFloat ratio : {0.2, 0.6, 1.0}) {
        const SpringParameters spring = generateSpringParameters(ratio, 2, 0.5);
        const std::vector<CGFloat> curve = UIKitSpringAnimation(ratio, 2, 0.5, frame);
        for (std::size_t i = 0; i < curve.size(); i += 5) {
            const TrueState truth =
                test::moved(TrueSpring{spring.stiffness, spring.damping}, TrueState{0, 2},
                            static_cast<long double>(static_cast<CGFloat>(i) * frame));
            EXPECT_NEAR(curve[i], static_cast<CGFloat>(truth.progress), 1e-12)
                << ratio << ", " << i;
        }
    }
}

TEST(UIKitSpringAnimation, withDurationZeroReturnsTheOneValueAfterDelta) {
    for (const CGFloat ratio : {0.5, 1.0}) {
        const SpringParameters spring = generateSpringParameters(ratio, 3, 0.001);
        const MDSpring progress(ratio, spring.damping, spring.stiffness, 1, 3);
        EXPECT_THAT(UIKitSpringAnimation(ratio, 3, 0, 1e-4), ElementsAre(progress(1e-4)));
        EXPECT_THAT(UIKitSpringAnimation(ratio, 3, -0.0, 1e-4), ElementsAre(progress(1e-4)));
    }
}

TEST(UIKitSpringAnimation, startsAtZero) {
    EXPECT_EQ(UIKitSpringAnimation(0.5, 3, 1, frame).front(), 0);
    EXPECT_EQ(UIKitSpringAnimation(1, 3, 1, frame).front(), 0);
}

TEST(UIKitSpringAnimation, takesTheFirstSampleHoweverLongTheStep) {
    EXPECT_THAT(UIKitSpringAnimation(0.5, 3, 1, 100), ElementsAre(0));
    EXPECT_THAT(UIKitSpringAnimation(0.5, 3, 1, infinity), ElementsAre(0));  // 0 · ∞ is repaired
    EXPECT_THAT(UIKitSpringAnimation(0.5, 3, nan, frame), ElementsAre(0));
}

TEST(UIKitSpringAnimation, goesOnWhileTheEnvelopeIsAboveAThousandth) {
    struct Row {
        const char* says;
        CGFloat duration, delta;
        std::size_t count;
    };
    const Row table[] = {
        {"0 and 0.4 and 0.8", 1, 0.4, 3},
        {"0.999 is still below 1", 1, 0.999, 2},
        {"1.001 is not", 1, 1.001, 1},
        // The double nearest to ln 0.001 lies above it, so its exponential exceeds 0.001.
        {"the end itself counts where nothing rounds", 1, 1, 2},
        {"and so at a quarter", 0.25, 0.25, 2},
        // 3 · 0.1 is beyond 0.3 in doubles; the rate times 3 times 0.1 is not beyond the end.
        {"the rate is multiplied by the index first", 0.3, 0.1, 4},
        {"and so at every step", 0.7, 0.1, 8},
    };
    for (const auto& [says, duration, delta, count] : table)
        EXPECT_EQ(UIKitSpringAnimation(0.5, 0, duration, delta).size(), count) << says;
}

TEST(UIKitSpringAnimation, isZeroThroughoutAboveARatioOfOne) {
    EXPECT_THAT(UIKitSpringAnimation(2, 3, 1, frame), Each(0));
    EXPECT_EQ(UIKitSpringAnimation(2, 3, 1, frame).size(),
              UIKitSpringAnimation(1, 3, 1, frame).size());
    EXPECT_THAT(UIKitSpringAnimation(2, 3, 0, frame), ElementsAre(0));
    EXPECT_THAT(UIKitSpringAnimation(nan, 3, 0.1, frame), Each(0));
}

TEST(UIKitSpringAnimation, repairsInfinitiesToTheGreatestAndTheLeastPositiveNumber) {
    // Seen back in time the critical motion grows without bound; ω is about 9200.
    EXPECT_THAT(UIKitSpringAnimation(1, 0, 0, -1), ElementsAre(greatest));
    EXPECT_THAT(UIKitSpringAnimation(1, 20'000, 0, -1), ElementsAre(least));
}

TEST(UIKitSpringAnimation, allocatesItsResultAndNothingElse) {
    for (const CGFloat duration : {0.0, 0.3, 10.0}) {
        const std::size_t before = test::allocationCount();
        const std::vector<CGFloat> curve = UIKitSpringAnimation(0.5, 3, duration, frame);
        EXPECT_EQ(test::allocationCount() - before, 1u) << curve.size() << " values";
    }
}

}  // namespace
}  // namespace quorin
