#include "apps/quorin/SpringCurves.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "apps/quorin/TextTable.h"
#include "quorin/motion/DampedSpring.h"
#include "quorin/motion/MDSpring.h"
#include "quorin/motion/RK4Spring.h"
#include "quorin/motion/SpringParameters.h"
#include "quorin/motion/UIKitSpring.h"

namespace quorin::app {

namespace {

constexpr CGFloat usualRatio = 0.5, usualDuration = 1;

std::string seconds(CGFloat time) { return shortText(time).append(" s"); }

std::string titleOf(const std::string& what, CGFloat velocity) {
    std::string title = "A spring with ";
    title.append(what);
    return velocity == 0 ? title : title.append(", velocity ").append(shortText(velocity));
}

void requireCount(CGFloat duration, CGFloat delta) {
    if (duration / delta <= static_cast<CGFloat>(mostSpringValues))
        return;
    std::string message = "steps of ";
    message.append(seconds(delta)).append(" make more than ");
    message.append(std::to_string(mostSpringValues)).append(" values in ");
    throw CLI::ValidationError("--delta", message.append(seconds(duration)));
}

/// The curve itself, whose values leave room for calculating with them.
TimeCurve usable(TimeCurve curve) {
    constexpr CGFloat farthest = 1e300;
    if (!std::all_of(curve.values.begin(), curve.values.end(),
                     [](CGFloat value) { return std::abs(value) <= farthest; }))
        throw CLI::ParseError("The motion goes beyond what numbers can hold",
                              CLI::ExitCodes::ValidationError);
    return curve;
}

/// Steps the spring as `RK4SpringAnimation` would, which by itself never gives up.
void requireRest(const SpringNumbers& numbers) {
    CGFloat value = 0;
    CGFloat velocity = std::clamp(numbers.velocity, -100.0, 100.0);
    for (std::size_t i = 0; i < mostSpringValues; ++i)
        if (lerpRK4Spring(value, numbers.tension, numbers.friction, velocity, numbers.delta))
            return;
    constexpr CGFloat astray = 1e15;
    std::string message = "steps of ";
    message.append(seconds(numbers.delta));
    if (std::abs(value) > astray)
        message.append(" are too long for this spring, whose motion grows without end");
    else
        message.append(" do not bring this spring to rest within ")
            .append(std::to_string(mostSpringValues))
            .append(" of them");
    throw CLI::ValidationError("--delta", message);
}

/// The library's spring follows the ratio, and damping, stiffness and mass must agree with it.
void requireAgreement(CGFloat ratio, CGFloat own) {
    const bool agrees = ratio == 1 || (ratio < 1 && own < 1) || (ratio > 1 && own > 1);
    if (agrees)
        return;
    std::string message = "expected ";
    message.append(ratio < 1 ? "1 or more" : "1 or less").append(", as the ratio of damping, ");
    message.append("stiffness and mass is ").append(shortText(own));
    throw CLI::ValidationError("--ratio", message);
}

}  // namespace

TimeCurve rk4Curve(const SpringNumbers& numbers) {
    requireRest(numbers);
    const std::string what =
        "tension " + shortText(numbers.tension) + " and friction " + shortText(numbers.friction);
    return {titleOf(what, numbers.velocity), numbers.delta, 1,
            RK4SpringAnimation(numbers.tension, numbers.friction, numbers.velocity, numbers.delta)};
}

TimeCurve timedCurve(const SpringNumbers& numbers) {
    const CGFloat ratio = numbers.ratio.value_or(usualRatio);
    const CGFloat duration = numbers.duration.value_or(usualDuration);
    requireCount(duration, numbers.delta);
    const auto [damping, stiffness] = generateSpringParameters(ratio, numbers.velocity, duration);
    if (!std::isfinite(damping) || !std::isfinite(stiffness))
        throw CLI::ParseError("No such spring was found, but quorin spring damped may have one",
                              CLI::ExitCodes::ValidationError);
    const std::string what =
        "damping ratio " + shortText(ratio) + " for a duration of " + seconds(duration);
    return usable({titleOf(what, numbers.velocity), numbers.delta, 0,
                   UIKitSpringAnimation(ratio, numbers.velocity, duration, numbers.delta)});
}

TimeCurve oscillatorCurve(const SpringNumbers& numbers) {
    const CGFloat decay = numbers.damping / (2 * numbers.mass);
    const CGFloat own = decay / std::sqrt(numbers.stiffness / numbers.mass);
    const CGFloat ratio = numbers.ratio.value_or(own);
    requireAgreement(ratio, own);
    // Until the envelope has fallen to 0.001.
    const CGFloat duration = numbers.duration.value_or(std::log(1000) / decay);
    requireCount(duration, numbers.delta);
    const MDSpring spring(ratio, numbers.damping, numbers.stiffness, numbers.mass,
                          numbers.velocity);
    const std::string what = "damping " + shortText(numbers.damping) + ", stiffness " +
                             shortText(numbers.stiffness) + ", mass " + shortText(numbers.mass);
    TimeCurve curve = {titleOf(what, numbers.velocity), numbers.delta, 0, {}};
    const auto count = static_cast<std::size_t>(duration / numbers.delta) + 1;
    for (std::size_t i = 0; i < count; ++i)
        curve.values.push_back(spring(curve.timeAt(i)));
    return usable(std::move(curve));
}

TimeCurve dampedCurve(const SpringNumbers& numbers) {
    const CGFloat ratio = numbers.ratio.value_or(usualRatio);
    const CGFloat duration = numbers.duration.value_or(usualDuration);
    requireCount(duration, numbers.delta);
    const std::string what =
        "damping ratio " + shortText(ratio) + ", settling in " + seconds(duration);
    return usable({titleOf(what, numbers.velocity), numbers.delta, 0,
                   dampedSpringAnimation(ratio, numbers.velocity, duration, numbers.delta)});
}

}  // namespace quorin::app
