#include "quorin/motion/SpringParameters.h"

#include <cmath>
#include <limits>

#include "tests/TestSupport.h"

namespace quorin {
namespace {

constexpr CGFloat nan = std::numeric_limits<CGFloat>::quiet_NaN();

long double omegaOf(const SpringParameters& spring) {
    return std::sqrt(static_cast<long double>(spring.stiffness));
}

/// e^(-ωdζ) · |ωζ - v| / (ω·√(1 - ζ²)), what the motion has left after the duration.
long double underdampedEnvelope(long double omega, long double zeta, long double v, long double d) {
    return std::exp(-omega * d * zeta) *
           std::abs((omega * zeta - v) / (omega * std::sqrt(1 - zeta * zeta)));
}

/// Newton's method on the logarithm-free envelope, its slope by a difference instead of a formula.
template <typename Function>
long double newton(const Function& f, long double omega, int stepCount) {
    for (int i = 0; i < stepCount; ++i) {
        const long double h = omega * 1e-7L;
        omega -= f(omega) / ((f(omega + h) - f(omega - h)) / (2 * h));
    }
    return omega;
}

TEST(GenerateSpringParameters, letsTheEnvelopeFallToAThousandthInTheDuration) {
    for (const CGFloat ratio : {0.1, 0.3, 0.5, 0.8, 0.95})
        for (const CGFloat velocity : {-2.0, 0.0, 1.0})
            for (const CGFloat duration : {0.25, 0.5, 1.0, 3.0}) {
                SCOPED_TRACE(testing::Message() << ratio << ", " << velocity << ", " << duration);
                const SpringParameters spring = generateSpringParameters(ratio, velocity, duration);
                const long double omega = omegaOf(spring);
                EXPECT_NEAR(
                    static_cast<CGFloat>(underdampedEnvelope(omega, ratio, velocity, duration)),
                    0.001, 1e-12);
                EXPECT_DOUBLE_EQ(spring.damping, static_cast<CGFloat>(2 * ratio * omega));
            }
}

TEST(GenerateSpringParameters, letsTheCriticalMotionFallToAThousandthInTheDuration) {
    for (const CGFloat velocity : {-2.0, 0.0, 1.0})
        for (const CGFloat duration : {0.25, 0.5, 1.0, 3.0}) {
            SCOPED_TRACE(testing::Message() << velocity << ", " << duration);
            const SpringParameters spring = generateSpringParameters(1, velocity, duration);
            const long double omega = omegaOf(spring);
            const long double left =
                std::exp(-omega * duration) * (1 + (omega - velocity) * duration);
            EXPECT_NEAR(static_cast<CGFloat>(left), 0.001, 1e-12);
            EXPECT_DOUBLE_EQ(spring.damping, static_cast<CGFloat>(2 * omega));
        }
}

TEST(GenerateSpringParameters, takeTwelveStepsEvenWhereMoreAreNeeded) {
    // A slow start: the envelope falls by a factor of e a step.
    const auto envelope = [](long double omega) {
        return underdampedEnvelope(omega, 0.02L, 1000, 1) - 0.001L;
    };
    const SpringParameters spring = generateSpringParameters(0.02, 1000, 1);
    const auto expected = static_cast<CGFloat>(newton(envelope, 5, 12));
    EXPECT_NEAR(static_cast<CGFloat>(omegaOf(spring)), expected, 1e-8 * expected);
    EXPECT_GT(static_cast<CGFloat>(newton(envelope, 5, 13)), expected + 10);
    EXPECT_LT(static_cast<CGFloat>(newton(envelope, 5, 11)), expected - 10);
}

TEST(GenerateSpringParameters, takeTwelveCriticalStepsFromTheSideOfTheStart) {
    for (const CGFloat velocity : {5.1, 4.9}) {
        // The side is asked anew in each step, 4.9 driving ω below the velocity and then far away.
        const auto motion = [v = static_cast<long double>(velocity)](long double omega,
                                                                     long double target) {
            return std::exp(-omega) * (omega - v + 1) - target;
        };
        long double omega = 5;
        for (int i = 0; i < 12; ++i) {
            const long double target = omega > velocity ? 0.001L : -0.001L;
            omega = newton([&](long double w) { return motion(w, target); }, omega, 1);
        }
        const SpringParameters spring = generateSpringParameters(1, velocity, 1);
        EXPECT_NEAR(spring.damping, 2 * std::abs(static_cast<CGFloat>(omega)), 1e-5) << velocity;
    }
}

TEST(GenerateSpringParameters, goesToTheSlowerSpringWhereTheVelocityIsThatOfTheDecay) {
    // At the first ω, 5, nothing is left of ωζ - v, and a spring on either side would do.
    const SpringParameters spring = generateSpringParameters(0.5, 2.5, 1);
    const long double omega = omegaOf(spring);
    EXPECT_LT(static_cast<CGFloat>(omega), 5);
    EXPECT_NEAR(static_cast<CGFloat>(underdampedEnvelope(omega, 0.5L, 2.5L, 1)), 0.001, 1e-12);
}

TEST(GenerateSpringParameters, dampsARatioOfTwoCriticallyAndNotTwiceAsMuch) {
    const SpringParameters spring = generateSpringParameters(2, 0.5, 0.7);
    EXPECT_EQ(spring.damping, 2 * std::sqrt(spring.stiffness));
    EXPECT_EQ(spring.stiffness, generateSpringParameters(1, 0.5, 0.7).stiffness);
    EXPECT_EQ(spring.damping, generateSpringParameters(1, 0.5, 0.7).damping);
}

TEST(GenerateSpringParameters, takesARatioThatIsNotANumberAsCriticalButDampsByIt) {
    const SpringParameters spring = generateSpringParameters(nan, 0.5, 0.7);
    EXPECT_EQ(spring.stiffness, generateSpringParameters(1, 0.5, 0.7).stiffness);
    EXPECT_TRUE(std::isnan(spring.damping));
}

TEST(GenerateSpringParameters, areNotFiniteForADurationOfZero) {
    EXPECT_TRUE(std::isnan(generateSpringParameters(0.5, 0, 0).stiffness));
    EXPECT_TRUE(std::isnan(generateSpringParameters(1, 0, 0).stiffness));
}

}  // namespace
}  // namespace quorin
