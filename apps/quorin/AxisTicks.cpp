#include "apps/quorin/AxisTicks.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace quorin::app {

namespace {

/// The power of ten in a number, also where rounding left its logarithm a little short.
int exponentOf(CGFloat number) { return static_cast<int>(std::floor(std::log10(number) + 1e-9)); }

/// The first round number that is not smaller.
CGFloat roundStep(CGFloat atLeast) {
    const CGFloat power = std::pow(10.0, exponentOf(atLeast));
    for (const CGFloat factor : {1.0, 2.0, 5.0})
        if (factor * power >= atLeast)
            return factor * power;
    return 10 * power;
}

}  // namespace

AxisTicks::AxisTicks(CGFloat from, CGFloat to, std::size_t most)
    : step(roundStep((to - from) / static_cast<CGFloat>(std::max<std::size_t>(1, most)))) {
    // Counted in whole steps, so that no error adds up and 0 is exactly 0. An end that is a round
    // number counts although the step that leads there may be off by a rounding.
    constexpr CGFloat rounding = 1e-9;
    for (CGFloat i = std::ceil(from / step - rounding); i <= to / step + rounding; ++i)
        _places.push_back(std::clamp(i * step, from, to) + 0.0);
}

std::string AxisTicks::text(CGFloat place) const {
    std::array<char, 64> buffer{};
    char* const end = buffer.data() + buffer.size();
    const int exponent = exponentOf(step);
    const bool isFixed = exponent > -6 && std::abs(place) < 1e7;
    const auto result =
        isFixed ? std::to_chars(buffer.data(), end, place, std::chars_format::fixed,
                                std::max(0, -exponent))
                : std::to_chars(buffer.data(), end, place, std::chars_format::general, 6);
    return {buffer.data(), result.ptr};
}

}  // namespace quorin::app
