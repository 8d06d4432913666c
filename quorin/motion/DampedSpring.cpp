#include "quorin/motion/DampedSpring.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>

#include "quorin/platform/values/FatalError.h"
#include "quorin/platform/values/TextForm.h"

namespace quorin {

namespace {

constexpr CGFloat settled = 0.001;

void requirePositive(const char* what, CGFloat number) {
    if (!(number > 0))
        fatalError(std::string("damped spring with ").append(what).append(textForm(number)));
}

}  // namespace

// √|1 - ζ²| by its factors, and the slow decay ω·(ζ - √(ζ² - 1)) as ω / (ζ + √(ζ² - 1)): neither
// loses digits near a ratio of 1, nor overflows far above.
DampedSpring::DampedSpring(CGFloat dampingRatio, CGFloat frequency, CGFloat velocity)
    : _frequency(frequency),
      excess(velocity - dampingRatio * frequency),
      isSwinging(dampingRatio < 1) {
    const CGFloat root = std::sqrt(std::abs(1 - dampingRatio)) * std::sqrt(1 + dampingRatio);
    decay = isSwinging ? dampingRatio * frequency : frequency / (dampingRatio + root);
    split = frequency * root;
}

// With the decays d and d + 2s, cosh(s·t) and sinh(s·t) / s are folded into e^(-d·t), because
// alone they would overflow.
DampedSpring::Response DampedSpring::responseAt(CGFloat time) const {
    const CGFloat envelope = std::exp(-decay * time);
    if (isSwinging) {
        const CGFloat angle = split * time;
        return {envelope * std::cos(angle), envelope * (std::sin(angle) / split)};
    }
    if (split == 0)
        return {envelope, envelope * time};
    const CGFloat lost = -std::expm1(-2 * split * time);
    return {envelope * (1 - lost / 2), envelope * (lost / (2 * split))};
}

CGFloat DampedSpring::operator()(CGFloat time) const {
    const Response response = responseAt(time);
    return 1 - response.held + excess * response.pushed;
}

/// A bound on the distance from rest at `time` and later, provided that it is below 1. Sine and
/// cosine together reach the hypotenuse, but close to a ratio of 1 it takes them a long time, and
/// until then the sine is below its angle.
CGFloat DampedSpring::greatestDistanceFrom(CGFloat time) const {
    if (isSwinging)
        return std::exp(-decay * time) *
               std::min(std::hypot(1, excess / split), 1 + std::abs(excess) * time);
    const Response response = responseAt(time);
    return response.held + std::abs(excess) * response.pushed;
}

DampedSpring DampedSpring::settlingIn(CGFloat dampingRatio, CGFloat velocity, CGFloat duration) {
    requirePositive("a ratio of ", dampingRatio);
    requirePositive("a duration of ", duration);
    // In units of the duration, so that neither bound depends on its size.
    const auto settlesWith = [&](CGFloat frequency) {
        const DampedSpring spring(dampingRatio, frequency, velocity * duration);
        return !(spring.greatestDistanceFrom(1) > settled);
    };
    CGFloat tooSlow = 0, fastEnough = 1;
    while (!settlesWith(fastEnough))
        fastEnough *= 2;
    for (CGFloat middle = fastEnough / 2; tooSlow < middle && middle < fastEnough;
         middle = tooSlow + (fastEnough - tooSlow) / 2)
        (settlesWith(middle) ? fastEnough : tooSlow) = middle;
    return DampedSpring(dampingRatio, fastEnough / duration, velocity);
}

std::vector<CGFloat> dampedSpringAnimation(CGFloat dampingRatio, CGFloat velocity, CGFloat duration,
                                           CGFloat delta) {
    requirePositive("a delta of ", delta);
    const DampedSpring spring = DampedSpring::settlingIn(dampingRatio, velocity, duration);
    // A count that no memory holds is left to the vector to refuse.
    const CGFloat count = std::clamp(std::ceil(duration / delta), 1.0, 0x1p62);
    std::vector<CGFloat> curve(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < curve.size(); ++i)
        curve[i] = spring(static_cast<CGFloat>(i) * delta);
    return curve;
}

}  // namespace quorin
