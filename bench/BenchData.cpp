#include "bench/BenchData.h"

#include <cmath>
#include <cstdint>

#include "quorin/geometry/PointArithmetic.h"

namespace quorin::bench {

namespace {

constexpr CGFloat boxSide = 1000;

}  // namespace

CGFloat FixedNumbers::between(CGFloat low, CGFloat high) {
    // Source: S. Vigna, splitmix64, public domain constants.
    state += 0x9e3779b97f4a7c15;
    std::uint64_t bits = state;
    bits = (bits ^ (bits >> 30)) * 0xbf58476d1ce4e5b9;
    bits = (bits ^ (bits >> 27)) * 0x94d049bb133111eb;
    bits ^= bits >> 31;
    return low + (high - low) * (static_cast<CGFloat>(bits >> 11) * 0x1p-53);
}

CGPoint FixedNumbers::pointIn(CGFloat extent) {
    const CGFloat x = between(0, extent);
    return {x, between(0, extent)};
}

std::vector<CubicBezier> randomCubics(std::size_t count) {
    FixedNumbers numbers(1);
    std::vector<CubicBezier> cubics;
    for (std::size_t i = 0; i < count; ++i) {
        const CGPoint p1 = numbers.pointIn(boxSide), c1 = numbers.pointIn(boxSide);
        const CGPoint c2 = numbers.pointIn(boxSide), p2 = numbers.pointIn(boxSide);
        cubics.push_back({p1, c1 - p1, c2 - p2, p2});
    }
    return cubics;
}

std::shared_ptr<Path> scribble(std::size_t cubicCount) {
    FixedNumbers numbers(2);
    const auto path = Path::create();
    path->moveTo(numbers.pointIn(boxSide));
    for (std::size_t i = 0; i < cubicCount; ++i) {
        const CGPoint c1 = numbers.pointIn(boxSide), c2 = numbers.pointIn(boxSide);
        path->addCurveTo(numbers.pointIn(boxSide), c1, c2);
    }
    return path;
}

std::shared_ptr<Path> bumpyOutline(std::size_t cubicCount) {
    FixedNumbers numbers(3);
    const CGPoint centre = {boxSide / 2, boxSide / 2};
    const auto at = [&](CGFloat turn) {
        const CGFloat radius = boxSide * numbers.between(0.40, 0.42);
        const CGFloat angle = scalar::twoPi * turn;
        return centre + CGPoint{radius * std::cos(angle), radius * std::sin(angle)};
    };
    const auto path = Path::create();
    path->moveTo(at(0));
    const CGFloat step = 1 / static_cast<CGFloat>(cubicCount);
    for (std::size_t i = 0; i + 1 < cubicCount; ++i) {
        const CGFloat turn = static_cast<CGFloat>(i) * step;
        const CGPoint c1 = at(turn + step / 3), c2 = at(turn + 2 * step / 3);
        path->addCurveTo(at(turn + step), c1, c2);
    }
    path->closePath();
    return path;
}

}  // namespace quorin::bench
