#include "quorin/motion/UIKitSpring.h"

#include <cmath>
#include <cstddef>

#include "quorin/geometry/Finiteness.h"
#include "quorin/motion/MDSpring.h"
#include "quorin/motion/SpringParameters.h"

namespace quorin {

namespace {

constexpr CGFloat settled = 0.001;
constexpr CGFloat logarithmOfSettled = -6.907755278982137;

}  // namespace

std::vector<CGFloat> UIKitSpringAnimation(CGFloat dampingRatio, CGFloat velocity, CGFloat duration,
                                          CGFloat delta) {
    const auto [damping, stiffness] =
        generateSpringParameters(dampingRatio, velocity, duration == 0 ? 0.001 : duration);
    const MDSpring spring(dampingRatio, damping, stiffness, 1, velocity);
    if (duration == 0)
        return {finite(spring(delta))};

    std::vector<CGFloat> curve;
    const CGFloat expected = duration / delta;
    if (expected > 0 && expected < 1e6)
        curve.reserve(static_cast<std::size_t>(expected) + 2);
    const CGFloat rate = logarithmOfSettled / duration;
    CGFloat index = 0;
    do {
        curve.push_back(finite(spring(index * delta)));
        ++index;
    } while (std::exp(rate * index * delta) > settled);
    return curve;
}

}  // namespace quorin
