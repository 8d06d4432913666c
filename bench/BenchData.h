#pragma once

#include <memory>
#include <vector>

#include "quorin/path/CubicBezier.h"
#include "quorin/path/Path.h"

namespace quorin::bench {

/// The same numbers in every run and on every machine.
class FixedNumbers {
public:
    explicit FixedNumbers(std::uint64_t seed) : state(seed) {}

    /// Uniform in [low, high), by the splitmix64 generator.
    CGFloat between(CGFloat low, CGFloat high);
    CGPoint pointIn(CGFloat extent);

private:
    std::uint64_t state;
};

/// Cubics whose four points lie anywhere in a box of 1000 by 1000.
std::vector<CubicBezier> randomCubics(std::size_t count);
/// One contour of such cubics: every curve spans a good part of the box.
std::shared_ptr<Path> scribble(std::size_t cubicCount);
/// A closed outline with many small bumps, as of a traced drawing: every curve is short.
std::shared_ptr<Path> bumpyOutline(std::size_t cubicCount);

}  // namespace quorin::bench
