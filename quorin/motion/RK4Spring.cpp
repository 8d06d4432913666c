#include "quorin/motion/RK4Spring.h"

#include <cmath>
#include <cstddef>

#include "quorin/geometry/Clamped.h"
#include "quorin/geometry/Scalar.h"

namespace quorin {

namespace {

constexpr CGFloat restTolerance = 0.002;
constexpr CGFloat greatestInitialVelocity = 100;
/// Four seconds at 60 steps a second: most transitions fit without the array growing.
constexpr std::size_t usualStepCount = 256;

struct Spring {
    CGFloat tension, friction;

    CGFloat accelerationAt(CGFloat x, CGFloat v) const { return -tension * x - friction * v; }
};

/// Unlike `finite`, keeps the sign of an infinity.
CGFloat repaired(CGFloat number) {
    if (std::isfinite(number)) [[likely]]
        return number;
    return std::isnan(number) ? 0 : std::copysign(scalar::greatestFinite, number);
}

bool step(const Spring& spring, CGFloat& value, CGFloat& velocity, CGFloat h) {
    constexpr CGFloat sixth = 1.0 / 6;
    const CGFloat x = value - 1;
    const CGFloat v = velocity;
    const CGFloat a1 = spring.accelerationAt(x, v);
    const CGFloat u2 = v + a1 * h / 2;
    const CGFloat a2 = spring.accelerationAt(x + v * h / 2, u2);
    const CGFloat u3 = v + a2 * h / 2;
    const CGFloat a3 = spring.accelerationAt(x + u2 * h / 2, u3);
    const CGFloat u4 = v + a3 * h;
    const CGFloat a4 = spring.accelerationAt(x + u3 * h, u4);
    const CGFloat nextX = x + (v + 2 * (u2 + u3) + u4) * h * sixth;
    const CGFloat nextV = v + (a1 + 2 * (a2 + a3) + a4) * h * sixth;
    value = repaired(nextX + 1);
    velocity = repaired(nextV);
    // By the way before adding 1 rounds it, but by the velocity that the next step starts with.
    return std::abs(nextX) < restTolerance && std::abs(velocity) < restTolerance;
}

}  // namespace

bool lerpRK4Spring(CGFloat& value, CGFloat tension, CGFloat friction, CGFloat& velocity,
                   CGFloat delta) {
    if (delta == 0)
        return false;
    return step({tension, friction}, value, velocity, delta);
}

std::vector<CGFloat> RK4SpringAnimation(CGFloat tension, CGFloat friction, CGFloat initialVelocity,
                                        CGFloat delta) {
    CGFloat value = 0;
    CGFloat velocity =
        clamped(initialVelocity, ClosedRange{-greatestInitialVelocity, greatestInitialVelocity});
    std::vector<CGFloat> curve;
    curve.reserve(usualStepCount);
    bool isAtRest = false;
    while (!isAtRest) {
        isAtRest = lerpRK4Spring(value, tension, friction, velocity, delta);
        curve.push_back(value);
    }
    return curve;
}

}  // namespace quorin
