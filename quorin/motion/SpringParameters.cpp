#include "quorin/motion/SpringParameters.h"

#include <cmath>

namespace quorin {

namespace {

constexpr int stepCount = 12;
constexpr CGFloat settled = 0.001;

/// A Newton step of the envelope e^(-ωdζ) · |ωζ - v| / (aω) towards `settled`, with a = √(1 - ζ²).
CGFloat underdampedStep(CGFloat omega, CGFloat zeta, CGFloat v, CGFloat d) {
    const CGFloat a = std::sqrt(1 - zeta * zeta);
    const CGFloat p = (omega * zeta - v) / (a * omega);
    const CGFloat e = std::exp(-omega * d * zeta);
    const CGFloat g = settled - std::abs(e * p);
    const CGFloat q = zeta * d * v * omega + v - zeta * zeta * (omega * omega) * d;
    const CGFloat derivative =
        (e * p > 0 ? -q : q) / (std::exp(zeta * d * omega) * a * (omega * omega));
    return omega - g / derivative;
}

/// A Newton step of the critical motion e^(-ωd) · ((ω - v)·d + 1) towards `settled`, from the side
/// on which it is.
CGFloat criticalStep(CGFloat omega, CGFloat v, CGFloat d) {
    const CGFloat t = omega - v;
    const CGFloat c = t > 0 ? settled : -settled;
    const CGFloat f = std::exp(-omega * d) * (t * d + 1) - c;
    const CGFloat derivative = (v - omega) * (d * d) / std::exp(omega * d);
    return omega - f / derivative;
}

}  // namespace

SpringParameters generateSpringParameters(CGFloat dampingRatio, CGFloat velocity,
                                          CGFloat duration) {
    CGFloat omega = 5 / duration;
    for (int i = 0; i < stepCount; ++i)
        omega = dampingRatio < 1 ? underdampedStep(omega, dampingRatio, velocity, duration)
                                 : criticalStep(omega, velocity, duration);
    const CGFloat effectiveRatio = dampingRatio > 1 ? 1 : dampingRatio;
    const CGFloat stiffness = omega * omega;
    return {effectiveRatio * 2 * std::sqrt(stiffness), stiffness};
}

}  // namespace quorin
