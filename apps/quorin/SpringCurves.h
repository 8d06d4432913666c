#pragma once

#include <cstddef>
#include <optional>

#include "apps/quorin/TimeCurve.h"
#include "quorin/platform/values/CGGeometry.h"

/// Curves of the library's springs. Numbers with which a spring finds no end or no motion, and
/// steps that make more than `mostSpringValues`, throw `CLI::ValidationError` before the library
/// is asked.
namespace quorin::app {

inline constexpr std::size_t mostSpringValues = 1'000'000;

/// What a spring may be described by. Times are in seconds, velocities in progress per second.
struct SpringNumbers {
    CGFloat tension = 200, friction = 15;
    std::optional<CGFloat> ratio;
    std::optional<CGFloat> duration;
    CGFloat damping = 10, stiffness = 100, mass = 1;
    CGFloat velocity = 0;
    CGFloat delta = 1.0 / 60;
};

/// By `RK4SpringAnimation`, from tension and friction.
TimeCurve rk4Curve(const SpringNumbers& numbers);
/// By `UIKitSpringAnimation`, from ratio and duration.
TimeCurve timedCurve(const SpringNumbers& numbers);
/// By `MDSpring`, from damping, stiffness and mass.
TimeCurve oscillatorCurve(const SpringNumbers& numbers);
/// By `dampedSpringAnimation`, from ratio and duration.
TimeCurve dampedCurve(const SpringNumbers& numbers);

}  // namespace quorin::app
